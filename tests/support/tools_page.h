// The fixture for the Tools page by itself, with the sample printer connected or not.
#pragma once

#include "companions/calibration_table.h"
#include "lone_page.h"
#include "tools/computer/sample_library.h"

#include <optional>

namespace test {

class ToolsPageTest : public LonePageTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    void Open();

    /// Connects a printer in that state, which answers to the page's name for it alone, in place of
    /// the one before.
    void Connect(const std::string& state = "");
    /// The state without that name.
    std::string State() const;

    using LonePageTest::Answer;
    /// The printer's answer with its table.
    void Answer(const CalibrationTable& table);

    /// The fields' texts, the arrows' positions and, with a "~" before what is disabled, what of
    /// the adjuster can be used: "3 -1 0 | 3 -1 0 | ~Save Default Print".
    std::string Adjuster() const;
    /// The record's A, B, C and further 16 bits.
    std::string Stored() const;
    /// This table was sent to the printer since it was connected; it is connected anew.
    void ExpectSent(const CalibrationTable& table);

    HWND ArrowsOf(int field) const { return Item(field + 1); }
    /// As the arrows tell of a press of them, without and with what follows.
    void Scroll(int field, WORD request);
    void Step(int field, WORD request);

    WideString printer_ = TEXT("Badge room");

  private:
    std::optional<computer::SamplePrinter> sample_;
};

/// A row of the table by its offsets from defaults that are all different.
CalibrationRow MakeRow(int a, int b, int c, WORD extra = 0x1234);
/// Rows with offsets of their own: 0.3 mm 1 2 3, 0.5 mm 4 5 6, 0.8 mm -1 -2 -3, 1.0 mm -4 -5 -6.
CalibrationTable MakeTable();

}  // namespace test
