// The dialog, whose template is put together here so that the library needs no resources.
#include "area_dialog.h"

#include "area_dialog_controls.h"
#include "tools/kpdtool/wide_text.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

constexpr int kStep = 10;  // of an arrow, in units of the layout

// ---- Template -----------------------------------------------------------------------------------

constexpr DWORD kButton = WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON;
constexpr DWORD kList = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST;
constexpr DWORD kLabel = WS_CHILD | WS_VISIBLE | SS_LEFT;

// Numbers that templates have for the classes.
enum ClassNumber : WORD { kButtonClass = 0x80, kStaticClass = 0x82, kComboBoxClass = 0x85 };

struct ItemRow {
    WORD Id;
    ClassNumber Class;
    DWORD Style;
    SHORT X, Y, Width, Height;  // in dialog units
    const WCHAR* Text;
};
constexpr ItemRow kItems[] = {
    {kAreaLabel, kStaticClass, kLabel, 7, 9, 50, 8, TEXT("Print &area:")},
    {kAreaList, kComboBoxClass, kList, 60, 7, 133, 120, TEXT("")},
    {kAreaPreview, kStaticClass, WS_CHILD | WS_VISIBLE | SS_OWNERDRAW, 7, 26, 120, 100, TEXT("")},
    {kBlockLabel, kStaticClass, kLabel, 133, 26, 60, 8, TEXT("&Block:")},
    {kBlockList, kComboBoxClass, kList, 133, 36, 60, 120, TEXT("")},
    {kMoveUp, kButtonClass, kButton, 148, 54, 30, 14, TEXT("&Up")},
    {kMoveLeft, kButtonClass, kButton, 133, 70, 30, 14, TEXT("&Left")},
    {kMoveRight, kButtonClass, kButton, 163, 70, 30, 14, TEXT("&Right")},
    {kMoveDown, kButtonClass, kButton, 148, 86, 30, 14, TEXT("&Down")},
    {kBlockPlace, kStaticClass, kLabel, 133, 106, 60, 20, TEXT("")},
    {IDOK, kButtonClass, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON, 89, 134, 50, 14,
     TEXT("OK")},
    {IDCANCEL, kButtonClass, kButton, 143, 134, 50, 14, TEXT("Cancel")},
};

class TemplateWriter {
  public:
    void Word(unsigned word) { words_.push_back(static_cast<WORD>(word)); }
    void Long(DWORD value) {
        Word(value & 0xFFFF);
        Word(value >> 16);
    }
    void Text(std::basic_string_view<WCHAR> text) {
        for (WCHAR c : text) {
            Word(c);
        }
        Word(0);
    }
    void Align() { words_.resize((words_.size() + 1) / 2 * 2); }
    void Place(int x, int y, int width, int height) {
        for (int number : {x, y, width, height}) {
            Word(static_cast<WORD>(number));
        }
    }
    const std::vector<WORD>& words() const { return words_; }

  private:
    std::vector<WORD> words_;
};

std::vector<WORD> BuildTemplate() {
    TemplateWriter writer;
    writer.Long(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT | DS_CENTER);
    writer.Long(0);
    writer.Word(std::size(kItems));
    writer.Place(0, 0, 200, 155);
    writer.Word(0);  // no menu
    writer.Word(0);  // the class of dialogs
    writer.Text(TEXT("Print Area Designer"));
    writer.Word(8);
    writer.Text(TEXT("MS Shell Dlg"));
    for (const ItemRow& item : kItems) {
        writer.Align();
        writer.Long(item.Style);
        writer.Long(0);
        writer.Place(item.X, item.Y, item.Width, item.Height);
        writer.Word(item.Id);
        writer.Word(0xFFFF);
        writer.Word(item.Class);
        writer.Text(item.Text);
        writer.Word(0);  // no creation data
    }
    return writer.words();
}

// ---- What it works on ---------------------------------------------------------------------------

struct Session {
    std::vector<PrintArea> areas;
    std::vector<bool> moved = std::vector<bool>(areas.size());
    size_t chosen;
    const WideString& folder;
    std::vector<WideString>& made;

    bool HasArea() const { return chosen < areas.size(); }
    PrintArea& Area() { return areas[chosen]; }
};

Session& SessionOf(HWND dialog) {
    return *reinterpret_cast<Session*>(GetWindowLongPtrW(dialog, DWLP_USER));
}

size_t Selection(HWND dialog, int list) {
    return static_cast<size_t>(SendDlgItemMessageW(dialog, list, CB_GETCURSEL, 0, 0));
}

// None when the area has none.
AreaBlock* ChosenBlock(HWND dialog) {
    Session& session = SessionOf(dialog);
    const size_t block = Selection(dialog, kBlockList);
    return session.HasArea() && block < session.Area().Blocks.size() ? &session.Area().Blocks[block]
                                                                     : nullptr;
}

// ---- What it shows ------------------------------------------------------------------------------

void AddLine(HWND dialog, int list, const WideString& text) {
    SendDlgItemMessageW(dialog, list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void ShowPlace(HWND dialog) {
    const AreaBlock* block = ChosenBlock(dialog);
    std::string text;
    if (block != nullptr) {
        text = "at " + std::to_string(block->X) + ", " + std::to_string(block->Y) + "\n" +
               std::to_string(block->Width) + " by " + std::to_string(block->Height);
    }
    SetDlgItemTextW(dialog, kBlockPlace, kpdtool::FromUtf8(text).c_str());
    for (int button : {kMoveLeft, kMoveRight, kMoveUp, kMoveDown}) {
        EnableWindow(GetDlgItem(dialog, button), block != nullptr);
    }
    InvalidateRect(GetDlgItem(dialog, kAreaPreview), nullptr, TRUE);
}

void ShowBlocks(HWND dialog) {
    Session& session = SessionOf(dialog);
    const size_t count = session.HasArea() ? session.Area().Blocks.size() : 0;
    SendDlgItemMessageW(dialog, kBlockList, CB_RESETCONTENT, 0, 0);
    for (size_t i = 1; i <= count; ++i) {
        AddLine(dialog, kBlockList, kpdtool::FromUtf8(std::to_string(i)));
    }
    SendDlgItemMessageW(dialog, kBlockList, CB_SETCURSEL, 0, 0);
    ShowPlace(dialog);
}

void Open(HWND dialog) {
    Session& session = SessionOf(dialog);
    for (const PrintArea& area : session.areas) {
        AddLine(dialog, kAreaList, area.Name);
    }
    SendDlgItemMessageW(dialog, kAreaList, CB_SETCURSEL, session.chosen, 0);
    EnableWindow(GetDlgItem(dialog, IDOK), session.HasArea());
    ShowBlocks(dialog);
}

void Fill(HDC context, const RECT& rect, COLORREF color) {
    HBRUSH brush = CreateSolidBrush(color);
    FillRect(context, &rect, brush);
    DeleteObject(brush);
}

// The card as large as it fits, with the blocks of its layout and a frame around the chosen one.
void PaintPreview(HWND dialog, const DRAWITEMSTRUCT& item) {
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_BTNFACE));
    Session& session = SessionOf(dialog);
    if (!session.HasArea()) {
        return;
    }
    const PrintArea& area = session.Area();
    const double scale = std::min((item.rcItem.right - item.rcItem.left) / double(area.Width),
                                  (item.rcItem.bottom - item.rcItem.top) / double(area.Height));
    const auto place = [&](double x, double y, double width, double height) {
        const double bottom = item.rcItem.top + (area.Height - y) * scale;
        const double left = item.rcItem.left + x * scale;
        return RECT{static_cast<LONG>(left), static_cast<LONG>(bottom - height * scale),
                    static_cast<LONG>(left + width * scale), static_cast<LONG>(bottom)};
    };
    Fill(item.hDC, place(0, 0, area.Width, area.Height), area.CardColor);
    for (const AreaBlock& block : area.Blocks) {
        const RECT rect = place(block.X, block.Y, block.Width, block.Height);
        Fill(item.hDC, rect, block.Kind == kWhiteBlock ? RGB(255, 255, 255) : area.AreaColor);
        if (&block == ChosenBlock(dialog)) {
            FrameRect(item.hDC, &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
        }
    }
}

// ---- What somebody does -------------------------------------------------------------------------

// Within the layout, or where it is when it does not fit there.
WORD Moved(WORD at, int by, WORD size, DWORD room) {
    const long long last = std::min<long long>(0xFFFF, static_cast<long long>(room) - size);
    return last < 0 ? at : static_cast<WORD>(std::clamp<long long>(at + by, 0, last));
}

void Move(HWND dialog, int dx, int dy) {
    Session& session = SessionOf(dialog);
    if (AreaBlock* block = ChosenBlock(dialog)) {
        block->X = Moved(block->X, dx, block->Width, session.Area().Width);
        block->Y = Moved(block->Y, dy, block->Height, session.Area().Height);
        session.moved[session.chosen] = true;
        ShowPlace(dialog);
    }
}

void Accept(HWND dialog) {
    Session& session = SessionOf(dialog);
    for (size_t i = 0; i < session.areas.size(); ++i) {
        if (session.moved[i] && !SaveArea(session.areas[i], session.folder, session.made)) {
            MessageBoxW(dialog, TEXT("The print area cannot be saved."),
                        TEXT("Print Area Designer"), MB_OK | MB_ICONERROR);
            return;
        }
    }
    EndDialog(dialog, IDOK);
}

void Command(HWND dialog, WORD control, WORD code) {
    switch (control) {
        case kAreaList:
            if (code == CBN_SELCHANGE) {
                SessionOf(dialog).chosen = Selection(dialog, kAreaList);
                ShowBlocks(dialog);
            }
            break;
        case kBlockList:
            if (code == CBN_SELCHANGE) {
                ShowPlace(dialog);
            }
            break;
        case kMoveLeft:
            Move(dialog, -kStep, 0);
            break;
        case kMoveRight:
            Move(dialog, kStep, 0);
            break;
        case kMoveUp:
            Move(dialog, 0, kStep);
            break;
        case kMoveDown:
            Move(dialog, 0, -kStep);
            break;
        case IDOK:
            Accept(dialog);
            break;
        case IDCANCEL:
            EndDialog(dialog, IDCANCEL);
            break;
    }
}

INT_PTR CALLBACK DialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            SetWindowLongPtrW(dialog, DWLP_USER, lParam);
            Open(dialog);
            return TRUE;
        case WM_COMMAND:
            Command(dialog, LOWORD(wParam), HIWORD(wParam));
            return TRUE;
        case WM_DRAWITEM:
            PaintPreview(dialog, *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            return TRUE;
    }
    return FALSE;
}

}  // namespace

bool RunAreaDialog(std::vector<PrintArea>& areas, size_t& chosen, const WideString& folder,
                   std::vector<WideString>& made) {
    const std::vector<WORD> layout = BuildTemplate();
    Session session = {.areas = areas, .chosen = chosen, .folder = folder, .made = made};
    const INT_PTR ended = DialogBoxIndirectParamW(
        GetModuleHandleW(nullptr), reinterpret_cast<LPCDLGTEMPLATEW>(layout.data()),
        GetActiveWindow(), DialogProcedure, reinterpret_cast<LPARAM>(&session));
    if (ended != IDOK) {
        return false;
    }
    areas = std::move(session.areas);
    chosen = session.chosen;
    return true;
}
