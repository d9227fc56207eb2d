// Numeric fields: their edit procedure, their arrows and their validations.
#include "ui/common/numeric_field.h"

#include "core/text.h"
#include "ui/common/controls.h"
#include "ui/common/language.h"

#include <strsafe.h>

#include <algorithm>

namespace {

// ---- Numbers ----------------------------------------------------------------------------------

// Appends a digit (any character may stand there) and stays within limits that no field reaches.
LONGLONG TimesTenPlus(LONGLONG value, int digit) {
    constexpr LONGLONG kBeyondAnyRange = LONGLONG{1} << 40;
    return std::clamp(value * 10 + digit, -kBeyondAnyRange, kBeyondAnyRange);
}

// Digits to a number, a point skipped.
LONGLONG ReadDigits(WideView digits) {
    LONGLONG value = 0;
    for (WCHAR c : digits) {
        if (c != '.') {
            value = TimesTenPlus(value, c - '0');
        }
    }
    return value;
}

LONGLONG TimesTen(LONGLONG value, size_t times) {
    for (; times > 0; --times) {
        value = TimesTenPlus(value, 0);
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
    if (field.Kind == NumberKind::kHundredths) {
        FormatHundredths(value, text);
    } else {
        StringCchPrintfW(text, kNumberLength, TEXT("%d"), value);
    }
}

// ---- The user's field -------------------------------------------------------------------------

void SelectAll(HWND edit) {
    SendMessageW(edit, EM_SETSEL, 0, -1);
}

// By way of the dialog, which takes the focus as a plain window meanwhile: its dialog manager would
// hand it to the control that had it once, and an unchecked radio button that gets the focus tells
// that it was clicked.
void ReturnToField(HWND edit) {
    HWND dialog = GetParent(edit);
    const LONG_PTR procedure =
        SetWindowLongPtrW(dialog, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(DefWindowProcW));
    SetFocus(dialog);
    SetWindowLongPtrW(dialog, GWLP_WNDPROC, procedure);
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
    if (field.StepsArrows) {
        return GetScrollPos(GetDlgItem(GetParent(edit), field.Arrows), SB_CTL);
    }
    WCHAR text[kNumberLength];
    return field.Kind == NumberKind::kHundredths ? ReadHundredths(TextOf(edit, text))
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
    if (field.StepsArrows) {
        SetScrollPos(GetDlgItem(GetParent(edit), field.Arrows), SB_CTL, value, TRUE);
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
    ShowFormatted(kSettingSection, kIllegalHundredths, 0, 0);
    ReturnToField(edit);
    return previous;
}

}  // namespace

void SubclassNumericField(HWND edit, const NumericField& field) {
    Subclass(edit, &field, NumericEditProc);
}

void SubclassTextField(HWND edit, const TextField& field) {
    Subclass(edit, &field, TextEditProc);
}

std::optional<int> StepField(HWND dialog, const NumericField& field, WORD request) {
    HWND arrows = GetDlgItem(dialog, field.Arrows);
    HWND edit = GetDlgItem(dialog, field.Control);
    if (request == SB_ENDSCROLL) {
        SetFocus(edit);
        SelectAll(edit);
    }
    if (request != SB_LINEUP && request != SB_LINEDOWN) {
        return {};
    }
    int value = GetScrollPos(arrows, SB_CTL);
    if (request == SB_LINEUP && value < field.Maximum) {
        ++value;
    } else if (request == SB_LINEDOWN && value > field.Minimum) {
        --value;
    }
    ShowValue(edit, field, value);
    SetScrollPos(arrows, SB_CTL, value, TRUE);
    TellSheetChanged(dialog);
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

int ValidateIntField(HWND dialog, const NumericField& field, int previous) {
    return ValidateIntField(dialog, field.Control, field.Minimum, field.Maximum, previous,
                            field.ValidationSection);
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
