// The controls of a dialog as scripts name them: by their English text, by the label before them,
// or by the name of their number.
#pragma once

#include "dialog_template.h"
#include "script.h"

#include <windows.h>

#include <string>
#include <vector>

namespace kpdtool {

/// Bits, so that a step can say which kinds it is for.
enum ControlKind : unsigned {
    kButton = 1,  ///< push button, check box, radio button
    kGroupBox = 2,
    kStatic = 4,
    kEdit = 8,
    kComboBox = 16,
    kListBox = 32,
    kScrollBar = 64,
    kSlider = 128,
    kTabControl = 256,
    kListView = 512,
    kOther = 1024,

    kFields =
        kEdit | kComboBox | kListBox | kScrollBar | kSlider | kTabControl | kListView | kOther,
    kAnyControl = kFields | kButton | kGroupBox | kStatic,
};

struct Control {
    HWND window;
    ControlKind kind;
    int id;
    std::string english;  ///< its own text, or the label of a field; from the template
    std::string shown;    ///< the same as it is shown now
};

/// The controls of a dialog in their order, those of dialogs within it at their place; none of
/// windows that belong to a control. `english` is the dialog's template.
std::vector<Control> ControlsOf(HWND dialog, const std::vector<TemplateControl>& english);

/// The control that a script's word names among those of the kinds; null when there is none.
/// English text goes before text shown, a field before its label.
const Control* FindControl(const std::vector<Control>& controls, const Word& name, unsigned kinds);

std::string WindowText(HWND window);
std::string ClassOf(HWND window);

/// What a user reads as the control's value: the text, the selected item's, the position.
std::string ValueOf(const Control& control);

/// The texts of the items of a combo box, list box, list view or tab control.
std::vector<std::string> ItemsOf(const Control& control);
/// The selected item, -1 when there is none.
int SelectedItemOf(const Control& control);

/// "checked", "disabled", "hidden", … in one line; empty for what is usual.
std::string StateOf(const Control& control);

}  // namespace kpdtool
