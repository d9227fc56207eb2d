// Text in a rectangle: lines, breaking at words, mnemonics, tabs, dots for what does not fit.
#include "fonts.h"

namespace host {
namespace {

constexpr UINT kKnownFormat = DT_CENTER | DT_RIGHT | DT_VCENTER | DT_WORDBREAK | DT_SINGLELINE |
                              DT_EXPANDTABS | DT_CALCRECT | DT_NOPREFIX | DT_END_ELLIPSIS;
constexpr size_t kNone = static_cast<size_t>(-1);

struct Line {
    WideString text;
    size_t underlined = kNone;  // a mnemonic's place in it
};

class Layout {
  public:
    Layout(const Context& context, UINT format, int width)
        : font_(FontOf(context)), format_(format), width_(width) {}

    std::vector<Line> LinesOf(const WideString& text) const;
    int WidthOf(const WideString& text) const;
    Line Shortened(const Line& line) const;
    int TabWidth() const { return 8 * font_.averageWidth; }

  private:
    Line WithoutPrefixes(const WideString& text) const;
    void Break(const Line& paragraph, std::vector<Line>* lines) const;
    size_t Fitting(const WideString& text) const;

    ReadyFont& font_;
    UINT format_;
    int width_;
};

// Ideographs and the like may be parted anywhere.
bool IsIdeograph(WCHAR character) {
    return character >= 0x2E80 && character < 0xD800;
}

bool MayBreakBefore(const WideString& text, size_t at) {
    return text[at] == ' ' || text[at - 1] == ' ' || text[at - 1] == '-' || IsIdeograph(text[at]) ||
           IsIdeograph(text[at - 1]);
}

int Layout::WidthOf(const WideString& text) const {
    int width = 0;
    for (size_t i = 0; i < text.size();) {
        if (text[i] == '\t' && (format_ & DT_EXPANDTABS) != 0) {
            width = (width / TabWidth() + 1) * TabWidth();
            ++i;
        } else {
            width += font_.GlyphOf(NextCharacter(text.data(), text.size(), &i)).advance;
        }
    }
    return width;
}

Line Layout::WithoutPrefixes(const WideString& text) const {
    if ((format_ & DT_NOPREFIX) != 0) {
        return {text};
    }
    Line line;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&') {
            ++i;
            if (i == text.size()) {
                break;
            }
            if (text[i] != '&') {
                line.underlined = line.text.size();
            }
        }
        line.text += text[i];
    }
    return line;
}

// How much of a text, at least one character, is no wider than the rectangle.
size_t Layout::Fitting(const WideString& text) const {
    size_t fitting = 1;
    while (fitting < text.size() && WidthOf(text.substr(0, fitting + 1)) <= width_) {
        ++fitting;
    }
    return fitting;
}

void Layout::Break(const Line& paragraph, std::vector<Line>* lines) const {
    Line rest = paragraph;
    while (WidthOf(rest.text) > width_) {
        size_t end = Fitting(rest.text);
        size_t best = end;
        while (best > 0 && (best == rest.text.size() || !MayBreakBefore(rest.text, best))) {
            --best;
        }
        if (best > 0) {
            end = best;
        } else {
            // A word that is too wide goes on past the rectangle.
            while (end < rest.text.size() && !MayBreakBefore(rest.text, end)) {
                ++end;
            }
        }
        size_t next = end;
        while (next < rest.text.size() && rest.text[next] == ' ') {
            ++next;  // the spaces at a break are not drawn
        }
        if (next == rest.text.size()) {
            rest.text.resize(end);
            break;
        }
        Line line = {rest.text.substr(0, end)};
        while (!line.text.empty() && line.text.back() == ' ') {
            line.text.pop_back();
        }
        if (rest.underlined < end) {
            line.underlined = rest.underlined;
        }
        lines->push_back(line);
        rest.text.erase(0, next);
        rest.underlined =
            rest.underlined == kNone || rest.underlined < next ? kNone : rest.underlined - next;
    }
    lines->push_back(rest);
}

std::vector<Line> Layout::LinesOf(const WideString& text) const {
    std::vector<Line> lines;
    if ((format_ & DT_SINGLELINE) != 0) {
        return {WithoutPrefixes(text)};
    }
    for (size_t start = 0; start < text.size() || lines.empty();) {
        const size_t end = std::min(text.find_first_of(TEXT("\r\n"), start), text.size());
        const Line paragraph = WithoutPrefixes(text.substr(start, end - start));
        if ((format_ & DT_WORDBREAK) != 0) {
            Break(paragraph, &lines);
        } else {
            lines.push_back(paragraph);
        }
        const bool pair = text.compare(end, 2, TEXT("\r\n")) == 0;
        start = end + (pair ? 2 : 1);
    }
    return lines;
}

Line Layout::Shortened(const Line& line) const {
    if (WidthOf(line.text) <= width_) {
        return line;
    }
    const WideString dots = TEXT("...");
    Line shorter = line;
    while (shorter.text.size() > 1 && WidthOf(shorter.text + dots) > width_) {
        shorter.text.pop_back();
    }
    shorter.text += dots;
    return shorter;
}

// Draws a line, whose tabs part it into pieces.
void DrawLine(HDC handle, const Context& context, const Layout& layout, const Line& line, int x,
              int y, UINT format, const RECT& clip) {
    const WideString& text = line.text;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.size();
        if ((format & DT_EXPANDTABS) != 0) {
            end = std::min(text.find('\t', start), text.size());
        }
        ExtTextOutW(handle, x + layout.WidthOf(text.substr(0, start)), y, ETO_CLIPPED, &clip,
                    text.data() + start, static_cast<UINT>(end - start), nullptr);
        start = end + 1;
    }
    if (line.underlined < text.size()) {
        const int left = x + layout.WidthOf(text.substr(0, line.underlined));
        const int right = x + layout.WidthOf(text.substr(0, line.underlined + 1));
        const int below = y + FontOf(context).ascent + 1;
        FillColor(handle, Common({left, below, right, below + 1}, clip), context.state.textColor);
    }
}

int StartOf(UINT format, const RECT& rect, int width) {
    if ((format & DT_CENTER) != 0) {
        return rect.left + (rect.right - rect.left - width) / 2;
    }
    return (format & DT_RIGHT) != 0 ? rect.right - width : rect.left;
}

}  // namespace
}  // namespace host

int WINAPI DrawTextW(HDC handle, LPCWSTR characters, int length, LPRECT rect, UINT format) {
    if ((format & ~host::kKnownFormat) != 0) {
        host::Unsupported("DrawTextW with format %#x", format);
    }
    const host::Context* context = host::FindContext(handle);
    if (context == nullptr || characters == nullptr || rect == nullptr) {
        return 0;
    }
    const host::WideString text = length < 0
                                      ? host::WideString(characters)
                                      : host::WideString(characters, static_cast<size_t>(length));
    const host::Layout layout(*context, format, rect->right - rect->left);
    std::vector<host::Line> lines = layout.LinesOf(text);
    const int lineHeight = host::FontOf(*context).Height();
    int y = rect->top;
    if ((format & DT_SINGLELINE) != 0 && (format & DT_VCENTER) != 0) {
        y += (rect->bottom - rect->top) / 2 - lineHeight / 2;
    }
    int widest = 0;
    for (host::Line& line : lines) {
        if ((format & DT_END_ELLIPSIS) != 0) {
            line = layout.Shortened(line);
        }
        const int width = layout.WidthOf(line.text);
        widest = std::max(widest, width);
        if ((format & DT_CALCRECT) == 0) {
            host::DrawLine(handle, *context, layout, line, host::StartOf(format, *rect, width), y,
                           format, *rect);
        }
        y += lineHeight;
        if ((format & DT_CALCRECT) == 0 && y >= rect->bottom) {
            break;  // the lines below cannot be seen and do not count
        }
    }
    const int height = y - rect->top;
    if ((format & DT_CALCRECT) != 0) {
        const bool empty = text.empty() && (format & DT_SINGLELINE) == 0;
        rect->right = rect->left + widest;
        rect->bottom = rect->top + (empty ? 0 : height);
    }
    return height;
}
