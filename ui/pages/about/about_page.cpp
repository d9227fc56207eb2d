// The About page: the versions of driver and firmware, the logo, and the picture that leads to the
// web site.
#include "ui/pages/about/about_page.h"

#include "companions/device_io.h"
#include "core/module.h"
#include "core/owners.h"
#include "resources/resource.h"
#include "ui/common/controls.h"
#include "ui/common/language.h"
#include "ui/pages/about/blended_picture.h"
#include "ui/pages/about/driver_version.h"

#include <shellapi.h>
#include <strsafe.h>
#include <winspool.h>

namespace {

constexpr const WCHAR* kWebSite = TEXT("https://www.example.com/");

HCURSOR linkCursor;  // the system's, the same for every page

// ---- Opening ----------------------------------------------------------------------------------

void ShowDriverVersion(HWND dialog, const DriverContext& context) {
    DriverVersion version;
    if (FindDriverVersion(context.IsRemotePrinter != 0, context.WorkingDevMode.Private.ModelCode,
                          version)) {
        SetDlgItemTextW(dialog, IDC_DATE, version.Date);
        SetDlgItemTextW(dialog, IDC_VERSION, version.Version);
    }
}

void ShowTitle(HWND dialog, const DriverContext& context) {
    WCHAR title[kTextLength];
    StringCchPrintfW(title, kTextLength, TEXT("%s Driver"), context.ModelName);
    SetDlgItemTextW(dialog, IDC_DRIVER_TITLE, title);
}

void ShowFirmware(HWND dialog, bool shown) {
    ShowControl(dialog, IDC_FIRMWARE_LABEL, shown);
    ShowControl(dialog, IDC_FIRMWARE, shown);
}

void OpenAbout(HWND dialog, DriverContext& context) {
    ShowDriverVersion(dialog, context);
    ShowTitle(dialog, context);
    linkCursor = LoadCursorW(ModuleHandle, MAKEINTRESOURCEW(IDCUR_LINK));
    const bool isAtHand = context.IsRemotePrinter == 0;
    ShowFirmware(dialog, isAtHand);
    if (isAtHand) {
        AskDevice(DeviceQuery::kFirmwareVersion, dialog, context.PrinterName);
        SetDlgItemTextW(dialog, IDC_FIRMWARE, TEXT(""));
    }
}

// ---- The firmware's version -------------------------------------------------------------------

// Terminates the text in a copy, since it may come without its end and be of any length.
void ShowFirmwareText(HWND dialog, WideView text) {
    const auto copy = GlobalBlock<WCHAR>::Allocate((text.size() + 1) * sizeof(WCHAR));
    if (copy) {
        copy.get()[text.copy(copy.get(), text.size())] = 0;
        SetDlgItemTextW(dialog, IDC_FIRMWARE, copy.get());
    }
}

void TakeFirmware(HWND dialog, DriverContext& context, const COPYDATASTRUCT& answer) {
    const std::optional<WideView> text = ReadFirmwareAnswer(answer);
    if (!text) {
        return;
    }
    ShowFirmwareText(dialog, *text);
    ShowFirmware(dialog, true);
    WCHAR name[] = TEXT("FwVersion");
    SetPrinterDataW(context.PrinterHandle, name, REG_SZ, static_cast<BYTE*>(answer.lpData),
                    answer.cbData);
}

// ---- The pictures -----------------------------------------------------------------------------

struct Frame {
    int Control;
    int Picture;
    int Mask;
};
constexpr Frame kFrames[] = {
    {IDC_LOGO, IDB_LOGO, IDB_LOGO_MASK},
    {IDC_LINK, IDB_LINK, IDB_LINK_MASK},
};

// Of the page as it is on the screen: the painting's own context sees only what is painted anew.
COLORREF BackgroundOf(HWND dialog) {
    HDC screen = GetDC(dialog);
    const COLORREF color = GetPixel(screen, 1, 1);
    ReleaseDC(dialog, screen);
    return color != CLR_INVALID ? color : GetSysColor(COLOR_BTNFACE);
}

void PaintAbout(HWND dialog, DriverContext&, HDC target, const RECT&) {
    PictureSet pictures;
    HBRUSH ground = CreateSolidBrush(BackgroundOf(dialog));
    for (const Frame& frame : kFrames) {
        DrawBlended(pictures, target, ControlArea(dialog, frame.Control), frame.Picture, frame.Mask,
                    ground);
    }
    if (ground != nullptr) {
        DeleteObject(ground);
    }
}

// ---- The link ---------------------------------------------------------------------------------

void FollowLink(HWND dialog, DriverContext&, UINT message, POINT at) {
    const RECT link = ControlArea(dialog, IDC_LINK);
    if (!PtInRect(&link, at)) {
        return;
    }
    if (message == WM_LBUTTONUP) {
        ShellExecuteW(nullptr, TEXT("open"), kWebSite, nullptr, nullptr, SW_SHOWNORMAL);
    } else if (linkCursor != nullptr) {
        SetCursor(linkCursor);
    }
}

}  // namespace

constinit const Page kAboutPage = {
    .Slot = kAboutSlot,
    .Section = kAboutSection,
    .ReportsAccepted = false,
    .Open = OpenAbout,
    .TakeAnswer = TakeFirmware,
    .Paint = PaintAbout,
    .Mouse = FollowLink,
};
