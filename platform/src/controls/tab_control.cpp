// Tab controls: tabs along the upper edge, in one row or in several. What lies below them is the
// program's own affair.
#include "controls/common_control.h"

#include <algorithm>

namespace {

using host::WideString;
using host::common::PointOf;

constexpr int kMargin = 2;      ///< around the rows, for the selected tab to stand out
constexpr int kTextMargin = 6;  ///< on either side of a tab's text
constexpr int kLeastWidth = 54;
constexpr int kFrame = 4;  ///< between the control's edges and the display area

struct Item {
    WideString text;
    LPARAM param = 0;
    int row = 0;  ///< as the items follow each other, whatever row is lowest at the moment
    RECT rect = {};
};

class TabControl : public host::common::Control {
  public:
    explicit TabControl(HWND window) : Control(window) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Paint(HDC context) override;
    bool Owns(UINT message) const override { return IsInRange(message, TCM_FIRST); }
    void Measure() override { Arrange(); }
    void DrawTab(HDC context, int index) const;
    void RedrawTabs() const;
    LRESULT HandleOwn(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleItems(UINT message, WPARAM wParam, LPARAM lParam);

    LRESULT Insert(int at, const TCITEMW& item);
    static void Set(Item& item, const TCITEMW& from);
    static void Get(const Item& item, TCITEMW& to);
    LRESULT SetSelection(int index);
    void Choose(int index);
    void KeyDown(WPARAM key, LPARAM flags);
    int At(POINT point) const;
    void AdjustRect(bool outwards, RECT& rect) const;

    void Arrange();
    std::vector<int> SpreadOverRows(const std::vector<int>& widths);
    void PlaceRow(int first, int end, const std::vector<int>& widths, bool stretch);
    void PlaceSelectedRowLowest();

    int Count() const { return static_cast<int>(items_.size()); }
    Item* Find(WPARAM index) { return index < items_.size() ? &items_[index] : nullptr; }

    std::vector<Item> items_;
    int selected_ = -1;
    int tabHeight_ = 0;
    std::vector<int> rowOrder_;  ///< the rows from the top down; the selected tab's is the last
};

LRESULT TabControl::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            host::common::CheckStyle("tab control", Style(), TCS_MULTILINE);
            // Pages lie over it as its siblings.
            SetWindowLongPtrW(window_, GWL_STYLE, static_cast<LONG>(Style() | WS_CLIPSIBLINGS));
            Arrange();
            return 0;
        case WM_SIZE:
            Arrange();
            return 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            RedrawTabs();
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_KEYDOWN:
            KeyDown(wParam, lParam);
            return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            Choose(At(PointOf(lParam)));
            return 0;
        case WM_LBUTTONUP:
            Notify(NM_CLICK);
            return 0;
    }
    if (Owns(message)) {
        return HandleOwn(message, wParam, lParam);
    }
    return Control::Handle(message, wParam, lParam);
}

LRESULT TabControl::HandleOwn(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case TCM_GETITEMCOUNT:
            return Count();
        case TCM_GETCURSEL:
            return selected_;
        case TCM_SETCURSEL:
            return SetSelection(static_cast<int>(wParam));
        case TCM_GETROWCOUNT:
            return static_cast<LRESULT>(rowOrder_.size());
        case TCM_ADJUSTRECT:
            AdjustRect(wParam != 0, *reinterpret_cast<RECT*>(lParam));
            return 0;
    }
    return HandleItems(message, wParam, lParam);
}

LRESULT TabControl::HandleItems(UINT message, WPARAM wParam, LPARAM lParam) {
    Item* item = Find(wParam);
    switch (message) {
        case TCM_INSERTITEMW:
            return Insert(static_cast<int>(wParam), *reinterpret_cast<const TCITEMW*>(lParam));
        case TCM_GETITEMW:
            if (item != nullptr) {
                Get(*item, *reinterpret_cast<TCITEMW*>(lParam));
            }
            return item != nullptr;
        case TCM_GETITEMRECT:
            if (item != nullptr) {
                *reinterpret_cast<RECT*>(lParam) = item->rect;
            }
            return item != nullptr;
    }
    return Control::Handle(message, wParam, lParam);
}

void TabControl::Set(Item& item, const TCITEMW& from) {
    if ((from.mask & ~UINT{TCIF_TEXT | TCIF_PARAM}) != 0) {
        host::Unsupported("tab item with mask %#x", from.mask);
    }
    if ((from.mask & TCIF_TEXT) != 0) {
        item.text = from.pszText == nullptr ? WideString() : from.pszText;
    }
    if ((from.mask & TCIF_PARAM) != 0) {
        item.param = from.lParam;
    }
}

void TabControl::Get(const Item& item, TCITEMW& to) {
    if ((to.mask & TCIF_TEXT) != 0) {
        host::common::CopyText(item.text, to.pszText, to.cchTextMax);
    }
    if ((to.mask & TCIF_PARAM) != 0) {
        to.lParam = item.param;
    }
}

// The first item becomes the selected one; later the same item stays it.
LRESULT TabControl::Insert(int at, const TCITEMW& item) {
    if (at < 0) {
        return -1;
    }
    at = std::min(at, Count());
    Set(*items_.emplace(items_.begin() + at), item);
    if (selected_ < 0 && Count() == 1) {
        selected_ = 0;
    } else if (selected_ >= at) {
        ++selected_;
    }
    Arrange();
    return at;
}

LRESULT TabControl::SetSelection(int index) {
    if (index < -1 || index >= Count()) {
        return -1;
    }
    const int previous = std::exchange(selected_, index);
    PlaceSelectedRowLowest();
    RedrawTabs();
    return previous;
}

// What a click or a key does: the program is asked and told.
void TabControl::Choose(int index) {
    if (index < 0) {
        return;
    }
    if (index == selected_) {
        SetFocus(window_);
        return;
    }
    if (Notify(TCN_SELCHANGING) != FALSE) {
        return;
    }
    SetSelection(index);
    Notify(TCN_SELCHANGE);
}

void TabControl::KeyDown(WPARAM key, LPARAM flags) {
    NMTCKEYDOWN notification = {};
    notification.wVKey = static_cast<WORD>(key);
    notification.flags = static_cast<UINT>(flags);
    Notify(TCN_KEYDOWN, notification);
    if (selected_ >= 0 && key == VK_LEFT && selected_ > 0) {
        Choose(selected_ - 1);
    } else if (selected_ >= 0 && key == VK_RIGHT && selected_ + 1 < Count()) {
        Choose(selected_ + 1);
    }
}

int TabControl::At(POINT point) const {
    for (int i = 0; i < Count(); ++i) {
        if (PtInRect(&items_[static_cast<size_t>(i)].rect, point)) {
            return i;
        }
    }
    return -1;
}

void TabControl::AdjustRect(bool outwards, RECT& rect) const {
    const int rows = std::max<int>(1, static_cast<int>(rowOrder_.size()));
    const int top = kMargin + rows * tabHeight_ + 2;
    const int sign = outwards ? -1 : 1;
    rect.left += sign * kFrame;
    rect.top += sign * top;
    rect.right -= sign * kFrame;
    rect.bottom -= sign * kFrame;
}

// Which row each item is in. Rows are filled in turn; then the items are spread evenly over as many
// rows as that took.
std::vector<int> TabControl::SpreadOverRows(const std::vector<int>& widths) {
    std::vector<int> rows(widths.size(), 0);
    if ((Style() & TCS_MULTILINE) == 0) {
        return rows;
    }
    const int right = Client().right - kMargin;
    int along = kMargin;
    for (size_t i = 0; i < widths.size(); ++i) {
        const bool fits = along == kMargin || along + widths[i] <= right;
        rows[i] = i == 0 ? 0 : rows[i - 1] + (fits ? 0 : 1);
        along = (fits ? along : kMargin) + widths[i];
    }
    if (rows.empty()) {
        return rows;
    }
    const int count = rows.back() + 1;
    const int each = Count() / count;
    const int larger = Count() % count;  // the first rows take one more
    for (int i = 0; i < Count(); ++i) {
        const int inLarger = larger * (each + 1);
        rows[static_cast<size_t>(i)] =
            i < inLarger ? i / (each + 1) : larger + (i - inLarger) / each;
    }
    return rows;
}

void TabControl::PlaceRow(int first, int end, const std::vector<int>& widths, bool stretch) {
    int spare = 0;
    if (stretch) {
        spare = Client().right - 2 * kMargin;
        for (int i = first; i < end; ++i) {
            spare -= widths[static_cast<size_t>(i)];
        }
    }
    int along = kMargin;
    for (int i = first; i < end; ++i) {
        Item& item = items_[static_cast<size_t>(i)];
        const bool isLast = i + 1 == end;
        const int share = spare <= 0 ? 0 : spare / (end - first);
        item.rect.left = along;
        item.rect.right = spare > 0 && isLast ? Client().right - kMargin
                                              : along + widths[static_cast<size_t>(i)] + share;
        along = item.rect.right;
    }
}

void TabControl::Arrange() {
    tabHeight_ = FontHeight() + 5;
    std::vector<int> widths;
    for (const Item& item : items_) {
        widths.push_back(
            std::max(kLeastWidth, static_cast<int>(TextSize(item.text).cx) + 2 * kTextMargin));
    }
    const std::vector<int> rows = SpreadOverRows(widths);
    const int rowCount = rows.empty() ? 0 : rows.back() + 1;
    const bool stretch = rowCount > 1;
    for (int first = 0; first < Count();) {
        int end = first;
        while (end < Count() &&
               rows[static_cast<size_t>(end)] == rows[static_cast<size_t>(first)]) {
            items_[static_cast<size_t>(end)].row = rows[static_cast<size_t>(end)];
            ++end;
        }
        PlaceRow(first, end, widths, stretch);
        first = end;
    }
    // As if the first row had been lowest and the others followed from the top.
    rowOrder_.clear();
    for (int row = 1; row <= rowCount; ++row) {
        rowOrder_.push_back(row % rowCount);
    }
    PlaceSelectedRowLowest();
    Redraw();
}

void TabControl::PlaceSelectedRowLowest() {
    if (selected_ >= 0 && !rowOrder_.empty()) {
        const auto row = std::find(rowOrder_.begin(), rowOrder_.end(),
                                   items_[static_cast<size_t>(selected_)].row);
        std::rotate(row, row + 1, rowOrder_.end());
    }
    for (Item& item : items_) {
        const auto row = std::find(rowOrder_.begin(), rowOrder_.end(), item.row);
        item.rect.top = kMargin + static_cast<int>(row - rowOrder_.begin()) * tabHeight_;
        item.rect.bottom = item.rect.top + tabHeight_;
    }
}

// Without the display area, which siblings may have painted on.
void TabControl::RedrawTabs() const {
    RECT tabs = Client();
    tabs.bottom = kMargin + static_cast<int>(rowOrder_.size()) * tabHeight_ + kMargin;
    InvalidateRect(window_, &tabs, TRUE);
}

void TabControl::Paint(HDC context) {
    const RECT client = Client();
    FillRect(context, &client, GetSysColorBrush(COLOR_BTNFACE));
    if (items_.empty()) {
        return;
    }
    // Upper rows first, so that each row covers the feet of the one above it.
    for (const int row : rowOrder_) {
        for (int i = 0; i < Count(); ++i) {
            if (items_[static_cast<size_t>(i)].row == row && i != selected_) {
                DrawTab(context, i);
            }
        }
    }
    RECT frame = client;
    frame.top += kMargin + static_cast<int>(rowOrder_.size()) * tabHeight_;
    DrawEdge(context, &frame, EDGE_RAISED, BF_RECT | BF_MIDDLE);
    if (selected_ >= 0) {
        DrawTab(context, selected_);
    }
}

void TabControl::DrawTab(HDC context, int index) const {
    const Item& item = items_[static_cast<size_t>(index)];
    const bool isSelected = index == selected_;
    RECT tab = item.rect;
    if (isSelected) {  // stands out, and opens into the display area
        InflateRect(&tab, kMargin, kMargin);
    }
    FillRect(context, &tab, GetSysColorBrush(COLOR_BTNFACE));
    const auto line = [context](int left, int top, int right, int bottom, int color) {
        const RECT part = {left, top, right, bottom};
        FillRect(context, &part, GetSysColorBrush(color));
    };
    line(tab.left, tab.top + 2, tab.left + 1, tab.bottom, COLOR_BTNHIGHLIGHT);
    line(tab.left + 1, tab.top + 1, tab.left + 2, tab.top + 2, COLOR_BTNHIGHLIGHT);
    line(tab.left + 2, tab.top, tab.right - 2, tab.top + 1, COLOR_BTNHIGHLIGHT);
    line(tab.right - 2, tab.top + 1, tab.right - 1, tab.top + 2, COLOR_3DDKSHADOW);
    line(tab.right - 2, tab.top + 2, tab.right - 1, tab.bottom, COLOR_BTNSHADOW);
    line(tab.right - 1, tab.top + 2, tab.right, tab.bottom, COLOR_3DDKSHADOW);
    RECT label = item.rect;  // ends above what a selected tab of the row below covers
    OffsetRect(&label, 0, isSelected ? -kMargin : 0);
    SetTextColor(context, GetSysColor(IsWindowEnabled(window_) ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
    DrawTextW(context, item.text.c_str(), static_cast<int>(item.text.size()), &label,
              DT_SINGLELINE | DT_CENTER | DT_VCENTER);
    if (isSelected && HasFocus()) {
        RECT focus = item.rect;
        InflateRect(&focus, -2, -2);
        DrawFocusRect(context, &focus);
    }
}

}  // namespace

namespace host {

void RegisterTabControl() {
    common::Register(WC_TABCONTROLW, common::Procedure<TabControl>,
                     CS_HREDRAW | CS_VREDRAW | CS_DBLCLKS);
}

}  // namespace host
