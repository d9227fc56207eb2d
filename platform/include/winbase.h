// Kernel services: memory, last error, modules, files, folders, environment and private profiles.
#pragma once

#include <windef.h>
#include <winerror.h>

#define GMEM_FIXED 0x0000
#define GMEM_ZEROINIT 0x0040
#define GPTR (GMEM_FIXED | GMEM_ZEROINIT)
#define HEAP_ZERO_MEMORY 0x00000008

#define DLL_PROCESS_DETACH 0
#define DLL_PROCESS_ATTACH 1
#define DLL_THREAD_ATTACH 2
#define DLL_THREAD_DETACH 3

#define INVALID_HANDLE_VALUE ((HANDLE)(LONG_PTR)-1)
#define INVALID_FILE_ATTRIBUTES ((DWORD)-1)
#define INVALID_FILE_SIZE ((DWORD)-1)
#define GENERIC_READ 0x80000000u
#define GENERIC_WRITE 0x40000000u
#define FILE_SHARE_READ 0x00000001
#define CREATE_NEW 1
#define CREATE_ALWAYS 2
#define OPEN_EXISTING 3
#define FILE_ATTRIBUTE_READONLY 0x00000001
#define FILE_ATTRIBUTE_DIRECTORY 0x00000010
#define FILE_ATTRIBUTE_ARCHIVE 0x00000020
#define FILE_ATTRIBUTE_NORMAL 0x00000080

struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};

struct WIN32_FIND_DATAW {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD dwReserved0;
    DWORD dwReserved1;
    WCHAR cFileName[MAX_PATH];
    WCHAR cAlternateFileName[14];
};
using LPWIN32_FIND_DATAW = WIN32_FIND_DATAW*;

struct SECURITY_ATTRIBUTES;
struct OVERLAPPED;

#define MEM_COMMIT 0x00001000
#define MEM_RESERVE 0x00002000
#define MEM_RELEASE 0x00008000
#define MEM_FREE 0x00010000
#define PAGE_NOACCESS 0x01
#define PAGE_READONLY 0x02
#define PAGE_READWRITE 0x04
#define PAGE_GUARD 0x100

struct MEMORY_BASIC_INFORMATION {
    PVOID BaseAddress;
    PVOID AllocationBase;
    DWORD AllocationProtect;
    WORD PartitionId;
    SIZE_T RegionSize;
    DWORD State;
    DWORD Protect;
    DWORD Type;
};

extern "C" {
DWORD WINAPI GetLastError(void);
void WINAPI SetLastError(DWORD error);

HANDLE WINAPI HeapCreate(DWORD options, SIZE_T initialSize, SIZE_T maximumSize);
BOOL WINAPI HeapDestroy(HANDLE heap);
LPVOID WINAPI HeapAlloc(HANDLE heap, DWORD flags, SIZE_T size);
HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T size);
HGLOBAL WINAPI GlobalFree(HGLOBAL block);
/// Whole pages, zeroed; here always committed, readable and writable, at any address.
LPVOID WINAPI VirtualAlloc(LPVOID address, SIZE_T size, DWORD type, DWORD protection);
/// A block of VirtualAlloc's as a whole.
BOOL WINAPI VirtualFree(LPVOID address, SIZE_T size, DWORD type);
/// Describes the pages of equal rights from the one that holds the address on. Gives the bytes
/// written, 0 for an address that no program can have.
SIZE_T WINAPI VirtualQuery(LPCVOID address, MEMORY_BASIC_INFORMATION* memory, SIZE_T size);

HMODULE WINAPI LoadLibraryW(LPCWSTR path);
HMODULE WINAPI LoadLibraryA(LPCSTR path);
BOOL WINAPI FreeLibrary(HMODULE module);
FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name);
HMODULE WINAPI GetModuleHandleW(LPCWSTR name);
HRSRC WINAPI FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type);
HGLOBAL WINAPI LoadResource(HMODULE module, HRSRC resource);
LPVOID WINAPI LockResource(HGLOBAL resource);
DWORD WINAPI SizeofResource(HMODULE module, HRSRC resource);
DWORD WINAPI GetCurrentThreadId(void);
int WINAPI MulDiv(int number, int numerator, int denominator);

HANDLE WINAPI CreateFileW(LPCWSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                          DWORD disposition, DWORD attributes, HANDLE templateFile);
HANDLE WINAPI CreateFileA(LPCSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                          DWORD disposition, DWORD attributes, HANDLE templateFile);
BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD read, OVERLAPPED* overlapped);
BOOL WINAPI WriteFile(HANDLE file, LPCVOID data, DWORD size, LPDWORD written,
                      OVERLAPPED* overlapped);
DWORD WINAPI GetFileSize(HANDLE file, LPDWORD high);
BOOL WINAPI CloseHandle(HANDLE handle);
DWORD WINAPI GetFileAttributesW(LPCWSTR path);
HANDLE WINAPI FindFirstFileW(LPCWSTR pattern, LPWIN32_FIND_DATAW found);
BOOL WINAPI FindNextFileW(HANDLE search, LPWIN32_FIND_DATAW found);
BOOL WINAPI FindClose(HANDLE search);

UINT WINAPI GetSystemDirectoryW(LPWSTR buffer, UINT length);
UINT WINAPI GetWindowsDirectoryW(LPWSTR buffer, UINT length);
DWORD WINAPI GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD length);
BOOL WINAPI SetEnvironmentVariableW(LPCWSTR name, LPCWSTR value);
DWORD WINAPI GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR defaultValue,
                                      LPWSTR buffer, DWORD length, LPCWSTR path);
}
