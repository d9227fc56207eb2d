// kpdtool language: what it finds in a file that a translator has got wrong, and how it reads files
// of other encodings.
#include "tools/kpdtool/language/language_file.h"

#include "driver_test.h"
#include "tools/kpdtool/kpdtool.h"
#include "tools/kpdtool/language/cut_text.h"
#include "tools/kpdtool/wide_text.h"

#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

namespace test {
namespace {

using Json = nlohmann::ordered_json;

class LanguageFileTest : public DriverTest {
  protected:
    std::filesystem::path Path() const { return DiskPath(TestFolder()) / "draft.ini"; }

    Json Report(const std::string& bytes, int status) {
        std::ofstream(Path(), std::ios::binary) << bytes;
        std::ostringstream out;
        EXPECT_EQ(RunKpdtool({"language", Path().string(), "--json"}, out, out), status)
            << out.str();
        return Json::parse(out.str());
    }
};

WideString German() {
    const auto path = std::filesystem::path(KPD_SOURCE_DIR) / "package/languages/mvGerkpd.ini";
    std::ifstream file(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    WideString text;
    for (size_t i = 2; i + 1 < bytes.size(); i += 2) {
        text +=
            static_cast<WCHAR>(static_cast<BYTE>(bytes[i]) | static_cast<BYTE>(bytes[i + 1]) << 8);
    }
    return text;
}

std::string Bytes(const WideString& text, bool bigEndian) {
    std::string bytes;
    for (const WCHAR c : text) {
        const char low = static_cast<char>(c & 0xFF);
        const char high = static_cast<char>(c >> 8);
        bytes += {bigEndian ? high : low, bigEndian ? low : high};
    }
    return bytes;
}

// Each fault is put in the place of a line's end, or of the line.
TEST_F(LanguageFileTest, FindsWhatIsWrong) {
    const struct {
        const WCHAR* line;
        const WCHAR* instead;
        const char* fault;
    } cases[] = {
        {TEXT("Lock=Sperren"), TEXT("Lock Sperren"), "line [] "},
        {TEXT("Flip=Spiegeln"), TEXT("Flop=Spiegeln"), "unused [DeviceOption] Flop"},
        {TEXT("Edit Area=Bereich bearbeiten"), TEXT(""), "missing [PrintingArea] Edit Area"},
        {TEXT("Landscape=Querformat"), TEXT("landscape = Quer\r\nLandscape=Querformat"),
         "twice [DeviceOption] Landscape"},
        {TEXT("Card Thickness:=Kartendicke:"), TEXT("Card Thickness:=Angabe der Kartendicke:"), ""},
        {TEXT("%d =Die Datei kann nicht geöffnet werden, Fehlercode: %d"),
         TEXT("%d =Die Datei kann nicht geöffnet werden, Fehlercode: %s"),
         "changed [MagneticEncoding] Can't open file , Error code : %d"},
        {TEXT("&Reset=&Zurücksetzen"), TEXT("&Reset=Zurücksetzen"), "changed [Color] &Reset"},
        {TEXT("Saturation=Sättigung"), TEXT("Saturation="), "empty [Color] Saturation"},
    };
    WideString text = German();
    std::set<std::string> wanted = {"missing [DeviceOption] Lock", "missing [DeviceOption] Flip"};
    for (const auto& c : cases) {
        const size_t at = text.find(c.line);
        ASSERT_NE(at, text.npos) << Narrow(c.line);
        text.replace(at, WideString(c.line).size(), c.instead);
        if (*c.fault != '\0') {
            wanted.insert(c.fault);
        }
    }
    const Json report = Report("\xFF\xFE" + Bytes(text, false), 1);
    std::set<std::string> found;
    for (const Json& fault : report["faults"]) {
        found.insert(fault["kind"].get<std::string>() + " [" + fault["section"].get<std::string>() +
                     "] " + fault["text"].get<std::string>());
    }
    EXPECT_EQ(found, wanted);
    ASSERT_EQ(report["cut"].size(), 1u) << report["cut"];
    EXPECT_EQ(report["cut"][0]["page"], "Device Option");
    EXPECT_EQ(report["cut"][0]["text"], "Angabe der Kartendicke:");
    EXPECT_GT(report["cut"][0]["wider"].get<int>() + report["cut"][0]["higher"].get<int>(), 0);
}

TEST_F(LanguageFileTest, TellsTheEncoding) {
    const WideString text = German();
    const std::string utf8 = kpdtool::ToUtf8(text);
    const struct {
        std::string bytes;
        const char* wrong;
        bool isRead;
    } cases[] = {
        {"\xFF\xFE" + Bytes(text, false), "", true},
        {"\xFF\xFE" + Bytes(text, false) + "x", "half a character at its end", true},
        {"\xFE\xFF" + Bytes(text, true), "UTF-16BE", true},
        {Bytes(text, false), "UTF-16LE without a byte-order mark", true},
        {Bytes(text, true), "UTF-16BE without a byte-order mark", true},
        {"\xEF\xBB\xBF" + utf8, "UTF-8", true},
        {utf8, "UTF-8 without a byte-order mark", true},
        {"[Color]\r\nColor=Farbe\r\n", "ASCII", false},
        {"[Color]\r\nSharpness=Sch\xE4rfe\r\n", "an ANSI code page", false},
    };
    for (const auto& c : cases) {
        const kpdtool::LanguageFile file(c.bytes);
        EXPECT_EQ(file.WrongEncoding(), c.wrong);
        EXPECT_EQ(file.AsUtf16() == cases[0].bytes, c.isRead) << c.wrong;
    }
}

// Sections that come twice hide what is in the second; a text of both sections of the Rewrite page
// belongs into one; blanks around names and their case do not count.
TEST_F(LanguageFileTest, ChecksAgainstTheTextsLookedUp) {
    const std::set<kpdtool::Key> keys = {
        {"PrintingArea", "Edit Area"}, {"Rewritable", "Edit Area"}, {"About", "Version "}};
    const struct {
        const char* text;
        const char* faults;
    } cases[] = {
        {"[Rewritable]\nEdit Area=a\n[About]\nversion=v\n", ""},
        {"[PrintingArea]\n Edit Area = a\n; note\n[ About ]\nVersion =v\n", ""},
        {"[About]\nVersion=v\n", "missing Edit Area;"},
        {"[PrintingArea]\nEdit Area=a\n[Rewritable]\nEdit Area=b\n[About]\nVersion=v\n",
         "twice Edit Area;"},
        {"Version=v\n[PrintingArea]\nEdit Area=a\n[About]\nVersion=v\n[about]\n", "line ;twice ;"},
    };
    for (const auto& c : cases) {
        std::string faults;
        for (const kpdtool::Fault& fault :
             kpdtool::LanguageFile("\xFF\xFE" + Bytes(Wide(c.text), false)).Check(keys)) {
            faults += std::string(fault.kind) + " " + fault.key.second + ";";
        }
        EXPECT_EQ(faults, c.faults) << c.text;
    }
}

TEST_F(LanguageFileTest, AFileThatIsNotThereCannotBeChecked) {
    std::ostringstream out;
    EXPECT_EQ(RunKpdtool({"language", Path().string()}, out, out), 2);
}

TEST_F(LanguageFileTest, ArabicLettersJoinForMeasuring) {
    const struct {
        WideString text;
        WideString joined;
    } cases[] = {
        {TEXT("K \u0628"), TEXT("K \uFE8F")},
        {TEXT("\u0628\u0637\u0627\u0642\u0629"), TEXT("\uFE91\uFEC4\uFE8E\uFED7\uFE94")},
        {TEXT("\u0686\u0627\u067E"), TEXT("\uFB7C\uFE8E\uFB56")},
        {TEXT("\u0645\u06CC\u200C\u06A9"), TEXT("\uFEE3\uFBFD\u200C\uFB8E")},
        {TEXT("\u0645\u0621\u0645"), TEXT("\uFEE1\uFE80\uFEE1")},
        {TEXT("\u064A"), TEXT("\uFEF1")},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(kpdtool::ToUtf8(kpdtool::Joined(c.text)), kpdtool::ToUtf8(c.joined));
    }
}

}  // namespace
}  // namespace test
