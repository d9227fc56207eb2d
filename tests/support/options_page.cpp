// One implementation for both platforms.
#include "options_page.h"

#include "resources/resource.h"
#include "ui/common/controls.h"
#include "ui/pages/device_options/device_options_page.h"

namespace test {
namespace {

constexpr COLORREF kMark = RGB(255, 0, 128);
constexpr POINT kMarked = {1, 1};  // of a picture

constexpr struct {
    int control;
    const char* name;
} kPictures[] = {
    {IDC_FRONT_PREVIEW, "front"}, {IDC_BACK_PREVIEW, "back"}, {IDC_PAGE_ORDER, "order"}};

}  // namespace

void OptionsPageTest::SetUp() {
    LonePageTest::SetUp();
    SetModel({});
}

void OptionsPageTest::SetModel(const ModelFlags& flags) {
    context_.IsDuplexModel = flags.duplex;
    context_.IsKP41Family = flags.kp41;
    context_.IsKP43Family = flags.kp43;
    context_.IsKP49 = flags.kp49;
}

void OptionsPageTest::Open() {
    OpenPage(IDD_DEVICE_OPTIONS, DeviceOptionsPageProc);
}

std::string OptionsPageTest::Looks(const SideControls& side) const {
    return Looks(side.Image) + " " + Looks(side.Rotate) + " " + Looks(side.Flip) + " " +
           Looks(side.Color) + " " + Looks(side.Resin);
}

std::string OptionsPageTest::Options() const {
    const DevModePrivate& record = Record();
    char text[128];
    std::snprintf(text, sizeof(text), "sides %d color %d resin %02X %02X ymc %d k %d turn %d%d",
                  record.PrintSides, record.ColorSides, record.ResinOptions, record.ResinOptions2,
                  record.BlackByYmcK, record.KOnlyOnBack, record.RotateSides, record.FlipSides);
    return text;
}

void OptionsPageTest::MarkPictures() const {
    UpdateWindow(page_);
    HDC context = GetDC(page_);
    for (const auto& picture : kPictures) {
        const RECT area = ControlArea(page_, picture.control);
        SetPixel(context, area.left + kMarked.x, area.top + kMarked.y, kMark);
    }
    ReleaseDC(page_, context);
}

std::string OptionsPageTest::Redrawn() const {
    UpdateWindow(page_);
    std::string redrawn;
    HDC context = GetDC(page_);
    for (const auto& picture : kPictures) {
        const RECT area = ControlArea(page_, picture.control);
        if (GetPixel(context, area.left + kMarked.x, area.top + kMarked.y) != kMark) {
            redrawn += (redrawn.empty() ? "" : " ") + std::string(picture.name);
        }
    }
    ReleaseDC(page_, context);
    return redrawn;
}

}  // namespace test
