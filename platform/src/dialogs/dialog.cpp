// The dialog manager: dialogs made from templates, modal ones with their loop, and the default
// procedure of dialogs.
#include "controls/controls.h"
#include "dialogs/navigation.h"
#include "dialogs/template.h"

#include <algorithm>
#include <utility>

namespace {

using host::DialogTemplate;
using host::TemplateItem;

// ---- What the manager keeps with a dialog -----------------------------------------------------

struct DialogState {
    HFONT font = nullptr;     // owned
    SIZE units = {};          // pixels of four horizontal and eight vertical dialog units
    HWND focus = nullptr;     // had the focus when the dialog became inactive or hidden
    HWND disabled = nullptr;  // the owner, when it was disabled for a modal dialog
    UINT defaultId = IDOK;
    bool ended = false;
    INT_PTR result = 0;
};

// A property, since a template may name a window class of the program's with no more extra bytes
// than a dialog's own.
constexpr const WCHAR* kStateProperty = TEXT("DialogState");

DialogState* StateOf(HWND dialog) {
    return static_cast<DialogState*>(GetPropW(dialog, kStateProperty));
}

DLGPROC ProcedureOf(HWND dialog) {
    return reinterpret_cast<DLGPROC>(GetWindowLongPtrW(dialog, DWLP_DLGPROC));
}

// ---- Dialog units -----------------------------------------------------------------------------

// The average width of the letters and the height of a font.
SIZE UnitsOf(HFONT font) {
    constexpr const WCHAR* kLetters = TEXT("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    HDC context = GetDC(nullptr);
    HGDIOBJ before = SelectObject(context, font);
    SIZE extent = {};
    TEXTMETRICW metrics = {};
    GetTextExtentPoint32W(context, kLetters, 52, &extent);
    GetTextMetricsW(context, &metrics);
    SelectObject(context, before);
    ReleaseDC(nullptr, context);
    return {(extent.cx / 26 + 1) / 2, metrics.tmHeight};
}

SIZE SystemUnits() {
    return UnitsOf(static_cast<HFONT>(GetStockObject(SYSTEM_FONT)));
}

RECT ToPixels(const RECT& place, const SIZE& units) {
    return {MulDiv(place.left, units.cx, 4), MulDiv(place.top, units.cy, 8),
            MulDiv(place.right, units.cx, 4), MulDiv(place.bottom, units.cy, 8)};
}

HFONT MakeFont(const DialogTemplate& layout) {
    constexpr int kPointsPerInch = 72;
    LOGFONTW font = {};
    HDC context = GetDC(nullptr);
    font.lfHeight = -MulDiv(layout.pointSize, GetDeviceCaps(context, LOGPIXELSY), kPointsPerInch);
    ReleaseDC(nullptr, context);
    font.lfWeight = layout.weight;
    font.lfItalic = layout.italic;
    font.lfCharSet = DEFAULT_CHARSET;
    layout.face.copy(font.lfFaceName, LF_FACESIZE - 1);
    return CreateFontIndirectW(&font);
}

// ---- Making a dialog --------------------------------------------------------------------------

// A dialog that would stick out of the screen is moved in.
POINT OnScreen(POINT at, SIZE size) {
    return {std::max(LONG{0}, std::min(at.x, GetSystemMetrics(SM_CXSCREEN) - size.cx)),
            std::max(LONG{0}, std::min(at.y, GetSystemMetrics(SM_CYSCREEN) - size.cy))};
}

// The template gives the place of the client area, in that of the owner.
RECT PlaceDialog(const DialogTemplate& layout, const SIZE& units, DWORD style, DWORD extendedStyle,
                 HWND owner) {
    const RECT place = ToPixels(layout.place, units);
    RECT rect = {0, 0, place.right, place.bottom};
    AdjustWindowRectEx(&rect, style, FALSE, extendedStyle);
    const SIZE size = {rect.right - rect.left, rect.bottom - rect.top};
    POINT at = {place.left + rect.left, place.top + rect.top};
    if ((style & WS_CHILD) == 0) {
        if ((style & DS_CENTER) != 0) {
            at = {(GetSystemMetrics(SM_CXSCREEN) - size.cx) / 2,
                  (GetSystemMetrics(SM_CYSCREEN) - size.cy) / 2};
        } else if (owner != nullptr && (style & DS_ABSALIGN) == 0) {
            ClientToScreen(owner, &at);
        }
        at = OnScreen(at, size);
    }
    return {at.x, at.y, at.x + size.cx, at.y + size.cy};
}

// In a dialog a control with a border has a sunken edge instead.
HWND MakeControl(HWND dialog, HINSTANCE module, const TemplateItem& item) {
    const DialogState& state = *StateOf(dialog);
    const RECT place = ToPixels(item.place, state.units);
    DWORD style = item.style | WS_CHILD;
    DWORD extendedStyle = item.extendedStyle | WS_EX_NOPARENTNOTIFY;
    if ((style & WS_BORDER) != 0) {
        style &= ~DWORD{WS_BORDER};
        extendedStyle |= WS_EX_CLIENTEDGE;
    }
    HWND control =
        CreateWindowExW(extendedStyle, item.className.Get(), item.title.Get(), style, place.left,
                        place.top, place.right, place.bottom, dialog,
                        reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(item.id)), module, nullptr);
    if (control != nullptr && state.font != nullptr) {
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(state.font), FALSE);
    }
    return control;
}

bool MakeControls(HWND dialog, HINSTANCE module, const DialogTemplate& layout) {
    HWND defaultButton = nullptr;
    for (const TemplateItem& item : layout.items) {
        HWND control = MakeControl(dialog, module, item);
        if (control == nullptr && (layout.style & DS_NOFAILCREATE) == 0) {
            return false;
        }
        if (control != nullptr &&
            (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0) {
            if (defaultButton != nullptr) {
                SendMessageW(defaultButton, BM_SETSTYLE, BS_PUSHBUTTON, FALSE);
            }
            defaultButton = control;
            StateOf(dialog)->defaultId = item.id;
        }
    }
    return true;
}

// Only the window, which is hidden.
HWND MakeFrame(HINSTANCE module, const DialogTemplate& layout, HWND owner, DLGPROC procedure) {
    DWORD style = layout.style | DS_3DLOOK;
    DWORD extendedStyle = layout.extendedStyle;
    if ((style & WS_CHILD) == 0 || (style & DS_CONTROL) != 0) {
        extendedStyle |= WS_EX_CONTROLPARENT;
    }
    if ((style & DS_MODALFRAME) != 0) {
        extendedStyle |= WS_EX_DLGMODALFRAME;
    }
    if ((style & DS_CONTROL) != 0) {
        style &= ~DWORD{WS_CAPTION | WS_SYSMENU};
    }
    auto state = std::make_unique<DialogState>();
    state->font = layout.hasFont ? MakeFont(layout) : nullptr;
    state->units = state->font != nullptr ? UnitsOf(state->font) : SystemUnits();
    const RECT rect = PlaceDialog(layout, state->units, style, extendedStyle, owner);
    const bool hasClass = layout.className.IsNumber() || !layout.className.text.empty();
    HWND dialog = CreateWindowExW(extendedStyle, hasClass ? layout.className.Get() : TEXT("#32770"),
                                  layout.title.c_str(), style & ~DWORD{WS_VISIBLE}, rect.left,
                                  rect.top, rect.right - rect.left, rect.bottom - rect.top, owner,
                                  nullptr, module, nullptr);
    if (dialog == nullptr) {
        DeleteObject(state->font);
        return nullptr;
    }
    SetPropW(dialog, kStateProperty, state.release());
    SetWindowLongPtrW(dialog, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(procedure));
    return dialog;
}

HWND FirstControl(HWND dialog) {
    HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
    return first != nullptr ? first : GetNextDlgGroupItem(dialog, nullptr, FALSE);
}

// A page of a sheet, which is made hidden, leaves the focus where it is.
void Initialize(HWND dialog, const DialogTemplate& layout, LPARAM parameter) {
    HWND first = FirstControl(dialog);
    const bool takesFocus =
        SendMessageW(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), parameter) != 0;
    const bool isPage = (layout.style & (DS_CONTROL | WS_VISIBLE)) == DS_CONTROL;
    if (takesFocus && IsWindow(dialog) && !isPage && !StateOf(dialog)->ended) {
        first = FirstControl(dialog);  // the procedure may have changed it
        host::FocusControl(dialog, first);
        if (first == nullptr && (layout.style & WS_CHILD) == 0) {
            SetFocus(dialog);
        }
    }
}

// The owner is disabled for a modal dialog before that hears of anything.
void DisableOwner(HWND dialog) {
    HWND owner = GetWindow(dialog, GW_OWNER);
    if (owner != nullptr && IsWindowEnabled(owner)) {
        StateOf(dialog)->disabled = owner;
        EnableWindow(owner, FALSE);
    }
}

void EnableOwner(HWND dialog) {
    if (HWND owner = std::exchange(StateOf(dialog)->disabled, nullptr); owner != nullptr) {
        EnableWindow(owner, TRUE);
    }
}

HWND MakeDialog(HINSTANCE module, const void* bytes, HWND owner, DLGPROC procedure,
                LPARAM parameter, bool modal) {
    if (bytes == nullptr) {
        return nullptr;
    }
    const DialogTemplate layout = host::ReadTemplate(bytes);
    HWND dialog = MakeFrame(module, layout, owner, procedure);
    if (dialog == nullptr) {
        return nullptr;
    }
    if (modal) {
        DisableOwner(dialog);
    }
    if (StateOf(dialog)->font != nullptr) {
        SendMessageW(dialog, WM_SETFONT, reinterpret_cast<WPARAM>(StateOf(dialog)->font), FALSE);
    }
    if (!MakeControls(dialog, module, layout)) {
        EnableOwner(dialog);
        DestroyWindow(dialog);
        return nullptr;
    }
    Initialize(dialog, layout, parameter);
    const bool show = modal || (layout.style & WS_VISIBLE) != 0;
    if (IsWindow(dialog) && show && !StateOf(dialog)->ended) {
        ShowWindow(dialog, SW_SHOWNORMAL);
    }
    return IsWindow(dialog) ? dialog : nullptr;
}

const void* FindTemplate(LPCWSTR name) {
    HRSRC resource = FindResourceW(nullptr, name, RT_DIALOG);
    return resource == nullptr ? nullptr : LockResource(LoadResource(nullptr, resource));
}

// ---- The default procedure --------------------------------------------------------------------

// What the dialog procedure gives is the answer itself for these; for others it only says whether
// the message was handled.
bool AnswersItself(UINT message) {
    return (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC) ||
           message == WM_INITDIALOG || message == WM_COMPAREITEM || message == WM_VKEYTOITEM ||
           message == WM_CHARTOITEM || message == WM_QUERYDRAGICON;
}

void KeepFocus(HWND dialog) {
    HWND focus = GetFocus();
    if (focus != nullptr && IsChild(dialog, focus)) {
        StateOf(dialog)->focus = focus;
    }
}

// What was kept is good for one time.
void RestoreFocus(HWND dialog) {
    HWND kept = std::exchange(StateOf(dialog)->focus, nullptr);
    if (kept != nullptr && IsWindow(kept) && IsWindowEnabled(kept) && IsWindowVisible(kept)) {
        SetFocus(kept);
        return;
    }
    HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
    if (first != nullptr) {
        SetFocus(first);
    }
}

void MoveToControl(HWND dialog, WPARAM wParam, bool isHandle) {
    host::FocusControl(dialog, isHandle ? reinterpret_cast<HWND>(wParam)
                                        : GetNextDlgTabItem(dialog, GetFocus(), wParam != 0));
}

void Release(HWND dialog) {
    const std::unique_ptr<DialogState> state(StateOf(dialog));
    RemovePropW(dialog, kStateProperty);
    DeleteObject(state->font);
}

LRESULT DefaultAnswer(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    DialogState& state = *StateOf(dialog);
    switch (message) {
        case WM_ERASEBKGND: {
            RECT area;
            GetClientRect(dialog, &area);
            const auto brush = reinterpret_cast<HBRUSH>(
                SendMessageW(dialog, WM_CTLCOLORDLG, wParam, reinterpret_cast<LPARAM>(dialog)));
            FillRect(reinterpret_cast<HDC>(wParam), &area, brush);
            return 1;
        }
        case WM_SHOWWINDOW:
            if (wParam == 0) {
                KeepFocus(dialog);
            }
            break;
        case WM_ACTIVATE:
            if (LOWORD(wParam) != WA_INACTIVE) {
                RestoreFocus(dialog);
            } else {
                KeepFocus(dialog);
            }
            return 0;
        case WM_SETFOCUS:
            RestoreFocus(dialog);
            return 0;
        case DM_SETDEFID:
            state.defaultId = static_cast<UINT>(wParam);
            host::EmphasizeDefault(dialog, nullptr);
            return TRUE;
        case DM_GETDEFID:
            return state.ended ? 0 : MAKELRESULT(state.defaultId, DC_HASDEFID);
        case WM_NEXTDLGCTL:
            MoveToControl(dialog, wParam, LOWORD(lParam) != 0);
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(state.font);
        case WM_SETFONT:
            return 0;
        case WM_CLOSE:
            if (HWND cancel = GetDlgItem(dialog, IDCANCEL);
                cancel != nullptr && !IsWindowEnabled(cancel)) {
                MessageBeep(0);
            } else {
                PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED),
                             reinterpret_cast<LPARAM>(cancel));
            }
            return 0;
        case WM_NCDESTROY:
            Release(dialog);
            break;
    }
    return DefWindowProcW(dialog, message, wParam, lParam);
}

// ---- Modal dialogs ----------------------------------------------------------------------------

// Till the dialog is ended, or destroyed under way.
INT_PTR RunModal(HWND dialog) {
    const HWND disabled = StateOf(dialog)->disabled;
    while (IsWindow(dialog) && !StateOf(dialog)->ended) {
        MSG message;
        if (!GetMessageW(&message, nullptr, 0, 0)) {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (!IsDialogMessageW(dialog, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    if (!IsWindow(dialog)) {
        EnableWindow(disabled, TRUE);
        return 0;
    }
    EnableOwner(dialog);  // before the dialog goes, so that it becomes active again
    const INT_PTR result = StateOf(dialog)->result;
    DestroyWindow(dialog);
    return result;
}

}  // namespace

namespace host {

void RegisterDialogClass() {
    WNDCLASSEXW record = {};
    record.cbSize = sizeof(record);
    record.style = CS_DBLCLKS | CS_SAVEBITS;
    record.lpfnWndProc = DefDlgProcW;
    record.cbWndExtra = DLGWINDOWEXTRA;
    record.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    record.lpszClassName = TEXT("#32770");
    RegisterClassExW(&record);
}

}  // namespace host

LRESULT WINAPI DefDlgProcW(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (StateOf(dialog) == nullptr) {  // while it is being made and after its end
        return DefWindowProcW(dialog, message, wParam, lParam);
    }
    SetWindowLongPtrW(dialog, DWLP_MSGRESULT, 0);
    const DLGPROC procedure = ProcedureOf(dialog);
    const INT_PTR answer = procedure == nullptr ? 0 : procedure(dialog, message, wParam, lParam);
    if (!IsWindow(dialog) || StateOf(dialog) == nullptr) {
        return answer;
    }
    if (AnswersItself(message) && (answer != 0 || message == WM_INITDIALOG)) {
        return answer;
    }
    if (answer == 0 || message == WM_NCDESTROY) {
        return DefaultAnswer(dialog, message, wParam, lParam);
    }
    return GetWindowLongPtrW(dialog, DWLP_MSGRESULT);
}

HWND WINAPI CreateDialogParamW(HINSTANCE module, LPCWSTR name, HWND owner, DLGPROC procedure,
                               LPARAM parameter) {
    return MakeDialog(module, FindTemplate(name), owner, procedure, parameter, false);
}

HWND WINAPI CreateDialogIndirectParamW(HINSTANCE module, LPCDLGTEMPLATEW layout, HWND owner,
                                       DLGPROC procedure, LPARAM parameter) {
    return MakeDialog(module, layout, owner, procedure, parameter, false);
}

INT_PTR WINAPI DialogBoxParamW(HINSTANCE module, LPCWSTR name, HWND owner, DLGPROC procedure,
                               LPARAM parameter) {
    const void* layout = FindTemplate(name);
    return layout == nullptr ? -1
                             : DialogBoxIndirectParamW(module, static_cast<LPCDLGTEMPLATEW>(layout),
                                                       owner, procedure, parameter);
}

INT_PTR WINAPI DialogBoxIndirectParamW(HINSTANCE module, LPCDLGTEMPLATEW layout, HWND owner,
                                       DLGPROC procedure, LPARAM parameter) {
    if (owner != nullptr && !IsWindow(owner)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return 0;
    }
    HWND dialog = MakeDialog(module, layout, owner, procedure, parameter, true);
    return dialog == nullptr ? -1 : RunModal(dialog);
}

BOOL WINAPI EndDialog(HWND dialog, INT_PTR result) {
    DialogState* state = IsWindow(dialog) ? StateOf(dialog) : nullptr;
    if (state == nullptr) {
        return FALSE;
    }
    state->ended = true;
    state->result = result;
    EnableOwner(dialog);
    ShowWindow(dialog, SW_HIDE);
    return TRUE;
}

BOOL WINAPI MapDialogRect(HWND dialog, LPRECT rect) {
    const DialogState* state = IsWindow(dialog) ? StateOf(dialog) : nullptr;
    if (state == nullptr) {
        return FALSE;
    }
    *rect = ToPixels(*rect, state->units);
    return TRUE;
}
