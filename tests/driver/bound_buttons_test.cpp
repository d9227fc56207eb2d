// Boxes and radio buttons bound to fields of the record, down to single bits of wide fields.
#include "ui/common/bound_buttons.h"

#include "window_test.h"

#include <cstring>

namespace test {
namespace {

constexpr RecordField kFlags = RECORD_FIELD(Private.PrinterOptionFlags);  // 16 bits
constexpr RecordField kSkip = RECORD_FIELD(Private.SkipBlankPage);
constexpr RecordField kOvercoat = RECORD_FIELD(Private.OvercoatMode);

TEST(BoundButtonsTest, WhatIsCheckedAndWhatAClickStores) {
    const struct {
        const char* name;
        BoundButton button;
        DWORD before;
        bool checked;
        DWORD after;
    } cases[] = {
        {"a box", {1, kSkip, ButtonKind::kBox}, 0, false, 1},
        {"a box, any other value", {1, kSkip, ButtonKind::kBox}, 6, true, 0},
        {"an inverse box", {1, kSkip, ButtonKind::kInverseBox}, 0, true, 1},
        {"an inverse box, any other value", {1, kSkip, ButtonKind::kInverseBox}, 6, false, 0},
        {"an exact box", {1, kSkip, ButtonKind::kExactBox}, 1, true, 0},
        {"an exact box, any other value", {1, kSkip, ButtonKind::kExactBox}, 6, false, 1},
        {"a bit", {1, kFlags, ButtonKind::kBox, kNoEject, kNoEject}, 0x0104, false, 0x8104},
        {"a bit that is set",
         {1, kFlags, ButtonKind::kBox, kNoEject, kNoEject},
         0x8104,
         true,
         0x0104},
        {"one of two bits", {1, kOvercoat, ButtonKind::kRadio, kFrontDesigned, 3}, 5, false, 6},
        {"the other", {1, kOvercoat, ButtonKind::kRadio, kFrontGlossy, 3}, 5, true, 5},
    };
    HWND dialog = CreateWindowExW(0, TEXT("Static"), TEXT(""), WS_POPUP, 0, 0, 50, 50, nullptr,
                                  nullptr, GetModuleHandleW(nullptr), nullptr);
    CreateWindowExW(0, TEXT("Button"), TEXT(""), WS_CHILD | BS_CHECKBOX, 0, 0, 9, 9, dialog,
                    reinterpret_cast<HMENU>(ULONG_PTR{1}), GetModuleHandleW(nullptr), nullptr);
    for (const auto& c : cases) {
        DevModeRecord record = {};
        WriteField(record, c.button.Field, c.before);
        ShowButtons(dialog, record, {&c.button, 1});
        EXPECT_EQ(IsDlgButtonChecked(dialog, 1) == BST_CHECKED, c.checked) << c.name;
        StoreClick(record, c.button);
        EXPECT_EQ(ReadField(record, c.button.Field), c.after) << c.name;
        WriteField(record, c.button.Field, 0);
        const DevModeRecord blank = {};
        EXPECT_EQ(std::memcmp(&record, &blank, sizeof(record)), 0) << c.name;
    }
    DestroyWindow(dialog);
}

}  // namespace
}  // namespace test
