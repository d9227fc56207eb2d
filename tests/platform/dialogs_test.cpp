// Dialogs: how a template becomes windows, what the dialog procedure hears and answers, modal
// loops, and controls by their numbers.
#include "dialog_test.h"

namespace test {
namespace {

// ---- From the template to windows -------------------------------------------------------------

struct Placed {
    int id;
    const char* className;
    RECT units;  // left, top, width and height; -1 for a size that the control finds itself
    DWORD style;
    DWORD extendedStyle;
};

void ExpectControls(HWND dialog, const std::vector<Placed>& expected) {
    RECT unit = {4, 8, 0, 0};
    ASSERT_TRUE(MapDialogRect(dialog, &unit));
    HWND child = GetWindow(dialog, GW_CHILD);
    for (const Placed& placed : expected) {
        RECT rect;
        GetWindowRect(child, &rect);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
        WCHAR name[32] = {};
        GetClassNameW(child, name, 32);
        EXPECT_EQ(Id(child), std::to_string(placed.id));
        EXPECT_EQ(Narrow(name), placed.className);
        EXPECT_EQ(rect.left, MulDiv(placed.units.left, unit.left, 4)) << placed.id;
        EXPECT_EQ(rect.top, MulDiv(placed.units.top, unit.top, 8)) << placed.id;
        if (placed.units.right >= 0) {
            EXPECT_EQ(rect.right - rect.left, MulDiv(placed.units.right, unit.left, 4));
        }
        if (placed.units.bottom >= 0) {
            EXPECT_EQ(rect.bottom - rect.top, MulDiv(placed.units.bottom, unit.top, 8));
        }
        EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(child, GWL_STYLE)), placed.style) << placed.id;
        EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(child, GWL_EXSTYLE)), placed.extendedStyle)
            << placed.id;
        child = GetWindow(child, GW_HWNDNEXT);
    }
    EXPECT_EQ(child, nullptr);
}

TEST_F(DialogTest, ATemplateGivesAControlOfEachClassItsPlaceAndStyle) {
    dialog_ = Make(IDD_CLASSES);
    ASSERT_NE(dialog_, nullptr);
    EXPECT_EQ(TextOf(dialog_), "Classes");
    ExpectControls(dialog_, {
                                {1, "Static", {7, 7, 51, 9}, 0x50020000, 4},
                                {2, "Edit", {61, 5, 41, 14}, 0x50010080, 0x204},
                                {3, "Button", {103, 5, 43, 15}, 0x50010001, 4},
                                {4, "ComboBox", {7, 23, 61, -1}, 0x50010003, 4},
                                {5, "ListBox", {71, 23, 33, 43}, 0x50010101, 0x204},
                                {6, "ScrollBar", {107, 23, 45, 11}, 0x50000000, 4},
                                {7, "Button", {5, 69, 103, 35}, 0x50000007, 4},
                                {8, "Button", {9, 79, 41, 10}, 0x50010003, 4},
                                {9, "Button", {9, 91, 41, 10}, 0x50010009, 4},
                                {10, "msctls_trackbar32", {111, 71, 63, 17}, 0x50010000, 4},
                                {11, "Static", {155, 5, -1, -1}, 0x50000003, 4},
                                {12, "Static", {155, 31, -1, -1}, 0x5000000E, 4},
                                {13, "Static", {155, 41, -1, -1}, 0x5000000E, 4},
                                {14, "Edit", {155, 51, 21, 11}, 0x48000000, 0x20204},
                            });
}

TEST_F(DialogTest, TheFirstFormOfTemplatesIsInUnitsOfTheSystemFont) {
    dialog_ = Make(IDD_FIRST_FORM);
    ASSERT_NE(dialog_, nullptr);
    EXPECT_EQ(TextOf(dialog_), "First form");
    RECT unit = {4, 8, 0, 0};
    MapDialogRect(dialog_, &unit);
    EXPECT_EQ(unit.top, 16);
    ExpectControls(dialog_, {
                                {65535, "Static", {7, 7, 51, 9}, 0x50020000, 4},
                                {2, "Button", {7, 21, 43, 15}, 0x50010000, 4},
                            });
}

// Where the client area is, in dialog units from a point of the screen, and the window's styles.
std::string Frame(HWND dialog, POINT from) {
    RECT unit = {4, 8, 0, 0};
    MapDialogRect(dialog, &unit);
    POINT at = {0, 0};
    ClientToScreen(dialog, &at);
    RECT client;
    GetClientRect(dialog, &client);
    char line[128];
    std::snprintf(line, sizeof(line), "%d,%d %d,%d %08x %x", MulDiv(at.x - from.x, 4, unit.left),
                  MulDiv(at.y - from.y, 8, unit.top), MulDiv(client.right, 4, unit.left),
                  MulDiv(client.bottom, 8, unit.top),
                  static_cast<unsigned>(GetWindowLongW(dialog, GWL_STYLE)),
                  static_cast<unsigned>(GetWindowLongW(dialog, GWL_EXSTYLE)));
    return line;
}

TEST_F(DialogTest, ItsClientAreaIsPlacedInThatOfTheOwner) {
    dialog_ = Make(IDD_CLASSES);
    EXPECT_EQ(Frame(dialog_, {0, 0}), "10,20 211,125 84c800cc 10181");
    DestroyWindow(dialog_);
    dialog_ = Make(IDD_CLASSES, parent_);
    EXPECT_EQ(Frame(dialog_, {50, 50}), "10,20 211,125 84c800cc 10181");
    DestroyWindow(dialog_);
    dialog_ = Make(IDD_PAGE, parent_);
    EXPECT_EQ(Frame(dialog_, {50, 50}), "10,20 180,100 4000044c 10000");
    DestroyWindow(dialog_);
    // One whose caption would be above the screen is moved down.
    dialog_ = Make(IDD_FIRST_FORM);
    RECT rect;
    GetWindowRect(dialog_, &rect);
    EXPECT_EQ(rect.top, 0);
}

TEST_F(DialogTest, RectanglesAreMappedByTheFontOfTheDialog) {
    dialog_ = Make(IDD_OWNED);
    HDC context = GetDC(nullptr);
    HGDIOBJ before =
        SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(dialog_, WM_GETFONT, 0, 0)));
    SIZE extent;
    GetTextExtentPoint32W(context, TEXT("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"), 52,
                          &extent);
    SelectObject(context, before);
    ReleaseDC(nullptr, context);
    const int width = static_cast<int>((extent.cx / 26 + 1) / 2);
    RECT rect = {4, 8, 41, -3};
    EXPECT_TRUE(MapDialogRect(dialog_, &rect));
    EXPECT_EQ(std::vector<LONG>({rect.left, rect.top, rect.right, rect.bottom}),
              std::vector<LONG>({width, 13, MulDiv(41, width, 4), -5}));
    EXPECT_FALSE(MapDialogRect(parent_, &rect));
}

TEST_F(DialogTest, PicturesOfTemplatesAreNamedByNumberOrText) {
    dialog_ = Make(IDD_CLASSES);
    EXPECT_NE(SendDlgItemMessageW(dialog_, 11, STM_GETICON, 0, 0), 0);
    EXPECT_NE(SendDlgItemMessageW(dialog_, 12, STM_GETIMAGE, IMAGE_BITMAP, 0), 0);
    EXPECT_NE(SendDlgItemMessageW(dialog_, 13, STM_GETIMAGE, IMAGE_BITMAP, 0), 0);
}

TEST_F(DialogTest, AControlThatCannotBeMadeEndsTheDialogUnlessItMayFail) {
    answer = [](HWND, UINT message, WPARAM, LPARAM) {
        Log(message == WM_INITDIALOG ? "init" : "");
        return FALSE;
    };
    EXPECT_EQ(Make(IDD_UNKNOWN_CLASS), nullptr);
    EXPECT_EQ(RunModal(IDD_UNKNOWN_CLASS), -1);
    EXPECT_TRUE(IsWindowEnabled(parent_));
    EXPECT_EQ(logged.find("init"), std::string::npos);
    dialog_ = Make(IDD_UNKNOWN_CLASS_ALLOWED);
    EXPECT_NE(GetDlgItem(dialog_, 2), nullptr);
    EXPECT_EQ(Make(IDB_COLORS), nullptr);
    EXPECT_EQ(RunModal(IDB_COLORS), -1);
}

TEST_F(DialogTest, TheProcedureHearsOfTheFontAndThenOfTheControls) {
    answer = [](HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
        const bool hasControls = GetDlgItem(dialog, 101) != nullptr;
        if (message == WM_SETFONT) {
            Log(hasControls ? "font with controls" : "font");
        } else if (message == WM_INITDIALOG) {
            HWND edit = GetDlgItem(dialog, 101);
            Log("init " + Id(reinterpret_cast<HWND>(wParam)) + " " + std::to_string(lParam));
            Log(IsWindowVisible(dialog) ? "visible" : "hidden");
            Log(SendMessageW(edit, WM_GETFONT, 0, 0) == SendMessageW(dialog, WM_GETFONT, 0, 0)
                    ? "same font"
                    : "other font");
        } else if (message == WM_DESTROY || message == WM_NCDESTROY) {
            Log(message == WM_DESTROY ? "destroy" : "ncdestroy");
        } else if (message == WM_NCCREATE || message == WM_CREATE || message == WM_NCCALCSIZE) {
            Log("too early");
        }
        return FALSE;
    };
    dialog_ = Make(IDD_OWNED, nullptr, 77);
    EXPECT_EQ(Logged(), "font init 101 77 hidden same font");
    EXPECT_TRUE(IsWindowVisible(dialog_));
    DestroyWindow(dialog_);
    EXPECT_EQ(Logged(), "destroy ncdestroy");
    dialog_ = Make(IDD_CLASSES);
    EXPECT_FALSE(IsWindowVisible(dialog_));
    DestroyWindow(dialog_);
    Logged();
    dialog_ = Make(IDD_EMPTY);
    EXPECT_EQ(Logged(), "init none 0 hidden same font");
}

// ---- Messages ---------------------------------------------------------------------------------

TEST_F(DialogTest, AnAnswerIsTheMessagesResultOrSaysWhereItIs) {
    constexpr LPARAM kResult = 1234;
    static INT_PTR given;
    static LONG_PTR result;
    answer = [](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_NCHITTEST || message == WM_SETFONT || message == WM_GETFONT) {
            return FALSE;
        }
        SetWindowLongPtrW(dialog, DWLP_MSGRESULT, result);
        return given;
    };
    given = 0;
    dialog_ = Make(IDD_CLASSES);
    const struct {
        UINT message;
        INT_PTR given;
        LONG_PTR result;
        LRESULT expected;
    } kCases[] = {
        {WM_NOTIFY, TRUE, kResult, kResult},  {WM_NOTIFY, TRUE, 0, 0},
        {WM_NOTIFY, FALSE, kResult, 0},       {WM_USER + 5, 77, kResult, kResult},
        {WM_USER + 5, FALSE, kResult, 0},     {WM_INITDIALOG, 77, kResult, 77},
        {WM_CTLCOLORSTATIC, 77, kResult, 77}, {WM_CTLCOLORDLG, 77, kResult, 77},
        {WM_CTLCOLOREDIT, 77, kResult, 77},   {WM_COMPAREITEM, 77, kResult, 77},
        {WM_VKEYTOITEM, 77, kResult, 77},     {WM_CHARTOITEM, 77, kResult, 77},
        {WM_QUERYDRAGICON, 77, kResult, 77},
    };
    for (const auto& [message, given_, result_, expected] : kCases) {
        given = given_;
        result = result_;
        EXPECT_EQ(SendMessageW(dialog_, message, 0, 0), expected) << message << " " << given_;
    }
    given = 0;
    result = 0;
    EXPECT_NE(SendMessageW(dialog_, WM_CTLCOLORDLG, 0, 0), 0) << "the standard brush";
    SetWindowLongPtrW(dialog_, DWLP_USER, 99);
    EXPECT_EQ(GetWindowLongPtrW(dialog_, DWLP_USER), 99);
    EXPECT_EQ(GetWindowLongPtrW(dialog_, DWLP_DLGPROC), reinterpret_cast<LONG_PTR>(&Procedure));
}

TEST_F(DialogTest, ItsGroundIsDrawnWithTheBrushThatTheProcedureGives) {
    static HBRUSH brush;
    brush = CreateSolidBrush(RGB(1, 2, 3));
    answer = [](HWND, UINT message, WPARAM, LPARAM) {
        return message == WM_CTLCOLORDLG ? reinterpret_cast<INT_PTR>(brush) : INT_PTR{0};
    };
    dialog_ = Make(IDD_CLASSES);
    HDC screen = GetDC(nullptr);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, 50, 50);
    HDC context = CreateCompatibleDC(screen);
    ReleaseDC(nullptr, screen);
    HGDIOBJ before = SelectObject(context, bitmap);
    EXPECT_NE(SendMessageW(dialog_, WM_ERASEBKGND, reinterpret_cast<WPARAM>(context), 0), 0);
    EXPECT_EQ(GetPixel(context, 20, 20), RGB(1, 2, 3));
    answer = nullptr;
    SendMessageW(dialog_, WM_ERASEBKGND, reinterpret_cast<WPARAM>(context), 0);
    EXPECT_EQ(GetPixel(context, 20, 20), GetSysColor(COLOR_BTNFACE));
    SelectObject(context, before);
    DeleteDC(context);
    DeleteObject(bitmap);
    DeleteObject(brush);
}

TEST_F(DialogTest, ClosingCancels) {
    Open(IDD_OWNED);
    SendMessageW(dialog_, WM_CLOSE, 0, 0);
    EXPECT_EQ(Logged(), "") << "it is posted";
    HandlePosted();
    EXPECT_EQ(Logged(), "2");
    EXPECT_TRUE(IsWindow(dialog_));
}

// ---- Modal dialogs ----------------------------------------------------------------------------

TEST_F(DialogTest, AModalDialogDisablesItsOwnerAndGivesTheResult) {
    const HWND owner = parent_;
    SetActiveWindow(owner);
    answer = [owner](HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        if (message == WM_INITDIALOG) {
            Log(IsWindowEnabled(owner) ? "enabled" : "disabled");
            Log(std::to_string(lParam));
            PostMessageW(dialog, WM_COMMAND, 500, 0);
            return TRUE;
        }
        if (message == WM_COMMAND && wParam == 500) {
            Log(IsWindowVisible(dialog) ? "visible" : "hidden");
            Log(GetActiveWindow() == dialog ? "active" : "inactive");
            Log(GetWindow(dialog, GW_OWNER) == owner ? "owned" : "free");
            EndDialog(dialog, 4321);
            Log(IsWindowVisible(dialog) ? "visible" : "hidden");
            Log(IsWindowEnabled(owner) ? "enabled" : "disabled");
            Log(GetActiveWindow() == owner ? "owner" : "other");
        }
        return FALSE;
    };
    EXPECT_EQ(RunModal(IDD_OWNED, 5), 4321);
    EXPECT_EQ(Logged(), "disabled 5 visible active owned hidden enabled owner");
    EXPECT_EQ(GetActiveWindow(), owner);
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(DialogTest, AModalDialogEndsAtOnceWhenItIsEndedWhileItBegins) {
    answer = [](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG) {
            EndDialog(dialog, 7);
        } else if (message == WM_DESTROY) {
            Log(IsWindowVisible(dialog) ? "visible" : "hidden");
        }
        return FALSE;
    };
    EXPECT_EQ(RunModal(IDD_CLASSES), 7);
    EXPECT_EQ(Logged(), "hidden");
    EXPECT_FALSE(EndDialog(parent_, 1));
    SetLastError(0);
    EXPECT_EQ(DialogBoxParamW(module_, MAKEINTRESOURCEW(IDD_OWNED), reinterpret_cast<HWND>(0xBAD0),
                              Procedure, 0),
              0);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_WINDOW_HANDLE});
}

TEST_F(DialogTest, AModalDialogRunsItsOwnLoop) {
    answer = [](HWND dialog, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
            Log(std::to_string(LOWORD(wParam)));
            if (LOWORD(wParam) == IDCANCEL) {
                EndDialog(dialog, IDCANCEL);
            }
        }
        return message == WM_INITDIALOG;
    };
    RunInLoop([] { PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1); });
    RunInLoop([] { Log("focus " + Id(GetFocus())); });
    RunInLoop([] { PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1); });
    RunInLoop([] { PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1); });
    EXPECT_EQ(RunModal(IDD_OWNED), IDCANCEL);
    EXPECT_EQ(Logged(), "focus 102 1 2");
}

TEST_F(DialogTest, AModalDialogOfAChildDisablesTheWholeWindow) {
    Open(IDD_OWNED);
    const HWND owner = dialog_;
    SetFocus(Item(102));
    Logged();
    answer = [owner](HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        if (dialog == owner) {
            if (message == WM_ENABLE || (message == WM_ACTIVATE)) {
                Log((message == WM_ENABLE ? "enable " : "activate ") + std::to_string(wParam));
            }
            return NoteCommands(dialog, message, wParam, lParam);
        }
        if (message == WM_INITDIALOG) {
            Log("init");
            PostMessageW(dialog, WM_COMMAND, 500, 0);
        } else if (message == WM_COMMAND && wParam == 500) {
            Log(GetWindow(dialog, GW_OWNER) == owner ? "owned" : "free");
            EndDialog(dialog, 1);
            Log("ended");
        } else if (message == WM_DESTROY) {
            Log("destroy");
        }
        return message == WM_INITDIALOG;
    };
    EXPECT_EQ(DialogBoxParamW(module_, MAKEINTRESOURCEW(IDD_OWNED), Item(102), Procedure, 0), 1);
    EXPECT_EQ(Logged(),
              "enable 0 init activate 0 102:512 owned enable 1 activate 1 102:256 ended destroy");
    EXPECT_EQ(Id(GetFocus()), "102");
}

// ---- Controls by identifier -------------------------------------------------------------------

TEST_F(DialogTest, TextsAndNumbersOfControls) {
    Open(IDD_OWNED);
    WCHAR text[8];
    EXPECT_TRUE(SetDlgItemTextW(dialog_, 101, TEXT("longer text")));
    EXPECT_EQ(GetDlgItemTextW(dialog_, 101, text, 8), 7u);
    EXPECT_EQ(Narrow(text), "longer ");
    EXPECT_FALSE(SetDlgItemTextW(dialog_, 999, TEXT("x")));
    EXPECT_EQ(GetDlgItemTextW(dialog_, 999, text, 8), 0u);
    EXPECT_EQ(Narrow(text), "");
    EXPECT_TRUE(SetDlgItemInt(dialog_, 101, static_cast<UINT>(-5), TRUE));
    EXPECT_EQ(TextOf(Item(101)), "-5");
    SetDlgItemInt(dialog_, 101, static_cast<UINT>(-5), FALSE);
    EXPECT_EQ(TextOf(Item(101)), "4294967291");
}

TEST_F(DialogTest, ChecksOfControls) {
    Open(IDD_GROUPS);
    for (int wanted : {106, 108}) {
        EXPECT_TRUE(CheckRadioButton(dialog_, 105, 108, wanted));
        for (int id = 105; id <= 108; ++id) {
            EXPECT_EQ(IsDlgButtonChecked(dialog_, id), UINT{id == wanted}) << id;
        }
    }
    EXPECT_TRUE(CheckDlgButton(dialog_, 109, BST_CHECKED));
    EXPECT_EQ(IsDlgButtonChecked(dialog_, 109), UINT{BST_CHECKED});
    EXPECT_EQ(IsDlgButtonChecked(dialog_, 999), 0u);
    EXPECT_EQ(IsDlgButtonChecked(dialog_, 100), 0u);
    EXPECT_EQ(Logged(), "");
    EXPECT_EQ(SendDlgItemMessageW(dialog_, 999, BM_GETCHECK, 0, 0), 0);
}

}  // namespace
}  // namespace test
