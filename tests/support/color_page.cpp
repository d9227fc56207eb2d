// One implementation for both platforms.
#include "color_page.h"

#include "ui/pages/color/adjustment_rows.h"
#include "ui/pages/color/color_page.h"

#include <commctrl.h>

namespace test {
namespace {

template <typename Number>
std::string EachRow(Number number) {
    std::string numbers;
    for (const AdjustmentRow& row : kAdjustmentRows) {
        numbers += (numbers.empty() ? "" : " ") + std::to_string(number(row));
    }
    return numbers;
}

}  // namespace

void ColorPageTest::Open() {
    OpenPage(IDD_COLOR, ColorPageProc);
}

std::string ColorPageTest::Preference() const {
    return Looks(IDC_BASIC_COLOR) + Looks(IDC_CLASSIC_COLOR) + Looks(IDC_WINDOWS_COLOR) +
           Looks(IDC_NO_COLOR_PREFERENCE);
}

std::string ColorPageTest::Settings() const {
    const DevModePrivate& record = Record();
    char text[128];
    std::snprintf(text, sizeof(text),
                  "preference %d style %d method %d skin %d %d %d flag %d boxes %d %d %d",
                  record.ColorPreference, record.ColorStyle, static_cast<int>(Paper().dmICMMethod),
                  record.SkinTone, record.SkinSliderV, record.SkinSliderH, record.ColorFlag,
                  record.AutoEnhance, record.SharpenMode, record.BitBltInvert);
    return text;
}

std::string ColorPageTest::Adjustments() const {
    return EachRow([&](const AdjustmentRow& row) { return row.Value.Read(Record()); });
}

std::string ColorPageTest::Fields() const {
    return EachRow([&](const AdjustmentRow& row) {
        WCHAR text[kNumberLength] = {};
        GetDlgItemTextW(page_, row.Field.Control, text, kNumberLength);
        return row.Field.Kind == NumberKind::kInteger ? ParseDecimalText(text)
                                                      : ParseHundredths(text);
    });
}

std::string ColorPageTest::Sliders() const {
    return EachRow([&](const AdjustmentRow& row) {
        return SendDlgItemMessageW(page_, row.Slider, TBM_GETPOS, 0, 0);
    });
}

}  // namespace test
