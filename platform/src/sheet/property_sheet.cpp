// Property sheets: a dialog of a tab control, the pages under it and the buttons below them.
#include <windows.h>
#include <commctrl.h>
#include <prsht.h>

#include <algorithm>

#include "sheet/page.h"

namespace {

using host::WideString;

constexpr int kApplyNow = 0x3021;
constexpr int kTabs = 0x3020;
constexpr int kNoPage = -1;
constexpr UINT kLastMessage = WM_USER + 0x8F;  // of a sheet's own, from PSM_SETCURSEL on
constexpr DWORD kKnownFlags = PSH_PROPTITLE | PSH_NOAPPLYNOW;

struct Item {
    DWORD style;
    int id;
    const WCHAR* className;
    const WCHAR* text;
};
// In the order of the keyboard. Their places follow from the pages' size.
constexpr Item kItems[] = {
    {BS_DEFPUSHBUTTON | WS_TABSTOP | WS_GROUP | WS_VISIBLE, IDOK, TEXT("Button"), TEXT("OK")},
    {BS_PUSHBUTTON | WS_TABSTOP | WS_VISIBLE, IDCANCEL, TEXT("Button"), TEXT("Cancel")},
    {BS_PUSHBUTTON | WS_TABSTOP | WS_DISABLED, kApplyNow, TEXT("Button"), TEXT("&Apply")},
    {BS_PUSHBUTTON | WS_TABSTOP | WS_GROUP | WS_DISABLED, IDHELP, TEXT("Button"), TEXT("Help")},
    {TCS_MULTILINE | WS_TABSTOP | WS_GROUP | WS_VISIBLE | WS_CLIPSIBLINGS, kTabs, WC_TABCONTROLW,
     TEXT("")},
};
constexpr int kButtons[] = {IDOK, IDCANCEL, kApplyNow, IDHELP};
// In dialog units.
constexpr RECT kMargin = {4, 4, 0, 0};
constexpr RECT kButton = {0, 0, 50, 14};
constexpr RECT kLeastTabs = {0, 0, 212, 114};

void AddWords(std::vector<WORD>& words, std::initializer_list<DWORD> numbers) {
    for (const DWORD number : numbers) {
        words.push_back(LOWORD(number));
    }
}

void AddText(std::vector<WORD>& words, const WideString& text) {
    words.insert(words.end(), text.begin(), text.end());
    words.push_back(0);
}

std::vector<WORD> SheetTemplate() {
    const DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT |
                        DS_3DLOOK | DS_CONTEXTHELP;
    std::vector<WORD> words;
    AddWords(words, {style, HIWORD(style), 0, 0, std::size(kItems), 0, 0, 220, 140, 0, 0});
    AddText(words, {});
    AddWords(words, {8});
    AddText(words, TEXT("MS Shell Dlg"));
    for (const Item& item : kItems) {
        words.resize((words.size() + 1) / 2 * 2);
        const DWORD itemStyle = item.style | WS_CHILD;
        AddWords(words, {itemStyle, HIWORD(itemStyle), 0, 0, 0, 0, kButton.right, kButton.bottom,
                         static_cast<DWORD>(item.id)});
        AddText(words, item.className);
        AddText(words, item.text);
        AddWords(words, {0});
    }
    return words;
}

class Sheet {
  public:
    explicit Sheet(const PROPSHEETHEADERW& header);
    ~Sheet();
    INT_PTR Run();
    INT_PTR Handle(UINT message, WPARAM wParam, LPARAM lParam);

    HWND window = nullptr;

  private:
    void TakePage(HPROPSHEETPAGE page);
    void Initialise();
    void SetTitle();
    void InsertTab(int index);

    SIZE Units(const RECT& units) const;
    void Arrange();
    int ArrangeTabs(SIZE margin, int buttonsWidth);
    void PlacePage(const _PSP& page) const;
    HWND Item(int id) const { return GetDlgItem(window, id); }

    bool MakePage(int index);
    int FirstAgreeing(int index);
    bool Show(int index);
    void Unveil(int index);
    bool Leave() { return active_ == kNoPage || Notify(active_, PSN_KILLACTIVE) == 0; }
    bool Select(int index) { return Page(index) != nullptr && Leave() && Show(index); }
    void FocusOnPage();
    LRESULT Notify(int index, UINT code, LPARAM parameter = 0);

    void Press(int id);
    bool ApplyPages(bool close);
    bool Apply(bool close);
    void Cancel(bool byFrame);
    void Close(INT_PTR result);
    void SetChanged(HWND page);
    void DestroyPages();

    bool Answer(UINT message, WPARAM wParam, LRESULT& result);
    LRESULT HearTabs(UINT code);

    int Count() const { return static_cast<int>(pages_.size()); }
    _PSP* Page(int index) const {
        return index >= 0 && index < Count() ? pages_[static_cast<size_t>(index)] : nullptr;
    }
    template <typename Test>
    int IndexWhere(Test test) const {
        const auto found = std::find_if(pages_.begin(), pages_.end(), test);
        return found == pages_.end() ? kNoPage : static_cast<int>(found - pages_.begin());
    }
    int IndexOf(HWND page) const {
        return IndexWhere(
            [&](const _PSP* candidate) { return page != nullptr && candidate->window == page; });
    }

    const PROPSHEETHEADERW& header_;
    std::vector<_PSP*> pages_;
    int active_ = kNoPage;
    INT_PTR result_ = 0;
    bool ended_ = false;
};

INT_PTR CALLBACK SheetProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        reinterpret_cast<Sheet*>(lParam)->window = window;
    }
    auto* sheet = reinterpret_cast<Sheet*>(GetWindowLongPtrW(window, DWLP_USER));
    return sheet == nullptr ? FALSE : sheet->Handle(message, wParam, lParam);
}

// Pages whose template is not there are left out.
Sheet::Sheet(const PROPSHEETHEADERW& header) : header_(header) {
    for (UINT i = 0; i < header.nPages; ++i) {
        TakePage(header.phpage[i]);
    }
}

Sheet::~Sheet() {
    DestroyPages();
}

void Sheet::TakePage(HPROPSHEETPAGE page) {
    if (!host::TakeSheetPage(page)) {
        return;
    }
    if (host::PrepareSheetPage(*page)) {
        pages_.push_back(page);
    } else {
        host::DeleteSheetPage(page);
    }
}

// ---- Opening ----------------------------------------------------------------------------------

INT_PTR Sheet::Run() {
    if (pages_.empty()) {
        return -1;
    }
    std::vector<WORD> layout = SheetTemplate();
    auto* dialog = reinterpret_cast<DLGTEMPLATE*>(layout.data());
    const HWND owner = header_.hwndParent;
    if (CreateDialogIndirectParamW(header_.hInstance, dialog, owner, SheetProcedure,
                                   reinterpret_cast<LPARAM>(this)) == nullptr) {
        return -1;
    }
    if (active_ == kNoPage) {
        DestroyWindow(window);
        return -1;
    }
    const bool disables = owner != nullptr && IsWindowEnabled(owner);
    if (disables) {
        EnableWindow(owner, FALSE);
    }
    ShowWindow(window, SW_SHOW);
    FocusOnPage();
    MSG message;
    while (!ended_) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (!IsDialogMessageW(window, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    if (disables) {
        EnableWindow(owner, TRUE);
    }
    if (window != nullptr) {
        DestroyWindow(window);
    }
    return result_;
}

void Sheet::Initialise() {
    SetTitle();
    for (int i = 0; i < Count(); ++i) {
        InsertTab(i);
    }
    if ((header_.dwFlags & PSH_NOAPPLYNOW) == 0) {
        ShowWindow(Item(kApplyNow), SW_SHOW);
    }
    const auto hasHelp = [](const _PSP* page) { return page->Has(PSP_HASHELP); };
    if (IndexWhere(hasHelp) != kNoPage) {
        ShowWindow(Item(IDHELP), SW_SHOW);
    }
    Arrange();
    const int asked = static_cast<int>(header_.nStartPage);
    const int start = Page(asked) == nullptr ? 0 : asked;
    // A page that cannot be made gives its turn to the others.
    for (int i = 0; i < Count() && !Show((start + i) % Count()); ++i) {
    }
}

void Sheet::SetTitle() {
    const LPCWSTR caption = header_.pszCaption;
    if (caption != nullptr && IS_INTRESOURCE(caption)) {
        host::Unsupported("property sheet with a caption by number");
    }
    WideString title = caption == nullptr ? TEXT("") : caption;
    if ((header_.dwFlags & PSH_PROPTITLE) != 0) {
        title += TEXT(" Properties");
    }
    SetWindowTextW(window, title.c_str());
}

void Sheet::InsertTab(int index) {
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = Page(index)->title.data();
    SendMessageW(Item(kTabs), TCM_INSERTITEMW, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&item));
}

// ---- Places -----------------------------------------------------------------------------------

SIZE Sheet::Units(const RECT& units) const {
    RECT rect = {0, 0, units.right, units.bottom};
    MapDialogRect(window, &rect);
    return {rect.right, rect.bottom};
}

// Makes the tab control as large as the largest page needs, and puts it in the corner. Gives its
// lower edge.
int Sheet::ArrangeTabs(SIZE margin, int buttonsWidth) {
    SIZE largest = {};
    for (const _PSP* page : pages_) {
        const SIZE size = Units({0, 0, page->size.cx, page->size.cy});
        largest = {std::max(largest.cx, size.cx), std::max(largest.cy, size.cy)};
    }
    const SIZE least = Units(kLeastTabs);
    const HWND tabs = Item(kTabs);
    SIZE size = least;
    // The second time the width is known, and with it how many rows of tabs there are.
    for (int i = 0; i < 2; ++i) {
        RECT rect = {0, 0, largest.cx, largest.cy};
        SendMessageW(tabs, TCM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&rect));
        size = {std::max({rect.right - rect.left, least.cx, LONG{buttonsWidth}}),
                std::max(rect.bottom - rect.top, least.cy)};
        SetWindowPos(tabs, nullptr, margin.cx, margin.cy, size.cx, size.cy,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
    return margin.cy + size.cy;
}

void Sheet::Arrange() {
    const SIZE margin = Units({0, 0, kMargin.left, kMargin.top});
    const SIZE button = Units(kButton);
    std::vector<HWND> buttons;
    for (const int id : kButtons) {
        const HWND item = Item(id);
        if ((GetWindowLongW(item, GWL_STYLE) & static_cast<LONG>(WS_VISIBLE)) != 0) {
            buttons.push_back(item);
        }
    }
    const int count = static_cast<int>(buttons.size());
    const int buttonsWidth = count * button.cx + (count - 1) * margin.cx;
    const int top = ArrangeTabs(margin, buttonsWidth) + margin.cy;
    RECT tabs;
    GetClientRect(Item(kTabs), &tabs);
    const int right = margin.cx + tabs.right;
    int left = right - buttonsWidth;
    for (const HWND item : buttons) {
        SetWindowPos(item, nullptr, left, top, button.cx, button.cy, SWP_NOZORDER | SWP_NOACTIVATE);
        left += button.cx + margin.cx;
    }
    RECT frame;
    RECT client;
    GetWindowRect(window, &frame);
    GetClientRect(window, &client);
    SetWindowPos(window, nullptr, 0, 0, frame.right - frame.left - client.right + right + margin.cx,
                 frame.bottom - frame.top - client.bottom + top + button.cy + margin.cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    for (const _PSP* page : pages_) {
        PlacePage(*page);
    }
}

void Sheet::PlacePage(const _PSP& page) const {
    if (page.window == nullptr) {
        return;
    }
    const HWND tabs = Item(kTabs);
    RECT rect;
    GetClientRect(tabs, &rect);
    SendMessageW(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&rect));
    MapWindowPoints(tabs, window, reinterpret_cast<LPPOINT>(&rect), 2);
    SetWindowPos(page.window, HWND_TOP, rect.left, rect.top, rect.right - rect.left,
                 rect.bottom - rect.top, SWP_NOACTIVATE);
}

// ---- Pages ------------------------------------------------------------------------------------

bool Sheet::MakePage(int index) {
    _PSP& page = *Page(index);
    if (page.window != nullptr) {
        return true;
    }
    page.window = CreateDialogIndirectParamW(
        page.page.hInstance, reinterpret_cast<LPCDLGTEMPLATEW>(page.layout.data()), window,
        page.page.pfnDlgProc, reinterpret_cast<LPARAM>(&page.page));
    PlacePage(page);
    return page.window != nullptr;
}

// From this page on, the first that agrees to be shown; the last is shown in any case. Gives none
// when one cannot be made.
int Sheet::FirstAgreeing(int index) {
    for (;; ++index) {
        if (!MakePage(index)) {
            return kNoPage;
        }
        const bool refuses = Notify(index, PSN_SETACTIVE) == -1;
        if (!refuses || index + 1 == Count()) {
            return index;
        }
    }
}

// The page before has been left. When the page cannot be shown, it is shown again.
bool Sheet::Show(int index) {
    const int before = active_;
    if (before != kNoPage) {
        ShowWindow(Page(before)->window, SW_HIDE);
    }
    const int shown = FirstAgreeing(index);
    if (shown == kNoPage) {
        if (before != kNoPage) {
            Notify(before, PSN_SETACTIVE);
            Unveil(before);
        }
        return false;
    }
    Unveil(shown);
    return true;
}

// Shows the page in the place of the active one without telling either.
void Sheet::Unveil(int index) {
    if (active_ != kNoPage && active_ != index) {
        ShowWindow(Page(active_)->window, SW_HIDE);
    }
    active_ = index;
    const _PSP& page = *Page(index);
    SendMessageW(Item(kTabs), TCM_SETCURSEL, static_cast<WPARAM>(index), 0);
    EnableWindow(Item(IDHELP), page.Has(PSP_HASHELP));
    SetWindowPos(page.window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ShowWindow(page.window, SW_SHOW);
    if (IsWindowVisible(window) && GetFocus() != Item(kTabs)) {
        FocusOnPage();
    }
}

void Sheet::FocusOnPage() {
    const HWND page = Page(active_)->window;
    const HWND control = GetNextDlgTabItem(page, nullptr, FALSE);
    SetFocus(control != nullptr && IsChild(page, control) ? control : Item(IDOK));
}

LRESULT Sheet::Notify(int index, UINT code, LPARAM parameter) {
    PSHNOTIFY notification = {{window, 0, code}, parameter};
    return SendMessageW(Page(index)->window, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
}

void Sheet::DestroyPages() {
    // Pages may send the sheet messages to their last moment.
    while (!pages_.empty()) {
        _PSP* page = pages_.front();
        active_ = kNoPage;
        pages_.erase(pages_.begin());
        if (page->window != nullptr) {
            DestroyWindow(page->window);
        }
        host::DeleteSheetPage(page);
    }
}

// ---- Buttons ----------------------------------------------------------------------------------

void Sheet::Press(int id) {
    switch (id) {
        case IDOK:
            if (Apply(true)) {
                Close(1);
            }
            return;
        case kApplyNow:
            Apply(false);
            return;
        case IDCANCEL:
            Cancel(false);
            return;
        case IDHELP:
            if (active_ != kNoPage) {
                Notify(active_, PSN_HELP);
            }
            return;
    }
}

// A page that refuses is shown, or left where it is, as it says.
bool Sheet::ApplyPages(bool close) {
    for (int i = 0; i < Count(); ++i) {
        if (Page(i)->window == nullptr) {
            continue;
        }
        const LRESULT answer = Notify(i, PSN_APPLY, close);
        if (answer == PSNRET_INVALID && i != active_) {
            Unveil(i);
        }
        if (answer == PSNRET_INVALID || answer == PSNRET_INVALID_NOCHANGEPAGE) {
            return false;
        }
    }
    return true;
}

bool Sheet::Apply(bool close) {
    if (!Leave() || !ApplyPages(close)) {
        return false;
    }
    if (close || active_ == kNoPage) {
        return true;
    }
    if (GetFocus() == Item(kApplyNow)) {
        FocusOnPage();
    }
    EnableWindow(Item(kApplyNow), FALSE);
    Notify(active_, PSN_SETACTIVE);
    return true;
}

void Sheet::Cancel(bool byFrame) {
    if (active_ != kNoPage && Notify(active_, PSN_QUERYCANCEL) != 0) {
        return;
    }
    for (int i = 0; i < Count(); ++i) {
        if (Page(i)->window != nullptr) {
            Notify(i, PSN_RESET, byFrame);
        }
    }
    Close(0);
}

void Sheet::Close(INT_PTR result) {
    result_ = result;
    ended_ = true;
}

void Sheet::SetChanged(HWND page) {
    if (IndexOf(page) != kNoPage) {
        EnableWindow(Item(kApplyNow), TRUE);
    }
}

// ---- Messages ---------------------------------------------------------------------------------

INT_PTR Sheet::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    switch (message) {
        case WM_INITDIALOG:
            Initialise();
            return FALSE;  // the focus is set when the sheet is shown
        case WM_COMMAND:
            Press(LOWORD(wParam));
            return TRUE;
        case WM_CLOSE:
            Cancel(true);
            return TRUE;
        case WM_DESTROY:
            DestroyPages();
            window = nullptr;
            ended_ = true;
            return TRUE;
        case WM_NOTIFY: {
            const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
            if (header.hwndFrom != Item(kTabs)) {
                return FALSE;
            }
            result = HearTabs(header.code);
            break;
        }
        default:
            if (!Answer(message, wParam, result)) {
                return FALSE;
            }
    }
    SetWindowLongPtrW(window, DWLP_MSGRESULT, result);
    return TRUE;
}

LRESULT Sheet::HearTabs(UINT code) {
    if (code == TCN_SELCHANGING) {
        return Leave() ? FALSE : TRUE;
    }
    if (code == TCN_SELCHANGE) {
        Show(static_cast<int>(SendMessageW(Item(kTabs), TCM_GETCURSEL, 0, 0)));
    }
    return 0;
}

// False when the message is none of a sheet's.
bool Sheet::Answer(UINT message, WPARAM wParam, LRESULT& result) {
    constexpr int kPressed[] = {0, 0, 0, IDOK, kApplyNow, IDCANCEL, IDHELP};
    switch (message) {
        case PSM_CHANGED:
            SetChanged(reinterpret_cast<HWND>(wParam));
            return true;
        case PSM_SETCURSEL:
            result = Select(static_cast<int>(wParam));
            return true;
        case PSM_PRESSBUTTON:
            if (wParam >= std::size(kPressed) || kPressed[wParam] == 0) {
                host::Unsupported("property sheet button %u", static_cast<unsigned>(wParam));
            }
            Press(kPressed[wParam]);
            return true;
        case PSM_GETTABCONTROL:
            result = reinterpret_cast<LRESULT>(Item(kTabs));
            return true;
        case PSM_GETCURRENTPAGEHWND:
            result = active_ == kNoPage ? 0 : reinterpret_cast<LRESULT>(Page(active_)->window);
            return true;
        case PSM_INDEXTOID: {
            const _PSP* page = Page(static_cast<int>(wParam));
            result = page == nullptr || page->Has(PSP_DLGINDIRECT)
                         ? 0
                         : reinterpret_cast<LRESULT>(page->page.pszTemplate);
            return true;
        }
    }
    if (message >= PSM_SETCURSEL && message <= kLastMessage) {
        host::Unsupported("property sheet message %#x", message);
    }
    return false;
}

}  // namespace

INT_PTR WINAPI PropertySheetW(LPCPROPSHEETHEADERW header) {
    if (header == nullptr || header->nPages > MAXPROPPAGES) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return -1;
    }
    if ((header->dwFlags & ~kKnownFlags) != 0) {
        host::Unsupported("property sheet with flags %#x", header->dwFlags);
    }
    const bool fails = host::FailsNow(host::Call::kSheet);
    const DWORD error = GetLastError();
    Sheet sheet(*header);  // the pages are the sheet's in any case
    if (fails) {
        SetLastError(error);
        return -1;
    }
    return sheet.Run();
}
