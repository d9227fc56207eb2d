// The choice of the language file, lookups in it, and messages.
#include "ui/common/language.h"

#include "driver_test.h"
#include "message_boxes.h"
#include "ui/common/module.h"

namespace test {
namespace {

class LanguageTest : public DriverTest {
  protected:
    void SetUp() override {
        DriverTest::SetUp();
        StartMessageBoxes();
        InitLanguageFile();
    }
    void TearDown() override {
        StopMessageBoxes();
        std::filesystem::remove(DiskPath(LanguageFilePath));
        DriverTest::TearDown();
    }

    static WideString Lookup(const WideString& key) {
        WCHAR text[kTextLength];
        LookupString(key.c_str(), text);
        return text;
    }
};

TEST_F(LanguageTest, FileIsChosenByTheUsersLanguage) {
    const struct {
        LANGID language;
        const WCHAR* file;
    } cases[] = {
        {0x0401, TEXT("mvArakpd.ini")}, {0x0404, TEXT("mvChtkpd.ini")},
        {0x0804, TEXT("mvChskpd.ini")}, {0x0C04, TEXT("mvEngkpd.ini")},
        {0x1404, TEXT("mvEngkpd.ini")}, {0x0807, TEXT("mvGerkpd.ini")},
        {0x0C0A, TEXT("mvSpnkpd.ini")}, {0x0C0C, TEXT("mvFrnkpd.ini")},
        {0x0410, TEXT("mvItakpd.ini")}, {0x0411, TEXT("mvJpnkpd.ini")},
        {0x0412, TEXT("mvKrnkpd.ini")}, {0x0415, TEXT("mvPolkpd.ini")},
        {0x0816, TEXT("mvPrtkpd.ini")}, {0x0419, TEXT("mvRuskpd.ini")},
        {0x0421, TEXT("mvIdokpd.ini")}, {0x0429, TEXT("mvPrskpd.ini")},
        {0x0809, TEXT("mvEngkpd.ini")}, {0x041D, TEXT("mvEngkpd.ini")},
    };
    for (const auto& c : cases) {
        computer::SetUiLanguage(c.language);
        SetSection(TEXT("Tools"));
        InitLanguageFile();
        EXPECT_EQ(LanguageFilePath, DriverFolder() + TEXT("\\") + c.file);
        EXPECT_EQ(CurrentSection[0], 0);
    }
}

TEST_F(LanguageTest, AttachKeepsTheModuleAndChoosesTheFile) {
    LanguageFilePath[0] = 0;
    const auto module = reinterpret_cast<HINSTANCE>(static_cast<ULONG_PTR>(0x1230000));
    for (DWORD reason : {DLL_THREAD_ATTACH, DLL_THREAD_DETACH, DLL_PROCESS_DETACH}) {
        EXPECT_TRUE(DllInitialize(module, reason, nullptr));
        EXPECT_EQ(LanguageFilePath[0], 0) << reason;
    }
    EXPECT_TRUE(DllInitialize(module, DLL_PROCESS_ATTACH, nullptr));
    EXPECT_EQ(ModuleHandle, module);
    EXPECT_EQ(LanguageFilePath, DriverFolder() + TEXT("\\mvEngkpd.ini"));
}

TEST_F(LanguageTest, TextsAreTranslatedInTheirSection) {
    WriteWideText(LanguageFilePath, TEXT("[DeviceOption]\r\n") TEXT("Device Option=Ger\x00E4")
                                        TEXT("t\r\n") TEXT("Ribbon Type : =Farbband : \r\n")
                                            TEXT("[Tools]\r\nDevice Option=Werkzeug\r\n"));
    SetSection(TEXT("DeviceOption"));
    EXPECT_EQ(Lookup(TEXT("Device Option")), TEXT("Ger\x00E4") TEXT("t"));
    EXPECT_EQ(Lookup(TEXT("device option")), TEXT("Ger\x00E4") TEXT("t"));
    EXPECT_EQ(Lookup(TEXT("Ribbon Type : ")), TEXT("Farbband :"));
    EXPECT_EQ(Lookup(TEXT("Copy No : ")), TEXT("Copy No : ")) << "no translation, no change";
    EXPECT_EQ(Lookup(TEXT("  ")), TEXT("  "));
    SetSection(TEXT("Tools"));
    EXPECT_EQ(Lookup(TEXT("Device Option")), TEXT("Werkzeug"));
    SetSection(TEXT("Nowhere"));
    EXPECT_EQ(Lookup(TEXT("Device Option")), TEXT("Device Option"));
    SetSection(TEXT(""));
    EXPECT_EQ(Lookup(TEXT("Device Option")), TEXT("Device Option"));
}

TEST_F(LanguageTest, TextsWithoutAFileStayAndLongOnesAreCut) {
    SetSection(TEXT("Tools"));
    EXPECT_EQ(Lookup(TEXT("Clean")), TEXT("Clean"));
    EXPECT_EQ(Lookup(WideString(300, 'k')), WideString(259, 'k'));
    WriteWideText(LanguageFilePath,
                  TEXT("[Tools]\r\nClean=") + WideString(400, 'x') + TEXT("\r\n"));
    EXPECT_EQ(Lookup(TEXT("Clean")), WideString(259, 'x'));
    const WideString longSection(400, 's');
    EXPECT_EQ(SetSection(longSection.c_str()), 1);
    EXPECT_EQ(CurrentSection, WideString(259, 's'));
}

TEST_F(LanguageTest, ErrorMessageIsLookedUpWithItsTitle) {
    WriteWideText(LanguageFilePath, TEXT("[Tools]\r\nNo card.=Keine Karte.\r\nError=Fehler\r\n"));
    SetSection(TEXT("Tools"));
    ShowErrorMessage(TEXT("No card."));
    SetSection(TEXT("Color"));
    ShowErrorMessage(TEXT("No card."));
    ASSERT_EQ(ShownMessages().size(), 2u);
    EXPECT_EQ(ShownMessages()[0].text, TEXT("Keine Karte."));
    EXPECT_EQ(ShownMessages()[0].title, TEXT("Fehler"));
    EXPECT_FALSE(ShownMessages()[0].hasOwner);
    EXPECT_EQ(ShownMessages()[1].text, TEXT("No card."));
    EXPECT_EQ(ShownMessages()[1].title, TEXT("Error"));
}

TEST_F(LanguageTest, MissingSectionNameIsShownAndChangesNothing) {
    SetSection(TEXT("Tools"));
    EXPECT_EQ(SetSection(nullptr), 0);
    EXPECT_EQ(WideString(CurrentSection), TEXT("Tools"));
    ASSERT_EQ(ShownMessages().size(), 1u);
    EXPECT_EQ(ShownMessages()[0].text, TEXT("Section name is empty!!"));
    EXPECT_EQ(ShownMessages()[0].title, TEXT("Error"));
}

}  // namespace
}  // namespace test
