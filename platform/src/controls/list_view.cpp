// List views, as far as a settings dialog needs them: items with texts and one selection or more,
// in rows; with columns and their heads in the report view.
#include "controls/common_control.h"

#include <algorithm>

namespace {

using host::WideString;
using host::common::PointOf;

constexpr int kHeadMargin = 4;  ///< a head is higher than its text by this
constexpr int kTextMargin = 4;
constexpr int kListColumn = 128;  ///< width of the items when there are no columns

struct Column {
    WideString text;
    int width = 10;
    int format = 0;
};

struct Item {
    std::vector<WideString> texts;  ///< by column; may be fewer
    int image = 0;
    LPARAM param = 0;
    UINT state = 0;
};

class ListView : public host::common::Control {
  public:
    explicit ListView(HWND window) : Control(window) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Paint(HDC context) override;
    bool Owns(UINT message) const override { return IsInRange(message, LVM_FIRST); }
    void DrawHeads(HDC context) const;
    void DrawItem(HDC context, int index) const;
    bool HandleInput(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleOwn(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleItems(UINT message, WPARAM wParam, LPARAM lParam);

    LRESULT InsertColumn(int at, const LVCOLUMNW& column);
    LRESULT Insert(const LVITEMW& item);
    BOOL Set(const LVITEMW& item);
    BOOL Get(LVITEMW& item);
    BOOL Delete(int index);
    BOOL DeleteAll();
    static void SetText(Item& item, int column, LPCWSTR text);
    BOOL SetState(int index, UINT state, UINT mask);
    bool ChangeState(int index, UINT state, UINT mask);
    int Next(int after, UINT flags) const;

    void KeyDown(WPARAM key, LPARAM flags);
    void ButtonDown(POINT point, UINT code);
    void ChooseOnly(int index);
    LRESULT NotifyItem(UINT code, int index, UINT changed = 0, UINT newState = 0,
                       UINT oldState = 0) const;
    void NotifyMouse(UINT code, POINT point) const;

    bool IsReport() const { return (Style() & LVS_TYPEMASK) == LVS_REPORT; }
    bool IsSingle() const { return (Style() & LVS_SINGLESEL) != 0; }
    int Count() const { return static_cast<int>(items_.size()); }
    Item* Find(WPARAM index) { return index < items_.size() ? &items_[index] : nullptr; }
    const Item& At(int index) const { return items_[static_cast<size_t>(index)]; }
    int Top() const {
        return IsReport() && (Style() & LVS_NOCOLUMNHEADER) == 0 ? FontHeight() + kHeadMargin : 0;
    }
    int RowHeight() const { return FontHeight() + 1; }
    RECT Row(int index) const;
    int Hit(POINT point) const;

    std::vector<Column> columns_;
    std::vector<Item> items_;
    int first_ = 0;  ///< the item in the first row
    UINT clickCode_ = 0;
};

LRESULT ListView::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CREATE) {
        host::common::CheckStyle("list view", Style(),
                                 LVS_TYPEMASK | LVS_SINGLESEL | LVS_SHOWSELALWAYS |
                                     LVS_SORTASCENDING | LVS_NOCOLUMNHEADER);
        const DWORD view = Style() & LVS_TYPEMASK;
        if (view != LVS_REPORT && view != LVS_LIST) {
            host::Unsupported("list view with icons");
        }
        return 0;
    }
    if (message == WM_DESTROY) {
        DeleteAll();
        return 0;
    }
    if (message == WM_GETDLGCODE) {
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    }
    if (Owns(message)) {
        return HandleOwn(message, wParam, lParam);
    }
    return HandleInput(message, wParam, lParam) ? 0 : Control::Handle(message, wParam, lParam);
}

bool ListView::HandleInput(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETFOCUS:
            Notify(NM_SETFOCUS);
            Redraw();
            return true;
        case WM_KILLFOCUS:
            Notify(NM_KILLFOCUS);
            Redraw();
            return true;
        case WM_KEYDOWN:
            KeyDown(wParam, lParam);
            return true;
        case WM_LBUTTONDOWN:
            ButtonDown(PointOf(lParam), NM_CLICK);
            return true;
        case WM_LBUTTONDBLCLK:
            ButtonDown(PointOf(lParam), NM_DBLCLK);
            return true;
        case WM_LBUTTONUP:
            if (const UINT code = std::exchange(clickCode_, 0)) {
                NotifyMouse(code, PointOf(lParam));
            }
            return true;
    }
    return false;
}

LRESULT ListView::HandleOwn(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* item = reinterpret_cast<const LVITEMW*>(lParam);
    switch (message) {
        case LVM_GETITEMCOUNT:
            return Count();
        case LVM_INSERTCOLUMNW:
            return InsertColumn(static_cast<int>(wParam),
                                *reinterpret_cast<const LVCOLUMNW*>(lParam));
        case LVM_INSERTITEMW:
            return Insert(*item);
        case LVM_SETITEMW:
            return Set(*item);
        case LVM_GETITEMW:
            return Get(*reinterpret_cast<LVITEMW*>(lParam));
        case LVM_DELETEITEM:
            return Delete(static_cast<int>(wParam));
        case LVM_DELETEALLITEMS:
            return DeleteAll();
        case LVM_SETITEMSTATE:
            return SetState(static_cast<int>(wParam), item->state, item->stateMask);
        case LVM_GETNEXTITEM:
            return Next(static_cast<int>(wParam), static_cast<UINT>(lParam));
    }
    return HandleItems(message, wParam, lParam);
}

LRESULT ListView::HandleItems(UINT message, WPARAM wParam, LPARAM lParam) {
    Item* found = Find(wParam);
    switch (message) {
        case LVM_GETITEMSTATE:
            return found == nullptr ? 0 : static_cast<LRESULT>(found->state & lParam);
        case LVM_GETITEMTEXTW: {
            auto* item = reinterpret_cast<LVITEMW*>(lParam);
            const auto column = static_cast<size_t>(item->iSubItem);
            if (found == nullptr) {
                return 0;
            }
            const WideString text =
                column < found->texts.size() ? found->texts[column] : WideString();
            return static_cast<LRESULT>(
                host::common::CopyText(text, item->pszText, item->cchTextMax));
        }
        case LVM_SETITEMTEXTW: {
            LVITEMW item = *reinterpret_cast<const LVITEMW*>(lParam);
            item.mask = LVIF_TEXT;
            item.iItem = static_cast<int>(wParam);
            return Set(item);
        }
    }
    return Control::Handle(message, wParam, lParam);
}

LRESULT ListView::InsertColumn(int at, const LVCOLUMNW& from) {
    if (at < 0 || (from.mask & ~UINT{LVCF_FMT | LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM}) != 0) {
        host::Unsupported("list view column %d with mask %#x", at, from.mask);
    }
    at = std::min(at, static_cast<int>(columns_.size()));
    Column& column = *columns_.emplace(columns_.begin() + at);
    if ((from.mask & LVCF_TEXT) != 0 && from.pszText != nullptr) {
        column.text = from.pszText;
    }
    if ((from.mask & LVCF_WIDTH) != 0) {
        column.width = std::max(0, from.cx);
    }
    if ((from.mask & LVCF_FMT) != 0) {
        column.format = from.fmt;
    }
    Redraw();
    return at;
}

LRESULT ListView::Insert(const LVITEMW& from) {
    if ((from.mask & ~UINT{LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM | LVIF_STATE}) != 0) {
        host::Unsupported("list view item with mask %#x", from.mask);
    }
    if (from.iSubItem != 0) {
        return -1;
    }
    Item item;
    if ((from.mask & LVIF_TEXT) != 0) {
        SetText(item, 0, from.pszText);
    }
    int at = std::min(from.iItem, Count());
    if ((Style() & LVS_SORTASCENDING) != 0 && (from.mask & LVIF_TEXT) != 0) {
        const WideString folded = host::FoldCase(item.texts[0]);
        const auto place = std::find_if(items_.begin(), items_.end(), [&](const Item& other) {
            return !other.texts.empty() && host::FoldCase(other.texts[0]) > folded;
        });
        at = static_cast<int>(place - items_.begin());
    }
    if (at < 0) {
        return -1;
    }
    item.image = (from.mask & LVIF_IMAGE) != 0 ? from.iImage : 0;
    item.param = (from.mask & LVIF_PARAM) != 0 ? from.lParam : 0;
    items_.insert(items_.begin() + at, std::move(item));
    NotifyItem(LVN_INSERTITEM, at);
    if ((from.mask & LVIF_STATE) != 0) {
        ChangeState(at, from.state, from.stateMask);
    }
    Redraw();
    return at;
}

void ListView::SetText(Item& item, int column, LPCWSTR text) {
    if (text == LPSTR_TEXTCALLBACKW) {
        host::Unsupported("list view item whose text is asked for");
    }
    item.texts.resize(std::max(item.texts.size(), static_cast<size_t>(column) + 1));
    item.texts[static_cast<size_t>(column)] = text == nullptr ? WideString() : text;
}

BOOL ListView::Set(const LVITEMW& from) {
    Item* item = Find(static_cast<WPARAM>(from.iItem));
    const bool isColumn =
        from.iSubItem == 0 || static_cast<size_t>(from.iSubItem) < columns_.size();
    if (item == nullptr || from.iSubItem < 0 || !isColumn) {
        return FALSE;
    }
    // Only what belongs to the item itself is told.
    const UINT kept = from.mask & (LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM);
    const bool isTold = from.iSubItem == 0 && kept != 0;
    if (isTold && NotifyItem(LVN_ITEMCHANGING, from.iItem, kept) != FALSE) {
        return FALSE;
    }
    if ((from.mask & LVIF_TEXT) != 0) {
        SetText(*item, from.iSubItem, from.pszText);
    }
    if ((from.mask & LVIF_IMAGE) != 0 && from.iSubItem == 0) {
        item->image = from.iImage;
    }
    if ((from.mask & LVIF_PARAM) != 0 && from.iSubItem == 0) {
        item->param = from.lParam;
    }
    if (isTold) {
        NotifyItem(LVN_ITEMCHANGED, from.iItem, kept);
    }
    if ((from.mask & LVIF_STATE) != 0) {
        ChangeState(from.iItem, from.state, from.stateMask);
    }
    Redraw();
    return TRUE;
}

BOOL ListView::Get(LVITEMW& to) {
    const Item* item = Find(static_cast<WPARAM>(to.iItem));
    if (item == nullptr || to.iSubItem < 0) {
        return FALSE;
    }
    if ((to.mask & LVIF_TEXT) != 0) {
        const auto column = static_cast<size_t>(to.iSubItem);
        host::common::CopyText(column < item->texts.size() ? item->texts[column] : WideString(),
                               to.pszText, to.cchTextMax);
    }
    if ((to.mask & LVIF_IMAGE) != 0) {
        to.iImage = item->image;
    }
    if ((to.mask & LVIF_PARAM) != 0) {
        to.lParam = item->param;
    }
    if ((to.mask & LVIF_STATE) != 0) {
        to.state = item->state & to.stateMask;
    }
    return TRUE;
}

// The item gives up the selection first; the focus goes to the item that takes its place.
BOOL ListView::Delete(int index) {
    if (index < 0 || index >= Count()) {
        return FALSE;
    }
    const bool hadFocus = (At(index).state & LVIS_FOCUSED) != 0;
    ChangeState(index, 0, LVIS_SELECTED | LVIS_FOCUSED);
    NotifyItem(LVN_DELETEITEM, index);
    items_.erase(items_.begin() + index);
    if (hadFocus && Count() > 0) {
        items_[static_cast<size_t>(std::min(index, Count() - 1))].state |= LVIS_FOCUSED;
    }
    Redraw();
    return TRUE;
}

BOOL ListView::DeleteAll() {
    // The program answers whether it wants to hear of every item.
    const bool isQuiet = NotifyItem(LVN_DELETEALLITEMS, -1) != FALSE;
    while (Count() > 0) {
        if (!isQuiet) {
            NotifyItem(LVN_DELETEITEM, Count() - 1);
        }
        items_.pop_back();
    }
    Redraw();
    return TRUE;
}

BOOL ListView::SetState(int index, UINT state, UINT mask) {
    if ((state & mask & ~UINT{LVIS_FOCUSED | LVIS_SELECTED}) != 0) {
        host::Unsupported("list view item state %#x", state & mask);
    }
    if (index == -1) {
        if (IsSingle() && (state & mask & LVIS_SELECTED) != 0) {
            return FALSE;
        }
        for (int i = 0; i < Count(); ++i) {
            ChangeState(i, state, mask);
        }
        return TRUE;
    }
    return index >= 0 && index < Count() && ChangeState(index, state, mask);
}

// The program can refuse; otherwise it is told of what has changed, of the focus and, where there
// is one selection only, of the selection that another item thereby loses, too.
bool ListView::ChangeState(int index, UINT state, UINT mask) {
    const UINT before = At(index).state;
    const UINT after = (before & ~mask) | (state & mask);
    if (before == after) {
        return true;
    }
    if (NotifyItem(LVN_ITEMCHANGING, index, LVIF_STATE, after, before) != FALSE) {
        return false;
    }
    const UINT gained = after & ~before;
    const UINT taken = gained & (LVIS_FOCUSED | (IsSingle() ? LVIS_SELECTED : 0u));
    for (int i = 0; taken != 0 && i < Count(); ++i) {
        if (i != index) {
            ChangeState(i, 0, taken);
        }
    }
    items_[static_cast<size_t>(index)].state = after;
    NotifyItem(LVN_ITEMCHANGED, index, LVIF_STATE, after, before);
    Redraw();
    return true;
}

int ListView::Next(int after, UINT flags) const {
    if ((flags & ~UINT{LVNI_FOCUSED | LVNI_SELECTED}) != 0) {
        host::Unsupported("LVM_GETNEXTITEM with flags %#x", flags);
    }
    for (int i = std::max(-1, after) + 1; i < Count(); ++i) {
        if ((At(i).state & flags) == flags) {  // the numbers of both are those of the states
            return i;
        }
    }
    return -1;
}

void ListView::KeyDown(WPARAM key, LPARAM flags) {
    NMLVKEYDOWN notification = {};
    notification.wVKey = static_cast<WORD>(key);
    notification.flags = static_cast<UINT>(flags);
    Notify(LVN_KEYDOWN, notification);
    const int focused = Next(-1, LVNI_FOCUSED);
    if (Count() == 0) {
        return;
    }
    switch (key) {
        case VK_UP:
            ChooseOnly(std::max(0, focused - 1));
            break;
        case VK_DOWN:
            ChooseOnly(std::min(Count() - 1, focused + 1));
            break;
        case VK_HOME:
            ChooseOnly(0);
            break;
        case VK_END:
            ChooseOnly(Count() - 1);
            break;
        case VK_SPACE:
            if (focused >= 0) {
                ChooseOnly(focused);
            }
            break;
        case VK_RETURN:
            Notify(NM_RETURN);
            if (focused >= 0) {
                NMITEMACTIVATE activation = {};
                activation.iItem = focused;
                Notify(LVN_ITEMACTIVATE, activation);
            }
            break;
    }
}

// Makes this item the only selected one, and the focused one; -1 takes the selection from all.
void ListView::ChooseOnly(int index) {
    for (int i = 0; i < Count(); ++i) {
        if (i != index) {
            ChangeState(i, 0, LVIS_SELECTED);
        }
    }
    if (index < 0) {
        return;
    }
    ChangeState(index, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
    const int rows = std::max<int>(1, (static_cast<int>(Client().bottom) - Top()) / RowHeight());
    first_ = std::clamp(first_, std::max(0, index - rows + 1), index);
}

void ListView::ButtonDown(POINT point, UINT code) {
    SetFocus(window_);
    ChooseOnly(Hit(point));
    clickCode_ = code;
}

LRESULT ListView::NotifyItem(UINT code, int index, UINT changed, UINT newState,
                             UINT oldState) const {
    NMLISTVIEW notification = {};
    notification.iItem = index;
    notification.uChanged = changed;
    notification.uNewState = newState;
    notification.uOldState = oldState;
    notification.lParam = index < 0 ? 0 : At(index).param;
    return Notify(code, notification);
}

void ListView::NotifyMouse(UINT code, POINT point) const {
    NMITEMACTIVATE notification = {};
    notification.iItem = Hit(point);
    notification.ptAction = point;
    Notify(code, notification);
    if (code == NM_DBLCLK && notification.iItem >= 0) {
        Notify(LVN_ITEMACTIVATE, notification);
    }
}

RECT ListView::Row(int index) const {
    int width = 0;
    for (const Column& column : columns_) {
        width += column.width;
    }
    const int top = Top() + (index - first_) * RowHeight();
    return {0, top, IsReport() ? width : kListColumn, top + RowHeight()};
}

int ListView::Hit(POINT point) const {
    for (int i = first_; i < Count(); ++i) {
        const RECT row = Row(i);
        if (PtInRect(&row, point) && point.y >= Top()) {
            return i;
        }
    }
    return -1;
}

void ListView::Paint(HDC context) {
    NotifyPainting(context);
    const RECT client = Client();
    FillRect(context, &client, GetSysColorBrush(COLOR_WINDOW));
    for (int i = first_; i < Count() && Row(i).top < client.bottom; ++i) {
        DrawItem(context, i);
    }
    if (Top() > 0) {
        DrawHeads(context);
    }
}

void ListView::DrawHeads(HDC context) const {
    SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
    int left = 0;
    const auto head = [&](int right, const WideString& text) {
        RECT part = {left, 0, right, Top()};
        DrawEdge(context, &part, EDGE_RAISED, BF_RECT | BF_MIDDLE);
        InflateRect(&part, -kTextMargin, 0);
        DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &part,
                  DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
        left = right;
    };
    for (const Column& column : columns_) {
        head(left + column.width, column.text);
    }
    if (left < Client().right) {
        head(Client().right, {});
    }
}

void ListView::DrawItem(HDC context, int index) const {
    const Item& item = At(index);
    const RECT row = Row(index);
    const bool isShown = HasFocus() || (Style() & LVS_SHOWSELALWAYS) != 0;
    const bool isMarked = isShown && (item.state & LVIS_SELECTED) != 0;
    int left = row.left;
    for (size_t i = 0; i < (IsReport() ? columns_.size() : 1u) && i < item.texts.size(); ++i) {
        RECT cell = {left, row.top, left + (IsReport() ? columns_[i].width : kListColumn),
                     row.bottom};
        left = cell.right;
        const bool isLit = i == 0 && isMarked;
        if (isLit) {
            FillRect(context, &cell,
                     GetSysColorBrush(HasFocus() ? COLOR_HIGHLIGHT : COLOR_BTNFACE));
        }
        SetTextColor(context, GetSysColor(!IsWindowEnabled(window_) ? COLOR_GRAYTEXT
                                          : isLit && HasFocus()     ? COLOR_HIGHLIGHTTEXT
                                                                    : COLOR_WINDOWTEXT));
        if (i == 0 && HasFocus() && (item.state & LVIS_FOCUSED) != 0) {
            DrawFocusRect(context, &cell);
        }
        InflateRect(&cell, -kTextMargin, 0);
        DrawTextW(context, item.texts[i].c_str(), static_cast<int>(item.texts[i].size()), &cell,
                  DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
    }
}

}  // namespace

namespace host {

void RegisterListView() {
    common::Register(WC_LISTVIEWW, common::Procedure<ListView>,
                     CS_HREDRAW | CS_VREDRAW | CS_DBLCLKS);
}

}  // namespace host
