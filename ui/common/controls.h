// Short names for what pages do to their controls. A control that the dialog lacks is passed over.
#pragma once

#include <windows.h>

#include <span>

void ShowControl(HWND dialog, int control, bool shown);
void EnableControl(HWND dialog, int control, bool enabled);
void CheckControl(HWND dialog, int control, bool checked);

/// The selected index of a combo box; -1 when nothing is selected.
int SelectedItem(HWND dialog, int comboBox);
/// Selects an item of a combo box; an index that it lacks selects nothing.
void SelectItem(HWND dialog, int comboBox, int index);
/// Replaces the items of a combo box by the texts as they are, each with its index as item data.
void FillList(HWND dialog, int comboBox, std::span<const WCHAR* const> texts);
/// The same with each text looked up in the current section.
void FillTranslatedList(HWND dialog, int comboBox, std::span<const WCHAR* const> texts);

/// Moves a dialog to the middle of the screen.
void CenterOnScreen(HWND dialog);

/// Tells the sheet that something on the page changed.
void TellSheetChanged(HWND dialog);

/// A control's rectangle relative to its page's window.
RECT ControlArea(HWND dialog, int control);
