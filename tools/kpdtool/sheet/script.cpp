// Reading scripts. The forms of the steps are one table, which the help is made of too.
#include "script.h"

#include "resource_names.h"
#include "tools/kpdtool/records/fields.h"
#include "tools/kpdtool/tool_error.h"
#include "tools/kpdtool/wide_text.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <span>

namespace kpdtool {
namespace {

// Lower-case words stand for themselves, others are operands: [OPERAND] may be left out, OPERAND...
// stands any number of times.
struct Form {
    Verb verb;
    std::string_view text;
};

constexpr Form kForms[] = {
    {Verb::kPage, "page TEXT"},
    {Verb::kChoose, "choose CONTROL ITEM"},
    {Verb::kClick, "click CONTROL"},
    {Verb::kType, "type CONTROL TEXT"},
    {Verb::kKey, "key CONTROL KEY [COUNT]"},
    {Verb::kScrollTo, "scroll CONTROL to NUMBER"},
    {Verb::kScroll, "scroll CONTROL ACTION [COUNT]"},
    {Verb::kSlide, "slide CONTROL NUMBER"},
    {Verb::kTab, "tab TEXT"},
    {Verb::kAnswer, "answer ANSWER"},
    {Verb::kCopyData, "copydata NUMBER FILE"},
    {Verb::kExpectChecked, "expect checked CONTROL"},
    {Verb::kExpectUnchecked, "expect unchecked CONTROL"},
    {Verb::kExpectEnabled, "expect enabled CONTROL"},
    {Verb::kExpectDisabled, "expect disabled CONTROL"},
    {Verb::kExpectShown, "expect shown CONTROL"},
    {Verb::kExpectHidden, "expect hidden CONTROL"},
    {Verb::kExpectText, "expect text CONTROL TEXT"},
    {Verb::kExpectItems, "expect items CONTROL TEXT..."},
    {Verb::kExpectSelected, "expect selected CONTROL ITEM"},
    {Verb::kExpectField, "expect field FIELD VALUE"},
    {Verb::kExpectMessage, "expect message TEXT"},
    {Verb::kPrintControls, "print controls"},
    {Verb::kPicture, "picture TEXT"},
    {Verb::kApply, "apply"},
    {Verb::kOk, "ok"},
    {Verb::kCancel, "cancel"},
};

struct Named {
    std::string_view word;
    int value;
};

constexpr Named kKeys[] = {
    {"up", VK_UP},          {"down", VK_DOWN},      {"left", VK_LEFT},   {"right", VK_RIGHT},
    {"home", VK_HOME},      {"end", VK_END},        {"tab", VK_TAB},     {"page-up", VK_PRIOR},
    {"page-down", VK_NEXT}, {"escape", VK_ESCAPE},  {"f4", VK_F4},       {"return", VK_RETURN},
    {"delete", VK_DELETE},  {"backspace", VK_BACK}, {"space", VK_SPACE},
};

constexpr Named kScrolls[] = {
    {"line-up", SB_LINEUP},
    {"line-down", SB_LINEDOWN},
    {"page-up", SB_PAGEUP},
    {"page-down", SB_PAGEDOWN},
};

constexpr Named kButtons[] = {
    {"ok", IDOK},         {"cancel", IDCANCEL}, {"abort", IDABORT}, {"retry", IDRETRY},
    {"ignore", IDIGNORE}, {"yes", IDYES},       {"no", IDNO},
};

std::optional<int> ValueOf(std::span<const Named> table, std::string_view word) {
    const auto it = std::ranges::find(table, word, &Named::word);
    return it == table.end() ? std::nullopt : std::optional(it->value);
}

std::string WordsOf(std::span<const Named> table) {
    std::string text;
    for (const Named& named : table) {
        text += (text.empty() ? "" : ", ") + std::string(named.word);
    }
    return text;
}

bool IsField(std::string_view word) {
    return std::ranges::any_of(RecordFields(),
                               [&](const Field& field) { return word == field.name; });
}

bool IsCount(std::string_view word) {
    constexpr long long kMost = 1000;
    const auto number = NumberIn(word);
    return number && *number >= 1 && *number <= kMost;
}

bool IsNumber(std::string_view word) {
    const auto number = NumberIn(word);
    return number && *number >= INT32_MIN && *number <= INT32_MAX;
}

// What an operand may be. A quoted text where a bare word belongs is wrong too.
struct Operand {
    std::string_view name;
    bool (*takes)(const Word& word);
    std::string (*wanted)();
};

constexpr Operand kOperands[] = {
    {"TEXT", [](const Word& w) { return w.quoted; },
     [] { return std::string("a text in double quotes"); }},
    {"ITEM", [](const Word& w) { return w.quoted || IsCount(w.text) || w.text == "0"; },
     [] { return std::string("an item's text in double quotes, or its place from 0"); }},
    {"VALUE", [](const Word&) { return true; }, [] { return std::string("a value"); }},
    {"CONTROL", [](const Word& w) { return w.quoted || ResourceNumber(w.text).has_value(); },
     [] { return std::string("a control's text in double quotes, or its IDC_ name"); }},
    {"KEY", [](const Word& w) { return !w.quoted && KeyNamed(w.text).has_value(); },
     [] { return "one of " + WordsOf(kKeys); }},
    {"ACTION", [](const Word& w) { return !w.quoted && ScrollNamed(w.text).has_value(); },
     [] { return "one of " + WordsOf(kScrolls) + ", to"; }},
    {"ANSWER", [](const Word& w) { return w.quoted || ButtonNamed(w.text).has_value(); },
     [] { return "a file name in double quotes, or one of " + WordsOf(kButtons); }},
    {"NUMBER", [](const Word& w) { return !w.quoted && IsNumber(w.text); },
     [] { return std::string("a number"); }},
    {"COUNT", [](const Word& w) { return !w.quoted && IsCount(w.text); },
     [] { return std::string("a number from 1 to 1000"); }},
    {"FIELD", [](const Word& w) { return !w.quoted && IsField(w.text); },
     [] { return std::string("a field's name (kpdtool layout has them all)"); }},
    {"FILE", [](const Word&) { return true; }, [] { return std::string("a file's name"); }},
};

const Operand& OperandNamed(std::string_view name) {
    return *std::ranges::find(kOperands, name, &Operand::name);
}

std::vector<std::string_view> Split(std::string_view text) {
    std::vector<std::string_view> parts;
    while (!text.empty()) {
        const size_t end = std::min(text.find(' '), text.size());
        parts.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return parts;
}

bool StandsForItself(std::string_view part) {
    return part[0] >= 'a' && part[0] <= 'z';
}

// How far a line follows a form, and why no further.
struct Match {
    size_t words = 0;
    std::string problem;
    std::vector<Word> operands;
};

Match MatchForm(std::string_view form, const std::vector<Word>& line) {
    Match match;
    for (std::string_view part : Split(form)) {
        const bool optional = part.starts_with('[');
        const bool repeated = part.ends_with("...");
        const std::string_view name = optional   ? part.substr(1, part.size() - 2)
                                      : repeated ? part.substr(0, part.size() - 3)
                                                 : part;
        do {
            if (match.words == line.size()) {
                match.problem = optional || repeated ? "" : "there is more to it";
                break;
            }
            const Word& word = line[match.words];
            if (StandsForItself(name)) {
                match.problem = !word.quoted && word.text == name ? "" : "it is not so called";
            } else if (const Operand& operand = OperandNamed(name); !operand.takes(word)) {
                match.problem = '\'' + word.text + "' is not " + operand.wanted();
            } else {
                match.operands.push_back(word);
            }
            if (!match.problem.empty()) {
                return match;
            }
            ++match.words;
        } while (repeated);
        if (!match.problem.empty()) {
            return match;
        }
    }
    if (match.words < line.size()) {
        match.problem = '\'' + line[match.words].text + "' is too much";
    }
    return match;
}

// Where a line is wrong: the name of the script and the number of the line.
[[noreturn]] void Refuse(const std::string& place, const std::string& reason) {
    throw ToolError(place + reason);
}

std::string Forms(std::string_view firstWord) {
    std::string text;
    for (const Form& form : kForms) {
        if (firstWord.empty() || Split(form.text)[0] == firstWord) {
            text += (text.empty() ? "" : " | ") + std::string(form.text);
        }
    }
    return text;
}

std::string KnownSteps() {
    std::string text;
    std::string_view last;
    for (const Form& form : kForms) {
        const std::string_view word = Split(form.text)[0];
        if (word != last) {
            text += (text.empty() ? "" : ", ") + std::string(word);
        }
        last = word;
    }
    return text;
}

std::string PlaceOfLine(const std::string& name, int line) {
    return name + ':' + std::to_string(line) + ": ";
}

// Takes a word off the front of a line; `line` begins with it.
Word TakeWord(const std::string& place, std::string_view& line) {
    Word word;
    if (line[0] != '"') {
        const size_t end = std::min(line.find_first_of(" \t"), line.size());
        word.text = line.substr(0, end);
        line.remove_prefix(end);
        return word;
    }
    word.quoted = true;
    size_t at = 1;
    for (; at < line.size() && line[at] != '"'; ++at) {
        at += line.substr(at, 2) == "\\\"";
        word.text += line[at];
    }
    if (at == line.size()) {
        Refuse(place, "a double quote is missing");
    }
    line.remove_prefix(at + 1);
    if (!line.empty() && line[0] == '#') {
        const size_t end = std::min(line.find_first_of(" \t"), line.size());
        const std::string_view number = line.substr(1, end - 1);
        if (!IsCount(number)) {
            Refuse(place, "behind a text's # stands which of that text is meant, from 1");
        }
        word.occurrence = static_cast<int>(*NumberIn(number));
        line.remove_prefix(end);
    }
    if (!line.empty() && line[0] != ' ' && line[0] != '\t') {
        Refuse(place, "a blank is missing behind a text");
    }
    return word;
}

std::vector<Word> WordsIn(const std::string& place, std::string_view line) {
    std::vector<Word> words;
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    for (;;) {
        line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
        if (line.empty() || line[0] == '#') {
            return words;
        }
        words.push_back(TakeWord(place, line));
    }
}

std::vector<BYTE> FileBytes(const std::string& place, const std::string& name) {
    std::ifstream file(PathFrom(name), std::ios::binary);
    if (!file) {
        Refuse(place, name + " cannot be read");
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

Step StepIn(const std::string& place, std::vector<Word> words) {
    if (!words[0].quoted && words[0].text == "await") {
        words[0].text = "expect";
        Step step = StepIn(place, std::move(words));
        step.awaits = true;
        return step;
    }
    Match best;
    for (const Form& form : kForms) {
        Match match = MatchForm(form.text, words);
        if (match.problem.empty()) {
            return {form.verb, 0, std::move(match.operands), {}, false};
        }
        // Of forms that it follows equally far the last: the others are more special.
        if (match.words >= best.words) {
            best = std::move(match);
        }
    }
    if (best.words == 0) {
        Refuse(place, '\'' + words[0].text + "' is no step; steps are " + KnownSteps());
    }
    const std::string reason = best.problem == "it is not so called" ? "" : best.problem + "; ";
    Refuse(place, reason + "it is written: " + Forms(words[0].text));
}

}  // namespace

std::string Script::PlaceOf(const Step& step) const {
    return PlaceOfLine(name, step.line);
}

Script ParseScript(const std::string& name, std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) {
        text.remove_prefix(kByteOrderMark.size());
    }
    Script script = {name, {}};
    for (int line = 1; !text.empty(); ++line) {
        const size_t end = std::min(text.find('\n'), text.size());
        const std::string place = PlaceOfLine(name, line);
        if (auto words = WordsIn(place, text.substr(0, end)); !words.empty()) {
            Step step = StepIn(place, std::move(words));
            step.line = line;
            if (step.verb == Verb::kCopyData) {
                step.bytes = FileBytes(place, step.words[1].text);
            }
            script.steps.push_back(std::move(step));
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return script;
}

Script ReadScript(const std::string& path) {
    const std::vector<BYTE> bytes = FileBytes("", path);
    return ParseScript(path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

std::string ScriptForms() {
    std::string text;
    for (const Form& form : kForms) {
        text += "  " + std::string(form.text) + '\n';
    }
    return text;
}

std::optional<int> KeyNamed(std::string_view word) {
    return ValueOf(kKeys, word);
}

std::optional<int> ScrollNamed(std::string_view word) {
    return ValueOf(kScrolls, word);
}

std::optional<int> ButtonNamed(std::string_view word) {
    return ValueOf(kButtons, word);
}

std::optional<long long> NumberIn(std::string_view word) {
    const bool negative = word.starts_with('-');
    word.remove_prefix(negative ? 1 : 0);
    const bool hex = word.starts_with("0x");
    word.remove_prefix(hex ? 2 : 0);
    long long number = 0;
    const auto [end, error] =
        std::from_chars(word.data(), word.data() + word.size(), number, hex ? 16 : 10);
    if (error != std::errc() || end != word.data() + word.size() || number < 0) {
        return std::nullopt;
    }
    return negative ? -number : number;
}

}  // namespace kpdtool
