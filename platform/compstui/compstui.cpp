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

struct Session;

// A sheet function: the one the sheet is opened with, or one that another added. Its address is the
// handle by which the function calls back.
struct Node {
    Session* session = nullptr;
    Node* parent = nullptr;
    PFNPROPSHEETUI function = nullptr;
    PROPSHEETUI_INFO info = {};

    LONG Call(WORD reason, LPARAM parameter) {
        info.Reason = reason;
        return function(&info, parameter);
    }
};

// A page on the way to the sheet. Its address is the handle that its sheet function knows it by.
struct Page {
    Node* owner = nullptr;
    HPROPSHEETPAGE handle = nullptr;
    std::unique_ptr<EmptyTemplate> empty;
};

struct Session {
    std::list<Node> nodes;  // each after the one that added it
    std::list<Page> pages;
    bool opened = false;

    ~Session() { Withdraw(0, 0); }
    void Withdraw(size_t pagesKept, size_t nodesKept);
};

// Takes back what was added last, down to what is kept: pages that no sheet was given yet, and the
// functions, which release what they hold.
void Session::Withdraw(size_t pagesKept, size_t nodesKept) {
    for (; pages.size() > pagesKept; pages.pop_back()) {
        if (!opened) {
            DestroyPropertySheetPage(pages.back().handle);
        }
    }
    for (; nodes.size() > nodesKept; nodes.pop_back()) {
        nodes.back().Call(PROPSHEETUI_REASON_DESTROY, 0);
    }
}

LONG_PTR CALLBACK ComPropSheet(HANDLE sheet, UINT function, LPARAM first, LPARAM second);

// Makes a sheet function known and has it add its pages. Gives its handle, or null with the error.
Node* AddFunction(Session& session, Node* parent, PFNPROPSHEETUI function, LPARAM parameter,
                  LONG* error) {
    const size_t pagesBefore = session.pages.size();
    const size_t nodesBefore = session.nodes.size();
    Node& node = session.nodes.emplace_back();
    node = {&session, parent, function, {}};
    node.info.cbSize = sizeof(node.info);
    node.info.lParamInit = parameter;
    node.Call(kReasonBeforeInit, parameter);

    node.info = {};
    node.info.cbSize = sizeof(node.info);
    node.info.Version = PROPSHEETUI_INFO_VERSION;
    node.info.Flags = PSUIINFO_UNICODE;
    node.info.hComPropSheet = &node;
    node.info.pfnComPropSheet = ComPropSheet;
    node.info.lParamInit = parameter;
    node.info.Result = CPSUI_CANCEL;
    const LONG status = node.Call(PROPSHEETUI_REASON_INIT, parameter);
    if (status > 0) {
        return &node;
    }
    *error = std::min(status, LONG{ERR_CPSUI_GETLASTERROR});
    session.Withdraw(pagesBefore, nodesBefore);
    return nullptr;
}

LONG_PTR AddPage(Node& node, HPROPSHEETPAGE handle, std::unique_ptr<EmptyTemplate> empty) {
    if (handle == nullptr) {
        return 0;
    }
    Page& page = node.session->pages.emplace_back();
    page.owner = &node;
    page.handle = handle;
    page.empty = std::move(empty);
    return reinterpret_cast<LONG_PTR>(&page);
}

LONG_PTR AddDescribedPage(Node& node, const PROPSHEETPAGEW* given) {
    if (given == nullptr) {
        return 0;
    }
    // A page of a template and a procedure, or of nothing at all.
    if (given->pszTemplate != nullptr || given->pfnDlgProc != nullptr) {
        return AddPage(node, CreatePropertySheetPageW(given), nullptr);
    }
    auto empty = std::make_unique<EmptyTemplate>();
    PROPSHEETPAGEW page = {};
    page.dwSize = sizeof(page);
    page.dwFlags = PSP_DLGINDIRECT;
    page.hInstance = given->hInstance;
    page.pResource = empty->Get();
    page.pfnDlgProc = EmptyPageProcedure;
    return AddPage(node, CreatePropertySheetPageW(&page), std::move(empty));
}

// Tells the function that owns the page, and those above it, what the page reports: each what the
// one below made of it. Gives how many were told.
LONG_PTR SetResult(Node& caller, LPARAM handle, LPARAM result) {
    const auto& pages = caller.session->pages;
    const auto page = std::find_if(pages.begin(), pages.end(), [&](const Page& candidate) {
        return reinterpret_cast<LPARAM>(&candidate) == handle;
    });
    if (page == pages.end()) {
        return 0;
    }
    SETRESULT_INFO told = {};
    told.cbSize = sizeof(told);
    told.hSetResult = reinterpret_cast<HANDLE>(handle);
    told.Result = result;
    LONG_PTR count = 0;
    for (Node* node = page->owner; node != nullptr; node = node->parent) {
        ++count;
        if (node->Call(PROPSHEETUI_REASON_SET_RESULT, reinterpret_cast<LPARAM>(&told)) <= 0) {
            break;
        }
        told.hSetResult = node;
        told.Result = static_cast<LRESULT>(node->info.Result);
    }
    return count;
}

LONG_PTR CALLBACK ComPropSheet(HANDLE sheet, UINT function, LPARAM first, LPARAM second) {
    if (sheet == nullptr) {
        return ERR_CPSUI_INVALID_PDATA;
    }
    Node& node = *static_cast<Node*>(sheet);
    Session& session = *node.session;
    const bool adds = function == CPSFUNC_ADD_HPROPSHEETPAGE ||
                      function == CPSFUNC_ADD_PROPSHEETPAGEW ||
                      function == CPSFUNC_ADD_PFNPROPSHEETUIW;
    if (adds && (session.opened || session.pages.size() >= MAXPROPPAGES)) {
        return 0;
    }
    switch (function) {
        case CPSFUNC_ADD_HPROPSHEETPAGE:
            return AddPage(node, reinterpret_cast<HPROPSHEETPAGE>(first), nullptr);
        case CPSFUNC_ADD_PROPSHEETPAGEW:
            return AddDescribedPage(node, reinterpret_cast<const PROPSHEETPAGEW*>(first));
        case CPSFUNC_ADD_PFNPROPSHEETUIW: {
            LONG error;
            return first == 0 ? 0
                              : reinterpret_cast<LONG_PTR>(AddFunction(
                                    session, &node, reinterpret_cast<PFNPROPSHEETUI>(first), second,
                                    &error));
        }
        case CPSFUNC_SET_RESULT:
            return SetResult(node, first, second);
        default:
            return ERR_CPSUI_FUNCTION_NOT_IMPLEMENTED;
    }
}

// Shows the sheet with all pages until it is closed. Gives what PropertySheetW gives, or an error.
INT_PTR Open(Session& session, HWND owner) {
    PROPSHEETUI_INFO_HEADER asked = {};
    asked.cbSize = sizeof(asked);
    asked.hWndParent = owner;
    const LONG status = session.nodes.front().Call(PROPSHEETUI_REASON_GET_INFO_HEADER,
                                                   reinterpret_cast<LPARAM>(&asked));
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
    Session session;
    LONG error = 0;
    const Node* root = AddFunction(session, nullptr, function, parameter, &error);
    if (root == nullptr) {
        return error;
    }
    const INT_PTR closed = Open(session, owner);
    if (closed < 0) {
        return static_cast<LONG>(closed);
    }
    outcome = static_cast<DWORD>(root->info.Result);
    return 1;
}
