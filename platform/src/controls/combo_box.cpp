// Combo boxes: a field with a button that shows the selected item, and a list in a window of its
// own that is shown below it when dropped. The list keeps the items and the selection.
#include "controls/list_box.h"

#include <algorithm>

namespace host {
namespace {

using common::PointOf;

constexpr DWORD kKnownStyles = CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS;
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
    void MeasureItems();
    void Arrange();
    void Resize(WINDOWPOS& place);
    RECT ListPlace() const;

    LRESULT HandleOwn(UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleInput(UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleMouse(UINT message, LPARAM lParam);
    LRESULT ToList(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT SelectProgrammed(WPARAM index);

    void HearList(WORD code);
    bool KeyDown(WPARAM key, bool alt);
    void KeyToList(UINT message, WPARAM key);
    void Drop();
    void Close(bool accepted);
    void GainFocus();
    void LoseFocus();
    void Pressed();
    void Moved(POINT point);
    void Released(POINT point);
    bool OverList(POINT point, LPARAM* there) const;

    WideString SelectedText() const;
    bool Tell(WORD code) const;
    bool Has(DWORD style) const { return (Style() & style) != 0; }
    bool IsOwnerDrawn() const { return Has(CBS_OWNERDRAWFIXED); }
    LRESULT List(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return list_ == nullptr ? CB_ERR : SendMessageW(list_, message, wParam, lParam);
    }
    int Selected() const { return static_cast<int>(List(LB_GETCURSEL)); }
    RECT Button() const;
    RECT Field() const;
    int FieldHeight() const { return itemHeight_ + 2 * kFieldMargin; }

    HWND list_ = nullptr;
    int itemHeight_ = kDefaultItemHeight;  ///< of what is in the field
    int listHeight_ = 0;                   ///< of the list when there are items enough
    int agreed_ = -1;  ///< the selection that a dropped list has when it is left without a choice
    bool hasBar_ = false;
    bool isDropped_ = false;
    bool isPressed_ = false;
    bool isKey_ = false;  ///< the list is told of a key
    bool isArranging_ = false;
    bool hasFocus_ = false;
};

// ---- Making it --------------------------------------------------------------------------------

bool ComboBox::Create(const CREATESTRUCTW& create) {
    common::CheckStyle("combo box", Style(), kKnownStyles);
    if ((Style() & CBS_DROPDOWNLIST) != CBS_DROPDOWNLIST ||
        (IsOwnerDrawn() && !Has(CBS_HASSTRINGS))) {
        Unsupported("combo box to type into, or one without strings");
    }
    if (!CreateList()) {
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
        {CBS_OWNERDRAWFIXED, LBS_OWNERDRAWFIXED},
        {CBS_HASSTRINGS, LBS_HASSTRINGS},
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
    const int height = rows * item + 2;
    const bool fits = window.bottom + height <= GetSystemMetrics(SM_CYSCREEN);
    const int top = fits || window.top < height ? window.bottom : window.top - height;
    return {window.left, top, window.right, top + height};
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
        case WM_SETREDRAW:
            Hold(wParam == FALSE);
            SendMessageW(list_, message, wParam, lParam);
            return 0;
        case WM_ENABLE:
            EnableWindow(list_, wParam != FALSE);
            Redraw();
            return 0;
        case WM_SETTEXT:
            return CB_ERR;
        case WM_GETTEXT:
            return static_cast<LRESULT>(common::CopyText(
                SelectedText(), reinterpret_cast<LPWSTR>(lParam), static_cast<int>(wParam)));
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(SelectedText().size());
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
    if (message == CB_SETCURSEL) {
        return SelectProgrammed(wParam);
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
    if (message == LB_RESETCONTENT || message == LB_DELETESTRING || message == LB_SETITEMDATA) {
        Redraw();
    }
    return result;
}

LRESULT ComboBox::SelectProgrammed(WPARAM index) {
    const LRESULT result = List(LB_SETCURSEL, index);
    if (result == LB_ERR && static_cast<int>(index) != -1) {
        List(LB_SETCURSEL, static_cast<WPARAM>(-1));
    }
    agreed_ = Selected();
    Redraw();
    return result;
}

bool ComboBox::HandleInput(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            if (reinterpret_cast<HWND>(lParam) == list_) {
                HearList(HIWORD(wParam));
                return true;
            }
            return false;
        case WM_SETFOCUS:
            GainFocus();
            return true;
        case WM_KILLFOCUS:
            LoseFocus();
            return true;
        case WM_KEYDOWN:
            return KeyDown(wParam, false);
        case WM_SYSKEYDOWN:
            return (lParam & kAltIsDown) != 0 && KeyDown(wParam, true);
        case WM_CHAR:
            KeyToList(message, wParam);
            return true;
    }
    return HandleMouse(message, lParam);
}

bool ComboBox::HandleMouse(UINT message, LPARAM lParam) {
    const POINT point = PointOf(lParam);
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            Pressed();
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
    Redraw();
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
    KeyToList(WM_KEYDOWN, key);
    return true;
}

void ComboBox::KeyToList(UINT message, WPARAM key) {
    const HWND window = window_;
    isKey_ = true;
    SendMessageW(list_, message, key, 0);
    if (IsWindow(window)) {
        isKey_ = false;
    }
}

// ---- Dropping ---------------------------------------------------------------------------------

void ComboBox::Drop() {
    const HWND window = window_;
    // The program may fill the list only now.
    if (!Tell(CBN_DROPDOWN)) {
        return;
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
    Redraw();
    Tell(CBN_KILLFOCUS);
}

// ---- The mouse --------------------------------------------------------------------------------

void ComboBox::Pressed() {
    const HWND window = window_;
    SetFocus(window_);
    if (!IsWindow(window)) {
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

WideString ComboBox::SelectedText() const {
    const int selected = Selected();
    if (selected < 0) {
        return {};
    }
    WideString text(static_cast<size_t>(List(LB_GETTEXTLEN, static_cast<WPARAM>(selected))) + 1, 0);
    List(LB_GETTEXT, static_cast<WPARAM>(selected), reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    return text;
}

// False when the parent has destroyed the combo box over it.
bool ComboBox::Tell(WORD code) const {
    const HWND window = window_;
    NotifyCommand(code);
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
    PaintField(context);
}

void ComboBox::PaintField(HDC context) {
    const bool isEnabled = IsWindowEnabled(window_);
    const UINT colors = isEnabled ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC;
    const RECT around = {kEdge, kEdge, Button().left, Client().bottom - kEdge};
    FillForText(context, around, window_, GetParent(window_), colors, false, isEnabled);
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
