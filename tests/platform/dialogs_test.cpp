// Dialogs: how a template becomes windows, what the dialog procedure hears and answers, focus,
// default buttons, keys and modal loops.
#include "tests.h"
#include "window_test.h"

#include <algorithm>
#include <map>

namespace {

std::string log;

void Log(const std::string& entry) {
    log += (log.empty() ? "" : " ") + entry;
}

std::string Logged() {
    return std::exchange(log, {});
}

std::string Id(HWND window) {
    return window == nullptr ? "none" : std::to_string(GetDlgCtrlID(window));
}

using Answer = std::function<INT_PTR(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)>;
Answer answer;  // of the dialog procedure; set by a test

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return answer ? answer(dialog, message, wParam, lParam) : FALSE;
}

// Notes the commands that a dialog gets, as "ID:CODE" or, with the code of a click, as "ID".
INT_PTR NoteCommands(HWND, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_COMMAND) {
        Log(std::to_string(LOWORD(wParam)) +
            (HIWORD(wParam) == 0 ? "" : ":" + std::to_string(HIWORD(wParam))));
    }
    return message == WM_INITDIALOG;
}

class DialogsTest : public test::WindowTest {
  protected:
    void SetUp() override {
        test::WindowTest::SetUp();
        answer = nullptr;
        Logged();
    }
    void TearDown() override {
        answer = nullptr;
        if (IsWindow(dialog_)) {
            DestroyWindow(dialog_);
        }
        test::WindowTest::TearDown();
    }

    HWND Make(int id, HWND owner = nullptr, LPARAM parameter = 0) {
        return CreateDialogParamW(module_, MAKEINTRESOURCEW(id), owner, Procedure, parameter);
    }
    // A dialog that notes its commands and has the focus.
    void Open(int id) {
        answer = NoteCommands;
        dialog_ = Make(id);
        ASSERT_NE(dialog_, nullptr);
        SetActiveWindow(dialog_);
        test::HandlePosted();
        Logged();
    }
    INT_PTR RunModal(int id, LPARAM parameter = 0) {
        return DialogBoxParamW(module_, MAKEINTRESOURCEW(id), parent_, Procedure, parameter);
    }
    HWND Item(int id) { return GetDlgItem(dialog_, id); }

    // Gives a message for the control that has the focus to the dialog manager, as a loop does.
    BOOL Key(UINT message, WPARAM key) {
        HWND focus = GetFocus();
        MSG posted = {focus != nullptr ? focus : dialog_, message, key, 1, 0, {0, 0}};
        const BOOL taken = IsDialogMessageW(dialog_, &posted);
        test::HandlePosted();
        return taken;
    }

    HINSTANCE module_ = GetModuleHandleW(nullptr);
    HWND dialog_ = nullptr;
};

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
        EXPECT_EQ(test::Narrow(name), placed.className);
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

TEST_F(DialogsTest, ATemplateGivesAControlOfEachClassItsPlaceAndStyle) {
    dialog_ = Make(IDD_CLASSES);
    ASSERT_NE(dialog_, nullptr);
    EXPECT_EQ(test::TextOf(dialog_), "Classes");
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

TEST_F(DialogsTest, TheFirstFormOfTemplatesIsInUnitsOfTheSystemFont) {
    dialog_ = Make(IDD_FIRST_FORM);
    ASSERT_NE(dialog_, nullptr);
    EXPECT_EQ(test::TextOf(dialog_), "First form");
    RECT unit = {4, 8, 0, 0};
    MapDialogRect(dialog_, &unit);
    EXPECT_EQ(GetDialogBaseUnits(), MAKELONG(unit.left, unit.top));
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

TEST_F(DialogsTest, ItsClientAreaIsPlacedInThatOfTheOwner) {
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

TEST_F(DialogsTest, RectanglesAreMappedByTheFontOfTheDialog) {
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

TEST_F(DialogsTest, PicturesOfTemplatesAreNamedByNumberOrText) {
    dialog_ = Make(IDD_CLASSES);
    EXPECT_NE(SendDlgItemMessageW(dialog_, 11, STM_GETICON, 0, 0), 0);
    EXPECT_NE(SendDlgItemMessageW(dialog_, 12, STM_GETIMAGE, IMAGE_BITMAP, 0), 0);
    EXPECT_NE(SendDlgItemMessageW(dialog_, 13, STM_GETIMAGE, IMAGE_BITMAP, 0), 0);
}

TEST_F(DialogsTest, AControlThatCannotBeMadeEndsTheDialogUnlessItMayFail) {
    answer = [](HWND, UINT message, WPARAM, LPARAM) {
        Log(message == WM_INITDIALOG ? "init" : "");
        return FALSE;
    };
    EXPECT_EQ(Make(IDD_UNKNOWN_CLASS), nullptr);
    EXPECT_EQ(RunModal(IDD_UNKNOWN_CLASS), -1);
    EXPECT_TRUE(IsWindowEnabled(parent_));
    EXPECT_EQ(log.find("init"), std::string::npos);
    dialog_ = Make(IDD_UNKNOWN_CLASS_ALLOWED);
    EXPECT_NE(GetDlgItem(dialog_, 2), nullptr);
    EXPECT_EQ(Make(IDB_COLORS), nullptr);
    EXPECT_EQ(RunModal(IDB_COLORS), -1);
}

TEST_F(DialogsTest, TheProcedureHearsOfTheFontAndThenOfTheControls) {
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

// ---- Focus ------------------------------------------------------------------------------------

TEST_F(DialogsTest, TheFirstTabStopGetsTheFocusUnlessTheProcedureGivesItAway) {
    const struct {
        const char* name;
        Answer answer;
        const char* focus;
    } kCases[] = {
        {"agrees", [](HWND, UINT message, WPARAM, LPARAM) { return message == WM_INITDIALOG; },
         "101"},
        {"agrees, first disabled",
         [](HWND dialog, UINT message, WPARAM, LPARAM) {
             if (message == WM_INITDIALOG) {
                 EnableWindow(GetDlgItem(dialog, 101), FALSE);
             }
             return message == WM_INITDIALOG;
         },
         "102"},
        {"sets it",
         [](HWND dialog, UINT message, WPARAM, LPARAM) {
             if (message == WM_INITDIALOG) {
                 SetFocus(GetDlgItem(dialog, 103));
             }
             return FALSE;
         },
         "103"},
        {"leaves it", [](HWND, UINT, WPARAM, LPARAM) { return FALSE; }, "101"},
    };
    for (const auto& [name, procedure, focus] : kCases) {
        answer = procedure;
        dialog_ = Make(IDD_OWNED);
        SetDlgItemTextW(dialog_, 101, TEXT("text"));
        EXPECT_EQ(GetActiveWindow(), dialog_) << name;
        EXPECT_EQ(Id(GetFocus()), focus) << name;
        DestroyWindow(dialog_);
    }
}

TEST_F(DialogsTest, TheTextOfAnEditControlIsSelectedWhenTheManagerMovesTheFocusThere) {
    answer = [](HWND dialog, UINT message, WPARAM, LPARAM) {
        if (message == WM_INITDIALOG) {
            SetDlgItemTextW(dialog, 101, TEXT("first"));
            SetDlgItemTextW(dialog, 102, TEXT("second"));
        }
        return message == WM_INITDIALOG;
    };
    dialog_ = Make(IDD_OWNED);
    const auto selection = [&](int id) {
        return SendDlgItemMessageW(dialog_, id, EM_GETSEL, 0, 0);
    };
    EXPECT_EQ(selection(101), MAKELONG(0, 5));
    SetFocus(Item(102));
    EXPECT_EQ(selection(102), 0);
    SendMessageW(dialog_, WM_NEXTDLGCTL, TRUE, FALSE);
    SendMessageW(dialog_, WM_NEXTDLGCTL, FALSE, FALSE);
    EXPECT_EQ(Id(GetFocus()), "102");
    EXPECT_EQ(selection(102), MAKELONG(0, 6));
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(103)), TRUE);
    EXPECT_EQ(Id(GetFocus()), "103");
}

TEST_F(DialogsTest, TheFocusComesBackWithTheActivation) {
    answer = [](HWND, UINT message, WPARAM, LPARAM) { return message == WM_INITDIALOG; };
    dialog_ = Make(IDD_OWNED);
    SetFocus(Item(102));
    SetActiveWindow(parent_);
    EXPECT_EQ(GetFocus(), parent_);
    SetActiveWindow(dialog_);
    EXPECT_EQ(Id(GetFocus()), "102");
    SetFocus(Item(103));
    SetActiveWindow(parent_);
    EnableWindow(Item(103), FALSE);
    SetActiveWindow(dialog_);
    EXPECT_EQ(Id(GetFocus()), "101") << "what had it cannot take it";
    SetFocus(dialog_);
    EXPECT_EQ(Id(GetFocus()), "101");
}

// ---- Messages ---------------------------------------------------------------------------------

TEST_F(DialogsTest, AnAnswerIsTheMessagesResultOrSaysWhereItIs) {
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

TEST_F(DialogsTest, ItsGroundIsDrawnWithTheBrushThatTheProcedureGives) {
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

TEST_F(DialogsTest, ClosingCancels) {
    Open(IDD_OWNED);
    SendMessageW(dialog_, WM_CLOSE, 0, 0);
    EXPECT_EQ(Logged(), "") << "it is posted";
    test::HandlePosted();
    EXPECT_EQ(Logged(), "2");
    EXPECT_TRUE(IsWindow(dialog_));
}

// ---- Default buttons --------------------------------------------------------------------------

// The buttons that look like the one that Return presses.
std::string Emphasized(HWND dialog) {
    std::string ids;
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if ((SendMessageW(child, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0) {
            ids += (ids.empty() ? "" : ",") + Id(child);
        }
    }
    return ids;
}

TEST_F(DialogsTest, TheDefaultButtonFollowsTheFocusOverPushButtons) {
    Open(IDD_OWNED);
    const auto defaultId = [&] { return SendMessageW(dialog_, DM_GETDEFID, 0, 0); };
    EXPECT_EQ(defaultId(), MAKELRESULT(IDOK, DC_HASDEFID));
    EXPECT_EQ(Emphasized(dialog_), "1");
    const std::pair<const char*, const char*> kTabs[] = {
        {"102", "1"}, {"1", "1"}, {"2", "2"}, {"103", "103"}, {"101", "1"},
    };
    for (const auto& [focus, emphasized] : kTabs) {
        Key(WM_KEYDOWN, VK_TAB);
        EXPECT_EQ(Id(GetFocus()), focus);
        EXPECT_EQ(Emphasized(dialog_), emphasized) << focus;
        EXPECT_EQ(defaultId(), MAKELRESULT(IDOK, DC_HASDEFID));
    }
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(103)), TRUE);
    EXPECT_EQ(Emphasized(dialog_), "103");
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(101)), TRUE);
    EXPECT_EQ(Emphasized(dialog_), "1");
    EXPECT_EQ(SendMessageW(dialog_, DM_SETDEFID, 103, 0), TRUE);
    EXPECT_EQ(Emphasized(dialog_), "103");
    EXPECT_EQ(defaultId(), MAKELRESULT(103, DC_HASDEFID));
    Logged();
    Key(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(Logged(), "103");
    SendMessageW(dialog_, DM_SETDEFID, 999, 0);
    EXPECT_EQ(defaultId(), MAKELRESULT(999, DC_HASDEFID));
    EXPECT_EQ(Emphasized(dialog_), "");
}

// ---- Keys -------------------------------------------------------------------------------------

TEST_F(DialogsTest, ReturnPressesTheDefaultButtonAndEscapeCancels) {
    Open(IDD_OWNED);
    Logged();
    const struct {
        int focus;
        WPARAM key;
        const char* told;
    } kCases[] = {
        {101, VK_RETURN, "1"}, {IDCANCEL, VK_RETURN, "2"}, {103, VK_RETURN, "103"},
        {101, VK_ESCAPE, "2"}, {103, VK_ESCAPE, "2"},
    };
    for (const auto& [focus, key, told] : kCases) {
        SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(focus)), TRUE);
        Logged();
        EXPECT_TRUE(Key(WM_KEYDOWN, key));
        EXPECT_EQ(Logged(), told) << focus << " " << key;
    }
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(101)), TRUE);
    EnableWindow(Item(IDOK), FALSE);
    Logged();
    Key(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(Logged(), "");
    MSG elsewhere = {parent_, WM_KEYDOWN, VK_TAB, 1, 0, {0, 0}};
    EXPECT_FALSE(IsDialogMessageW(dialog_, &elsewhere));
}

TEST_F(DialogsTest, WithoutADefaultButtonReturnMeansOk) {
    Open(IDD_UNKNOWN_CLASS_ALLOWED);
    EXPECT_EQ(SendMessageW(dialog_, DM_GETDEFID, 0, 0), MAKELRESULT(IDOK, DC_HASDEFID));
    EXPECT_TRUE(Key(WM_KEYDOWN, VK_RETURN));
    EXPECT_EQ(Logged(), "1");
}

std::string Walk(int count, const std::function<HWND()>& step) {
    std::string walked;
    for (int i = 0; i < count; ++i) {
        walked += (walked.empty() ? "" : " ") + Id(step());
    }
    return walked;
}

TEST_F(DialogsTest, TabGoesFromStopToStop) {
    Open(IDD_GROUPS);
    CheckRadioButton(dialog_, 105, 108, 105);
    HWND at = nullptr;
    EXPECT_EQ(Walk(7, [&] { return at = GetNextDlgTabItem(dialog_, at, FALSE); }),
              "101 105 109 110 1 2 101");
    EXPECT_EQ(Walk(7, [&] { return at = GetNextDlgTabItem(dialog_, at, TRUE); }),
              "2 1 110 109 105 101 2");
    EXPECT_EQ(Id(GetNextDlgTabItem(dialog_, Item(107), FALSE)), "109");
    EXPECT_EQ(Id(GetNextDlgTabItem(dialog_, Item(107), TRUE)), "105");
    EXPECT_EQ(Walk(7,
                   [&] {
                       HWND before = GetFocus();
                       Key(WM_KEYDOWN, VK_TAB);
                       return before;
                   }),
              "101 105 109 110 1 2 101");
    EXPECT_EQ(Logged(), "101:512 101:256 101:512");
}

TEST_F(DialogsTest, ArrowsStayInTheGroup) {
    Open(IDD_GROUPS);
    const struct {
        int from;
        const char* next;
        const char* previous;
    } kCases[] = {
        {101, "100", "100"}, {102, "100", "101"}, {104, "104", "104"},
        {105, "106", "108"}, {106, "108", "105"}, {107, "108", "106"},
        {108, "105", "106"}, {109, "109", "109"}, {110, "1", "2"},
    };
    for (const auto& [from, next, previous] : kCases) {
        EXPECT_EQ(Id(GetNextDlgGroupItem(dialog_, Item(from), FALSE)), next) << from;
        EXPECT_EQ(Id(GetNextDlgGroupItem(dialog_, Item(from), TRUE)), previous) << from;
    }
    EXPECT_EQ(Id(GetNextDlgGroupItem(dialog_, nullptr, FALSE)), "100");
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(110)), TRUE);
    Logged();
    const std::pair<WPARAM, const char*> kSteps[] = {
        {VK_DOWN, "1"}, {VK_RIGHT, "2"}, {VK_DOWN, "110"}, {VK_UP, "2"}, {VK_LEFT, "1"}};
    for (const auto& [key, reached] : kSteps) {
        Key(WM_KEYDOWN, key);
        EXPECT_EQ(Id(GetFocus()), reached);
        EXPECT_EQ(Emphasized(dialog_), reached);
    }
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(101)), TRUE);
    Key(WM_KEYDOWN, VK_DOWN);
    EXPECT_EQ(Id(GetFocus()), "101") << "an edit control wants the arrows itself";
}

TEST_F(DialogsTest, AnArrowChecksTheRadioButtonItReaches) {
    Open(IDD_GROUPS);
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(105)), TRUE);
    CheckRadioButton(dialog_, 105, 108, 105);
    Logged();
    const struct {
        WPARAM key;
        int reached;
    } kCases[] = {{VK_DOWN, 106}, {VK_RIGHT, 108}, {VK_DOWN, 105}, {VK_UP, 108}, {VK_LEFT, 106}};
    for (const auto& [key, reached] : kCases) {
        Key(WM_KEYDOWN, key);
        EXPECT_EQ(Id(GetFocus()), std::to_string(reached));
        EXPECT_EQ(Logged(), std::to_string(reached));
        for (int id = 105; id <= 108; ++id) {
            EXPECT_EQ(IsDlgButtonChecked(dialog_, id), UINT{id == reached}) << id;
        }
    }
}

TEST_F(DialogsTest, LettersReachTheControlThatBearsThem) {
    Open(IDD_GROUPS);
    const struct {
        int focus;
        UINT message;
        char letter;
        const char* reached;
        const char* told;
    } kCases[] = {
        {110, WM_SYSCHAR, 'n', "101", "101:256"},
        {101, WM_SYSCHAR, 'c', "109", "101:512 109"},
        {101, WM_SYSCHAR, 'C', "109", "101:512 109"},
        {101, WM_SYSCHAR, 'a', "110", "101:512 110"},
        {101, WM_SYSCHAR, 'k', "105", "101:512"},
        {101, WM_SYSCHAR, 's', "106", "101:512 106"},
        {101, WM_SYSCHAR, 'h', "101", ""},
        {101, WM_SYSCHAR, 'd', "101", ""},
        {101, WM_CHAR, 'a', "101", "101:1024 101:768"},
        {109, WM_CHAR, 'a', "110", "110"},
        {109, WM_CHAR, 'n', "101", "101:256"},
        {109, WM_CHAR, 'z', "109", ""},
    };
    CheckRadioButton(dialog_, 105, 108, 105);
    for (const auto& [focus, message, letter, reached, told] : kCases) {
        SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(focus)), TRUE);
        Logged();
        EXPECT_TRUE(Key(message, static_cast<WPARAM>(letter)));
        EXPECT_EQ(Id(GetFocus()), reached) << focus << letter;
        EXPECT_EQ(Logged(), told) << focus << letter;
    }
}

TEST_F(DialogsTest, LettersInFieldsAndDoubledMarksMeanNothing) {
    Open(IDD_LABELS);
    SetDlgItemTextW(dialog_, 101, TEXT("&Qtext"));
    const std::pair<char, const char*> kCases[] = {
        {'s', "102"}, {'n', "103"}, {'a', "103"}, {'q', "108"}};
    for (const auto& [letter, reached] : kCases) {
        SendMessageW(dialog_, WM_NEXTDLGCTL,
                     reinterpret_cast<WPARAM>(Item(letter == 's' ? 101 : 103)), TRUE);
        Key(WM_SYSCHAR, static_cast<WPARAM>(letter));
        EXPECT_EQ(Id(GetFocus()), reached) << letter;
    }
}

// ---- A dialog in a dialog ---------------------------------------------------------------------

TEST_F(DialogsTest, APageInADialogIsPartOfItsTabOrder) {
    Open(IDD_SHEET);
    const HWND page = Make(IDD_PAGE, dialog_);
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(Id(GetFocus()), "101") << "a page takes no focus";
    EXPECT_EQ(Logged(), "");
    SetWindowPos(page, Item(101), 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    const auto tab = [&] {
        Key(WM_KEYDOWN, VK_TAB);
        return GetFocus();
    };
    EXPECT_EQ(Walk(5, tab), "201 202 1 101 201");
    EnableWindow(page, FALSE);
    EXPECT_EQ(Id(GetNextDlgTabItem(dialog_, Item(101), FALSE)), "1");
    EnableWindow(page, TRUE);
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(101)), TRUE);
    Logged();
    Key(WM_SYSCHAR, 'p');
    EXPECT_EQ(Id(GetFocus()), "201");
    Key(WM_SYSCHAR, 'i');
    EXPECT_EQ(Id(GetFocus()), "202");
    EXPECT_EQ(Logged(), "201:256 201:512 202");
    SetFocus(GetDlgItem(page, 201));
    Key(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(Logged(), "201:256 1");
    Key(WM_SYSCHAR, 'b');
    EXPECT_EQ(Id(GetFocus()), "101");
    EXPECT_EQ(Logged(), "201:512 101");
    EXPECT_EQ(GetDlgItem(dialog_, 201), nullptr) << "only a dialog's own controls";
}

// ---- Modal dialogs ----------------------------------------------------------------------------

TEST_F(DialogsTest, AModalDialogDisablesItsOwnerAndGivesTheResult) {
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

TEST_F(DialogsTest, AModalDialogEndsAtOnceWhenItIsEndedWhileItBegins) {
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

TEST_F(DialogsTest, AModalDialogRunsItsOwnLoop) {
    answer = [](HWND dialog, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
            Log(std::to_string(LOWORD(wParam)));
            if (LOWORD(wParam) == IDCANCEL) {
                EndDialog(dialog, IDCANCEL);
            }
        }
        return message == WM_INITDIALOG;
    };
    test::RunInLoop([] { PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1); });
    test::RunInLoop([] { Log("focus " + Id(GetFocus())); });
    test::RunInLoop([] { PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1); });
    test::RunInLoop([] { PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1); });
    EXPECT_EQ(RunModal(IDD_OWNED), IDCANCEL);
    EXPECT_EQ(Logged(), "focus 102 1 2");
}

TEST_F(DialogsTest, AModalDialogOfAChildDisablesTheWholeWindow) {
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

TEST_F(DialogsTest, TextsAndNumbersOfControls) {
    Open(IDD_OWNED);
    WCHAR text[8];
    EXPECT_TRUE(SetDlgItemTextW(dialog_, 101, TEXT("longer text")));
    EXPECT_EQ(GetDlgItemTextW(dialog_, 101, text, 8), 7u);
    EXPECT_EQ(test::Narrow(text), "longer ");
    EXPECT_FALSE(SetDlgItemTextW(dialog_, 999, TEXT("x")));
    EXPECT_EQ(GetDlgItemTextW(dialog_, 999, text, 8), 0u);
    EXPECT_EQ(test::Narrow(text), "");
    const struct {
        const char* text;
        BOOL isSigned;
        UINT number;
        BOOL good;
    } kCases[] = {
        {"12", TRUE, 12, TRUE},
        {"  12", TRUE, 12, TRUE},
        {"-12", TRUE, static_cast<UINT>(-12), TRUE},
        {"4294967295", FALSE, 4294967295u, TRUE},
        {"4294967296", FALSE, 0, FALSE},
        {"2147483646", TRUE, 2147483646, TRUE},
        {"2147483648", TRUE, 0, FALSE},
        {"", TRUE, 0, FALSE},
        {"x", TRUE, 0, FALSE},
        {"12x", TRUE, 12, TRUE},
        {"12 ", TRUE, 12, TRUE},
        {"-", TRUE, 0, FALSE},
    };
    for (const auto& [digits, isSigned, number, good] : kCases) {
        SetDlgItemTextW(dialog_, 101, test::Wide(digits).c_str());
        BOOL translated = 5;
        EXPECT_EQ(GetDlgItemInt(dialog_, 101, &translated, isSigned), number) << digits;
        EXPECT_EQ(translated, good) << digits;
    }
    EXPECT_TRUE(SetDlgItemInt(dialog_, 101, static_cast<UINT>(-5), TRUE));
    EXPECT_EQ(test::TextOf(Item(101)), "-5");
    SetDlgItemInt(dialog_, 101, static_cast<UINT>(-5), FALSE);
    EXPECT_EQ(test::TextOf(Item(101)), "4294967291");
}

TEST_F(DialogsTest, ChecksOfControls) {
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
