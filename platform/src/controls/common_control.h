// What the common controls share: a window procedure over a C++ object, painting, the font, and
// notifications to the parent.
#pragma once

#include <commctrl.h>

#include "controls/controls.h"
#include "host_state.h"

#include <utility>

namespace host::common {

/// The state of one control. It is made with its window and deleted with it.
class Control {
  public:
    explicit Control(HWND window) : window_(window) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// Answers a message. What is here serves every control: painting, the font, redrawing; an
    /// unknown message of the class's own stops the program, and another class's is passed over.
    virtual LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);

  protected:
    virtual void Paint(HDC context) = 0;
    /// The font has changed.
    virtual void Measure() {}
    /// A message that this class alone gives a meaning; one that it does not know stops the
    /// program.
    virtual bool Owns(UINT) const { return false; }
    static bool IsInRange(UINT message, UINT first) {
        return message >= first && message < first + 0x100;
    }

    DWORD Style() const;
    RECT Client() const;
    bool HasFocus() const { return GetFocus() == window_; }
    void Redraw() const {
        if (!isHeld_) {
            InvalidateRect(window_, nullptr, TRUE);
        }
    }
    /// For classes that answer WM_SETREDRAW themselves: nothing is redrawn while they are held.
    void Hold(bool held) {
        isHeld_ = held;
        Redraw();
    }

    /// Sends WM_COMMAND with a notification to the parent.
    void NotifyCommand(UINT code) const;
    /// Sends WM_NOTIFY to the parent.
    LRESULT Notify(UINT code) const;
    /// The same with a longer structure that begins with NMHDR as its member `hdr`.
    template <typename Notification>
    LRESULT Notify(UINT code, Notification notification) const {
        notification.hdr = Header(code);
        return SendHeader(&notification.hdr);
    }
    /// Asks the parent for the background by a WM_CTLCOLOR message, which sets the colours too.
    HBRUSH Background(HDC context, UINT message) const;
    /// Offers the painting to the parent first, as NM_CUSTOMDRAW before all else.
    void NotifyPainting(HDC context) const;

    SIZE TextSize(const WideString& text) const;
    int FontHeight() const;

    const HWND window_;
    HFONT font_ = nullptr;

  private:
    bool isHeld_ = false;
    NMHDR Header(UINT code) const;
    LRESULT SendHeader(NMHDR* header) const;
    void PaintInto(HDC context);
};

/// Stops the program when a control of that class has a style that it does not supply.
void CheckStyle(const char* className, DWORD style, DWORD known);

template <typename Kind>
LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* control = reinterpret_cast<Kind*>(GetWindowLongPtrW(window, 0));
    if (control == nullptr && message == WM_NCCREATE) {
        control = new Kind(window);
        SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(control));
    }
    if (control == nullptr) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, 0, 0);
        delete control;
        return DefWindowProcW(window, message, wParam, lParam);
    }
    return control->Handle(message, wParam, lParam);
}

void Register(LPCWSTR name, WNDPROC procedure, UINT style);

inline POINT PointOf(LPARAM lParam) {
    return {static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
}

/// Copies text into a buffer of the program's, cut to its room and ended; gives what was copied.
size_t CopyText(const WideString& text, LPWSTR buffer, int room);

}  // namespace host::common
