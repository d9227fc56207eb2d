// Registry values below HKEY_CURRENT_USER\Printers\<device name>, all of type REG_SZ.
#include "ui/pages/magnetic/magnetic_store.h"

#include "core/printer_key.h"
#include "core/text.h"

#include <algorithm>

namespace {

struct StoredText {
    const WCHAR* Name;
    DWORD Room;     ///< characters
    bool IsPadded;  ///< stored with all its room, zeros behind the text; else without a terminator
};

// In the order of MagneticTextIndex, which is that of writing.
constexpr StoredText kStoredTexts[kMagneticTexts] = {
    {TEXT("UsingDatabaseFileName"), 260, true}, {TEXT("MagneticTrack1"), 128, true},
    {TEXT("MagneticTrack2"), 128, true},        {TEXT("MagneticTrack3"), 128, true},
    {TEXT("FilterPrefix"), 128, false},         {TEXT("FilterSuffix"), 128, false},
};

void Read(HKEY key, const StoredText& stored, WCHAR* text) {
    DWORD size = stored.Room * sizeof(WCHAR);
    if (RegQueryValueExW(key, stored.Name, nullptr, nullptr, reinterpret_cast<BYTE*>(text),
                         &size) != ERROR_SUCCESS) {
        size = 0;
    }
    const DWORD length = size / sizeof(WCHAR);
    text[std::min(length, stored.Room - 1)] = 0;
}

// The platform lengthens a REG_SZ value by a terminator that stands behind its last byte. Where
// none is to be stored, none stands there.
void Write(HKEY key, const StoredText& stored, const WCHAR* text) {
    constexpr WCHAR kNoTerminator = ' ';
    WCHAR bytes[kMagneticTextLength];
    std::fill(std::begin(bytes), std::end(bytes), stored.IsPadded ? WCHAR{0} : kNoTerminator);
    const size_t length = WideView(text).substr(0, stored.Room - 1).copy(bytes, stored.Room - 1);
    const size_t characters = stored.IsPadded ? stored.Room : length;
    RegSetValueExW(key, stored.Name, 0, REG_SZ, reinterpret_cast<const BYTE*>(bytes),
                   static_cast<DWORD>(characters * sizeof(WCHAR)));
}

}  // namespace

void ReadMagneticTexts(const WCHAR* printer, MagneticTexts& texts) {
    texts = {};
    PrinterKey key(printer);
    if (!key.Open(KEY_READ | KEY_WRITE)) {
        key.Create(KEY_READ | KEY_WRITE);
        return;
    }
    for (int i = 0; i < kMagneticTexts; ++i) {
        Read(key.get(), kStoredTexts[i], texts.Texts[i]);
    }
}

void WriteMagneticTexts(const WCHAR* printer, const MagneticTexts& texts) {
    PrinterKey key(printer);
    if (!key.Open(KEY_WRITE)) {
        return;
    }
    for (int i = 0; i < kMagneticTexts; ++i) {
        Write(key.get(), kStoredTexts[i], texts.Texts[i]);
    }
}
