// What the list box shares with the combo box, whose dropped list it is.
#pragma once

#include "controls/common_control.h"

namespace host {

/// The class of the list that a combo box drops. It is created with the combo box as parameter,
/// tells it what a list box tells its parent, and has its items drawn in its name.
constexpr const WCHAR* kComboListClass = TEXT("ComboLBox");

/// Whom an owner-drawn item is drawn, measured and deleted for.
struct ItemOwner {
    HWND control;
    UINT type;  ///< ODT_...

    HWND Parent() const { return GetParent(control); }
    UINT Id() const { return static_cast<UINT>(GetWindowLongPtrW(control, GWLP_ID)); }
    /// What the parent makes of a height.
    int Measure(UINT item, int width, int height) const;
    /// Has an item drawn; what the parent does to the context is undone.
    void Draw(HDC context, UINT item, UINT action, UINT state, const RECT& rect,
              ULONG_PTR data) const;
};

/// Selects colours and fills a place for text: as chosen, as not available, or as the parent wants
/// it by that WM_CTLCOLOR message.
void FillForText(HDC context, const RECT& rect, HWND control, HWND parent, UINT colorMessage,
                 bool isSelected, bool isEnabled);

}  // namespace host
