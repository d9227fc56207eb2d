// The windows of the stand-in: what a window is, and what the files of this folder share.
#pragma once

#include "drawing/drawing.h"
#include "host_state.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace host {

constexpr int kScreenWidth = 1280;
constexpr int kScreenHeight = 1024;

struct WindowClass {
    ATOM atom;
    WideString name;
    WideString menuName;
    WNDCLASSEXW data;
};

struct Window {
    HWND handle = nullptr;
    std::shared_ptr<WindowClass> windowClass;
    WNDPROC procedure = nullptr;
    HINSTANCE module = nullptr;
    Window* parent = nullptr;       // of a top-level window the desktop
    Window* owner = nullptr;        // of top-level windows only
    std::vector<Window*> children;  // the topmost first
    DWORD style = 0;
    DWORD extendedStyle = 0;
    RECT rect = {};    // in the parent's client area
    RECT client = {};  // from the window's own upper left corner
    WideString text;
    UINT_PTR id = 0;  // of a child its identifier, otherwise the menu
    LONG_PTR userData = 0;
    std::vector<BYTE> extra;
    std::map<WideString, HANDLE> properties;
    HICON icons[2] = {};
    Region update;  // what is to be painted, in client coordinates
    bool erase = false;
    bool paintFrame = false;
    bool internalPaint = false;
    bool active = false;               // as the caption shows it
    bool sizeUntold = true;            // an overlapped window hears of its size when first shown
    bool isDestroyed = false;          // its WM_DESTROY went out
    std::shared_ptr<Picture> picture;  // of a top-level window, once something was drawn

    bool IsChildStyle() const { return (style & (WS_CHILD | WS_POPUP)) == WS_CHILD; }
};
using WindowPointer = std::shared_ptr<Window>;

/// The window behind a handle; null, with the last error set, when there is none. Whoever sends
/// messages holds the pointer, since any message may destroy the window.
WindowPointer FindWindowObject(HWND handle);
Window& Desktop();
bool IsLive(HWND handle);
/// Windows in an order that windows made or destroyed meanwhile do not disturb.
std::vector<HWND> ChildrenOf(const Window& window);

std::shared_ptr<WindowClass> FindClass(HINSTANCE module, LPCWSTR name);
void ResetClasses();

// The tree.
void Link(Window& window, Window& parent, HWND after);
void Unlink(Window& window);
Window& RootOf(Window& window);
bool IsShown(const Window& window);  // itself and everything around it

// Places. Rectangles by their corners on the screen.
POINT OriginOf(const Window& window);
POINT ClientOriginOf(const Window& window);
RECT ScreenRectOf(const Window& window);
RECT ClientRectOf(const Window& window);  // at 0, 0
void CalculateClient(Window& window, bool created);
void TellSize(Window& window);
void TellMove(Window& window);

// Frames.
RECT FrameWidths(DWORD style, bool menu, DWORD extendedStyle);
void DrawFrame(Window& window, HDC context);

// Focus.
void Activate(HWND window);
void ActivateAnotherThan(Window& window);
/// The window goes out of sight: focus and capture leave it.
void LeaveFocus(Window& window);
void ForgetFocus(HWND window);
void ResetFocus();

// Messages.
LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void ForgetMessages(HWND window);
void ResetMessages();

// Painting.
void InvalidateAll(Window& window);
/// What lay under a window that goes or moves, in the parent's client coordinates.
void InvalidateUnder(Window& parent, const RECT& rect);
void EraseNow(Window& window);
/// The next window to be painted, or null; of `within` and what is in it when given.
HWND NextToPaint(HWND within);
void ForgetContexts(HWND window);
void ResizePicture(Window& window);
void ResetPainting();

}  // namespace host
