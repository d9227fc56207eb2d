// The list of the platform's window classes.
#include "controls/controls.h"

namespace host {

void RegisterSystemClasses() {
    constexpr void (*kClasses[])() = {
        RegisterDialogClass, RegisterStatic,   RegisterButton,    RegisterEdit,
        RegisterListBox,     RegisterComboBox, RegisterScrollBar, RegisterTrackBar,
        RegisterTabControl,  RegisterListView, RegisterTooltip,
    };
    for (auto registerClass : kClasses) {
        registerClass();
    }
}

}  // namespace host
