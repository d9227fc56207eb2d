// Reading templates of the extended form (DIALOGEX). Nothing behind their end is read.
#include "dialog_template.h"

#include <cstring>

#include "tools/kpdtool/wide_text.h"

namespace kpdtool {
namespace {

/// Goes over the bytes; behind the end everything reads as zero.
class Cursor {
  public:
    Cursor(const BYTE* bytes, size_t size) : bytes_(bytes), size_(size) {}

    bool AtEnd() const { return at_ >= size_; }
    WORD Word() { return Take<WORD>(); }
    DWORD Long() { return Take<DWORD>(); }
    void Skip(size_t count) { at_ += count; }
    void Align() { at_ = (at_ + 3) & ~size_t{3}; }
    // A name or a number: 0 is none, 0xFFFF a number in the next word, else text up to its zero.
    std::string NameOrNumber() {
        constexpr WORD kNumber = 0xFFFF;
        const WORD first = Word();
        if (first == kNumber) {
            Word();
            return {};
        }
        std::basic_string<WCHAR> text;
        for (WORD character = first; character != 0; character = Word()) {
            text += static_cast<WCHAR>(character);
        }
        return ToUtf8(text);
    }

  private:
    template <typename T>
    T Take() {
        T value = 0;
        if (at_ + sizeof(T) <= size_) {
            std::memcpy(&value, bytes_ + at_, sizeof(T));
        }
        at_ += sizeof(T);
        return value;
    }

    const BYTE* bytes_;
    size_t size_;
    size_t at_ = 0;
};

}  // namespace

std::vector<TemplateControl> ParseDialogTemplate(const BYTE* bytes, size_t size) {
    Cursor cursor(bytes, size);
    const bool extended = cursor.Word() == 1 && cursor.Word() == 0xFFFF;
    if (!extended) {
        return {};
    }
    cursor.Skip(8);  // help identifier and extended style
    const DWORD style = cursor.Long();
    const WORD count = cursor.Word();
    cursor.Skip(8);  // place
    for (int part = 0; part < 3; ++part) {
        cursor.NameOrNumber();  // menu, class, title
    }
    if ((style & DS_SETFONT) != 0) {
        cursor.Skip(6);
        cursor.NameOrNumber();
    }
    std::vector<TemplateControl> controls;
    while (controls.size() < count && !cursor.AtEnd()) {
        cursor.Align();
        cursor.Skip(12 + 8);  // help identifier, styles, place
        const int id = static_cast<int>(cursor.Long());
        cursor.NameOrNumber();  // class
        std::string text = cursor.NameOrNumber();
        cursor.Skip(cursor.Word());
        controls.push_back({id, std::move(text)});
    }
    return controls;
}

std::vector<TemplateControl> ReadDialogTemplate(HMODULE module, int dialog) {
    HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(dialog), RT_DIALOG);
    HGLOBAL loaded = resource == nullptr ? nullptr : LoadResource(module, resource);
    const void* bytes = loaded == nullptr ? nullptr : LockResource(loaded);
    if (bytes == nullptr) {
        return {};
    }
    return ParseDialogTemplate(static_cast<const BYTE*>(bytes), SizeofResource(module, resource));
}

}  // namespace kpdtool
