// One implementation for both platforms.
#include "tools_page.h"

#include "companions/device_io.h"
#include "resources/resource.h"
#include "ui/pages/tools/print_position.h"
#include "ui/pages/tools/tools_page.h"

namespace test {
void ToolsPageTest::SetUp() {
    LonePageTest::SetUp();
    context_.PrinterName = printer_.data();
    PrintPositions = {};
}

void ToolsPageTest::TearDown() {
    sample_.reset();
    LonePageTest::TearDown();
}

void ToolsPageTest::Open() {
    OpenPage(IDD_TOOLS, PageProc<kToolsPage>);
}

void ToolsPageTest::Connect(const std::string& state) {
    sample_.reset();
    sample_.emplace("printer = " + Narrow(printer_) + "\n" + state);
    ASSERT_EQ(sample_->Reason(), "");
}

std::string ToolsPageTest::State() const {
    const std::string state = sample_->State();
    return state.substr(state.find('\n') + 1);
}

void ToolsPageTest::ExpectSent(const CalibrationTable& table) {
    const std::string sent = State();
    Connect();
    SetCalibrationValues(printer_.c_str(), table);
    EXPECT_EQ(sent, State());
    Connect();
}

void ToolsPageTest::Answer(const CalibrationTable& table) {
    Answer(5, std::string("\0\4", 2) +
                  std::string(reinterpret_cast<const char*>(&table), sizeof(table)));
}

std::string ToolsPageTest::Adjuster() const {
    std::string fields;
    std::string arrows;
    for (int field : {IDC_POSITION_A, IDC_POSITION_B, IDC_POSITION_C}) {
        const bool enabled = IsWindowEnabled(Item(field)) != 0;
        EXPECT_EQ(IsWindowEnabled(ArrowsOf(field)) != 0, enabled);
        fields += (enabled ? "" : "~") + TextOf(Item(field)) + " ";
        arrows += std::to_string(GetScrollPos(ArrowsOf(field), SB_CTL)) + " ";
    }
    std::string buttons;
    for (int button : {IDC_POSITION_SAVE, IDC_POSITION_DEFAULT, IDC_POSITION_PRINT}) {
        buttons += (IsWindowEnabled(Item(button)) ? " " : " ~") + TextOf(Item(button));
    }
    return fields + "| " + arrows + "|" + buttons;
}

std::string ToolsPageTest::Stored() const {
    const DevModePrivate& record = Record();
    std::string stored;
    for (const BYTE value : {record.PrintPositionA, record.PrintPositionB, record.PrintPositionC}) {
        stored += std::to_string(static_cast<std::int8_t>(value)) + " ";
    }
    return stored + std::to_string(record.PrintPositionExtra);
}

void ToolsPageTest::Scroll(int field, WORD request) {
    SendMessageW(page_, WM_VSCROLL, request, reinterpret_cast<LPARAM>(ArrowsOf(field)));
}

void ToolsPageTest::Step(int field, WORD request) {
    Scroll(field, request);
    Scroll(field, SB_ENDSCROLL);
    HandlePosted();
}

CalibrationRow MakeRow(int a, int b, int c, WORD extra) {
    CalibrationRow row = {};
    for (size_t i = 0; i < std::size(row.Rest); ++i) {
        row.Rest[i] = static_cast<BYTE>(0xA0 + i);
    }
    row.Default = {30, 10, 0x4321, 20, {7, 8, 9}};
    row.Current = row.Default;
    row.Current.A = static_cast<std::int8_t>(row.Default.A + a);
    row.Current.B = static_cast<std::int8_t>(row.Default.B + b);
    row.Current.C = static_cast<std::int8_t>(row.Default.C + c);
    row.Current.Extra = extra;
    return row;
}

CalibrationTable MakeTable() {
    return {MakeRow(1, 2, 3), MakeRow(4, 5, 6), MakeRow(-1, -2, -3), MakeRow(-4, -5, -6)};
}

}  // namespace test
