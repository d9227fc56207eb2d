// The tone-mapping library.
#include "companions/tone_mapping.h"

#include "core/driver_files.h"
#include "core/printer_key.h"

#include <array>
#include <cstddef>
#include <iterator>

namespace {

constexpr const WCHAR* kLibrary = TEXT("ToneKit.dll");

constexpr const char* kOperations[] = {
    "InitialParam",    "ReleaseParam",     "SetColorBalanceSlider", "SetContrastSlider",
    "SetBrightSlider", "SetHSLSlider",     "SetSharpenSlider",      "SetAllCurveTable",
    "SetBrightTable",  "SetContrastTable", "SetColorBalanceTable",  "SetGammaTableByfloat",
    "SetAllHSLTable",  "SetSharpen",       "SetAutoAdjust",         "SetSkinModifyTable",
    "SetSharpenMode",  "MapTableImage",
};

/// A picture as the library takes and gives it: 24 bits a pixel, one plane.
struct MappedImage {
    DWORD Reserved0;      //  0
    LONG Width;           //  4
    LONG Height;          //  8
    BYTE Reserved12[12];  // 12
    BYTE* Pixels;         // 24
};
static_assert(sizeof(MappedImage) == 32);
static_assert(offsetof(MappedImage, Width) == 4);
static_assert(offsetof(MappedImage, Height) == 8);
static_assert(offsetof(MappedImage, Pixels) == 24);

// What the preview begins with.
struct {
    HMODULE Library;
    std::array<FARPROC, std::size(kOperations)> Operations;  // null where the library lacks one
    MappedImage Mapped;
    std::array<BYTE, 140> HslParameters;
} toneMapping;

void LoadOperations() {
    toneMapping.Library = LoadDriverLibrary(kLibrary);
    for (size_t i = 0; toneMapping.Library != nullptr && i < std::size(kOperations); ++i) {
        toneMapping.Operations[i] = GetProcAddress(toneMapping.Library, kOperations[i]);
    }
}

// As many bytes as are stored, the rest zero. Of a value that is longer none are taken.
void ReadHslParameters(const WCHAR* printer) {
    toneMapping.HslParameters = {};
    PrinterKey key(printer);
    if (key.Open(KEY_QUERY_VALUE)) {
        DWORD size = static_cast<DWORD>(toneMapping.HslParameters.size());
        RegQueryValueExW(key.get(), TEXT("HSLPara"), nullptr, nullptr,
                         toneMapping.HslParameters.data(), &size);
    }
}

}  // namespace

void OpenToneMapping(const WCHAR* printer) {
    if (toneMapping.Library == nullptr) {
        LoadOperations();
    }
    toneMapping.Mapped = {};
    ReadHslParameters(printer);
}

void CloseToneMapping() {
    if (toneMapping.Library != nullptr) {
        FreeLibrary(toneMapping.Library);
    }
    toneMapping.Library = nullptr;
    toneMapping.Operations = {};
}
