// The fixture for the Tools page by itself, with or without a printer's device I/O library.
#pragma once

#include "bridge_companion.h"
#include "companions/calibration_table.h"
#include "lone_page.h"

#include <vector>

namespace test {

class ToolsPageTest : public LonePageTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    void Open();

    /// Puts the tests' device I/O library, or another one, into the driver directory.
    void InstallBridge();
    void InstallBridge(const char* library);

    using LonePageTest::Answer;
    /// The printer's answer with its table.
    void Answer(const CalibrationTable& table);

    /// The fields' texts, the arrows' positions and, with a "~" before what is disabled, what of
    /// the adjuster can be used: "3 -1 0 | 3 -1 0 | ~Save Default Print".
    std::string Adjuster() const;
    /// The record's A, B, C and further 16 bits.
    std::string Stored() const;
    /// Current A, B, C and 16 bits of a row of the table that was sent last; "none" before.
    std::string Sent(int row) const;

    HWND ArrowsOf(int field) const { return Item(field + 1); }
    /// As the arrows tell of a press of them, without and with what follows.
    void Scroll(int field, WORD request);
    void Step(int field, WORD request);

    WideString printer_ = TEXT("Badge room");
    BridgeNotes* notes_ = nullptr;  ///< of the tests' library once it is installed

  private:
    WideString BridgePath() const { return DriverFolder() + TEXT("\\PrnBridge.dll"); }
    void RemoveBridge();
    HMODULE bridge_ = nullptr;
};

/// A row of the table by its offsets from defaults that are all different.
CalibrationRow MakeRow(int a, int b, int c, WORD extra = 0x1234);
/// Rows with offsets of their own: 0.3 mm 1 2 3, 0.5 mm 4 5 6, 0.8 mm -1 -2 -3, 1.0 mm -4 -5 -6.
CalibrationTable MakeTable();

}  // namespace test
