// The window classes of the platform's own. Each is written over the platform's public calls alone,
// as a program's own window class would be.
#pragma once

#include <windows.h>

namespace host {

// One each per class: registers it with RegisterClassExW.
void RegisterDialogClass();
void RegisterStatic();
void RegisterButton();
void RegisterEdit();
void RegisterListBox();
void RegisterComboBox();
void RegisterScrollBar();
void RegisterTrackBar();
void RegisterTabControl();
void RegisterListView();
void RegisterTooltip();

/// All of them; done by ResetWindows and before the first window is made.
void RegisterSystemClasses();

}  // namespace host
