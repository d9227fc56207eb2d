// The class "Static": texts, icons, bitmaps, and what the parent draws.
#include "controls/common_control.h"

#include <algorithm>

namespace host {
namespace {

using common::Control;

constexpr DWORD kKnownStyles = SS_TYPEMASK | SS_NOPREFIX | SS_NOTIFY;

class Static : public Control {
  public:
    explicit Static(HWND window) : Control(window) {}
    ~Static() override {
        if (image_ != nullptr && Kind() == SS_BITMAP) {
            DeleteObject(image_);  // icons are the system's
        }
    }

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

  protected:
    void Paint(HDC context) override;

  private:
    DWORD Kind() const { return Style() & SS_TYPEMASK; }
    bool ShowsText() const { return Kind() <= SS_RIGHT; }
    bool ShowsImage() const { return Kind() == SS_ICON || Kind() == SS_BITMAP; }
    void CheckKind() const;
    void Load(const CREATESTRUCTW& creation);
    void ShowImage(HANDLE image);
    SIZE ImageSize() const;
    void Tell(UINT code) const;
    void PaintText(HDC context, const RECT& area) const;
    void PaintImage(HDC context) const;
    void PaintByOwner(HDC context, const RECT& area) const;

    HANDLE image_ = nullptr;  // that the template names
};

void Static::CheckKind() const {
    common::CheckStyle("Static", Style() & 0xFFFF, kKnownStyles);
    if (!ShowsText() && !ShowsImage() && Kind() != SS_OWNERDRAW) {
        Unsupported("Static of kind %u", Kind());
    }
}

// The template names the picture in the place of a text, by number or by name.
void Static::Load(const CREATESTRUCTW& creation) {
    if (!ShowsImage() || creation.lpszName == nullptr ||
        (!IS_INTRESOURCE(creation.lpszName) && creation.lpszName[0] == 0)) {
        return;
    }
    ShowImage(Kind() == SS_ICON
                  ? static_cast<HANDLE>(LoadIconW(creation.hInstance, creation.lpszName))
                  : static_cast<HANDLE>(LoadBitmapW(creation.hInstance, creation.lpszName)));
}

SIZE Static::ImageSize() const {
    if (Kind() == SS_ICON) {
        return {GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON)};
    }
    BITMAP bitmap = {};
    GetObjectW(image_, sizeof(bitmap), &bitmap);
    return {bitmap.bmWidth, bitmap.bmHeight};
}

// The control takes the size of the picture.
void Static::ShowImage(HANDLE image) {
    image_ = image;
    if (image != nullptr) {
        const SIZE size = ImageSize();
        SetWindowPos(window_, nullptr, 0, 0, size.cx, size.cy,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void Static::Tell(UINT code) const {
    if ((Style() & SS_NOTIFY) != 0) {
        NotifyCommand(code);
    }
}

void Static::PaintText(HDC context, const RECT& area) const {
    constexpr UINT kAcross[] = {DT_LEFT, DT_CENTER, DT_RIGHT};
    WCHAR text[4096] = {};
    const int length = GetWindowTextW(window_, text, 4096);
    const UINT format = kAcross[Kind()] | DT_WORDBREAK | DT_EXPANDTABS |
                        ((Style() & SS_NOPREFIX) != 0 ? DT_NOPREFIX : 0u);
    if (!IsWindowEnabled(window_)) {
        SetTextColor(context, GetSysColor(COLOR_GRAYTEXT));
    }
    RECT place = area;
    DrawTextW(context, text, length, &place, format);
}

void Static::PaintImage(HDC context) const {
    if (image_ == nullptr) {
        return;
    }
    const SIZE size = ImageSize();
    if (Kind() == SS_ICON) {
        DrawIcon(context, 0, 0, static_cast<HICON>(image_));
        return;
    }
    HDC source = CreateCompatibleDC(context);
    HGDIOBJ before = SelectObject(source, image_);
    BitBlt(context, 0, 0, size.cx, size.cy, source, 0, 0, SRCCOPY);
    SelectObject(source, before);
    DeleteDC(source);
}

void Static::PaintByOwner(HDC context, const RECT& area) const {
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_STATIC;
    item.CtlID = static_cast<UINT>(GetDlgCtrlID(window_));
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = IsWindowEnabled(window_) ? 0 : ODS_DISABLED;
    item.hwndItem = window_;
    item.hDC = context;
    item.rcItem = area;
    Background(context, WM_CTLCOLORSTATIC);
    SendMessageW(GetParent(window_), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
}

void Static::Paint(HDC context) {
    RECT area = Client();
    if (Kind() == SS_OWNERDRAW) {
        PaintByOwner(context, area);
        return;
    }
    SetBkMode(context, OPAQUE);  // the parent may change that along with the colours
    HBRUSH background = Background(context, WM_CTLCOLORSTATIC);
    FillRect(context, &area, background);
    if (ShowsImage()) {
        PaintImage(context);
    } else {
        PaintText(context, area);
    }
}

LRESULT Static::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCCREATE:
            CheckKind();
            break;
        case WM_CREATE:
            Load(*reinterpret_cast<const CREATESTRUCTW*>(lParam));
            return 0;
        case WM_SETTEXT: {
            const LRESULT result = DefWindowProcW(window_, message, wParam, lParam);
            if (ShowsText() || Kind() == SS_OWNERDRAW) {
                Redraw();
                UpdateWindow(window_);  // shown at once, as a progress text needs it
            }
            return result;
        }
        case WM_ENABLE:
            Tell(wParam != 0 ? STN_ENABLE : STN_DISABLE);
            Redraw();
            return 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            return 0;
        case WM_GETDLGCODE:
            return DLGC_STATIC;
        case WM_NCHITTEST:
            return (Style() & SS_NOTIFY) != 0 ? HTCLIENT : HTTRANSPARENT;
        case WM_LBUTTONDOWN:
            Tell(STN_CLICKED);
            return 0;
        case WM_LBUTTONDBLCLK:
            Tell(STN_DBLCLK);
            return 0;
        case STM_GETICON:
            return Kind() == SS_ICON ? reinterpret_cast<LRESULT>(image_) : 0;
        case STM_GETIMAGE:
            return Kind() == (wParam == IMAGE_BITMAP ? SS_BITMAP : SS_ICON)
                       ? reinterpret_cast<LRESULT>(image_)
                       : 0;
    }
    return Control::Handle(message, wParam, lParam);
}

}  // namespace

void RegisterStatic() {
    common::Register(TEXT("Static"), common::Procedure<Static>, CS_DBLCLKS | CS_PARENTDC);
}

}  // namespace host
