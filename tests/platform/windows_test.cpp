// Windows: which messages they get and in what order, their tree, places, focus and painting.
#include "window_test.h"

#include <algorithm>
#include <map>

namespace {

std::string log;
std::map<HWND, std::string> names;
std::string nextName;
bool paintsItself;

const std::map<UINT, const char*> kLogged = {
    {WM_NCCREATE, "nccreate"},
    {WM_CREATE, "create"},
    {WM_SIZE, "size"},
    {WM_MOVE, "move"},
    {WM_SHOWWINDOW, "show"},
    {WM_WINDOWPOSCHANGING, "changing"},
    {WM_WINDOWPOSCHANGED, "changed"},
    {WM_NCACTIVATE, "ncactivate"},
    {WM_ACTIVATE, "activate"},
    {WM_SETFOCUS, "focus"},
    {WM_KILLFOCUS, "blur"},
    {WM_ENABLE, "enable"},
    {WM_DESTROY, "destroy"},
    {WM_NCDESTROY, "ncdestroy"},
    {WM_CLOSE, "close"},
    {WM_CAPTURECHANGED, "capture"},
    {WM_SETTEXT, "text"},
    {WM_STYLECHANGED, "style"},
    {WM_TIMER, "timer"},
    {WM_APP, "app"},
    {WM_CHAR, "char"},
    {WM_PAINT, "paint"},
};

void Log(HWND window, const std::string& what) {
    log += (log.empty() ? "" : " ") + names[window] + "." + what;
}

LRESULT CALLBACK LogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!names.contains(window)) {
        names[window] = nextName;
    }
    if (message == WM_PARENTNOTIFY) {
        Log(window, "notified" + std::to_string(LOWORD(wParam)));
    } else if (const auto known = kLogged.find(message); known != kLogged.end()) {
        const bool isPlace = message == WM_SIZE || message == WM_MOVE;
        Log(window, known->second + (isPlace ? std::to_string(LOWORD(lParam)) + "x" +
                                                   std::to_string(HIWORD(lParam))
                                             : ""));
    }
    if (message == WM_APP && wParam != 0) {
        DestroyWindow(reinterpret_cast<HWND>(wParam));
    }
    if (message == WM_PAINT && paintsItself) {
        PAINTSTRUCT paint;
        BeginPaint(window, &paint);
        const RECT& part = paint.rcPaint;
        log += std::to_string(part.left) + "," + std::to_string(part.top) + "," +
               std::to_string(part.right) + "," + std::to_string(part.bottom);
        EndPaint(window, &paint);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

std::string Logged() {
    return std::exchange(log, {});
}

class WindowsTest : public test::WindowTest {
  protected:
    void SetUp() override {
        test::WindowTest::SetUp();
        WNDCLASSEXW windowClass = {};
        windowClass.cbSize = sizeof(windowClass);
        windowClass.lpfnWndProc = LogProcedure;
        windowClass.cbWndExtra = 16;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.hbrBackground = reinterpret_cast<HBRUSH>(ULONG_PTR{COLOR_WINDOW + 1});
        windowClass.lpszClassName = TEXT("KpdTestLog");
        RegisterClassExW(&windowClass);
        names.clear();
        paintsItself = false;
        top_ = Make("t", WS_POPUP | WS_VISIBLE, nullptr, {100, 100, 300, 200});
        test::HandlePosted();
        Logged();
    }
    void TearDown() override {
        DestroyWindow(top_);
        test::WindowTest::TearDown();
    }

    HWND Make(const char* name, DWORD style, HWND parent, RECT place, DWORD extendedStyle = 0) {
        nextName = name;
        return CreateWindowExW(extendedStyle, TEXT("KpdTestLog"), TEXT("text"), style, place.left,
                               place.top, place.right, place.bottom, parent, nullptr,
                               GetModuleHandleW(nullptr), nullptr);
    }
    HWND Child(const char* name, HWND parent = nullptr, RECT place = {10, 10, 50, 20}) {
        const HWND child =
            Make(name, WS_CHILD | WS_VISIBLE, parent == nullptr ? top_ : parent, place);
        test::HandlePosted();
        Logged();
        return child;
    }

    HWND top_ = nullptr;
};

TEST_F(WindowsTest, AChildHearsOfItsMaking) {
    const HWND child = Make("c", WS_CHILD | WS_VISIBLE, top_, {10, 10, 50, 20});
    EXPECT_EQ(Logged(),
              "c.nccreate c.create c.size50x20 c.move10x10 t.notified1 c.show c.changing "
              "c.changed");
    SetWindowPos(child, nullptr, 20, 10, 60, 20, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_EQ(Logged(), "c.changing c.changed c.move20x10 c.size60x20");
    MoveWindow(child, 20, 10, 60, 20, TRUE);
    EXPECT_EQ(Logged(), "c.changing") << "nothing changes";
    EXPECT_TRUE(ShowWindow(child, SW_HIDE));
    EXPECT_EQ(Logged(), "c.show c.changing c.changed");
    EXPECT_FALSE(ShowWindow(child, SW_HIDE));
    EXPECT_EQ(Logged(), "");
    SetWindowLongW(child, GWL_STYLE, GetWindowLongW(child, GWL_STYLE) | WS_TABSTOP);
    EXPECT_EQ(Logged(), "c.style");
}

TEST_F(WindowsTest, APopupIsActivatedBetweenItsTwoPlaceMessages) {
    const HWND popup = Make("p", WS_POPUP | WS_VISIBLE, top_, {0, 0, 60, 40});
    EXPECT_EQ(Logged(),
              "p.nccreate p.create p.size60x40 p.move0x0 p.show p.changing t.ncactivate "
              "t.activate p.ncactivate p.activate t.blur p.focus p.changed");
    EXPECT_EQ(GetWindow(popup, GW_OWNER), top_);
    EXPECT_EQ(GetParent(popup), top_);
    DestroyWindow(popup);
    EXPECT_EQ(Logged(),
              "p.changing p.changed p.ncactivate p.activate t.ncactivate t.activate p.blur t.focus "
              "p.destroy p.ncdestroy");
}

TEST_F(WindowsTest, WhatIsDestroyedTakesWhatItHoldsWithIt) {
    const HWND outer = Child("o");
    const HWND inner = Child("i", outer);
    const HWND owned = Make("p", WS_POPUP, top_, {0, 0, 9, 9});
    PostMessageW(inner, WM_APP, 0, 0);
    Logged();
    DestroyWindow(outer);
    EXPECT_EQ(
        Logged(),
        "t.notified2 o.show o.changing o.changed o.destroy i.destroy i.ncdestroy o.ncdestroy");
    test::HandlePosted();
    EXPECT_EQ(Logged().find("app"), std::string::npos);
    EXPECT_FALSE(IsWindow(inner));
    SetLastError(0);
    EXPECT_EQ(SendMessageW(inner, WM_GETTEXTLENGTH, 0, 0), 0);
    EXPECT_EQ(GetLastError(), 1400u);
    DestroyWindow(top_);
    EXPECT_FALSE(IsWindow(owned));
}

TEST_F(WindowsTest, TheFocusMovesWithTwoMessagesAndActivatesTheWindowAround) {
    const HWND a = Child("a"), b = Child("b");
    EXPECT_EQ(SetFocus(a), top_);
    EXPECT_EQ(Logged(), "t.blur a.focus");
    SetFocus(b);
    EXPECT_EQ(Logged(), "a.blur b.focus");
    EXPECT_EQ(SetFocus(b), b);
    EXPECT_EQ(Logged(), "");
    EnableWindow(b, FALSE);
    EXPECT_EQ(Logged(), "b.blur b.enable");
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_EQ(SetFocus(b), nullptr);
    EXPECT_TRUE(EnableWindow(b, TRUE));
    SetFocus(b);
    Logged();
    ShowWindow(b, SW_HIDE);
    EXPECT_EQ(Logged(), "b.show b.changing b.changed b.blur t.focus");
    SetFocus(a);
    SetActiveWindow(parent_);
    EXPECT_EQ(GetFocus(), parent_);
    Logged();
    SetFocus(a);
    EXPECT_EQ(Logged(), "t.ncactivate t.activate t.focus t.blur a.focus");
    EXPECT_EQ(GetActiveWindow(), top_);
    EnableWindow(top_, FALSE);
    EXPECT_EQ(GetFocus(), a) << "only the window itself loses it";
    EnableWindow(top_, TRUE);
}

TEST_F(WindowsTest, CaptureIsToldToTheOneThatLosesIt) {
    const HWND a = Child("a"), b = Child("b");
    SetCapture(a);
    EXPECT_EQ(SetCapture(b), a);
    ReleaseCapture();
    EXPECT_EQ(Logged(), "a.capture b.capture");
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(WindowsTest, NewChildrenLieBelowOlderOnes) {
    const HWND a = Child("a"), b = Child("b"), c = Child("c");
    const auto order = [&] {
        std::string all;
        for (HWND at = GetWindow(top_, GW_CHILD); at != nullptr; at = GetWindow(at, GW_HWNDNEXT)) {
            all += names[at];
        }
        return all;
    };
    EXPECT_EQ(order(), "abc");
    SetWindowPos(c, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(order(), "cab");
    SetWindowPos(c, b, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(order(), "abc");
    SetWindowPos(a, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(order(), "bca");
    EXPECT_EQ(GetWindow(a, GW_HWNDPREV), c);
    EXPECT_EQ(FindWindowExW(top_, b, TEXT("kpdtestlog"), TEXT("text")), c);
    EXPECT_TRUE(IsChild(top_, a));
    EXPECT_FALSE(IsChild(a, top_));

    Child("d", b);
    std::string all;
    EnumChildWindows(
        top_,
        [](HWND window, LPARAM result) -> BOOL {
            *reinterpret_cast<std::string*>(result) += names[window];
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&all));
    EXPECT_EQ(all, "bdca");
}

TEST_F(WindowsTest, MessagesComePostedPaintedAndTimedInThatOrder) {
    SetTimer(top_, 5, 10, nullptr);
    InvalidateRect(top_, nullptr, TRUE);
    PostMessageW(top_, WM_APP, 0, 0);
    PostMessageW(top_, WM_KEYDOWN, 'A', 1);
    MSG message;
    while (log.find("timer") == std::string::npos && GetMessageW(&message, nullptr, 0, 0)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    KillTimer(top_, 5);
    EXPECT_EQ(Logged(), "t.app t.char t.paint t.timer");

    PostQuitMessage(7);
    PostMessageW(top_, WM_APP, 0, 0);
    EXPECT_TRUE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, UINT{WM_APP});
    EXPECT_FALSE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.wParam, 7u);
}

TEST_F(WindowsTest, WhatIsInvalidIsPaintedFromTheOutsideIn) {
    const HWND a = Child("a", nullptr, {10, 10, 50, 20}), b = Child("b", nullptr, {10, 40, 50, 20});
    paintsItself = true;
    const RECT part = {0, 0, 30, 20};
    InvalidateRect(top_, &part, TRUE);
    RECT update = {};
    EXPECT_TRUE(GetUpdateRect(a, &update, FALSE));
    EXPECT_EQ(update.right, 20) << "what of the child is in the part";
    EXPECT_FALSE(GetUpdateRect(b, nullptr, FALSE));
    test::HandlePosted();
    EXPECT_EQ(Logged(), "t.paint0,0,30,20 a.paint0,0,20,10");

    InvalidateRect(a, nullptr, FALSE);
    test::HandlePosted();
    EXPECT_EQ(Logged(), "a.paint0,0,50,20") << "the parent is not concerned";

    const RECT placeOfA = {10, 10, 60, 30};
    InvalidateRect(top_, &placeOfA, TRUE);
    UpdateWindow(a);
    EXPECT_EQ(Logged(), "a.paint0,0,50,20");
    EXPECT_FALSE(GetUpdateRect(top_, nullptr, FALSE)) << "or it would draw over the child";

    SetWindowLongW(top_, GWL_STYLE, GetWindowLongW(top_, GWL_STYLE) | WS_CLIPCHILDREN);
    Logged();
    InvalidateRect(top_, nullptr, TRUE);
    UpdateWindow(top_);
    EXPECT_EQ(Logged(), "t.paint0,0,300,200") << "nor are children that are clipped";
    RedrawWindow(top_, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    EXPECT_EQ(Logged(), "t.paint0,0,300,200 a.paint0,0,50,20 b.paint0,0,50,20");

    ShowWindow(a, SW_HIDE);
    test::HandlePosted();
    EXPECT_EQ(Logged(), "a.show a.changing a.changed t.paint10,10,60,30") << "what it uncovers";
    InvalidateRect(a, nullptr, TRUE);
    EXPECT_FALSE(GetUpdateRect(a, nullptr, FALSE)) << "nobody sees it";
}

TEST_F(WindowsTest, AChildIsErasedWithItsBrush) {
    const HWND child = Child("a", nullptr, {280, 10, 50, 20});
    const HDC context = GetDC(child);
    EXPECT_EQ(GetPixel(context, 10, 5), GetSysColor(COLOR_WINDOW));
    ReleaseDC(child, context);
}

TEST_F(WindowsTest, FramesAreTheSumOfTheirParts) {
    struct Row {
        DWORD style;
        DWORD extendedStyle;
        int side;
    };
    const Row kRows[] = {
        {0, 0, 0},
        {WS_BORDER, 0, 1},
        {WS_DLGFRAME, 0, 3},
        {WS_CAPTION, 0, 3},
        {WS_THICKFRAME | WS_CAPTION, 0, 4},
        {0, WS_EX_CLIENTEDGE, 2},
        {WS_BORDER, WS_EX_CLIENTEDGE, 3},
        {0, WS_EX_STATICEDGE, 1},
        {WS_CAPTION, WS_EX_STATICEDGE, 2},
        {0, WS_EX_DLGMODALFRAME, 3},
        {WS_CAPTION, WS_EX_DLGMODALFRAME, 3},
        {WS_DLGFRAME, WS_EX_DLGMODALFRAME | WS_EX_CLIENTEDGE, 5},
    };
    for (const Row& row : kRows) {
        const bool hasCaption = (row.style & WS_CAPTION) == WS_CAPTION;
        const int caption = hasCaption ? GetSystemMetrics(SM_CYCAPTION) : 0;
        RECT rect = {0, 0, 0, 0};
        AdjustWindowRectEx(&rect, WS_POPUP | row.style, FALSE, row.extendedStyle);
        EXPECT_EQ(rect.left, -row.side) << std::hex << row.style << " " << row.extendedStyle;
        EXPECT_EQ(rect.top, -row.side - caption);
        const HWND window =
            Make("f", WS_CHILD | row.style, top_, {5, 5, 200, 100}, row.extendedStyle);
        RECT client;
        GetClientRect(window, &client);
        EXPECT_EQ(client.right, 200 - 2 * row.side);
        EXPECT_EQ(client.bottom, 100 - 2 * row.side - caption);
        POINT corner = {0, 0};
        MapWindowPoints(window, top_, &corner, 1);
        EXPECT_EQ(corner.y, 5 + row.side + caption);
        DestroyWindow(window);
    }
}

TEST_F(WindowsTest, AWindowKeepsWhatItIsGiven) {
    EXPECT_EQ(SetWindowLongPtrW(top_, 8, -5), 0);
    EXPECT_EQ(GetWindowLongPtrW(top_, 8), -5);
    SetLastError(0);
    EXPECT_EQ(SetWindowLongPtrW(top_, 9, 1), 0);
    EXPECT_EQ(GetLastError(), 1413u) << "reaches beyond the extra bytes";
    SetWindowLongPtrW(top_, GWLP_USERDATA, 77);
    EXPECT_EQ(GetWindowLongPtrW(top_, GWLP_USERDATA), 77);
    SetPropW(top_, TEXT("Key"), top_);
    EXPECT_EQ(GetPropW(top_, TEXT("KEY")), top_);
    EXPECT_EQ(RemovePropW(top_, TEXT("key")), top_);
    EXPECT_EQ(GetPropW(top_, TEXT("key")), nullptr);
    SetWindowTextW(top_, TEXT("a longer text"));
    WCHAR text[5];
    EXPECT_EQ(GetWindowTextW(top_, text, 5), 4);
    EXPECT_EQ(test::Narrow(text), "a lo");
    EXPECT_EQ(GetWindowTextLengthW(top_), 13);
    EXPECT_EQ(SendMessageW(top_, WM_SETREDRAW, FALSE, 0), 0);
    EXPECT_FALSE(IsWindowVisible(top_));
    SendMessageW(top_, WM_SETREDRAW, TRUE, 0);
    EXPECT_TRUE(IsWindowVisible(top_));
    EXPECT_EQ(MulDiv(-7, 1, 2), -4);
    EXPECT_EQ(MulDiv(1, 1, 0), -1);
}

TEST_F(WindowsTest, ClosingDestroysAndFailuresSayWhy) {
    SendMessageW(top_, WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_EQ(Logged().substr(0, 7), "t.close");
    EXPECT_FALSE(IsWindow(top_));
    for (const auto& [parent, error] : {std::pair<HWND, DWORD>{nullptr, 1406}, {top_, 1400}}) {
        SetLastError(0);
        EXPECT_EQ(Make("x", WS_CHILD, parent, {0, 0, 5, 5}), nullptr);
        EXPECT_EQ(GetLastError(), error);
    }
}

// A message may destroy any window, the one that hears it among them.
TEST_F(WindowsTest, AWindowMayGoDuringItsOwnMessage) {
    const HWND child = Child("c");
    SendMessageW(child, WM_APP, reinterpret_cast<WPARAM>(top_), 0);
    EXPECT_FALSE(IsWindow(child));
    EXPECT_FALSE(IsWindow(top_));
}

}  // namespace
