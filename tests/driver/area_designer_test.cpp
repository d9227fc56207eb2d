// The print-area designer as the driver has it: what it is told, what is believed of its answers,
// the search path while it runs.
#include "companions/area_designer.h"
#include "application_data.h"
#include "core/driver_files.h"
#include "driver_test.h"

#include <cstring>

namespace test {
namespace {

// ---- What it is told ----------------------------------------------------------------------------

class AreaDesignerTest : public DriverTest {
  protected:
    ApplicationData applicationData_;
};

std::string Hex(const void* bytes, size_t size) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text;
    for (size_t i = 0; i < size; ++i) {
        const BYTE byte = static_cast<const BYTE*>(bytes)[i];
        text += {kDigits[byte >> 4], kDigits[byte & 15]};
    }
    return text;
}

// What differs of the record: surface, orientation, area index and both extents, in hexadecimal.
TEST_F(AreaDesignerTest, IsToldOfTheCard) {
    const struct {
        int cardType;
        SHORT paper, orientation;
        const char* front;
        const char* back;
        const char* listed;  // orientation, then the rest
        const char* designed;
    } cases[] = {
        {0, 560, 2, "03", "03", "02 0000 82020000F6030000", "02 CDAB F603000082020000"},
        {1, 560, 2, "04", "03", "02 0000 82020000F6030000", "02 CDAB F603000082020000"},
        {2, 560, 0, "01", "03", "02 0000 82020000F6030000", "02 CDAB F603000082020000"},
        {3, 561, 3, "03", "02", "02 0000 82020000A4060000", "02 CDAB A406000082020000"},
        {4, 561, 1, "01", "02", "01 0000 A406000082020000", "01 CDAB 82020000A4060000"},
        {5, 1, 1, "03", "03", "01 0000 F603000082020000", "01 CDAB 82020000F6030000"},
        {6, 0, 2, "03", "03", "02 0000 82020000F6030000", "02 CDAB F603000082020000"},
        {255, -1, 2, "03", "03", "02 0000 82020000F6030000", "02 CDAB F603000082020000"},
    };
    applicationData_.Store(TEXT("C:\\Data"));
    AreaFolders folders;
    ASSERT_TRUE(FindAreaFolders(folders));
    EXPECT_STREQ(folders.Areas, "C:\\Data\\Mirv\\PrtArea\\");
    EXPECT_STREQ(folders.Driver, (Narrow(DriverFolder()) + "\\").c_str());
    DevModeRecord record = DefaultRecord();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.cardType);
        record.Private.CardType = static_cast<BYTE>(c.cardType);
        record.Public.dmPaperSize = c.paper;
        record.Public.dmOrientation = c.orientation;
        for (const AreaSide side : {kFrontArea, kBackArea}) {
            const PrintAreaParams listed = EnumerationParams(record, side, folders);
            const PrintAreaParams designed = DesignerParams(record, side, folders, 0xABCD);
            for (const auto& [params, expected] :
                 {std::pair{&listed, c.listed}, std::pair{&designed, c.designed}}) {
                std::string bytes = Hex(params, 32);
                EXPECT_EQ(bytes.substr(0, 16), "A800000001000000");
                EXPECT_EQ(bytes.substr(16, 2), side == kFrontArea ? c.front : c.back);
                EXPECT_EQ(
                    bytes.substr(18, 2) + " " + bytes.substr(20, 4) + " " + bytes.substr(24, 16),
                    expected);
                EXPECT_EQ(bytes.substr(40), "2C012C010120000000000000");
                EXPECT_EQ(params->Driver, folders.Driver);
                EXPECT_EQ(params->Areas, folders.Areas);
            }
            EXPECT_EQ(std::string(listed.LanguageFile, 120), std::string(120, '\0'));
        }
    }
}

TEST_F(AreaDesignerTest, SpeaksTheUserLanguage) {
    constexpr struct {
        LANGID language;
        const char* file;
    } kLanguages[] = {
        {0x0401, "PAAra"}, {0x0404, "PACht"}, {0x0804, "PAChs"}, {0x0C04, "PAEng"},
        {0x1004, "PAEng"}, {0x0407, "PAGer"}, {0x0807, "PAGer"}, {0x0C0A, "PASpn"},
        {0x040C, "PAFrn"}, {0x0410, "PAIta"}, {0x0411, "PAJpn"}, {0x0412, "PAKrn"},
        {0x0415, "PAPol"}, {0x0416, "PAPrt"}, {0x0816, "PAPrt"}, {0x0419, "PARus"},
        {0x0421, "PAIdo"}, {0x0429, "PAPrs"}, {0x0409, "PAEng"}, {0x0413, "PAEng"},
    };
    int tried = 0;
    for (const auto& row : kLanguages) {
        if (!SetUiLanguage(row.language)) {
            continue;
        }
        ++tried;
        const std::string file = std::string(row.file) + "kpd.ini";
        WCHAR given[MAX_PATH];
        DesignerLanguageFile(given);
        EXPECT_EQ(Narrow(given), file) << row.language;
        const AreaFolders folders = {};
        const PrintAreaParams params = DesignerParams(DefaultRecord(), kFrontArea, folders, 0);
        EXPECT_EQ(std::string(params.LanguageFile, 120), file + std::string(120 - file.size(), 0));
    }
    EXPECT_GT(tried, 0);
}

TEST_F(AreaDesignerTest, FindsTheUserFolder) {
    const auto text = [](size_t length) {
        const WideString letters(length, 'x');
        return std::string(reinterpret_cast<const char*>(letters.data()), length * sizeof(WCHAR));
    };
    const std::string end = "\\Mirv\\PrtArea\\";
    AreaFolders folders;
    EXPECT_FALSE(FindAreaFolders(folders));
    const struct {
        DWORD type;
        std::string bytes;
        std::string folder;  // empty when there is none
    } cases[] = {
        {REG_SZ, text(3) + std::string(2, '\0'), "xxx" + end},
        {REG_SZ, text(3), "xxx" + end},
        {REG_BINARY, text(5), "xxxxx" + end},
        {REG_SZ, "", end},
        {REG_SZ, text(259), std::string(259, 'x') + end},
        {REG_SZ, text(260), std::string(259, 'x') + end},  // all the room without an end
        {REG_SZ, text(261), ""},
    };
    for (const auto& c : cases) {
        applicationData_.StoreBytes(c.type, c.bytes);
        std::memset(&folders, 0xEE, sizeof(folders));
        ASSERT_EQ(FindAreaFolders(folders), !c.folder.empty()) << c.bytes.size();
        if (!c.folder.empty()) {
            EXPECT_EQ(folders.Areas, c.folder) << c.bytes.size();
        }
    }
}

// ---- What is believed of it ---------------------------------------------------------------------

// A library that answers whatever the test says.
struct Answers {
    std::string name;
    BYTE says = 1;
    DWORD count = 0;
    bool givesObject = true;
    PrintAreaData* data = nullptr;
    int released = 0;
    int finished = 0;
} answers;

BYTE WINAPI List(AreaEnumeration** enumeration, const char*, DWORD, PrintAreaParams* params,
                 DWORD* count) {
    *enumeration =
        answers.givesObject ? reinterpret_cast<AreaEnumeration*>(ULONG_PTR{16}) : nullptr;
    *count = answers.count;
    *params = {};  // whatever is done to it is not read again
    return answers.says;
}
BYTE WINAPI NewDialog(void*, const char*, AreaDesignerObject** designer, DWORD_PTR, DWORD_PTR) {
    *designer =
        answers.givesObject ? reinterpret_cast<AreaDesignerObject*>(ULONG_PTR{16}) : nullptr;
    return answers.says;
}
BYTE WINAPI Name(AreaDesignerObject*, AreaEnumeration*, DWORD, char* name, DWORD* size) {
    answers.name.copy(name, kAreaNameLength);
    *size = 0xFFFFFFFF;
    return answers.says;
}
DWORD WINAPI Data(AreaDesignerObject*, AreaEnumeration*, DWORD, PrintAreaData** data) {
    *data = answers.data;
    return 0;
}
void WINAPI Release(AreaDesignerObject*, AreaEnumeration*, PrintAreaData* data) {
    EXPECT_EQ(data, answers.data);
    ++answers.released;
}
void WINAPI Finish(AreaDesignerObject* designer, AreaEnumeration* enumeration) {
    EXPECT_NE(designer == nullptr, enumeration == nullptr);
    ++answers.finished;
}

template <typename Function>
FARPROC Address(Function* function) {
    return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(function));
}

AreaDesignLibrary AnsweringLibrary() {
    answers = {};
    AreaDesignLibrary library = {};
    const FARPROC entries[] = {
        Address(NewDialog), Address(Finish), nullptr,          nullptr,
        Address(Name),      Address(Data),   Address(Release), Address(List)};
    std::copy(std::begin(entries), std::end(entries), library.EntryPoints);
    library.IsLoaded = 1;
    return library;
}

constexpr AreaSource kListed = {nullptr, nullptr};

TEST_F(AreaDesignerTest, ListsAreasWithinLimits) {
    AreaDesignLibrary library = AnsweringLibrary();
    DWORD count = 7;
    answers.count = 0xFFFFFFFF;
    EXPECT_TRUE(ListAreas(library, kBackArea, {}, count));
    EXPECT_EQ(count, 0x10000u);
    EXPECT_EQ(answers.finished, 0);
    answers.count = 3;
    EXPECT_TRUE(ListAreas(library, kBackArea, {}, count));
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(answers.finished, 1) << "the list before it";
    answers.givesObject = false;
    EXPECT_FALSE(ListAreas(library, kBackArea, {}, count)) << "yes, but no object";
    EXPECT_EQ(answers.finished, 2);
    EXPECT_EQ(NewDesigner(library, {}), nullptr);
    answers.givesObject = true;
    answers.says = 0;
    EXPECT_FALSE(ListAreas(library, kBackArea, {}, count));
    EXPECT_EQ(library.Enumerations[kBackArea], nullptr) << "an object with a no";
    EXPECT_EQ(NewDesigner(library, {}), nullptr);
    EXPECT_EQ(answers.finished, 2);
}

TEST_F(AreaDesignerTest, NamesHaveAnEnd) {
    const AreaDesignLibrary library = AnsweringLibrary();
    for (const size_t length : {0, 1, 258, 259, 260}) {
        for (const BYTE says : {0, 1, 255}) {
            answers.name = std::string(length, 'n') + (length < 260 ? std::string(1, '\0') : "");
            answers.says = says;
            WCHAR name[kAreaNameLength];
            std::fill(std::begin(name), std::end(name), WCHAR{'?'});
            EXPECT_EQ(GetAreaName(library, kListed, 0, name), says != 0);
            EXPECT_EQ(Narrow(name), std::string(std::min<size_t>(length, 259), 'n'));
            EXPECT_EQ(name[kAreaNameLength - 1], 0);
        }
    }
}

TEST_F(AreaDesignerTest, CopiesAreasAndGivesThemBack) {
    const AreaDesignLibrary library = AnsweringLibrary();
    EXPECT_EQ(CopyArea(library, kListed, 0), nullptr);
    EXPECT_EQ(answers.released, 0) << "nothing was given";

    PrintAreaBlock blocks[3];
    PrintAreaData area;
    std::memset(&area, 0xA1, sizeof(area));
    std::memset(blocks, 0xB2, sizeof(blocks));
    area.FirstBlock = &blocks[0];
    blocks[0].Next = &blocks[1];
    blocks[1].Next = &blocks[2];
    blocks[2].Next = nullptr;
    blocks[1].X = 7;
    answers.data = &area;
    PrintAreaData* copy = CopyArea(library, kListed, 0);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(answers.released, 1);
    EXPECT_EQ(std::memcmp(copy, &area, offsetof(PrintAreaData, FirstBlock)), 0);
    EXPECT_EQ(std::memcmp(copy->Reserved816, area.Reserved816, 8), 0);
    const PrintAreaBlock* block = copy->FirstBlock;
    for (const PrintAreaBlock& original : blocks) {
        ASSERT_NE(block, nullptr);
        EXPECT_NE(block, &original);
        EXPECT_EQ(std::memcmp(block, &original, offsetof(PrintAreaBlock, Next)), 0);
        block = block->Next;
    }
    EXPECT_EQ(block, nullptr);
    FreePrintAreaData(copy);
    EXPECT_EQ(copy, nullptr);
    FreePrintAreaData(copy);

    blocks[2].Next = &blocks[0];
    EXPECT_EQ(CopyArea(library, kListed, 0), nullptr) << "a chain without an end";
    EXPECT_EQ(answers.released, 2);
}

// ---- The search path ----------------------------------------------------------------------------

// Of the process; none (no value) is "none".
std::string SearchPath() {
    WideString path(GetEnvironmentVariableW(TEXT("PATH"), nullptr, 0), 0);
    if (path.empty()) {
        return "none";
    }
    path.resize(
        GetEnvironmentVariableW(TEXT("PATH"), path.data(), static_cast<DWORD>(path.size())));
    return Narrow(path);
}

TEST_F(AreaDesignerTest, TheSearchPathIsLongerForAWhile) {
    const std::string before = SearchPath();
    const WideString paths[] = {TEXT("C:\\windows;C:\\windows\\system32"), TEXT(""),
                                WideString(30000, 'p')};
    const auto expectDuring = [](const std::string& was) {
        {
            const DesignerSearchPath path;
            EXPECT_EQ(SearchPath(), (was == "none" ? "" : was) + ";" + Narrow(DriverFolder()));
        }
        EXPECT_EQ(SearchPath(), was);
    };
    for (const WideString& path : paths) {
        SetEnvironmentVariableW(TEXT("PATH"), path.c_str());
        expectDuring(Narrow(path));
    }
    SetEnvironmentVariableW(TEXT("PATH"), nullptr);
    expectDuring("none");
    SetEnvironmentVariableW(TEXT("PATH"), before == "none" ? nullptr : Wide(before).c_str());
}

}  // namespace
}  // namespace test
