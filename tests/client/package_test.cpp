// The package on a computer: the platform's setup functions copy what its setup file says, the
// spooler takes drivers from there, and printers of every model have the driver's settings and
// version.
#include <windows.h>
#include <gtest/gtest.h>

#include <prsht.h>
#include <setupapi.h>
#include <winspool.h>

#include "core/device_mode.h"
#include "core/driver_files.h"
#include "core/ui_language.h"
#include "resources/resource.h"
#include "sheet_session.h"
#include "tools/computer/computer.h"
#include "ui/pages/about/driver_version.h"
#include "version.h"

#include <filesystem>
#include <fstream>
#include <set>
#include <vector>

namespace test {
namespace {

namespace fs = std::filesystem;
using WideString = std::basic_string<WCHAR>;

std::string Bytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The setup file, read by the platform.
class SetupFile {
  public:
    explicit SetupFile(const fs::path& path)
        : file_(SetupOpenInfFileW(path.c_str(), TEXT("Printer"), INF_STYLE_WIN4, nullptr)) {}
    ~SetupFile() { SetupCloseInfFile(file_); }
    SetupFile(const SetupFile&) = delete;
    SetupFile& operator=(const SetupFile&) = delete;

    HINF get() const { return file_; }
    bool IsOpen() const { return file_ != INVALID_HANDLE_VALUE; }
    WideString Value(const WCHAR* section, const WCHAR* key, DWORD field = 1) const {
        INFCONTEXT line;
        return SetupFindFirstLineW(file_, section, key, &line) ? Field(line, field) : WideString();
    }
    /// A field of each line: 0 is the key.
    std::vector<WideString> Column(const WCHAR* section, DWORD field) const {
        std::vector<WideString> column;
        INFCONTEXT line;
        for (BOOL more = SetupFindFirstLineW(file_, section, nullptr, &line); more;
             more = SetupFindNextLine(&line, &line)) {
            column.push_back(Field(line, field));
        }
        return column;
    }

  private:
    static WideString Field(INFCONTEXT& line, DWORD field) {
        WCHAR text[MAX_PATH] = {};
        SetupGetStringFieldW(&line, field, text, MAX_PATH, nullptr);
        return text;
    }

    HINF file_;
};

// Nobody is asked: what is not where it should be is a failure.
UINT CALLBACK CopyOrFail(void* failures, UINT notification, UINT_PTR file, UINT_PTR) {
    if (notification == SPFILENOTIFY_NEEDMEDIA) {
        return FILEOP_DOIT;
    }
    if (notification == SPFILENOTIFY_COPYERROR) {
        const auto* paths = reinterpret_cast<const FILEPATHS_W*>(file);
        static_cast<std::vector<WideString>*>(failures)->push_back(paths->Source);
        return FILEOP_SKIP;
    }
    return FILEOP_DOIT;
}

class PackageTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(setup_.IsOpen()) << "error " << GetLastError();
        WCHAR section[MAX_PATH] = {};
        ASSERT_TRUE(SetupDiGetActualSectionToInstallW(setup_.get(), TEXT("KP4xx"), section,
                                                      MAX_PATH, nullptr, nullptr));
        section_ = section;
        EXPECT_EQ(setup_.Value(section, TEXT("CopyFiles")), TEXT("DriverFiles"));
        files_ = setup_.Column(TEXT("DriverFiles"), 0);
        models_ = setup_.Column(TEXT("Models.NTamd64"), 0);
        for (const WideString& model : models_) {
            EXPECT_EQ(setup_.Value(TEXT("Models.NTamd64"), model.c_str()), TEXT("KP4xx"));
        }
        // What the platform does with a signed package; this one waits for its catalogue.
        fs::copy_file(package_ / "kpdui.inf", given_, fs::copy_options::overwrite_existing);
    }
    void TearDown() override {
        for (WideString& model : models_) {
            computer::RemovePrinter(PrinterOf(model));
            DeletePrinterDriverExW(nullptr, nullptr, model.data(), DPD_DELETE_ALL_FILES, 0);
        }
        std::error_code ignored;
        fs::remove(given_, ignored);
        for (const WideString& file : files_) {
            fs::remove(Installed(file), ignored);
            fs::remove(Installed(file).parent_path().parent_path() / file, ignored);
        }
    }

    static fs::path WindowsFolder() {
        WCHAR path[MAX_PATH] = {};
        GetWindowsDirectoryW(path, MAX_PATH);
        return path;
    }
    static WideString PrinterOf(const WideString& model) { return TEXT("Packaged ") + model; }
    static fs::path Installed(const WideString& file) {
        WCHAR path[kDriverPathLength];
        DriverFilePath(path, file.c_str());
        return path;
    }

    // What the class installer of printers does for each model: the files of its section, then the
    // driver that the section's keys describe, which takes them from where they were put.
    void InstallDriver(WideString model) {
        std::vector<WideString> failures;
        const HSPFILEQ queue = SetupOpenFileQueue();
        EXPECT_TRUE(SetupInstallFilesFromInfSectionW(setup_.get(), nullptr, queue, section_.c_str(),
                                                     package_.c_str(), 0));
        EXPECT_TRUE(SetupCommitFileQueueW(nullptr, queue, CopyOrFail, &failures));
        SetupCloseFileQueue(queue);
        EXPECT_EQ(failures, std::vector<WideString>());

        WCHAR environment[] = TEXT("Windows x64");
        WideString dependent;
        for (const WideString& file : files_) {
            dependent += file + WCHAR{0};
        }
        WideString driver = setup_.Value(section_.c_str(), TEXT("DriverFile"));
        WideString config = setup_.Value(section_.c_str(), TEXT("ConfigFile"));
        WideString data = setup_.Value(section_.c_str(), TEXT("DataFile"));
        DRIVER_INFO_3W info = {};
        info.cVersion = 3;
        info.pName = model.data();
        info.pEnvironment = environment;
        info.pDriverPath = driver.data();
        info.pConfigFile = config.data();
        info.pDataFile = data.data();
        info.pDependentFiles = dependent.data();
        EXPECT_TRUE(
            AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&info), APD_COPY_ALL_FILES))
            << GetLastError();
    }

    void AddPrinterOf(WideString model) {
        WideString name = PrinterOf(model);
        WCHAR port[] = TEXT("FILE:");
        WCHAR processor[] = TEXT("winprint");
        WCHAR datatype[] = TEXT("RAW");
        PRINTER_INFO_2W info = {};
        info.pPrinterName = name.data();
        info.pDriverName = model.data();
        info.pPortName = port;
        info.pPrintProcessor = processor;
        info.pDatatype = datatype;
        HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info));
        ASSERT_NE(printer, nullptr) << GetLastError();
        ClosePrinter(printer);
    }

    const fs::path package_ = fs::absolute(KPD_PACKAGE);
    const fs::path given_ = WindowsFolder() / "inf" / "oem4711.inf";
    const SetupFile setup_{package_ / "kpdui.inf"};
    WideString section_;
    std::vector<WideString> files_;
    std::vector<WideString> models_;
};

TEST_F(PackageTest, PrintersOfEveryModelAreInstalledFromIt) {
    EXPECT_EQ(
        std::set<WideString>(models_.begin(), models_.end()),
        (std::set<WideString>{TEXT("Mirv KP-41"), TEXT("Mirv KP-410e"), TEXT("Mirv KP-43"),
                              TEXT("Mirv KP-430e"), TEXT("Mirv KP-45"), TEXT("Mirv KP-49"),
                              TEXT("Mirv KP-510"), TEXT("Mirv KP-511"), TEXT("Mirv KP-560i")}));
    for (const WideString& model : models_) {
        InstallDriver(model);
        AddPrinterOf(model);
        WideString name = PrinterOf(model);
        HANDLE printer = nullptr;
        ASSERT_TRUE(OpenPrinterW(name.data(), &printer, nullptr));
        DevModeRecord record = {};
        EXPECT_EQ(DocumentPropertiesW(nullptr, printer, name.data(), &record.Public, nullptr,
                                      DM_OUT_BUFFER),
                  IDOK);
        ClosePrinter(printer);
        EXPECT_EQ(record.Public.dmDriverExtra, kPrivateSize);
        EXPECT_EQ(record.Private.ModelCode, kModelCode);
        EXPECT_EQ(record.Private.CardType, model == TEXT("Mirv KP-430e") ? 5 : 0);
        EXPECT_EQ(record.Private.PrintingMode, model == TEXT("Mirv KP-511") ? 0 : 1);
    }
    for (const WideString& file : files_) {
        EXPECT_EQ(Bytes(Installed(file)), Bytes(package_ / file)) << fs::path(file);
    }
}

TEST_F(PackageTest, HasWhatTheDriverOpensByName) {
    std::set<WideString> missing = {
        TEXT("kpdui.dll"),    TEXT("KP4xx.in_"),    TEXT("Magnetic.txt"), TEXT("CalChart.bmp"),
        TEXT("CalPrvCn.bmp"), TEXT("CalPrvEn.bmp"), TEXT("CalPrvPt.bmp"), TEXT("CalPrvTw.bmp")};
    for (LANGID language = 0; language < MAKELANGID(0, 3); ++language) {
        if (const WideString suffix = UiLanguageOf(language).Suffix; suffix != TEXT("Eng")) {
            missing.insert(TEXT("mv") + suffix + TEXT("kpd.ini"));
        }
    }
    for (const WideString& file : files_) {
        missing.erase(file);
        EXPECT_EQ(setup_.Value(TEXT("SourceDisksFiles"), file.c_str()), TEXT("1"));
    }
    EXPECT_EQ(missing, std::set<WideString>());
}

// With a driver on this computer and with that of a printer on another.
TEST_F(PackageTest, TheVersionIsFound) {
    InstallDriver(TEXT("Mirv KP-41"));
    for (const bool isRemotePrinter : {false, true}) {
        DriverVersion found = {};
        ASSERT_TRUE(FindDriverVersion(isRemotePrinter, kModelCode, found));
        EXPECT_EQ(fs::path(found.Version).string(), KPD_VERSION);
        EXPECT_EQ(fs::path(found.Date).string(), KPD_RELEASED);
    }
}

TEST_F(PackageTest, TheSheetsOfItsPrintersShowTheVersion) {
    for (const WCHAR* model : {TEXT("Mirv KP-41"), TEXT("Mirv KP-430e"), TEXT("Mirv KP-511")}) {
        InstallDriver(model);
        AddPrinterOf(model);
        DevModeRecord record = {};
        WCHAR version[MAX_PATH] = {};
        RunSheetOf(
            PrinterOf(model), record,
            [&](HWND sheet) {
                GetDlgItemTextW(ShowPage(sheet, IDD_ABOUT), IDC_VERSION, version, MAX_PATH);
            },
            PSBTN_OK);
        EXPECT_EQ(fs::path(version).string(), KPD_VERSION) << fs::path(model);
        EXPECT_EQ(record.Private.ModelCode, kModelCode);
    }
}

}  // namespace
}  // namespace test
