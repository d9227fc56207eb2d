// The sample of the print-area designer, called as the driver calls it and as no caller may: what
// it answers and what it complains of. The records are bytes here, so that nothing of the sample is
// taken over.
#include "tools/companions/area_dialog_controls.h"
#include "tools/computer/sample_library.h"
#include "tools/kpdtool/language/cut_text.h"

#include "pixel_canvas.h"
#include "window_test.h"

#include <cstring>
#include <optional>
#include <sstream>

namespace test {
namespace {

using Bytes = std::vector<BYTE>;

constexpr size_t kRequestSize = 168;

template <typename T>
void Put(Bytes& record, size_t at, T value) {
    std::memcpy(record.data() + at, &value, sizeof(value));
}

template <typename T>
T Get(const void* record, size_t at) {
    T value;
    std::memcpy(&value, static_cast<const BYTE*>(record) + at, sizeof(value));
    return value;
}

struct Area {
    std::string name;
    const void* data;
};

class AreaDesignTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        WCHAR path[4096] = {};
        GetEnvironmentVariableW(TEXT("PATH"), path, 4096);
        path_ = path;
        directory_ = Narrow(DriverFolder()) + "\\";
        folder_ = Narrow(TestFolder()) + "\\Mirv\\PrtArea\\";
    }
    void TearDown() override {
        EndSteps();
        Unload();
        designer_.reset();
        SetEnvironmentVariableW(TEXT("PATH"), path_.c_str());
        WindowTest::TearDown();
    }

    void Load(const std::string& state = "") {
        Unload();
        designer_.emplace(state);
        ASSERT_EQ(designer_->Reason(), "");
        module_ = LoadLibraryW((DriverFolder() + TEXT("\\AreaDesign.dll")).c_str());
        ASSERT_NE(module_, nullptr);
        Find(newDesigner_, "NewPrintAreaDlg");
        Find(showDialog_, "ShowDoModalDialog");
        Find(enumerate_, "CreateEnumPrntAreaClass");
        Find(getName_, "GetPrintAreaName");
        Find(getData_, "GetPrintAreaData");
        Find(release_, "ReleasePrintAreaData");
        Find(finish_, "DelPrntAreaDlgOrEnumClass");
    }
    void Unload() {
        if (module_ != nullptr) {
            FreeLibrary(std::exchange(module_, nullptr));
        }
    }

    // The lines of that name in the state, each ended by a line feed.
    std::string Noted(const std::string& name) const {
        std::string noted;
        std::istringstream state(designer_->State());
        for (std::string line; std::getline(state, line);) {
            if (line.starts_with(name + " = ")) {
                noted += line.substr(name.size() + 3) + "\n";
            }
        }
        return noted;
    }

    // A record as it must be.
    Bytes Request(BYTE surface, bool upright, bool forDesigner, DWORD longExtent = 1014) const {
        Bytes record(kRequestSize);
        Put<DWORD>(record, 0, kRequestSize);
        Put<DWORD>(record, 4, 1);
        record[8] = surface;
        record[9] = upright ? 1 : 2;
        const bool shortFirst = upright == forDesigner;
        Put<DWORD>(record, shortFirst ? 12 : 16, 642);
        Put<DWORD>(record, shortFirst ? 16 : 12, longExtent);
        Put<WORD>(record, 20, 300);
        Put<WORD>(record, 22, 300);
        record[24] = 1;
        record[25] = 0x20;
        Put(record, 32, directory_.c_str());
        Put(record, 40, folder_.c_str());
        if (forDesigner) {
            std::memcpy(record.data() + 48, "PAEngkpd.ini", 12);
        }
        return record;
    }

    void* Enumerate(Bytes record) {
        void* handle = nullptr;
        count_ = 0;
        made_ = enumerate_(&handle, directory_.c_str(), 1, record.data(), &count_);
        return handle;
    }
    void* NewDesigner() {
        void* handle = nullptr;
        made_ = newDesigner_(nullptr, directory_.c_str(), &handle, 0, 0);
        return handle;
    }
    // The outcome.
    DWORD Show(void* designer, Bytes& record) {
        SetEnvironmentVariableW(TEXT("PATH"), (path_ + TEXT(";") + DriverFolder()).c_str());
        DWORD outcome = 2;
        showDialog_(designer, 1, record.data(), &outcome);
        return outcome;
    }
    std::string NameOf(void* designer, void* enumeration, DWORD index) {
        char name[260];
        DWORD size = 260;
        return getName_(designer, enumeration, index, name, &size) == 0 ? "refused"
               : std::memchr(name, 0, 260) == nullptr                   ? "unterminated"
                                                                        : name;
    }
    const void* DataOf(void* designer, void* enumeration, DWORD index) {
        void* data = nullptr;
        getData_(designer, enumeration, index, &data);
        return data;
    }
    // The names of an enumeration, which is finished then.
    std::string Names(const Bytes& record) {
        void* list = Enumerate(record);
        std::string names;
        for (DWORD i = 0; i < count_; ++i) {
            names += (i == 0 ? "" : ", ") + NameOf(nullptr, list, i);
        }
        finish_(nullptr, list);
        return names;
    }

    void WriteArea(const char* file, const std::string& text) {
        std::filesystem::create_directories(DiskPath(Wide(folder_)));
        WriteBytes(Wide(folder_ + file), text);
    }

    std::string directory_;
    std::string folder_;
    std::optional<computer::SampleDesigner> designer_;
    HMODULE module_ = nullptr;
    DWORD count_ = 0;  // of the last enumeration
    BYTE made_ = 0;    // whether the last enumeration or designer was

    BYTE(WINAPI* newDesigner_)(void*, const char*, void**, DWORD, DWORD) = nullptr;
    void(WINAPI* showDialog_)(void*, DWORD, void*, DWORD*) = nullptr;
    BYTE(WINAPI* enumerate_)(void**, const char*, DWORD, void*, DWORD*) = nullptr;
    BYTE(WINAPI* getName_)(void*, void*, DWORD, char*, DWORD*) = nullptr;
    void(WINAPI* getData_)(void*, void*, DWORD, void**) = nullptr;
    void(WINAPI* release_)(void*, void*, const void*) = nullptr;
    void(WINAPI* finish_)(void*, void*) = nullptr;

  private:
    WideString path_;  // as it was

    template <typename Function>
    void Find(Function& function, const char* name) {
        function =
            reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
        ASSERT_NE(function, nullptr) << name;
    }
};

// "kind x y width height;" of each block.
std::string BlocksOf(const void* data) {
    std::string text;
    const void* block = Get<const void*>(data, 808);
    for (int i = 0; block != nullptr && i < 10; ++i) {
        text += std::to_string(Get<BYTE>(block, 8));
        for (size_t at : {12, 14, 16, 18}) {
            text += " " + std::to_string(Get<WORD>(block, at));
        }
        text += ";";
        block = Get<const void*>(block, 104);
    }
    return text;
}

std::string HeaderOf(const void* data) {
    char text[64];
    std::snprintf(text, sizeof(text), "%d %u %u %06x %06x", Get<BYTE>(data, 10),
                  Get<unsigned>(data, 92), Get<unsigned>(data, 96), Get<unsigned>(data, 104),
                  Get<unsigned>(data, 108));
    return text;
}

// ---- What it lists ------------------------------------------------------------------------------

TEST_F(AreaDesignTest, TheSideDecidesWhichStandardAreasThereAre) {
    struct Case {
        BYTE surface;
        bool upright;
        const char* names;
    };
    const Case cases[] = {
        {1, false, "Standard, Chip Free, Photo Window"},
        {2, false, "Standard, Magnetic Stripe Free, Signature Panel"},
        {3, false, "Standard, Photo Window, Signature Panel"},
        {4, true, "Standard, Chip Free, Photo Window, Portrait Photo"},
    };
    Load();
    for (const Case& c : cases) {
        EXPECT_EQ(Names(Request(c.surface, c.upright, false)), c.names);
    }
    Unload();
    EXPECT_EQ(Noted("complaint"), "");
    Load("standard = no\n");
    EXPECT_EQ(Names(Request(3, false, false)), "");
    EXPECT_EQ(made_, 1);
}

TEST_F(AreaDesignTest, WithoutItsFileItNotesNothing) {
    Load();
    const auto file = DiskPath(DriverFolder() + TEXT("\\SampleDesigner.txt"));
    std::filesystem::remove(file);
    EXPECT_EQ(Names(Request(2, false, false)), "Standard, Magnetic Stripe Free, Signature Panel");
    NewDesigner();
    Unload();
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(AreaDesignTest, FilesAddAreasAndReplaceStandardOnes) {
    const std::string rest =
        "\norientation = portrait\nlayout = 50 80\ncard = 1 2 3\narea = 4 5 6\n";
    WriteArea("z.txt", "name = Zone" + rest);
    WriteArea("b.txt", "# by hand\r\nname = B\xC3\xA4r" + rest +
                           "block = 1 1 2 3 4\nblock = 0 65535 0 7 8\n");
    WriteArea("a.txt", "name = sTANDARD" + rest);
    WriteArea("zone.areas", "name = No text file" + rest);
    const char* const broken[] = {
        "",
        "name = ",
        "name = X\norientation = portrait\nlayout = 50 80\ncard = 1 2 3\n",
        "name = X\norientation = upside down\nlayout = 50 80\ncard = 1 2 3\narea = 4 5 6\n",
        "name = X\norientation = portrait\nlayout = 50 0\ncard = 1 2 3\narea = 4 5 6\n",
        "name = X\norientation = portrait\nlayout = 50 80\ncard = 1 2 256\narea = 4 5 6\n",
        "name = X\norientation = portrait\nlayout = 50 80\ncard = 1 2 3\narea = 4 5 6 7\n",
    };
    for (size_t i = 0; i < std::size(broken); ++i) {
        WriteArea(("c" + std::to_string(i) + ".txt").c_str(), broken[i]);
    }
    for (const char* block : {"1 2 3 4", "1 2 3 4 65536", "1 2 3 -4 5", "a 2 3 4 5"}) {
        WriteArea((std::string("d") + block + ".txt").c_str(),
                  "name = X" + rest + "block = " + block + "\n");
    }
    WriteArea("long.txt", "name = " + std::string(260, 'n') + rest);
    Load();
    EXPECT_EQ(Names(Request(2, false, false)),
              "sTANDARD, Magnetic Stripe Free, Signature Panel, B\xE4r, Zone");

    void* list = Enumerate(Request(2, false, false));
    const void* data = DataOf(nullptr, list, 3);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(HeaderOf(data), "1 50 80 030201 060504");
    EXPECT_EQ(BlocksOf(data), "1 1 2 3 4;0 65535 0 7 8;");
    release_(nullptr, list, data);
    finish_(nullptr, list);
    list = Enumerate(Request(2, false, false, 1700));
    data = DataOf(nullptr, list, 1);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(HeaderOf(data), "2 1700 642 e6f6fa f0b060");
    EXPECT_EQ(BlocksOf(data), "2 0 0 1700 642;1 0 430 1700 160;");
    release_(nullptr, list, data);
    finish_(nullptr, list);
    Unload();
    EXPECT_EQ(Noted("complaint"), "");
}

// ---- Its dialog ---------------------------------------------------------------------------------

TEST_F(AreaDesignTest, TheFileAnswersTheDialog) {
    struct Case {
        const char* state;
        DWORD outcome;
        WORD index;
    };
    const Case cases[] = {
        {"dialog = accept 2\n", 1, 2},
        {"dialog = accept\n", 1, 1},
        {"dialog = cancel\n", 2, 1},
        {"dialog = accept 2\nfault = foreign index\n", 1, 0xFFFF},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.state);
        Load(c.state);
        void* designer = NewDesigner();
        Bytes record = Request(1, true, true);
        Put<WORD>(record, 10, 1);
        EXPECT_EQ(Show(designer, record), c.outcome);
        EXPECT_EQ(Get<WORD>(record.data(), 10), c.index);
        EXPECT_EQ(NameOf(designer, nullptr, c.index), c.index == 2   ? "Photo Window"
                                                      : c.index == 1 ? "Chip Free"
                                                                     : "refused");
        finish_(designer, nullptr);
        Unload();
        EXPECT_EQ(Noted("complaint"), "");
    }
    EXPECT_NE(Noted("call").find("ShowDoModalDialog designer 1 surface 1 orientation 1 index 1 "
                                 "extents 642 1014 directory \"" +
                                 directory_ + "\" folder \"" + folder_ +
                                 "\" language PAEngkpd.ini path \"" + Narrow(DriverFolder()) +
                                 "\" accepted index 65535\n"),
              std::string::npos)
        << Noted("call");
}

TEST_F(AreaDesignTest, SomebodyMovesABlockInTheDialog) {
    Load();
    const auto click = [](int button) {
        HWND dialog = GetActiveWindow();
        SendMessageW(GetDlgItem(dialog, button), BM_CLICK, 0, 0);
    };
    const auto choose = [](int list, int index) {
        HWND dialog = GetActiveWindow();
        SendDlgItemMessageW(dialog, list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(list, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, list)));
    };
    RunInLoop([&] {
        HWND dialog = GetActiveWindow();
        EXPECT_EQ(TextOf(dialog), "Print Area Designer");
        EXPECT_FALSE(IsWindowEnabled(parent_));
        EXPECT_EQ(SendDlgItemMessageW(dialog, kAreaList, CB_GETCURSEL, 0, 0), 2);
        choose(kAreaList, 1);
        choose(kBlockList, 1);
        click(kMoveLeft);
        for (int i = 0; i < 30; ++i) {
            click(kMoveUp);  // the card ends at 642
        }
        click(kMoveDown);
        EXPECT_EQ(TextOf(GetDlgItem(dialog, kBlockPlace)), "at 90, 482\n160 by 150");
        EXPECT_EQ(kpdtool::CutTextsOf(dialog), std::vector<kpdtool::CutText>());
        PixelCanvas canvas(102, 65);
        DRAWITEMSTRUCT item = {};
        item.CtlType = ODT_STATIC;
        item.CtlID = kAreaPreview;
        item.hDC = canvas.context;
        item.rcItem = {0, 0, 102, 65};
        SendMessageW(dialog, WM_DRAWITEM, kAreaPreview, reinterpret_cast<LPARAM>(&item));
        EXPECT_EQ(canvas.At(9, 8), 0x000000u);  // the frame of the block
        EXPECT_EQ(canvas.At(17, 8), 0xFFFFFFu);
        EXPECT_EQ(canvas.At(50, 40), 0x60B0F0u);
        click(IDOK);
    });
    SetActiveWindow(parent_);
    void* designer = NewDesigner();
    Bytes record = Request(1, false, true);
    Put<WORD>(record, 10, 2);
    EXPECT_EQ(Show(designer, record), 1u);
    EXPECT_EQ(Get<WORD>(record.data(), 10), 1);
    EXPECT_EQ(NameOf(designer, nullptr, 1), "Chip Free");
    const void* data = DataOf(designer, nullptr, 1);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(BlocksOf(data), "2 0 0 1014 642;1 90 482 160 150;");
    release_(designer, nullptr, data);
    finish_(designer, nullptr);

    RunInLoop([&] {
        click(kMoveRight);
        click(IDCANCEL);
    });
    designer = NewDesigner();
    record = Request(1, false, true);
    EXPECT_EQ(Show(designer, record), 2u);
    finish_(designer, nullptr);
    Unload();
    EXPECT_EQ(Noted("complaint"), "");
    EXPECT_EQ(Noted("made"), folder_.substr(0, folder_.size() - 9) + "\n" +
                                 folder_.substr(0, folder_.size() - 1) + "\n" + folder_ +
                                 "Chip Free.txt\n");
    EXPECT_EQ(ReadBytes(Wide(folder_ + "Chip Free.txt")),
              "name = Chip Free\n"
              "orientation = landscape\n"
              "layout = 1014 642\n"
              "card = 250 246 230\n"
              "area = 96 176 240\n"
              "block = 2 0 0 1014 642\n"
              "block = 1 90 482 160 150\n");
    designer_.reset();
    EXPECT_FALSE(std::filesystem::exists(DiskPath(TestFolder() + TEXT("\\Mirv"))));
}

// ---- Complaints ---------------------------------------------------------------------------------

TEST_F(AreaDesignTest, EveryByteOfTheRecordIsChecked) {
    struct Case {
        size_t at;
        BYTE value;
        const char* both;  // or of enumerations
        const char* designer;
    };
    const Case cases[] = {
        {0, 167, "the record's size", nullptr},
        {4, 0, "the record's constant at 4", nullptr},
        {8, 5, "the surface code", nullptr},
        {8, 0, "the surface code", nullptr},
        {9, 1, "the card's extents", nullptr},
        {10, 1, "an area index in an enumeration", ""},
        {12, 0, "the card's extents", nullptr},
        {16, 0, "the card's extents", nullptr},
        {20, 0, "the resolutions", nullptr},
        {22, 0, "the resolutions", nullptr},
        {24, 0, "the record's constant at 24", nullptr},
        {25, 0, "the record's constant at 25", nullptr},
        {26, 1, "the record's zeros at 26", nullptr},
        {31, 1, "the record's zeros at 26", nullptr},
        {48, 'X', "a language file in an enumeration", "the language file"},
        {167, 1, "a language file in an enumeration", "the language file"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.at);
        Load("dialog = cancel\n");
        Bytes record = Request(3, false, false);
        record[c.at] = c.value;
        if (void* list = Enumerate(record)) {
            finish_(nullptr, list);
        }
        EXPECT_EQ(Noted("complaint"), std::string("CreateEnumPrntAreaClass: ") + c.both + "\n");
        Load("dialog = cancel\n");
        record = Request(3, false, true);
        record[c.at] = c.value;
        void* designer = NewDesigner();
        Show(designer, record);
        finish_(designer, nullptr);
        const std::string complaint = c.designer == nullptr ? c.both : c.designer;
        EXPECT_EQ(Noted("complaint"),
                  complaint.empty() ? "" : "ShowDoModalDialog: " + complaint + "\n");
    }
}

TEST_F(AreaDesignTest, EveryRuleIsComplainedOf) {
    char name[260];
    DWORD size = 260;
    void* none = nullptr;
    struct Case {
        const char* complaint;
        std::function<void(void* list, void* designer)> breaks;
    };
    const auto list = [&](const std::string& directory, const std::string& folder, DWORD third,
                          DWORD count) {
        Bytes record = Request(3, false, false);
        Put(record, 32, directory.c_str());
        Put(record, 40, folder.c_str());
        void* made = nullptr;
        if (enumerate_(&made, directory_.c_str(), third, record.data(), &count) != 0) {
            finish_(nullptr, made);
        }
    };
    const auto show = [&](void* designer, DWORD second, DWORD outcome, WORD index,
                          const char* language, const WideString& path) {
        Bytes record = Request(3, false, true);
        Put<WORD>(record, 10, index);
        std::fill(record.begin() + 48, record.end(), BYTE{0});
        std::memcpy(record.data() + 48, language, std::strlen(language));
        SetEnvironmentVariableW(TEXT("PATH"), path.c_str());
        showDialog_(designer, second, record.data(), &outcome);
    };
    const WideString path = TEXT("C:\\Tools;") + DriverFolder();
    const char* const language = "PAPrskpd.ini";
    const std::string unterminated(2000, 'x');
    const Case cases[] = {
        {"CreateEnumPrntAreaClass: the driver directory is not as it must be",
         [&](void*, void*) { list(directory_.substr(0, directory_.size() - 1), folder_, 1, 0); }},
        {"CreateEnumPrntAreaClass: the print-area folder",
         [&](void*, void*) { list(directory_, folder_.substr(0, folder_.size() - 1), 1, 0); }},
        {"CreateEnumPrntAreaClass: the print-area folder",
         [&](void*, void*) { list(directory_, unterminated, 1, 0); }},
        {"CreateEnumPrntAreaClass: the third argument is not 1",
         [&](void*, void*) { list(directory_, folder_, 0, 0); }},
        {"CreateEnumPrntAreaClass: the count is not preset to 0",
         [&](void*, void*) { list(directory_, folder_, 1, 7); }},
        {"CreateEnumPrntAreaClass: no record",
         [&](void*, void*) { enumerate_(&none, directory_.c_str(), 1, nullptr, &size); }},
        {"NewPrintAreaDlg: an owner",
         [&](void*, void*) {
             newDesigner_(parent_, directory_.c_str(), &none, 0, 0);
             finish_(none, nullptr);
         }},
        {"NewPrintAreaDlg: the last arguments are not 0",
         [&](void*, void*) {
             newDesigner_(nullptr, directory_.c_str(), &none, 0, 1);
             finish_(none, nullptr);
         }},
        {"NewPrintAreaDlg: the driver directory is not as it must be",
         [&](void*, void*) {
             newDesigner_(nullptr, folder_.c_str(), &none, 0, 0);
             finish_(none, nullptr);
         }},
        {"ShowDoModalDialog: the second argument is not 1",
         [&](void*, void* designer) { show(designer, 0, 2, 0, language, path); }},
        {"ShowDoModalDialog: the outcome is not preset to 2",
         [&](void*, void* designer) { show(designer, 1, 0, 0, language, path); }},
        {"ShowDoModalDialog: an area that is not listed",
         [&](void*, void* designer) { show(designer, 1, 2, 3, language, path); }},
        {"ShowDoModalDialog: the language file",
         [&](void*, void* designer) { show(designer, 1, 2, 0, "PAXyzkpd.ini", path); }},
        {"ShowDoModalDialog: the language file",
         [&](void*, void* designer) { show(designer, 1, 2, 0, "", path); }},
        {"ShowDoModalDialog: PATH does not end with the driver directory",
         [&](void*, void* designer) {
             show(designer, 1, 2, 0, language, path + TEXT(";C:\\Tools"));
         }},
        {"ShowDoModalDialog: a handle of the other kind",
         [&](void* first, void*) { show(first, 1, 2, 0, language, path); }},
        {"GetPrintAreaName: two handles",
         [&](void* first, void* designer) { getName_(designer, first, 0, name, &size); }},
        {"GetPrintAreaName: no handle",
         [&](void*, void*) { getName_(nullptr, nullptr, 0, name, &size); }},
        {"GetPrintAreaName: a handle that was never given",
         [&](void*, void*) { getName_(nullptr, name, 0, name, &size); }},
        {"GetPrintAreaName: an area that is not listed",
         [&](void* first, void*) { getName_(nullptr, first, 3, name, &size); }},
        {"GetPrintAreaName: the size is not preset to 260",
         [&](void* first, void*) {
             DWORD other = 259;
             getName_(nullptr, first, 0, name, &other);
         }},
        {"GetPrintAreaData: the data is not preset to null",
         [&](void* first, void*) {
             void* data = name;
             getData_(nullptr, first, 0, &data);
             release_(nullptr, first, data);
         }},
        {"GetPrintAreaData: an area that is not listed",
         [&](void* first, void*) { DataOf(nullptr, first, 3); }},
        {"ReleasePrintAreaData: data that this handle has not given",
         [&](void* first, void*) {
             const void* data = DataOf(nullptr, first, 0);
             release_(nullptr, first, data);
             release_(nullptr, first, data);
         }},
        {"ReleasePrintAreaData: data that this handle has not given\n"
         "DelPrntAreaDlgOrEnumClass: area data is not released",
         [&](void* first, void* designer) {
             release_(designer, nullptr, DataOf(nullptr, first, 0));
         }},
        {"DelPrntAreaDlgOrEnumClass: a handle that is finished",
         [&](void*, void*) {
             void* second = Enumerate(Request(3, false, false));
             finish_(nullptr, second);
             finish_(nullptr, second);
         }},
        {"unloading: enumeration 2 is not finished",
         [&](void*, void*) { Enumerate(Request(3, false, false)); }},
        {"unloading: designer 2 is not finished", [&](void*, void*) { NewDesigner(); }},
        {"unloading: enumeration 2 is not finished\n"
         "unloading: area data of enumeration 2 is not released",
         [&](void*, void*) { DataOf(nullptr, Enumerate(Request(3, false, false)), 0); }},
        {"EnumPrintAreaFiles: nobody calls it",
         [&](void*, void*) { GetProcAddress(module_, "EnumPrintAreaFiles")(); }},
        {nullptr, [](void*, void*) {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.complaint == nullptr ? "no rule broken" : c.complaint);
        Load("dialog = cancel\n");
        size = 260;
        void* first = Enumerate(Request(3, false, false));
        void* designer = NewDesigner();
        c.breaks(first, designer);
        finish_(nullptr, first);
        finish_(designer, nullptr);
        Unload();
        const std::string expected = c.complaint == nullptr ? "" : c.complaint + std::string("\n");
        EXPECT_EQ(Noted("complaint"), expected);
        EXPECT_TRUE(Noted("call").ends_with("unloading\n"));
    }
}

// ---- Faults -------------------------------------------------------------------------------------

TEST_F(AreaDesignTest, FaultsAreAnswersThatNoCallerMayTrust) {
    // The first enumeration and the second, and of the first its count, a name and data.
    struct Case {
        const char* fault;
        const char* answers;
    };
    const Case cases[] = {
        {"none", "1 1 3 Standard 2 1014 642; 2 0 0 1014 642;"},
        {"no enumeration", "0 0"},
        {"no front enumeration", "0 1"},
        {"no back enumeration", "1 0 3 Standard 2 1014 642; 2 0 0 1014 642;"},
        {"enormous count", "1 1 4294967295 Standard 2 1014 642; 2 0 0 1014 642;"},
        {"unterminated name", "1 1 3 unterminated 2 1014 642; 2 0 0 1014 642;"},
        {"no data", "1 1 3 Standard no data"},
        {"zero width", "1 1 3 Standard 2 0 642; 2 0 0 1014 642;"},
        {"zero height", "1 1 3 Standard 2 1014 0; 2 0 0 1014 642;"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.fault);
        Load(std::string("fault = ") + c.fault + "\n");
        void* first = Enumerate(Request(3, false, false));
        std::string answers = std::to_string(made_);
        const std::string count = std::to_string(count_);
        void* second = Enumerate(Request(3, false, false));
        answers += " " + std::to_string(made_);
        if (first != nullptr) {
            answers += " " + count + " " + NameOf(nullptr, first, 0) + " ";
            const void* data = DataOf(nullptr, first, 0);
            answers += data == nullptr
                           ? "no data"
                           : std::to_string(Get<BYTE>(data, 10)) + " " +
                                 std::to_string(Get<DWORD>(data, 92)) + " " +
                                 std::to_string(Get<DWORD>(data, 96)) + "; " + BlocksOf(data);
            if (data != nullptr) {
                release_(nullptr, first, data);
            }
            finish_(nullptr, first);
        }
        if (second != nullptr) {
            finish_(nullptr, second);
        }
        EXPECT_EQ(answers, c.answers);
        Unload();
        EXPECT_EQ(Noted("complaint"), "");
    }
}

TEST_F(AreaDesignTest, ChainsMayHaveNoEndAndDesignersNoName) {
    Load("fault = endless chain\n");
    void* list = Enumerate(Request(3, false, false));
    const void* data = DataOf(nullptr, list, 1);
    const void* firstBlock = Get<const void*>(data, 808);
    const void* lastBlock = Get<const void*>(firstBlock, 104);
    EXPECT_NE(lastBlock, firstBlock);
    EXPECT_EQ(Get<const void*>(lastBlock, 104), firstBlock);
    release_(nullptr, list, data);
    finish_(nullptr, list);

    Load("fault = no name\ndialog = accept 1\n");
    void* designer = NewDesigner();
    Bytes record = Request(3, false, true);
    EXPECT_EQ(Show(designer, record), 1u);
    EXPECT_EQ(NameOf(designer, nullptr, 1), "refused");
    finish_(designer, nullptr);
    EXPECT_EQ(Names(Request(3, false, false)), "Standard, Photo Window, Signature Panel");

    Load("fault = no designer\n");
    EXPECT_EQ(NewDesigner(), nullptr);
    EXPECT_EQ(made_, 0);
    EXPECT_EQ(Noted("complaint"), "");

    Load("fault = no entry point\n");
    EXPECT_EQ(GetProcAddress(module_, "EnumPrintAreaFiles"), nullptr);
    Load();
    EXPECT_NE(GetProcAddress(module_, "EnumPrintAreaFiles"), nullptr);
}

}  // namespace
}  // namespace test
