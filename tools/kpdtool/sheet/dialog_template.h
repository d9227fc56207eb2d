// The texts that a dialog's template gives its controls, which stay English whatever the user's
// language.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace kpdtool {

struct TemplateControl {
    int id;
    std::string text;  ///< empty for one that has none or a picture
};

/// The controls of a dialog in a module, in order; none when there is no such dialog of the
/// extended form.
std::vector<TemplateControl> ReadDialogTemplate(HMODULE module, int dialog);

/// The same of a template's bytes.
std::vector<TemplateControl> ParseDialogTemplate(const BYTE* bytes, size_t size);

}  // namespace kpdtool
