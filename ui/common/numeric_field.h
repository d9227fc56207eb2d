// Edit controls that take a number within a range, with arrows beside them, and those that take
// only certain characters. Three things keep a number legal: the subclassed edit control, which
// filters what is typed and steps with the Up and Down keys; the arrows; and a validation when the
// text changes. Each restores a legal value, says why, and puts the user back into the field.
#pragma once

#include <windows.h>

#include <optional>

enum class NumberKind {
    kInteger,
    kHundredths,  ///< held as hundredths, shown with two decimals
};

/// A row stands with the page that has the field, for as long as the field's control lives.
struct NumericField {
    int Control;
    int Arrows = 0;  ///< the scroll bar beside the field; 0 when there is none
    NumberKind Kind = NumberKind::kInteger;
    int Minimum;
    int Maximum;
    WCHAR Extra = 0;            ///< a character that may be typed beside digits; 0 for none
    const WCHAR* RangeMessage;  ///< for a step out of the range, which it may name with two %d
    const WCHAR* RangeSection;
    const WCHAR* ValidationSection;
    bool StepsArrows = false;  ///< a key steps from the arrows' position and moves it along
};

/// The usual RangeMessage.
inline constexpr const WCHAR* kIntegerRange = TEXT("Enter from %d - %d .");

/// The range of every field of hundredths.
constexpr int kHundredthsMinimum = 10;
constexpr int kHundredthsMaximum = 999;

struct TextField {
    int Control;
    WCHAR First = 0;  ///< the accepted characters, beside backspace
    WCHAR Last = 0xFFFF;
    const WCHAR* Except = TEXT("");
};

/// Puts the field's own procedure before that of the edit control, until the control is destroyed.
/// The field must outlive it.
void SubclassNumericField(HWND edit, const NumericField& field);
void SubclassTextField(HWND edit, const TextField& field);

/// Answers WM_VSCROLL of the field's arrows: a line up or down steps the arrows' position within
/// the range, shows it in the field and tells the sheet; the end of scrolling puts the user into
/// the field. Gives the number stepped to, none when this was no step.
std::optional<int> StepField(HWND dialog, const NumericField& field, WORD request);

/// Gives the number in the control when it is legal (an empty text and a lone "-" are 0); otherwise
/// writes `previous` back, says why in `section`, and gives `previous`.
int ValidateIntField(HWND dialog, int control, int minimum, int maximum, int previous,
                     const WCHAR* section);
int ValidateIntField(HWND dialog, const NumericField& field, int previous);

/// What the validations say: about an integer with its range, about hundredths.
constexpr const WCHAR* kIllegalInteger =
    TEXT("Press up and down button to adjust value ( %d - %d ).");
constexpr const WCHAR* kIllegalHundredths =
    TEXT("Press up and down button to adjust value ( 0.10 - 9.99 ).");

/// The same in hundredths, for 0.10 to 9.99: while typing an entry that is not finished passes.
int ValidateHundredthsWhileTyping(HWND dialog, int control, int previous);
int ValidateHundredthsField(HWND dialog, int control, int previous);

/// 1 for an empty text, "-", "0", or digits without a leading zero after an optional "-"; else 0.
int IsValidIntegerText(const WCHAR* text, int length);

/// Reads a text that the field's filter let through. Numbers beyond 32 bits end at their limits.
LONG ParseDecimalText(const WCHAR* text);
LONG ParseHundredths(const WCHAR* text);

/// Writes a value in hundredths with two decimals. `text` has kNumberLength characters.
constexpr int kNumberLength = 64;
void FormatHundredths(int value, WCHAR* text);
