// Where the keys of a dialog lead.
#pragma once

#include "host_state.h"

#include <vector>

namespace host {

/// The controls of a dialog in the order in which keys reach them: those in a page stand in its
/// place. What is in a hidden or disabled page is left out.
std::vector<HWND> ControlsInOrder(HWND dialog);

/// Gives a control the focus as the dialog manager does: the text of an edit control is selected,
/// and the default button follows. A null control stands for none that could take it.
void FocusControl(HWND dialog, HWND control);

/// Makes the push button that has the focus look like the one that Return presses, or else the
/// dialog's own default button.
void EmphasizeDefault(HWND dialog, HWND focus);

}  // namespace host
