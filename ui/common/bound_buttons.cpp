// One loop that shows the rows, and the same row stores.
#include "ui/common/bound_buttons.h"

#include "ui/common/controls.h"

namespace {

bool IsChecked(const DevModeRecord& record, const BoundButton& button) {
    const DWORD bits = ReadField(record, button.Field) & button.Mask;
    switch (button.Kind) {
        case ButtonKind::kRadio:
        case ButtonKind::kExactBox:
            return bits == button.Value;
        case ButtonKind::kBox:
            return bits != 0;
        default:
            return bits == 0;
    }
}

}  // namespace

void ShowButtons(HWND dialog, const DevModeRecord& record, std::span<const BoundButton> buttons) {
    for (const BoundButton& button : buttons) {
        CheckControl(dialog, button.Control, IsChecked(record, button));
    }
}

void StoreClick(DevModeRecord& record, const BoundButton& button) {
    const DWORD value = ReadField(record, button.Field);
    const bool isChecked = IsChecked(record, button);
    const bool clears = button.Kind == ButtonKind::kInverseBox
                            ? !isChecked
                            : isChecked && button.Kind != ButtonKind::kRadio;
    WriteField(record, button.Field, (value & ~button.Mask) | (clears ? 0 : button.Value));
}
