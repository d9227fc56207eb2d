// The fixture for a page by itself, over a context made by hand, without a sheet or a printer
// around it, in the English of the dialogs.
#pragma once

#include "core/context.h"
#include "window_test.h"

#include <cstring>

namespace test {

inline bool IsSame(const DevModeRecord& a, const DevModeRecord& b) {
    return std::memcmp(&a, &b, sizeof(a)) == 0;
}

class LonePageTest : public WindowTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Makes a page over context_; one that is open is destroyed first.
    void OpenPage(int dialog, DLGPROC procedure);

    // What the user does.
    void Click(int control);
    void Choose(int list, int item);
    void Enter(int field, const char* text);  ///< as if typed at once

    // What the sheet and a companion tell the page.
    void Notify(UINT code, UINT_PTR from = 0);
    void Apply();  ///< which the page has to report as accepted, once
    void Answer(ULONG_PTR query, const std::string& bytes);

    // What the user sees.
    HWND Item(int control) const { return GetDlgItem(page_, control); }
    bool IsShown(int control) const;
    /// "-" when it is hidden; else with "~" before when it is disabled: "x" or "." for a box, the
    /// selected text and the number of items for a list, the position of a slider, else the text.
    std::string Looks(int control) const;
    /// Every control's looks, a line each.
    std::string LooksOfAll() const;

    /// The message boxes shown since the last call, "title: text" in lines, with "owned " before
    /// those that have an owner.
    std::string TakeMessages();

    /// How often the sheet was told of a change since the last call.
    static int TakeChanges();

    DevModePrivate& Record() { return context_.WorkingDevMode.Private; }
    const DevModePrivate& Record() const { return context_.WorkingDevMode.Private; }

    DEVMODEW& Paper() { return context_.WorkingDevMode.Public; }
    const DEVMODEW& Paper() const { return context_.WorkingDevMode.Public; }

    DriverContext context_ = {};
    HWND page_ = nullptr;

  private:
    size_t messagesTaken_ = 0;
};

}  // namespace test
