// Shapes with the context's pen and brush.
#include "state.h"

#include <cmath>

namespace host {
namespace {

/// The selected pen going over places of the surface.
class Stroke {
  public:
    Stroke(const Context& context, const Canvas& canvas) : canvas_(canvas) {
        const LOGPEN& pen = *Find<LOGPEN>(context.state.pen);
        width_ = std::max(1, static_cast<int>(pen.lopnWidth.x));
        color_ = PixelOf(pen.lopnColor);
    }

    // A round spot of the pen's width around a place, or left of and above its middle.
    void Touch(int x, int y) const {
        const double middle = (width_ - 1) / 2.0;
        const double radius = width_ / 2.0 - 0.1;
        for (int row = 0; row < width_; ++row) {
            for (int column = 0; column < width_; ++column) {
                if (width_ == 1 || std::hypot(row - middle, column - middle) <= radius) {
                    canvas_.Put(x - width_ / 2 + column, y - width_ / 2 + row, color_);
                }
            }
        }
    }

  private:
    const Canvas& canvas_;
    int width_;
    Pixel color_;
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
        Fill(canvas, {span.left, y, span.right, y + 1}, paint);
        ++y;
    }
}

void StrokeShape(const Shape& shape, const Stroke& stroke) {
    int y = shape.top;
    for (const Span& span : shape.rows) {
        for (int x = span.left; x < span.right; ++x) {
            if (shape.IsEdge(x, y)) {
                stroke.Touch(x, y);
            }
        }
        ++y;
    }
}

}  // namespace
}  // namespace host

BOOL WINAPI RoundRect(HDC handle, int left, int top, int right, int bottom, int width, int height) {
    const host::Context* context = host::FindContext(handle);
    if (context == nullptr) {
        return FALSE;
    }
    const host::Canvas canvas(*context);
    const RECT rect = canvas.At(RECT{left, top, right, bottom});
    if (host::IsEmpty(rect)) {
        return TRUE;
    }
    const host::Shape shape = host::RoundedShape(rect, std::min<int>(width, right - left),
                                                 std::min<int>(height, bottom - top));
    host::FillShape(canvas, *context, shape);
    host::StrokeShape(shape, host::Stroke(*context, canvas));
    return TRUE;
}
