// The rules for what a caller of the print-area designer hands over.
#include "area_request.h"

#include "narrow_text.h"
#include "tools/kpdtool/wide_text.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

using WideString = std::basic_string<WCHAR>;

constexpr size_t kLongestPath = 1024;

// A text that does not end within the room that it has is none.
bool IsText(const char* text, size_t room) {
    return text != nullptr && std::memchr(text, 0, room) != nullptr;
}

bool IsZero(const void* bytes, size_t size) {
    const auto* at = static_cast<const BYTE*>(bytes);
    return std::all_of(at, at + size, [](BYTE byte) { return byte == 0; });
}

// The system spells its directory in more than one case.
bool IsSamePath(std::string_view a, std::string_view b) {
    const auto fold = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char x, char y) { return fold(x) == fold(y); });
}

std::string DriverDirectory() {
    return ToNarrow(DriverFile(TEXT("")));
}

bool IsAreaFolder(const char* folder) {
    constexpr std::string_view kEnd = "\\Mirv\\PrtArea\\";
    return IsText(folder, kLongestPath) && std::strlen(folder) > kEnd.size() &&
           std::string_view(folder).ends_with(kEnd);
}

// The narrow part of a card first in an enumeration of landscape cards and in a designer's upright
// ones.
bool AreExtents(const AreaRequest& request, AreaCall call) {
    constexpr DWORD kShort = 642;
    const bool shortFirst = (request.Orientation == 1) == (call == AreaCall::kDesigner);
    const DWORD shorter = shortFirst ? request.FirstExtent : request.SecondExtent;
    const DWORD longer = shortFirst ? request.SecondExtent : request.FirstExtent;
    return shorter == kShort && (longer == 1014 || longer == 1700);
}

bool IsLanguageFile(const char (&name)[120]) {
    constexpr const char* kLanguages[] = {"Ara", "Cht", "Chs", "Eng", "Ger", "Spn", "Frn", "Ita",
                                          "Jpn", "Krn", "Pol", "Prt", "Rus", "Ido", "Prs"};
    if (!IsText(name, sizeof(name))) {
        return false;
    }
    const size_t length = std::strlen(name);
    return IsZero(name + length, sizeof(name) - length) &&
           std::any_of(std::begin(kLanguages), std::end(kLanguages), [&](const char* language) {
               return std::string(name) == std::string("PA") + language + "kpd.ini";
           });
}

WideString SearchPath() {
    WideString path(GetEnvironmentVariableW(TEXT("PATH"), nullptr, 0), 0);
    const DWORD length =
        GetEnvironmentVariableW(TEXT("PATH"), path.data(), static_cast<DWORD>(path.size()));
    path.resize(length);
    return path;
}

}  // namespace

CallNotes::CallNotes(const char* call)
    : SampleFile(DriverFile(TEXT("SampleDesigner.txt"))), call_(call) {}

bool CallNotes::Require(bool rule, const std::string& complaint) {
    if (!rule && IsThere()) {
        Complain(std::string(call_) + ": " + complaint);
    }
    return rule;
}

void CallNotes::Note(const std::string& text) {
    if (IsThere() && Text("calls") != "no") {
        Add("call", text.empty() ? call_ : std::string(call_) + " " + text);
    }
}

void CheckDirectory(CallNotes& notes, const char* directory) {
    notes.Require(IsText(directory, kLongestPath) && IsSamePath(directory, DriverDirectory()),
                  "the driver directory is not as it must be");
}

void CheckSearchPath(CallNotes& notes) {
    notes.Require(IsSamePath(LastOfSearchPath() + "\\", DriverDirectory()),
                  "PATH does not end with the driver directory");
}

bool CheckRequest(CallNotes& notes, const AreaRequest* request, AreaCall call) {
    if (!notes.Require(request != nullptr, "no record") ||
        !notes.Require(request->Size == sizeof(AreaRequest), "the record's size")) {
        return false;
    }
    const AreaRequest& r = *request;
    const bool forDesigner = call == AreaCall::kDesigner;
    const bool hasFolder = IsAreaFolder(r.AreaFolder);
    const struct {
        bool Holds;
        const char* Complaint;
    } rules[] = {
        {r.Constant4 == 1, "the record's constant at 4"},
        {r.Surface >= 1 && r.Surface <= 4, "the surface code"},
        {r.Orientation == 1 || r.Orientation == 2, "the orientation"},
        {forDesigner || r.Index == 0, "an area index in an enumeration"},
        {AreExtents(r, call), "the card's extents"},
        {r.HorizontalResolution == 300 && r.VerticalResolution == 300, "the resolutions"},
        {r.Constant24 == 1, "the record's constant at 24"},
        {r.Constant25 == 0x20, "the record's constant at 25"},
        {IsZero(r.Zero26, sizeof(r.Zero26)), "the record's zeros at 26"},
        {hasFolder, "the print-area folder"},
        {!forDesigner || IsLanguageFile(r.LanguageFile), "the language file"},
        {forDesigner || IsZero(r.LanguageFile, sizeof(r.LanguageFile)),
         "a language file in an enumeration"},
    };
    for (const auto& rule : rules) {
        notes.Require(rule.Holds, rule.Complaint);
    }
    CheckDirectory(notes, r.DriverDirectory);
    return hasFolder;
}

std::string Describe(const AreaRequest& request) {
    std::string text = "surface " + std::to_string(request.Surface) + " orientation " +
                       std::to_string(request.Orientation) + " index " +
                       std::to_string(request.Index) + " extents " +
                       std::to_string(request.FirstExtent) + " " +
                       std::to_string(request.SecondExtent) + " directory " +
                       Quoted(request.DriverDirectory) + " folder " + Quoted(request.AreaFolder);
    if (request.LanguageFile[0] != 0 && IsText(request.LanguageFile, 120)) {
        text += std::string(" language ") + request.LanguageFile;
    }
    return text;
}

std::string LastOfSearchPath() {
    const WideString path = SearchPath();
    return ToNarrow(path.substr(path.find_last_of(';') + 1));
}

std::string Quoted(const char* narrow) {
    return IsText(narrow, kLongestPath) ? '"' + kpdtool::ToUtf8(FromNarrow(narrow)) + '"' : "none";
}
