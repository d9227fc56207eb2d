// Reading dialog templates.
#include "dialogs/template.h"

#include <cstring>

namespace host {
namespace {

constexpr DWORD kExtendedMark = 0xFFFF0001;

// Templates carry no size of their own; what they count is believed, as the platform does.
class Reader {
  public:
    explicit Reader(const void* bytes) : start_(static_cast<const BYTE*>(bytes)), at_(start_) {}

    template <typename Number>
    Number Take() {
        Number number;
        std::memcpy(&number, at_, sizeof(number));
        at_ += sizeof(number);
        return number;
    }
    RECT TakePlace() {
        const SHORT x = Take<SHORT>();
        const SHORT y = Take<SHORT>();
        const SHORT width = Take<SHORT>();
        const SHORT height = Take<SHORT>();
        return {x, y, width, height};
    }
    WideString TakeText() {
        WideString text;
        for (WORD unit = Take<WORD>(); unit != 0; unit = Take<WORD>()) {
            text += static_cast<WCHAR>(unit);
        }
        return text;
    }
    TemplateText TakeNumberOrText() {
        WORD first;
        std::memcpy(&first, at_, sizeof(first));
        if (first != 0xFFFF) {
            return {0, TakeText()};
        }
        Take<WORD>();
        return {Take<WORD>(), {}};
    }
    void Align() { at_ += (4 - (at_ - start_) % 4) % 4; }

  private:
    const BYTE* start_;
    const BYTE* at_;
};

// The classes that have a number.
TemplateText ClassOf(TemplateText name) {
    constexpr const WCHAR* kNumbered[] = {TEXT("Button"),  TEXT("Edit"),      TEXT("Static"),
                                          TEXT("ListBox"), TEXT("ScrollBar"), TEXT("ComboBox")};
    if (name.IsNumber()) {
        const unsigned index = name.number - 0x80u;
        if (index >= std::size(kNumbered)) {
            Unsupported("a control of the class number %#x", name.number);
        }
        return {0, kNumbered[index]};
    }
    return name;
}

TemplateItem ReadItem(Reader& reader, bool isExtended) {
    TemplateItem item = {};
    reader.Align();
    if (isExtended) {
        reader.Take<DWORD>();  // help identifier
        item.extendedStyle = reader.Take<DWORD>();
        item.style = reader.Take<DWORD>();
        item.place = reader.TakePlace();
        item.id = reader.Take<DWORD>();
    } else {
        item.style = reader.Take<DWORD>();
        item.extendedStyle = reader.Take<DWORD>();
        item.place = reader.TakePlace();
        item.id = reader.Take<WORD>();
    }
    item.className = ClassOf(reader.TakeNumberOrText());
    item.title = reader.TakeNumberOrText();
    if (reader.Take<WORD>() != 0) {
        Unsupported("a control with creation data");
    }
    return item;
}

}  // namespace

DialogTemplate ReadTemplate(const void* bytes) {
    Reader reader(bytes);
    DialogTemplate dialog = {};
    DWORD first = reader.Take<DWORD>();
    const bool isExtended = first == kExtendedMark;
    if (isExtended) {
        reader.Take<DWORD>();  // help identifier
        dialog.extendedStyle = reader.Take<DWORD>();
        dialog.style = reader.Take<DWORD>();
    } else {
        dialog.style = first;
        dialog.extendedStyle = reader.Take<DWORD>();
    }
    const WORD count = reader.Take<WORD>();
    dialog.place = reader.TakePlace();
    if (const TemplateText menu = reader.TakeNumberOrText();
        menu.IsNumber() || !menu.text.empty()) {
        Unsupported("a dialog with a menu");
    }
    dialog.className = reader.TakeNumberOrText();
    dialog.title = reader.TakeText();
    dialog.hasFont = (dialog.style & DS_SETFONT) != 0;
    if (dialog.hasFont) {
        dialog.pointSize = reader.Take<WORD>();
        dialog.weight = FW_NORMAL;
        if (isExtended) {
            dialog.weight = reader.Take<WORD>();
            dialog.italic = reader.Take<BYTE>();
            reader.Take<BYTE>();  // character set
        }
        dialog.face = reader.TakeText();
    }
    for (WORD i = 0; i < count; ++i) {
        dialog.items.push_back(ReadItem(reader, isExtended));
    }
    return dialog;
}

}  // namespace host
