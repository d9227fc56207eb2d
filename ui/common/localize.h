// Translation of dialogs and menus in place: every English text is replaced by its translation in
// the current section (SetSection first).
#pragma once

#include "ui/common/numeric_field.h"

#include <windows.h>

#include <span>

/// Translates the caption, every child control, the items of combo boxes, the first column of list
/// views, and the menu. Items must be there already; gives 0. What stands in one of the `typed`
/// fields is its user's and stays as it is.
int LocalizeDialog(HWND dialog, std::span<const TextField> typed = {});

/// Translates the items of a combo box or list box; their order and data stay. Gives 1 when there
/// was a selection and it could be set again, else 0. An item of more than 511 characters stays as
/// it is.
int LocalizeComboBox(HWND comboBox);
int LocalizeListBox(HWND listBox);

/// Translates a menu of `owner` and its submenus; gives 0.
int LocalizeMenu(HMENU menu, HWND owner);
