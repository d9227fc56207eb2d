// The scripts of `kpdtool sheet`: one step a line, read and checked as a whole before anything is
// opened.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kpdtool {

enum class Verb : BYTE {
    kPage,
    kChoose,
    kClick,
    kType,
    kKey,
    kScroll,
    kScrollTo,
    kSlide,
    kTab,
    kAnswer,
    kCopyData,
    kExpectChecked,
    kExpectUnchecked,
    kExpectEnabled,
    kExpectDisabled,
    kExpectShown,
    kExpectHidden,
    kExpectText,
    kExpectItems,
    kExpectSelected,
    kExpectField,
    kExpectMessage,
    kPrintControls,
    kPicture,
    kApply,
    kOk,
    kCancel,
};

constexpr bool IsExpectation(Verb verb) {
    return verb >= Verb::kExpectChecked && verb <= Verb::kExpectMessage;
}

struct Word {
    std::string text;
    bool quoted = false;
    int occurrence = 1;  ///< 2 in "Rotate 180"#2
};

struct Step {
    Verb verb;
    int line;
    std::vector<Word> words;  ///< what the step works with, without the words that name it
    std::vector<BYTE> bytes;  ///< of the file that it names
    bool awaits = false;      ///< an expectation that may take its time
};

struct Script {
    std::string name;  ///< of its file
    std::vector<Step> steps;

    /// "tour.sheet:12: ", with which everything begins that is said about a step.
    std::string PlaceOf(const Step& step) const;
};

/// Throws ToolError, naming the line, for a line that is no step. `name` is for messages.
Script ParseScript(const std::string& name, std::string_view text);
Script ReadScript(const std::string& path);

/// Every step's form, a line each.
std::string ScriptForms();

/// What words of a script stand for: keys (VK_...), scroll bar actions (SB_...), buttons of message
/// boxes (ID...), decimal or 0x numbers. None for any other word.
std::optional<int> KeyNamed(std::string_view word);
std::optional<int> ScrollNamed(std::string_view word);
std::optional<int> ButtonNamed(std::string_view word);
std::optional<long long> NumberIn(std::string_view word);

}  // namespace kpdtool
