// The one control interface of the stand-in: what a test or the tool sets up on the computer that
// the stand-in plays, what it reads back, and which call it makes fail.
#pragma once

#include <windows.h>
#include <winspool.h>

#include <cstdint>
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
/// The file on disk that a path of the platform names: backslashes and either case are accepted;
/// a drive letter other than C and a path without a drive stop the program.
std::filesystem::path DiskPath(LPCWSTR path);

// ---- Language and locale ----------------------------------------------------------------------

void SetUiLanguage(LANGID language);
/// Telephone country code of the user's locale (LOCALE_ICOUNTRY).
void SetCountry(int code);
/// What GetACP gives and CP_ACP means.
void SetCodePage(UINT codePage);

/// A text asked for in a profile file; every one since Reset, found or not.
struct ProfileLookup {
    WideString file;
    WideString section;
    WideString key;
};
const std::vector<ProfileLookup>& ProfileLookups();

// ---- Environment ------------------------------------------------------------------------------

void SetEnvironment(const WideString& name, const WideString& value);

// ---- Printers ---------------------------------------------------------------------------------

struct Printer {
    WideString name;
    WideString model;  ///< the name of the driver
    WideString port = TEXT("LPT1:");
    DWORD attributes = PRINTER_ATTRIBUTE_LOCAL;
    std::vector<BYTE> defaultRecord;  ///< device mode record kept by the spooler; may be empty
    WideString sharedName = {};       ///< its name in the network ("uNCName"); may be empty
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
/// What the next message box gives, in order; without an order its default button.
void AnswerMessageBox(int button);

struct FileDialog {
    bool save;
    WideString title;
    WideString filter;  ///< with its separating zeros
    WideString initialFile;
    DWORD flags;
};
const std::vector<FileDialog>& FileDialogs();
/// What the user types into the next file dialog before pressing OK, in order; empty is Cancel. A
/// file dialog without an order stops the program.
void AnswerFileDialog(const WideString& path);

/// A document or program opened through the shell.
struct ShellCall {
    WideString verb;
    WideString file;
    WideString parameters;
    WideString folder;
    int show;
};
const std::vector<ShellCall>& ShellCalls();

// ---- Pictures and printed documents -----------------------------------------------------------

/// Rows of pixels, the top row first, each 0x00RRGGBB.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    std::uint32_t At(int x, int y) const {
        return pixels[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)];
    }
};
/// Writes a PNG file. False when it cannot be written.
bool WritePng(const std::filesystem::path& path, const Picture& picture);

struct PrintedDocument {
    WideString printer;
    WideString name;
    WideString dataType;
    std::vector<BYTE> record;  ///< the device mode record the context was made with
    std::vector<Picture> pages;
    bool ended;  ///< EndDoc came; not when aborted
};
const std::vector<PrintedDocument>& PrintedDocuments();

// ---- Resources --------------------------------------------------------------------------------

/// Adds a compiled resource file, which must stay in memory; every module handle finds what is in
/// any of them. Not forgotten by Reset.
void AddResources(const void* bytes, size_t size);

// ---- Faults and counts ------------------------------------------------------------------------

/// Kinds of platform calls that can be counted and made to fail.
enum class Call {
    kHeap,
    kGlobal,
    kPages,  ///< VirtualAlloc
    kModule,
    kFile,
    kProfile,
    kLocale,
    kRegistry,
    kEnvironment,
    kSpooler,
    kWindow,    ///< creating a window, dialog or menu
    kDrawing,   ///< creating a device context, bitmap, brush, pen or font
    kResource,  ///< finding and loading a resource
    kPrinting,  ///< beginning and ending documents and pages
    kSheet,     ///< creating a property sheet page or sheet
    kShell,
    kCount
};

/// Makes the n-th call of that kind from now (1 is the next) fail with the last error given, once.
/// 0 takes the order back.
void FailCall(Call kind, unsigned n, DWORD error = ERROR_NOT_ENOUGH_MEMORY);
/// Calls of that kind since Reset.
unsigned CallCount(Call kind);

/// What the driver owns at this moment and must have given back in the end.
struct Holdings {
    unsigned heaps;
    unsigned globalBlocks;
    unsigned pageBlocks;  ///< of VirtualAlloc
    unsigned modules;
    unsigned files;
    unsigned searches;
    unsigned keys;
    unsigned printers;
    unsigned windows;
    unsigned menus;
    unsigned contexts;        ///< device contexts, those of GetDC and BeginPaint among them
    unsigned drawingObjects;  ///< bitmaps, brushes, pens, fonts; not those of the system
    unsigned sheetPages;      ///< pages created and not given to a sheet, which then owns them
    bool operator==(const Holdings&) const = default;
};
Holdings CurrentHoldings();

}  // namespace host
