// A print-area designer that answers anything: names without an end, counts, chains of blocks,
// layouts, indices. What the driver takes over is terminated and bounded, everything is given back
// once, and a picture stays in its place.
#include "companions/area_designer.h"
#include "fuzz_support.h"
#include "ui/pages/print_area/area_preview.h"

#include <memory>
#include <vector>

namespace {

// ---- The designer -------------------------------------------------------------------------------

class Bytes {
  public:
    void Begin(const uint8_t* data, size_t size) {
        at_ = data;
        end_ = data + size;
    }
    /// Zero when there are no more.
    BYTE Next() { return at_ == end_ ? BYTE{0} : *at_++; }
    void Fill(void* target, size_t size) {
        for (size_t i = 0; i < size; ++i) {
            static_cast<BYTE*>(target)[i] = Next();
        }
    }

  private:
    const uint8_t* at_ = nullptr;
    const uint8_t* end_ = nullptr;
} bytes;

/// An area with its blocks, each in memory of its own.
struct Given {
    PrintAreaData Area;
    std::vector<std::unique_ptr<PrintAreaBlock>> Blocks;
};

struct {
    std::vector<std::unique_ptr<Given>> Areas;
    int Objects = 0;  ///< given and not finished
} designer;

// What the library says of a new object, and whether it gives one.
template <typename Object>
BYTE Make(Object** object) {
    const BYTE answer = bytes.Next();
    const bool gives = (answer & 2) == 0;
    *object = gives ? reinterpret_cast<Object*>(ULONG_PTR{16}) : nullptr;
    designer.Objects += gives && (answer & 1) != 0;
    return answer & 1;
}

BYTE WINAPI NewDialog(void*, const char*, AreaDesignerObject** made, DWORD_PTR, DWORD_PTR) {
    return Make(made);
}
BYTE WINAPI List(AreaEnumeration** made, const char*, DWORD, PrintAreaParams* params,
                 DWORD* count) {
    bytes.Fill(params, sizeof(*params));
    bytes.Fill(count, sizeof(*count));
    return Make(made);
}
DWORD WINAPI Show(AreaDesignerObject*, DWORD, PrintAreaParams* params, DWORD* outcome) {
    bytes.Fill(&params->AreaIndex, sizeof(params->AreaIndex));
    *outcome = bytes.Next() % 3;
    return 0;
}
BYTE WINAPI Name(AreaDesignerObject*, AreaEnumeration*, DWORD, char* name, DWORD* size) {
    Require(*size == kAreaNameLength, "room for a name");
    std::memset(name, bytes.Next(), kAreaNameLength);
    bytes.Fill(name, bytes.Next());
    bytes.Fill(size, sizeof(*size));
    return bytes.Next();
}
DWORD WINAPI Data(AreaDesignerObject*, AreaEnumeration*, DWORD, PrintAreaData** data) {
    const size_t blocks = bytes.Next();
    if (blocks == 0xFF) {
        return 1;
    }
    auto given = std::make_unique<Given>();
    bytes.Fill(&given->Area.Orientation, 1);
    bytes.Fill(&given->Area.Width, 20);
    PrintAreaBlock** place = &given->Area.FirstBlock;
    for (size_t i = 0; i < blocks % 32; ++i) {
        auto block = std::make_unique<PrintAreaBlock>();
        bytes.Fill(&block->Kind, 12);
        *place = block.get();
        place = &block->Next;
        given->Blocks.push_back(std::move(block));
    }
    const bool isEndless = blocks >= 0xE0 && !given->Blocks.empty();
    *place = isEndless ? given->Blocks.front().get() : nullptr;
    *data = &given->Area;
    designer.Areas.push_back(std::move(given));
    return 0;
}
void WINAPI Release(AreaDesignerObject*, AreaEnumeration*, PrintAreaData* data) {
    Require(std::erase_if(designer.Areas, [&](const auto& one) { return &one->Area == data; }) == 1,
            "what was given is given back once");
}
void WINAPI Finish(AreaDesignerObject* dialog, AreaEnumeration* enumeration) {
    Require((dialog == nullptr) != (enumeration == nullptr), "one handle");
    --designer.Objects;
}

template <typename Function>
FARPROC Address(Function* function) {
    return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(function));
}

// ---- The driver ---------------------------------------------------------------------------------

constexpr int kWidth = 80;
constexpr int kHeight = 70;
constexpr RECT kPreview = {10, 10, 70, 60};

void PaintWithin(const PrintAreaData* area) {
    static HDC canvas = CreateCompatibleDC(nullptr);
    static DWORD* pixels = [] {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = kWidth;
        info.bmiHeader.biHeight = -kHeight;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* memory = nullptr;
        SelectObject(canvas, CreateDIBSection(canvas, &info, DIB_RGB_COLORS, &memory, nullptr, 0));
        return static_cast<DWORD*>(memory);
    }();
    for (const bool isPortrait : {false, true}) {
        std::fill_n(pixels, kWidth * kHeight, 0u);
        PaintAreaPreview(canvas, kPreview, isPortrait, area);
        for (int at = 0; at < kWidth * kHeight; ++at) {
            const POINT place = {at % kWidth, at / kWidth};
            Require(PtInRect(&kPreview, place) || (pixels[at] & 0xFFFFFF) == 0,
                    "a picture in its place");
        }
    }
}

void UseArea(const AreaDesignLibrary& library, AreaSource source, DWORD index) {
    WCHAR name[kAreaNameLength];
    GetAreaName(library, source, index, name);
    Require(std::find(std::begin(name), std::end(name), WCHAR{0}) != std::end(name), "a name ends");
    PrintAreaData* copy = CopyArea(library, source, index);
    Require(designer.Areas.empty(), "nothing is kept of what was given");
    PaintWithin(copy);
    FreePrintAreaData(copy);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    bytes.Begin(data, size);
    AreaDesignLibrary library = {};
    const FARPROC entries[] = {Address(NewDialog), Address(Finish), nullptr,
                               Address(Show),      Address(Name),   Address(Data),
                               Address(Release),   Address(List)};
    std::copy(std::begin(entries), std::end(entries), library.EntryPoints);
    library.IsLoaded = 1;
    for (int turn = 0; turn < 4; ++turn) {
        const AreaSide side = turn % 2 == 0 ? kFrontArea : kBackArea;
        DWORD count = 0;
        if (ListAreas(library, side, {}, count)) {
            Require(count <= kMostAreas, "a count within its limit");
            for (DWORD i = 0; i < std::min<DWORD>(count, 3); ++i) {
                UseArea(library, {nullptr, library.Enumerations[side]}, i);
            }
        }
        if (AreaDesignerObject* dialog = NewDesigner(library, {})) {
            PrintAreaParams params = {};
            if (RunDesigner(library, dialog, params)) {
                UseArea(library, {dialog, nullptr}, params.AreaIndex);
            }
            EndDesigner(library, dialog);
        }
    }
    UnloadAreaDesigner(library);
    Require(designer.Objects == 0, "every object is finished once");
    return 0;
}
