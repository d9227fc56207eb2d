// The class "Button": push buttons, check boxes, radio buttons and group boxes.
#include "controls/common_control.h"

#include <algorithm>

namespace host {
namespace {

using common::Control;

constexpr DWORD kKnownStyles = BS_TYPEMASK | BS_MULTILINE;
constexpr int kIndicator = 13;  // pixels of a check box's square or a radio button's circle
constexpr int kGap = 4;

class Button : public Control {
  public:
    explicit Button(HWND window) : Control(window) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

  protected:
    void Paint(HDC context) override;

  private:
    bool Owns(UINT message) const override { return message >= BM_GETCHECK && message <= 0xFF; }
    DWORD Kind() const { return Style() & BS_TYPEMASK; }
    bool IsPush() const { return Kind() == BS_PUSHBUTTON || Kind() == BS_DEFPUSHBUTTON; }
    bool IsRadio() const { return Kind() == BS_RADIOBUTTON || Kind() == BS_AUTORADIOBUTTON; }
    bool HasCheck() const {
        return IsRadio() || Kind() == BS_CHECKBOX || Kind() == BS_AUTOCHECKBOX;
    }

    bool Contains(LPARAM mouse) const {
        const RECT area = Client();
        return PtInRect(&area, common::PointOf(mouse)) != 0;
    }
    static void CheckKind(DWORD style);
    LRESULT DialogCode() const;
    void SetCheck(DWORD check);
    void SetPushed(bool pushed);
    void SetKind(DWORD style, bool redraw);
    void Toggle();
    void CheckAloneInGroup();
    void Click();
    void Press();
    void Track(bool inside);
    void Release(bool inside);
    void SetFocused(bool focused);
    void HandleKey(UINT message, WPARAM key);

    void PaintPush(HDC context, RECT area) const;
    void PaintCheck(HDC context, RECT area) const;
    void PaintGroup(HDC context, RECT area) const;
    void Refresh() const;
    void PaintLabel(HDC context, RECT place, UINT format, bool focusFrame) const;
    WideString Text() const;

    DWORD check_ = BST_UNCHECKED;
    bool pushed_ = false;
    bool pressedByMouse_ = false;  // and the mouse captured
    bool focused_ = false;
    bool quietFocus_ = false;  // BM_SETDONTCLICK
};

WideString Button::Text() const {
    WCHAR text[512] = {};
    GetWindowTextW(window_, text, 512);
    return text;
}

void Button::CheckKind(DWORD style) {
    common::CheckStyle("Button", style & 0xFFFF, kKnownStyles);
    const DWORD kind = style & BS_TYPEMASK;
    if ((kind > BS_RADIOBUTTON && kind != BS_GROUPBOX && kind != BS_AUTORADIOBUTTON)) {
        Unsupported("Button of kind %u", kind);
    }
}

LRESULT Button::DialogCode() const {
    switch (Kind()) {
        case BS_PUSHBUTTON:
            return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
        case BS_DEFPUSHBUTTON:
            return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON:
            return DLGC_BUTTON | DLGC_RADIOBUTTON;
        case BS_GROUPBOX:
            return DLGC_STATIC;
        default:
            return DLGC_BUTTON;
    }
}

// A checked radio button is where Tab enters its group.
void Button::SetCheck(DWORD check) {
    if (!HasCheck()) {
        return;
    }
    check = std::min(check, DWORD{BST_CHECKED});
    if (IsRadio()) {
        const LONG style = GetWindowLongW(window_, GWL_STYLE);
        SetWindowLongW(window_, GWL_STYLE,
                       check != 0 ? style | static_cast<LONG>(WS_TABSTOP)
                                  : style & ~static_cast<LONG>(WS_TABSTOP));
    }
    if (check != check_) {
        check_ = check;
        Redraw();
    }
}

void Button::SetPushed(bool pushed) {
    if (pushed_ == pushed) {
        return;
    }
    pushed_ = pushed;
    Redraw();
}

void Button::SetKind(DWORD style, bool redraw) {
    CheckKind(style);
    const DWORD before = Style();
    SetWindowLongW(window_, GWL_STYLE,
                   static_cast<LONG>((before & ~DWORD{BS_TYPEMASK}) | (style & BS_TYPEMASK)));
    if (redraw) {
        Redraw();
    }
}

// Once around the group from this button on; a button that is hidden is not met again.
void Button::CheckAloneInGroup() {
    HWND parent = GetParent(window_);
    HWND first = GetNextDlgGroupItem(parent, window_, FALSE);
    HWND other = first;
    do {
        if (other == nullptr) {
            break;
        }
        if (other != window_ &&
            (SendMessageW(other, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0) {
            SendMessageW(other, BM_SETCHECK, BST_UNCHECKED, 0);
        }
        other = GetNextDlgGroupItem(parent, other, FALSE);
    } while (other != first);
    SetCheck(BST_CHECKED);
}

void Button::Toggle() {
    if (Kind() == BS_AUTOCHECKBOX) {
        SetCheck(check_ == BST_UNCHECKED ? BST_CHECKED : BST_UNCHECKED);
    } else if (Kind() == BS_AUTORADIOBUTTON) {
        CheckAloneInGroup();
    }
}

void Button::Click() {
    const HWND self = window_;
    Toggle();
    if (IsWindow(self)) {
        NotifyCommand(BN_CLICKED);
    }
}

void Button::Press() {
    const HWND self = window_;
    pressedByMouse_ = true;
    SetCapture(self);
    SetFocus(self);
    if (IsWindow(self)) {  // it may not outlive what the parent does about the focus
        SetPushed(true);
    }
}

void Button::Track(bool inside) {
    if (pressedByMouse_) {
        SetPushed(inside);
    }
}

void Button::Release(bool inside) {
    if (!std::exchange(pressedByMouse_, false)) {
        return;
    }
    SetPushed(false);
    if (GetCapture() == window_) {
        ReleaseCapture();
    }
    if (inside) {
        Click();
    }
}

// Where the keyboard or the program brings the focus, an unchecked radio button is chosen.
void Button::SetFocused(bool focused) {
    focused_ = focused;
    if (!focused) {
        SetPushed(false);
    }
    Redraw();
    if (focused && IsRadio() && check_ == BST_UNCHECKED && !pressedByMouse_ && !quietFocus_) {
        NotifyCommand(BN_CLICKED);
    }
}

void Button::HandleKey(UINT message, WPARAM key) {
    if (key != VK_SPACE) {
        return;
    }
    if (message == WM_KEYDOWN) {
        SetPushed(true);
    } else if (pushed_) {
        SetPushed(false);
        Click();
    }
}

// ---- Painting ---------------------------------------------------------------------------------

// The text stands in the middle of the height, in several lines when the style lets it.
void Button::PaintLabel(HDC context, RECT place, UINT format, bool focusFrame) const {
    format |= (Style() & BS_MULTILINE) != 0 ? DT_WORDBREAK : DT_SINGLELINE;
    const WideString text = Text();
    const int length = static_cast<int>(text.size());
    RECT box = place;
    DrawTextW(context, text.c_str(), length, &box, format | DT_CALCRECT);
    OffsetRect(&box, (format & DT_CENTER) != 0 ? (place.right - box.right) / 2 : 0,
               (place.bottom - place.top - (box.bottom - box.top)) / 2);
    place.top = box.top;
    SetBkMode(context, TRANSPARENT);
    if (!IsWindowEnabled(window_)) {
        RECT light = place;
        OffsetRect(&light, 1, 1);
        SetTextColor(context, GetSysColor(COLOR_BTNHIGHLIGHT));
        DrawTextW(context, text.c_str(), length, &light, format);
        SetTextColor(context, GetSysColor(COLOR_GRAYTEXT));
    }
    DrawTextW(context, text.c_str(), length, &place, format);
    if (focusFrame && focused_) {
        InflateRect(&box, 1, 1);
        DrawFocusRect(context, &box);
    }
}

void Button::PaintPush(HDC context, RECT area) const {
    Background(context, WM_CTLCOLORBTN);
    if (Kind() == BS_DEFPUSHBUTTON) {
        FrameRect(context, &area, GetSysColorBrush(COLOR_WINDOWFRAME));
        InflateRect(&area, -1, -1);
    }
    DrawFrameControl(context, &area, DFC_BUTTON,
                     DFCS_BUTTONPUSH | (pushed_ ? UINT{DFCS_PUSHED} : 0u));
    SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
    RECT label = area;
    InflateRect(&label, -3, -3);
    OffsetRect(&label, pushed_ ? 1 : 0, pushed_ ? 1 : 0);
    IntersectClipRect(context, label.left, label.top, label.right, label.bottom);
    PaintLabel(context, label, DT_CENTER, false);
    if (focused_) {
        DrawFocusRect(context, &label);
    }
}

void Button::PaintCheck(HDC context, RECT area) const {
    HBRUSH background = Background(context, WM_CTLCOLORSTATIC);
    FillRect(context, &area, background);
    const LONG top = (area.bottom - kIndicator) / 2;
    RECT indicator = {0, top, kIndicator, top + kIndicator};
    RECT label = area;
    label.left = kIndicator + kGap;
    UINT state = IsRadio() ? DFCS_BUTTONRADIO : DFCS_BUTTONCHECK;
    state |= check_ != BST_UNCHECKED ? DFCS_CHECKED : 0u;
    state |= pushed_ ? DFCS_PUSHED : 0u;
    state |= IsWindowEnabled(window_) ? 0u : DFCS_INACTIVE;
    DrawFrameControl(context, &indicator, DFC_BUTTON, state);
    PaintLabel(context, label, DT_LEFT, true);
}

void Button::PaintGroup(HDC context, RECT area) const {
    HBRUSH background = Background(context, WM_CTLCOLORSTATIC);
    constexpr int kTextLeft = 7;
    const WideString text = Text();
    RECT frame = area;
    frame.top += FontHeight() / 2 - 1;
    DrawEdge(context, &frame, EDGE_ETCHED, BF_RECT);
    if (text.empty()) {
        return;
    }
    RECT label = {kTextLeft, 0, area.right - kTextLeft, FontHeight()};
    DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &label,
              DT_LEFT | DT_SINGLELINE | DT_CALCRECT);
    InflateRect(&label, 2, 0);
    FillRect(context, &label, background);
    InflateRect(&label, -2, 0);
    PaintLabel(context, label, DT_LEFT | DT_SINGLELINE, false);
}

// A group box paints its frame only: what else it showed is its parent's to paint.
void Button::Refresh() const {
    if (Kind() != BS_GROUPBOX) {
        Redraw();
        return;
    }
    RECT title = Client();
    title.bottom = std::min<LONG>(title.bottom, FontHeight());
    MapWindowPoints(window_, GetParent(window_), reinterpret_cast<POINT*>(&title), 2);
    RedrawWindow(GetParent(window_), &title, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void Button::Paint(HDC context) {
    const RECT area = Client();
    if (Kind() == BS_GROUPBOX) {
        PaintGroup(context, area);
    } else if (IsPush()) {
        PaintPush(context, area);
    } else {
        PaintCheck(context, area);
    }
}

LRESULT Button::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCCREATE:
            CheckKind(Style());
            break;
        case WM_SETTEXT: {
            const LRESULT result = DefWindowProcW(window_, message, wParam, lParam);
            Refresh();
            return result;
        }
        case WM_ENABLE:
            Refresh();
            return 0;
        case WM_GETDLGCODE:
            return DialogCode();
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            SetFocused(message == WM_SETFOCUS);
            return 0;
        case WM_KEYDOWN:
        case WM_KEYUP:
            HandleKey(message, wParam);
            return 0;
        case WM_NCHITTEST:
            if (Kind() == BS_GROUPBOX) {
                return HTTRANSPARENT;
            }
            break;
        case WM_LBUTTONDBLCLK:
            if (Kind() == BS_RADIOBUTTON) {
                NotifyCommand(BN_DOUBLECLICKED);
                return 0;
            }
            Press();
            return 0;
        case WM_LBUTTONDOWN:
            Press();
            return 0;
        case WM_MOUSEMOVE:
            Track(Contains(lParam));
            return 0;
        case WM_LBUTTONUP:
            Release(Contains(lParam));
            return 0;
        case WM_CAPTURECHANGED:
            pressedByMouse_ = false;
            SetPushed(false);
            return 0;
        case BM_CLICK: {
            const HWND self = window_;
            SendMessageW(self, WM_LBUTTONDOWN, MK_LBUTTON, 0);
            SendMessageW(self, WM_LBUTTONUP, 0, 0);
            return 0;
        }
        case BM_GETCHECK:
            return static_cast<LRESULT>(check_);
        case BM_SETCHECK:
            SetCheck(static_cast<DWORD>(wParam));
            return 0;
        case BM_GETSTATE:
            return static_cast<LRESULT>(check_ | (pushed_ ? BST_PUSHED : 0u) |
                                        (focused_ ? BST_FOCUS : 0u));
        case BM_SETDONTCLICK:
            quietFocus_ = wParam != 0;
            return 0;
        case BM_SETSTYLE:
            SetKind(static_cast<DWORD>(wParam), lParam != 0);
            return 0;
    }
    return Control::Handle(message, wParam, lParam);
}

}  // namespace

void RegisterButton() {
    common::Register(TEXT("Button"), common::Procedure<Button>,
                     CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW | CS_PARENTDC);
}

}  // namespace host
