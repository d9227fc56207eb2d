// Help and manuals as users meet them: a press of a button in the sheet of an installed printer,
// and the platform shows the file that belongs to it.
#include <windows.h>
#include <gtest/gtest.h>

#include <prsht.h>

#include "core/driver_files.h"
#include "core/ui_language.h"
#include "resources/resource.h"
#include "sheet_session.h"
#include "tools/computer/computer.h"
#include "tools/computer/sample_library.h"

#include <filesystem>
#include <fstream>
#include <functional>

namespace test {
namespace {

namespace fs = std::filesystem;
using WideString = std::basic_string<WCHAR>;

const fs::path kDocuments = fs::absolute(KPD_DOCUMENTS);
const fs::path kSources = fs::absolute(KPD_SOURCE_DIR);

/// The rest of the first line that begins so, empty when there is none.
WideString LineOf(const fs::path& path, std::string_view beginning) {
    std::ifstream file(path, std::ios::binary);
    WCHAR rest[MAX_PATH] = {};
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(beginning)) {
            MultiByteToWideChar(CP_UTF8, 0, line.c_str() + beginning.size(), -1, rest, MAX_PATH);
            break;
        }
    }
    return rest;
}

/// The title of the help of a language, which the viewer shows: that of its first topic.
WideString HelpTitle(const fs::path& suffix) {
    return LineOf(kSources / "package/help" / suffix / "welcome.txt", "# ");
}

HWND Viewer() {
    return FindWindowW(TEXT("HH Parent"), nullptr);
}

WideString TitleOf(HWND window) {
    WCHAR text[MAX_PATH] = {};
    GetWindowTextW(window, text, MAX_PATH);
    return text;
}

void HandlePosted() {
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

/// Handles messages until it holds; false when it does not for a minute.
bool Await(const std::function<bool()>& condition) {
    for (int turns = 0; turns < 3000; ++turns) {
        HandlePosted();
        if (condition()) {
            return true;
        }
        Sleep(20);
    }
    return false;
}

class DocumentsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(computer::InstallPackageSources(kSources / "package"), "");
        ASSERT_EQ(computer::InstallPackage(kDocuments), "");
        ASSERT_EQ(Viewer(), nullptr) << "one is open already";
    }
    void TearDown() override {
        computer::RemovePrinter(name_);
        for (const auto& file : fs::directory_iterator(kDocuments)) {
            std::error_code ignored;
            fs::remove(computer::DriverFolder() / file.path().filename(), ignored);
        }
    }

    void RunSheet(const WCHAR* model, const std::function<void(HWND)>& body) {
        ASSERT_EQ(computer::InstallPrinter({name_, model}), "");
        DevModeRecord record = {};
        RunSheetOf(name_, record, body, PSBTN_CANCEL);
    }

    // Presses Help, reads the viewer's title and closes it.
    static void ExpectHelp(HWND sheet, const WideString& title) {
        PostMessageW(sheet, PSM_PRESSBUTTON, PSBTN_HELP, 0);
        ASSERT_TRUE(Await([&] { return TitleOf(Viewer()) == title; }))
            << "the viewer's title is " << fs::path(TitleOf(Viewer()));
        PostMessageW(Viewer(), WM_CLOSE, 0, 0);
        ASSERT_TRUE(Await([] { return Viewer() == nullptr; }));
    }

    WideString name_ = TEXT("Reader's card printer");
};

TEST_F(DocumentsTest, EveryPagesHelpIsShown) {
    const struct {
        const WCHAR* model;
        std::vector<int> pages;
    } cases[] = {{TEXT("Mirv KP-41"),
                  {IDD_DEVICE_OPTIONS, IDD_PRINTING_AREA, IDD_COLOR, IDD_TOOLS,
                   IDD_MAGNETIC_ENCODING, IDD_IMPORT_EXPORT, IDD_ABOUT}},
                 {TEXT("Mirv KP-43"), {IDD_DEVICE_OPTIONS, IDD_TOOLS, IDD_ABOUT}}};
    for (const auto& c : cases) {
        RunSheet(c.model, [&](HWND sheet) {
            for (const int page : c.pages) {
                ShowPage(sheet, page);
                ExpectHelp(sheet, HelpTitle("Eng"));
            }
        });
    }
}

TEST_F(DocumentsTest, ThereAreThoseOfEveryLanguage) {
    for (LANGID language = 0; language < MAKELANGID(0, 3); ++language) {
        const WideString help = TEXT("Mv") + WideString(HelpSuffixOf(language)) + TEXT("Card.chm");
        EXPECT_TRUE(fs::exists(kDocuments / help)) << fs::path(help);
    }
    for (const std::string manual : {"AdvanceTool", "HeatingEnergy"}) {
        for (const std::string suffix : {"Chs", "Cht", "Eng"}) {
            EXPECT_TRUE(fs::exists(kDocuments / (manual + suffix + ".pdf"))) << manual << suffix;
        }
    }
}

// Run in processes started with different user languages.
TEST_F(DocumentsTest, TheHelpIsInTheUserLanguage) {
    const std::string suffix = fs::path(HelpSuffixOf(GetUserDefaultUILanguage())).string();
    RunSheet(TEXT("Mirv KP-41"), [&](HWND sheet) { ExpectHelp(sheet, HelpTitle(suffix)); });
}

// Of the platform's commands that administrators are told to type, those that Wine has do as told.
TEST_F(DocumentsTest, WhatAPrinterKeepsOfAUserIsRemoved) {
    constexpr const WCHAR* kKey = TEXT("Printers\\Badge room");
    RegSetKeyValueW(HKEY_CURRENT_USER, kKey, TEXT("MagneticTrack1"), REG_SZ, TEXT(""), 2);
    const fs::path area = fs::path(_wgetenv(L"APPDATA")) / "Mirv" / "PrtArea";
    fs::create_directories(area);
    int commands = 0;
    std::ifstream page(kSources / "package/administrators.md");
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("    reg ") || line.starts_with("    rmdir ")) {
            EXPECT_EQ(std::system(line.c_str()), 0) << line;
            ++commands;
        }
    }
    EXPECT_EQ(commands, 2);
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, kKey, nullptr, RRF_RT_ANY, nullptr, nullptr, nullptr),
              ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(fs::exists(area));
}

// In the place of the program for PDF files comes one that notes what it was given.
class ManualsTest : public DocumentsTest {
  protected:
    void SetUp() override {
        DocumentsTest::SetUp();
        DWORD size = sizeof(before_);
        RegGetValueW(HKEY_CLASSES_ROOT, kType, nullptr, RRF_RT_REG_SZ, nullptr, before_, &size);
        SetDefault(kType, kProgram);
        SetDefault(TEXT("KpdTestManual\\shell\\open\\command"),
                   TEXT("cmd.exe /c echo %1>\"") + note_.wstring() + TEXT("\""));
    }
    void TearDown() override {
        SetDefault(kType, before_);
        RegDeleteTreeW(HKEY_CLASSES_ROOT, kProgram);
        DocumentsTest::TearDown();
    }

    static void SetDefault(const WCHAR* key, const WideString& value) {
        EXPECT_EQ(RegSetKeyValueW(HKEY_CLASSES_ROOT, key, nullptr, REG_SZ, value.c_str(),
                                  static_cast<DWORD>((value.size() + 1) * sizeof(WCHAR))),
                  ERROR_SUCCESS);
    }

    void ExpectManual(HWND dialog, int button, const WCHAR* file) {
        std::error_code ignored;
        fs::remove(note_, ignored);
        PostMessageW(GetDlgItem(dialog, button), BM_CLICK, 0, 0);
        EXPECT_TRUE(Await([&] { return !LineOf(note_, "").empty(); }));
        WCHAR path[kDriverPathLength];
        DriverFilePath(path, file);
        EXPECT_NE(LineOf(note_, "").find(path), WideString::npos) << fs::path(LineOf(note_, ""));
        std::ifstream manual(path, std::ios::binary);
        std::string head(5, ' ');
        manual.read(head.data(), 5);
        EXPECT_EQ(head, "%PDF-") << fs::path(path);
    }

    static constexpr const WCHAR* kType = TEXT(".pdf");
    static constexpr const WCHAR* kProgram = TEXT("KpdTestManual");
    WCHAR before_[MAX_PATH] = {};
    const fs::path note_ = fs::temp_directory_path() / "kpd_opened.txt";
};

TEST_F(ManualsTest, BothAreOpenedInTheUserLanguage) {
    const computer::SamplePrinter printer("");
    ASSERT_EQ(printer.Reason(), "");
    const WORD language = PRIMARYLANGID(GetUserDefaultUILanguage());
    const bool simplified = SUBLANGID(GetUserDefaultUILanguage()) == SUBLANG_CHINESE_SIMPLIFIED;
    const WideString suffix = language != LANG_CHINESE ? TEXT("Eng.pdf")
                              : simplified             ? TEXT("Chs.pdf")
                                                       : TEXT("Cht.pdf");
    RunSheet(TEXT("Mirv KP-41"), [&](HWND sheet) {
        ExpectManual(ShowPage(sheet, IDD_HEATING_ENERGY), IDC_HEATING_DESCRIPTION,
                     (TEXT("HeatingEnergy") + suffix).c_str());
        InNextWindowWith(IDC_MOTOR_DESCRIPTION, [&](HWND tool) {
            ExpectManual(tool, IDC_MOTOR_DESCRIPTION, (TEXT("AdvanceTool") + suffix).c_str());
            SendMessageW(tool, WM_COMMAND, IDCANCEL, 0);
        });
        SendDlgItemMessageW(ShowPage(sheet, IDD_TOOLS), IDC_ADVANCE_TOOL, BM_CLICK, 0, 0);
    });
}

}  // namespace
}  // namespace test
