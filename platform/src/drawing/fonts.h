// Fonts made ready for drawing: what a character looks like at a size, and how wide and high it is.
#pragma once

#include "state.h"

#include <map>

namespace host {

struct Glyph {
    int left = 0;   // from the pen's place to the picture's first column
    int top = 0;    // from the base line up to the picture's first row
    int width = 0;  // of the picture
    int height = 0;
    int advance = 0;             // to the next character's place
    std::vector<BYTE> coverage;  // 0 to 255, row by row
};

/// A font at one size and weight. Characters that the face lacks come from other faces.
class ReadyFont {
  public:
    ReadyFont(bool bold, bool italic, int emHeight, int cellHeight);

    const Glyph& GlyphOf(char32_t character);
    int WidthOf(const WCHAR* text, size_t length);

    int ascent = 0;
    int descent = 0;
    int emHeight;
    int averageWidth = 0;
    int maximumWidth = 0;
    bool bold;
    int Height() const { return ascent + descent; }

  private:
    bool italic_;
    std::map<char32_t, Glyph> glyphs_;
};

/// The font selected into a context. Never null.
ReadyFont& FontOf(const Context& context);
/// The character that begins at an index of the text, which moves on to the next one.
char32_t NextCharacter(const WCHAR* text, size_t length, size_t* index);

}  // namespace host
