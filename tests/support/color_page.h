// The fixture for the Color page by itself.
#pragma once

#include "lone_page.h"

namespace test {

class ColorPageTest : public LonePageTest {
  protected:
    void Open();

    /// The preference buttons in their order: "x..." while the first is checked.
    std::string Preference() const;
    /// The record's colour fields but the adjustments:
    ///   "preference 0 style 1 method 1 skin 1 128 0 flag 0 boxes 0 1 0"
    /// with the skin's tone, vertical and horizontal value and the boxes automatic enhancement,
    /// SharpenMode and BitBltInvert.
    std::string Settings() const;
    /// The adjustments in the order of the rows, as "0 0 100 0 0 0 0 100".
    std::string Adjustments() const;
    /// The same out of the fields and of the sliders; a field that is no number counts as 0.
    std::string Fields() const;
    std::string Sliders() const;
};

}  // namespace test
