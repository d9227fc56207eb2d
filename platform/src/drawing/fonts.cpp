#include "fonts.h"

#include <cmath>
#include <tuple>

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

namespace host {
namespace {

// One face stands for all that a settings dialog names; the others fill in what it lacks.
constexpr const char* kPlainFace = "/usr/share/wine/fonts/tahoma.ttf";
constexpr const char* kBoldFace = "/usr/share/wine/fonts/tahomabd.ttf";
constexpr const char* kOtherFaces[] = {
    "/usr/share/fonts/truetype/vlgothic/VL-PGothic-Regular.ttf",
    "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
    "/usr/share/fonts/truetype/wqy/wqy-microhei.ttc",
};

// Kept for the whole run; null when the file is missing.
FT_Face FaceOf(const char* path) {
    static FT_Library library = [] {
        FT_Library made = nullptr;
        FT_Init_FreeType(&made);
        return made;
    }();
    static std::map<std::string, FT_Face> faces;
    const auto [it, isNew] = faces.try_emplace(path, nullptr);
    if (isNew && FT_New_Face(library, path, 0, &it->second) != 0) {
        it->second = nullptr;
    }
    return it->second;
}

FT_Face MainFace(bool bold) {
    const FT_Face face = FaceOf(bold ? kBoldFace : kPlainFace);
    if (face == nullptr) {
        Unsupported("text without the font %s", bold ? kBoldFace : kPlainFace);
    }
    return face;
}

// The faces have characters drawn pixel by pixel for the sizes of dialogs, as narrow as the
// platform's own. Those of the larger sizes are no better than outlines, and the bold ones too
// narrow.
constexpr int kLargestDrawnSize = 11;

int Scaled(int units, int emHeight, const FT_Face face) {
    return static_cast<int>(std::lround(double(units) * emHeight / face->units_per_EM));
}

// The cell's height in font units is what the face declares for the platform.
int CellUnits(const FT_Face face) {
    const auto* table = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    return table->usWinAscent + table->usWinDescent;
}

Glyph MissingGlyph(int emHeight) {
    Glyph glyph;
    glyph.left = 1;
    glyph.width = std::max(3, emHeight / 2);
    glyph.height = glyph.top = std::max(3, emHeight * 3 / 4);
    glyph.advance = glyph.width + 2;
    for (int y = 0; y < glyph.height; ++y) {
        for (int x = 0; x < glyph.width; ++x) {
            const bool edge = x == 0 || y == 0 || x == glyph.width - 1 || y == glyph.height - 1;
            glyph.coverage.push_back(edge ? 255 : 0);
        }
    }
    return glyph;
}

// Draws a character of a face; false when the face lacks it.
bool Load(FT_Face face, char32_t character, int emHeight, bool italic, Glyph* glyph) {
    const bool drawn = !italic && emHeight <= kLargestDrawnSize;
    const FT_UInt index = face == nullptr ? 0 : FT_Get_Char_Index(face, character);
    if (index == 0 || FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(emHeight)) != 0 ||
        FT_Load_Glyph(face, index, drawn ? FT_LOAD_DEFAULT : FT_LOAD_NO_BITMAP) != 0) {
        return false;
    }
    const FT_GlyphSlot slot = face->glyph;
    if (italic) {
        const FT_Matrix slant = {0x10000, 0x3600, 0, 0x10000};
        FT_Outline_Transform(&slot->outline, &slant);
    }
    if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0) {
        return false;
    }
    const FT_Bitmap& bitmap = slot->bitmap;
    glyph->left = slot->bitmap_left;
    glyph->top = slot->bitmap_top;
    glyph->width = static_cast<int>(bitmap.width);
    glyph->height = static_cast<int>(bitmap.rows);
    glyph->advance = static_cast<int>((slot->advance.x + 32) >> 6);
    for (int y = 0; y < glyph->height; ++y) {
        const BYTE* row = bitmap.buffer + y * bitmap.pitch;
        for (int x = 0; x < glyph->width; ++x) {
            // The small sizes have characters drawn pixel by pixel, in one bit.
            const bool oneBit = bitmap.pixel_mode == FT_PIXEL_MODE_MONO;
            const bool set = (row[x / 8] & 0x80 >> x % 8) != 0;
            glyph->coverage.push_back(!oneBit ? row[x] : set ? 255 : 0);
        }
    }
    return true;
}

// They say how the text around them runs and joins, and are never drawn.
bool IsFormatCharacter(char32_t character) {
    return (character >= 0x200B && character <= 0x200F) ||
           (character >= 0x202A && character <= 0x202E);
}

}  // namespace

ReadyFont::ReadyFont(bool bold, bool italic, int emHeight, int cellHeight)
    : emHeight(emHeight), bold(bold), italic_(italic) {
    const FT_Face face = MainFace(bold);
    const auto* table = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    if (cellHeight != 0) {
        this->emHeight =
            std::max(1, static_cast<int>(std::lround(double(cellHeight) * face->units_per_EM /
                                                     CellUnits(face))));
    }
    ascent = Scaled(table->usWinAscent, this->emHeight, face);
    descent = Scaled(table->usWinDescent, this->emHeight, face);
    maximumWidth = Scaled(face->max_advance_width, this->emHeight, face);
    const WideString letters = TEXT("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    // As dialog units are computed, so that whichever measure a program takes it gets the same.
    averageWidth = (WidthOf(letters.data(), letters.size()) / 26 + 1) / 2;
}

const Glyph& ReadyFont::GlyphOf(char32_t character) {
    const auto [it, isNew] = glyphs_.try_emplace(character);
    Glyph& glyph = it->second;
    if (!isNew || IsFormatCharacter(character) ||
        Load(MainFace(bold), character, emHeight, italic_, &glyph)) {
        return glyph;
    }
    for (const char* path : kOtherFaces) {
        if (Load(FaceOf(path), character, emHeight, italic_, &glyph)) {
            return glyph;
        }
    }
    return glyph = MissingGlyph(emHeight);
}

int ReadyFont::WidthOf(const WCHAR* text, size_t length) {
    int width = 0;
    for (size_t i = 0; i < length;) {
        width += GlyphOf(NextCharacter(text, length, &i)).advance;
    }
    return width;
}

char32_t NextCharacter(const WCHAR* text, size_t length, size_t* index) {
    const char32_t first = text[(*index)++];
    if ((first & 0xFC00) == 0xD800 && *index < length && (text[*index] & 0xFC00) == 0xDC00) {
        return 0x10000 + ((first & 0x3FF) << 10) + (text[(*index)++] & 0x3FF);
    }
    return first;
}

ReadyFont& FontOf(const Context& context) {
    static std::map<std::tuple<bool, bool, int>, ReadyFont> fonts;
    const LOGFONTW& description = Find<Font>(context.state.font)->description;
    // No height at all means the one of the system's font.
    constexpr LONG kHighest = 2000;
    const LONG height =
        std::clamp(description.lfHeight == 0 ? 16 : description.lfHeight, -kHighest, kHighest);
    const bool bold = description.lfWeight > 550;
    const bool italic = description.lfItalic != 0;
    const int em = height < 0 ? -height : 0;
    const int cell = height < 0 ? 0 : height;
    return fonts.try_emplace({bold, italic, height}, bold, italic, em, cell).first->second;
}

}  // namespace host
