// Any language file: a lookup always gives a terminated text that fits, and the key when the file
// cannot have it.
#include "core/text.h"
#include "fuzz_support.h"
#include "platform/host.h"
#include "ui/common/language.h"

#include <fstream>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const bool ready = [] {
        host::Reset();
        InitLanguageFile();
        return true;
    }();
    (void)ready;
    std::ofstream(host::DiskPath(LanguageFilePath), std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));

    SetSection(TEXT("Tools"));
    for (const WCHAR* key : {TEXT("a"), TEXT("Ribbon Type : "), TEXT("Error"), TEXT("\x4E2D")}) {
        WCHAR text[kTextLength + 1];
        std::fill_n(text, kTextLength + 1, WCHAR{0xA5A5});
        LookupString(key, text);
        Require(WideView(text, kTextLength).find(WCHAR{0}) != WideView::npos, "terminated");
        Require(text[kTextLength] == 0xA5A5, "fits");
    }
    WCHAR text[kTextLength];
    SetSection(TEXT(""));
    LookupString(TEXT("key"), text);
    Require(size != 0 || TextEquals(text, TEXT("key")), "an empty file has no key");
    return 0;
}
