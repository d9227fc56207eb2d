// Finding controls and reading them. All messages are those by which a program reads its own
// controls.
#include "sheet_controls.h"

#include <commctrl.h>

#include <algorithm>
#include <map>

#include "resource_names.h"
#include "tools/kpdtool/wide_text.h"

namespace kpdtool {
namespace {

struct ClassRow {
    std::string_view name;
    ControlKind kind;
};

constexpr ClassRow kClasses[] = {
    {"Button", kButton},
    {"Static", kStatic},
    {"Edit", kEdit},
    {"ComboBox", kComboBox},
    {"ListBox", kListBox},
    {"ScrollBar", kScrollBar},
    {"msctls_trackbar32", kSlider},
    {"SysTabControl32", kTabControl},
    {"SysListView32", kListView},
};

LONG StyleOf(HWND window) {
    return GetWindowLongW(window, GWL_STYLE);
}

ControlKind KindOf(HWND window) {
    const std::string name = ClassOf(window);
    const auto* row = std::ranges::find(kClasses, name, &ClassRow::name);
    if (row == std::end(kClasses)) {
        return kOther;
    }
    const bool group = row->kind == kButton && (StyleOf(window) & BS_TYPEMASK) == BS_GROUPBOX;
    return group ? kGroupBox : row->kind;
}

// Mnemonics and the blanks around a text are nothing that people say.
std::string Plain(const std::string& text) {
    std::string plain;
    for (size_t i = 0; i < text.size(); ++i) {
        i += text[i] == '&' && i + 1 < text.size();
        plain += text[i];
    }
    const size_t first = std::min(plain.find_first_not_of(' '), plain.size());
    return plain.substr(first, plain.find_last_not_of(' ') + 1 - first);
}

/// Walks a dialog's windows. The controls of a template that share a number, as labels do, are told
/// apart by their order.
class Walk {
  public:
    explicit Walk(const std::vector<TemplateControl>& english) {
        for (const TemplateControl& control : english) {
            texts_[control.id].push_back(control.text);
        }
    }

    void Over(HWND dialog, bool hasTemplate) {
        for (HWND window = GetWindow(dialog, GW_CHILD); window != nullptr;
             window = GetWindow(window, GW_HWNDNEXT)) {
            if (ClassOf(window) == "#32770") {
                Over(window, false);
            } else {
                Add(window, hasTemplate);
            }
        }
    }

    std::vector<Control> controls;

  private:
    void Add(HWND window, bool hasTemplate) {
        const int id = static_cast<int>(GetWindowLongPtrW(window, GWLP_ID));
        Control control = {window, KindOf(window), id, {}, {}};
        if ((control.kind & kFields) != 0) {
            control.english = englishLabel_;
            control.shown = shownLabel_;
        } else {
            control.english = hasTemplate ? NextText(id) : "";
            control.shown = WindowText(window);
        }
        if ((control.kind & (kStatic | kGroupBox)) != 0) {
            KeepLabel(control.english, englishLabel_);
            KeepLabel(control.shown, shownLabel_);
        }
        controls.push_back(std::move(control));
    }

    static void KeepLabel(const std::string& text, std::string& label) {
        if (!Plain(text).empty()) {
            label = text;
        }
    }

    std::string NextText(int id) {
        const auto it = texts_.find(id);
        size_t& next = taken_[id];
        return it == texts_.end() || next == it->second.size() ? "" : it->second[next++];
    }

    std::map<int, std::vector<std::string>> texts_;
    std::map<int, size_t> taken_;
    std::string englishLabel_;
    std::string shownLabel_;
};

// Labels and groups answer to their text only where no field does.
constexpr unsigned kPreference[] = {kFields | kButton, kStatic, kGroupBox};

const Control* FindByText(const std::vector<Control>& controls, const Word& name, unsigned kinds,
                          std::string Control::*text) {
    const std::string wanted = Plain(name.text);
    int left = name.occurrence;
    for (const Control& control : controls) {
        if ((control.kind & kinds) != 0 && Plain(control.*text) == wanted && --left == 0) {
            return &control;
        }
    }
    return nullptr;
}

// The messages of the two boxes that have items.
struct ItemMessages {
    UINT count, length, text, selected;
};
constexpr ItemMessages kComboMessages = {CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT, CB_GETCURSEL};
constexpr ItemMessages kListMessages = {LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT, LB_GETCURSEL};

constexpr int kLongestItem = 512;

std::string BoxItem(const Control& control, const ItemMessages& messages, WPARAM item) {
    const LRESULT length = SendMessageW(control.window, messages.length, item, 0);
    if (length < 0) {
        return {};
    }
    std::basic_string<WCHAR> text(static_cast<size_t>(length) + 1, 0);
    SendMessageW(control.window, messages.text, item, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(length));
    return ToUtf8(text);
}

std::string ListViewItem(HWND window, WPARAM item) {
    WCHAR text[kLongestItem] = {};
    LVITEMW column = {};
    column.pszText = text;
    column.cchTextMax = kLongestItem;
    SendMessageW(window, LVM_GETITEMTEXTW, item, reinterpret_cast<LPARAM>(&column));
    return ToUtf8(text);
}

std::string TabItem(HWND window, WPARAM item) {
    WCHAR text[kLongestItem] = {};
    TCITEMW tab = {};
    tab.mask = TCIF_TEXT;
    tab.pszText = text;
    tab.cchTextMax = kLongestItem;
    SendMessageW(window, TCM_GETITEMW, item, reinterpret_cast<LPARAM>(&tab));
    return ToUtf8(text);
}

UINT CountMessage(const Control& control) {
    return control.kind == kComboBox   ? kComboMessages.count
           : control.kind == kListBox  ? kListMessages.count
           : control.kind == kListView ? LVM_GETITEMCOUNT
                                       : TCM_GETITEMCOUNT;
}

std::string ItemOf(const Control& control, WPARAM item) {
    switch (control.kind) {
        case kComboBox:
            return BoxItem(control, kComboMessages, item);
        case kListBox:
            return BoxItem(control, kListMessages, item);
        case kListView:
            return ListViewItem(control.window, item);
        default:
            return TabItem(control.window, item);
    }
}

constexpr unsigned kWithItems = kComboBox | kListBox | kListView | kTabControl;

}  // namespace

std::string WindowText(HWND window) {
    std::basic_string<WCHAR> text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, 0);
    text.resize(
        static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return ToUtf8(text);
}

std::string ClassOf(HWND window) {
    constexpr int kLongestName = 64;
    WCHAR name[kLongestName] = {};
    GetClassNameW(window, name, kLongestName);
    return ToUtf8(name);
}

std::vector<Control> ControlsOf(HWND dialog, const std::vector<TemplateControl>& english) {
    Walk walk(english);
    walk.Over(dialog, true);
    return std::move(walk.controls);
}

const Control* FindControl(const std::vector<Control>& controls, const Word& name, unsigned kinds) {
    if (!name.quoted) {
        const int id = ResourceNumber(name.text).value_or(0);
        const auto it = std::ranges::find(controls, id, &Control::id);
        return it != controls.end() && (it->kind & kinds) != 0 ? &*it : nullptr;
    }
    for (auto text : {&Control::english, &Control::shown}) {
        for (unsigned preferred : kPreference) {
            const Control* control = FindByText(controls, name, kinds & preferred, text);
            if (control != nullptr) {
                return control;
            }
        }
    }
    return nullptr;
}

std::vector<std::string> ItemsOf(const Control& control) {
    std::vector<std::string> items;
    if ((control.kind & kWithItems) != 0) {
        const LRESULT count = SendMessageW(control.window, CountMessage(control), 0, 0);
        for (LRESULT item = 0; item < count; ++item) {
            items.push_back(ItemOf(control, static_cast<WPARAM>(item)));
        }
    }
    return items;
}

int SelectedItemOf(const Control& control) {
    switch (control.kind) {
        case kComboBox:
            return static_cast<int>(SendMessageW(control.window, kComboMessages.selected, 0, 0));
        case kListBox:
            return static_cast<int>(SendMessageW(control.window, kListMessages.selected, 0, 0));
        case kTabControl:
            return static_cast<int>(SendMessageW(control.window, TCM_GETCURSEL, 0, 0));
        default:
            return -1;
    }
}

std::string ValueOf(const Control& control) {
    if (control.kind == kSlider) {
        return std::to_string(SendMessageW(control.window, TBM_GETPOS, 0, 0));
    }
    if (control.kind == kScrollBar) {
        return std::to_string(GetScrollPos(control.window, SB_CTL));
    }
    if ((control.kind & kWithItems) == 0) {
        return WindowText(control.window);
    }
    const int item = SelectedItemOf(control);
    return item < 0 ? "" : ItemOf(control, static_cast<WPARAM>(item));
}

std::string StateOf(const Control& control) {
    const bool checked =
        control.kind == kButton && SendMessageW(control.window, BM_GETCHECK, 0, 0) == BST_CHECKED;
    std::string text = checked ? "checked" : "";
    const auto add = [&](bool is, const char* word) {
        text += !is ? "" : (text.empty() ? "" : ", ") + std::string(word);
    };
    add(!IsWindowEnabled(control.window), "disabled");
    add(!IsWindowVisible(control.window), "hidden");
    return text;
}

}  // namespace kpdtool
