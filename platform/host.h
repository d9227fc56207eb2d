// The one control interface of the stand-in: what a test or the tool sets up on the computer that
// the stand-in plays, what it reads back, and which call it makes fail.
#pragma once

#include <windows.h>
#include <winspool.h>

#include <filesystem>
#include <string>
#include <vector>

namespace host {

using WideString = std::basic_string<WCHAR>;

/// Makes a fresh computer: an empty drive, no printers, an empty registry, the process's own
/// environment left out, English user in the United States, code page 1252. Everything that was
/// open is dropped and every count starts from zero.
void Reset();

// ---- Files and folders ------------------------------------------------------------------------

/// The folder on disk that plays "C:\"; a temporary one, removed at exit and by Reset.
std::filesystem::path DriveFolder();
/// The folder on disk that plays GetSystemDirectoryW's "C:\Windows\system32".
std::filesystem::path SystemFolder();
/// The file on disk that a path of the platform names: backslashes and either case are accepted;
/// a drive letter other than C and a path without a drive stop the program.
std::filesystem::path DiskPath(LPCWSTR path);

// ---- Language and locale ----------------------------------------------------------------------

void SetUiLanguage(LANGID language);
/// Telephone country code of the user's locale (LOCALE_ICOUNTRY).
void SetCountry(int code);
/// What GetACP gives and CP_ACP means.
void SetCodePage(UINT codePage);

// ---- Environment ------------------------------------------------------------------------------

void SetEnvironment(const WideString& name, const WideString& value);

// ---- Printers ---------------------------------------------------------------------------------

struct Printer {
    WideString name;
    WideString model;  ///< the name of the driver
    WideString port = TEXT("LPT1:");
    DWORD attributes = PRINTER_ATTRIBUTE_LOCAL;
    std::vector<BYTE> defaultRecord;  ///< device mode record kept by the spooler; may be empty
};

/// Adds a printer, or replaces the one of that name; its stored printer data starts empty.
void AddPrinter(const Printer& printer);
void RemovePrinter(const WideString& name);

// ---- What the user was shown ------------------------------------------------------------------

struct MessageBox {
    WideString text;
    WideString title;
    UINT type;
    bool hasOwner;
};
const std::vector<MessageBox>& MessageBoxes();

// ---- Faults and counts ------------------------------------------------------------------------

/// Kinds of platform calls that can be counted and made to fail.
enum class Call { kHeap, kGlobal, kModule, kFile, kProfile, kLocale, kRegistry, kSpooler };

/// Makes the n-th call of that kind from now (1 is the next) fail with the last error given, once.
/// 0 takes the order back.
void FailCall(Call kind, unsigned n, DWORD error = ERROR_NOT_ENOUGH_MEMORY);
/// Calls of that kind since Reset.
unsigned CallCount(Call kind);

/// What the driver owns at this moment and must have given back in the end.
struct Holdings {
    unsigned heaps;
    unsigned globalBlocks;
    unsigned modules;
    unsigned files;
    unsigned searches;
    unsigned keys;
    unsigned printers;
    bool operator==(const Holdings&) const = default;
};
Holdings CurrentHoldings();

}  // namespace host
