// What each step does, and how expectations are checked.
#include "core/context.h"
#include "picture_file.h"
#include "resource_names.h"
#include "sheet_run.h"
#include "tools/kpdtool/records/stored_record.h"
#include "tools/kpdtool/text_table.h"
#include "tools/kpdtool/tool_error.h"
#include "tools/kpdtool/wide_text.h"
#include "ui/common/language.h"

#include <commctrl.h>
#include <prsht.h>

#include <algorithm>

namespace kpdtool {
namespace {

constexpr int kApplyButton = 0x3021;  // a sheet's own, beside IDOK and IDCANCEL

std::string Quoted(const std::string& text) {
    return '"' + text + '"';
}

std::string Quoted(const std::vector<std::string>& texts) {
    std::string list;
    for (const std::string& text : texts) {
        list += (list.empty() ? "" : ", ") + Quoted(text);
    }
    return list.empty() ? "none" : list;
}

std::string NameOf(const Word& name) {
    const std::string text = name.quoted ? Quoted(name.text) : name.text;
    return text + (name.occurrence > 1 ? '#' + std::to_string(name.occurrence) : "");
}

// "device-option.png" for "Device Option".
std::string FileNameOf(const std::string& title) {
    std::string name;
    for (const char character : title) {
        const bool upper = character >= 'A' && character <= 'Z';
        const bool kept = upper || (character >= 'a' && character <= 'z') ||
                          (character >= '0' && character <= '9');
        name += kept ? static_cast<char>(upper ? character - 'A' + 'a' : character) : '-';
    }
    return name + ".png";
}

LONG StyleOf(const Control& control) {
    return GetWindowLongW(control.window, GWL_STYLE);
}

void Tell(const Control& control, UINT message, unsigned code, int position) {
    SendMessageW(GetParent(control.window), message,
                 MAKEWPARAM(static_cast<WORD>(code), static_cast<WORD>(position)),
                 reinterpret_cast<LPARAM>(control.window));
}

void SendKey(HWND window, int key) {
    SendMessageW(window, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    SendMessageW(window, WM_KEYUP, static_cast<WPARAM>(key), 0xC0000001);
}

void ClickAt(HWND window, int x, int y) {
    const LPARAM place = MAKELPARAM(x, y);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, place);
    SendMessageW(window, WM_LBUTTONUP, 0, place);
}

// Painting waits until nothing else is to do; nothing else is handled here.
void HandlePaints() {
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE)) {
        DispatchMessageW(&message);
    }
}

Pixels PictureOf(HWND window) {
    RECT place;
    GetWindowRect(window, &place);
    Pixels pixels = {place.right - place.left, place.bottom - place.top, {}};
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = pixels.width;
    info.bmiHeader.biHeight = -pixels.height;  // the top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    HDC screen = GetWindowDC(window);
    HDC memory = CreateCompatibleDC(screen);
    void* bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bitmap != nullptr) {
        HGDIOBJ before = SelectObject(memory, bitmap);
        BitBlt(memory, 0, 0, pixels.width, pixels.height, screen, 0, 0, SRCCOPY);
        const auto* rows = static_cast<const std::uint32_t*>(bits);
        pixels.rows.assign(rows, rows + pixels.width * pixels.height);
        SelectObject(memory, before);
        DeleteObject(bitmap);
    }
    DeleteDC(memory);
    ReleaseDC(window, screen);
    return pixels;
}

const DriverContext& ContextOf(HWND page) {
    const auto* context =
        reinterpret_cast<const DriverContext*>(GetWindowLongPtrW(page, DWLP_USER));
    if (!IsValidDriverContext(context)) {
        throw ToolError("the page has no driver context");
    }
    return *context;
}

bool IsValue(const Field& field, Bytes bytes, const std::string& value) {
    const std::string shown = ValueText(field, bytes);
    if (field.IsText()) {
        return shown == Quoted(value);
    }
    const auto number = field.IsArray() ? std::nullopt : NumberIn(value);
    return number ? *number == Number(field, bytes)
                  : value == shown || value == NamesOf(field, bytes);
}

}  // namespace

const SheetRun::StepRow SheetRun::kSteps[] = {
    {Verb::kPage, &SheetRun::ShowPage},
    {Verb::kChoose, &SheetRun::Choose},
    {Verb::kClick, &SheetRun::Click},
    {Verb::kType, &SheetRun::Type},
    {Verb::kKey, &SheetRun::PressKeys},
    {Verb::kScroll, &SheetRun::Scroll},
    {Verb::kScrollTo, &SheetRun::Scroll},
    {Verb::kSlide, &SheetRun::Slide},
    {Verb::kTab, &SheetRun::ClickTab},
    {Verb::kAnswer, &SheetRun::Answer},
    {Verb::kCopyData, &SheetRun::CopyData},
    {Verb::kExpectChecked, &SheetRun::ExpectState},
    {Verb::kExpectUnchecked, &SheetRun::ExpectState},
    {Verb::kExpectEnabled, &SheetRun::ExpectState},
    {Verb::kExpectDisabled, &SheetRun::ExpectState},
    {Verb::kExpectShown, &SheetRun::ExpectState},
    {Verb::kExpectHidden, &SheetRun::ExpectState},
    {Verb::kExpectText, &SheetRun::ExpectText},
    {Verb::kExpectItems, &SheetRun::ExpectItems},
    {Verb::kExpectSelected, &SheetRun::ExpectSelected},
    {Verb::kExpectField, &SheetRun::ExpectField},
    {Verb::kExpectMessage, &SheetRun::ExpectMessage},
    {Verb::kPrintControls, &SheetRun::PrintControls},
    {Verb::kPicture, &SheetRun::TakePicture},
    {Verb::kApply, &SheetRun::PressButton},
    {Verb::kOk, &SheetRun::PressButton},
    {Verb::kCancel, &SheetRun::PressButton},
};

void SheetRun::Do(const Step& step) {
    const bool acts = !IsExpectation(step.verb) && step.verb != Verb::kAnswer &&
                      step.verb != Verb::kPrintControls && step.verb != Verb::kPicture;
    if (acts) {
        HandlePaints();  // a user sees what he acts on
        messages_.clear();
        pressed_ = false;
    }
    (this->*std::ranges::find(kSteps, step.verb, &StepRow::verb)->run)(step);
}

// ---- Finding ----------------------------------------------------------------------------------

std::vector<Control> SheetRun::Controls() const {
    HWND dialog = CurrentDialog();
    const auto module = reinterpret_cast<HMODULE>(GetWindowLongPtrW(dialog, GWLP_HINSTANCE));
    if (dialog == CurrentPage()) {
        const SheetPage* page = PageOf(CurrentTab());
        return ControlsOf(dialog, page == nullptr ? std::vector<TemplateControl>()
                                                  : ReadDialogTemplate(module, page->dialog));
    }
    // A dialog does not tell its template. It is the one that has the dialog's controls.
    std::vector<Control> controls = ControlsOf(dialog, {});
    for (const ResourceName& name : ResourceNames()) {
        const auto english = name.name.starts_with("IDD_") ? ReadDialogTemplate(module, name.number)
                                                           : std::vector<TemplateControl>();
        if (!english.empty() &&
            std::ranges::equal(english, controls, {}, &TemplateControl::id, &Control::id)) {
            return ControlsOf(dialog, english);
        }
    }
    return controls;
}

std::string SheetRun::Translated(const std::string& english) const {
    const SheetPage* page = PageOf(CurrentTab());
    if (english.empty() || page == nullptr) {
        return english;
    }
    auto text = FromUtf8(english);
    for (const auto& section : page->sections) {
        WCHAR found[kTextLength] = {};
        GetPrivateProfileStringW(section.c_str(), text.c_str(), text.c_str(), found, kTextLength,
                                 LanguageFilePath);
        text = found;
    }
    return ToUtf8(text);
}

// A script's text is the English one or, word for word, the one on the screen.
bool SheetRun::Reads(const std::string& shown, const std::string& wanted) const {
    return shown == wanted || shown == Translated(wanted);
}

Control SheetRun::Find(const Word& name, unsigned kinds, const char* wanted) const {
    const std::vector<Control> controls = Controls();
    // A text that the page has put in the place of the template's is known only translated.
    Word translated = name;
    translated.text = name.quoted ? Translated(name.text) : name.text;
    for (const Word& word : {name, translated}) {
        if (const Control* control = FindControl(controls, word, kinds); control != nullptr) {
            return *control;
        }
    }
    const bool otherKind = FindControl(controls, name, kAnyControl) != nullptr;
    throw ToolError(otherKind ? NameOf(name) + " is no " + wanted
                              : "there is no " + std::string(wanted) + ' ' + NameOf(name) + " on " +
                                    WindowText(CurrentDialog()));
}

// One that a user can reach.
Control SheetRun::FindUsable(const Word& name, unsigned kinds, const char* wanted) const {
    const Control control = Find(name, kinds, wanted);
    const char* reason = !IsWindowVisible(control.window)   ? "hidden"
                         : !IsWindowEnabled(control.window) ? "disabled"
                                                            : nullptr;
    if (reason != nullptr) {
        throw ToolError(NameOf(name) + " cannot be used: it is " + reason);
    }
    return control;
}

int SheetRun::ItemNamed(const Control& control, const Word& item) const {
    const std::vector<std::string> items = ItemsOf(control);
    const auto it =
        item.quoted ? std::ranges::find_if(items, [&](auto& i) { return Reads(i, item.text); })
                    : items.begin() + std::min<ptrdiff_t>(*NumberIn(item.text), std::ssize(items));
    if (it == items.end()) {
        throw ToolError("there is no item " + NameOf(item) + "; items are " + Quoted(items));
    }
    return static_cast<int>(it - items.begin());
}

// ---- Acting -----------------------------------------------------------------------------------

void SheetRun::ShowTab(int tab) {
    SendMessageW(sheet_, PSM_SETCURSEL, static_cast<WPARAM>(tab), 0);
    if (CurrentTab() != tab) {
        throw ToolError("the page " + WindowText(CurrentPage()) + " cannot be left");
    }
}

void SheetRun::ShowPage(const Step& step) {
    if (ModalDialog() != nullptr) {
        throw ToolError("a dialog is open: " + WindowText(ModalDialog()));
    }
    const int count = TabCount();
    std::vector<std::string> titles;
    for (int tab = 0; tab < count; ++tab) {
        const SheetPage* page = PageOf(tab);
        titles.push_back(page == nullptr ? "" : page->title);
        if (titles.back() == step.words[0].text) {
            ShowTab(tab);
            return;
        }
    }
    throw ToolError("there is no page " + NameOf(step.words[0]) + "; pages are " + Quoted(titles));
}

// The last step to the item is a key, so that the control itself tells its dialog, once.
void SheetRun::Choose(const Step& step) {
    const Control box = FindUsable(step.words[0], kComboBox | kListBox, "list to choose from");
    const int item = ItemNamed(box, step.words[1]);
    SetFocus(box.window);
    const UINT select = box.kind == kComboBox ? CB_SETCURSEL : LB_SETCURSEL;
    const bool fromBelow = item == 0 && ItemsOf(box).size() > 1;
    SendMessageW(box.window, select, static_cast<WPARAM>(fromBelow ? 1 : item - 1), 0);
    SendKey(box.window, fromBelow ? VK_UP : VK_DOWN);
}

void SheetRun::Click(const Step& step) {
    const Control control = FindUsable(step.words[0], kButton | kStatic, "button");
    if (control.kind == kStatic && (StyleOf(control) & SS_NOTIFY) == 0) {
        throw ToolError(NameOf(step.words[0]) + " is a text that takes no clicks");
    }
    ClickAt(control.window, 1, 1);
}

void SheetRun::Type(const Step& step) {
    const Control control = FindUsable(step.words[0], kEdit, "field to type into");
    HWND edit = control.window;
    if ((StyleOf(control) & ES_READONLY) != 0) {
        throw ToolError(NameOf(step.words[0]) + " takes no typing");
    }
    SetFocus(edit);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    const auto text = FromUtf8(step.words[1].text);
    if (text.empty()) {
        SendKey(edit, VK_DELETE);
    }
    for (const WCHAR character : text) {
        SendMessageW(edit, WM_CHAR, character, 1);
    }
}

void SheetRun::PressKeys(const Step& step) {
    const Control control = FindUsable(step.words[0], kAnyControl & ~unsigned{kStatic | kGroupBox},
                                       "control that takes keys");
    SetFocus(control.window);
    StartKeys(control.window, static_cast<WPARAM>(*KeyNamed(step.words[1].text)),
              step.words.size() > 2 ? *NumberIn(step.words[2].text) : 1);
}

void SheetRun::Scroll(const Step& step) {
    const Control bar = FindUsable(step.words[0], kScrollBar, "scroll bar");
    const UINT message = (StyleOf(bar) & SBS_VERT) != 0 ? WM_VSCROLL : WM_HSCROLL;
    if (step.verb == Verb::kScrollTo) {
        const int position = static_cast<int>(*NumberIn(step.words[1].text));
        Tell(bar, message, SB_THUMBTRACK, position);
        Tell(bar, message, SB_THUMBPOSITION, position);
        Tell(bar, message, SB_ENDSCROLL, 0);
        return;
    }
    const auto action = static_cast<unsigned>(*ScrollNamed(step.words[1].text));
    const long long count = step.words.size() > 2 ? *NumberIn(step.words[2].text) : 1;
    for (long long i = 0; i < count; ++i) {
        Tell(bar, message, action, 0);
        Tell(bar, message, SB_ENDSCROLL, 0);
    }
}

void SheetRun::Slide(const Step& step) {
    const Control slider = FindUsable(step.words[0], kSlider, "slider");
    const long long wanted = *NumberIn(step.words[1].text);
    const LRESULT low = SendMessageW(slider.window, TBM_GETRANGEMIN, 0, 0);
    const LRESULT high = SendMessageW(slider.window, TBM_GETRANGEMAX, 0, 0);
    if (wanted < low || wanted > high) {
        throw ToolError(NameOf(step.words[0]) + " slides from " + std::to_string(low) + " to " +
                        std::to_string(high));
    }
    const UINT message = (StyleOf(slider) & TBS_VERT) != 0 ? WM_VSCROLL : WM_HSCROLL;
    const int position = static_cast<int>(wanted);
    SetFocus(slider.window);
    SendMessageW(slider.window, TBM_SETPOS, TRUE, position);
    Tell(slider, message, TB_THUMBTRACK, position);
    Tell(slider, message, TB_THUMBPOSITION, position);
    Tell(slider, message, TB_ENDTRACK, 0);
}

void SheetRun::ClickTab(const Step& step) {
    for (const Control& control : Controls()) {
        if (control.kind != kTabControl) {
            continue;
        }
        const int item = ItemNamed(control, step.words[0]);
        RECT place;
        SendMessageW(control.window, TCM_GETITEMRECT, static_cast<WPARAM>(item),
                     reinterpret_cast<LPARAM>(&place));
        ClickAt(control.window, (place.left + place.right) / 2, (place.top + place.bottom) / 2);
        return;
    }
    throw ToolError("there are no tabs on " + WindowText(CurrentDialog()));
}

void SheetRun::Answer(const Step& step) {
    const Word& answer = step.words[0];
    if (answer.quoted) {
        prompts_.AnswerFile(answer.text);
    } else {
        prompts_.AnswerBox(*ButtonNamed(answer.text));
    }
}

void SheetRun::CopyData(const Step& step) {
    std::vector<BYTE> bytes = step.bytes;
    COPYDATASTRUCT data = {};
    data.dwData = static_cast<ULONG_PTR>(*NumberIn(step.words[0].text));
    data.cbData = static_cast<DWORD>(bytes.size());
    data.lpData = bytes.data();
    SendMessageW(CurrentDialog(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
}

void SheetRun::PressButton(const Step& step) {
    if (ModalDialog() != nullptr) {
        throw ToolError("a dialog is open: " + WindowText(ModalDialog()));
    }
    if (step.verb == Verb::kApply) {
        HWND button = GetDlgItem(sheet_, kApplyButton);
        if (button == nullptr || !IsWindowVisible(button) || !IsWindowEnabled(button)) {
            throw ToolError("the Apply button cannot be used");
        }
        PostMessageW(sheet_, PSM_PRESSBUTTON, PSBTN_APPLYNOW, 0);
        return;
    }
    TakePictures();
    Press(step.verb == Verb::kOk ? PSBTN_OK : PSBTN_CANCEL);
}

void SheetRun::Press(int button) {
    pressed_ = true;
    PostMessageW(sheet_, PSM_PRESSBUTTON, static_cast<WPARAM>(button), 0);
}

void SheetRun::TakePictures() {
    if (pictures_.empty() || picturesTaken_) {
        return;
    }
    picturesTaken_ = true;
    const int before = CurrentTab();
    const int count = TabCount();
    for (int tab = 0; tab < count; ++tab) {
        ShowTab(tab);
        const SheetPage* page = PageOf(tab);
        WritePictureOf(sheet_, page == nullptr ? "page " + std::to_string(tab + 1) : page->title);
    }
    ShowTab(before);
}

// What is in front: the sheet, or a dialog opened from it.
void SheetRun::TakePicture(const Step& step) {
    if (!pictures_.empty()) {
        HWND dialog = ModalDialog();
        WritePictureOf(dialog != nullptr ? dialog : sheet_, step.words[0].text);
    }
}

void SheetRun::WritePictureOf(HWND window, const std::string& title) {
    const std::filesystem::path folder = PathFrom(pictures_);
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    HandlePaints();
    const std::string name = FileNameOf(title);
    if (!WritePicture(folder / name, PictureOf(window))) {
        throw ToolError(pictures_ + '/' + name + ": cannot be written");
    }
    written_.push_back(name);
}

// ---- Expecting --------------------------------------------------------------------------------

void SheetRun::ExpectState(const Step& step) {
    const Word& name = step.words[0];
    const bool ofCheck = step.verb == Verb::kExpectChecked || step.verb == Verb::kExpectUnchecked;
    const Control control = ofCheck ? Find(name, kButton, "check box or radio button")
                                    : Find(name, kAnyControl, "control");
    constexpr const char* kWords[] = {"checked",  "unchecked", "enabled",
                                      "disabled", "shown",     "hidden"};
    const size_t wanted =
        static_cast<size_t>(step.verb) - static_cast<size_t>(Verb::kExpectChecked);
    const bool is = wanted < 2   ? SendMessageW(control.window, BM_GETCHECK, 0, 0) == BST_CHECKED
                    : wanted < 4 ? IsWindowEnabled(control.window) != FALSE
                                 : IsWindowVisible(control.window) != FALSE;
    const size_t found = wanted / 2 * 2 + (is ? 0 : 1);
    if (found != wanted) {
        throw Unexpected("expected " + NameOf(name) + " to be " + kWords[wanted] + "; it is " +
                         kWords[found]);
    }
}

void SheetRun::ExpectText(const Step& step) {
    const std::string shown = ValueOf(Find(step.words[0], kAnyControl, "control"));
    if (!Reads(shown, step.words[1].text)) {
        throw Unexpected("expected " + NameOf(step.words[0]) + " to read " + NameOf(step.words[1]) +
                         "; it reads " + Quoted(shown));
    }
}

void SheetRun::ExpectItems(const Step& step) {
    const auto items = ItemsOf(
        Find(step.words[0], kComboBox | kListBox | kListView | kTabControl, "control with items"));
    std::vector<std::string> wanted;
    for (size_t i = 1; i < step.words.size(); ++i) {
        wanted.push_back(step.words[i].text);
    }
    if (!std::ranges::equal(items, wanted, [&](auto& a, auto& b) { return Reads(a, b); })) {
        throw Unexpected("expected " + NameOf(step.words[0]) + " to have " + Quoted(wanted) +
                         "; it has " + Quoted(items));
    }
}

void SheetRun::ExpectSelected(const Step& step) {
    const Control control =
        Find(step.words[0], kComboBox | kListBox | kTabControl, "control with a selected item");
    const int selected = SelectedItemOf(control);
    const Word& item = step.words[1];
    const std::string shown = selected < 0 ? "" : ItemsOf(control)[static_cast<size_t>(selected)];
    const bool is =
        item.quoted ? selected >= 0 && Reads(shown, item.text) : selected == *NumberIn(item.text);
    if (!is) {
        throw Unexpected("expected " + NameOf(item) + " to be selected in " +
                         NameOf(step.words[0]) + "; it is " +
                         (selected < 0  ? "none"
                          : item.quoted ? Quoted(shown)
                                        : std::to_string(selected)));
    }
}

void SheetRun::ExpectField(const Step& step) {
    const Field& field = *std::ranges::find_if(
        RecordFields(), [&](const Field& one) { return step.words[0].text == one.name; });
    const DevModeRecord& working = ContextOf(CurrentPage()).WorkingDevMode;
    const auto* place = reinterpret_cast<const BYTE*>(&working) + field.offset;
    const Bytes bytes(place, field.width);
    if (!IsValue(field, bytes, step.words[1].text)) {
        throw Unexpected("expected " + std::string(field.name) + " to be " + NameOf(step.words[1]) +
                         "; it is " + NamedValue(field, bytes));
    }
}

void SheetRun::ExpectMessage(const Step& step) {
    const bool shown = std::ranges::any_of(
        messages_, [&](const std::string& text) { return Reads(text, step.words[0].text); });
    if (!shown) {
        throw Unexpected("expected the message " + NameOf(step.words[0]) + "; messages were " +
                         Quoted(messages_));
    }
}

void SheetRun::PrintControls(const Step&) {
    TextTable table;
    table.Heading(WindowText(CurrentDialog()));
    for (const Control& control : Controls()) {
        // A field's label is before it. What a page has put in the place of a text is what counts.
        const bool field = (control.kind & kFields) != 0;
        const bool replaced = !field && !Reads(control.shown, control.english);
        const std::string text =
            replaced || control.english.empty() ? control.shown : control.english;
        table.Row({ControlName(control.id), ClassOf(control.window), Quoted(text),
                   field ? Quoted(ValueOf(control)) : "", StateOf(control)});
    }
    table.Print(out_);
}

}  // namespace kpdtool
