// The sample designer's print areas and their text files.
#include "print_area.h"

#include "folders.h"
#include "narrow_text.h"
#include "sample_file.h"
#include "tools/kpdtool/wide_text.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <optional>

namespace {

// ---- Standard areas -----------------------------------------------------------------------------

constexpr WORD kShort = 642;
constexpr COLORREF kCardColor = RGB(250, 246, 230);
constexpr COLORREF kAreaColor = RGB(96, 176, 240);

// Surfaces, a bit for each code: a chip of eight or six contacts, a magnetic stripe, none of them.
constexpr unsigned kChips = 1u << 1 | 1u << 4;
constexpr unsigned kStripe = 1u << 2;
constexpr unsigned kPlain = 1u << 3;

constexpr BYTE kPrinted = 2;
constexpr AreaBlock kWholeCard = {kPrinted, 0, 0, 0, 0};

// In dots; a block without width or height ends at the card's edge.
struct StandardArea {
    const WCHAR* Name;
    bool IsPortrait;
    unsigned Surfaces;
    size_t Count;
    AreaBlock Blocks[2];
};
constexpr StandardArea kStandardAreas[] = {
    {TEXT("Standard"), false, kChips | kStripe | kPlain, 1, {kWholeCard}},
    {TEXT("Chip Free"), false, kChips, 2, {kWholeCard, {kWhiteBlock, 100, 280, 160, 150}}},
    {TEXT("Magnetic Stripe Free"), false, kStripe, 2, {kWholeCard, {kWhiteBlock, 0, 430, 0, 160}}},
    {TEXT("Photo Window"),
     false,
     kChips | kPlain,
     2,
     {kWholeCard, {kWhiteBlock, 690, 130, 260, 340}}},
    {TEXT("Portrait Photo"),
     true,
     kChips | kPlain,
     2,
     {kWholeCard, {kWhiteBlock, 170, 480, 300, 400}}},
    {TEXT("Signature Panel"), false, kStripe | kPlain, 1, {{kPrinted, 60, 60, 600, 120}}},
};

PrintArea MakeStandard(const StandardArea& standard, const AreaCard& card) {
    PrintArea area = {standard.Name, standard.IsPortrait, card.LongExtent,
                      kShort,        kCardColor,          kAreaColor};
    if (standard.IsPortrait) {
        std::swap(area.Width, area.Height);
    }
    area.Blocks.assign(standard.Blocks, standard.Blocks + standard.Count);
    for (AreaBlock& block : area.Blocks) {
        if (block.Width == 0) {
            block.Width = static_cast<WORD>(area.Width - block.X);
        }
        if (block.Height == 0) {
            block.Height = static_cast<WORD>(area.Height - block.Y);
        }
    }
    return area;
}

// ---- Text files ---------------------------------------------------------------------------------

constexpr size_t kNameRoom = 260;  // of a narrow name with its end

// As many numbers as `count` and nothing else, each from `least` to `most`; else none.
std::vector<long long> NumbersIn(const std::string& text, size_t count, long long least,
                                 long long most) {
    std::vector<long long> numbers;
    const char* at = text.c_str();
    while (*at != 0) {
        char* end = nullptr;
        const long long number = std::strtoll(at, &end, 10);
        if (end == at || (*end != 0 && *end != ' ' && *end != '\t') || number < least ||
            number > most) {
            return {};
        }
        numbers.push_back(number);
        at = end;
    }
    return numbers.size() == count ? numbers : std::vector<long long>();
}

std::optional<COLORREF> ColorIn(const std::string& text) {
    const std::vector<long long> parts = NumbersIn(text, 3, 0, 255);
    if (parts.empty()) {
        return {};
    }
    return RGB(parts[0], parts[1], parts[2]);
}

std::optional<AreaBlock> BlockIn(const std::string& text) {
    const std::vector<long long> parts = NumbersIn(text, 5, 0, 0xFFFF);
    if (parts.empty() || parts[0] > 0xFF) {
        return {};
    }
    const auto word = [&](size_t i) { return static_cast<WORD>(parts[i]); };
    return AreaBlock{static_cast<BYTE>(parts[0]), word(1), word(2), word(3), word(4)};
}

// None of a file that is no area's.
std::optional<PrintArea> ReadArea(const WideString& path) {
    constexpr long long kLargest = 0x7FFFFFFF;
    const SampleFile file(path, 1);
    PrintArea area = {};
    area.File = path;
    area.Name = kpdtool::FromUtf8(file.Text("name"));
    const std::string orientation = file.Text("orientation");
    area.IsPortrait = orientation == "portrait";
    const std::vector<long long> layout = NumbersIn(file.Text("layout"), 2, 1, kLargest);
    const std::optional<COLORREF> card = ColorIn(file.Text("card"));
    const std::optional<COLORREF> color = ColorIn(file.Text("area"));
    const std::string name = ToNarrow(area.Name);
    if (name.empty() || name.size() >= kNameRoom || layout.empty() || !card || !color ||
        (!area.IsPortrait && orientation != "landscape")) {
        return {};
    }
    area.Width = static_cast<DWORD>(layout[0]);
    area.Height = static_cast<DWORD>(layout[1]);
    area.CardColor = *card;
    area.AreaColor = *color;
    for (const std::string& line : file.Texts("block")) {
        const std::optional<AreaBlock> block = BlockIn(line);
        if (!block) {
            return {};
        }
        area.Blocks.push_back(*block);
    }
    return area;
}

std::vector<WideString> FilesIn(const WideString& folder) {
    std::vector<WideString> files;
    if (folder.empty()) {
        return files;
    }
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW((folder + TEXT("*.txt")).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return files;
    }
    do {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            files.push_back(folder + found.cFileName);
        }
    } while (FindNextFileW(search, &found));
    FindClose(search);
    std::sort(files.begin(), files.end());
    return files;
}

// As far as the names of standard areas go.
WCHAR Folded(WCHAR c) {
    return c >= 'A' && c <= 'Z' ? static_cast<WCHAR>(c - 'A' + 'a') : c;
}

bool IsSameName(const WideString& a, const WideString& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](WCHAR x, WCHAR y) { return Folded(x) == Folded(y); });
}

// What a file may be called after an area of that name.
WideString FileNameOf(const WideString& name) {
    constexpr std::basic_string_view<WCHAR> kForbidden = TEXT("<>:\"/\\|?*");
    WideString file = name.substr(0, 60);
    for (WCHAR& c : file) {
        c = c < ' ' || kForbidden.find(c) != kForbidden.npos ? static_cast<WCHAR>('_') : c;
    }
    return file + TEXT(".txt");
}

bool IsThere(const WideString& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// Makes the folders of a path, which ends with a backslash, that are missing.
bool MakeFolders(const WideString& path, std::vector<WideString>& made) {
    constexpr size_t kDrive = 3;
    for (size_t end = path.find('\\', kDrive); end != path.npos; end = path.find('\\', end + 1)) {
        const WideString folder = path.substr(0, end);
        if (MakeFolder(folder)) {
            made.push_back(folder);
        }
    }
    return IsThere(path.substr(0, path.size() - 1));
}

void Write(const PrintArea& area) {
    const auto color = [](COLORREF c) {
        return std::vector<int>{static_cast<int>(c & 0xFF), static_cast<int>(c >> 8 & 0xFF),
                                static_cast<int>(c >> 16 & 0xFF)};
    };
    SampleFile file(area.File, 1);
    file.SetText("name", kpdtool::ToUtf8(area.Name));
    file.SetText("orientation", area.IsPortrait ? "portrait" : "landscape");
    file.SetNumbers("layout", {static_cast<int>(area.Width), static_cast<int>(area.Height)});
    file.SetNumbers("card", color(area.CardColor));
    file.SetNumbers("area", color(area.AreaColor));
    file.Remove("block");
    for (const AreaBlock& block : area.Blocks) {
        file.Add("block", std::to_string(block.Kind) + " " + std::to_string(block.X) + " " +
                              std::to_string(block.Y) + " " + std::to_string(block.Width) + " " +
                              std::to_string(block.Height));
    }
}

}  // namespace

std::vector<PrintArea> ListAreas(const AreaCard& card, const WideString& folder) {
    std::vector<PrintArea> areas;
    for (const StandardArea& standard : kStandardAreas) {
        if (card.HasStandard && (standard.Surfaces >> card.Surface & 1) != 0 &&
            (card.IsUpright || !standard.IsPortrait)) {
            areas.push_back(MakeStandard(standard, card));
        }
    }
    const size_t standards = areas.size();
    for (const WideString& path : FilesIn(folder)) {
        std::optional<PrintArea> area = ReadArea(path);
        if (!area) {
            continue;
        }
        const auto end = areas.begin() + static_cast<std::ptrdiff_t>(standards);
        const auto standard = std::find_if(areas.begin(), end, [&](const PrintArea& one) {
            return IsSameName(one.Name, area->Name);
        });
        if (standard != end) {
            *standard = *std::move(area);
        } else {
            areas.push_back(*std::move(area));
        }
    }
    return areas;
}

bool SaveArea(PrintArea& area, const WideString& folder, std::vector<WideString>& made) {
    if (!MakeFolders(folder, made)) {
        return false;
    }
    if (area.File.empty()) {
        area.File = folder + FileNameOf(area.Name);
    }
    const bool isNew = !IsThere(area.File);
    Write(area);
    if (isNew && IsThere(area.File)) {
        made.push_back(area.File);
    }
    return IsThere(area.File);
}
