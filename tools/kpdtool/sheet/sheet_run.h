// A script's steps done with a property sheet on the screen, from within the message loop that the
// sheet runs in, by what a user's mouse and keyboard send to its controls.
#pragma once

#include "prompts.h"
#include "script.h"
#include "sheet_controls.h"
#include "tools/kpdtool/hidden_window.h"

#include <windows.h>

#include <optional>
#include <ostream>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace kpdtool {

/// A page as scripts name it.
struct SheetPage {
    std::string title;                               ///< in English
    WORD dialog;                                     ///< number of its template
    std::vector<std::basic_string<WCHAR>> sections;  ///< of the language file, for its texts
};

/// What ends a script whose expectation failed.
class Unexpected : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

class SheetRun {
  public:
    /// `pictures` is the folder for the pages' pictures; empty for none. What the script prints
    /// goes to `out`. At the end of the steps `lastButton` (PSBTN_...) is pressed unless the script
    /// has pressed one.
    SheetRun(const Script& script, std::span<const SheetPage> pages, const std::string& pictures,
             int lastButton, std::ostream& out);
    SheetRun(const SheetRun&) = delete;
    SheetRun& operator=(const SheetRun&) = delete;

    /// After the sheet. Throws ToolError for a step that could not be done, or was not because the
    /// sheet was closed before. Gives the text of the expectation that failed, empty when none did.
    std::string Finish();

    const std::vector<std::string>& Messages() const { return allMessages_; }
    const std::vector<std::string>& Pictures() const { return written_; }

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Handle(UINT message);
    bool IsReady();
    bool MustAwait();
    void StartKeys(HWND control, WPARAM key, long long count);
    void PressKey(HWND target);
    void PressNextKey();
    void RunNext();
    void DoNext();
    void Abandon();
    void NoteMessages();

    // Where the user is.
    HWND CurrentPage() const;
    HWND ModalDialog() const;
    HWND CurrentDialog() const;
    const SheetPage* PageOf(int tab) const;
    int AskTabs(UINT message) const;
    int CurrentTab() const;
    int TabCount() const;
    void ShowTab(int tab);
    std::vector<Control> Controls() const;
    std::string Translated(const std::string& english) const;
    bool Reads(const std::string& shown, const std::string& wanted) const;
    Control Find(const Word& name, unsigned kinds, const char* wanted) const;
    Control FindUsable(const Word& name, unsigned kinds, const char* wanted) const;
    int ItemNamed(const Control& control, const Word& item) const;

    // The steps.
    void Do(const Step& step);
    void ShowPage(const Step& step);
    void Choose(const Step& step);
    void Click(const Step& step);
    void Type(const Step& step);
    void PressKeys(const Step& step);
    void Scroll(const Step& step);
    void Slide(const Step& step);
    void ClickTab(const Step& step);
    void Answer(const Step& step);
    void CopyData(const Step& step);
    void ExpectState(const Step& step);
    void ExpectText(const Step& step);
    void ExpectItems(const Step& step);
    void ExpectSelected(const Step& step);
    void ExpectField(const Step& step);
    void ExpectMessage(const Step& step);
    void PrintControls(const Step& step);
    void TakePicture(const Step& step);
    void PressButton(const Step& step);
    void Press(int button);
    void TakePictures();
    void WritePictureOf(HWND window, const std::string& title);

    struct StepRow {
        Verb verb;
        void (SheetRun::*run)(const Step&);
    };
    static const StepRow kSteps[];

    const Script& script_;
    const std::span<const SheetPage> pages_;
    const std::string pictures_;
    const int lastButton_;
    std::ostream& out_;
    Prompts prompts_;
    HiddenWindow window_{TEXT("KpdtoolSteps"), Procedure, this};  ///< the steps are messages to it
    HWND sheet_ = nullptr;
    size_t next_ = 0;
    HWND keyboard_ = nullptr;  ///< where the step before is pressing keys, until it is done
    WPARAM key_ = 0;
    long long keysLeft_ = 0;
    unsigned awaited_ = 0;               ///< how often the next step has been tried in vain
    bool pressed_ = false;               ///< a button that closes the sheet, by the step before
    std::vector<HWND> running_;          ///< dialogs that the steps not yet returned began in
    std::vector<std::string> messages_;  ///< shown since the last step that is no expectation
    std::vector<std::string> allMessages_;
    std::vector<std::string> written_;
    bool picturesTaken_ = false;
    bool closingByCommand_ = false;
    std::optional<std::string> unexpected_;
    std::optional<std::string> problem_;
};

}  // namespace kpdtool
