// The delivered language files against what the driver looks up: every text that the pages ask for
// when they open (the stand-in notes each lookup), and those that are shown only on occasion.
#include "core/page_table.h"
#include "core/text.h"
#include "numeric_fields.h"
#include "platform/host.h"
#include "resources/resource.h"
#include "sheet_test.h"
#include "tools/kpdtool/kpdtool.h"
#include "ui/common/language.h"
#include "ui/common/numeric_field.h"
#include "ui/common/page.h"

#include <strsafe.h>

#include <cstring>
#include <fstream>
#include <map>
#include <set>

namespace test {
namespace {

using Key = std::pair<std::string, std::string>;  // section and English text, as UTF-8
using Texts = std::map<Key, std::string>;

std::string Utf8(const WideString& text) {
    return std::filesystem::path(text).string();
}

WideString ReadWide(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    EXPECT_EQ(bytes.substr(0, 2), "\xFF\xFE") << path;
    WideString text(bytes.size() / 2 - 1, 0);
    std::memcpy(text.data(), bytes.data() + 2, text.size() * sizeof(WCHAR));
    return text;
}

// Every key of the file; a key given twice is a fault.
Texts ReadLanguageFile(const char* name) {
    const auto path = std::filesystem::path(KPD_SOURCE_DIR) / "package/languages" / name;
    Texts texts;
    std::string section;
    std::istringstream lines(Utf8(ReadWide(path)));
    for (std::string line; std::getline(lines, line);) {
        EXPECT_TRUE(line.ends_with('\r')) << line;
        line.pop_back();
        if (line.starts_with('[')) {
            section = line.substr(1, line.size() - 2);
        } else if (!line.empty()) {
            const size_t equals = line.find('=');
            const Key key = {section, line.substr(0, equals)};
            EXPECT_TRUE(texts.emplace(key, line.substr(equals + 1)).second) << key.second;
        }
    }
    return texts;
}

// The conversions of a text in their order, as "%d %s".
std::string Conversions(const std::string& text) {
    std::string found;
    for (size_t at = text.find('%'); at != std::string::npos; at = text.find('%', at + 2)) {
        const size_t end = text.find_first_not_of("0123456789.-", at + 1);
        found += text.substr(at, end == std::string::npos ? end : end - at + 1) + " ";
    }
    return found;
}

class LanguagesTest : public SheetTest {
  protected:
    static void Add(std::set<Key>& keys, const WCHAR* section, const WCHAR* format, int a, int b) {
        WCHAR text[kTextLength];
        StringCchPrintfW(text, kTextLength, format, a, b);
        keys.insert({Utf8(section), Utf8(text)});
        keys.insert({Utf8(section), "Error"});
    }

    /// What the numeric fields can say.
    static std::set<Key> FieldMessages() {
        std::set<Key> keys;
        for (const NumericField& field : kNumericFields) {
            Add(keys, field.RangeSection, field.RangeMessage, field.Minimum, field.Maximum);
            Add(keys, field.ValidationSection,
                field.Kind == NumberKind::kHundredths ? kIllegalHundredths : kIllegalInteger,
                field.Minimum, field.Maximum);
        }
        return keys;
    }

    /// What the Tools page says of the ribbon and of a card without a thickness.
    static void ShowToolsMessages(HWND page) {
        SendDlgItemMessageW(page, IDC_RIBBON_STATUS, BM_CLICK, 0, 0);
        PageContext(page)->WorkingDevMode.Private.CardThickness = 255;
        BYTE answer[130] = {0, 4};
        COPYDATASTRUCT data = {5, sizeof(answer), answer};
        SendMessageW(page, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
    }

    /// With it the dialog that asks for the database has its texts and then fails.
    static void StoreBadDatabasePath() {
        const WideString path = TEXT("a|b ");
        HKEY key = nullptr;
        RegCreateKeyExW(HKEY_CURRENT_USER, (TEXT("Printers\\") + kPrinterName).c_str(), 0, nullptr,
                        0, KEY_WRITE, nullptr, &key, nullptr);
        RegSetValueExW(key, TEXT("UsingDatabaseFileName"), 0, REG_SZ,
                       reinterpret_cast<const BYTE*>(path.data()), 8);
        RegCloseKey(key);
    }

    /// What a field holds is looked up as well, and what a page has put together: of a printer's
    /// name, of a number and its unit, of several lines, of a failure's number.
    static bool IsMadeUp(const WideString& key) {
        return key.find_first_not_of(TEXT("-.0123456789")) == key.npos ||
               key.find('\n') != key.npos || key.starts_with(TEXT("0 ")) ||
               key.ends_with(TEXT(" Driver")) || key.ends_with(TEXT("12290 "));
    }

    /// What the Rewrite page looks up in both of its sections is in one of them.
    static bool IsTranslated(const Texts& texts, const std::set<Key>& keys, const Key& key) {
        const std::string shared = Utf8(kPrintingAreaSection);
        const std::string own = Utf8(kRewritableSection);
        const Key other = {key.first == shared ? own : shared, key.second};
        const bool isOfTwo = (key.first == shared || key.first == own) && keys.contains(other);
        return isOfTwo ? texts.contains(key) != texts.contains(other) : texts.contains(key);
    }

    /// All that the driver can look up, without empty texts.
    std::set<Key> EveryKey() {
        SetUiLanguage(0x0409);
        InitLanguageFile();
        StoreBadDatabasePath();
        OpenEveryPage([](HWND page) {
            if (GetDlgItem(page, IDC_RIBBON_STATUS) != nullptr) {
                ShowToolsMessages(page);
            }
            if (GetDlgItem(page, IDC_BROWSE_DATABASE) != nullptr) {
                SendMessageW(page, WM_COMMAND, IDC_BROWSE_DATABASE, 0);
            }
        });
        std::set<Key> keys = FieldMessages();
        for (const host::ProfileLookup& lookup : host::ProfileLookups()) {
            if (!lookup.section.empty() && !IsMadeUp(lookup.key)) {
                keys.insert({Utf8(lookup.section), Utf8(lookup.key)});
            }
        }
        return keys;
    }
};

TEST_F(LanguagesTest, FilesHaveEveryTextAndNoOther) {
    const std::set<Key> keys = EveryKey();
    EXPECT_GT(keys.size(), 30u);
    for (const char* name : {"mvGerkpd.ini", "mvJpnkpd.ini"}) {
        const Texts texts = ReadLanguageFile(name);
        for (const Key& key : keys) {
            EXPECT_TRUE(IsTranslated(texts, keys, key))
                << name << " lacks [" << key.first << "] " << key.second;
        }
        for (const auto& [key, translation] : texts) {
            EXPECT_TRUE(keys.contains(key))
                << name << " has [" << key.first << "] " << key.second << " for nothing";
            EXPECT_EQ(Conversions(key.second), Conversions(translation)) << key.second;
            EXPECT_FALSE(translation.empty()) << key.second;
            EXPECT_LT(translation.size(), size_t{kTextLength}) << key.second;
        }
    }
}

// A script's English names hold in every language, also for texts that a page puts in the place of
// the template's.
TEST_F(LanguagesTest, ScriptsAreEnglish) {
    const WideString path = TestFolder() + TEXT("\\a.sheet");
    const struct {
        const char* model;
        const char* script;
    } cases[] = {
        {"Mirv KP-41",
         "click \"Color Printing\"\nexpect text \"Color Printing\" \"Farbdruck\"\n"
         "choose \"Card Type : \" \"Adhesive Card\"\nexpect field CardType 5\n"
         "expect field ColorSides 0\n"},
        {"Mirv KP-43",  // a page with texts of two sections
         "page \"Rewrite\"\nexpect text \"Edit Area\" \"Bereich bearbeiten\"\n"
         "expect text IDC_ERASE_NOW \"Jetzt löschen\"\nexpect text IDC_ERASE_NOW \"Erase Now\"\n"
         "expect text IDC_ERASE_AREA_EDIT \"Edit Area\"\n"},
    };
    for (const auto& c : cases) {
        WriteBytes(path, c.script);
        std::ostringstream said;
        EXPECT_EQ(RunKpdtool({"sheet", "--model", c.model, "--language", "de", "--script",
                              DiskPath(path).string()},
                             said, said),
                  0)
            << said.str();
    }
}

}  // namespace
}  // namespace test
