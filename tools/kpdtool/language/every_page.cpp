// Pages are made as a sheet makes them, but without it: nobody is there to close one.
#include "every_page.h"

#include "core/module.h"
#include "core/page_table.h"
#include "resources/resource.h"
#include "tools/computer/sample_library.h"
#include "tools/kpdtool/hidden_window.h"
#include "tools/kpdtool/printer_context.h"
#include "tools/kpdtool/temporary_printer.h"
#include "tools/kpdtool/tool_error.h"
#include "tools/kpdtool/wide_text.h"
#include "ui/common/language.h"
#include "ui/pages/import_export/settings_parts_dialog.h"
#include "ui/pages/tools/advance_tool.h"

#include <commctrl.h>
#include <prsht.h>

#include <algorithm>

namespace kpdtool {
namespace {

// ---- Pages --------------------------------------------------------------------------------------

/// What stands for the sheet.
class Frame {
  public:
    Frame()
        : window_(CreateWindowExW(0, TEXT("Static"), TEXT(""), WS_POPUP, 0, 0, 500, 400, nullptr,
                                  nullptr, nullptr, nullptr)) {}
    ~Frame() { DestroyWindow(window_); }
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;

    HWND get() const { return window_; }

  private:
    HWND window_;
};

void OpenPage(const PageRow& row, DriverContext& context, const LookAtPage& look) {
    WCHAR title[kPageTitleLength];
    LookupPageTitle(row, title);
    const Frame frame;
    PROPSHEETPAGEW record = {};
    record.lParam = reinterpret_cast<LPARAM>(&context);
    HWND page = CreateDialogParamW(ModuleHandle, MAKEINTRESOURCEW(row.Dialog), frame.get(),
                                   row.Procedure, reinterpret_cast<LPARAM>(&record));
    if (page == nullptr) {
        throw ToolError(ToUtf8(row.Title) + ": the page cannot be made");
    }
    NMHDR activated = {frame.get(), 0, static_cast<UINT>(PSN_SETACTIVE)};
    SendMessageW(page, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&activated));
    look(page, ToUtf8(row.Title));
}

// ---- Dialogs ------------------------------------------------------------------------------------

/// Looks at the modal dialog that is opened while this lives, from its own message loop, and closes
/// it.
class DialogVisit {
  public:
    /// The dialog is known by a control.
    DialogVisit(int control, const std::string& name, const LookAtPage& look)
        : control_(control), name_(name), look_(look) {
        PostMessageW(window_.get(), WM_APP, 0, 0);
    }
    DialogVisit(const DialogVisit&) = delete;
    DialogVisit& operator=(const DialogVisit&) = delete;

    /// Throws ToolError when no dialog came.
    void Require() const {
        if (dialog_ == nullptr) {
            throw ToolError(name_ + ": the dialog does not open");
        }
    }

  private:
    static BOOL CALLBACK TakeDialog(HWND window, LPARAM given) {
        auto& visit = *reinterpret_cast<DialogVisit*>(given);
        if (GetDlgItem(window, visit.control_) == nullptr) {
            return TRUE;
        }
        visit.dialog_ = window;
        return FALSE;
    }
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message != WM_APP) {
            return DefWindowProcW(window, message, wParam, lParam);
        }
        auto& visit = *reinterpret_cast<DialogVisit*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        EnumThreadWindows(GetCurrentThreadId(), TakeDialog, reinterpret_cast<LPARAM>(&visit));
        if (visit.dialog_ != nullptr) {
            visit.look_(visit.dialog_, visit.name_);
            PostMessageW(visit.dialog_, WM_COMMAND, IDCANCEL, 0);
        }
        return 0;
    }

    const int control_;
    const std::string name_;
    const LookAtPage& look_;
    HiddenWindow window_{TEXT("KpdtoolVisit"), Procedure, this};
    HWND dialog_ = nullptr;
};

void OpenPartsDialog(DWORD parts, const std::string& name, const LookAtPage& look) {
    const DialogVisit visit(IDC_COLOR_PART, name, look);
    SetSection(kImportExportSection);
    RunSettingsPartsDialog(nullptr, &parts);
    visit.Require();
}

// With everything that a model shows in it.
void OpenAdvanceTool(DriverContext& context, const LookAtPage& look) {
    context.IsKP41Family = context.IsKP49 = 1;
    context.WorkingDevMode.Private.PlusRApplication = 1;
    const DialogVisit visit(IDC_MOTOR_1, "Advance Tool", look);
    RunAdvanceTool(nullptr, context);
    visit.Require();
}

void OpenDialogsOfDevice(DriverContext& context, const LookAtPage& look) {
    const computer::SamplePrinter printer("laminator = 1\nfilm 0 = 180 2000 0 100 0 100\n");
    if (!printer.Reason().empty()) {
        throw ToolError(printer.Reason());
    }
    OpenAdvanceTool(context, look);
    OpenPage(PageTable[kLaminationSlot], context, look);
}

}  // namespace

void OpenEveryPage(const LookAtPage& look) {
    constexpr struct {
        const char* model;
        BYTE ribbon;
    } kKinds[] = {{"Mirv KP-41", kRibbonYMCKO}, {"Mirv KP-43", kRibbonK}};
    ModuleHandle = GetModuleHandleW(nullptr);
    const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_WIN95_CLASSES};
    InitCommonControlsEx(&classes);
    for (const auto& kind : kKinds) {
        const PrinterArguments names = {kind.model, "kpdtool language"};
        const TemporaryPrinter printer(names.name, names.model);
        std::vector<BYTE> noRecord;
        const OwnedContext context = MakeContext(names, printer.get(), "", noRecord);
        context->WorkingDevMode.Private.RibbonType = kind.ribbon;
        for (const PageRow& row : PageTable) {
            if (row.IsAdded(*context)) {
                OpenPage(row, *context, look);
            }
        }
        if (context->IsKP43Family == 0) {
            OpenPartsDialog(0, "Export Driver Setting", look);
            OpenPartsDialog(3, "Import Driver Setting", look);
            OpenDialogsOfDevice(*context, look);
        }
    }
}

std::vector<CutOnPage> CutTextsOfEveryPage() {
    std::vector<CutOnPage> texts;
    OpenEveryPage([&](HWND page, const std::string& name) {
        for (CutText& cut : CutTextsOf(page)) {
            CutOnPage found = {name, std::move(cut)};
            if (std::ranges::find(texts, found) == texts.end()) {
                texts.push_back(std::move(found));
            }
        }
    });
    return texts;
}

}  // namespace kpdtool
