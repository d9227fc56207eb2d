// The Lamination page: the side and film of the job, and the laminator's own parameters for that
// film, which are read and written at once.
#include "ui/pages/lamination/lamination_page.h"

#include "core/message.h"
#include "resources/resource.h"
#include "ui/common/controls.h"
#include "ui/common/language.h"
#include "ui/common/pictures.h"
#include "ui/common/value_slider.h"
#include "ui/pages/lamination/lamination_parameters.h"

#include <commctrl.h>
#include <strsafe.h>

#include <algorithm>

namespace {

// ---- The job's choices ------------------------------------------------------------------------

// By the bits of LaminationSides. The back's entries are for printers that turn the card.
constexpr const WCHAR* kSides[] = {TEXT("No Lamination"), TEXT("Front Side Lamination"),
                                   TEXT("Back Side Lamination"), TEXT("Both Sides Lamination")};
constexpr int kFrontEntries = 2;

constexpr const WCHAR* kFilms[] = {TEXT("Mirv Standard Overlay"), TEXT("Mirv Standard Patch")};

void FillSides(HWND dialog, DriverContext& context) {
    const std::span entries = std::span(kSides).first(
        context.IsDuplexModel != 0 ? std::size(kSides) : size_t{kFrontEntries});
    BYTE& sides = context.WorkingDevMode.Private.LaminationSides;
    const int index = sides & static_cast<int>(entries.size() - 1);
    if (index == 0) {
        sides = 0;
    }
    FillList(dialog, IDC_LAMINATION_SIDE, entries);
    SelectItem(dialog, IDC_LAMINATION_SIDE, index);
}

void FillFilms(HWND dialog, const DriverContext& context) {
    FillTranslatedList(dialog, IDC_LAMINATION_TYPE, kFilms);
    SelectItem(dialog, IDC_LAMINATION_TYPE, context.WorkingDevMode.Private.LaminationOption);
}

// Stores the selected index. No selection leaves the field as it is.
void StoreChoice(HWND dialog, int list, size_t entries, BYTE& field) {
    const int index = SelectedItem(dialog, list);
    if (index >= 0) {
        field = static_cast<BYTE>(index < static_cast<int>(entries) ? index : 0);
    }
}

// ---- Dwell time and temperature ---------------------------------------------------------------

constexpr const WCHAR* kDwellUnit = TEXT("sec./inch");
constexpr const WCHAR* kTemperatureUnit = TEXT("cel.");

void FormatWithUnit(const WCHAR* number, const WCHAR* unit, WCHAR* text) {
    WCHAR translated[kTextLength];
    SetSection(kLaminationSection);
    LookupString(unit, translated);
    StringCchPrintfW(text, kTextLength, TEXT("%s %s"), number, translated);
}

void FormatDwellTime(int position, WCHAR* text) {
    WCHAR number[kDwellTextLength];
    FormatDwell(position, number);
    FormatWithUnit(number, kDwellUnit, text);
}

void FormatTemperature(int celsius, WCHAR* text) {
    WCHAR number[16];
    StringCchPrintfW(number, std::size(number), TEXT("%d"), celsius);
    FormatWithUnit(number, kTemperatureUnit, text);
}

constexpr ValueSlider kSliders[] = {
    {IDC_DWELL_TIME, IDC_DWELL_TIME_VALUE, 1455, 5745, 100, 100, FormatDwellTime},
    {IDC_TEMPERATURE, IDC_TEMPERATURE_VALUE, 120, 190, 10, 10, FormatTemperature},
};

struct TransferRow {
    const ValueSlider& Slider;
    int Default;
    int Rounding;  ///< for the text of what was read, which is cut
    int (*Read)(const LaminationRecord& record);
    void (*Write)(LaminationRecord& record, int position);
};
constexpr TransferRow kTransfer[] = {
    {kSliders[0], 2400, 5, DwellPosition, SetDwellPosition},
    {kSliders[1], 180, 0, Temperature, SetTemperature},
};

// Until a laminator has answered.
void ShowNoTransfer(HWND dialog) {
    WCHAR text[kTextLength];
    FormatWithUnit(TEXT("0"), kDwellUnit, text);
    SetDlgItemTextW(dialog, IDC_DWELL_TIME_VALUE, text);
    FormatWithUnit(TEXT("0"), kTemperatureUnit, text);
    SetDlgItemTextW(dialog, IDC_TEMPERATURE_VALUE, text);
}

// ---- The film's position ----------------------------------------------------------------------

constexpr int kMostOffset = 15;
constexpr WPARAM kMostTyped = 3;  // characters

constexpr NumericField OffsetField(int control, int arrows) {
    return {.Control = control,
            .Arrows = arrows,
            .Minimum = -kMostOffset,
            .Maximum = kMostOffset,
            .Extra = '-',
            .RangeMessage = kIntegerRange,
            .RangeSection = kLaminationSection,
            .ValidationSection = kSettingSection};
}
constexpr NumericField kFields[] = {
    OffsetField(IDC_LAMINATION_A, IDC_LAMINATION_A_SCROLL),
    OffsetField(IDC_LAMINATION_B, IDC_LAMINATION_B_SCROLL),
};

struct OffsetRow {
    const NumericField& Field;
    int (*Read)(const LaminationRecord& record);
    void (*Write)(LaminationRecord& record, int offset);
};
constexpr OffsetRow kOffsets[] = {
    {kFields[0], LaOffset, SetLaOffset},
    {kFields[1], LbOffset, SetLbOffset},
};

int ShownOffset(HWND dialog, const NumericField& field) {
    return GetScrollPos(GetDlgItem(dialog, field.Arrows), SB_CTL);
}

// The arrows first: a text that differs from them is a change by the user.
void ShowOffset(HWND dialog, const NumericField& field, int offset) {
    const int shown = std::clamp(offset, field.Minimum, field.Maximum);
    HWND arrows = GetDlgItem(dialog, field.Arrows);
    SetScrollRange(arrows, SB_CTL, field.Minimum, field.Maximum, FALSE);
    SetScrollPos(arrows, SB_CTL, shown, TRUE);
    SendDlgItemMessageW(dialog, field.Control, EM_LIMITTEXT, kMostTyped, 0);
    SetDlgItemInt(dialog, field.Control, static_cast<UINT>(shown), TRUE);
}

void EnterOffset(HWND dialog, const NumericField& field) {
    const int before = ShownOffset(dialog, field);
    const int offset = ValidateIntField(dialog, field, before);
    if (offset != before) {
        EnableControl(dialog, IDC_LAMINATION_POSITION_SAVE, true);
    }
    SetScrollPos(GetDlgItem(dialog, field.Arrows), SB_CTL, offset, TRUE);
}

// ---- The laminator ----------------------------------------------------------------------------

void ShowParameters(HWND dialog, const LaminationRecord& record) {
    PrepareSliders(dialog, kSliders);
    for (const TransferRow& row : kTransfer) {
        const int value = row.Read(record);
        ShowSliderValue(dialog, row.Slider, value);
        ShowSliderText(dialog, row.Slider, value + row.Rounding);
    }
    for (const OffsetRow& row : kOffsets) {
        ShowOffset(dialog, row.Field, row.Read(record));
    }
}

// A control that is disabled with the focus on it would keep the keyboard to itself.
void DisableSave(HWND dialog, int save, int next) {
    if (GetFocus() == GetDlgItem(dialog, save)) {
        SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, next)),
                     TRUE);
    }
    EnableControl(dialog, save, false);
}

// Reads the laminator's parameters as they are now, has some of them changed, and writes them.
template <typename Rows, typename Shown>
void SaveParameters(const DriverContext& context, const Rows& rows, Shown shown) {
    LaminationRecord record;
    if (ReadFilm(context, record) != kLaminatorFound) {
        ShowMessage(TEXT("Can't find Lamination."), TEXT("Error"));
        return;
    }
    for (const auto& row : rows) {
        row.Write(record, shown(row));
    }
    WriteFilm(context, record);
}

void SaveTransfer(HWND dialog, DriverContext& context) {
    DisableSave(dialog, IDC_TRANSFER_SAVE, IDC_DWELL_TIME);
    SaveParameters(context, kTransfer,
                   [=](const TransferRow& row) { return SliderValue(dialog, row.Slider); });
}

void SavePosition(HWND dialog, DriverContext& context) {
    DisableSave(dialog, IDC_LAMINATION_POSITION_SAVE, IDC_LAMINATION_A);
    SaveParameters(context, kOffsets,
                   [=](const OffsetRow& row) { return ShownOffset(dialog, row.Field); });
}

// ---- The page -----------------------------------------------------------------------------------

void OpenLamination(HWND dialog, DriverContext& context) {
    ShowNoTransfer(dialog);
    FillSides(dialog, context);
}

// What can be used while there is a laminator, with the frames; the "Save" buttons only for a
// change.
constexpr int kUsable[] = {
    IDC_LAMINATION_SIDE,
    IDC_LAMINATION_TYPE_GROUP,
    IDC_LAMINATION_TYPE,
    IDC_DWELL_TIME,
    IDC_TEMPERATURE,
    IDC_TRANSFER_DEFAULT,
    IDC_LAMINATION_A,
    IDC_LAMINATION_A_SCROLL,
    IDC_LAMINATION_B,
    IDC_LAMINATION_B_SCROLL,
    IDC_LAMINATION_POSITION_GROUP,
    IDC_LAMINATION_POSITION_DEFAULT,
};

void ActivateLamination(HWND dialog, DriverContext& context) {
    LaminationRecord record;
    const bool found = ReadFilm(context, record) != 0;
    for (const int control : kUsable) {
        EnableControl(dialog, control, found);
    }
    DisableSave(dialog, IDC_TRANSFER_SAVE, IDC_DWELL_TIME);
    DisableSave(dialog, IDC_LAMINATION_POSITION_SAVE, IDC_LAMINATION_A);
    if (found) {
        FillFilms(dialog, context);
        ShowParameters(dialog, record);
    }
}

void ChooseSide(HWND dialog, DriverContext& context) {
    StoreChoice(dialog, IDC_LAMINATION_SIDE, std::size(kSides),
                context.WorkingDevMode.Private.LaminationSides);
    TellSheetChanged(dialog);
}

void ChooseFilm(HWND dialog, DriverContext& context) {
    StoreChoice(dialog, IDC_LAMINATION_TYPE, std::size(kFilms),
                context.WorkingDevMode.Private.LaminationOption);
    LaminationRecord record;
    ReadFilm(context, record);
    ShowParameters(dialog, record);
    TellSheetChanged(dialog);
}

void ShowDefaultTransfer(HWND dialog, DriverContext&) {
    for (const TransferRow& row : kTransfer) {
        ShowSliderValue(dialog, row.Slider, row.Default);
    }
    EnableControl(dialog, IDC_TRANSFER_SAVE, true);
}

void ShowDefaultPosition(HWND dialog, DriverContext&) {
    for (const NumericField& field : kFields) {
        ShowOffset(dialog, field, 0);
    }
    EnableControl(dialog, IDC_LAMINATION_POSITION_SAVE, true);
}

struct CommandRow {
    int Control;
    int Notification;
    void (*Do)(HWND dialog, DriverContext& context);
};
constexpr CommandRow kCommands[] = {
    {IDC_LAMINATION_SIDE, CBN_SELENDOK, ChooseSide},
    {IDC_LAMINATION_TYPE, CBN_SELENDOK, ChooseFilm},
    {IDC_TRANSFER_SAVE, BN_CLICKED, SaveTransfer},
    {IDC_TRANSFER_DEFAULT, BN_CLICKED, ShowDefaultTransfer},
    {IDC_LAMINATION_A, EN_CHANGE, [](HWND page, DriverContext&) { EnterOffset(page, kFields[0]); }},
    {IDC_LAMINATION_B, EN_CHANGE, [](HWND page, DriverContext&) { EnterOffset(page, kFields[1]); }},
    {IDC_LAMINATION_POSITION_SAVE, BN_CLICKED, SavePosition},
    {IDC_LAMINATION_POSITION_DEFAULT, BN_CLICKED, ShowDefaultPosition},
};

void LaminationCommand(HWND dialog, DriverContext& context, int control, int notification) {
    for (const CommandRow& row : kCommands) {
        if (row.Control == control && row.Notification == notification) {
            row.Do(dialog, context);
        }
    }
}

// Dragging, the keys to the ends and the end of each movement come with codes beyond that.
void SlideTransfer(HWND dialog, DriverContext&, HWND bar, WORD request) {
    if (request <= TB_THUMBPOSITION && FollowSlider(dialog, kSliders, bar)) {
        EnableControl(dialog, IDC_TRANSFER_SAVE, true);
    }
}

void StepOffset(HWND dialog, DriverContext&, HWND bar, WORD request) {
    for (const NumericField& field : kFields) {
        if (bar == GetDlgItem(dialog, field.Arrows)) {
            StepField(dialog, field, request);
        }
    }
}

void PaintPosition(HWND dialog, DriverContext&, HDC target, const RECT& asked) {
    RECT common;
    const RECT frame = ControlArea(dialog, IDC_LAMINATION_PICTURE);
    if (IntersectRect(&common, &frame, &asked)) {
        PictureSet pictures;
        DrawBitmap(pictures, target, frame.left, frame.top, IDB_LAMINATION_POSITION, &frame);
    }
}

constexpr Tip kTips[] = {
    {IDC_TRANSFER_SAVE, TEXT("Sends dwell time and temperature to the laminator at once, for the "
                             "chosen lamination type.")},
    {IDC_TRANSFER_DEFAULT, TEXT("Puts the usual values into both sliders. Save sends them.")},
    {IDC_LAMINATION_POSITION_SAVE, TEXT("Sends both positions to the laminator at once, for the "
                                        "chosen lamination type.")},
    {IDC_LAMINATION_POSITION_DEFAULT, TEXT("Sets both positions to 0, where the laminator itself "
                                           "places the film. Save sends them.")},
};

}  // namespace

constinit const Page kLaminationPage = {
    .Slot = kLaminationSlot,
    .Section = kLaminationSection,
    .Fields = kFields,
    .Tips = kTips,
    .Open = OpenLamination,
    .Activate = ActivateLamination,
    .Command = LaminationCommand,
    .ScrollHorizontally = SlideTransfer,
    .ScrollVertically = StepOffset,
    .Paint = PaintPosition,
};
