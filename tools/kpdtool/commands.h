// The tool's commands. Each prints what it found and gives the exit status, and throws ToolError
// when it cannot be carried out.
#pragma once

#include <windows.h>

#include <optional>
#include <ostream>
#include <string>

namespace kpdtool {

/// What the command line says; each command reads what its help names.
struct Options {
    std::string model = "Mirv KP-41";
    std::string printer = "kpdtool";
    std::string language = "en";
    std::string in;
    std::string to;
    std::string out;
    std::string first;
    std::string second;
    DWORD mode = 0;
    std::optional<LONG> size;
    bool json = false;
    // Of the sheet.
    std::string port;
    bool remote = false;
    std::string sheetLanguage;  ///< empty: the user's as it is
    std::string script;
    std::string pictures;
    std::string package;
};

int PrintCapabilities(const Options& options, std::ostream& out);
int BuildRecord(const Options& options, std::ostream& out);
int ShowRecord(const Options& options, std::ostream& out);
int CompareRecords(const Options& options, std::ostream& out);
int ConvertRecord(const Options& options, std::ostream& out);
int RunSheet(const Options& options, std::ostream& out);
int PrintLayout(const Options& options, std::ostream& out);

}  // namespace kpdtool
