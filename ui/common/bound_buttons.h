// Check boxes and radio buttons that show a field of the record and store it again: a row each.
// What more than that follows from a choice is a rule of its page.
#pragma once

#include "core/record_field.h"

#include <span>

enum class ButtonKind {
    kRadio,       ///< checked while the masked bits are `Value`; a click makes them so
    kBox,         ///< checked while any of the masked bits is set; a click switches between
    kInverseBox,  ///< `Value` and 0. The inverse box is checked while none is.
    kExactBox,    ///< checked while the masked bits are `Value`; a click makes them so, or else 0
};

struct BoundButton {
    int Control;
    RecordField Field;
    ButtonKind Kind;
    DWORD Value = 1;
    DWORD Mask = 0xFFFFFFFF;  ///< the bits of the field that the button is about
};

/// Checks every button as the record has it. One that the dialog lacks is passed over.
void ShowButtons(HWND dialog, const DevModeRecord& record, std::span<const BoundButton> buttons);

/// What a click on the button does to the record.
void StoreClick(DevModeRecord& record, const BoundButton& button);
