// The platform's dialogs in which the user names a file.
#pragma once

#include <windows.h>

/// Characters of a path, terminator included.
constexpr size_t kFilePathLength = 260;

struct FileQuestion {
    bool Saves = false;
    const WCHAR* Title = nullptr;  ///< the platform's when there is none
    const WCHAR* Filter;           ///< pairs of a text and a pattern, and an empty text
    DWORD Flags;
    void (*TellFailure)(DWORD error);  ///< the dialog could not be shown, or not take the path
};

/// What a failure is told with.
inline constexpr const WCHAR* kFileDialogFailure = TEXT("Can't open file , Error code : %d ");

/// `path` is the initial name and becomes the chosen one. False when none was chosen; `path` is
/// then of no use.
bool AskForFile(HWND page, const FileQuestion& question, WCHAR (&path)[kFilePathLength]);
