// Exports and imports as the stand-in sees them: what the file dialogs and message boxes are asked
// for, files that change meanwhile, and calls of the platform that fail.
#include "core/owners.h"
#include "core/settings_file.h"
#include "options_page.h"
#include "platform/host.h"
#include "resources/resource.h"
#include "sheet_pages.h"
#include "ui/common/language.h"
#include "ui/pages/import_export/settings_transfer.h"

#include <commdlg.h>

namespace test {
namespace {

const WideString kFile = TEXT("C:\\Users\\a.mcs");

class ImportExportFaults : public OptionsPageTest {
  protected:
    void SetUp() override {
        OptionsPageTest::SetUp();
        Open();
        TakeChanges();
        SetSection(kImportExportSection);
        std::filesystem::create_directories(DiskPath(kFile).parent_path());
    }

    static std::string File(const DevModeRecord& record, DWORD parts) {
        BYTE file[kLargestSettingsFile];
        return {file, file + WriteSettings(record, parts, file)};
    }
    DevModeRecord Other() const {
        DevModeRecord record = context_.WorkingDevMode;
        record.Private.RibbonType = kRibbonKO;
        record.Private.Cyan = 44;
        return record;
    }

    /// In the dialog for the parts, where `meanwhile` happens.
    static void AcceptParts(const std::vector<int>& clicks, std::function<void()> meanwhile = {}) {
        RunInLoop([=] {
            HWND dialog = DialogWith(IDC_COLOR_PART);
            if (meanwhile) {
                meanwhile();
            }
            for (const int box : clicks) {
                SendDlgItemMessageW(dialog, box, BM_CLICK, 0, 0);
            }
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
    }
    void Import(const WideString& file) {
        host::AnswerFileDialog(file);
        ImportSettings(parent_, context_);
        ForgetSteps();
    }
    void Export(const WideString& file, host::Call kind = {}, unsigned failing = 0) {
        std::filesystem::remove(DiskPath(file));
        host::AnswerFileDialog(file);
        AcceptParts({IDC_COLOR_PART});
        host::FailCall(kind, failing);
        ExportSettings(parent_, context_);
        host::FailCall(kind, 0);
        ForgetSteps();
    }
    /// The messages since the last call.
    std::string Messages() {
        std::string texts;
        for (; messages_ < host::MessageBoxes().size(); ++messages_) {
            const host::MessageBox& box = host::MessageBoxes()[messages_];
            if (box.hasOwner) {
                continue;  // the file dialog's own
            }
            EXPECT_EQ(box.title, TEXT("Error"));
            EXPECT_EQ(box.type, UINT{MB_OK | MB_ICONERROR});
            texts += Narrow(box.text) + "|";
        }
        return texts;
    }

  private:
    size_t messages_ = 0;
};

TEST_F(ImportExportFaults, FileDialogsAreThePlatforms) {
    WriteWideText(LanguageFilePath, TEXT("[Import/Export]\r\nError=Fehler\r\n"));
    Export(kFile);
    AcceptParts({});
    Import(kFile);
    const auto& shown = host::FileDialogs();
    ASSERT_EQ(shown.size(), 2u);
    for (const host::FileDialog& dialog : shown) {
        EXPECT_EQ(dialog.filter, WideString(TEXT("Card Printer Driver Files (*.mcs)\0*.mcs"), 39));
        EXPECT_EQ(dialog.title, TEXT(""));
    }
    EXPECT_TRUE(shown[0].save);
    EXPECT_EQ(shown[0].initialFile, TEXT("Export.mcs"));
    EXPECT_EQ(shown[0].flags, DWORD{OFN_OVERWRITEPROMPT});
    EXPECT_FALSE(shown[1].save);
    EXPECT_EQ(shown[1].initialFile, TEXT(""));
    EXPECT_EQ(shown[1].flags, DWORD{OFN_READONLY | OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST});
    EXPECT_EQ(Messages(), "");

    host::AnswerFileDialog(TEXT("C:\\") + WideString(300, 'a'));
    AcceptParts({IDC_COLOR_PART});
    ExportSettings(parent_, context_);
    EXPECT_EQ(Messages(), "Can't open file , Error code : 12291 |");
}

TEST_F(ImportExportFaults, PagesShowTheImportAndTheSheetIsNotTold) {
    WriteBytes(kFile, File(Other(), 3));
    AcceptParts({});
    Import(kFile);
    EXPECT_EQ(Record().Cyan, 44);
    EXPECT_EQ(TakeChanges(), 0);
    const std::string shown = LooksOfAll();
    Open();
    EXPECT_EQ(shown, LooksOfAll());
}

// The file is read again when the user has chosen.
TEST_F(ImportExportFaults, FilesThatChangeMeanwhile) {
    const std::string good = File(Other(), 3);
    const std::string device = File(Other(), 1);
    const std::string badBehind = device.substr(0, 42) + std::string("\xAA\x02\x01\x00", 4);
    const struct {
        std::string then;
        const char* messages;
        bool takesDevice;
    } cases[] = {
        {"", "Can't find file Header|", false},
        {good.substr(0, 10), "Can't find file Keyword|", false},
        {badBehind, "Bad File !|", true},
        {device, "", true},
    };
    const DevModeRecord before = context_.WorkingDevMode;
    for (const auto& c : cases) {
        context_.WorkingDevMode = before;
        WriteBytes(kFile, good);
        AcceptParts({}, [&] { WriteBytes(kFile, c.then); });
        Import(kFile);
        EXPECT_EQ(Messages(), c.messages);
        EXPECT_EQ(Record().RibbonType == kRibbonKO, c.takesDevice);
        EXPECT_EQ(Record().Cyan, 0);
    }
    WriteBytes(kFile, good);
    const auto removeIt = [] { std::filesystem::remove(DiskPath(kFile)); };
    AcceptParts({}, removeIt);
    Import(kFile);
    EXPECT_EQ(Messages(), "Can't open file!|");
    WriteBytes(kFile, good);
    AcceptParts({IDC_DEVICE_OPTION_PART, IDC_COLOR_PART}, removeIt);
    Import(kFile);
    EXPECT_EQ(Messages(), "") << "nothing was chosen, so it is not read again";
}

TEST_F(ImportExportFaults, NamesOutsideTheCodePage) {
    const struct {
        UINT codePage;
        const WCHAR* name;
        bool opens;
    } cases[] = {{1252, TEXT("C:\\Users\\gr\u00FC\u00DFe.mcs"), true},
                 {1252, TEXT("C:\\Users\\\u30AB\u30FC\u30C9.mcs"), false},
                 {932, TEXT("C:\\Users\\\u30AB\u30FC\u30C9.mcs"), true}};
    for (const auto& c : cases) {
        ASSERT_TRUE(SetCodePage(c.codePage));
        Export(c.name);
        EXPECT_EQ(std::filesystem::exists(DiskPath(c.name)), c.opens) << c.codePage;
        EXPECT_EQ(Messages(), "");
        WriteBytes(c.name, File(Other(), 2));
        Record().Cyan = 0;
        AcceptParts({});
        Import(c.name);
        EXPECT_EQ(Record().Cyan, c.opens ? 44 : 0);
        EXPECT_EQ(Messages(), c.opens ? "" : "Can't open file!|");
    }
}

// Whatever fails: nothing is left open, no part of a record is applied, and an import says so.
TEST_F(ImportExportFaults, CallsThatFail) {
    WriteBytes(kFile, File(Other(), 3));
    AcceptParts({});  // makes what the steps need
    Import(kFile);
    const host::Holdings before = host::CurrentHoldings();
    Record().RibbonType = kRibbonYMCKO;
    Record().Cyan = 0;
    const DevModeRecord record = context_.WorkingDevMode;
    for (const host::Call kind : {host::Call::kFile, host::Call::kGlobal, host::Call::kLocale,
                                  host::Call::kWindow, host::Call::kResource}) {
        unsigned failed = 0;
        for (unsigned n = 1;; ++n) {
            context_.WorkingDevMode = record;
            bool asked = false;
            AcceptParts({}, [&] { asked = DialogWith(IDC_COLOR_PART) != nullptr; });
            const unsigned calls = host::CallCount(kind);
            host::FailCall(kind, n);
            Import(kFile);
            host::FailCall(kind, 0);
            const std::string messages = Messages();
            EXPECT_TRUE(host::CurrentHoldings() == before) << n;
            EXPECT_EQ(Record().RibbonType == kRibbonKO, Record().Cyan == 44);
            EXPECT_TRUE(asked || Record().Cyan == 0) << "without asking for the parts";
            if (host::CallCount(kind) - calls < n) {
                EXPECT_EQ(Record().Cyan, 44);
                EXPECT_EQ(messages, "");
                break;
            }
            const bool told = messages == "Can't open file!|";
            failed += told;
            EXPECT_TRUE(told || messages == "") << messages;
            EXPECT_TRUE(!told || Record().Cyan == 0);
        }
        const bool tells =
            kind == host::Call::kFile || kind == host::Call::kGlobal || kind == host::Call::kLocale;
        EXPECT_EQ(failed != 0, tells) << static_cast<int>(kind);
        for (unsigned n = 1; n < 8; ++n) {
            Export(kFile, kind, n);
            EXPECT_TRUE(host::CurrentHoldings() == before) << n;
            EXPECT_EQ(Messages(), "");
            WriteBytes(kFile, File(Other(), 3));
        }
    }
}

}  // namespace
}  // namespace test
