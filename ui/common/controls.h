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

/// Writes the text of an item of a combo box; false when it is not there or too long for `text`.
bool ItemText(HWND dialog, int comboBox, int index, std::span<WCHAR> text);

/// Adds a tab behind those that are there, with its index as item data. The first is selected.
void AddTab(HWND dialog, int tabs, const WCHAR* text);
/// The same with the text looked up in the current section.
void AddTranslatedTab(HWND dialog, int tabs, const WCHAR* key);
/// The selected index of a tab control; -1 when nothing is selected.
int SelectedTab(HWND dialog, int tabs);

/// Moves a dialog to the middle of the screen.
void CenterOnScreen(HWND dialog);

/// Tells the sheet that something on the page changed.
void TellSheetChanged(HWND dialog);

/// A control's rectangle relative to its page's window.
RECT ControlArea(HWND dialog, int control);
