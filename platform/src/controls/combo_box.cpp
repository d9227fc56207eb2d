// Combo boxes: a field with a button, and a list in a window of its own that is shown below it when
// dropped. The list keeps the items and the selection.
#include "controls/list_box.h"

#include <algorithm>

namespace host {
namespace {

using common::PointOf;

constexpr DWORD kTypeMask = 3;
constexpr DWORD kKnownStyles = kTypeMask | CBS_OWNERDRAWFIXED | CBS_AUTOHSCROLL | CBS_SORT |
                               CBS_HASSTRINGS | CBS_NOINTEGRALHEIGHT | CBS_DISABLENOSCROLL;
constexpr int kEditId = 1001;
constexpr int kEdge = 2;         ///< around the whole, on each side
constexpr int kFieldMargin = 3;  ///< from the outside to the field
constexpr int kTextMargin = 1;
constexpr int kDefaultItemHeight = 16;
/// Shown when the program has left no room for even one item.
constexpr int kMostRowsWithoutRoom = 30;
constexpr LPARAM kAltIsDown = 0x20000000;

// What goes to the list as it is, and the message it is there.
constexpr struct {
    UINT message;
    UINT listMessage;
} kListMessages[] = {
    {CB_ADDSTRING, LB_ADDSTRING},       {CB_DELETESTRING, LB_DELETESTRING},
    {CB_GETCOUNT, LB_GETCOUNT},         {CB_GETCURSEL, LB_GETCURSEL},
    {CB_GETLBTEXT, LB_GETTEXT},         {CB_GETLBTEXTLEN, LB_GETTEXTLEN},
    {CB_INSERTSTRING, LB_INSERTSTRING}, {CB_RESETCONTENT, LB_RESETCONTENT},
    {CB_FINDSTRING, LB_FINDSTRING},     {CB_FINDSTRINGEXACT, LB_FINDSTRINGEXACT},
    {CB_GETITEMDATA, LB_GETITEMDATA},   {CB_SETITEMDATA, LB_SETITEMDATA},
};

class ComboBox : public common::Control {
  public:
    explicit ComboBox(HWND window) : Control(window) {}
    ~ComboBox() override {
        if (list_ != nullptr) {  // the combo box was not made to the end
            DestroyWindow(list_);
        }
    }
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Paint(HDC context) override;
    void PaintField(HDC context);
    void Measure() override;

    bool Create(const CREATESTRUCTW& create);
    bool CreateList();
    bool CreateEdit();
    void MeasureItems();
    void Arrange();
    void Resize(WINDOWPOS& place);
    RECT ListPlace() const;

    LRESULT HandleOwn(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleText(UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleInput(UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleMouse(UINT message, LPARAM lParam);
    LRESULT ToList(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT SelectProgrammed(WPARAM index);
    LRESULT SetItemHeight(int index, int height);
    LRESULT DroppedRect(RECT* rect) const;

    void HearList(WORD code);
    void HearEdit(WORD code);
    bool KeyDown(WPARAM key, bool alt);
    void KeyToList(UINT message, WPARAM key);
    void Drop();
    void Close(bool accepted);
    void GainFocus();
    void LoseFocus();
    void Pressed(POINT point);
    void Moved(POINT point);
    void Released(POINT point);
    bool OverList(POINT point, LPARAM* there) const;

    void ShowSelection();
    void SetEditText(const WideString& text);
    WideString SelectedText() const;
    void FindEditText();
    static LRESULT CALLBACK EditProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    bool Tell(WORD code) const;
    bool Has(DWORD style) const { return (Style() & style) != 0; }
    bool IsOwnerDrawn() const { return Has(CBS_OWNERDRAWFIXED); }
    bool HasStrings() const { return !IsOwnerDrawn() || Has(CBS_HASSTRINGS); }
    LRESULT List(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return list_ == nullptr ? CB_ERR : SendMessageW(list_, message, wParam, lParam);
    }
    int Selected() const { return static_cast<int>(List(LB_GETCURSEL)); }
    RECT Button() const;
    RECT Field() const;
    int FieldHeight() const { return itemHeight_ + 2 * kFieldMargin; }

    HWND list_ = nullptr;
    HWND edit_ = nullptr;
    WNDPROC editProcedure_ = nullptr;
    int itemHeight_ = kDefaultItemHeight;  ///< of what is in the field
    int listHeight_ = 0;                   ///< of the list when there are items enough
    int listWidth_ = 0;                    ///< at least; 0: as wide as the field
    int agreed_ = -1;  ///< the selection that a dropped list has when it is left without a choice
    bool hasBar_ = false;
    bool isDropped_ = false;
    bool isPressed_ = false;
    bool isKey_ = false;    ///< the list is told of a key
    bool isQuiet_ = false;  ///< the edit control changes, but not by the user
    bool isArranging_ = false;
    bool hasFocus_ = false;
};

// ---- Making it --------------------------------------------------------------------------------

bool ComboBox::Create(const CREATESTRUCTW& create) {
    common::CheckStyle("combo box", Style(), kKnownStyles);
    if ((Style() & kTypeMask) < CBS_DROPDOWN || (Has(CBS_SORT) && !HasStrings())) {
        Unsupported("simple combo box, or one sorted without strings");
    }
    if (!CreateList() || (!((Style() & kTypeMask) == CBS_DROPDOWNLIST) && !CreateEdit())) {
        return false;
    }
    MeasureItems();
    listHeight_ = std::max(0, create.cy - FieldHeight());
    Arrange();
    return true;
}

// The list belongs to nobody, so that it outlives nothing but this control and programs can ask for
// items while their window goes.
bool ComboBox::CreateList() {
    const struct {
        DWORD own;
        DWORD list;
    } kStyles[] = {
        {CBS_SORT, LBS_SORT},
        {CBS_OWNERDRAWFIXED, LBS_OWNERDRAWFIXED},
        {CBS_HASSTRINGS, LBS_HASSTRINGS},
        {CBS_NOINTEGRALHEIGHT, LBS_NOINTEGRALHEIGHT},
        {CBS_DISABLENOSCROLL, LBS_DISABLENOSCROLL},
        {WS_DISABLED, WS_DISABLED},
    };
    DWORD style =
        WS_POPUP | WS_BORDER | WS_CLIPSIBLINGS | LBS_NOTIFY | (hasBar_ ? DWORD{WS_VSCROLL} : 0);
    for (const auto& row : kStyles) {
        style |= Has(row.own) ? row.list : 0;
    }
    list_ = CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, kComboListClass, nullptr, style, 0, 0,
                            0, 0, nullptr, nullptr, nullptr, window_);
    return list_ != nullptr;
}

bool ComboBox::CreateEdit() {
    const DWORD style = WS_CHILD | WS_VISIBLE | ES_NOHIDESEL | ES_LEFT |
                        (Has(CBS_AUTOHSCROLL) ? DWORD{ES_AUTOHSCROLL} : 0) |
                        (Has(WS_DISABLED) ? DWORD{WS_DISABLED} : 0);
    edit_ =
        CreateWindowExW(0, TEXT("Edit"), nullptr, style, 0, 0, 0, 0, window_,
                        reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(kEditId)), nullptr, nullptr);
    if (edit_ == nullptr) {
        return false;
    }
    editProcedure_ = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
        edit_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ComboBox::EditProcedure)));
    return true;
}

// The program says how high its items are, first that in the field; otherwise the font does.
void ComboBox::MeasureItems() {
    if (!IsOwnerDrawn()) {
        itemHeight_ = FontHeight() + 2;
        return;
    }
    const ItemOwner owner = {window_, ODT_COMBOBOX};
    const int width = Client().right;
    itemHeight_ = std::max(1, owner.Measure(static_cast<UINT>(-1), width, kDefaultItemHeight));
    List(LB_SETITEMHEIGHT, 0, std::max(1, owner.Measure(0, width, kDefaultItemHeight)));
}

// The window is as high as its field, whatever was asked for.
void ComboBox::Arrange() {
    RECT window = {};
    GetWindowRect(window_, &window);
    isArranging_ = true;
    SetWindowPos(window_, nullptr, 0, 0, window.right - window.left, FieldHeight(),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    isArranging_ = false;
    if (edit_ != nullptr) {
        const RECT field = Field();
        MoveWindow(edit_, field.left, field.top, field.right - field.left, field.bottom - field.top,
                   TRUE);
    }
    if (!isDropped_) {
        const RECT place = ListPlace();
        MoveWindow(list_, place.left, place.top, place.right - place.left, listHeight_, FALSE);
    }
    Redraw();
}

// A height asked for is that with the list; one that leaves the list no room leaves it its own.
void ComboBox::Resize(WINDOWPOS& place) {
    if (isArranging_ || (place.flags & SWP_NOSIZE) != 0) {
        return;
    }
    if (place.cy > FieldHeight()) {
        listHeight_ = place.cy - FieldHeight();
    }
    place.cy = FieldHeight();
}

void ComboBox::Measure() {
    SendMessageW(list_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    if (edit_ != nullptr) {
        SendMessageW(edit_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    }
    if (!IsOwnerDrawn()) {
        MeasureItems();
    }
    Arrange();
}

RECT ComboBox::Button() const {
    const RECT client = Client();
    return {client.right - kEdge - GetSystemMetrics(SM_CXVSCROLL), kEdge, client.right - kEdge,
            client.bottom - kEdge};
}

RECT ComboBox::Field() const {
    return {kFieldMargin, kFieldMargin, std::max<LONG>(kFieldMargin, Button().left - 1),
            std::max<LONG>(kFieldMargin, Client().bottom - kFieldMargin)};
}

// Where the list comes up: below the field, or above it where the screen ends.
RECT ComboBox::ListPlace() const {
    RECT window = {};
    GetWindowRect(window_, &window);
    const int item = std::max(1, static_cast<int>(List(LB_GETITEMHEIGHT)));
    const int count = static_cast<int>(List(LB_GETCOUNT));
    const int room = (listHeight_ - 2) / item;
    const int rows = std::max(1, std::min(count, room >= 1 ? room : kMostRowsWithoutRoom));
    const int height =
        Has(CBS_NOINTEGRALHEIGHT) && count > room && room >= 1 ? listHeight_ : rows * item + 2;
    const int width = std::max(listWidth_, static_cast<int>(window.right - window.left));
    const bool fits = window.bottom + height <= GetSystemMetrics(SM_CYSCREEN);
    const int top = fits || window.top < height ? window.bottom : window.top - height;
    return {window.left, top, window.left + width, top + height};
}

// ---- Messages ---------------------------------------------------------------------------------

LRESULT ComboBox::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message >= CB_GETEDITSEL && message <= 0x165) {
        return HandleOwn(message, wParam, lParam);
    }
    if (HandleInput(message, wParam, lParam)) {
        return 0;
    }
    switch (message) {
        case WM_NCCREATE: {
            // A bar asked for is the list's, and what the program calls the window does not show.
            const DWORD style = Style();
            hasBar_ = (style & WS_VSCROLL) != 0;
            SetWindowLongPtrW(window_, GWL_STYLE,
                              static_cast<LONG>(style & ~(WS_VSCROLL | WS_HSCROLL | WS_BORDER)));
            CREATESTRUCTW create = *reinterpret_cast<const CREATESTRUCTW*>(lParam);
            create.lpszName = nullptr;
            return DefWindowProcW(window_, message, wParam, reinterpret_cast<LPARAM>(&create));
        }
        case WM_CREATE:
            return Create(*reinterpret_cast<const CREATESTRUCTW*>(lParam)) ? 0 : -1;
        case WM_DESTROY:
            if (const HWND list = std::exchange(list_, nullptr)) {
                DestroyWindow(list);
            }
            return 0;
        case WM_WINDOWPOSCHANGING:
            Resize(*reinterpret_cast<WINDOWPOS*>(lParam));
            return 0;
        case WM_SIZE:
            if (list_ != nullptr && !isArranging_) {
                Arrange();
            }
            return 0;
        case WM_ENABLE:
            EnableWindow(list_, wParam != FALSE);
            if (edit_ != nullptr) {
                EnableWindow(edit_, wParam != FALSE);
            }
            Redraw();
            return 0;
        case WM_SETTEXT:
        case WM_GETTEXT:
        case WM_GETTEXTLENGTH:
        case WM_CUT:
        case WM_COPY:
        case WM_PASTE:
        case WM_CLEAR:
        case WM_UNDO:
            return HandleText(message, wParam, lParam);
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
            return SendMessageW(GetParent(window_), message, wParam, lParam);
        case WM_GETDLGCODE: {
            const auto* event = reinterpret_cast<const MSG*>(lParam);
            const bool closes = isDropped_ && event != nullptr && event->message == WM_KEYDOWN &&
                                (event->wParam == VK_RETURN || event->wParam == VK_ESCAPE);
            return DLGC_WANTARROWS | DLGC_WANTCHARS | (closes ? DLGC_WANTMESSAGE : 0);
        }
    }
    return Control::Handle(message, wParam, lParam);
}

LRESULT ComboBox::HandleOwn(UINT message, WPARAM wParam, LPARAM lParam) {
    for (const auto& row : kListMessages) {
        if (row.message == message) {
            return ToList(row.listMessage, wParam, lParam);
        }
    }
    const int index = static_cast<int>(wParam);
    switch (message) {
        case CB_SETCURSEL:
            return SelectProgrammed(wParam);
        case CB_SELECTSTRING: {
            const LRESULT found = List(LB_FINDSTRING, wParam, lParam);
            return found < 0 ? CB_ERR : SelectProgrammed(static_cast<WPARAM>(found));
        }
        case CB_SHOWDROPDOWN:
            if (wParam != 0 && !isDropped_) {
                Drop();
            } else if (wParam == 0 && isDropped_) {
                Close(false);
            }
            return TRUE;
        case CB_GETDROPPEDSTATE:
            return isDropped_;
        case CB_GETDROPPEDCONTROLRECT:
            return DroppedRect(reinterpret_cast<RECT*>(lParam));
        case CB_SETDROPPEDWIDTH:
            listWidth_ = std::clamp(index, 0, 0x7FFF);
            return std::max<LONG>(listWidth_, Client().right);
        case CB_SETITEMHEIGHT:
            return SetItemHeight(index, static_cast<int>(lParam));
        case CB_GETITEMHEIGHT:
            return index == -1 ? itemHeight_ : index < 0 ? CB_ERR : List(LB_GETITEMHEIGHT);
        case CB_GETEDITSEL:
            return edit_ == nullptr ? CB_ERR : SendMessageW(edit_, EM_GETSEL, wParam, lParam);
        case CB_LIMITTEXT:
            if (edit_ != nullptr) {
                SendMessageW(edit_, EM_LIMITTEXT, wParam, lParam);
            }
            return TRUE;
    }
    Unsupported("message %#x to a combo box", message);
}

// Shows what the list makes of a message in the field, too.
LRESULT ComboBox::ToList(UINT message, WPARAM wParam, LPARAM lParam) {
    const int before = Selected();
    const LRESULT result = List(message, wParam, lParam);
    const int after = Selected();
    if (after != before) {
        agreed_ = after;
    }
    if (message == LB_RESETCONTENT && edit_ != nullptr) {
        SetEditText({});
    }
    if (message == LB_RESETCONTENT || message == LB_DELETESTRING || message == LB_SETITEMDATA) {
        Redraw();
    }
    return result;
}

LRESULT ComboBox::SelectProgrammed(WPARAM index) {
    LRESULT result = List(LB_SETCURSEL, index);
    if (result == LB_ERR && static_cast<int>(index) != -1) {
        List(LB_SETCURSEL, static_cast<WPARAM>(-1));
    }
    agreed_ = Selected();
    ShowSelection();
    return result;
}

LRESULT ComboBox::SetItemHeight(int index, int height) {
    if (index < -1 || height <= 0 || height > 255) {
        return CB_ERR;
    }
    if (index >= 0) {
        return List(LB_SETITEMHEIGHT, 0, height);
    }
    itemHeight_ = height;
    Arrange();
    return height;
}

// The field and, below it, the room for the list.
LRESULT ComboBox::DroppedRect(RECT* rect) const {
    GetWindowRect(window_, rect);
    rect->right = std::max<LONG>(rect->right, rect->left + listWidth_);
    rect->bottom += listHeight_;
    return TRUE;
}

LRESULT ComboBox::HandleText(UINT message, WPARAM wParam, LPARAM lParam) {
    if (edit_ != nullptr) {
        const bool wasQuiet = std::exchange(isQuiet_, isQuiet_ || message == WM_SETTEXT);
        const LRESULT result = SendMessageW(edit_, message, wParam, lParam);
        isQuiet_ = wasQuiet;
        if (message == WM_SETTEXT) {
            List(LB_SETCURSEL, static_cast<WPARAM>(-1));
        }
        return result;
    }
    if (message == WM_GETTEXTLENGTH) {
        return static_cast<LRESULT>(SelectedText().size());
    }
    if (message == WM_GETTEXT) {
        return static_cast<LRESULT>(common::CopyText(
            SelectedText(), reinterpret_cast<LPWSTR>(lParam), static_cast<int>(wParam)));
    }
    return CB_ERR;
}

bool ComboBox::HandleInput(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            if (reinterpret_cast<HWND>(lParam) == list_) {
                HearList(HIWORD(wParam));
                return true;
            }
            if (reinterpret_cast<HWND>(lParam) == edit_) {
                HearEdit(HIWORD(wParam));
                return true;
            }
            return false;
        case WM_SETFOCUS:
            if (edit_ != nullptr) {
                SetFocus(edit_);
            } else {
                GainFocus();
            }
            return true;
        case WM_KILLFOCUS:
            if (edit_ == nullptr) {
                LoseFocus();
            }
            return true;
        case WM_KEYDOWN:
            return KeyDown(wParam, false);
        case WM_SYSKEYDOWN:
            return (lParam & kAltIsDown) != 0 && KeyDown(wParam, true);
        case WM_CHAR:
            if (edit_ == nullptr) {
                KeyToList(message, wParam);
            }
            return true;
        case WM_MOUSEWHEEL:
            KeyToList(WM_KEYDOWN, static_cast<SHORT>(HIWORD(wParam)) > 0 ? VK_UP : VK_DOWN);
            return true;
    }
    return HandleMouse(message, lParam);
}

bool ComboBox::HandleMouse(UINT message, LPARAM lParam) {
    const POINT point = PointOf(lParam);
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            Pressed(point);
            return true;
        case WM_MOUSEMOVE:
            Moved(point);
            return true;
        case WM_LBUTTONUP:
            Released(point);
            return true;
        case WM_CAPTURECHANGED:
            if (std::exchange(isPressed_, false)) {
                Redraw();
            }
            return true;
    }
    return false;
}

// ---- What the parts tell ----------------------------------------------------------------------

void ComboBox::HearList(WORD code) {
    if (code == LBN_SELCANCEL) {
        Close(false);
        return;
    }
    if (code != LBN_SELCHANGE) {
        return;
    }
    agreed_ = Selected();
    ShowSelection();
    // A key goes through the items of a dropped list; a click in it ends the choice.
    const bool goesOn = isKey_ && isDropped_;
    if (!goesOn) {
        const HWND window = window_;
        Close(true);
        if (!IsWindow(window)) {
            return;
        }
    }
    Tell(CBN_SELCHANGE);
}

void ComboBox::HearEdit(WORD code) {
    switch (code) {
        case EN_SETFOCUS:
            GainFocus();
            break;
        case EN_KILLFOCUS:
            LoseFocus();
            break;
        case EN_UPDATE:
            if (!isQuiet_) {
                Tell(CBN_EDITUPDATE);
            }
            break;
        case EN_CHANGE:
            // What is typed is no item of the list.
            if (!isQuiet_) {
                List(LB_SETCURSEL, static_cast<WPARAM>(-1));
                agreed_ = -1;
                Tell(CBN_EDITCHANGE);
            }
            break;
        case EN_ERRSPACE:
            Tell(static_cast<WORD>(CBN_ERRSPACE));
            break;
    }
}

// The keys that the combo box itself knows, those of its edit control among them.
bool ComboBox::KeyDown(WPARAM key, bool alt) {
    const bool isArrow = key == VK_UP || key == VK_DOWN;
    if ((alt && isArrow) || (!alt && key == VK_F4)) {
        if (isDropped_) {
            Close(false);
        } else {
            Drop();
        }
        return true;
    }
    if (alt) {
        return false;
    }
    if (key == VK_RETURN || key == VK_ESCAPE) {
        if (isDropped_) {
            Close(key == VK_RETURN);
        }
        return true;
    }
    // In an edit control the others move the caret.
    if (edit_ != nullptr && !isArrow && key != VK_PRIOR && key != VK_NEXT) {
        return false;
    }
    KeyToList(WM_KEYDOWN, key);
    return true;
}

void ComboBox::KeyToList(UINT message, WPARAM key) {
    const HWND window = window_;
    if (Selected() < 0) {
        FindEditText();
    }
    isKey_ = true;
    SendMessageW(list_, message, key, 0);
    if (IsWindow(window)) {
        isKey_ = false;
    }
}

LRESULT CALLBACK ComboBox::EditProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* combo = reinterpret_cast<ComboBox*>(GetWindowLongPtrW(GetParent(window), 0));
    if (combo == nullptr) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    const WNDPROC procedure = combo->editProcedure_;
    const bool isKey = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
    const bool alt = message == WM_SYSKEYDOWN && (lParam & kAltIsDown) != 0;
    const bool closes = wParam == VK_RETURN || wParam == VK_ESCAPE;
    if (isKey && (!closes || combo->isDropped_) && (message == WM_KEYDOWN || alt) &&
        combo->KeyDown(wParam, alt)) {
        return 0;
    }
    if (message == WM_CHAR && closes) {  // the key has done it
        return 0;
    }
    const LRESULT result = CallWindowProcW(procedure, window, message, wParam, lParam);
    if (message == WM_GETDLGCODE) {
        return result |
               (SendMessageW(GetParent(window), message, wParam, lParam) & DLGC_WANTMESSAGE);
    }
    return result;
}

// ---- Dropping ---------------------------------------------------------------------------------

void ComboBox::Drop() {
    const HWND window = window_;
    // The program may fill the list only now.
    if (!Tell(CBN_DROPDOWN)) {
        return;
    }
    FindEditText();
    if (edit_ != nullptr && Selected() >= 0) {
        ShowSelection();
    }
    agreed_ = Selected();
    isDropped_ = true;
    const RECT place = ListPlace();
    SetWindowPos(list_, HWND_TOPMOST, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOACTIVATE);
    if (agreed_ >= 0) {
        List(LB_SETCURSEL, static_cast<WPARAM>(agreed_));  // brings it into sight
    }
    ShowWindow(list_, SW_SHOWNA);
    Redraw();
    UpdateWindow(window);
    UpdateWindow(list_);
}

// Ends the choice, with a notification even where no list was dropped.
void ComboBox::Close(bool accepted) {
    const bool wasDropped = isDropped_;
    if (wasDropped && !accepted && Selected() != agreed_) {
        List(LB_SETCURSEL, static_cast<WPARAM>(agreed_));
    }
    if (!Tell(accepted ? CBN_SELENDOK : CBN_SELENDCANCEL) || !wasDropped || !isDropped_) {
        return;
    }
    isDropped_ = isPressed_ = false;
    if (GetCapture() == list_ || GetCapture() == window_) {
        ReleaseCapture();
    }
    ShowWindow(list_, SW_HIDE);
    Redraw();
    Tell(CBN_CLOSEUP);
}

void ComboBox::GainFocus() {
    if (std::exchange(hasFocus_, true)) {
        return;
    }
    if (edit_ != nullptr) {
        SendMessageW(edit_, EM_SETSEL, 0, -1);
    }
    Redraw();
    Tell(CBN_SETFOCUS);
}

void ComboBox::LoseFocus() {
    if (!std::exchange(hasFocus_, false)) {
        return;
    }
    const HWND window = window_;
    Close(false);
    if (!IsWindow(window)) {
        return;
    }
    if (edit_ != nullptr) {
        SendMessageW(edit_, EM_SETSEL, 0, 0);
    }
    Redraw();
    Tell(CBN_KILLFOCUS);
}

// ---- The mouse --------------------------------------------------------------------------------

void ComboBox::Pressed(POINT point) {
    const HWND window = window_;
    SetFocus(edit_ != nullptr ? edit_ : window_);
    const RECT button = Button();
    if (!IsWindow(window) || (edit_ != nullptr && !PtInRect(&button, point))) {
        return;
    }
    if (isDropped_) {
        // What the mouse went over on its way is not chosen.
        List(LB_SETCURSEL, static_cast<WPARAM>(agreed_));
        Close(true);
        return;
    }
    SetCapture(window_);
    isPressed_ = true;
    Drop();
}

// The point as the list has it. False when it is not over the dropped list.
bool ComboBox::OverList(POINT point, LPARAM* there) const {
    MapWindowPoints(window_, list_, &point, 1);
    *there = MAKELPARAM(point.x, point.y);
    RECT client = {};
    GetClientRect(list_, &client);
    return isDropped_ && PtInRect(&client, point);
}

// The button that dropped the list may stay down until it is over an item.
void ComboBox::Moved(POINT point) {
    LPARAM there;
    if (GetCapture() == window_ && OverList(point, &there)) {
        SendMessageW(list_, WM_MOUSEMOVE, MK_LBUTTON, there);
    }
}

void ComboBox::Released(POINT point) {
    if (GetCapture() != window_) {
        return;
    }
    isPressed_ = false;
    Redraw();
    if (!isDropped_) {
        ReleaseCapture();
        return;
    }
    SetCapture(list_);
    LPARAM there;
    if (OverList(point, &there)) {
        SendMessageW(list_, WM_LBUTTONUP, 0, there);
    }
}

// ---- The field --------------------------------------------------------------------------------

void ComboBox::ShowSelection() {
    if (edit_ == nullptr) {
        Redraw();
    } else {
        SetEditText(SelectedText());
    }
}

void ComboBox::SetEditText(const WideString& text) {
    const bool wasQuiet = std::exchange(isQuiet_, true);
    SetWindowTextW(edit_, text.c_str());
    SendMessageW(edit_, EM_SETSEL, 0, -1);
    isQuiet_ = wasQuiet;
}

WideString ComboBox::SelectedText() const {
    const int selected = Selected();
    if (selected < 0 || !HasStrings()) {
        return {};
    }
    WideString text(static_cast<size_t>(List(LB_GETTEXTLEN, static_cast<WPARAM>(selected))) + 1, 0);
    List(LB_GETTEXT, static_cast<WPARAM>(selected), reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    return text;
}

// Selects the first item that begins with what is typed.
void ComboBox::FindEditText() {
    if (edit_ == nullptr || Selected() >= 0) {
        return;
    }
    WideString text(static_cast<size_t>(GetWindowTextLengthW(edit_)) + 1, 0);
    GetWindowTextW(edit_, text.data(), static_cast<int>(text.size()));
    const LRESULT found =
        List(LB_FINDSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.c_str()));
    if (found >= 0) {
        List(LB_SETCURSEL, static_cast<WPARAM>(found));
    }
}

// False when the parent has destroyed the combo box over it.
bool ComboBox::Tell(WORD code) const {
    const HWND window = window_;
    SendMessageW(GetParent(window), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window), code),
                 reinterpret_cast<LPARAM>(window));
    return IsWindow(window);
}

void ComboBox::Paint(HDC context) {
    RECT rect = Client();
    DrawEdge(context, &rect, EDGE_SUNKEN, BF_RECT);
    RECT button = Button();
    DrawFrameControl(context, &button, DFC_SCROLL,
                     DFCS_SCROLLCOMBOBOX | (!IsWindowEnabled(window_) ? UINT{DFCS_INACTIVE}
                                            : isPressed_ ? UINT{DFCS_PUSHED | DFCS_FLAT}
                                                         : 0));
    if (edit_ != nullptr) {
        const RECT field = Field();
        ExcludeClipRect(context, field.left, field.top, field.right, field.bottom);
    }
    PaintField(context);
}

void ComboBox::PaintField(HDC context) {
    const bool isEnabled = IsWindowEnabled(window_);
    const UINT colors = isEnabled ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC;
    const RECT around = {kEdge, kEdge, Button().left, Client().bottom - kEdge};
    FillForText(context, around, window_, GetParent(window_), colors, false, isEnabled);
    if (edit_ != nullptr) {
        return;
    }
    const RECT field = Field();
    const bool isLit = hasFocus_ && !isDropped_;
    FillForText(context, field, window_, GetParent(window_), colors, isLit, isEnabled);
    if (IsOwnerDrawn()) {
        const UINT state = ODS_COMBOBOXEDIT | (isLit ? UINT{ODS_SELECTED | ODS_FOCUS} : 0) |
                           (isEnabled ? 0 : UINT{ODS_DISABLED});
        const WPARAM selected = static_cast<WPARAM>(Selected());
        ItemOwner{window_, ODT_COMBOBOX}.Draw(
            context, static_cast<UINT>(selected), ODA_DRAWENTIRE, state, field,
            static_cast<ULONG_PTR>(List(LB_GETITEMDATA, selected)));
        return;
    }
    const WideString text = SelectedText();
    RECT place = field;
    place.left += kTextMargin;
    DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &place,
              DT_SINGLELINE | DT_NOPREFIX | DT_LEFT | DT_VCENTER);
    if (isLit) {
        DrawFocusRect(context, &field);
    }
}

}  // namespace

void RegisterComboBox() {
    common::Register(TEXT("ComboBox"), common::Procedure<ComboBox>, CS_DBLCLKS | CS_PARENTDC);
}

}  // namespace host
