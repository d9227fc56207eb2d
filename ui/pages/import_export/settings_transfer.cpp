// Files are named in the platform's dialogs, and opened by their names in the ANSI code page.
#include "ui/pages/import_export/settings_transfer.h"

#include "core/message.h"
#include "core/owners.h"
#include "ui/common/file_dialog.h"
#include "ui/pages/color/color_page.h"
#include "ui/pages/device_options/device_options_page.h"
#include "ui/pages/import_export/settings_parts_dialog.h"

#include <commdlg.h>
#include <strsafe.h>

#include <algorithm>

namespace {

// These messages are English for every user.
void ShowError(const WCHAR* text) {
    ShowMessage(text, TEXT("Error"));
}

// ---- File dialogs -----------------------------------------------------------------------------

constexpr WCHAR kFilter[] = TEXT("Card Printer Driver Files (*.mcs)\0*.mcs\0");

void TellFailure(DWORD error) {
    WCHAR text[64];
    StringCchPrintfW(text, std::size(text), kFileDialogFailure, static_cast<int>(error));
    ShowError(text);
}

constexpr FileQuestion kExportTo = {
    .Saves = true, .Filter = kFilter, .Flags = OFN_OVERWRITEPROMPT, .TellFailure = TellFailure};
constexpr FileQuestion kImportFrom = {.Filter = kFilter,
                                      .Flags = OFN_READONLY | OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST,
                                      .TellFailure = TellFailure};

// ---- Files ------------------------------------------------------------------------------------

class OpenedFile {
  public:
    OpenedFile(const WCHAR* path, DWORD access, DWORD disposition) {
        char name[kFilePathLength * 3] = {};
        if (WideCharToMultiByte(CP_ACP, 0, path, -1, name, sizeof(name), nullptr, nullptr) != 0) {
            handle_ = CreateFileA(name, access, FILE_SHARE_READ, nullptr, disposition,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
        }
    }
    OpenedFile(const OpenedFile&) = delete;
    OpenedFile& operator=(const OpenedFile&) = delete;
    ~OpenedFile() {
        if (*this) {
            CloseHandle(handle_);
        }
    }

    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

  private:
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};

struct FileBytes {
    GlobalBlock<BYTE> Block;
    DWORD Size = 0;

    std::span<const BYTE> All() const { return {Block.get(), Size}; }
};

bool Read(const WCHAR* path, FileBytes& bytes) {
    const OpenedFile file(path, GENERIC_READ, OPEN_EXISTING);
    if (!file) {
        return false;
    }
    DWORD sizeAbove = 0;
    const DWORD size = GetFileSize(file.get(), &sizeAbove);
    if (size == INVALID_FILE_SIZE || sizeAbove != 0) {
        return false;
    }
    bytes.Block = GlobalBlock<BYTE>::Allocate(std::max<DWORD>(size, 1));
    return bytes.Block && ReadFile(file.get(), bytes.Block.get(), size, &bytes.Size, nullptr);
}

bool ReadSettings(const WCHAR* path, FileBytes& bytes) {
    const bool read = Read(path, bytes);
    if (!read) {
        ShowError(TEXT("Can't open file!"));
    }
    return read;
}

// ---- Import -----------------------------------------------------------------------------------

// True when there is nothing to tell.
bool Tell(SettingsStatus status) {
    switch (status) {
        case SettingsStatus::kNoHeader:
            ShowError(TEXT("Can't find file Header"));
            return false;
        case SettingsStatus::kNoKeyword:
            ShowError(TEXT("Can't find file Keyword"));
            return false;
        case SettingsStatus::kBadRecord:
            ShowError(TEXT("Bad File !"));
            return false;
        case SettingsStatus::kDone:
            break;
    }
    return true;
}

// The parts that the file offers; 0 after it was told why there are none.
DWORD OfferedParts(const WCHAR* path) {
    FileBytes file;
    DWORD parts = 0;
    if (!ReadSettings(path, file) || !Tell(ScanSettings(file.All(), &parts))) {
        return 0;
    }
    if (parts == 0) {
        ShowError(TEXT("Can't find out any useful export data!"));
    }
    return parts;
}

void ShowApplied(SettingsParts part, void* context) {
    FillPage(part == kDeviceOptionSettings ? kDeviceOptionsPage : kColorPage,
             *static_cast<DriverContext*>(context));
}

}  // namespace

void ExportSettings(HWND page, const DriverContext& context) {
    DWORD parts = 0;
    if (RunSettingsPartsDialog(page, &parts) != IDOK || parts == 0) {
        return;
    }
    WCHAR path[kFilePathLength] = TEXT("Export.mcs");
    if (!AskForFile(page, kExportTo, path)) {
        return;
    }
    if (const OpenedFile file(path, GENERIC_WRITE, CREATE_ALWAYS); file) {
        BYTE bytes[kLargestSettingsFile];
        const size_t size = WriteSettings(context.WorkingDevMode, parts, bytes);
        DWORD written;
        WriteFile(file.get(), bytes, static_cast<DWORD>(size), &written, nullptr);
    }
}

void ImportSettings(HWND page, DriverContext& context) {
    WCHAR path[kFilePathLength] = {};
    if (!AskForFile(page, kImportFrom, path)) {
        return;
    }
    DWORD parts = OfferedParts(path);
    if (parts == 0 || RunSettingsPartsDialog(page, &parts) != IDOK || parts == 0) {
        return;
    }
    FileBytes file;
    if (ReadSettings(path, file)) {
        Tell(TakeSettings(file.All(), parts, context));
    }
}

SettingsStatus TakeSettings(std::span<const BYTE> file, DWORD parts, DriverContext& context) {
    return ApplySettings(file, parts, context.WorkingDevMode, ShowApplied, &context);
}
