// Every page of the document sheet and every dialog that pages open, one after the other, over the
// driver code linked into this program and the language file that it has at the moment.
#pragma once

#include "cut_text.h"

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace kpdtool {

/// `name` is the page's or dialog's title in English.
using LookAtPage = std::function<void(HWND page, const std::string& name)>;

/// Those of a colour printer and of one for rewritable cards. Throws ToolError when they cannot be
/// opened.
void OpenEveryPage(const LookAtPage& look);

/// A text that is cut, and where.
struct CutOnPage {
    std::string page;
    CutText cut;
    bool operator==(const CutOnPage&) const = default;
};

/// Of every page and dialog, each once.
std::vector<CutOnPage> CutTextsOfEveryPage();

}  // namespace kpdtool
