// The platform's file dialogs.
#include "ui/common/file_dialog.h"

#include <commdlg.h>

bool AskForFile(HWND page, const FileQuestion& question, WCHAR (&path)[kFilePathLength]) {
    OPENFILENAMEW dialog = {};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = page;
    dialog.lpstrTitle = question.Title;
    dialog.lpstrFilter = question.Filter;
    dialog.lpstrFile = path;
    dialog.nMaxFile = kFilePathLength;
    dialog.Flags = question.Flags;
    if (question.Saves ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog)) {
        return true;
    }
    if (const DWORD error = CommDlgExtendedError(); error != 0) {
        question.TellFailure(error);
    }
    return false;
}
