// List views, as far as the translation of dialogs needs them: rows of texts under column heads.
#include "controls/common_control.h"

#include <algorithm>

namespace {

using host::WideString;

constexpr int kHeadMargin = 4;  ///< a head is higher than its text by this
constexpr int kTextMargin = 4;

struct Column {
    WideString text;
    int width = 10;
};

using Item = std::vector<WideString>;  // by column; may be fewer

class ListView : public host::common::Control {
  public:
    explicit ListView(HWND window) : Control(window) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Paint(HDC context) override;
    bool Owns(UINT message) const override { return IsInRange(message, LVM_FIRST); }
    int PaintRow(HDC context, int top, const Item& texts, bool heads) const;

    LRESULT InsertColumn(size_t at, const LVCOLUMNW& column);
    LRESULT InsertItem(const LVITEMW& item);
    LRESULT GetText(size_t index, const LVITEMW& text) const;
    LRESULT SetText(size_t index, const LVITEMW& text);
    LRESULT NotifyItem(UINT code, size_t index, UINT changed = 0) const;

    std::vector<Column> columns_;
    std::vector<Item> items_;
};

LRESULT ListView::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            host::common::CheckStyle("list view", Style(), LVS_REPORT);
            return 0;
        case LVM_GETITEMCOUNT:
            return static_cast<LRESULT>(items_.size());
        case LVM_INSERTCOLUMNW:
            return InsertColumn(wParam, *reinterpret_cast<const LVCOLUMNW*>(lParam));
        case LVM_INSERTITEMW:
            return InsertItem(*reinterpret_cast<const LVITEMW*>(lParam));
        case LVM_GETITEMTEXTW:
            return GetText(wParam, *reinterpret_cast<const LVITEMW*>(lParam));
        case LVM_SETITEMTEXTW:
            return SetText(wParam, *reinterpret_cast<const LVITEMW*>(lParam));
    }
    return Control::Handle(message, wParam, lParam);
}

LRESULT ListView::InsertColumn(size_t at, const LVCOLUMNW& from) {
    if (from.mask != (LVCF_WIDTH | LVCF_TEXT)) {
        host::Unsupported("list view column with mask %#x", from.mask);
    }
    at = std::min(at, columns_.size());
    columns_.insert(columns_.begin() + static_cast<ptrdiff_t>(at), {from.pszText, from.cx});
    Redraw();
    return static_cast<LRESULT>(at);
}

LRESULT ListView::InsertItem(const LVITEMW& from) {
    if (from.mask != LVIF_TEXT || from.iSubItem != 0 || from.iItem < 0) {
        host::Unsupported("list view item %d with mask %#x", from.iItem, from.mask);
    }
    const size_t at = std::min(static_cast<size_t>(from.iItem), items_.size());
    items_.insert(items_.begin() + static_cast<ptrdiff_t>(at), {from.pszText});
    NotifyItem(LVN_INSERTITEM, at);
    Redraw();
    return static_cast<LRESULT>(at);
}

LRESULT ListView::GetText(size_t index, const LVITEMW& text) const {
    if (index >= items_.size()) {
        return 0;
    }
    const Item& item = items_[index];
    const auto column = static_cast<size_t>(text.iSubItem);
    return static_cast<LRESULT>(host::common::CopyText(
        column < item.size() ? item[column] : WideString(), text.pszText, text.cchTextMax));
}

// Only the text of the item itself is told of.
LRESULT ListView::SetText(size_t index, const LVITEMW& text) {
    const auto column = static_cast<size_t>(text.iSubItem);
    if (index >= items_.size() || column >= columns_.size()) {
        return FALSE;
    }
    if (column == 0 && NotifyItem(LVN_ITEMCHANGING, index, LVIF_TEXT) != FALSE) {
        return FALSE;
    }
    Item& item = items_[index];
    item.resize(std::max(item.size(), column + 1));
    item[column] = text.pszText;
    if (column == 0) {
        NotifyItem(LVN_ITEMCHANGED, index, LVIF_TEXT);
    }
    Redraw();
    return TRUE;
}

LRESULT ListView::NotifyItem(UINT code, size_t index, UINT changed) const {
    NMLISTVIEW notification = {};
    notification.iItem = static_cast<int>(index);
    notification.uChanged = changed;
    return Notify(code, notification);
}

void ListView::Paint(HDC context) {
    NotifyPainting(context);
    const RECT client = Client();
    FillRect(context, &client, GetSysColorBrush(COLOR_WINDOW));
    Item heads;
    for (const Column& column : columns_) {
        heads.push_back(column.text);
    }
    int top = PaintRow(context, 0, heads, true);
    for (const Item& item : items_) {
        top = PaintRow(context, top, item, false);
    }
}

// Gives where the next row begins.
int ListView::PaintRow(HDC context, int top, const Item& texts, bool heads) const {
    const int bottom = top + FontHeight() + (heads ? kHeadMargin : 1);
    SetTextColor(context, GetSysColor(heads ? COLOR_BTNTEXT : COLOR_WINDOWTEXT));
    int left = 0;
    for (size_t i = 0; i < std::min(texts.size(), columns_.size()); ++i) {
        RECT cell = {left, top, left + columns_[i].width, bottom};
        left = cell.right;
        if (heads) {
            DrawEdge(context, &cell, EDGE_RAISED, BF_RECT | BF_MIDDLE);
        }
        InflateRect(&cell, -kTextMargin, 0);
        DrawTextW(context, texts[i].c_str(), static_cast<int>(texts[i].size()), &cell,
                  DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
    }
    return bottom;
}

}  // namespace

namespace host {

void RegisterListView() {
    common::Register(WC_LISTVIEWW, common::Procedure<ListView>,
                     CS_HREDRAW | CS_VREDRAW | CS_DBLCLKS);
}

}  // namespace host
