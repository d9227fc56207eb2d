// Device contexts: what is selected into them, their state, and where they draw.
#include "state.h"

#include <utility>

namespace host {
namespace {

HandleTable<Context, HDC> contexts(0x2000000);
std::vector<HDC> open;  // in the order of their making

bool Uses(const ContextState& state, HGDIOBJ object) {
    return state.bitmap == object || state.brush == object || state.pen == object ||
           state.font == object;
}

bool IsSelected(HGDIOBJ object) {
    return std::any_of(open.begin(), open.end(), [object](HDC handle) {
        const Context& context = *contexts.Find(handle);
        return Uses(context.state, object) ||
               std::any_of(context.saved.begin(), context.saved.end(),
                           [object](const ContextState& state) { return Uses(state, object); });
    });
}

void SweepState(const ContextState& state) {
    for (HGDIOBJ object : {state.bitmap, state.brush, state.pen, state.font}) {
        SweepObject(object);
    }
}

void RemoveContext(HDC handle) {
    const Context context = *contexts.Find(handle);
    contexts.Remove(handle);
    std::erase(open, handle);
    SweepState(context.state);
    for (const ContextState& state : context.saved) {
        SweepState(state);
    }
}

}  // namespace

Context* FindContext(HDC handle) {
    Context* context = contexts.Find(handle);
    if (context == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
    }
    return context;
}

HDC AddContext(Context context) {
    context.state.brush = GetStockObject(WHITE_BRUSH);
    context.state.pen = GetStockObject(BLACK_PEN);
    context.state.font = GetStockObject(SYSTEM_FONT);
    if (context.state.clip.empty()) {
        constexpr LONG kFar = 0x3FFFFFFF;
        context.state.clip = {{-kFar, -kFar, kFar, kFar}};
    }
    const HDC handle = contexts.Add(std::move(context));
    open.push_back(handle);
    return handle;
}

HDC NewPictureContext(Picture* target, POINT origin, Region clip) {
    if (FailsNow(Call::kDrawing)) {
        return nullptr;
    }
    Context context;
    context.kind = ContextKind::kPicture;
    context.target = target;
    context.origin = origin;
    context.state.clip = clip.empty() ? Region{{}} : std::move(clip);  // nothing, not everything
    return AddContext(std::move(context));
}

void DeletePictureContext(HDC context) {
    if (contexts.Find(context) != nullptr) {
        RemoveContext(context);
    }
}

Surface Context::CurrentSurface() const {
    if (kind == ContextKind::kMemory) {
        Bitmap* bitmap = Find<Bitmap>(state.bitmap);
        return bitmap == nullptr ? Surface() : SurfaceOf(*bitmap);
    }
    return target == nullptr ? Surface() : SurfaceOf(*target);
}

Canvas::Canvas(const Context& context)
    : surface_(context.CurrentSurface()), offset_(context.origin), clip_(context.state.clip) {
    KeepInside(clip_, surface_.Bounds());
}

RECT Canvas::At(const RECT& rect) const {
    return {rect.left + offset_.x, rect.top + offset_.y, rect.right + offset_.x,
            rect.bottom + offset_.y};
}

bool Canvas::Sees(int x, int y) const {
    return std::any_of(clip_.begin(), clip_.end(), [x, y](const RECT& part) {
        return x >= part.left && x < part.right && y >= part.top && y < part.bottom;
    });
}

void Canvas::Put(int x, int y, Pixel pixel) const {
    if (Sees(x, y)) {
        surface_.Write(x, y, pixel);
    }
}

}  // namespace host

using host::Context;
using host::ContextKind;
using host::FindContext;

HDC WINAPI CreateCompatibleDC(HDC context) {
    if (host::FailsNow(host::Call::kDrawing) ||
        (context != nullptr && FindContext(context) == nullptr)) {
        return nullptr;
    }
    Context made;
    made.state.bitmap = host::DefaultBitmap();
    return host::AddContext(std::move(made));
}

BOOL WINAPI DeleteDC(HDC handle) {
    const Context* context = FindContext(handle);
    if (context == nullptr) {
        return FALSE;
    }
    if (context->kind == ContextKind::kPicture) {
        host::Unsupported("DeleteDC of a window's context, which is released");
    }
    host::DropDocument(handle);
    host::RemoveContext(handle);
    return TRUE;
}

int WINAPI SaveDC(HDC handle) {
    Context* context = FindContext(handle);
    if (context == nullptr) {
        return 0;
    }
    context->saved.push_back(context->state);
    return static_cast<int>(context->saved.size());
}

BOOL WINAPI RestoreDC(HDC handle, int saved) {
    Context* context = FindContext(handle);
    if (context == nullptr) {
        return FALSE;
    }
    const int count = static_cast<int>(context->saved.size());
    const int level = saved < 0 ? count + saved + 1 : saved;
    if (level < 1 || level > count) {
        return host::Fail(ERROR_INVALID_PARAMETER);
    }
    const host::ContextState replaced = context->state;
    const auto kept = context->saved.begin() + level - 1;
    const std::vector<host::ContextState> dropped(kept, context->saved.end());
    context->state = *kept;
    context->saved.erase(kept, context->saved.end());
    host::SweepState(replaced);
    for (const host::ContextState& state : dropped) {
        host::SweepState(state);
    }
    return TRUE;
}

namespace {

// Sets a member of a context's state; gives what it was, or `failed` for no context.
template <typename Value>
Value Exchange(HDC handle, Value host::ContextState::*member, Value value, Value failed) {
    Context* context = FindContext(handle);
    return context == nullptr ? failed : std::exchange(context->state.*member, value);
}

template <typename Value>
Value Current(HDC handle, Value host::ContextState::*member, Value failed) {
    const Context* context = FindContext(handle);
    return context == nullptr ? failed : context->state.*member;
}

}  // namespace

COLORREF WINAPI SetTextColor(HDC context, COLORREF color) {
    return Exchange(context, &host::ContextState::textColor, color, COLORREF{CLR_INVALID});
}

COLORREF WINAPI GetTextColor(HDC context) {
    return Current(context, &host::ContextState::textColor, COLORREF{CLR_INVALID});
}

COLORREF WINAPI SetBkColor(HDC context, COLORREF color) {
    return Exchange(context, &host::ContextState::backColor, color, COLORREF{CLR_INVALID});
}

COLORREF WINAPI GetBkColor(HDC context) {
    return Current(context, &host::ContextState::backColor, COLORREF{CLR_INVALID});
}

int WINAPI SetBkMode(HDC context, int mode) {
    if (mode != OPAQUE && mode != TRANSPARENT) {
        return host::Fail(ERROR_INVALID_PARAMETER);
    }
    return Exchange(context, &host::ContextState::backMode, mode, 0);
}

int WINAPI SetStretchBltMode(HDC context, int mode) {
    if (mode != BLACKONWHITE && mode != COLORONCOLOR && mode != HALFTONE) {
        host::Unsupported("SetStretchBltMode(%d)", mode);
    }
    return Exchange(context, &host::ContextState::stretchMode, mode, 0);
}

int WINAPI SetICMMode(HDC handle, int mode) {
    Context* context = FindContext(handle);
    if (context == nullptr) {
        return 0;
    }
    if (mode == ICM_QUERY) {
        return context->state.colorManagement;
    }
    if (mode != ICM_OFF && mode != ICM_ON) {
        host::Unsupported("SetICMMode(%d)", mode);
    }
    context->state.colorManagement = mode;
    return TRUE;
}

BOOL WINAPI SetBrushOrgEx(HDC handle, int x, int y, LPPOINT previous) {
    Context* context = FindContext(handle);
    if (context == nullptr) {
        return FALSE;
    }
    const POINT old = std::exchange(context->state.brushOrigin, POINT{x, y});
    if (previous != nullptr) {
        *previous = old;
    }
    return TRUE;
}

namespace {

int KindOf(const host::Region& region) {
    return region.empty() ? NULLREGION : region.size() == 1 ? SIMPLEREGION : COMPLEXREGION;
}

int ChangeClip(HDC handle, const RECT& rect, void (*change)(host::Region&, const RECT&)) {
    Context* context = FindContext(handle);
    if (context == nullptr) {
        return ERROR;
    }
    change(context->state.clip, host::Canvas(*context).At(rect));
    host::Region visible = context->state.clip;
    host::KeepInside(visible, context->CurrentSurface().Bounds());
    return KindOf(visible);
}

}  // namespace

int WINAPI IntersectClipRect(HDC context, int left, int top, int right, int bottom) {
    return ChangeClip(context, {left, top, right, bottom}, host::KeepInside);
}

int WINAPI ExcludeClipRect(HDC context, int left, int top, int right, int bottom) {
    return ChangeClip(context, {left, top, right, bottom}, host::KeepOutside);
}

int WINAPI GetClipBox(HDC handle, LPRECT rect) {
    const Context* context = FindContext(handle);
    if (context == nullptr || rect == nullptr) {
        return ERROR;
    }
    host::Region visible = context->state.clip;
    host::KeepInside(visible, context->CurrentSurface().Bounds());
    *rect = visible.empty() ? RECT{} : visible.front();
    for (const RECT& part : visible) {
        *rect = {std::min(rect->left, part.left), std::min(rect->top, part.top),
                 std::max(rect->right, part.right), std::max(rect->bottom, part.bottom)};
    }
    if (!visible.empty()) {
        const POINT zero = host::Canvas(*context).At(0, 0);
        OffsetRect(rect, -zero.x, -zero.y);
    }
    return KindOf(visible);
}

HGDIOBJ WINAPI SelectObject(HDC handle, HGDIOBJ object) {
    Context* context = FindContext(handle);
    if (context == nullptr || host::FindObject(object) == nullptr) {
        return nullptr;
    }
    HGDIOBJ* place = &context->state.font;
    if (host::Find<host::Bitmap>(object) != nullptr) {
        // A bitmap is in one memory context at a time, except for the one that each begins with.
        const bool elsewhere = object != host::DefaultBitmap() && context->state.bitmap != object &&
                               host::IsSelected(object);
        if (context->kind != ContextKind::kMemory || elsewhere) {
            return nullptr;
        }
        place = &context->state.bitmap;
    } else if (host::Find<host::Brush>(object) != nullptr) {
        place = &context->state.brush;
    } else if (host::Find<LOGPEN>(object) != nullptr) {
        place = &context->state.pen;
    }
    const HGDIOBJ previous = std::exchange(*place, object);
    host::SweepObject(previous);
    return previous;
}

namespace host {

void SweepObject(HGDIOBJ object) {
    const Object* found = FindObject(object);
    if (found != nullptr && found->deleted && !IsSelected(object)) {
        RemoveObject(object);
    }
}

bool IsObjectSelected(HGDIOBJ object) {
    return IsSelected(object);
}

bool IsContext(HGDIOBJ handle) {
    return contexts.Find(static_cast<HDC>(handle)) != nullptr;
}

void DropContexts() {
    contexts.Clear();
    open.clear();
}

unsigned HeldContexts() {
    return contexts.Count();
}

}  // namespace host
