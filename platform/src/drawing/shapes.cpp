// Lines and shapes with the context's pen and brush.
#include "state.h"

#include <cmath>

namespace host {
namespace {

/// The selected pen going over places of the surface.
class Stroke {
  public:
    Stroke(const Context& context, const Canvas& canvas)
        : canvas_(canvas),
          pen_(*Find<LOGPEN>(context.state.pen)),
          mode_(context.state.mixMode),
          opaque_(context.state.backMode == OPAQUE),
          back_(PixelOf(context.state.backColor)) {
        const bool ofContext = context.state.pen == GetStockObject(DC_PEN);
        color_ = PixelOf(ofContext ? context.state.penColor : pen_.lopnColor);
    }

    bool IsNull() const { return pen_.lopnStyle == PS_NULL; }
    int Width() const { return std::max(1, static_cast<int>(pen_.lopnWidth.x)); }
    bool KeepsInside() const { return pen_.lopnStyle == PS_INSIDEFRAME; }

    void Touch(int x, int y) {
        const int width = Width();
        if (width > 1) {
            Stamp(x, y, width);
        } else if (IsGap()) {
            if (opaque_) {
                canvas_.Put(x, y, mode_, back_);
            }
        } else {
            canvas_.Put(x, y, mode_, color_);
        }
    }

    /// From one place to another: without the last one when the pen is a pixel wide, as lines are
    /// joined.
    void Line(POINT from, POINT to) {
        const int dx = to.x - from.x;
        const int dy = to.y - from.y;
        const int steps = std::max(std::abs(dx), std::abs(dy));
        const int count = Width() > 1 ? steps + 1 : steps;
        for (int i = 0; i < count; ++i) {
            Touch(from.x + Part(dx, i, steps), from.y + Part(dy, i, steps));
        }
    }

  private:
    // How far a line has come sideways; halfway between two pixels it is on the one to the top or
    // left.
    static int Part(int whole, int step, int steps) {
        if (steps == 0) {
            return 0;
        }
        return static_cast<int>(std::ceil(double(whole) * step / steps - 0.5));
    }

    bool IsGap() {
        const int at = along_++;
        if (pen_.lopnStyle == PS_DASH) {
            return at % 24 >= 18;
        }
        return pen_.lopnStyle == PS_DOT && at % 6 >= 3;
    }

    // A round spot of the pen's width around a place, or left of and above its middle.
    void Stamp(int x, int y, int width) {
        const double middle = (width - 1) / 2.0;
        const double radius = width / 2.0 - 0.1;
        for (int row = 0; row < width; ++row) {
            for (int column = 0; column < width; ++column) {
                if (std::hypot(row - middle, column - middle) <= radius) {
                    canvas_.Put(x - width / 2 + column, y - width / 2 + row, mode_, color_);
                }
            }
        }
    }

    const Canvas& canvas_;
    const LOGPEN pen_;
    const int mode_;
    const bool opaque_;
    const Pixel back_;
    Pixel color_;
    int along_ = 0;
};

// A closed shape as the columns it covers in each of its rows.
struct Span {
    int left;
    int right;  // excluded
};
struct Shape {
    int top = 0;
    std::vector<Span> rows;

    bool Has(int x, int y) const {
        if (y < top || y >= top + static_cast<int>(rows.size())) {
            return false;
        }
        const Span& span = rows[static_cast<size_t>(y - top)];
        return x >= span.left && x < span.right;
    }
    bool IsEdge(int x, int y) const {
        return !Has(x - 1, y) || !Has(x + 1, y) || !Has(x, y - 1) || !Has(x, y + 1);
    }
};

// A rectangle whose corners are quarters of an ellipse of the size given.
Shape RoundedShape(const RECT& rect, int cornerWidth, int cornerHeight) {
    const double a = cornerWidth / 2.0;
    const double b = cornerHeight / 2.0;
    Shape shape = {rect.top, {}};
    for (int y = rect.top; y < rect.bottom; ++y) {
        // How far the middle of this row is inside the corners' quarters.
        const double deep = b - std::min(y - rect.top, rect.bottom - 1 - y) - 0.5;
        double inset = 0;
        if (deep > 0) {
            // A tenth less than the whole ellipse gives the familiar small circles.
            const double share = std::min(1.0, deep / (b - 0.1));
            const double half = (a - 0.1) * std::sqrt(1 - share * share);
            inset = std::ceil(a - half - 0.5);
        }
        const int cut = static_cast<int>(inset);
        shape.rows.push_back({rect.left + cut, rect.right - cut});
    }
    return shape;
}

void FillShape(const Canvas& canvas, const Context& context, const Shape& shape) {
    const Paint paint(context, Find<Brush>(context.state.brush));
    int y = shape.top;
    for (const Span& span : shape.rows) {
        Fill(canvas, {span.left, y, span.right, y + 1}, paint, context.state.mixMode);
        ++y;
    }
}

void StrokeShape(const Shape& shape, Stroke* stroke) {
    int y = shape.top;
    for (const Span& span : shape.rows) {
        for (int x = span.left; x < span.right; ++x) {
            if (shape.IsEdge(x, y)) {
                stroke->Touch(x, y);
            }
        }
        ++y;
    }
}

RECT Ordered(int left, int top, int right, int bottom) {
    return {std::min(left, right), std::min(top, bottom), std::max(left, right),
            std::max(top, bottom)};
}

// The place of a shape's outline, which a pen that stays inside draws further in.
RECT OutlineOf(RECT rect, const Stroke& stroke) {
    if (stroke.KeepsInside() && stroke.Width() > 1) {
        rect.left += stroke.Width() / 2;
        rect.top += stroke.Width() / 2;
        rect.right -= (stroke.Width() - 1) / 2;
        rect.bottom -= (stroke.Width() - 1) / 2;
    }
    return rect;
}

// Draws inside and outline of a rounded rectangle; with the corners' size at most the rectangle's.
BOOL DrawRounded(HDC handle, const RECT& given, int cornerWidth, int cornerHeight) {
    const Context* context = FindContext(handle);
    if (context == nullptr) {
        return FALSE;
    }
    const Canvas canvas(*context);
    Stroke stroke(*context, canvas);
    const RECT rect = OutlineOf(canvas.At(given), stroke);
    if (IsEmpty(rect)) {
        return TRUE;
    }
    const int width = std::min<int>(std::abs(cornerWidth), rect.right - rect.left);
    const int height = std::min<int>(std::abs(cornerHeight), rect.bottom - rect.top);
    const Shape shape = RoundedShape(rect, width, height);
    FillShape(canvas, *context, shape);
    if (!stroke.IsNull()) {
        StrokeShape(shape, &stroke);
    }
    return TRUE;
}

// Every second stretch between the edges that a row crosses is inside.
void FillPolygon(const Canvas& canvas, const Context& context, const std::vector<POINT>& points) {
    const auto [first, last] = std::minmax_element(
        points.begin(), points.end(), [](const POINT& a, const POINT& b) { return a.y < b.y; });
    const int bottom = std::min<int>(last->y, canvas.surface().height);
    const Paint paint(context, Find<Brush>(context.state.brush));
    for (int y = std::max<int>(first->y, 0); y < bottom; ++y) {
        std::vector<double> crossings;
        for (size_t i = 0; i < points.size(); ++i) {
            const POINT& a = points[i];
            const POINT& b = points[(i + 1) % points.size()];
            if ((a.y <= y) != (b.y <= y)) {
                crossings.push_back(a.x + double(b.x - a.x) * (y - a.y) / (b.y - a.y));
            }
        }
        std::sort(crossings.begin(), crossings.end());
        for (size_t i = 0; i + 1 < crossings.size(); i += 2) {
            const RECT run = {static_cast<LONG>(std::ceil(crossings[i])), y,
                              static_cast<LONG>(std::ceil(crossings[i + 1])), y + 1};
            Fill(canvas, run, paint, context.state.mixMode);
        }
    }
}

std::vector<POINT> OnSurface(const Canvas& canvas, const POINT* points, int count) {
    std::vector<POINT> placed;
    for (int i = 0; i < count; ++i) {
        placed.push_back(canvas.At(points[i].x, points[i].y));
    }
    return placed;
}

void StrokeLines(const std::vector<POINT>& points, Stroke* stroke) {
    for (size_t i = 0; i + 1 < points.size() && !stroke->IsNull(); ++i) {
        stroke->Line(points[i], points[i + 1]);
    }
}

}  // namespace
}  // namespace host

using host::Context;

BOOL WINAPI LineTo(HDC handle, int x, int y) {
    Context* context = host::FindContext(handle);
    if (context == nullptr) {
        return FALSE;
    }
    const POINT line[] = {context->state.position, {x, y}};
    context->state.position = line[1];
    return Polyline(handle, line, 2);
}

BOOL WINAPI Polyline(HDC handle, const POINT* points, int count) {
    const Context* context = host::FindContext(handle);
    if (context == nullptr || count < 2) {
        return FALSE;
    }
    const host::Canvas canvas(*context);
    host::Stroke stroke(*context, canvas);
    host::StrokeLines(host::OnSurface(canvas, points, count), &stroke);
    return TRUE;
}

BOOL WINAPI Polygon(HDC handle, const POINT* points, int count) {
    const Context* context = host::FindContext(handle);
    if (context == nullptr || count < 2) {
        return FALSE;
    }
    const host::Canvas canvas(*context);
    std::vector<POINT> placed = host::OnSurface(canvas, points, count);
    host::FillPolygon(canvas, *context, placed);
    host::Stroke stroke(*context, canvas);
    placed.push_back(placed.front());
    host::StrokeLines(placed, &stroke);
    return TRUE;
}

BOOL WINAPI Rectangle(HDC handle, int left, int top, int right, int bottom) {
    RECT rect = host::Ordered(left, top, right, bottom);
    const Context* context = host::FindContext(handle);
    if (context != nullptr && host::Find<LOGPEN>(context->state.pen)->lopnStyle == PS_NULL) {
        // Where no pen draws the last row and column, they stay as they are.
        --rect.right;
        --rect.bottom;
    }
    return host::DrawRounded(handle, rect, 0, 0);
}

BOOL WINAPI RoundRect(HDC handle, int left, int top, int right, int bottom, int width, int height) {
    return host::DrawRounded(handle, host::Ordered(left, top, right, bottom), width, height);
}

BOOL WINAPI Ellipse(HDC handle, int left, int top, int right, int bottom) {
    const RECT rect = host::Ordered(left, top, right, bottom);
    return host::DrawRounded(handle, rect, rect.right - rect.left, rect.bottom - rect.top);
}
