// Texts that do not fit into their controls.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace kpdtool {

struct CutText {
    std::basic_string<WCHAR> text;  ///< empty when everything fits
    int wider = 0;                  ///< pixels that the room lacks
    int higher = 0;
    int control = 0;  ///< 0: the dialog's title
    bool operator==(const CutText&) const = default;
};

/// The text of a static control or button, the first item of a combo box or the title of a dialog
/// that does not fit into it, drawn in its font and, in a static control, wrapped to its width.
CutText CutTextOf(HWND control);

/// Of a page or dialog and all its controls.
std::vector<CutText> CutTextsOf(HWND dialog);

/// Arabic letters in the forms that they have beside their neighbours. They are narrower than the
/// letters one by one, which is what is measured where nothing shapes the text.
std::basic_string<WCHAR> Joined(const std::basic_string<WCHAR>& text);

}  // namespace kpdtool
