// A box a part; each click is in the selection at once.
#include "ui/pages/import_export/settings_parts_dialog.h"

#include "core/module.h"
#include "core/settings_file.h"
#include "resources/resource.h"
#include "ui/common/controls.h"
#include "ui/common/language.h"
#include "ui/common/localize.h"

namespace {

constexpr struct {
    int Control;
    SettingsParts Part;
} kBoxes[] = {{IDC_DEVICE_OPTION_PART, kDeviceOptionSettings}, {IDC_COLOR_PART, kColorSettings}};

void OfferFoundParts(HWND dialog, DWORD found) {
    for (const auto& box : kBoxes) {
        const bool offered = (found & box.Part) != 0;
        CheckControl(dialog, box.Control, offered);
        EnableControl(dialog, box.Control, offered);
    }
}

void Open(HWND dialog, DWORD parts) {
    const bool imports = parts != 0;
    if (imports) {
        OfferFoundParts(dialog, parts);
    }
    LocalizeDialog(dialog);
    WCHAR title[kTextLength];
    LookupString(imports ? TEXT("Import Driver Setting") : TEXT("Export Driver Setting"), title);
    SetWindowTextW(dialog, title);
    CenterOnScreen(dialog);
}

void TakeClick(HWND dialog, int control, DWORD& parts) {
    for (const auto& box : kBoxes) {
        if (box.Control == control) {
            const bool chosen = IsDlgButtonChecked(dialog, control) == BST_CHECKED;
            parts = chosen ? parts | box.Part : parts & ~DWORD{box.Part};
        }
    }
}

INT_PTR CALLBACK SettingsPartsProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            SetWindowLongPtrW(dialog, DWLP_USER, lParam);
            Open(dialog, *reinterpret_cast<const DWORD*>(lParam));
            return TRUE;
        case WM_COMMAND: {
            const int control = LOWORD(wParam);
            if (control == IDOK || control == IDCANCEL) {
                EndDialog(dialog, control);
            } else {
                TakeClick(dialog, control,
                          *reinterpret_cast<DWORD*>(GetWindowLongPtrW(dialog, DWLP_USER)));
            }
            return TRUE;
        }
        case WM_CLOSE:
        case WM_DESTROY:  // after a choice too, whose result the platform has by then
            EndDialog(dialog, IDCANCEL);
            return TRUE;
        default:
            return FALSE;
    }
}

}  // namespace

INT_PTR RunSettingsPartsDialog(HWND owner, DWORD* parts) {
    return DialogBoxParamW(ModuleHandle, MAKEINTRESOURCEW(IDD_SETTINGS_PARTS), owner,
                           SettingsPartsProc, reinterpret_cast<LPARAM>(parts));
}
