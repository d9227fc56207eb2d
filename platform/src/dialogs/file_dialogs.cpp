// The common file dialogs, answered by the host as the user would type and press OK.
#include <commdlg.h>

#include "dialogs/absence.h"

#include <deque>

namespace {

using host::WideString;

std::vector<host::FileDialog> shown;
std::deque<WideString> answers;
DWORD extendedError = 0;

// The filter's pairs up to the empty text that ends them.
WideString FilterOf(const WCHAR* filter) {
    if (filter == nullptr) {
        return {};
    }
    const WCHAR* end = filter;
    while (end[0] != 0 || end[1] != 0) {
        ++end;
    }
    return {filter, end};
}

// The folder that the dialog begins in, without a backslash at its end.
WideString FolderOf(const OPENFILENAMEW& dialog) {
    const WideString file = dialog.lpstrFile;
    const size_t end = file.find_last_of('\\');
    WideString folder = end != WideString::npos             ? file.substr(0, end)
                        : dialog.lpstrInitialDir != nullptr ? WideString(dialog.lpstrInitialDir)
                                                            : WideString();
    if (folder.empty()) {
        folder = TEXT("C:\\Users\\user\\Documents");
        std::filesystem::create_directories(host::DiskPath(folder.c_str()));
    }
    if (folder.back() == '\\') {
        folder.pop_back();
    }
    return folder;
}

// The path that the user means: in the dialog's folder, with the default extension.
WideString Complete(const OPENFILENAMEW& dialog, const WideString& folder, WideString path) {
    if (path.find_first_of(TEXT("\\/:")) == WideString::npos) {
        path = folder + TEXT("\\") + path;
    }
    const size_t name = path.find_last_of('\\') + 1;
    if (dialog.lpstrDefExt != nullptr && path.find('.', name) == WideString::npos) {
        path += TEXT(".") + WideString(dialog.lpstrDefExt);
    }
    return path;
}

bool Exists(const WideString& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// What the dialog itself says about the path before it closes; true when it may.
bool MayClose(const OPENFILENAMEW& dialog, const WideString& path, bool save) {
    const WCHAR* title = dialog.lpstrTitle != nullptr ? dialog.lpstrTitle
                         : save                       ? TEXT("Save As")
                                                      : TEXT("Open");
    if (!save && (dialog.Flags & OFN_FILEMUSTEXIST) != 0 && !Exists(path)) {
        const WideString text =
            path + TEXT("\nFile not found.\nCheck the file name and try again.");
        MessageBoxW(dialog.hwndOwner, text.c_str(), title, MB_OK | MB_ICONWARNING);
        return false;
    }
    const WideString folder = path.substr(0, path.find_last_of('\\'));
    if ((dialog.Flags & OFN_PATHMUSTEXIST) != 0 && !Exists(folder)) {
        const WideString text =
            path + TEXT("\nPath does not exist.\nCheck the path and try again.");
        MessageBoxW(dialog.hwndOwner, text.c_str(), title, MB_OK | MB_ICONWARNING);
        return false;
    }
    if (save && (dialog.Flags & OFN_OVERWRITEPROMPT) != 0 && Exists(path)) {
        const WideString text = path + TEXT(" already exists.\nDo you want to replace it?");
        return MessageBoxW(dialog.hwndOwner, text.c_str(), title, MB_YESNO | MB_ICONWARNING) ==
               IDYES;
    }
    return true;
}

BOOL GiveUp(DWORD error) {
    extendedError = error;
    return FALSE;
}

BOOL Give(OPENFILENAMEW* dialog, const WideString& path) {
    if (path.size() >= dialog->nMaxFile) {
        if (dialog->nMaxFile != 0) {
            dialog->lpstrFile[0] = static_cast<WCHAR>(path.size() + 1);  // what it takes
        }
        return GiveUp(FNERR_BUFFERTOOSMALL);
    }
    path.copy(dialog->lpstrFile, path.size());
    dialog->lpstrFile[path.size()] = 0;
    const size_t name = path.find_last_of('\\') + 1;
    const size_t dot = path.find_last_of('.');
    const bool hasExtension = dot != WideString::npos && dot > name && dot + 1 < path.size();
    dialog->nFileOffset = static_cast<WORD>(name);
    dialog->nFileExtension = static_cast<WORD>(hasExtension ? dot + 1 : 0);
    if (dialog->nFilterIndex == 0 && dialog->lpstrFilter != nullptr) {
        dialog->nFilterIndex = 1;
    }
    if (dialog->lpstrFileTitle != nullptr && dialog->nMaxFileTitle > path.size() - name) {
        path.copy(dialog->lpstrFileTitle, path.size() - name, name);
        dialog->lpstrFileTitle[path.size() - name] = 0;
    }
    return TRUE;
}

// The user types one path after the other till one is accepted, or gives up.
WideString Choose(const OPENFILENAMEW& dialog, bool save) {
    const host::Absence box(dialog.hwndOwner);
    const WideString folder = FolderOf(dialog);
    while (!answers.empty()) {
        const WideString typed = answers.front();
        answers.pop_front();
        if (typed.empty()) {
            return {};
        }
        const WideString path = Complete(dialog, folder, typed);
        if (MayClose(dialog, path, save)) {
            return path;
        }
    }
    return {};
}

BOOL Ask(OPENFILENAMEW* dialog, bool save) {
    extendedError = 0;
    if (dialog->lStructSize != sizeof(*dialog)) {
        return GiveUp(CDERR_STRUCTSIZE);
    }
    constexpr DWORD kKnownFlags = OFN_READONLY | OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY |
                                  OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST |
                                  OFN_EXPLORER | OFN_NOREADONLYRETURN;
    if (dialog->lpstrFile == nullptr || (dialog->Flags & ~kKnownFlags) != 0 ||
        dialog->lpfnHook != nullptr) {
        host::Unsupported("a file dialog with flags %#x, a hook or no room for a file",
                          dialog->Flags);
    }
    if (WideString(dialog->lpstrFile).find_first_of(TEXT("<>|\"")) != WideString::npos) {
        return GiveUp(FNERR_INVALIDFILENAME);
    }
    if (answers.empty()) {
        host::Unsupported("a file dialog that nobody answers");
    }
    shown.push_back({save, dialog->lpstrTitle == nullptr ? TEXT("") : dialog->lpstrTitle,
                     FilterOf(dialog->lpstrFilter), dialog->lpstrFile, dialog->Flags});
    const WideString path = Choose(*dialog, save);
    return path.empty() ? FALSE : Give(dialog, path);
}

}  // namespace

BOOL WINAPI GetOpenFileNameW(OPENFILENAMEW* dialog) {
    return Ask(dialog, false);
}

BOOL WINAPI GetSaveFileNameW(OPENFILENAMEW* dialog) {
    return Ask(dialog, true);
}

DWORD WINAPI CommDlgExtendedError() {
    return extendedError;
}

namespace host {

const std::vector<FileDialog>& FileDialogs() {
    return shown;
}

void AnswerFileDialog(const WideString& path) {
    answers.push_back(path);
}

void ResetFileDialogs() {
    shown.clear();
    answers.clear();
    extendedError = 0;
}

}  // namespace host
