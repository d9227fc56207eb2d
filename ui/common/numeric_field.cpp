// The numeric fields: their table, their edit procedure and their validations.
#include "ui/common/numeric_field.h"

#include "core/text.h"
#include "resources/resource.h"
#include "ui/common/language.h"
#include "ui/common/page.h"

#include <strsafe.h>

#include <algorithm>

namespace {

constexpr const WCHAR* kCopiesRange = TEXT("Press up and down button to adjust copies (1-9999).");
constexpr const WCHAR* kIntegerRange = TEXT("Enter from %d - %d .");
constexpr const WCHAR* kGammaRange = TEXT("Enter from 0.10 - 9.99 .");

constexpr const WCHAR* kSetting = TEXT("Setting");
constexpr const WCHAR* kTools = TEXT("Tools");
constexpr const WCHAR* kDeviceOption = TEXT("DeviceOption");
constexpr const WCHAR* kMagnetic = TEXT("MagneticEncoding");
constexpr const WCHAR* kLamination = TEXT("Lamination");

constexpr NumberKind kInteger = NumberKind::kInteger;
constexpr NumberKind kHundredths = NumberKind::kHundredths;
constexpr int kHundredthsMinimum = 10;
constexpr int kHundredthsMaximum = 999;

// clang-format off
constexpr NumericField kNumericFields[] = {
    // control, arrows, kind, range, extra character, key's message and section, validation, steps
    {IDC_COPIES, IDC_COPIES_SCROLL, kInteger, 1, 9999, 0, kCopiesRange, kDeviceOption, kTools, false},
    {IDC_BRIGHTNESS, 0, kInteger, -100, 100, '-', kIntegerRange, kSetting, kSetting, false},
    {IDC_CONTRAST, 0, kInteger, -100, 100, '-', kIntegerRange, kSetting, kSetting, false},
    {IDC_SATURATION, 0, kInteger, -100, 100, '-', kIntegerRange, kSetting, kSetting, false},
    {IDC_CYAN, 0, kInteger, -100, 100, '-', kIntegerRange, kSetting, kSetting, false},
    {IDC_MAGENTA, 0, kInteger, -100, 100, '-', kIntegerRange, kSetting, kSetting, false},
    {IDC_YELLOW, 0, kInteger, -100, 100, '-', kIntegerRange, kSetting, kSetting, false},
    {IDC_SHARPNESS, 0, kInteger, 0, 100, 0, kIntegerRange, kSetting, kSetting, false},
    {IDC_GAMMA, 0, kHundredths, kHundredthsMinimum, kHundredthsMaximum, '.', kGammaRange, kSetting, kSetting, false},
    {IDC_POSITION_A, IDC_POSITION_A_SCROLL, kInteger, -10, 10, '-', kIntegerRange, kTools, kSetting, true},
    {IDC_POSITION_B, IDC_POSITION_B_SCROLL, kInteger, -20, 20, '-', kIntegerRange, kTools, kSetting, true},
    {IDC_POSITION_C, IDC_POSITION_C_SCROLL, kInteger, -10, 10, '-', kIntegerRange, kTools, kSetting, true},
    {IDC_RETRY_CARDS, IDC_RETRY_CARDS_SCROLL, kInteger, 0, 10, 0, kIntegerRange, kMagnetic, kTools, false},
    {IDC_RETRY_TIMES, IDC_RETRY_TIMES_SCROLL, kInteger, 0, 10, 0, kIntegerRange, kMagnetic, kTools, false},
    {IDC_START_RECORD, IDC_START_RECORD_SCROLL, kInteger, 1, 2147483647, 0, kIntegerRange, kMagnetic, kTools, false},
    {IDC_LAMINATION_A, IDC_LAMINATION_A_SCROLL, kInteger, -15, 15, '-', kIntegerRange, kLamination, kSetting, false},
    {IDC_LAMINATION_B, IDC_LAMINATION_B_SCROLL, kInteger, -15, 15, '-', kIntegerRange, kLamination, kSetting, false},
};
// clang-format on

constexpr TextField kTextFields[] = {
    {IDC_TRACK_1, ' ', 'z', TEXT("%?`")},    {IDC_TRACK_2, '0', '>', TEXT(";")},
    {IDC_TRACK_3, '0', '>', TEXT(";")},      {IDC_FILTER_PREFIX, '!', '~', TEXT("")},
    {IDC_FILTER_SUFFIX, '!', '~', TEXT("")},
};

// ---- Numbers ----------------------------------------------------------------------------------

constexpr LONGLONG kBeyondAnyRange = LONGLONG{1} << 40;

// Digits to a number, a point skipped. Ends at a limit that no field's range reaches.
LONGLONG ReadDigits(WideView digits) {
    LONGLONG value = 0;
    for (WCHAR c : digits) {
        if (c != '.') {
            value = std::clamp(value * 10 + (c - '0'), -kBeyondAnyRange, kBeyondAnyRange);
        }
    }
    return value;
}

LONGLONG TimesTen(LONGLONG value, size_t times) {
    for (; times > 0 && value < kBeyondAnyRange; --times) {
        value *= 10;
    }
    return value;
}

bool TakeSign(WideView& text) {
    const bool negative = text.starts_with('-');
    text.remove_prefix(negative ? 1 : 0);
    return negative;
}

LONGLONG ReadInteger(WideView text) {
    const bool negative = TakeSign(text);
    const LONGLONG value = ReadDigits(text);
    return negative ? -value : value;
}

// An entry without its last decimals counts as if they were zeros.
LONGLONG ReadHundredths(WideView text) {
    const bool negative = TakeSign(text);
    const LONGLONG digits = ReadDigits(text);
    const size_t point = text.rfind('.');
    LONGLONG value = digits;
    if (point == WideView::npos) {
        value = TimesTen(digits, 2);
    } else if (point == 0 && text.size() == 4) {
        value = digits / 10;
    } else if (point <= 1) {
        const size_t complete = point + 3;
        value = TimesTen(digits, complete - std::min(text.size(), complete));
    } else {
        value = TimesTen(digits, point - 1);
    }
    return negative ? -value : value;
}

LONG ToLong(LONGLONG value) {
    return static_cast<LONG>(std::clamp<LONGLONG>(value, INT32_MIN, INT32_MAX));
}

void FormatNumber(const NumericField& field, int value, WCHAR* text) {
    if (field.Kind == kHundredths) {
        FormatHundredths(value, text);
    } else {
        StringCchPrintfW(text, kNumberLength, TEXT("%d"), value);
    }
}

// ---- The user's field -------------------------------------------------------------------------

void SelectAll(HWND edit) {
    SendMessageW(edit, EM_SETSEL, 0, -1);
}

void ReturnToField(HWND edit) {
    SetFocus(GetParent(edit));
    SetFocus(edit);
    SelectAll(edit);
}

// Messages are keys of the language file after formatting.
void ShowFormatted(const WCHAR* section, const WCHAR* message, int minimum, int maximum) {
    WCHAR text[kTextLength];
    WCHAR translated[kTextLength];
    StringCchPrintfW(text, kTextLength, message, minimum, maximum);
    SetSection(section);
    LookupString(text, translated);
    ShowErrorMessage(translated);
}

// A text too long for any number is cut, and then out of every range still.
WideView TextOf(HWND edit, WCHAR (&text)[kNumberLength]) {
    return {text, static_cast<size_t>(GetWindowTextW(edit, text, kNumberLength))};
}

LONGLONG CurrentValue(HWND edit, const NumericField& field) {
    if (field.StepsScrollBar) {
        return GetScrollPos(GetDlgItem(GetParent(edit), field.ScrollBar), SB_CTL);
    }
    WCHAR text[kNumberLength];
    return field.Kind == kHundredths ? ReadHundredths(TextOf(edit, text))
                                     : ReadInteger(TextOf(edit, text));
}

void ShowValue(HWND edit, const NumericField& field, int value) {
    WCHAR text[kNumberLength];
    FormatNumber(field, value, text);
    SetWindowTextW(edit, text);
}

void StepByKey(HWND edit, const NumericField& field, int step) {
    const LONGLONG asked = CurrentValue(edit, field) + step;
    const int value = static_cast<int>(std::clamp<LONGLONG>(asked, field.Minimum, field.Maximum));
    ShowValue(edit, field, value);
    if (value != asked) {
        ShowFormatted(field.RangeSection, field.RangeMessage, field.Minimum, field.Maximum);
        ReturnToField(edit);
        return;
    }
    if (field.StepsScrollBar) {
        SetScrollPos(GetDlgItem(GetParent(edit), field.ScrollBar), SB_CTL, value, TRUE);
    }
    SelectAll(edit);
}

bool MayType(const NumericField& field, WPARAM character) {
    const bool punctuation = character >= 33 && character <= 47 && character != field.Extra;
    const bool letter = character >= 58 && character <= 126;
    return !punctuation && !letter;
}

bool MayType(const TextField& field, WPARAM character) {
    return character == VK_BACK ||
           (character >= field.First && character <= field.Last &&
            WideView(field.Except).find(static_cast<WCHAR>(character)) == WideView::npos);
}

// ---- Subclassing ------------------------------------------------------------------------------

constexpr const WCHAR* kFieldProperty = TEXT("kpdui.field");
constexpr const WCHAR* kPreviousProperty = TEXT("kpdui.previous");

void Subclass(HWND edit, const void* field, WNDPROC procedure) {
    const LONG_PTR previous = GetWindowLongPtrW(edit, GWLP_WNDPROC);
    if (SetPropW(edit, kFieldProperty, const_cast<void*>(field)) &&
        SetPropW(edit, kPreviousProperty, reinterpret_cast<HANDLE>(previous))) {
        SetWindowLongPtrW(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    }
}

LRESULT CallPrevious(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto previous = reinterpret_cast<WNDPROC>(GetPropW(edit, kPreviousProperty));
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous));
        RemovePropW(edit, kFieldProperty);
        RemovePropW(edit, kPreviousProperty);
    }
    return CallWindowProcW(previous, edit, message, wParam, lParam);
}

LRESULT CALLBACK NumericEditProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto& field = *static_cast<const NumericField*>(GetPropW(edit, kFieldProperty));
    if (message == WM_KEYDOWN && (wParam == VK_UP || wParam == VK_DOWN)) {
        StepByKey(edit, field, wParam == VK_UP ? 1 : -1);
        return 0;
    }
    if (message == WM_CHAR && !MayType(field, wParam)) {
        return 0;
    }
    return CallPrevious(edit, message, wParam, lParam);
}

LRESULT CALLBACK TextEditProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto& field = *static_cast<const TextField*>(GetPropW(edit, kFieldProperty));
    if (message == WM_CHAR && !MayType(field, wParam)) {
        return 0;
    }
    return CallPrevious(edit, message, wParam, lParam);
}

// ---- Validation -------------------------------------------------------------------------------

int RefuseHundredths(HWND edit, int previous) {
    WCHAR text[kNumberLength];
    FormatHundredths(previous, text);
    SetWindowTextW(edit, text);
    ShowFormatted(kSetting, kIllegalHundredths, 0, 0);
    ReturnToField(edit);
    return previous;
}

}  // namespace

std::span<const NumericField> NumericFields() {
    return kNumericFields;
}

const NumericField& NumericFieldOf(int control) {
    return *std::find_if(std::begin(kNumericFields), std::end(kNumericFields) - 1,
                         [&](const NumericField& field) { return field.Control == control; });
}

const TextField& TextFieldOf(int control) {
    return *std::find_if(std::begin(kTextFields), std::end(kTextFields) - 1,
                         [&](const TextField& field) { return field.Control == control; });
}

void SubclassNumericField(HWND edit, const NumericField& field) {
    Subclass(edit, &field, NumericEditProc);
}

void SubclassTextField(HWND edit, const TextField& field) {
    Subclass(edit, &field, TextEditProc);
}

int StepField(HWND dialog, const NumericField& field, WORD request) {
    HWND arrows = GetDlgItem(dialog, field.ScrollBar);
    HWND edit = GetDlgItem(dialog, field.Control);
    int value = GetScrollPos(arrows, SB_CTL);
    if (request == SB_ENDSCROLL) {
        SetFocus(edit);
        SelectAll(edit);
    } else if (request == SB_LINEUP || request == SB_LINEDOWN) {
        if (request == SB_LINEUP && value < field.Maximum) {
            ++value;
        } else if (request == SB_LINEDOWN && value > field.Minimum) {
            --value;
        }
        ShowValue(edit, field, value);
        SetScrollPos(arrows, SB_CTL, value, TRUE);
        TellSheetChanged(dialog);
    }
    return value;
}

int ValidateIntField(HWND dialog, int control, int minimum, int maximum, int previous,
                     const WCHAR* section) {
    HWND edit = GetDlgItem(dialog, control);
    WCHAR text[kNumberLength];
    const WideView entry = TextOf(edit, text);
    if (IsValidIntegerText(text, static_cast<int>(entry.size()))) {
        const LONGLONG value = ReadInteger(entry);
        if (value >= minimum && value <= maximum) {
            return static_cast<int>(value);
        }
    }
    SetDlgItemInt(dialog, control, static_cast<UINT>(previous), TRUE);
    ShowFormatted(section, kIllegalInteger, minimum, maximum);
    ReturnToField(edit);
    return previous;
}

int ValidateHundredthsWhileTyping(HWND dialog, int control, int previous) {
    HWND edit = GetDlgItem(dialog, control);
    WCHAR text[kNumberLength];
    const WideView entry = TextOf(edit, text);
    const LONG value = ToLong(ReadHundredths(entry));
    const bool finished = entry.size() == 4;
    if (value > kHundredthsMaximum || (finished && value < kHundredthsMinimum)) {
        return RefuseHundredths(edit, previous);
    }
    return value;
}

int ValidateHundredthsField(HWND dialog, int control, int previous) {
    HWND edit = GetDlgItem(dialog, control);
    WCHAR text[kNumberLength];
    const LONG value = ToLong(ReadHundredths(TextOf(edit, text)));
    if (value < kHundredthsMinimum || value > kHundredthsMaximum) {
        return RefuseHundredths(edit, previous);
    }
    return value;
}

int IsValidIntegerText(const WCHAR* text, int length) {
    WideView digits(text, static_cast<size_t>(length));
    if (digits == TEXT("0")) {
        return 1;
    }
    TakeSign(digits);
    const bool allDigits =
        std::all_of(digits.begin(), digits.end(), [](WCHAR c) { return c >= '0' && c <= '9'; });
    return allDigits && !digits.starts_with('0');
}

LONG ParseDecimalText(const WCHAR* text) {
    return ToLong(ReadInteger(text));
}

LONG ParseHundredths(const WCHAR* text) {
    return ToLong(ReadHundredths(text));
}

void FormatHundredths(int value, WCHAR* text) {
    StringCchPrintfW(text, kNumberLength, TEXT("%d.%d%d"), value / 100, value / 10 % 10,
                     value % 10);
}
