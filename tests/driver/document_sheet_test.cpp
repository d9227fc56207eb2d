// The sheet functions as the common property sheet library calls them, without showing anything: a
// sheet that only notes what it is given stands in for the library.
#include "core/context.h"
#include "core/page_table.h"
#include "driver_test.h"
#include "ui/common/language.h"
#include "ui/common/module.h"

#include <prsht.h>

#include <cstring>

namespace test {
namespace {

// Takes pages, up to a number of them, and notes their records and titles.
class NotingSheet {
  public:
    explicit NotingSheet(LPARAM header) {
        info_.cbSize = sizeof(info_);
        info_.Version = PROPSHEETUI_INFO_VERSION;
        info_.hComPropSheet = this;
        info_.pfnComPropSheet = Callback;
        info_.lParamInit = header;
        info_.Result = 77;
    }

    using SheetFunction = LONG(WINAPI*)(PPROPSHEETUI_INFO, LPARAM);
    LONG Call(SheetFunction function, unsigned reason, LPARAM parameter) {
        info_.Reason = static_cast<WORD>(reason);
        return function(&info_, parameter);
    }
    LONG Begin(SheetFunction function) {
        return Call(function, PROPSHEETUI_REASON_INIT, info_.lParamInit);
    }
    LONG SetResult(SheetFunction function, ULONG_PTR result) {
        SETRESULT_INFO given = {};
        given.cbSize = sizeof(given);
        given.Result = result;
        return Call(function, PROPSHEETUI_REASON_SET_RESULT, reinterpret_cast<LPARAM>(&given));
    }

    PROPSHEETUI_INFO& Info() { return info_; }
    DriverContext* Context() const { return reinterpret_cast<DriverContext*>(info_.UserData); }

    size_t refusedPage = SIZE_MAX;
    std::vector<PROPSHEETPAGEW> pages;
    std::vector<std::string> titles;

  private:
    static LONG_PTR CALLBACK Callback(HANDLE sheet, UINT function, LPARAM page, LPARAM) {
        auto* self = static_cast<NotingSheet*>(sheet);
        EXPECT_EQ(function, UINT{CPSFUNC_ADD_PROPSHEETPAGEW});
        if (self->pages.size() == self->refusedPage) {
            return 0;
        }
        const auto& record = *reinterpret_cast<const PROPSHEETPAGEW*>(page);
        self->pages.push_back(record);
        self->titles.push_back(record.pszTitle == nullptr ? "" : Narrow(record.pszTitle));
        return static_cast<LONG_PTR>(self->pages.size() * 16);
    }

    PROPSHEETUI_INFO info_ = {};
};

class DocumentSheetTest : public DriverTest {
  protected:
    void SetUp() override {
        DriverTest::SetUp();
        ModuleHandle = GetModuleHandleW(nullptr);
        InitLanguageFile();
    }
    void TearDown() override {
        std::filesystem::remove(DiskPath(LanguageFilePath));
        DriverTest::TearDown();
    }

    DOCUMENTPROPERTYHEADER Header(const WideString& model, DEVMODEW* input = nullptr,
                                  DEVMODEW* output = nullptr, DWORD mode = DM_IN_PROMPT,
                                  const WideString& port = {}) {
        DOCUMENTPROPERTYHEADER header = {};
        header.cbSize = sizeof(header);
        header.hPrinter = NewPrinter(model, port);
        header.pszPrinterName = name_.data();
        header.pdmIn = input;
        header.pdmOut = output;
        header.fMode = mode;
        return header;
    }

    WideString name_ = kPrinterName;
};

constexpr auto kDocument = DrvDocumentPropertySheets;
constexpr auto kDevice = DrvDevicePropertySheets;

template <typename Header>
LPARAM AsParameter(Header& header) {
    return reinterpret_cast<LPARAM>(&header);
}

TEST_F(DocumentSheetTest, PagesOfEachModelAndPort) {
    using Titles = std::vector<std::string>;
    const struct {
        const WCHAR* model;
        const WCHAR* port;
        Titles titles;
        std::vector<int> slots;
    } cases[] = {
        {TEXT("Mirv KP-41"),
         TEXT(""),
         {"Device Option", "Printing Area", "Color", "Tools", "Heating Energy", "Magnetic Encoding",
          "Import/Export", "About"},
         {0, 1, 2, 3, 4, 5, 6, 9}},
        {TEXT("Mirv KP-560i"),
         TEXT(""),
         {"Device Option", "Printing Area", "Color", "Tools", "Heating Energy", "Import/Export",
          "About"},
         {0, 1, 2, 3, 4, 6, 9}},
        // Only the exact name lacks the magnetic page.
        {TEXT("Mirv KP-560i Plus"),
         TEXT(""),
         {"Device Option", "Printing Area", "Color", "Tools", "Heating Energy", "Magnetic Encoding",
          "Import/Export", "About"},
         {0, 1, 2, 3, 4, 5, 6, 9}},
        {TEXT("Mirv KP-43"),
         TEXT(""),
         {"Device Option", "Tools", "Rewrite", "About"},
         {0, 3, 8, 9}},
        {TEXT("Mirv KP-43"),
         TEXT("\\\\server\\cards"),
         {"Device Option", "Rewrite", "About"},
         {0, 8, 9}},
    };
    for (const auto& c : cases) {
        auto header = Header(c.model, nullptr, nullptr, DM_IN_PROMPT, c.port);
        NotingSheet sheet(AsParameter(header));
        ASSERT_EQ(sheet.Begin(kDocument), 1) << Narrow(c.model);
        EXPECT_EQ(sheet.titles, c.titles);
        EXPECT_EQ(sheet.Info().Result, 0u);
        const DriverContext* context = sheet.Context();
        ASSERT_TRUE(IsValidDriverContext(context));
        size_t added = 0;
        for (size_t slot = 0; slot < kPageSlots; ++slot) {
            const bool expected = std::count(c.slots.begin(), c.slots.end(), slot) != 0;
            EXPECT_EQ(context->PageHandles[slot],
                      expected ? reinterpret_cast<HANDLE>(++added * 16) : nullptr)
                << slot;
        }
        EXPECT_EQ(sheet.Call(kDocument, PROPSHEETUI_REASON_DESTROY, 0), 1);
    }
}

TEST_F(DocumentSheetTest, PageRecords) {
    auto header = Header(TEXT("Mirv KP-41"));
    NotingSheet sheet(AsParameter(header));
    ASSERT_EQ(sheet.Begin(kDocument), 1);
    const int dialogs[] = {101, 102, 103, 104, 109, 105, 106, 108};
    for (size_t i = 0; i < sheet.pages.size(); ++i) {
        const PROPSHEETPAGEW& page = sheet.pages[i];
        EXPECT_EQ(page.dwSize, sizeof(PROPSHEETPAGEW));
        EXPECT_EQ(page.dwFlags, DWORD{PSP_USEICONID | PSP_USETITLE | PSP_HASHELP});
        EXPECT_EQ(page.hInstance, ModuleHandle);
        EXPECT_EQ(page.pszTemplate, MAKEINTRESOURCEW(dialogs[i]));
        EXPECT_EQ(page.pszIcon, nullptr);
        EXPECT_EQ(page.lParam, reinterpret_cast<LPARAM>(sheet.Context()));
    }
    PROPSHEETUI_INFO_HEADER info = {};
    EXPECT_EQ(sheet.Call(kDocument, PROPSHEETUI_REASON_GET_INFO_HEADER, AsParameter(info)), 1);
    EXPECT_EQ(info.Flags, PSUIHDRF_NOAPPLYNOW | PSUIHDRF_PROPTITLE);
    EXPECT_EQ(info.pTitle, name_.data());
    EXPECT_EQ(info.hInst, ModuleHandle);
    EXPECT_EQ(info.IconID, 64062u);
    sheet.Call(kDocument, PROPSHEETUI_REASON_DESTROY, 0);
}

TEST_F(DocumentSheetTest, TitlesAreTranslatedInTheirOwnSectionsAndCut) {
    const std::string longTitle(200, 'x');
    WriteWideText(LanguageFilePath,
                  TEXT("[Color]\r\nColor=Farbe\r\nTools=wrong\r\n[Tools]\r\nTools=") +
                      Wide(longTitle) + TEXT("\r\n"));
    auto header = Header(TEXT("Mirv KP-41"));
    NotingSheet sheet(AsParameter(header));
    ASSERT_EQ(sheet.Begin(kDocument), 1);
    EXPECT_EQ(sheet.titles[2], "Farbe");
    EXPECT_EQ(sheet.titles[3], longTitle.substr(0, 127));
    sheet.Call(kDocument, PROPSHEETUI_REASON_DESTROY, 0);
}

TEST_F(DocumentSheetTest, ResultAndCopyOut) {
    const struct {
        DWORD mode;
        ULONG_PTR result;
        bool copied;
    } cases[] = {
        {DM_IN_PROMPT | DM_COPY, CPSUI_OK, true},      {DM_IN_PROMPT | DM_UPDATE, CPSUI_OK, true},
        {DM_IN_PROMPT | DM_COPY, CPSUI_CANCEL, false}, {DM_IN_PROMPT | DM_COPY, 2, false},
        {DM_IN_PROMPT | DM_MODIFY, CPSUI_OK, false},
    };
    for (const auto& c : cases) {
        DevModeRecord input = DefaultRecord();
        input.Public.dmCopies = 7;
        DevModeRecord output = {};
        auto header = Header(TEXT("Mirv KP-41"), &input.Public, &output.Public, c.mode);
        NotingSheet sheet(AsParameter(header));
        ASSERT_EQ(sheet.Begin(kDocument), 1);
        EXPECT_EQ(sheet.Context()->WorkingDevMode.Public.dmCopies, 7);
        sheet.Context()->WorkingDevMode.Public.dmCopies = 12;
        EXPECT_EQ(sheet.SetResult(kDocument, c.result), 1);
        EXPECT_EQ(sheet.Info().Result, c.result);
        EXPECT_EQ(output.Public.dmCopies, c.copied ? 12 : 0) << c.mode << " " << c.result;
        EXPECT_EQ(sheet.Call(kDocument, PROPSHEETUI_REASON_DESTROY, 0), 1);
    }
}

TEST_F(DocumentSheetTest, OutputHasTheInputsSmallerLayout) {
    DEVMODEW input = {};
    input.dmSize = 188;
    input.dmDriverVersion = 0x0100;
    GuardedBuffer output(188);
    std::memset(output.data(), 0, 188);
    auto header = Header(TEXT("Mirv KP-41"), &input, output.record(), DM_IN_PROMPT | DM_COPY);
    NotingSheet sheet(AsParameter(header));
    ASSERT_EQ(sheet.Begin(kDocument), 1);
    EXPECT_EQ(sheet.SetResult(kDocument, CPSUI_OK), 1);
    EXPECT_EQ(output.record()->dmSize, 188);
    EXPECT_EQ(output.record()->dmCopies, 1);
    // Accepted a second time, without an output record, and with nothing to read the result from.
    header.pdmOut = nullptr;
    EXPECT_EQ(sheet.SetResult(kDocument, CPSUI_OK), 1);
    EXPECT_EQ(sheet.Call(kDocument, PROPSHEETUI_REASON_SET_RESULT, 0), -1);
    EXPECT_EQ(sheet.Call(kDocument, PROPSHEETUI_REASON_GET_INFO_HEADER, 0), -1);
    sheet.Call(kDocument, PROPSHEETUI_REASON_DESTROY, 0);
}

TEST_F(DocumentSheetTest, RefusesWhatIsNotItsOwn) {
    auto header = Header(TEXT("Mirv KP-41"));
    DEVICEPROPERTYHEADER deviceHeader = {};
    deviceHeader.cbSize = sizeof(deviceHeader);
    deviceHeader.hPrinter = header.hPrinter;
    const struct {
        NotingSheet::SheetFunction function;
        LPARAM header;
    } sheets[] = {{kDocument, AsParameter(header)}, {kDevice, AsParameter(deviceHeader)}};
    for (const auto& s : sheets) {
        NotingSheet sheet(s.header);
        ASSERT_EQ(sheet.Begin(s.function), 1);
        for (unsigned reason : {4u, 5u, 6u, 0xFFFFu}) {
            EXPECT_EQ(sheet.Call(s.function, reason, 0), -1) << reason;
        }
        // Null, numbers, misaligned and freed addresses, somebody else's memory.
        static BYTE foreign[2 * sizeof(DriverContext)];
        const ULONG_PTR own = sheet.Info().UserData;
        for (ULONG_PTR userData :
             {ULONG_PTR{0}, ULONG_PTR{1}, ULONG_PTR{0x10000}, ULONG_PTR{0x12345678}, ~ULONG_PTR{0},
              ~ULONG_PTR{7}, own + 4, reinterpret_cast<ULONG_PTR>(foreign)}) {
            sheet.Info().UserData = userData;
            for (unsigned reason : {1u, 2u, 3u, 4u, 5u}) {
                EXPECT_EQ(sheet.Call(s.function, reason, 0), -1) << userData << " " << reason;
            }
        }
        sheet.Info().UserData = own;
        sheet.Context()->SelfCheckTail = nullptr;
        EXPECT_EQ(sheet.SetResult(s.function, CPSUI_OK), -1);
        sheet.Context()->SelfCheckTail = sheet.Context();
        EXPECT_EQ(sheet.Call(s.function, PROPSHEETUI_REASON_DESTROY, 0), 1);
        EXPECT_EQ(sheet.Call(s.function, PROPSHEETUI_REASON_DESTROY, 0), -1);

        NotingSheet headless(0);
        EXPECT_EQ(headless.Begin(s.function), -1);
        EXPECT_EQ(s.function(nullptr, 0), -1);
    }
    EXPECT_EQ(kDevice(nullptr, AsParameter(deviceHeader)), -1);
}

TEST_F(DocumentSheetTest, PageThatCannotBeAdded) {
    auto header = Header(TEXT("Mirv KP-41"));
    for (size_t refused : {size_t{0}, size_t{3}, size_t{7}}) {
        NotingSheet sheet(AsParameter(header));
        sheet.refusedPage = refused;
        EXPECT_EQ(sheet.Begin(kDocument), -1);
        EXPECT_EQ(sheet.pages.size(), refused);
        EXPECT_EQ(sheet.Info().UserData, 0u);
    }
    header.hPrinter = nullptr;
    NotingSheet sheet(AsParameter(header));
    EXPECT_EQ(sheet.Begin(kDocument), -1);
    EXPECT_TRUE(sheet.pages.empty());
    // A library that brings no callback at all.
    header.hPrinter = NewPrinter(TEXT("Mirv KP-41"));
    sheet.Info().pfnComPropSheet = nullptr;
    EXPECT_EQ(sheet.Begin(kDocument), -1);
}

TEST_F(DocumentSheetTest, PrinterSheetHasOnePageWithoutTemplate) {
    DEVICEPROPERTYHEADER header = {};
    header.cbSize = sizeof(header);
    header.hPrinter = NewPrinter(TEXT("Mirv KP-41"));
    NotingSheet sheet(AsParameter(header));
    ASSERT_EQ(sheet.Begin(kDevice), 1);
    ASSERT_EQ(sheet.pages.size(), 1u);
    EXPECT_EQ(sheet.pages[0].dwSize, sizeof(PROPSHEETPAGEW));
    EXPECT_EQ(sheet.pages[0].dwFlags, 0u);
    EXPECT_EQ(sheet.pages[0].pszTemplate, nullptr);
    EXPECT_EQ(sheet.pages[0].pfnDlgProc, nullptr);
    EXPECT_EQ(sheet.pages[0].lParam, reinterpret_cast<LPARAM>(sheet.Context()));
    EXPECT_EQ(sheet.Info().Result, 0u);
    EXPECT_EQ(sheet.SetResult(kDevice, 5), 1);
    EXPECT_EQ(sheet.Info().Result, 5u);
    EXPECT_EQ(sheet.Call(kDevice, PROPSHEETUI_REASON_DESTROY, 0), 1);

    NotingSheet refusing(AsParameter(header));
    refusing.refusedPage = 0;
    EXPECT_EQ(refusing.Begin(kDevice), -1);
}

}  // namespace
}  // namespace test
