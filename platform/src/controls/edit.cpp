// The class "Edit": one line that the user types into.
#include "controls/common_control.h"

#include <algorithm>

namespace host {
namespace {

using common::Control;

constexpr DWORD kKnownStyles = ES_AUTOHSCROLL | ES_READONLY;
constexpr size_t kFirstLimit = 30000;
constexpr size_t kGreatestLimit = 0x7FFFFFFE;  // what 0 as a limit means
constexpr int kMargin = 1;

class Edit : public Control {
  public:
    explicit Edit(HWND window) : Control(window) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Paint(HDC context) override;
    void PaintSelection(HDC context, LONG left) const;
    bool Owns(UINT message) const override { return message >= EM_GETSEL && message <= 0xDF; }

    bool IsReadOnly() const { return (Style() & ES_READONLY) != 0; }
    bool HasSelection() const { return anchor_ != caret_; }
    size_t SelectionStart() const { return std::min(anchor_, caret_); }
    size_t SelectionEnd() const { return std::max(anchor_, caret_); }

    LRESULT HandleSelection(UINT message, WPARAM wParam, LPARAM lParam);
    void Changed();
    void SetText(const WCHAR* text);
    void Select(LONG_PTR start, LONG_PTR end);
    void Replace(WideString text);
    void Erase(size_t from, size_t to);
    void TypeCharacter(WCHAR character);
    void KeyDown(WPARAM key);
    void MoveCaret(size_t to);

    LONG WidthTo(size_t count) const { return TextSize(text_.substr(0, count)).cx; }
    RECT Place() const;
    LONG Left() const;
    size_t AtX(LONG x) const;

    WideString text_;
    size_t anchor_ = 0;
    size_t caret_ = 0;
    size_t limit_ = kFirstLimit;
};

// ---- The text ---------------------------------------------------------------------------------

// First what is about to be shown, then that it has changed.
void Edit::Changed() {
    const HWND self = window_;
    Redraw();
    NotifyCommand(EN_UPDATE);
    if (IsWindow(self)) {
        NotifyCommand(EN_CHANGE);
    }
}

// Set by the program, it is told of as if it had been typed.
void Edit::SetText(const WCHAR* text) {
    text_ = text == nullptr ? TEXT("") : text;
    anchor_ = caret_ = 0;
    Changed();
}

void Edit::Select(LONG_PTR start, LONG_PTR end) {
    if (start == -1) {
        anchor_ = caret_;  // no selection
    } else {
        const auto bound = [&](LONG_PTR at) {
            return at < 0 ? text_.size() : std::min(static_cast<size_t>(at), text_.size());
        };
        anchor_ = std::min(bound(start), bound(end));
        caret_ = std::max(bound(start), bound(end));
    }
    Redraw();
}

// Puts a text in the place of the selection, as far as the limit lets it.
void Edit::Replace(WideString text) {
    const HWND self = window_;
    const size_t kept = text_.size() - (SelectionEnd() - SelectionStart());
    const size_t room = limit_ > kept ? limit_ - kept : 0;
    if (text.size() > room) {
        NotifyCommand(EN_MAXTEXT);
        if (!IsWindow(self) || (room == 0 && !HasSelection())) {
            return;
        }
        text.resize(room);
    }
    const size_t start = SelectionStart();
    text_.replace(start, SelectionEnd() - start, text);
    anchor_ = caret_ = start + text.size();
    Changed();
}

// ---- The keyboard -----------------------------------------------------------------------------

// The selection, or where there is none a part.
void Edit::Erase(size_t from, size_t to) {
    if (IsReadOnly()) {
        return;
    }
    if (!HasSelection()) {
        anchor_ = from;
        caret_ = to;
    }
    if (HasSelection()) {
        Replace({});
    }
}

void Edit::TypeCharacter(WCHAR character) {
    if (character == '\b') {
        Erase(caret_ == 0 ? 0 : caret_ - 1, caret_);
    } else if (!IsReadOnly() && character >= ' ' && character != 0x7F) {
        Replace(WideString(1, character));
    }
}

void Edit::MoveCaret(size_t to) {
    anchor_ = caret_ = std::min(to, text_.size());
    Redraw();
}

void Edit::KeyDown(WPARAM key) {
    const size_t before = caret_ - (caret_ == 0 ? 0 : 1);
    const size_t after = caret_ + 1;
    const struct {
        WPARAM key;
        size_t to;
    } moves[] = {{VK_LEFT, before}, {VK_UP, before}, {VK_RIGHT, after},
                 {VK_DOWN, after},  {VK_HOME, 0},    {VK_END, text_.size()}};
    for (const auto& move : moves) {
        if (move.key == key) {
            MoveCaret(move.to);
        }
    }
    if (key == VK_DELETE) {
        Erase(caret_, std::min(caret_ + 1, text_.size()));
    }
}

// ---- Painting ---------------------------------------------------------------------------------

RECT Edit::Place() const {
    RECT place = Client();
    InflateRect(&place, -kMargin, -kMargin);
    return place;
}

// A text that is wider than the control is shifted until the caret is seen.
LONG Edit::Left() const {
    const RECT place = Place();
    return place.left - std::max<LONG>(0, WidthTo(caret_) + 1 - (place.right - place.left));
}

size_t Edit::AtX(LONG x) const {
    const LONG left = Left();
    size_t count = 0;
    while (count < text_.size() && x >= left + (WidthTo(count) + WidthTo(count + 1)) / 2) {
        ++count;
    }
    return count;
}

void Edit::PaintSelection(HDC context, LONG left) const {
    const LONG top = Place().top;
    RECT mark = {left + WidthTo(SelectionStart()), top, left + WidthTo(SelectionEnd()),
                 top + FontHeight()};
    if (!HasSelection()) {
        ++mark.right;
        FillRect(context, &mark, GetSysColorBrush(COLOR_WINDOWTEXT));
        return;
    }
    SetTextColor(context, GetSysColor(COLOR_HIGHLIGHTTEXT));
    FillRect(context, &mark, GetSysColorBrush(COLOR_HIGHLIGHT));
    TextOutW(context, mark.left, top, text_.c_str() + SelectionStart(),
             static_cast<int>(SelectionEnd() - SelectionStart()));
}

void Edit::Paint(HDC context) {
    const bool isEnabled = IsWindowEnabled(window_);
    const UINT colors = IsReadOnly() || !isEnabled ? WM_CTLCOLORSTATIC : WM_CTLCOLOREDIT;
    const HBRUSH background = Background(context, colors);
    const RECT area = Client();
    FillRect(context, &area, background);
    SetBkMode(context, TRANSPARENT);
    if (!isEnabled) {
        SetTextColor(context, GetSysColor(COLOR_GRAYTEXT));
    }
    const RECT place = Place();
    IntersectClipRect(context, place.left, place.top, place.right, place.bottom);
    const LONG left = Left();
    TextOutW(context, left, place.top, text_.c_str(), static_cast<int>(text_.size()));
    if (HasFocus()) {
        PaintSelection(context, left);
    }
}

// ---- Messages ---------------------------------------------------------------------------------

LRESULT Edit::HandleSelection(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == EM_SETSEL) {
        Select(static_cast<LONG>(wParam), static_cast<LONG>(lParam));
        return 1;
    }
    if (wParam != 0) {
        *reinterpret_cast<DWORD*>(wParam) = static_cast<DWORD>(SelectionStart());
    }
    if (lParam != 0) {
        *reinterpret_cast<DWORD*>(lParam) = static_cast<DWORD>(SelectionEnd());
    }
    return SelectionEnd() > 0xFFFF ? -1 : MAKELONG(SelectionStart(), SelectionEnd());
}

LRESULT Edit::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCCREATE:
            common::CheckStyle("Edit", Style(), kKnownStyles);
            break;
        case WM_CREATE:
            if (const auto* name = reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpszName;
                name != nullptr && !IS_INTRESOURCE(name)) {
                text_ = name;
            }
            return 0;
        case EM_GETSEL:
        case EM_SETSEL:
            return HandleSelection(message, wParam, lParam);
        case EM_LIMITTEXT:
            limit_ = wParam != 0 ? wParam : kGreatestLimit;
            return 0;
        case EM_GETLIMITTEXT:
            return static_cast<LRESULT>(limit_);
        case WM_SETTEXT:
            SetText(reinterpret_cast<const WCHAR*>(lParam));
            return TRUE;
        case WM_GETTEXT:
            return static_cast<LRESULT>(common::CopyText(text_, reinterpret_cast<WCHAR*>(lParam),
                                                         static_cast<int>(wParam)));
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(text_.size());
        case WM_GETDLGCODE:
            return DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            Redraw();
            NotifyCommand(message == WM_SETFOCUS ? EN_SETFOCUS : EN_KILLFOCUS);
            return 0;
        case WM_LBUTTONDOWN:
            MoveCaret(AtX(common::PointOf(lParam).x));
            SetFocus(window_);
            return 0;
        case WM_CHAR:
            TypeCharacter(static_cast<WCHAR>(wParam));
            return 0;
        case WM_KEYDOWN:
            KeyDown(wParam);
            return 0;
    }
    return Control::Handle(message, wParam, lParam);
}

}  // namespace

void RegisterEdit() {
    common::Register(TEXT("Edit"), common::Procedure<Edit>, CS_DBLCLKS | CS_PARENTDC);
}

}  // namespace host
