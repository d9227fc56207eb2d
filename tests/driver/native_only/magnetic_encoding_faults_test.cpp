// The Magnetic Encoding page as the stand-in sees it: what the shell and the file dialog are asked
// for, and calls of the registry that fail.
#include "magnetic_page.h"
#include "platform/host.h"
#include "ui/common/language.h"

#include <commdlg.h>

namespace test {
namespace {

class MagneticFaults : public MagneticPageTest {
  protected:
    void SetUp() override {
        MagneticPageTest::SetUp();
        Record().MagOptions = kUsingDatabase;
        for (const WCHAR* file : {TEXT("C:\\Users\\a.txt"), TEXT("C:\\Users\\b.txt")}) {
            std::filesystem::create_directories(DiskPath(file).parent_path());
            WriteBytes(file, "%A?");
        }
    }
    /// In the order of storing.
    static std::vector<const WCHAR*> Names() {
        std::vector<const WCHAR*> names = {kStoredPath};
        for (const auto& row : kMagneticTextRows) {
            names.push_back(row.value);
        }
        return names;
    }
    void StoreEverywhere(const WCHAR* text) const {
        for (const WCHAR* name : Names()) {
            key_.StoreText(name, text);
        }
    }
};

TEST_F(MagneticFaults, TheShellIsAskedForTheEncoderAndTheSample) {
    Open();
    EXPECT_TRUE(host::ShellCalls().empty());
    Notify(PSN_SETACTIVE);
    context_.IsRemotePrinter = 1;
    Notify(PSN_SETACTIVE);
    Click(IDC_DATABASE_SAMPLE);
    ASSERT_EQ(host::ShellCalls().size(), 3u);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(Narrow(host::ShellCalls()[i].parameters),
                  "PrnBridge.dll,DrvUI_GetDeviceInfo -T6 -W" +
                      std::to_string(static_cast<int>(reinterpret_cast<LONG_PTR>(page_))) +
                      " -P\"Badge room\"");
    }
    const host::ShellCall& sample = host::ShellCalls()[2];
    EXPECT_EQ(sample.file, DriverFolder() + TEXT("\\Magnetic.txt"));
    EXPECT_EQ(Narrow(sample.verb), "open");
    EXPECT_EQ(Narrow(sample.parameters + sample.folder), "");
    EXPECT_EQ(sample.show, SW_SHOWNORMAL);
    EXPECT_EQ(TakeChanges(), 0);
}

TEST_F(MagneticFaults, ADatabaseIsChosenInTheFileDialog) {
    key_.StoreText(kStoredPath, TEXT("C:\\Users\\a.txt"));
    Open();
    SetDlgItemTextW(page_, IDC_DATABASE_PATH, TEXT("typed"));
    TakeChanges();
    host::AnswerFileDialog(TEXT(""));
    Click(IDC_BROWSE_DATABASE);
    EXPECT_EQ(Path(), "typed") << "cancelled";
    EXPECT_EQ(TakeChanges(), 0);
    host::AnswerFileDialog(TEXT("b.txt"));
    Click(IDC_BROWSE_DATABASE);
    EXPECT_EQ(Path(), "C:\\Users\\b.txt");
    EXPECT_GT(TakeChanges(), 0);
    EXPECT_EQ(key_.Stored(kStoredPath), "1:28:C:\\Users\\a.txt");
    Notify(PSN_APPLY);
    EXPECT_EQ(key_.Stored(kStoredPath), "1:520:C:\\Users\\b.txt+246z");
    host::AnswerFileDialog(TEXT(""));
    Click(IDC_BROWSE_DATABASE);
    ASSERT_EQ(host::FileDialogs().size(), 3u);
    const char* const files[] = {"C:\\Users\\a.txt", "C:\\Users\\a.txt", "C:\\Users\\b.txt"};
    for (int i = 0; i < 3; ++i) {
        const host::FileDialog& dialog = host::FileDialogs()[i];
        EXPECT_FALSE(dialog.save);
        EXPECT_EQ(Narrow(dialog.title), "Open Database");
        EXPECT_EQ(Narrow(dialog.filter),
                  std::string("All Files\0*.txt\0TEXT Files (*.TXT)\0*.txt", 40));
        EXPECT_EQ(dialog.flags, DWORD{OFN_READONLY | OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST});
        EXPECT_EQ(Narrow(dialog.initialFile), files[i]);
    }
    EXPECT_TRUE(host::MessageBoxes().empty());
}

TEST_F(MagneticFaults, AFailedFileDialogIsTold) {
    const struct {
        const WCHAR* language;
        const char* text;
        const char* title;
    } cases[] = {
        {TEXT(""), "Can't open file , Error code : 12290 ", "Error"},
        {TEXT("Error=Fehler\r\nCan't open file , Error code : %d =Fehler %d!\r\n"), "Fehler 12290!",
         "Fehler"},
        {TEXT("Can't open file , Error code : %d =%s\r\n"), "Can't open file , Error code : 12290 ",
         "Error"},
        {TEXT("Can't open file , Error code : %d =%d %n\r\n"),
         "Can't open file , Error code : 12290 ", "Error"},
        {TEXT("Can't open file , Error code : %d =Fehler\r\n"),
         "Can't open file , Error code : 12290 ", "Error"},
    };
    key_.StoreText(kStoredPath, TEXT("a|b"));
    for (const auto& c : cases) {
        WriteWideText(LanguageFilePath, TEXT("[MagneticEncoding]\r\n") + WideString(c.language));
        Open();
        SetSection(kToolsSection);
        Click(IDC_BROWSE_DATABASE);
        const host::MessageBox& box = host::MessageBoxes().back();
        EXPECT_EQ(Narrow(box.text), c.text);
        EXPECT_EQ(Narrow(box.title), c.title);
        EXPECT_EQ(box.type, UINT{MB_ICONERROR | MB_OK});
        EXPECT_FALSE(box.hasOwner);
        EXPECT_EQ(Path(), "a|b");
        EXPECT_EQ(TakeChanges(), 0);
    }
    EXPECT_EQ(host::MessageBoxes().size(), std::size(cases));
}

// Opening, then the six values in their order: the n-th call that fails keeps its own from being
// stored, or all.
TEST_F(MagneticFaults, ValuesAreStoredInTheirOrderWhateverFails) {
    const std::vector<const WCHAR*> names = Names();
    for (unsigned n = 1; n <= 8; ++n) {
        SCOPED_TRACE(n);
        StoreEverywhere(TEXT("old"));
        Open();
        for (const auto& row : kMagneticTextRows) {
            Enter(row.control, "n");
        }
        const host::Holdings before = host::CurrentHoldings();
        host::FailCall(host::Call::kRegistry, n, ERROR_ACCESS_DENIED);
        Notify(PSN_APPLY);
        host::FailCall(host::Call::kRegistry, 0);
        EXPECT_EQ(host::CurrentHoldings(), before);
        for (unsigned i = 0; i < names.size(); ++i) {
            const bool kept = n == 1 || n == i + 2;
            const std::string stored = key_.Stored(names[i]);
            EXPECT_EQ(stored == "1:6:old", kept) << Narrow(names[i]) << stored;
        }
    }
}

TEST_F(MagneticFaults, TextsThatCannotBeReadAreEmpty) {
    constexpr int kControls[] = {IDC_DATABASE_PATH, IDC_TRACK_1,       IDC_TRACK_2,
                                 IDC_TRACK_3,       IDC_FILTER_PREFIX, IDC_FILTER_SUFFIX};
    StoreEverywhere(TEXT("old"));
    Open();
    const host::Holdings before = host::CurrentHoldings();
    for (unsigned n = 1; n <= 8; ++n) {
        host::FailCall(host::Call::kRegistry, n, ERROR_ACCESS_DENIED);
        Open();
        host::FailCall(host::Call::kRegistry, 0);
        EXPECT_EQ(host::CurrentHoldings(), before) << n;
        int empty = 0;
        for (int control : kControls) {
            const std::string text = TextOf(GetDlgItem(page_, control));
            EXPECT_TRUE(text.empty() || text == "old") << text;
            empty += text.empty();
        }
        EXPECT_EQ(empty, n == 1 ? 6 : n <= 7 ? 1 : 0) << n;
    }
}

TEST_F(MagneticFaults, WithoutMemoryOfItsOwnThePageWorksAsEver) {
    key_.StoreText(kStoredPath, TEXT("stored"));
    Open();
    const host::Holdings before = host::CurrentHoldings();
    host::FailCall(host::Call::kGlobal, 1);
    Open();
    host::FailCall(host::Call::kGlobal, 0);
    EXPECT_EQ(host::CurrentHoldings().globalBlocks, before.globalBlocks - 1);
    Click(IDC_USING_DATABASE);
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(page_, IDC_DATABASE_PATH)));
    Notify(PSN_SETACTIVE);
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(page_, IDC_TRACK_1)));
    Notify(PSN_APPLY);
    EXPECT_EQ(key_.Stored(kStoredPath), "1:520:stored+254z");
    Open();
    EXPECT_EQ(host::CurrentHoldings(), before);
}

// Neither opened nor made.
TEST_F(MagneticFaults, WithoutAKeyThePageWorksAndStoresNothing) {
    host::FailCall(host::Call::kRegistry, 2, ERROR_ACCESS_DENIED);
    Open();
    host::FailCall(host::Call::kRegistry, 0);
    EXPECT_FALSE(key_.IsThere());
    SetDlgItemTextW(page_, IDC_TRACK_1, TEXT("A"));
    Notify(PSN_APPLY);
    EXPECT_FALSE(key_.IsThere());
}

}  // namespace
}  // namespace test
