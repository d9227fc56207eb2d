// One implementation for both platforms.
#include "tools_page.h"

#include "resources/resource.h"
#include "ui/pages/tools/print_position.h"
#include "ui/pages/tools/tools_page.h"

#include <cstring>

namespace test {
namespace {

std::string Numbers(const PrintPosition& at) {
    return std::to_string(at.A) + " " + std::to_string(at.B) + " " + std::to_string(at.C) + " " +
           std::to_string(at.Extra);
}

}  // namespace

void ToolsPageTest::SetUp() {
    LonePageTest::SetUp();
    context_.PrinterName = printer_.data();
    PrintPositions = {};
}

void ToolsPageTest::TearDown() {
    RemoveBridge();
    LonePageTest::TearDown();
}

void ToolsPageTest::Open() {
    OpenPage(IDD_TOOLS, PageProc<kToolsPage>);
}

void ToolsPageTest::InstallBridge(const char* library) {
    RemoveBridge();
    std::filesystem::copy_file(library, DiskPath(BridgePath()));
}

void ToolsPageTest::InstallBridge() {
    InstallBridge(KPD_BRIDGE_COMPANION);
    bridge_ = LoadLibraryW(BridgePath().c_str());
    ASSERT_NE(bridge_, nullptr);
    using NotesFunction = BridgeNotes*();
    const auto notes =
        reinterpret_cast<NotesFunction*>(reinterpret_cast<void*>(GetProcAddress(bridge_, "Notes")));
    ASSERT_NE(notes, nullptr);
    notes_ = notes();
}

void ToolsPageTest::RemoveBridge() {
    if (bridge_ != nullptr) {
        FreeLibrary(std::exchange(bridge_, nullptr));
        notes_ = nullptr;
    }
    std::filesystem::remove(DiskPath(BridgePath()));
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
    PrintPosition stored = {};
    stored.A = static_cast<std::int8_t>(record.PrintPositionA);
    stored.B = static_cast<std::int8_t>(record.PrintPositionB);
    stored.C = static_cast<std::int8_t>(record.PrintPositionC);
    stored.Extra = record.PrintPositionExtra;
    return Numbers(stored);
}

std::string ToolsPageTest::Sent(int row) const {
    if (notes_->Sent == 0) {
        return "none";
    }
    EXPECT_EQ(notes_->TableSize, 128u);
    EXPECT_EQ(WideString(notes_->Printer), printer_);
    CalibrationTable table;
    std::memcpy(&table, notes_->Table, sizeof(table));
    return Numbers(table[static_cast<size_t>(row)].Current);
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
