// The command-line tool: what it says of records of every layout, what it writes and never half
// writes, and its exit statuses. Run in this process, on files in the test folder.
#include "tools/kpdtool/kpdtool.h"

#include "core/device_mode.h"
#include "platform_test.h"
#include "tools/computer/computer.h"
#include "tools/kpdtool/records/fields.h"

#include <winspool.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

namespace test {
namespace {

using Json = nlohmann::ordered_json;

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

Outcome Kpdtool(const std::vector<std::string>& arguments) {
    std::ostringstream out;
    std::ostringstream err;
    const int status = RunKpdtool(arguments, out, err);
    return {status, out.str(), err.str()};
}

// The row that begins with a field's name: its columns, and the lines that it goes on in, one blank
// apart.
std::string LineOf(const std::string& text, const std::string& name) {
    const size_t start = text.find("\n  " + name + " ");
    if (start == std::string::npos) {
        return "no line " + name;
    }
    std::istringstream lines(text.substr(start + 1));
    std::string row;
    std::string word;
    for (std::string line; std::getline(lines, line) && (row.empty() || line.starts_with("   "));) {
        std::istringstream words(line);
        while (words >> word) {
            row += (row.empty() ? "" : " ") + word;
        }
    }
    return row;
}

Json FieldOf(const Json& record, const std::string& name) {
    for (const Json& field : record["fields"]) {
        if (field["name"] == name) {
            return field;
        }
    }
    return "no field " + name;
}

bool PrinterExists(WideString name) {
    HANDLE printer = nullptr;
    return OpenPrinterW(name.data(), &printer, nullptr) && ClosePrinter(printer);
}

std::string Bytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(file)), {});
}

// By a path that no command line takes for an option.
std::string ExportedSettings() {
    const std::filesystem::path sources = KPD_SOURCE_DIR;
    return std::filesystem::absolute(sources / "tests/scripts/export_settings.mcs").string();
}

class KpdtoolTest : public PlatformTest {
  protected:
    static std::string Path(const std::string& name) {
        return DiskPath(TestFolder() + TEXT("\\") + Wide(name)).string();
    }
    static std::string Store(const std::string& name, const std::string& bytes) {
        WriteBytes(TestFolder() + TEXT("\\") + Wide(name), bytes);
        return Path(name);
    }
    static std::string Stored(const std::string& name) {
        return ReadBytes(TestFolder() + TEXT("\\") + Wide(name));
    }
    static std::string Store(const std::string& name, const DevModeRecord& record) {
        return Store(name, std::string(reinterpret_cast<const char*>(&record), sizeof(record)));
    }
    static size_t FilesInFolder() {
        const auto files = std::filesystem::directory_iterator(DiskPath(TestFolder()));
        return static_cast<size_t>(std::distance(begin(files), end(files)));
    }
    static DevModeRecord DefaultRecord() {
        DevModeRecord record;
        BuildDefaultDevMode(&record, TEXT("Badge room"), nullptr);
        return record;
    }
    // A record of that layout: a default public part cut or filled up with 7s, and a private part
    // whose bytes count up.
    static std::string Layout(WORD size, WORD extra, WORD version, WORD driverVersion) {
        DevModeRecord record = DefaultRecord();
        record.Public.dmSize = size;
        record.Public.dmDriverExtra = extra;
        record.Public.dmSpecVersion = version;
        record.Public.dmDriverVersion = driverVersion;
        std::string bytes(reinterpret_cast<const char*>(&record.Public), sizeof(record.Public));
        bytes.resize(std::max(size, kHeaderSize), 7);
        for (WORD i = 0; bytes.size() < size_t{size} + extra; ++i) {
            bytes += static_cast<char>(i);
        }
        return bytes;
    }
};

TEST_F(KpdtoolTest, FieldsTileTheRecord) {
    size_t end = 0;
    for (const kpdtool::Field& field : kpdtool::RecordFields()) {
        EXPECT_EQ(field.offset, end) << field.name;
        EXPECT_EQ(field.width % field.element, 0) << field.name;
        end = field.offset + field.width;
    }
    EXPECT_EQ(end, sizeof(DevModeRecord));
}

TEST_F(KpdtoolTest, LayoutsAreTheDocuments) {
    const struct {
        const char* document;
        std::vector<std::string> command;
    } cases[] = {{"/docs/record.md", {"layout"}},
                 {"/docs/settings-file.md", {"settings", "layout"}}};
    for (const auto& c : cases) {
        std::ifstream file(std::string(KPD_SOURCE_DIR) + c.document, std::ios::binary);
        std::ostringstream document;
        document << file.rdbuf();
        EXPECT_EQ(Kpdtool(c.command).out, document.str()) << "kpdtool writes " << c.document;
    }
    EXPECT_EQ(Json::parse(Kpdtool({"layout", "--json"}).out)["fields"].size(),
              kpdtool::RecordFields().size());
}

TEST_F(KpdtoolTest, ShowsEveryLayout) {
    const size_t all = kpdtool::RecordFields().size();
    const struct {
        WORD size, extra, version, driverVersion;
        size_t fields;
        bool ownPrivate, accepted;
    } cases[] = {
        {188, 0, 0x0320, 0x0350, 26, false, true},
        {220, 0, 0x0401, 0x0500, 34, false, true},
        {220, 364, 0x0401, 0x0400, 34, false, true},
        {300, 364, 0x0401, 0x0500, all, true, true},
        {91, 364, 0x0401, 0x0500, all - 21, true, true},
        {100, 0, 0, 0, 18, false, false},
        {40, 0, 0x0401, 0x0500, 0, false, true},
        {75, 0, 0x0401, 0x0500, 5, false, true},
        {0, 9, 0x0401, 0x0500, 0, false, false},
        {65535, 65535, 1, 0x0500, 34, false, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.size << " + " << c.extra);
        const std::string file = Store("a.dm", Layout(c.size, c.extra, c.version, c.driverVersion));
        const std::string text = Kpdtool({"show", file}).out;
        EXPECT_EQ(text.find("a merge refuses") == std::string::npos, c.accepted);
        const Json record = Json::parse(Kpdtool({"show", file, "--json"}).out);
        EXPECT_EQ(record["mergeAccepts"], c.accepted);
        EXPECT_EQ(record["ownPrivatePart"], c.ownPrivate);
        EXPECT_EQ(std::ranges::count_if(record["fields"],
                                        [](const Json& f) { return !f["value"].is_null(); }),
                  c.fields);
        if (c.ownPrivate) {
            EXPECT_EQ(FieldOf(record, "CardType")["value"], 107) << "behind the public part";
        }
    }
}

TEST_F(KpdtoolTest, ShowTellsWhatIsWrongAndWhatAMergeMakes) {
    DevModeRecord record = DefaultRecord();
    std::fill_n(record.Public.dmDeviceName, 32, WCHAR{'x'});
    record.Public.dmCopies = 0;
    record.Public.dmOrientation = DMORIENT_PORTRAIT;
    record.Public.dmColor = 9;
    record.Public.dmScale = -7;
    record.Public.dmFields &= ~DM_SCALE;
    record.Private.RibbonType = 15;
    record.Private.CardType = 77;
    record.Private.Brightness = -101;
    record.Private.MagOptions = kTrack1 | 0x10;
    record.Private.Reserved94[1] = 200;
    record.Private.EnergyTables10[4][7] = -3;
    std::memset(record.Private.ReservedText, '\xE9', 40);
    const std::string out = Kpdtool({"show", Store("a.dm", record)}).out;
    for (const char* line : {
             "dmCopies 0 out of range (1 to 9999); a merge makes it 1",
             "dmOrientation 1 portrait",
             "dmScale -7 not in dmFields; a merge makes it 100",
             "dmColor 9 out of range (1 or 2); a merge makes it 1 (monochrome)",
             "RibbonType 15 out of range (0 to 14); a merge makes it 0 (YMCKO)",
             "CardType 77 out of range (0, 1, 2, 3, 4 or 5)",
             "Brightness -101 out of range (-100 to 100)",
             "MagOptions 0x11 unknown bits 0x10",
             "Reserved94 0 200 0 never taken by a merge; a merge makes it all 0",
             "EnergyTables[14] 0 0 0 0 0 0 0 -3 write energy of rewritable cards",
             "PrintSides 0x01 front",
         }) {
        const std::string name = std::string(line).substr(0, std::string(line).find(' '));
        EXPECT_EQ(LineOf(out, name), line);
    }
    EXPECT_NE(out.find("\n8 fields are out of range; a merge into a default record changes 10.\n"),
              std::string::npos);
    EXPECT_NE(out.find("not terminated"), std::string::npos);
    EXPECT_NE(out.find("\"\\xE9\\xE9"), std::string::npos);
}

TEST_F(KpdtoolTest, BadInputGivesOneLineAndNoFile) {
    const std::string whole = Layout(220, 364, kSpecVersion, kDriverVersion);
    std::string huge = whole;
    huge[offsetof(DEVMODEW, dmDriverExtra) + 1] = '\xFF';
    const struct {
        std::string bytes, reason;
    } cases[] = {
        {"", "has 0 bytes, fewer than the 72 that every record has"},
        {whole.substr(0, 71), "has 71 bytes, fewer than the 72 that every record has"},
        {std::string(72, 0), "claims a record of 0 bytes"},
        {whole.substr(0, 583),
         "has 583 bytes, but claims a record of 584 (public part 220, private part 364)"},
        {Bytes(ExportedSettings()), "is a settings file, no record: see kpdtool settings --help"},
        {huge, "has 584 bytes, but claims a record of 65608 (public part 220, private part 65388)"},
    };
    const std::string good = Store("good.dm", whole);
    const std::string out = Path("out.dm");
    for (const auto& c : cases) {
        const std::string bad = Store("bad.dm", c.bytes);
        for (const std::vector<std::string>& arguments : {
                 std::vector<std::string>{"show", bad},
                 {"show", bad, "--json"},
                 {"diff", good, bad},
                 {"record", "Mirv KP-41", "--in", bad, "--out", out},
                 {"convert", "--mode", "1", "--in", bad, "--out", out},
                 {"convert", "--mode", "1", "--in", good, "--to", bad, "--out", out},
             }) {
            const Outcome outcome = Kpdtool(arguments);
            EXPECT_EQ(outcome.status, 2) << arguments[0];
            EXPECT_EQ(outcome.err, "kpdtool: " + bad + ": " + c.reason + "\n");
            EXPECT_EQ(outcome.out, "");
        }
    }
    EXPECT_EQ(FilesInFolder(), 2u);
    EXPECT_EQ(Kpdtool({"show", out}).err, "kpdtool: " + out + ": there is no such file\n");
    const std::string folder = DiskPath(TestFolder()).string();
    EXPECT_EQ(Kpdtool({"show", folder}).err, "kpdtool: " + folder + ": is a folder, not a file\n");
}

TEST_F(KpdtoolTest, FailedWritingLeavesNothing) {
    const std::string nowhere = Path("missing") + "/out.dm";
    std::filesystem::create_directories(Path("folder") + "/inner");
    for (const std::string& out : {nowhere, Path("folder")}) {
        const Outcome outcome = Kpdtool({"record", "Mirv KP-41", "--out", out});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err, "kpdtool: " + out + ": cannot be written\n");
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(FilesInFolder(), 1u);
    }
}

TEST_F(KpdtoolTest, UsageErrors) {
    const std::vector<std::vector<std::string>> wrong = {{},
                                                         {"frobnicate"},
                                                         {"caps"},
                                                         {"convert", "--mode", "3"},
                                                         {"record", "M", "--language", "tlh"}};
    for (const std::vector<std::string>& arguments : wrong) {
        const Outcome outcome = Kpdtool(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
    }
    for (const char* command : {"caps", "record", "show", "diff", "convert", "sheet", "layout"}) {
        const Outcome help = Kpdtool({command, "--help"});
        EXPECT_EQ(help.status, 0);
        EXPECT_NE(help.out.find("Example:\n  kpdtool " + std::string(command)), std::string::npos);
    }
    for (const std::string command : {"show", "export", "import", "diff", "layout"}) {
        const std::string help = Kpdtool({"settings", command, "--help"}).out;
        EXPECT_NE(help.find("Example:\n  kpdtool settings " + command), std::string::npos);
    }
}

TEST_F(KpdtoolTest, RecordIsWhatShowReads) {
    const LANGID language = GetUserDefaultUILanguage();
    const std::vector<std::string> build = {"record", "Mirv KP-430e", "--language", "zh-CN",
                                            "--out",  Path("a.dm"),   "--json"};
    const Json built = Json::parse(Kpdtool(build).out);
    EXPECT_EQ(FieldOf(built, "RibbonType")["meaning"], "K");
    EXPECT_EQ(FieldOf(built, "SkinTone")["value"], 2);
    EXPECT_EQ(FieldOf(built, "dmDeviceName")["value"], "kpdtool");
    EXPECT_EQ(GetUserDefaultUILanguage(), language) << "not put back";
    EXPECT_FALSE(PrinterExists(TEXT("kpdtool"))) << "not removed";

    EXPECT_EQ(Stored("a.dm").size(), sizeof(DevModeRecord));
    const Json shown = Json::parse(Kpdtool({"show", Path("a.dm"), "--json"}).out);
    EXPECT_EQ(shown["fields"], built["fields"]) << "a merged record is stable";
}

TEST_F(KpdtoolTest, RecordMergesTheInput) {
    DevModeRecord input = DefaultRecord();
    input.Public.dmCopies = 12;
    input.Private.Gamma = 220;
    const std::string file = Store("a.dm", input);
    const Outcome merged = Kpdtool({"record", "Mirv KP-41", "--in", file, "--out", file});
    EXPECT_EQ(LineOf(merged.out, "dmCopies"), "dmCopies 12");
    EXPECT_EQ(LineOf(merged.out, "Gamma"), "Gamma 220 gamma times 100");

    // One that the driver fills in place, larger than its file, and one that it refuses.
    const std::string unversioned = Store("b.dm", Layout(188, 0, 0x0320, 0));
    EXPECT_EQ(Kpdtool({"record", "Mirv KP-41", "--in", unversioned}).status, 0);
    const std::string refused = Store("c.dm", Layout(100, 0, 0, 0));
    EXPECT_EQ(Kpdtool({"record", "Mirv KP-41", "--in", refused}).err,
              "kpdtool: " + refused + ": the driver refuses it\n");
}

TEST_F(KpdtoolTest, AnExistingPrinterIsLeftAlone) {
    ASSERT_EQ(computer::InstallPrinter({TEXT("Badge room"), TEXT("Mirv KP-41"), {}, {}}), "");
    const Outcome outcome = Kpdtool({"caps", "Mirv KP-41", "--printer", "Badge room"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err.find("Badge room"), std::string::npos);
    EXPECT_TRUE(PrinterExists(TEXT("Badge room")));
    computer::RemovePrinter(TEXT("Badge room"));
}

TEST_F(KpdtoolTest, Differences) {
    DevModeRecord record = DefaultRecord();
    const std::string first = Store("a.dm", record);
    EXPECT_EQ(Kpdtool({"diff", first, first}).status, 0);
    record.Public.dmOrientation = DMORIENT_PORTRAIT;
    record.Public.dmFormName[20] = 'x';
    record.Private.Reserved276[47] = 1;
    const std::string second = Store("b.dm", record);
    const Outcome text = Kpdtool({"diff", first, second});
    EXPECT_EQ(text.status, 1);
    EXPECT_TRUE(text.out.starts_with("  dmOrientation  2 (landscape)  1 (portrait)\n")) << text.out;
    EXPECT_EQ(LineOf(text.out, "dmFormName"),
              "dmFormName \"CR-80 Card\" \"CR-80 Card\", other bytes behind its end");
    const std::string third = Store("c.dm", Layout(188, 112, 0x0401, 0x0500));
    const std::string toOlder = Kpdtool({"diff", first, third}).out;
    EXPECT_EQ(LineOf(toOlder, "private"), "private part 364 bytes 112 bytes, not this driver's");
    EXPECT_EQ(LineOf(toOlder, "dmMediaType"), "dmMediaType 401 (CR-80 Card) absent");
}

TEST_F(KpdtoolTest, Conversions) {
    DevModeRecord input = DefaultRecord();
    input.Public.dmCopies = 7;
    const std::string in = Store("in.dm", input);
    const std::string older = Store("older.dm", Layout(212, 5, 0x0400, 0x0400));
    const std::string out = Path("out.dm");
    const struct {
        std::vector<std::string> arguments;
        bool result;
        int error, size;
    } cases[] = {
        {{"--mode", "1", "--in", in}, true, 0, 584},
        {{"--mode", "1", "--in", in, "--to", older}, true, 0, 217},
        {{"--mode", "1", "--in", in, "--size", "583"}, false, 87, 583},
        {{"--mode", "1"}, false, 87, 584},
        {{"--mode", "2", "--in", in}, true, 0, 300},
        {{"--mode", "4", "--model", "Mirv KP-511"}, true, 0, 584},
        {{"--mode", "4", "--size", "583"}, false, 122, 584},
    };
    for (const auto& c : cases) {
        std::vector<std::string> arguments = {"convert", "--out", out};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        std::filesystem::remove(out);
        arguments.push_back("--json");
        const Outcome outcome = Kpdtool(arguments);
        SCOPED_TRACE(outcome.out + outcome.err);
        EXPECT_EQ(outcome.status, c.result ? 0 : 1);
        const Json json = Json::parse(outcome.out);
        EXPECT_EQ(json["size"], c.size);
        ASSERT_EQ(std::filesystem::exists(out), c.result);
        if (c.result) {
            EXPECT_EQ(Stored("out.dm").size(), static_cast<size_t>(c.size));
        } else {
            EXPECT_EQ(json["lastError"], c.error);
        }
    }
}

TEST_F(KpdtoolTest, SheetTellsWhatChangedAndTakesPictures) {
    DevModeRecord input = DefaultRecord();
    input.Public.dmCopies = 7;
    const std::string in = Store("in.dm", input);
    const std::string script =
        Store("a.sheet", std::string("expect field dmCopies 7\n"
                                     "page \"Tools\"\nclick \"Advance Tool\"\n"
                                     "picture \"In front\"\n"
                                     "click \"Exit\"\n"
                                     "page \"About\"\nprint controls\n"));
    const std::string out = Path("out.dm");
    const Outcome whole = Kpdtool({"sheet", "--in", in, "--script", script, "--out", out,
                                   "--pictures", Path("pages"), "--json"});
    ASSERT_EQ(whole.status, 0) << whole.err;
    const Json json = Json::parse(whole.out);
    EXPECT_EQ(json["accepted"], true);
    EXPECT_EQ(json["pictures"].size(), 9u);
    EXPECT_EQ(json["pictures"][0], "in-front.png");
    EXPECT_EQ(json["pictures"][7], "import-export.png");
    EXPECT_NE(Stored("pages/in-front.png"), Stored("pages/tools.png"));
    EXPECT_TRUE(json["printed"].get<std::string>().starts_with("About\n")) << json["printed"];
    EXPECT_TRUE(Stored("pages/import-export.png").starts_with("\x89PNG"));
    EXPECT_EQ(FieldOf(Json::parse(Kpdtool({"show", out, "--json"}).out), "dmCopies")["value"], 7);
    EXPECT_FALSE(PrinterExists(TEXT("kpdtool"))) << "not removed";

    // What ends otherwise, and leaves no record.
    const struct {
        std::string lines;
        std::vector<std::string> arguments;
        int status;
        std::string text;
    } cases[] = {
        {"cancel", {}, 0, "Cancelled.\n"},
        {"ok", {}, 0, "Accepted; the record is the same.\n"},
        {"page \"About\"\nexpect field dmCopies 8",
         {},
         1,
         "b.sheet:2: expected dmCopies to be 8; it is 1\n"},
        {"page \"Tools\"",
         {"--remote"},
         2,
         "b.sheet:1: there is no page \"Tools\"; pages are \"Device Option\", "},
        {"wait", {}, 2, "b.sheet:1: 'wait' is no step"},
        {"ok", {"--in", Path("none.dm")}, 2, "none.dm: there is no such file"},
        {"ok", {"--package", Path("none")}, 2, "none: copying the driver package: "},
    };
    for (const auto& c : cases) {
        std::filesystem::remove(out);
        std::vector<std::string> arguments = {"sheet", "--out", out, "--script",
                                              Store("b.sheet", c.lines)};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        const Outcome outcome = Kpdtool(arguments);
        SCOPED_TRACE(outcome.out + outcome.err);
        EXPECT_EQ(outcome.status, c.status);
        EXPECT_NE((outcome.out + outcome.err).find(c.text), std::string::npos);
        EXPECT_EQ(std::filesystem::exists(out), c.lines == "ok" && c.status == 0);
    }
}

TEST_F(KpdtoolTest, Capabilities) {
    const std::string text = Kpdtool({"caps", "Mirv KP-41"}).out;
    EXPECT_EQ(LineOf(text, "1"), "1 DC_FIELDS 0x0781FF5F");
    EXPECT_EQ(LineOf(text, "4"), "4 DC_MINEXTENT 544 x 859");
    EXPECT_EQ(LineOf(text, "12"), "12 DC_BINNAMES 1 \"Auto-Feed\"");
    EXPECT_EQ(LineOf(text, "35"), "35 DC_MEDIATYPES not answered");
    const Json rows = Json::parse(Kpdtool({"caps", "Mirv KP-41", "--json"}).out)["capabilities"];
    EXPECT_EQ(rows[2]["written"], Json::parse("[[544, 859]]"));
    EXPECT_TRUE(rows[32]["answer"].is_null());
}

// ---- Settings files -----------------------------------------------------------------------------

// A record that opening the sheet corrects, and one in an older layout, go the page's way.
TEST_F(KpdtoolTest, SettingsGoThePagesWay) {
    DevModeRecord record = DefaultRecord();
    record.Public.dmOrientation = 1;
    record.Private.RibbonType = 1;
    record.Private.ResinOptions = 0;
    record.Private.Brightness = -7;
    const std::string own = Store("own.dm", record);
    const std::string older = Store("older.dm", Layout(188, 112, 0x0320, 0x0350));
    for (const std::string& input : {own, older, std::string()}) {
        const std::vector<std::string> in =
            input.empty() ? std::vector<std::string>{} : std::vector<std::string>{"--in", input};
        const auto with = [&](std::vector<std::string> arguments) {
            arguments.insert(arguments.end(), in.begin(), in.end());
            const Outcome outcome = Kpdtool(arguments);
            EXPECT_EQ(outcome.status, 0) << outcome.out << outcome.err;
        };
        std::filesystem::remove(Path("page.mcs"));
        const std::string file = DiskPath(TestFolder()).generic_string() + "/page.mcs";
        const std::string exports = Store(
            "export.sheet", "page \"Import/Export\"\nanswer \"" + file +
                                "\"\nclick \"Export Driver Setting\"\nclick \"Color Setting\"\n"
                                "click \"Device Option Setting\"\nclick \"OK\"\ncancel\n");
        with({"sheet", "--language", "en", "--script", exports});
        with({"settings", "export", "Mirv KP-41", "--out", Path("tool.mcs")});
        EXPECT_EQ(Stored("tool.mcs"), Stored("page.mcs"));

        const std::string settings = ExportedSettings();
        std::filesystem::copy_file(settings, Path("page.mcs"),
                                   std::filesystem::copy_options::overwrite_existing);
        const std::string imports =
            Store("import.sheet", "page \"Import/Export\"\nanswer \"" + file +
                                      "\"\nclick \"Import Driver Setting\"\nclick \"Color "
                                      "Setting\"\nclick \"OK\"\n");
        with({"sheet", "--language", "en", "--script", imports, "--out", Path("page.dm")});
        with({"settings", "import", settings, "Mirv KP-41", "--parts", "device", "--out",
              Path("tool.dm")});
        EXPECT_EQ(Stored("tool.dm"), Stored("page.dm"));

        const Json changes =
            Json::parse(Kpdtool({"settings", "import", settings, "Mirv KP-41", "--parts", "device",
                                 "--in", Path("page.dm"), "--out", Path("again.dm"), "--json"})
                            .out);
        EXPECT_EQ(changes["model"], "Mirv KP-41");
        EXPECT_EQ(changes["fields"], Json::array()) << "it has them already";
    }
}

TEST_F(KpdtoolTest, SettingsFilesAreShownAndCompared) {
    const std::string settings = ExportedSettings();
    const std::string device = Store("device.mcs", Bytes(settings).substr(0, 37) + "\xAA\xFF");
    // A Device Option record of 11 bytes, and a Color record that is cut short.
    std::string bytes = Bytes(settings);
    bytes = bytes.substr(0, 24) + "\x0B" + bytes.substr(25, 12) + bytes.substr(42, 30);
    const std::string cut = Store("cut.mcs", bytes);
    EXPECT_EQ(LineOf(Kpdtool({"settings", "show", settings}).out, "RibbonType"),
              "RibbonType 4 YMCKOK");
    EXPECT_NE(Kpdtool({"settings", "show", cut}).out.find("Color: cut short\n"), std::string::npos);
    const Json parts = Json::parse(Kpdtool({"settings", "show", cut, "--json"}).out)["parts"];
    ASSERT_EQ(parts.size(), 2u);
    EXPECT_EQ(parts[0]["whole"], true);
    EXPECT_EQ(FieldOf(parts[0], "dmCopies")["value"], 25);
    EXPECT_EQ(FieldOf(parts[0], "Reserved106")["value"], nullptr);
    EXPECT_EQ(parts[1]["whole"], false);
    EXPECT_EQ(FieldOf(parts[1], "Gamma")["value"], nullptr);

    EXPECT_EQ(Kpdtool({"settings", "diff", settings, settings}).status, 0);
    const Outcome differences = Kpdtool({"settings", "diff", settings, cut, "--json"});
    EXPECT_EQ(differences.status, 1);
    EXPECT_EQ(Json::parse(differences.out)["fields"].size(), 5u + 20u);
    DevModeRecord record = DefaultRecord();
    const std::string stored = Store("a.dm", record);
    const Outcome beside = Kpdtool({"settings", "diff", stored, cut, "--json"});
    EXPECT_EQ(beside.status, 1);
    EXPECT_EQ(Json::parse(beside.out)["fields"].size(), 6u) << beside.out;
}

TEST_F(KpdtoolTest, ExportsTheAskedPartsForTheAskedUser) {
    const Outcome outcome = Kpdtool({"settings", "export", "Mirv KP-430e", "--parts", "color",
                                     "--language", "zh-CN", "--out", Path("a.mcs"), "--json"});
    const Json parts = Json::parse(outcome.out)["parts"];
    ASSERT_EQ(parts.size(), 1u);
    EXPECT_EQ(parts[0]["part"], "Color");
    EXPECT_EQ(FieldOf(parts[0], "SkinTone")["value"], 2);
    EXPECT_EQ(Stored("a.mcs").size(), 75u);
}

TEST_F(KpdtoolTest, ModelsWithoutTheSettingsPageAreNamed) {
    for (const std::string model : {"Mirv KP-43", "Mirv KP-41"}) {
        const std::string note = "kpdtool: note: users of Mirv KP-43 have no Import/Export page\n";
        const std::string expected = model == "Mirv KP-43" ? note : "";
        const Outcome outcome =
            Kpdtool({"settings", "export", model, "--out", Path("settings.mcs")});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, expected);
        EXPECT_EQ(
            Kpdtool({"settings", "import", Path("settings.mcs"), model, "--out", Path("out.dm")})
                .err,
            expected);
    }
}

TEST_F(KpdtoolTest, SettingsThatAreNotThereAreNamed) {
    const std::string settings = ExportedSettings();
    const std::string bytes = Bytes(settings);
    const std::string color = bytes.substr(0, 22) + bytes.substr(42);
    const struct {
        std::string file;
        std::string parts;
        const char* reason;
    } cases[] = {
        {Store("color.mcs", color), "device", "not in it"},
        {Store("short.mcs", bytes.substr(0, 90)), "device,color", "cut short"},
        {Store("none.mcs", bytes.substr(0, 22)), "", "holds no settings"},
        {Store("bad.mcs", bytes.substr(0, 24) + "\x0A" + bytes.substr(25)), "", "shorter than"},
        {Store("other.mcs", "some text"), "", "is no settings file"},
        {Path("absent.mcs"), "", "no such file"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> arguments = {"settings",   "import", c.file,
                                              "Mirv KP-41", "--out",  Path("out.dm")};
        if (!c.parts.empty()) {
            arguments.insert(arguments.end(), {"--parts", c.parts});
        }
        const Outcome outcome = Kpdtool(arguments);
        EXPECT_EQ(outcome.status, 2) << c.file;
        EXPECT_NE(outcome.err.find(c.reason), std::string::npos) << outcome.err;
        EXPECT_FALSE(std::filesystem::exists(Path("out.dm")));
    }
    EXPECT_EQ(Kpdtool({"settings", "import", Path("color.mcs"), "Mirv KP-41", "--parts", "color",
                       "--out", Path("out.dm")})
                  .status,
              0);
}

}  // namespace
}  // namespace test
