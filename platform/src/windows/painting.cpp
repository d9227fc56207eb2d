// What of the windows is to be painted, and the device contexts that paint it. A top-level window
// has a picture of its own, on which everything in it is drawn.
#include "drawing/drawing.h"
#include "windows/windows.h"

#include <algorithm>
#include <utility>

namespace {

using host::IsEmpty;
using host::Picture;
using host::Region;
using host::Window;
using host::WindowPointer;

struct WindowContext {
    HWND window;
    std::shared_ptr<Picture> picture;  // kept while it is drawn on
};
std::unordered_map<HDC, WindowContext> contexts;
std::shared_ptr<Picture> screen;
constexpr LONG kFar = 0x3FFFFFF;

RECT Shifted(const RECT& rect, int dx, int dy) {
    return {rect.left + dx, rect.top + dy, rect.right + dx, rect.bottom + dy};
}

RECT Overlap(const RECT& a, const RECT& b) {
    const RECT both = {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                       std::min(a.bottom, b.bottom)};
    return both.left < both.right && both.top < both.bottom ? both : RECT{};
}

bool Contains(const RECT& outer, const RECT& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

RECT Bounds(const Region& region) {
    RECT bounds = {};
    for (const RECT& rect : region) {
        UnionRect(&bounds, &bounds, &rect);
    }
    return bounds;
}

std::shared_ptr<Picture> NewPicture(int width, int height) {
    auto picture = std::make_shared<Picture>();
    picture->width = width;
    picture->height = height;
    picture->pixels.resize(static_cast<size_t>(width) * static_cast<size_t>(height));
    return picture;
}

std::shared_ptr<Picture> PictureOf(Window& root) {
    if (&root == &host::Desktop()) {
        if (screen == nullptr) {
            screen = NewPicture(host::kScreenWidth, host::kScreenHeight);
        }
        return screen;
    }
    if (root.picture == nullptr) {
        root.picture =
            NewPicture(root.rect.right - root.rect.left, root.rect.bottom - root.rect.top);
    }
    return root.picture;
}

// What of a window's rectangle, or of its client area, can be seen: on the screen.
RECT VisiblePart(const Window& window, bool whole) {
    if (!host::IsShown(window)) {
        return {};
    }
    const POINT client = host::ClientOriginOf(window);
    RECT visible = whole ? host::ScreenRectOf(window)
                         : Shifted(host::ClientRectOf(window), client.x, client.y);
    for (const Window* at = &window; at->parent != nullptr && at->parent != &host::Desktop();) {
        at = at->parent;
        const POINT origin = host::ClientOriginOf(*at);
        visible = Overlap(visible, Shifted(host::ClientRectOf(*at), origin.x, origin.y));
    }
    return visible;
}

void Exclude(HDC context, const Window& other, POINT origin) {
    if ((other.style & WS_VISIBLE) != 0) {
        const RECT rect = host::ScreenRectOf(other);
        ExcludeClipRect(context, rect.left - origin.x, rect.top - origin.y, rect.right - origin.x,
                        rect.bottom - origin.y);
    }
}

// Takes out what the siblings above the window or its parents cover.
void ExcludeSiblings(HDC context, const Window& window, POINT origin) {
    for (const Window* at = &window; at->parent != nullptr && at->parent != &host::Desktop();
         at = at->parent) {
        if ((at->style & WS_CLIPSIBLINGS) == 0) {
            continue;
        }
        for (const Window* sibling : at->parent->children) {
            if (sibling == at) {
                break;
            }
            Exclude(context, *sibling, origin);
        }
    }
}

// A context for the window, or its client area; `update` (in client coordinates) narrows it.
HDC MakeContext(Window& window, bool whole, const Region* update, bool clipChildren) {
    Window& root = host::RootOf(window);
    const std::shared_ptr<Picture> picture = PictureOf(root);
    const POINT corner = host::OriginOf(root);
    const POINT origin = whole ? host::OriginOf(window) : host::ClientOriginOf(window);
    const RECT visible = VisiblePart(window, whole);
    Region clip;
    for (const RECT& part : update != nullptr ? *update : Region{{-kFar, -kFar, kFar, kFar}}) {
        clip.push_back(
            Shifted(Overlap(visible, Shifted(part, origin.x, origin.y)), -corner.x, -corner.y));
    }
    const HDC context = host::NewPictureContext(
        picture.get(), {origin.x - corner.x, origin.y - corner.y}, std::move(clip));
    if (context == nullptr) {
        return nullptr;
    }
    contexts[context] = {window.handle, picture};
    ExcludeSiblings(context, window, origin);
    if (clipChildren) {
        for (const Window* child : window.children) {
            Exclude(context, *child, origin);
        }
    }
    return context;
}

bool ClipsChildren(const Window& window) {
    return (window.style & WS_CLIPCHILDREN) != 0;
}

bool Release(HDC context) {
    if (contexts.erase(context) == 0) {
        return false;
    }
    host::DeletePictureContext(context);
    return true;
}

bool NeedsPaint(const Window& window) {
    return !window.update.empty() || window.internalPaint;
}

// Painting one of the windows around it will draw over the window.
bool IsPaintedOver(const Window& window) {
    for (const Window* at = window.parent; at != nullptr; at = at->parent) {
        if (NeedsPaint(*at) && !ClipsChildren(*at)) {
            return true;
        }
    }
    return false;
}

// Marks part of a window, given in client coordinates but perhaps reaching into its frame.
void Invalidate(Window& window, const RECT& rect, UINT flags) {
    if ((window.style & WS_VISIBLE) == 0) {
        return;
    }
    const RECT client = host::ClientRectOf(window);
    const RECT part = Overlap(rect, client);
    const bool coveredByChild =
        ClipsChildren(window) &&
        std::any_of(window.children.begin(), window.children.end(), [&](const Window* child) {
            return (child->style & WS_VISIBLE) != 0 && Contains(child->rect, part);
        });
    if (!IsEmpty(part) && !coveredByChild) {
        host::KeepOutside(window.update, part);
        window.update.push_back(part);
        window.erase = window.erase || (flags & RDW_ERASE) != 0;
    }
    if ((flags & RDW_FRAME) != 0) {
        window.paintFrame = true;
        // A window that is all frame still has something to paint.
        window.internalPaint = window.internalPaint || IsEmpty(client);
    }
    const bool childrenToo =
        (flags & RDW_NOCHILDREN) == 0 && (!ClipsChildren(window) || (flags & RDW_ALLCHILDREN) != 0);
    if (!childrenToo) {
        return;
    }
    for (Window* child : window.children) {
        const RECT within = Overlap(part, child->rect);
        if (!IsEmpty(within)) {
            // The frame of a child is painted whole when any of it is touched.
            const RECT inChild = Shifted(within, -child->rect.left - child->client.left,
                                         -child->rect.top - child->client.top);
            Invalidate(*child, inChild, flags | RDW_FRAME | RDW_ERASE);
        }
    }
}

void PaintFrameNow(Window& window) {
    if (window.paintFrame) {
        window.paintFrame = false;
        host::Send(window.handle, WM_NCPAINT, 1, 0);
    }
}

// Erases through a context that is there already.
void EraseWith(Window& window, HDC context) {
    if (window.erase) {
        window.erase =
            host::Send(window.handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(context), 0) == 0;
    }
}

// What a child paints before the windows around it have is painted for them, too: they do not draw
// over it any more.
void TakeFromParents(const Window& child, const Region& painted) {
    const POINT origin = host::ClientOriginOf(child);
    for (Window* at = child.parent; at != nullptr; at = at->parent) {
        if (ClipsChildren(*at)) {
            continue;
        }
        const POINT its = host::ClientOriginOf(*at);
        for (const RECT& part : painted) {
            host::KeepOutside(at->update, Shifted(part, origin.x - its.x, origin.y - its.y));
        }
    }
}

// Paints a window and what is in it at once.
void PaintNow(HWND handle) {
    const WindowPointer window = host::IsLive(handle) ? host::FindWindowObject(handle) : nullptr;
    if (window == nullptr || !host::IsShown(*window)) {
        return;
    }
    if (NeedsPaint(*window)) {
        window->internalPaint = false;
        host::Send(handle, WM_PAINT, 0, 0);
    }
    if (host::IsLive(handle)) {
        for (HWND child : host::ChildrenOf(*window)) {
            PaintNow(child);
        }
    }
}

HWND FirstToPaint(const Window& window) {
    if ((window.style & WS_VISIBLE) == 0) {
        return nullptr;
    }
    if (NeedsPaint(window)) {
        return window.handle;
    }
    for (const Window* child : window.children) {
        if (const HWND found = FirstToPaint(*child)) {
            return found;
        }
    }
    return nullptr;
}

}  // namespace

namespace host {

void InvalidateAll(Window& window) {
    if (window.parent == &Desktop() || window.parent == nullptr || IsShown(*window.parent)) {
        Invalidate(window, ClientRectOf(window), RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    }
}

void InvalidateUnder(Window& parent, const RECT& rect) {
    if (&parent != &Desktop() && IsShown(parent)) {
        Invalidate(parent, rect, RDW_ERASE | RDW_ALLCHILDREN);
    }
}

void EraseNow(Window& window) {
    if (!IsShown(window) || IsPaintedOver(window)) {
        return;
    }
    const HWND handle = window.handle;
    PaintFrameNow(window);
    if (!IsLive(handle) || !window.erase) {
        return;
    }
    if (const HDC context = MakeContext(window, false, &window.update, ClipsChildren(window))) {
        EraseWith(window, context);
        Release(context);
    }
}

HWND NextToPaint(HWND within) {
    if (within != nullptr) {
        return IsLive(within) ? FirstToPaint(*FindWindowObject(within)) : nullptr;
    }
    for (const Window* window : Desktop().children) {
        if (const HWND found = FirstToPaint(*window)) {
            return found;
        }
    }
    return nullptr;
}

void ForgetContexts(HWND window) {
    std::vector<HDC> its;
    for (const auto& [context, data] : contexts) {
        if (data.window == window) {
            its.push_back(context);
        }
    }
    std::for_each(its.begin(), its.end(), Release);
}

void ResizePicture(Window& window) {
    if (window.picture == nullptr) {
        return;
    }
    const std::shared_ptr<Picture> before = window.picture;
    window.picture = nullptr;
    const std::shared_ptr<Picture> after = PictureOf(window);
    const int width = std::min(before->width, after->width);
    for (int y = 0; y < std::min(before->height, after->height); ++y) {
        std::copy_n(&before->pixels[static_cast<size_t>(y) * static_cast<size_t>(before->width)],
                    width,
                    after->pixels.begin() + std::ptrdiff_t{y} * std::ptrdiff_t{after->width});
    }
}

void ResetPainting() {
    for (const auto& [context, data] : contexts) {
        DeletePictureContext(context);
    }
    contexts.clear();
    screen = nullptr;
}

}  // namespace host

BOOL WINAPI RedrawWindow(HWND handle, const RECT* rect, HRGN region, UINT flags) {
    if (region != nullptr) {
        host::Unsupported("RedrawWindow of a region");
    }
    const WindowPointer window =
        host::FindWindowObject(handle == nullptr ? host::Desktop().handle : handle);
    if (window == nullptr) {
        return FALSE;
    }
    const RECT part = rect == nullptr ? host::ClientRectOf(*window) : *rect;
    if ((flags & RDW_INVALIDATE) != 0 && host::IsShown(*window)) {
        Invalidate(*window, part, flags);
    }
    if ((flags & RDW_UPDATENOW) != 0) {
        PaintNow(handle);
    }
    return TRUE;
}

BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase) {
    if (window == nullptr) {  // everything, as the platform takes it
        for (HWND each : host::ChildrenOf(host::Desktop())) {
            RedrawWindow(each, nullptr, nullptr,
                         RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
        }
        return TRUE;
    }
    return RedrawWindow(window, rect, nullptr, RDW_INVALIDATE | (erase ? RDW_ERASE : 0));
}

BOOL WINAPI UpdateWindow(HWND window) {
    if (!host::IsLive(window)) {
        return host::Fail(ERROR_INVALID_WINDOW_HANDLE);
    }
    return RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

BOOL WINAPI GetUpdateRect(HWND handle, LPRECT rect, BOOL erase) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return FALSE;
    }
    if (erase) {
        host::EraseNow(*window);
    }
    if (rect != nullptr) {
        *rect = Bounds(window->update);
    }
    return !window->update.empty();
}

HDC WINAPI BeginPaint(HWND handle, LPPAINTSTRUCT paint) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return nullptr;
    }
    PaintFrameNow(*window);
    const Region update = std::exchange(window->update, {});
    TakeFromParents(*window, update);
    const HDC context = MakeContext(*window, false, &update, ClipsChildren(*window));
    window->internalPaint = false;
    if (context == nullptr) {
        window->erase = false;
        return nullptr;
    }
    EraseWith(*window, context);
    *paint = {};
    paint->hdc = context;
    paint->fErase = window->erase;
    paint->rcPaint = Bounds(update);
    return context;
}

BOOL WINAPI EndPaint(HWND, const PAINTSTRUCT* paint) {
    if (paint == nullptr) {
        return FALSE;
    }
    Release(paint->hdc);
    return TRUE;
}

HDC WINAPI GetDC(HWND handle) {
    const WindowPointer window =
        host::FindWindowObject(handle == nullptr ? host::Desktop().handle : handle);
    return window == nullptr ? nullptr
                             : MakeContext(*window, false, nullptr, ClipsChildren(*window));
}

HDC WINAPI GetWindowDC(HWND handle) {
    const WindowPointer window =
        host::FindWindowObject(handle == nullptr ? host::Desktop().handle : handle);
    return window == nullptr ? nullptr : MakeContext(*window, true, nullptr, false);
}

int WINAPI ReleaseDC(HWND, HDC context) {
    return Release(context);
}
