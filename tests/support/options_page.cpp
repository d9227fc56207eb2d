// One implementation for both platforms.
#include "options_page.h"

#include "resources/resource.h"
#include "ui/common/controls.h"
#include "ui/common/language.h"
#include "ui/common/module.h"
#include "ui/pages/device_options/device_options_page.h"

#include <prsht.h>

namespace test {
namespace {

constexpr COLORREF kMark = RGB(255, 0, 128);
constexpr POINT kMarked = {1, 1};  // of a picture

constexpr struct {
    int control;
    const char* name;
} kPictures[] = {
    {IDC_FRONT_PREVIEW, "front"}, {IDC_BACK_PREVIEW, "back"}, {IDC_PAGE_ORDER, "order"}};

WNDPROC parentProcedure;
int changes;

LRESULT CALLBACK CountChanges(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    changes += message == PSM_CHANGED;
    return CallWindowProcW(parentProcedure, window, message, wParam, lParam);
}

std::string ListText(HWND list) {
    const WPARAM selected = static_cast<WPARAM>(SendMessageW(list, CB_GETCURSEL, 0, 0));
    WCHAR text[kTextLength] = {};
    SendMessageW(list, CB_GETLBTEXT, selected, reinterpret_cast<LPARAM>(text));
    return Narrow(text) + " of " + std::to_string(SendMessageW(list, CB_GETCOUNT, 0, 0));
}

}  // namespace

void OptionsPageTest::SetUp() {
    WindowTest::SetUp();
    ModuleHandle = GetModuleHandleW(nullptr);
    InitLanguageFile();
    BuildDefaultDevMode(&context_.WorkingDevMode, nullptr, nullptr);
    SetModel({});
    changes = 0;
    parentProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(parent_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountChanges)));
    SetWindowPos(parent_, nullptr, 20, 20, 480, 400, SWP_NOZORDER);
    HandlePosted();
}

void OptionsPageTest::TearDown() {
    if (page_ != nullptr) {
        DestroyWindow(page_);
    }
    WindowTest::TearDown();
}

void OptionsPageTest::SetModel(const ModelFlags& flags) {
    context_.IsDuplexModel = flags.duplex;
    context_.IsKP41Family = flags.kp41;
    context_.IsKP43Family = flags.kp43;
    context_.IsKP49 = flags.kp49;
}

void OptionsPageTest::Open() {
    if (page_ != nullptr) {
        DestroyWindow(page_);
    }
    PROPSHEETPAGEW record = {};
    record.lParam = reinterpret_cast<LPARAM>(&context_);
    page_ = CreateDialogParamW(ModuleHandle, MAKEINTRESOURCEW(IDD_DEVICE_OPTIONS), parent_,
                               DeviceOptionsPageProc, reinterpret_cast<LPARAM>(&record));
    ASSERT_NE(page_, nullptr);
    SetWindowPos(page_, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EnableWindow(page_, TRUE);
    ShowWindow(page_, SW_SHOW);
    HandlePosted();
}

void OptionsPageTest::Choose(int list, int index) {
    SelectItem(page_, list, index);
    SendMessageW(page_, WM_COMMAND, MAKEWPARAM(list, CBN_SELENDOK),
                 reinterpret_cast<LPARAM>(GetDlgItem(page_, list)));
}

void OptionsPageTest::Click(int control) {
    SendDlgItemMessageW(page_, control, BM_CLICK, 0, 0);
}

bool OptionsPageTest::IsShown(int control) const {
    return (GetWindowLongW(GetDlgItem(page_, control), GWL_STYLE) & WS_VISIBLE) != 0;
}

std::string OptionsPageTest::Looks(int control) const {
    HWND window = GetDlgItem(page_, control);
    if (!IsShown(control)) {
        return "-";
    }
    WCHAR name[16] = {};
    GetClassNameW(window, name, 16);
    const bool isList = WideString(name) == TEXT("ComboBox");
    const bool isButton = WideString(name) == TEXT("Button");
    const std::string looks = isList ? ListText(window)
                              : isButton
                                  ? (IsDlgButtonChecked(page_, control) == BST_CHECKED ? "x" : ".")
                                  : TextOf(window);
    return (IsWindowEnabled(window) ? "" : "~") + looks;
}

std::string OptionsPageTest::Looks(const SideControls& side) const {
    return Looks(side.Image) + " " + Looks(side.Rotate) + " " + Looks(side.Flip) + " " +
           Looks(side.Color) + " " + Looks(side.Resin);
}

std::string OptionsPageTest::LooksOfAll() const {
    std::string looks;
    for (HWND control = GetWindow(page_, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(control);
        looks += std::to_string(id) + ": " + Looks(id) + "\n";
    }
    return looks;
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

int OptionsPageTest::TakeChanges() {
    return std::exchange(changes, 0);
}

}  // namespace test
