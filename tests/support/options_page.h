// The fixture for the Device Options page by itself: a page over a context made by hand, without a
// sheet or a printer around it.
#pragma once

#include "core/context.h"
#include "ui/pages/device_options/option_controls.h"
#include "window_test.h"

namespace test {

struct ModelFlags {
    DWORD duplex = 1;
    DWORD kp41 = 1;
    DWORD kp43 = 0;
    DWORD kp49 = 0;
};
inline constexpr ModelFlags kSimplex = {.duplex = 0};
inline constexpr ModelFlags kDuplexOnly = {.kp41 = 0};  ///< of no family
inline constexpr ModelFlags kKP43 = {.duplex = 0, .kp41 = 0, .kp43 = 1};

class OptionsPageTest : public WindowTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    void SetModel(const ModelFlags& flags);
    /// Makes the page over context_; one that is open is destroyed first.
    void Open();

    // What the user does.
    void Choose(int list, int index);
    void Click(int control);

    // What he sees.
    bool IsShown(int control) const;
    /// "-" when it is hidden; else with "~" before when it is disabled: "x" or "." for a box, the
    /// selected text and the number of items for a list.
    std::string Looks(int control) const;
    /// The side's image, rotate, flip and colour boxes and its resin list.
    std::string Looks(const SideControls& side) const;
    /// Every control's looks, a line each.
    std::string LooksOfAll() const;
    /// The page's fields of the record.
    std::string Options() const;

    /// What the page has drawn anew since MarkPictures, of "front", "back", "order".
    void MarkPictures() const;
    std::string Redrawn() const;
    /// How often the sheet was told of a change since the last call.
    static int TakeChanges();

    DevModePrivate& Record() { return context_.WorkingDevMode.Private; }
    const DevModePrivate& Record() const { return context_.WorkingDevMode.Private; }

    DEVMODEW& Paper() { return context_.WorkingDevMode.Public; }
    const DEVMODEW& Paper() const { return context_.WorkingDevMode.Public; }

    DriverContext context_ = {};
    HWND page_ = nullptr;
};

}  // namespace test
