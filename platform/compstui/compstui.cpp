// The common property sheet library, as far as a printer driver relies on it: opens the sheet whose
// pages a driver's sheet function adds, and brings back the result that the pages report. Written
// over the platform's public calls alone, so that it serves natively and on Windows.
#include <windows.h>
#include <compstui.h>
#include <prsht.h>

#include <algorithm>
#include <array>
#include <list>
#include <memory>
#include <string>
#include <vector>

namespace {

using WideString = std::basic_string<WCHAR>;

// Headers that tell a driver of it are not to be had everywhere.
constexpr WORD kReasonBeforeInit = 5;

static_assert(sizeof(PROPSHEETUI_INFO) == 48);
static_assert(sizeof(PROPSHEETUI_INFO_HEADER) == 40);
static_assert(sizeof(SETRESULT_INFO) == 24);

// The template of a page for which a driver names none.
class EmptyTemplate {
  public:
    EmptyTemplate() { SetTitle(TEXT("")); }
    // Until the sheet is opened: the sheet reads the template then.
    void SetTitle(const WideString& title) {
        constexpr DWORD kStyle = WS_CHILD | WS_CAPTION | DS_3DLOOK | DS_CONTROL;
        constexpr WORD kWidth = 252;
        constexpr WORD kHeight = 218;
        words_ = {LOWORD(kStyle), HIWORD(kStyle), 0, 0, 0, 0, 0, kWidth, kHeight, 0, 0};
        std::copy_n(title.begin(), std::min(title.size(), kLongestTitle), words_.begin() + 11);
    }
    LPCDLGTEMPLATEW Get() const { return reinterpret_cast<LPCDLGTEMPLATEW>(words_.data()); }

  private:
    static constexpr size_t kLongestTitle = 100;
    alignas(DWORD) std::array<WORD, 11 + kLongestTitle + 1> words_;
};

INT_PTR CALLBACK EmptyPageProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

// A page on the way to the sheet. Its address is the handle that the sheet function knows it by.
struct Page {
    HPROPSHEETPAGE handle = nullptr;
    std::unique_ptr<EmptyTemplate> empty;
};

// The sheet function and its pages. Its address is the handle by which the function calls back.
struct Session {
    PFNPROPSHEETUI function = nullptr;
    PROPSHEETUI_INFO info = {};
    std::list<Page> pages;
    bool opened = false;

    LONG Call(WORD reason, LPARAM parameter) {
        info.Reason = reason;
        return function(&info, parameter);
    }
    ~Session() {
        for (const Page& page : pages) {
            if (!opened) {  // no sheet has taken it
                DestroyPropertySheetPage(page.handle);
            }
        }
        Call(PROPSHEETUI_REASON_DESTROY, 0);
    }
};

LONG_PTR AddPage(Session& session, const PROPSHEETPAGEW* given) {
    if (given == nullptr || session.opened || session.pages.size() >= MAXPROPPAGES) {
        return 0;
    }
    PROPSHEETPAGEW page = {};
    std::unique_ptr<EmptyTemplate> empty;
    // A page of a template and a procedure, or of nothing at all.
    if (given->pszTemplate == nullptr && given->pfnDlgProc == nullptr) {
        empty = std::make_unique<EmptyTemplate>();
        page.dwSize = sizeof(page);
        page.dwFlags = PSP_DLGINDIRECT;
        page.hInstance = given->hInstance;
        page.pResource = empty->Get();
        page.pfnDlgProc = EmptyPageProcedure;
        given = &page;
    }
    const HPROPSHEETPAGE handle = CreatePropertySheetPageW(given);
    if (handle == nullptr) {
        return 0;
    }
    session.pages.push_back({handle, std::move(empty)});
    return reinterpret_cast<LONG_PTR>(&session.pages.back());
}

// Tells the sheet function what one of its pages reports. Gives how many functions were told.
LONG_PTR SetResult(Session& session, LPARAM handle, LPARAM result) {
    const bool known = std::ranges::any_of(
        session.pages, [&](const Page& page) { return reinterpret_cast<LPARAM>(&page) == handle; });
    if (!known) {
        return 0;
    }
    SETRESULT_INFO told = {};
    told.cbSize = sizeof(told);
    told.hSetResult = reinterpret_cast<HANDLE>(handle);
    told.Result = result;
    session.Call(PROPSHEETUI_REASON_SET_RESULT, reinterpret_cast<LPARAM>(&told));
    return 1;
}

LONG_PTR CALLBACK ComPropSheet(HANDLE sheet, UINT function, LPARAM first, LPARAM second) {
    if (sheet == nullptr) {
        return ERR_CPSUI_INVALID_PDATA;
    }
    Session& session = *static_cast<Session*>(sheet);
    switch (function) {
        case CPSFUNC_ADD_PROPSHEETPAGEW:
            return AddPage(session, reinterpret_cast<const PROPSHEETPAGEW*>(first));
        case CPSFUNC_SET_RESULT:
            return SetResult(session, first, second);
        default:
            return ERR_CPSUI_FUNCTION_NOT_IMPLEMENTED;
    }
}

// Has the sheet function add its pages. Gives what it answers.
LONG Initialise(Session& session, LPARAM parameter) {
    session.info.cbSize = sizeof(session.info);
    session.info.lParamInit = parameter;
    session.Call(kReasonBeforeInit, parameter);

    session.info = {};
    session.info.cbSize = sizeof(session.info);
    session.info.Version = PROPSHEETUI_INFO_VERSION;
    session.info.Flags = PSUIINFO_UNICODE;
    session.info.hComPropSheet = &session;
    session.info.pfnComPropSheet = ComPropSheet;
    session.info.lParamInit = parameter;
    session.info.Result = CPSUI_CANCEL;
    return session.Call(PROPSHEETUI_REASON_INIT, parameter);
}

// Shows the sheet with all pages until it is closed. Gives what PropertySheetW gives, or an error.
INT_PTR Open(Session& session, HWND owner) {
    PROPSHEETUI_INFO_HEADER asked = {};
    asked.cbSize = sizeof(asked);
    asked.hWndParent = owner;
    const LONG status =
        session.Call(PROPSHEETUI_REASON_GET_INFO_HEADER, reinterpret_cast<LPARAM>(&asked));
    if (status <= 0) {
        return std::min(status, LONG{ERR_CPSUI_GETLASTERROR});
    }
    if (session.pages.empty()) {
        return ERR_CPSUI_NO_PROPSHEETPAGE;
    }
    PROPSHEETHEADERW header = {};
    header.dwSize = sizeof(header);
    header.dwFlags = ((asked.Flags & PSUIHDRF_NOAPPLYNOW) != 0 ? PSH_NOAPPLYNOW : 0) |
                     ((asked.Flags & PSUIHDRF_PROPTITLE) != 0 ? PSH_PROPTITLE : 0);
    header.hwndParent = asked.hWndParent;
    header.hInstance = asked.hInst;
    header.pszCaption = asked.pTitle;
    std::vector<HPROPSHEETPAGE> handles;
    for (Page& page : session.pages) {
        if (page.empty != nullptr && !IS_INTRESOURCE(asked.pTitle)) {
            page.empty->SetTitle(asked.pTitle);
        }
        handles.push_back(page.handle);
    }
    header.nPages = static_cast<UINT>(handles.size());
    header.phpage = handles.data();
    session.opened = true;
    return PropertySheetW(&header);
}

}  // namespace

LONG APIENTRY CommonPropertySheetUIW(HWND owner, PFNPROPSHEETUI function, LPARAM parameter,
                                     LPDWORD result) {
    if (function == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return ERR_CPSUI_GETLASTERROR;
    }
    DWORD ignored;
    DWORD& outcome = result == nullptr ? ignored : *result;
    outcome = CPSUI_CANCEL;
    Session session = {function, {}, {}, false};
    LONG_PTR status = Initialise(session, parameter);
    if (status > 0) {
        status = Open(session, owner);
        if (status >= 0) {
            outcome = static_cast<DWORD>(session.info.Result);
            return 1;
        }
    }
    return static_cast<LONG>(std::min(status, LONG_PTR{ERR_CPSUI_GETLASTERROR}));
}
