// The fixture for the Device Options page by itself.
#pragma once

#include "lone_page.h"
#include "ui/pages/device_options/option_controls.h"

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

class OptionsPageTest : public LonePageTest {
  protected:
    void SetUp() override;

    void SetModel(const ModelFlags& flags);
    void Open();

    using LonePageTest::Looks;
    /// The side's image, rotate, flip and colour boxes and its resin list.
    std::string Looks(const SideControls& side) const;
    /// The page's fields of the record.
    std::string Options() const;

    /// What the page has drawn anew since MarkPictures, of "front", "back", "order".
    void MarkPictures() const;
    std::string Redrawn() const;
};

}  // namespace test
