// Message boxes and file dialogs while a script runs: answered as the script says, and noted. What
// differs between the two platforms is the source file linked: prompts_native.cpp or
// prompts_windows.cpp.
#pragma once

#include <string>
#include <vector>

namespace kpdtool {

/// One at a time, for the thread that makes it.
class Prompts {
  public:
    Prompts();
    ~Prompts();
    Prompts(const Prompts&) = delete;
    Prompts& operator=(const Prompts&) = delete;

    /// What the next message box gives (ID...), in order; without an order its default button.
    void AnswerBox(int button);
    /// What the user types into the next file dialog, in order: a file's name as the tool's other
    /// arguments have them, or empty to cancel.
    void AnswerFile(const std::string& file);

    /// One is on the screen.
    bool IsOpen() const;
    /// The texts of the message boxes shown since the last call.
    std::vector<std::string> TakeTexts();
    /// Why a prompt could not be answered, empty when all could; since the last call.
    std::string TakeProblem();
};

}  // namespace kpdtool
