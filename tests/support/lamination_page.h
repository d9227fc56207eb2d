// The fixture for the Lamination page by itself, with the sample printer connected or not.
#pragma once

#include "lone_page.h"
#include "tools/computer/sample_library.h"

#include <optional>

namespace test {

/// A laminator with both films: La 2 and Lb -5 from their references, and 0.
inline constexpr const char* kLaminator =
    "laminator = 1\n"
    "film 0 = 170 2100 5 95 3 100\n"
    "film 1 = 150 1800 0 100 0 100\n";

class LaminationPageTest : public LonePageTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Connects a printer in that state in place of the one before.
    void Connect(const std::string& state);
    void Disconnect() { printer_.reset(); }
    std::string State() const { return printer_->State(); }

    void Open();
    void Activate();
    /// Connected to kLaminator, opened and activated.
    void Start();

    // What the user does.
    void Slide(int slider, int position, WORD code);
    void Step(int arrows, WORD code);

    // What he sees.
    /// Both sliders' positions and texts: "2520 2.52 sec./inch, 170 170 cel.".
    std::string Transfer() const;
    /// Both fields' texts and arrows' positions: "2 2, -5 -5".
    std::string Position() const;
    /// The "Save" buttons: "x" for an enabled one.
    std::string Saves() const;
    int Offset(int arrows) const { return GetScrollPos(Item(arrows), SB_CTL); }

  private:
    WideString name_ = TEXT("Badge room");
    std::optional<computer::SamplePrinter> printer_;
};

}  // namespace test
