// The names of the print areas, and the lists to choose them from.
#include "ui/pages/print_area/print_area_settings.h"

#include "core/printer_key.h"
#include "core/text.h"
#include "ui/common/controls.h"

#include <strsafe.h>

#include <algorithm>

// ---- Names --------------------------------------------------------------------------------------

namespace {

constexpr const WCHAR* kStoredNames[kAreaPanels][kAreaSides] = {
    {TEXT("OvercoatFrontPrintArea"), TEXT("OvercoatBackPrintArea")},
    {TEXT("ResinFrontPrintArea"), TEXT("ResinBackPrintArea")},
    {TEXT("LaminationFrontPrintArea"), TEXT("LaminationBackPrintArea")},
};

void Store(HKEY key, const WCHAR* value, const AreaName& name) {
    RegSetValueExW(key, value, 0, REG_SZ, reinterpret_cast<const BYTE*>(name.Text),
                   sizeof(name.Text));
}

void LoadName(HKEY key, const WCHAR* value, AreaName& name) {
    if (!ReadAreaName(key, value, name)) {
        SetAreaName(name, kStandardArea);
        Store(key, value, name);
    }
}

void StoreText(HKEY key, const WCHAR* value, const AreaName& name) {
    const size_t length = WideView(name.Text).size();
    RegSetValueExW(key, value, 0, REG_SZ, reinterpret_cast<const BYTE*>(name.Text),
                   static_cast<DWORD>((length + 1) * sizeof(WCHAR)));
}

}  // namespace

void SetAreaName(AreaName& name, const WCHAR* text) {
    name = {};
    StringCchCopyW(name.Text, kAreaNameLength, text);
}

bool ReadAreaName(HKEY key, const WCHAR* value, AreaName& name) {
    AreaName stored = {};
    DWORD size = sizeof(stored.Text);
    if (RegQueryValueExW(key, value, nullptr, nullptr, reinterpret_cast<BYTE*>(stored.Text),
                         &size) != ERROR_SUCCESS) {
        return false;
    }
    stored.Text[kAreaNameLength - 1] = 0;
    SetAreaName(name, stored.Text);
    return true;
}

const WCHAR* StoredAreaName(int panel, int side) {
    return kStoredNames[panel][side];
}

void LoadPrintAreaNames(const WCHAR* printer, PrintAreaNames& names) {
    for (auto& panel : names.Names) {
        for (AreaName& name : panel) {
            SetAreaName(name, kStandardArea);
        }
    }
    PrinterKey key(printer);
    if (!key.Open(KEY_READ | KEY_WRITE)) {
        key.Create(KEY_READ | KEY_WRITE);
        return;
    }
    for (int panel = 0; panel < kAreaPanels; ++panel) {
        for (int side = 0; side < kAreaSides; ++side) {
            LoadName(key.get(), kStoredNames[panel][side], names.Names[panel][side]);
        }
    }
}

void SavePrintAreaNames(const WCHAR* printer, const PrintAreaNames& names) {
    PrinterKey key(printer);
    if (!key.Open(KEY_WRITE)) {
        return;
    }
    for (int side = 0; side < kAreaSides; ++side) {
        for (int panel = 0; panel < kAreaPanels; ++panel) {
            Store(key.get(), kStoredNames[panel][side], names.Names[panel][side]);
        }
    }
}

void LoadEraseAreaName(const WCHAR* printer, AreaName& name) {
    SetAreaName(name, kStandardArea);
    PrinterKey key(printer);
    if (key.Create(KEY_READ | KEY_WRITE) && !ReadAreaName(key.get(), kStoredEraseArea, name)) {
        StoreText(key.get(), kStoredEraseArea, name);
    }
}

void SaveEraseAreaName(const WCHAR* printer, const AreaName& name) {
    PrinterKey key(printer);
    if (key.Create(KEY_READ | KEY_WRITE)) {
        StoreText(key.get(), kStoredEraseArea, name);
    }
}

// ---- Lists --------------------------------------------------------------------------------------

namespace {

AreaSource Listed(const AreaDesignLibrary& library, const AreaChoice& choice) {
    return {nullptr, library.Enumerations[choice.Side]};
}

void ReplaceArea(AreaChoice& choice, const AreaDesignLibrary& library, AreaSource source,
                 WORD area) {
    FreePrintAreaData(choice.Area);
    choice.Area = CopyArea(library, source, area);
}

// Gives the index of the last area of the choice's name, 0 without one.
WORD FillList(HWND list, const AreaDesignLibrary& library, const AreaChoice& choice, DWORD count) {
    DWORD chosen = 0;
    for (DWORD area = 0; area < count; ++area) {
        WCHAR name[kAreaNameLength];
        GetAreaName(library, Listed(library, choice), area, name);
        SendMessageW(list, CB_INSERTSTRING, area, reinterpret_cast<LPARAM>(name));
        SendMessageW(list, CB_SETITEMDATA, area, static_cast<LPARAM>(area));
        if (TextEqualsInAnyCase(name, choice.Name->Text)) {
            chosen = area;
        }
    }
    return static_cast<WORD>(chosen);
}

void ListForSide(HWND dialog, const DriverContext& context, AreaDesignLibrary& library,
                 const AreaFolders& folders, AreaChoice& choice) {
    DWORD count = 0;
    if (!ListAreas(library, choice.Side,
                   EnumerationParams(context.WorkingDevMode, choice.Side, folders), count)) {
        return;
    }
    choice.Index = FillList(GetDlgItem(dialog, choice.List), library, choice, count);
    SelectItem(dialog, choice.List, choice.Index);
    ReplaceArea(choice, library, Listed(library, choice), choice.Index);
}

// True when the user accepted an area; it is the choice's then if the designer can name it.
bool Design(const DriverContext& context, const AreaDesignLibrary& library,
            AreaDesignerObject* designer, const AreaFolders& folders, AreaChoice& choice) {
    PrintAreaParams params =
        DesignerParams(context.WorkingDevMode, choice.Side, folders, choice.Index);
    if (!RunDesigner(library, designer, params)) {
        return false;
    }
    const AreaSource source = {designer, nullptr};
    WCHAR name[kAreaNameLength];
    if (GetAreaName(library, source, params.AreaIndex, name)) {
        SetAreaName(*choice.Name, name);
        ReplaceArea(choice, library, source, params.AreaIndex);
    }
    return true;
}

}  // namespace

void FillPrintAreaLists(HWND dialog, const DriverContext& context, AreaDesignLibrary& library,
                        std::span<AreaChoice> choices) {
    if (library.IsLoaded == 0) {
        return;
    }
    for (const AreaChoice& choice : choices) {
        SendDlgItemMessageW(dialog, choice.List, CB_RESETCONTENT, 0, 0);
    }
    AreaFolders folders;
    if (!FindAreaFolders(folders)) {
        return;
    }
    for (AreaChoice& choice : choices) {
        ListForSide(dialog, context, library, folders, choice);
    }
}

void TakeAreaSelection(HWND dialog, const AreaDesignLibrary& library, AreaChoice& choice) {
    const int selected = SelectedItem(dialog, choice.List);
    if (selected < 0) {
        return;
    }
    WCHAR name[kAreaNameLength];
    if (!ItemText(dialog, choice.List, selected, name))
        return;
    choice.Index = static_cast<WORD>(selected);
    SetAreaName(*choice.Name, name);
    if (library.IsLoaded != 0) {
        ReplaceArea(choice, library, Listed(library, choice), choice.Index);
    }
}

bool EditPrintArea(HWND dialog, const DriverContext& context, AreaDesignLibrary& library,
                   std::span<AreaChoice> choices, AreaChoice& edited, SessionKey key) {
    if (library.IsLoaded == 0) {
        return false;
    }
    const DesignerSearchPath path;
    AreaFolders folders;
    if (!FindAreaFolders(folders, key)) {
        return false;
    }
    bool isAccepted = false;
    if (AreaDesignerObject* designer = NewDesigner(library, folders)) {
        isAccepted = Design(context, library, designer, folders, edited);
        EndDesigner(library, designer);
    }
    FillPrintAreaLists(dialog, context, library, choices);
    return isAccepted;
}

void ReleasePrintAreas(AreaDesignLibrary& library, std::span<AreaChoice> choices) {
    for (AreaChoice& choice : choices) {
        FreePrintAreaData(choice.Area);
        choice.Index = 0;
    }
    UnloadAreaDesigner(library);
}
