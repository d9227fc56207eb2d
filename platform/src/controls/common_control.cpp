// What the common controls share.
#include "controls/common_control.h"

#include <algorithm>

namespace host::common {
namespace {

// A device context with a font selected, to measure text with.
class Measuring {
  public:
    Measuring(HWND window, HFONT font) : window_(window), context_(GetDC(window)) {
        if (context_ != nullptr) {
            previous_ = SelectObject(context_, font != nullptr ? static_cast<HGDIOBJ>(font)
                                                               : GetStockObject(SYSTEM_FONT));
        }
    }
    ~Measuring() {
        if (context_ != nullptr) {
            SelectObject(context_, previous_);
            ReleaseDC(window_, context_);
        }
    }
    Measuring(const Measuring&) = delete;
    Measuring& operator=(const Measuring&) = delete;
    HDC Context() const { return context_; }

  private:
    HWND window_;
    HDC context_;
    HGDIOBJ previous_ = nullptr;
};

}  // namespace

LRESULT Control::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT: {
            PAINTSTRUCT paint;
            if (HDC context = BeginPaint(window_, &paint)) {
                PaintInto(context);
            }
            EndPaint(window_, &paint);
            return 0;
        }
        case WM_ERASEBKGND:  // painting covers all of the control
            return TRUE;
        case WM_SETFONT:
            font_ = reinterpret_cast<HFONT>(wParam);
            Measure();
            if (LOWORD(lParam) != 0) {
                Redraw();
            }
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font_);
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
        case WM_ENABLE:
        case WM_SYSCOLORCHANGE:
            Redraw();
            return 0;
    }
    if (Owns(message)) {
        WCHAR name[64] = {};
        GetClassNameW(window_, name, 64);
        Unsupported("message %#x to a %s", message, ToUtf8(name).c_str());
    }
    return DefWindowProcW(window_, message, wParam, lParam);
}

void Control::PaintInto(HDC context) {
    const int saved = SaveDC(context);
    SelectObject(context,
                 font_ != nullptr ? static_cast<HGDIOBJ>(font_) : GetStockObject(SYSTEM_FONT));
    SetBkMode(context, TRANSPARENT);
    Paint(context);
    RestoreDC(context, saved);
}

DWORD Control::Style() const {
    return static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE));
}

RECT Control::Client() const {
    RECT client = {};
    GetClientRect(window_, &client);
    return client;
}

NMHDR Control::Header(UINT code) const {
    return {window_, static_cast<UINT_PTR>(GetWindowLongPtrW(window_, GWLP_ID)), code};
}

LRESULT Control::SendHeader(NMHDR* header) const {
    return SendMessageW(GetParent(window_), WM_NOTIFY, header->idFrom,
                        reinterpret_cast<LPARAM>(header));
}

LRESULT Control::Notify(UINT code) const {
    NMHDR header = Header(code);
    return SendHeader(&header);
}

void Control::NotifyCommand(UINT code) const {
    SendMessageW(GetParent(window_), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window_), code),
                 reinterpret_cast<LPARAM>(window_));
}

HBRUSH Control::Background(HDC context, UINT message) const {
    return reinterpret_cast<HBRUSH>(SendMessageW(GetParent(window_), message,
                                                 reinterpret_cast<WPARAM>(context),
                                                 reinterpret_cast<LPARAM>(window_)));
}

void Control::NotifyPainting(HDC context) const {
    NMCUSTOMDRAW drawing = {};
    drawing.dwDrawStage = CDDS_PREPAINT;
    drawing.hdc = context;
    drawing.rc = Client();
    if (Notify(NM_CUSTOMDRAW, drawing) != CDRF_DODEFAULT) {
        Unsupported("a parent that draws a control's parts itself");
    }
}

SIZE Control::TextSize(const WideString& text) const {
    const Measuring measuring(window_, font_);
    SIZE size = {};
    GetTextExtentPoint32W(measuring.Context(), text.c_str(), static_cast<int>(text.size()), &size);
    return size;
}

int Control::FontHeight() const {
    const Measuring measuring(window_, font_);
    TEXTMETRICW metrics = {};
    GetTextMetricsW(measuring.Context(), &metrics);
    return metrics.tmHeight;
}

void CheckStyle(const char* className, DWORD style, DWORD known) {
    if ((style & 0xFFFF & ~known) != 0) {
        Unsupported("%s with style %#x", className, style & 0xFFFF & ~known);
    }
}

void Register(LPCWSTR name, WNDPROC procedure, UINT style) {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.style = style | CS_GLOBALCLASS;
    windowClass.lpfnWndProc = procedure;
    windowClass.cbWndExtra = sizeof(void*);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = name;
    RegisterClassExW(&windowClass);
}

size_t CopyText(const WideString& text, LPWSTR buffer, int room) {
    if (buffer == nullptr || room <= 0) {
        return 0;
    }
    const size_t length = std::min(text.size(), static_cast<size_t>(room) - 1);
    std::copy_n(text.begin(), length, buffer);
    buffer[length] = 0;
    return length;
}

}  // namespace host::common

// The classes are there from the start.
BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* classes) {
    return classes != nullptr && classes->dwSize == sizeof(*classes);
}
