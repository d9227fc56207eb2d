// List boxes, and the lists that combo boxes drop.
#include "controls/list_box.h"

#include "controls/scroll_bar.h"

#include <algorithm>

namespace host {

int ItemOwner::Measure(UINT item, int width, int height) const {
    MEASUREITEMSTRUCT measure = {
        type, Id(), item, static_cast<UINT>(width), static_cast<UINT>(height), 0};
    SendMessageW(Parent(), WM_MEASUREITEM, Id(), reinterpret_cast<LPARAM>(&measure));
    return static_cast<int>(measure.itemHeight);
}

void ItemOwner::Draw(HDC context, UINT item, UINT action, UINT state, const RECT& rect,
                     ULONG_PTR data) const {
    DRAWITEMSTRUCT draw = {type, Id(), item, action, state, control, context, rect, data};
    const int saved = SaveDC(context);
    IntersectClipRect(context, rect.left, rect.top, rect.right, rect.bottom);
    SendMessageW(Parent(), WM_DRAWITEM, Id(), reinterpret_cast<LPARAM>(&draw));
    RestoreDC(context, saved);
}

void FillForText(HDC context, const RECT& rect, HWND control, HWND parent, UINT colorMessage,
                 bool isSelected, bool isEnabled) {
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(context, GetSysColor(COLOR_WINDOW));
    const LRESULT wanted = SendMessageW(parent, colorMessage, reinterpret_cast<WPARAM>(context),
                                        reinterpret_cast<LPARAM>(control));
    HBRUSH brush = wanted != 0 ? reinterpret_cast<HBRUSH>(wanted) : GetSysColorBrush(COLOR_WINDOW);
    if (!isEnabled) {
        SetTextColor(context, GetSysColor(COLOR_GRAYTEXT));
    } else if (isSelected) {
        brush = GetSysColorBrush(COLOR_HIGHLIGHT);
        SetBkColor(context, GetSysColor(COLOR_HIGHLIGHT));
        SetTextColor(context, GetSysColor(COLOR_HIGHLIGHTTEXT));
    }
    FillRect(context, &rect, brush);
}

namespace {

using common::PointOf;

constexpr DWORD kKnownStyles =
    LBS_NOTIFY | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT;
constexpr int kSystemFontHeight = 16;  ///< what items are proposed to be, before there is a font
constexpr int kTextMargin = 2;

struct Item {
    WideString text;
    ULONG_PTR data = 0;
};

class ListBox : public common::Control {
  public:
    explicit ListBox(HWND window)
        : Control(window), bar_(window, [this](WORD code, int at) { Scroll(code, at); }) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

  protected:
    HWND combo_ = nullptr;  // the combo box that the list belongs to

  private:
    void Paint(HDC context) override;
    void Measure() override;
    void PaintItem(HDC context, int index, UINT action) const;
    void PaintText(HDC context, int index, const RECT& rect) const;

    LRESULT HandleOwn(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleItem(UINT message, int index, LPARAM lParam);
    LRESULT HandleText(UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleMouse(UINT message, LPARAM lParam);
    LRESULT GetText(int index, LPWSTR text) const;
    LRESULT SelectProgrammed(int index);

    bool Create();
    int Insert(int index, LPCWSTR text);
    void Remove(int index);
    void Clear();
    void TellDeleted(int index) const;
    int Find(WCHAR character) const;

    void Select(int index);
    void ShowItem(int index);
    void SetTop(int index);
    void Scroll(WORD code, int position);
    void UpdateBar();
    void FitHeight();
    void Refresh(int index, UINT action);

    bool KeyDown(WPARAM key);
    void Character(WCHAR character);
    void ButtonDown(POINT point);
    void ButtonUp(POINT point);
    int ItemAt(POINT point) const;

    bool Has(DWORD style) const { return (Style() & style) != 0; }
    bool IsItem(int index) const { return index >= 0 && index < Count(); }
    int Count() const { return static_cast<int>(items_.size()); }
    int Rows() const { return std::max(1, static_cast<int>(Client().bottom) / itemHeight_); }
    int LastTop() const { return std::max(0, Count() - Rows()); }
    RECT ItemRect(int index) const;
    Item& At(int index) { return items_[static_cast<size_t>(index)]; }
    const Item& At(int index) const { return items_[static_cast<size_t>(index)]; }
    HWND Parent() const { return GetParent(combo_ != nullptr ? combo_ : window_); }
    ItemOwner Owner() const {
        return combo_ != nullptr ? ItemOwner{combo_, ODT_COMBOBOX}
                                 : ItemOwner{window_, ODT_LISTBOX};
    }
    void Tell(WORD code) const;

    std::vector<Item> items_;
    int selected_ = -1;
    int caret_ = 0;  // the item with the focus rectangle
    int top_ = 0;
    int itemHeight_ = kSystemFontHeight;
    bool isPressed_ = false;
    FrameBar bar_;
};

// ---- Messages ---------------------------------------------------------------------------------

LRESULT ListBox::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (bar_.Handle(message, wParam, lParam, &result)) {
        return result;
    }
    if (message >= LB_ADDSTRING && message <= 0x1B3) {
        return HandleOwn(message, wParam, lParam);
    }
    if (HandleMouse(message, lParam)) {
        return 0;
    }
    switch (message) {
        case WM_CREATE:
            return Create() ? 0 : -1;
        case WM_DESTROY:
            Clear();
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_SETREDRAW:
            Hold(wParam == FALSE);
            return 0;
        case WM_SIZE:
            FitHeight();
            SetTop(top_);
            Redraw();
            return 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            if (IsItem(caret_)) {
                Refresh(caret_, ODA_FOCUS);
            }
            Tell(message == WM_SETFOCUS ? LBN_SETFOCUS : LBN_KILLFOCUS);
            return 0;
        case WM_KEYDOWN:
            if (KeyDown(wParam)) {
                return 0;
            }
            break;
        case WM_CHAR:
            Character(static_cast<WCHAR>(wParam));
            return 0;
        case WM_VSCROLL:
            Scroll(LOWORD(wParam), static_cast<SHORT>(HIWORD(wParam)));
            return 0;
    }
    return Control::Handle(message, wParam, lParam);
}

bool ListBox::Create() {
    common::CheckStyle("list box", Style(), kKnownStyles);
    if (Has(WS_HSCROLL) || (Has(LBS_OWNERDRAWFIXED) && combo_ == nullptr)) {
        Unsupported("list box with a horizontal bar, or owner-drawn outside of a combo box");
    }
    if (Has(WS_VSCROLL)) {
        bar_.Enable();
    }
    Measure();
    FitHeight();
    UpdateBar();
    return true;
}

LRESULT ListBox::HandleOwn(UINT message, WPARAM wParam, LPARAM lParam) {
    const int index = static_cast<int>(wParam);
    switch (message) {
        case LB_RESETCONTENT:
            Clear();
            UpdateBar();
            Redraw();
            return 0;
        case LB_GETCOUNT:
            return Count();
        case LB_GETCURSEL:
            return selected_;
        case LB_SETCURSEL:
            return SelectProgrammed(index);
        case LB_GETTOPINDEX:
            return top_;
        case LB_SETITEMHEIGHT:
            if (lParam <= 0 || lParam > 255) {
                return LB_ERR;
            }
            itemHeight_ = static_cast<int>(lParam);
            SetTop(top_);
            Redraw();
            return 0;
        case LB_GETITEMHEIGHT:
            return itemHeight_;
        case LB_ADDSTRING:
        case LB_INSERTSTRING:
            return HandleText(message, wParam, lParam);
        case LB_DELETESTRING:
        case LB_GETTEXT:
        case LB_GETTEXTLEN:
        case LB_SETTOPINDEX:
        case LB_GETITEMDATA:
        case LB_SETITEMDATA:
            return HandleItem(message, index, lParam);
    }
    Unsupported("message %#x to a list box", message);
}

// The messages about one item.
LRESULT ListBox::HandleItem(UINT message, int index, LPARAM lParam) {
    if (!IsItem(index)) {
        return LB_ERR;
    }
    switch (message) {
        case LB_DELETESTRING:
            Remove(index);
            return Count();
        case LB_GETTEXT:
            return GetText(index, reinterpret_cast<LPWSTR>(lParam));
        case LB_GETTEXTLEN:
            return static_cast<LRESULT>(At(index).text.size());
        case LB_SETTOPINDEX:
            SetTop(index);
            return 0;
        case LB_GETITEMDATA:
            return static_cast<LRESULT>(At(index).data);
        default:  // LB_SETITEMDATA
            At(index).data = static_cast<ULONG_PTR>(lParam);
            return TRUE;
    }
}

// The messages with a text.
LRESULT ListBox::HandleText(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* text = reinterpret_cast<LPCWSTR>(lParam);
    if (text == nullptr) {
        return LB_ERR;
    }
    const int index = static_cast<int>(wParam);
    if (message == LB_ADDSTRING) {
        return Insert(Count(), text);
    }
    return index < -1 || index > Count() ? LB_ERR : Insert(index == -1 ? Count() : index, text);
}

LRESULT ListBox::GetText(int index, LPWSTR text) const {
    const Item& item = At(index);
    std::copy_n(item.text.c_str(), item.text.size() + 1, text);
    return static_cast<LRESULT>(item.text.size());
}

LRESULT ListBox::SelectProgrammed(int index) {
    if (index < -1 || index >= Count()) {
        return LB_ERR;
    }
    Select(index);
    if (index >= 0) {
        ShowItem(index);
    }
    return index;
}

// ---- The items --------------------------------------------------------------------------------

int ListBox::Insert(int index, LPCWSTR text) {
    items_.insert(items_.begin() + index, Item{text});
    selected_ += selected_ >= index ? 1 : 0;
    caret_ += caret_ >= index && Count() > 1 ? 1 : 0;
    UpdateBar();
    Redraw();
    return index;
}

void ListBox::Remove(int index) {
    TellDeleted(index);
    items_.erase(items_.begin() + index);
    if (index == selected_) {
        selected_ = -1;
    }
    selected_ -= selected_ > index ? 1 : 0;
    caret_ = std::max(0, std::min(caret_ - (caret_ > index ? 1 : 0), Count() - 1));
    SetTop(top_);
    Redraw();
}

void ListBox::Clear() {
    while (!items_.empty()) {
        TellDeleted(Count() - 1);
        items_.pop_back();
    }
    selected_ = -1;
    caret_ = top_ = 0;
}

// The program hears of the end of what it has to draw, or has attached something to.
void ListBox::TellDeleted(int index) const {
    if (!Has(LBS_OWNERDRAWFIXED) && At(index).data == 0) {
        return;
    }
    const ItemOwner owner = Owner();
    DELETEITEMSTRUCT deleted = {owner.type, owner.Id(), static_cast<UINT>(index), owner.control,
                                At(index).data};
    SendMessageW(Parent(), WM_DELETEITEM, owner.Id(), reinterpret_cast<LPARAM>(&deleted));
}

// The next item after the selected one that begins with the character; from the end on to the
// first.
int ListBox::Find(WCHAR character) const {
    const WideString wanted = FoldCase(WideString(1, character));
    for (int i = 1; i <= Count(); ++i) {
        const int index = (selected_ + i) % Count();
        if (FoldCase(At(index).text).starts_with(wanted)) {
            return index;
        }
    }
    return LB_ERR;
}

// ---- Selection and scrolling ------------------------------------------------------------------

void ListBox::Select(int index) {
    const int before = std::exchange(selected_, index);
    const int caretBefore = std::exchange(caret_, std::max(0, index));
    if (before == index && caretBefore == caret_) {
        return;
    }
    if (IsItem(before)) {
        Refresh(before, ODA_SELECT);
    }
    if (IsItem(caretBefore) && caretBefore != before && HasFocus()) {
        Refresh(caretBefore, ODA_FOCUS);
    }
    if (IsItem(index)) {
        Refresh(index, ODA_SELECT);
    }
}

void ListBox::ShowItem(int index) {
    if (index < top_) {
        SetTop(index);
    } else if (index >= top_ + Rows()) {
        SetTop(index - Rows() + 1);
    }
}

void ListBox::SetTop(int index) {
    const int top = std::clamp(index, 0, LastTop());
    const bool moves = std::exchange(top_, top) != top;
    UpdateBar();
    if (moves) {
        Redraw();
    }
}

void ListBox::Scroll(WORD code, int position) {
    const struct {
        WORD code;
        int target;
    } kTargets[] = {
        {SB_LINEUP, top_ - 1},
        {SB_LINEDOWN, top_ + 1},
        {SB_PAGEUP, top_ - Rows()},
        {SB_PAGEDOWN, top_ + Rows()},
        {SB_TOP, 0},
        {SB_BOTTOM, LastTop()},
        {SB_THUMBTRACK, position},
        {SB_THUMBPOSITION, position},
    };
    for (const auto& row : kTargets) {
        if (row.code == code) {
            SetTop(row.target);
        }
    }
}

void ListBox::UpdateBar() {
    bar_.Set({sizeof(SCROLLINFO), SIF_ALL, 0, std::max(0, Count() - 1), static_cast<UINT>(Rows()),
              top_, 0},
             true);
}

void ListBox::Measure() {
    if (!Has(LBS_OWNERDRAWFIXED)) {
        itemHeight_ = std::max(1, FontHeight());
        FitHeight();
        SetTop(top_);
    }
}

// Makes the window smaller until no part of an item shows at its end.
void ListBox::FitHeight() {
    const int client = Client().bottom;
    const int over = client % itemHeight_;
    if (Has(LBS_NOINTEGRALHEIGHT) || client <= itemHeight_ || over == 0) {
        return;
    }
    RECT window = {};
    GetWindowRect(window_, &window);
    SetWindowPos(window_, nullptr, 0, 0, window.right - window.left,
                 window.bottom - window.top - over, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// ---- Keys and the mouse -----------------------------------------------------------------------

bool ListBox::KeyDown(WPARAM key) {
    const int at = selected_;
    const int page = std::max(1, Rows() - 1);
    const int last = Count() - 1;
    const struct {
        WPARAM key;
        int target;
    } kTargets[] = {
        {VK_UP, at - 1},       {VK_LEFT, at - 1},
        {VK_DOWN, at + 1},     {VK_RIGHT, at + 1},
        {VK_HOME, 0},          {VK_END, last},
        {VK_PRIOR, at - page}, {VK_NEXT, std::max(0, at) + page},
    };
    for (const auto& row : kTargets) {
        if (row.key != key || Count() == 0) {
            continue;
        }
        const int target = std::clamp(row.target, 0, last);
        ShowItem(target);
        Select(target);
        Tell(LBN_SELCHANGE);
        return true;
    }
    return false;
}

// Goes to the next item that begins with the character.
void ListBox::Character(WCHAR character) {
    if (character <= ' ') {
        return;
    }
    const int found = Find(character);
    if (found < 0) {
        return;
    }
    ShowItem(found);
    Select(found);
    Tell(LBN_SELCHANGE);
}

bool ListBox::HandleMouse(UINT message, LPARAM lParam) {
    const POINT point = PointOf(lParam);
    switch (message) {
        case WM_LBUTTONDOWN:
            ButtonDown(point);
            return true;
        case WM_LBUTTONDBLCLK:
            if (combo_ != nullptr) {
                ButtonDown(point);
            } else {
                Tell(LBN_DBLCLK);
            }
            return true;
        case WM_MOUSEMOVE:
            // The choice in a dropped list goes with the mouse, whether pressed or not.
            if (isPressed_ || combo_ != nullptr) {
                const int index = ItemAt(point);
                if (IsItem(index)) {
                    Select(index);
                }
            }
            return true;
        case WM_LBUTTONUP:
            ButtonUp(point);
            return true;
        case WM_CAPTURECHANGED:
            isPressed_ = false;
            return true;
    }
    return false;
}

void ListBox::ButtonDown(POINT point) {
    const RECT client = Client();
    if (combo_ != nullptr && !PtInRect(&client, point)) {
        POINT onScreen = point;
        ClientToScreen(window_, &onScreen);
        if (SendMessageW(window_, WM_NCHITTEST, 0, MAKELPARAM(onScreen.x, onScreen.y)) ==
            HTVSCROLL) {
            bar_.track.Press(point);
        } else {
            Tell(LBN_SELCANCEL);
        }
        return;
    }
    const HWND window = window_;
    if (combo_ == nullptr) {
        SetFocus(window);
    }
    if (!IsWindow(window)) {
        return;
    }
    const int index = ItemAt(point);
    if (!IsItem(index)) {
        return;
    }
    SetCapture(window_);
    isPressed_ = true;
    Select(index);
}

void ListBox::ButtonUp(POINT point) {
    const bool wasPressed = std::exchange(isPressed_, false);
    if (combo_ == nullptr) {
        if (wasPressed) {
            ReleaseCapture();
            Tell(LBN_SELCHANGE);
        }
    } else if (IsItem(ItemAt(point))) {
        Tell(LBN_SELCHANGE);
    }
}

// The item under a point of the client area, or a number that is none.
int ListBox::ItemAt(POINT point) const {
    const RECT client = Client();
    return PtInRect(&client, point) ? top_ + static_cast<int>(point.y) / itemHeight_ : -1;
}

void ListBox::Tell(WORD code) const {
    if (combo_ != nullptr || Has(LBS_NOTIFY)) {
        SendMessageW(combo_ != nullptr ? combo_ : Parent(), WM_COMMAND,
                     MAKEWPARAM(GetWindowLongPtrW(window_, GWLP_ID), code),
                     reinterpret_cast<LPARAM>(window_));
    }
}

// ---- Drawing ----------------------------------------------------------------------------------

RECT ListBox::ItemRect(int index) const {
    const int top = (index - top_) * itemHeight_;
    return {0, top, Client().right, top + itemHeight_};
}

// Owner-drawn items change at once, with the reason; others when the window is painted.
void ListBox::Refresh(int index, UINT action) {
    const RECT rect = ItemRect(index);
    if (!Has(LBS_OWNERDRAWFIXED)) {
        InvalidateRect(window_, &rect, TRUE);
        return;
    }
    const bool isInSight = rect.top >= 0 && rect.top < Client().bottom;
    if (!isInSight || !IsWindowVisible(window_)) {
        return;
    }
    if (HDC context = GetDC(window_)) {
        const HGDIOBJ font = SelectObject(
            context, font_ != nullptr ? static_cast<HGDIOBJ>(font_) : GetStockObject(SYSTEM_FONT));
        PaintItem(context, index, action);
        SelectObject(context, font);
        ReleaseDC(window_, context);
    }
}

void ListBox::Paint(HDC context) {
    RECT rest = Client();
    for (int i = top_; i < Count() && ItemRect(i).top < rest.bottom; ++i) {
        PaintItem(context, i, ODA_DRAWENTIRE);
    }
    rest.top = std::min<LONG>(rest.bottom, (Count() - top_) * itemHeight_);
    FillForText(context, rest, window_, Parent(), WM_CTLCOLORLISTBOX, false, true);
}

void ListBox::PaintItem(HDC context, int index, UINT action) const {
    const RECT rect = ItemRect(index);
    const bool isEnabled = IsWindowEnabled(window_);
    const bool isSelected = index == selected_;
    const bool hasCaret = index == caret_ && HasFocus();
    const int saved = SaveDC(context);
    FillForText(context, rect, window_, Parent(), WM_CTLCOLORLISTBOX, isSelected, isEnabled);
    if (Has(LBS_OWNERDRAWFIXED)) {
        const UINT state = (isSelected ? UINT{ODS_SELECTED} : 0) |
                           (isEnabled ? 0 : UINT{ODS_DISABLED}) | (hasCaret ? UINT{ODS_FOCUS} : 0);
        Owner().Draw(context, static_cast<UINT>(index), action, state, rect, At(index).data);
    } else {
        PaintText(context, index, rect);
        if (hasCaret) {
            DrawFocusRect(context, &rect);
        }
    }
    RestoreDC(context, saved);
}

void ListBox::PaintText(HDC context, int index, const RECT& rect) const {
    const WideString& text = At(index).text;
    RECT place = rect;
    place.left += kTextMargin;
    DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &place,
              DT_SINGLELINE | DT_NOPREFIX | DT_LEFT | DT_VCENTER);
}

class ComboList : public ListBox {
  public:
    using ListBox::ListBox;
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_NCCREATE) {
            combo_ =
                static_cast<HWND>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        }
        return ListBox::Handle(message, wParam, lParam);
    }
};

}  // namespace

void RegisterListBox() {
    common::Register(TEXT("ListBox"), common::Procedure<ListBox>, CS_DBLCLKS | CS_PARENTDC);
    common::Register(kComboListClass, common::Procedure<ComboList>, CS_DBLCLKS | CS_SAVEBITS);
}

}  // namespace host
