// The Magnetic Encoding page: the coercivity of the stripe, retries, and where its data come from.
#include "ui/pages/magnetic/magnetic_encoding_page.h"

#include "companions/device_io.h"
#include "core/driver_files.h"
#include "core/owners.h"
#include "resources/resource.h"
#include "ui/common/bound_buttons.h"
#include "ui/common/controls.h"
#include "ui/common/file_dialog.h"
#include "ui/common/language.h"
#include "ui/pages/magnetic/encoding_rules.h"
#include "ui/pages/magnetic/magnetic_store.h"

#include <commdlg.h>
#include <strsafe.h>

#include <algorithm>

namespace {

// ---- What a page knows beside its controls ------------------------------------------------------

struct PageState {
    EncodingState Encoding;
    WCHAR DatabasePath[kFilePathLength];  ///< chosen or stored; what is typed does not count
};

constexpr const WCHAR* kStateProperty = TEXT("kpdui.magnetic");

PageState commonState;  // of pages for whose own there is no memory

// The page's window keeps it: sheets of several printers may be open in one process.
PageState& StateOf(HWND dialog) {
    auto* own = static_cast<PageState*>(GetPropW(dialog, kStateProperty));
    return own != nullptr ? *own : commonState;
}

void MakeState(HWND dialog) {
    auto own = GlobalBlock<PageState>::Allocate();
    if (own && SetPropW(dialog, kStateProperty, own.get())) {
        own.Release();
    }
    StateOf(dialog) = {};
}

void DropState(HWND dialog, DriverContext&) {
    GlobalFree(RemovePropW(dialog, kStateProperty));
}

// ---- What is enabled ----------------------------------------------------------------------------

// All but the frame of the coercivity, which nothing disables. Labels go with the page as a whole.
constexpr struct {
    int Control;
    EncodingControls Group;
} kEnabling[] = {
    {IDC_HIGH_COERCIVITY, kCommonControls},
    {IDC_LOW_COERCIVITY, kCommonControls},
    {IDC_RETRY_CARDS_LABEL, kCommonControls},
    {IDC_RETRY_CARDS, kCommonControls},
    {IDC_RETRY_CARDS_SCROLL, kCommonControls},
    {IDC_RETRY_TIMES_LABEL, kCommonControls},
    {IDC_RETRY_TIMES, kCommonControls},
    {IDC_RETRY_TIMES_SCROLL, kCommonControls},
    {IDC_ENCODER_PORT_LABEL, kCommonControls},
    {IDC_TRACK_1_BOX, kTrackControls},
    {IDC_TRACK_1, kTrackControls},
    {IDC_TRACK_2_BOX, kTrackControls},
    {IDC_TRACK_2, kTrackControls},
    {IDC_TRACK_3_BOX, kTrackControls},
    {IDC_TRACK_3, kTrackControls},
    {IDC_USING_DATABASE, kCommonControls},
    {IDC_DATABASE_SAMPLE, kCommonControls},
    {IDC_DATABASE_PATH, kDatabaseControls},
    {IDC_BROWSE_DATABASE, kDatabaseControls},
    {IDC_START_RECORD_LABEL, kCommonControls},
    {IDC_START_RECORD, kDatabaseControls},
    {IDC_START_RECORD_SCROLL, kDatabaseControls},
    {IDC_FILTER, kCommonControls},
    {IDC_FILTER_PREFIX_LABEL, kCommonControls},
    {IDC_FILTER_PREFIX, kFilterControls},
    {IDC_FILTER_SUFFIX_LABEL, kCommonControls},
    {IDC_FILTER_SUFFIX, kFilterControls},
    {IDC_FILTER_PURPOSE, kCommonControls},
    {IDC_FILTER_EXAMPLE_LABEL, kCommonControls},
    {IDC_FILTER_EXAMPLE, kCommonControls},
    {IDC_FILTER_RESULT, kCommonControls},
};

void EnableControls(HWND dialog) {
    const unsigned enabled = EnabledControls(StateOf(dialog).Encoding);
    for (const auto& row : kEnabling) {
        EnableControl(dialog, row.Control, (enabled & row.Group) != 0);
    }
}

// ---- Boxes and radio buttons --------------------------------------------------------------------

constexpr BoundButton kButtons[] = {
    {IDC_HIGH_COERCIVITY, RECORD_FIELD(Private.MagCoercivity), ButtonKind::kRadio, 1},
    {IDC_LOW_COERCIVITY, RECORD_FIELD(Private.MagCoercivity), ButtonKind::kRadio, 0},
    {IDC_TRACK_1_BOX, RECORD_FIELD(Private.MagOptions), ButtonKind::kBox, kTrack1, kTrack1},
    {IDC_TRACK_2_BOX, RECORD_FIELD(Private.MagOptions), ButtonKind::kBox, kTrack2, kTrack2},
    {IDC_TRACK_3_BOX, RECORD_FIELD(Private.MagOptions), ButtonKind::kBox, kTrack3, kTrack3},
    {IDC_USING_DATABASE, RECORD_FIELD(Private.MagOptions), ButtonKind::kBox, kUsingDatabase,
     kUsingDatabase},
    {IDC_FILTER, RECORD_FIELD(Private.MagOptions), ButtonKind::kBox, kPrefixSuffixFilter,
     kPrefixSuffixFilter},
};

// The sheet is not told of these.
void PressBound(HWND dialog, DevModeRecord& record, const BoundButton& button) {
    StoreClick(record, button);
    ShowButtons(dialog, record, kButtons);
    StateOf(dialog).Encoding.MagOptions = record.Private.MagOptions;
    EnableControls(dialog);
}

// ---- Numbers ------------------------------------------------------------------------------------

constexpr NumericField MagneticNumber(int control, int arrows, int minimum, int maximum) {
    return {
        .Control = control,
        .Arrows = arrows,
        .Minimum = minimum,
        .Maximum = maximum,
        .RangeMessage = kIntegerRange,
        .RangeSection = kMagneticEncodingSection,
        .ValidationSection = kToolsSection,
    };
}

constexpr NumericField kFields[] = {
    MagneticNumber(IDC_RETRY_CARDS, IDC_RETRY_CARDS_SCROLL, 0, kMostRetries),
    MagneticNumber(IDC_RETRY_TIMES, IDC_RETRY_TIMES_SCROLL, 0, kMostRetries),
    MagneticNumber(IDC_START_RECORD, IDC_START_RECORD_SCROLL, 1, kLastRecord),
};

constexpr struct NumberRow {
    const NumericField& Field;
    RecordField Value;
    WPARAM MostTyped;  ///< characters; 0 for no limit
} kNumbers[] = {
    {kFields[0], RECORD_FIELD(Private.MagRetryCards), 2},
    {kFields[1], RECORD_FIELD(Private.MagRetryTimes), 2},
    {kFields[2], RECORD_FIELD(Private.MagStartRecord), 0},
};

// Also of the retries, which may be 0: their arrows then stand at 1.
constexpr int kLowestArrows = 1;

void ShowNumber(HWND dialog, const DevModeRecord& record, const NumberRow& row) {
    const DWORD value = ReadField(record, row.Value);
    SetDlgItemInt(dialog, row.Field.Control, value, FALSE);
    if (row.MostTyped != 0) {
        SendDlgItemMessageW(dialog, row.Field.Control, EM_LIMITTEXT, row.MostTyped, 0);
    }
    HWND arrows = GetDlgItem(dialog, row.Field.Arrows);
    SetScrollRange(arrows, SB_CTL, kLowestArrows, row.Field.Maximum, FALSE);
    SetScrollPos(arrows, SB_CTL, static_cast<int>(value), TRUE);
}

// What stands in the field at the end counts: a field that loses the focus to the message and gets
// it back may have another number by then.
void EnterNumber(HWND dialog, DevModeRecord& record, const NumberRow& row) {
    ValidateIntField(dialog, row.Field, static_cast<int>(ReadField(record, row.Value)));
    WCHAR text[kNumberLength] = {};
    GetDlgItemTextW(dialog, row.Field.Control, text, kNumberLength);
    const LONG value = ParseDecimalText(text);
    WriteField(record, row.Value, static_cast<DWORD>(value));
    SetScrollPos(GetDlgItem(dialog, row.Field.Arrows), SB_CTL, value, TRUE);
    TellSheetChanged(dialog);
}

void StepNumber(HWND dialog, DriverContext& context, HWND bar, WORD request) {
    for (const NumberRow& row : kNumbers) {
        if (bar == GetDlgItem(dialog, row.Field.Arrows)) {
            if (const auto value = StepField(dialog, row.Field, request)) {
                WriteField(context.WorkingDevMode, row.Value, static_cast<DWORD>(*value));
            }
        }
    }
}

// ---- Texts --------------------------------------------------------------------------------------

constexpr TextField kTextFields[] = {
    {IDC_TRACK_1, ' ', 'z', TEXT("%?`")}, {IDC_TRACK_2, '0', '>', TEXT(";")},
    {IDC_TRACK_3, '0', '>', TEXT(";")},   {IDC_FILTER_PREFIX, '!', '~'},
    {IDC_FILTER_SUFFIX, '!', '~'},        {IDC_DATABASE_PATH},
};

constexpr struct {
    int Control;
    MagneticTextIndex Text;
    WPARAM MostTyped;  ///< characters
    bool TellsSheet;
} kTexts[] = {
    {IDC_TRACK_1, kTrack1Text, 76, true},        {IDC_TRACK_2, kTrack2Text, 37, true},
    {IDC_TRACK_3, kTrack3Text, 104, true},       {IDC_FILTER_PREFIX, kPrefixText, 12, false},
    {IDC_FILTER_SUFFIX, kSuffixText, 12, false}, {IDC_DATABASE_PATH, kDatabasePathText, 260, true},
};

void ShowTexts(HWND dialog, const MagneticTexts& texts) {
    for (const auto& row : kTexts) {
        SendDlgItemMessageW(dialog, row.Control, EM_LIMITTEXT, row.MostTyped, 0);
        SetDlgItemTextW(dialog, row.Control, texts.Texts[row.Text]);
    }
    StringCchCopyW(StateOf(dialog).DatabasePath, kFilePathLength, texts.Texts[kDatabasePathText]);
}

void StoreTexts(HWND dialog, DriverContext& context) {
    MagneticTexts texts = {};
    for (const auto& row : kTexts) {
        GetDlgItemTextW(dialog, row.Control, texts.Texts[row.Text], kMagneticTextLength);
    }
    StringCchCopyW(texts.Texts[kDatabasePathText], kMagneticTextLength,
                   StateOf(dialog).DatabasePath);
    WriteMagneticTexts(context.WorkingDevMode.Public.dmDeviceName, texts);
}

void EnterText(HWND dialog, int control) {
    for (const auto& row : kTexts) {
        if (row.Control == control && row.TellsSheet) {
            TellSheetChanged(dialog);
        }
    }
}

// ---- The database -------------------------------------------------------------------------------

void TellFailure(DWORD error) {
    WCHAR format[kTextLength];
    LookupString(kFileDialogFailure, format);
    // A translation is a format for one number, or is not used.
    const WideView text(format);
    const bool isSound = text.find('%') == text.rfind('%') && TextContains(format, TEXT("%d"));
    WCHAR message[kTextLength];
    StringCchPrintfW(message, kTextLength, isSound ? format : kFileDialogFailure,
                     static_cast<int>(error));
    ShowErrorMessage(message);
}

// The user's texts and our pattern, as the platform wants them: with zeros between.
void MakeFilter(WCHAR (&filter)[3 * kTextLength]) {
    size_t at = 0;
    const auto append = [&](const WCHAR* text) {
        at += WideView(text).copy(filter + at, kTextLength);
        filter[at++] = 0;
    };
    for (const WCHAR* key : {TEXT("All Files"), TEXT("TEXT Files (*.TXT)")}) {
        WCHAR text[kTextLength];
        LookupString(key, text);
        append(text);
        append(TEXT("*.txt"));
    }
    filter[at] = 0;
}

void BrowseDatabase(HWND dialog) {
    WCHAR title[kTextLength];
    WCHAR filter[3 * kTextLength];
    SetSection(kMagneticEncodingSection);
    LookupString(TEXT("Open Database"), title);
    MakeFilter(filter);
    WCHAR path[kFilePathLength];
    StringCchCopyW(path, kFilePathLength, StateOf(dialog).DatabasePath);
    if (AskForFile(dialog,
                   {.Title = title,
                    .Filter = filter,
                    .Flags = OFN_READONLY | OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST,
                    .TellFailure = TellFailure},
                   path)) {
        StringCchCopyW(StateOf(dialog).DatabasePath, kFilePathLength, path);
        SetDlgItemTextW(dialog, IDC_DATABASE_PATH, path);  // which tells the sheet
    }
}

// ---- The page -----------------------------------------------------------------------------------

template <typename Rows, typename Test>
auto* Find(const Rows& rows, Test test) {
    const auto* row = std::find_if(std::begin(rows), std::end(rows), test);
    return row == std::end(rows) ? nullptr : row;
}

void PressButton(HWND dialog, DevModeRecord& record, int control) {
    if (const auto* button =
            Find(kButtons, [=](const BoundButton& row) { return row.Control == control; })) {
        PressBound(dialog, record, *button);
    } else if (control == IDC_BROWSE_DATABASE) {
        BrowseDatabase(dialog);
    } else if (control == IDC_DATABASE_SAMPLE) {
        OpenDriverFile(TEXT("Magnetic.txt"));
    }
}

void MagneticCommand(HWND dialog, DriverContext& context, int control, int notification) {
    if (notification == BN_CLICKED) {
        PressButton(dialog, context.WorkingDevMode, control);
    } else if (notification == EN_CHANGE) {
        if (const auto* number = Find(
                kNumbers, [=](const NumberRow& row) { return row.Field.Control == control; })) {
            EnterNumber(dialog, context.WorkingDevMode, *number);
        } else {
            EnterText(dialog, control);
        }
    }
}

// Until the page is activated its controls are as on a printer with an encoder.
void OpenMagnetic(HWND dialog, DriverContext& context) {
    MakeState(dialog);
    DevModeRecord& record = context.WorkingDevMode;
    CorrectEncodingSettings(record.Private);
    ShowButtons(dialog, record, kButtons);
    for (const NumberRow& row : kNumbers) {
        ShowNumber(dialog, record, row);
    }
    MagneticTexts texts;
    ReadMagneticTexts(record.Public.dmDeviceName, texts);
    ShowTexts(dialog, texts);
    StateOf(dialog).Encoding = {.HasEncoder = true,
                                .IsRemotePrinter = false,
                                .CardType = kMagneticStripeCard,
                                .MagOptions = record.Private.MagOptions};
    EnableControls(dialog);
}

void FollowPrinter(HWND dialog, DriverContext& context) {
    DevModeRecord& record = context.WorkingDevMode;
    EncodingState& state = StateOf(dialog).Encoding;
    state.IsRemotePrinter = context.IsRemotePrinter != 0;
    state.CardType = record.Private.CardType;
    state.MagOptions = record.Private.MagOptions;
    if (EnabledControls(state) != kNoControls) {
        CorrectCoercivity(record.Private);
    }
    ShowButtons(dialog, record, kButtons);
    EnableControls(dialog);
}

// The answer may come while the question is still being asked.
void ActivateMagnetic(HWND dialog, DriverContext& context) {
    StateOf(dialog).Encoding.HasEncoder = false;
    AskDevice(DeviceQuery::kMagneticEncoder, dialog, context.PrinterName);
    FollowPrinter(dialog, context);
}

void TakeEncoderAnswer(HWND dialog, DriverContext& context, const COPYDATASTRUCT& answer) {
    if (const std::optional<bool> hasEncoder = ReadEncoderAnswer(answer)) {
        StateOf(dialog).Encoding.HasEncoder = *hasEncoder;
        FollowPrinter(dialog, context);
    }
}

constexpr Tip kTips[] = {
    {IDC_HIGH_COERCIVITY, TEXT("For cards whose stripe is hard to magnetize and keeps its data "
                               "near magnets; most often a black one.")},
    {IDC_LOW_COERCIVITY, TEXT("For cards whose stripe is easy to magnetize; most often a brown "
                              "one.")},
    {IDC_RETRY_CARDS, TEXT("How many further cards are taken when one cannot be encoded.")},
    {IDC_RETRY_TIMES, TEXT("How often encoding is tried again on the same card.")},
    {IDC_USING_DATABASE, TEXT("Each card gets the next record of a text file instead of the data "
                              "of the tracks above.")},
    {IDC_DATABASE_SAMPLE, TEXT("Shows a text file with records to encode.")},
    {IDC_START_RECORD, TEXT("The record of the text file that the first card gets.")},
    {IDC_FILTER, TEXT("Takes what stands between prefix and suffix in the printed text as the data "
                      "of the track whose number follows the prefix.")},
};

}  // namespace

constinit const Page kMagneticEncodingPage = {
    .Slot = kMagneticEncodingSlot,
    .Section = kMagneticEncodingSection,
    .Fields = kFields,
    .TextFields = kTextFields,
    .Tips = kTips,
    .Open = OpenMagnetic,
    .Activate = ActivateMagnetic,
    .Applied = StoreTexts,
    .Command = MagneticCommand,
    .ScrollVertically = StepNumber,
    .TakeAnswer = TakeEncoderAnswer,
    .Close = DropState,
};
