// The print-area designer: its records, its calls.
#include "companions/area_designer.h"

#include "core/card_terms.h"
#include "core/driver_files.h"
#include "core/text.h"
#include "core/ui_language.h"

#include <strsafe.h>

#include <algorithm>

namespace {

// Each entry point as the library exports it; `unused` arguments are 0.
using NewPrintAreaDlg = BYTE WINAPI(void* unused, const char* driver, AreaDesignerObject** designer,
                                    DWORD_PTR unused2, DWORD_PTR unused3);
using ShowDoModalDialog = DWORD WINAPI(AreaDesignerObject* designer, DWORD always1,
                                       PrintAreaParams* params, DWORD* outcome);
using CreateEnumPrntAreaClass = BYTE WINAPI(AreaEnumeration** enumeration, const char* driver,
                                            DWORD always1, PrintAreaParams* params, DWORD* count);
using DelPrntAreaDlgOrEnumClass = void WINAPI(AreaDesignerObject* designer,
                                              AreaEnumeration* enumeration);
using GetPrintAreaName = BYTE WINAPI(AreaDesignerObject* designer, AreaEnumeration* enumeration,
                                     DWORD area, char* name, DWORD* size);
using GetPrintAreaData = DWORD WINAPI(AreaDesignerObject* designer, AreaEnumeration* enumeration,
                                      DWORD area, PrintAreaData** data);
using ReleasePrintAreaData = void WINAPI(AreaDesignerObject* designer, AreaEnumeration* enumeration,
                                         PrintAreaData* data);

// In the order of AreaDesignLibrary. One is never called, but a library without it is another one.
enum EntryPoint {
    kNewPrintAreaDlg,
    kDelPrntAreaDlgOrEnumClass,
    kEnumPrintAreaFiles,
    kShowDoModalDialog,
    kGetPrintAreaName,
    kGetPrintAreaData,
    kReleasePrintAreaData,
    kCreateEnumPrntAreaClass,
};
constexpr const char* kEntryPoints[] = {
    "NewPrintAreaDlg",      "DelPrntAreaDlgOrEnumClass", "EnumPrintAreaFiles",
    "ShowDoModalDialog",    "GetPrintAreaName",          "GetPrintAreaData",
    "ReleasePrintAreaData", "CreateEnumPrntAreaClass",
};
static_assert(std::size(kEntryPoints) == std::size(AreaDesignLibrary{}.EntryPoints));

template <typename Function>
Function* Entry(const AreaDesignLibrary& library, EntryPoint entry) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(library.EntryPoints[entry]));
}

bool FindEntryPoints(AreaDesignLibrary& library) {
    for (size_t i = 0; i < std::size(kEntryPoints); ++i) {
        library.EntryPoints[i] = GetProcAddress(library.Module, kEntryPoints[i]);
        if (library.EntryPoints[i] == nullptr) {
            return false;
        }
    }
    return true;
}

// False when memory or room is short; the text is empty then.
template <size_t Size>
bool Narrow(const WCHAR* text, char (&narrow)[Size]) {
    const int length = WideCharToMultiByte(CP_ACP, 0, text, -1, narrow, static_cast<int>(Size),
                                           nullptr, nullptr);
    narrow[length == 0 ? 0 : Size - 1] = 0;
    return length != 0;
}

}  // namespace

// ---- Areas --------------------------------------------------------------------------------------

namespace {

// Far more than a card has room for. A chain without an end is longer.
constexpr size_t kMostBlocks = 0x10000;

template <typename Record>
Record* CopyRecord(const Record& record) {
    auto* copy = static_cast<Record*>(GlobalAlloc(GMEM_FIXED, sizeof(Record)));
    if (copy != nullptr) {
        *copy = record;
    }
    return copy;
}

// Copies a chain to where its first block is pointed at; what was copied stays there on failure, as
// a chain with an end.
bool CopyBlocks(const PrintAreaBlock* block, PrintAreaBlock** place) {
    for (size_t i = 0; block != nullptr; block = block->Next, ++i) {
        *place = i < kMostBlocks ? CopyRecord(*block) : nullptr;
        if (*place == nullptr) {
            return false;
        }
        place = &(*place)->Next;
    }
    return true;
}

}  // namespace

PrintAreaData* CopyPrintAreaData(const PrintAreaData* area) {
    PrintAreaData* copy = area == nullptr ? nullptr : CopyRecord(*area);
    if (copy != nullptr && !CopyBlocks(area->FirstBlock, &copy->FirstBlock)) {
        FreePrintAreaData(copy);
    }
    return copy;
}

void FreePrintAreaData(PrintAreaData*& copy) {
    if (copy == nullptr) {
        return;
    }
    for (PrintAreaBlock* block = copy->FirstBlock; block != nullptr;) {
        PrintAreaBlock* next = block->Next;
        GlobalFree(block);
        block = next;
    }
    GlobalFree(copy);
    copy = nullptr;
}

// ---- Folders ------------------------------------------------------------------------------------

namespace {

bool ReadApplicationDataFolder(SessionKey access, WCHAR (&folder)[MAX_PATH]) {
    constexpr const WCHAR* kSession = TEXT("Volatile Environment");
    HKEY key = nullptr;
    const LSTATUS opened =
        access == SessionKey::kMadeWhenMissing
            ? RegCreateKeyExW(HKEY_CURRENT_USER, kSession, 0, nullptr, REG_OPTION_NON_VOLATILE,
                              KEY_QUERY_VALUE, nullptr, &key, nullptr)
            : RegOpenKeyExW(HKEY_CURRENT_USER, kSession, 0, KEY_QUERY_VALUE, &key);
    if (opened != ERROR_SUCCESS) {
        return false;
    }
    std::fill(std::begin(folder), std::end(folder), WCHAR{0});
    DWORD size = sizeof(folder);
    const LSTATUS read = RegQueryValueExW(key, TEXT("APPDATA"), nullptr, nullptr,
                                          reinterpret_cast<BYTE*>(folder), &size);
    RegCloseKey(key);
    folder[MAX_PATH - 1] = 0;
    return read == ERROR_SUCCESS;
}

}  // namespace

bool FindAreaFolders(AreaFolders& folders, SessionKey key) {
    WCHAR applicationData[MAX_PATH];
    if (!ReadApplicationDataFolder(key, applicationData)) {
        return false;
    }
    WCHAR path[kDriverPathLength];
    StringCchPrintfW(path, kDriverPathLength, TEXT("%s\\Mirv\\PrtArea\\"), applicationData);
    if (!Narrow(path, folders.Areas)) {
        return false;
    }
    DriverFilePath(path, TEXT(""));
    return Narrow(path, folders.Driver);
}

// ---- Parameters ---------------------------------------------------------------------------------

namespace {

// What else is on a side of the card, by CardTypeCode.
struct Surfaces {
    BYTE Sides[kAreaSides];
};
constexpr Surfaces kSurfaces[] = {{{3, 3}}, {{4, 3}}, {{1, 3}}, {{3, 2}}, {{1, 2}}};
constexpr Surfaces kOtherSurfaces = {{3, 3}};

BYTE SurfaceOf(BYTE cardType, AreaSide side) {
    return (cardType < std::size(kSurfaces) ? kSurfaces[cardType] : kOtherSurfaces).Sides[side];
}

// The list and the designer take the card's extents in opposite orders.
enum class FirstOfPortrait { kLong, kShort };

PrintAreaParams Params(const DevModeRecord& record, AreaSide side, const AreaFolders& folders,
                       FirstOfPortrait order) {
    const CardExtent& extent = CardExtentOf(record.Public.dmPaperSize);
    const bool isPortrait = record.Public.dmOrientation == DMORIENT_PORTRAIT;
    const bool isLongFirst = isPortrait == (order == FirstOfPortrait::kLong);
    const auto longSide = static_cast<DWORD>(extent.Long);
    const auto shortSide = static_cast<DWORD>(extent.Short);
    PrintAreaParams params = {};
    params.Size = sizeof(params);
    params.Always1At4 = 1;
    params.Surface = SurfaceOf(record.Private.CardType, side);
    params.Orientation = isPortrait ? 1 : 2;
    params.FirstExtent = isLongFirst ? longSide : shortSide;
    params.SecondExtent = isLongFirst ? shortSide : longSide;
    params.HorizontalDpi = 300;
    params.VerticalDpi = 300;
    params.Always1At24 = 1;
    params.Always20hAt25 = 0x20;
    params.Driver = folders.Driver;
    params.Areas = folders.Areas;
    return params;
}

}  // namespace

PrintAreaParams EnumerationParams(const DevModeRecord& record, AreaSide side,
                                  const AreaFolders& folders) {
    return Params(record, side, folders, FirstOfPortrait::kLong);
}

PrintAreaParams DesignerParams(const DevModeRecord& record, AreaSide side,
                               const AreaFolders& folders, WORD area) {
    PrintAreaParams params = Params(record, side, folders, FirstOfPortrait::kShort);
    params.AreaIndex = area;
    WCHAR file[MAX_PATH];
    DesignerLanguageFile(file);
    Narrow(file, params.LanguageFile);
    return params;
}

void DesignerLanguageFile(WCHAR (&file)[MAX_PATH]) {
    StringCchPrintfW(file, MAX_PATH, TEXT("PA%skpd.ini"),
                     UiLanguageOf(GetUserDefaultUILanguage()).Suffix);
}

// ---- The library --------------------------------------------------------------------------------

void LoadAreaDesigner(AreaDesignLibrary& library) {
    library = {};
    library.Module = LoadDriverLibrary(TEXT("AreaDesign.dll"));
    if (library.Module == nullptr) {
        return;
    }
    if (FindEntryPoints(library)) {
        library.IsLoaded = 1;
    } else {
        FreeLibrary(library.Module);
        library = {};
    }
}

void UnloadAreaDesigner(AreaDesignLibrary& library) {
    if (library.IsLoaded == 0) {
        return;
    }
    for (AreaEnumeration* enumeration : library.Enumerations) {
        if (enumeration != nullptr) {
            Entry<DelPrntAreaDlgOrEnumClass>(library, kDelPrntAreaDlgOrEnumClass)(nullptr,
                                                                                  enumeration);
        }
    }
    FreeLibrary(library.Module);
    library = {};
}

bool ListAreas(AreaDesignLibrary& library, AreaSide side, const PrintAreaParams& params,
               DWORD& count) {
    AreaEnumeration*& enumeration = library.Enumerations[side];
    if (enumeration != nullptr) {
        Entry<DelPrntAreaDlgOrEnumClass>(library, kDelPrntAreaDlgOrEnumClass)(nullptr, enumeration);
        enumeration = nullptr;
    }
    PrintAreaParams given = params;
    AreaEnumeration* listed = nullptr;
    count = 0;
    if (Entry<CreateEnumPrntAreaClass>(library, kCreateEnumPrntAreaClass)(
            &listed, params.Driver, 1, &given, &count) == 0) {
        return false;
    }
    enumeration = listed;
    count = std::min(count, kMostAreas);
    return enumeration != nullptr;
}

bool GetAreaName(const AreaDesignLibrary& library, AreaSource source, DWORD area,
                 WCHAR (&name)[kAreaNameLength]) {
    char narrow[kAreaNameLength] = {};
    DWORD size = kAreaNameLength;
    const BYTE given = Entry<GetPrintAreaName>(library, kGetPrintAreaName)(
        source.Designer, source.Enumeration, area, narrow, &size);
    narrow[kAreaNameLength - 1] = 0;
    std::fill(std::begin(name), std::end(name), WCHAR{0});
    MultiByteToWideChar(CP_ACP, 0, narrow, -1, name, static_cast<int>(kAreaNameLength));
    return given != 0;
}

PrintAreaData* CopyArea(const AreaDesignLibrary& library, AreaSource source, DWORD area) {
    PrintAreaData* data = nullptr;
    Entry<GetPrintAreaData>(library, kGetPrintAreaData)(source.Designer, source.Enumeration, area,
                                                        &data);
    PrintAreaData* copy = CopyPrintAreaData(data);
    if (data != nullptr) {
        Entry<ReleasePrintAreaData>(library, kReleasePrintAreaData)(source.Designer,
                                                                    source.Enumeration, data);
    }
    return copy;
}

AreaDesignerObject* NewDesigner(const AreaDesignLibrary& library, const AreaFolders& folders) {
    AreaDesignerObject* designer = nullptr;
    const BYTE made =
        Entry<NewPrintAreaDlg>(library, kNewPrintAreaDlg)(nullptr, folders.Driver, &designer, 0, 0);
    return made != 0 ? designer : nullptr;
}

bool RunDesigner(const AreaDesignLibrary& library, AreaDesignerObject* designer,
                 PrintAreaParams& params) {
    constexpr DWORD kCancelled = 2;
    constexpr DWORD kAccepted = 1;
    DWORD outcome = kCancelled;
    Entry<ShowDoModalDialog>(library, kShowDoModalDialog)(designer, 1, &params, &outcome);
    return outcome == kAccepted;
}

void EndDesigner(const AreaDesignLibrary& library, AreaDesignerObject* designer) {
    Entry<DelPrntAreaDlgOrEnumClass>(library, kDelPrntAreaDlgOrEnumClass)(designer, nullptr);
}

// ---- The search path ----------------------------------------------------------------------------

namespace {

constexpr const WCHAR* kPath = TEXT("PATH");

// `size` characters; none when memory is short.
GlobalBlock<WCHAR> NewText(size_t size) {
    return GlobalBlock<WCHAR>::Allocate(size * sizeof(WCHAR));
}

}  // namespace

DesignerSearchPath::DesignerSearchPath() {
    // A path that cannot be read could not be put back.
    const DWORD length = GetEnvironmentVariableW(kPath, nullptr, 0);
    if (length == 0 && GetLastError() != ERROR_ENVVAR_NOT_FOUND) {
        return;
    }
    if (length != 0) {
        before_ = NewText(length);
        if (!before_ || GetEnvironmentVariableW(kPath, before_.get(), length) != length - 1) {
            return;
        }
    }
    WCHAR folder[kDriverPathLength];
    DriverFolderPath(folder);
    const size_t room = length + WideView(folder).size() + 2;
    if (const GlobalBlock<WCHAR> longer = NewText(room)) {
        StringCchPrintfW(longer.get(), room, TEXT("%s;%s"), before_ ? before_.get() : TEXT(""),
                         folder);
        isChanged_ = SetEnvironmentVariableW(kPath, longer.get()) != 0;
    }
}

DesignerSearchPath::~DesignerSearchPath() {
    if (isChanged_) {
        SetEnvironmentVariableW(kPath, before_.get());
    }
}
