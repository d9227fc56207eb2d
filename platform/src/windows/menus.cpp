// Menus.
#include "windows/windows.h"

namespace {

using host::WideString;

struct MenuItem {
    UINT state;  // the flags without how the item was addressed
    UINT_PTR id;
    HMENU submenu;
    WideString text;
};
using Menu = std::vector<MenuItem>;
host::HandleTable<Menu, HMENU> menus(0x60000);

constexpr UINT kKnownFlags =
    MF_BYPOSITION | MF_GRAYED | MF_DISABLED | MF_CHECKED | MF_POPUP | MF_SEPARATOR;
constexpr UINT kNoItem = 0xFFFFFFFF;

Menu* Find(HMENU menu) {
    Menu* found = menus.Find(menu);
    if (found == nullptr) {
        SetLastError(ERROR_INVALID_MENU_HANDLE);
    }
    return found;
}

MenuItem* ItemAt(Menu& menu, int position) {
    return position >= 0 && static_cast<size_t>(position) < menu.size()
               ? &menu[static_cast<size_t>(position)]
               : nullptr;
}

// By command the menus below are searched as well.
MenuItem* FindItem(HMENU handle, UINT item, UINT flags) {
    Menu* menu = Find(handle);
    if (menu == nullptr) {
        return nullptr;
    }
    MenuItem* found = nullptr;
    if ((flags & MF_BYPOSITION) != 0) {
        found = ItemAt(*menu, static_cast<int>(item));
    } else {
        for (MenuItem& one : *menu) {
            found = one.submenu != nullptr ? FindItem(one.submenu, item, flags) : nullptr;
            found = found == nullptr && static_cast<UINT>(one.id) == item ? &one : found;
            if (found != nullptr) {
                break;
            }
        }
    }
    if (found == nullptr) {
        SetLastError(ERROR_MENU_ITEM_NOT_FOUND);
    }
    return found;
}

MenuItem MakeItem(UINT flags, UINT_PTR idOrSubmenu, LPCWSTR text) {
    if ((flags & ~kKnownFlags) != 0) {
        host::Unsupported("menu item with flags %#x", flags);
    }
    const HMENU submenu = (flags & MF_POPUP) != 0 ? reinterpret_cast<HMENU>(idOrSubmenu) : nullptr;
    const UINT state = flags & ~UINT{MF_BYPOSITION};
    if ((flags & MF_SEPARATOR) != 0 || text == nullptr) {
        return {state | MF_SEPARATOR | MF_GRAYED | MF_DISABLED, idOrSubmenu, submenu, {}};
    }
    return {state, idOrSubmenu, submenu, text};
}

HMENU NewMenu() {
    return host::FailsNow(host::Call::kWindow) ? nullptr : menus.Add({});
}

}  // namespace

namespace host {

void ResetMenus() {
    menus.Clear();
}

unsigned HeldMenus() {
    return menus.Count();
}

}  // namespace host

HMENU WINAPI CreateMenu() {
    return NewMenu();
}

HMENU WINAPI CreatePopupMenu() {
    return NewMenu();
}

BOOL WINAPI DestroyMenu(HMENU handle) {
    const Menu* menu = Find(handle);
    if (menu == nullptr) {
        return FALSE;
    }
    const Menu items = *menu;
    menus.Remove(handle);
    for (const MenuItem& item : items) {
        if (item.submenu != nullptr) {
            DestroyMenu(item.submenu);
        }
    }
    return TRUE;
}

BOOL WINAPI AppendMenuW(HMENU handle, UINT flags, UINT_PTR idOrSubmenu, LPCWSTR text) {
    Menu* menu = Find(handle);
    if (menu == nullptr) {
        return FALSE;
    }
    menu->push_back(MakeItem(flags, idOrSubmenu, text));
    return TRUE;
}

BOOL WINAPI ModifyMenuW(HMENU handle, UINT item, UINT flags, UINT_PTR idOrSubmenu, LPCWSTR text) {
    MenuItem* found = FindItem(handle, item, flags);
    if (found == nullptr) {
        return FALSE;
    }
    const HMENU before = found->submenu;
    *found = MakeItem(flags, idOrSubmenu, text);
    if (found->submenu == nullptr && before != nullptr) {
        // An item keeps what it opens until it is given another menu.
        found->submenu = before;
        found->state |= MF_POPUP;
    } else if (before != nullptr && before != found->submenu) {
        DestroyMenu(before);
    }
    return TRUE;
}

HMENU WINAPI GetMenu(HWND handle) {
    const auto window = host::FindWindowObject(handle);
    return window == nullptr || window->IsChildStyle() ? nullptr
                                                       : reinterpret_cast<HMENU>(window->id);
}

BOOL WINAPI SetMenu(HWND handle, HMENU menu) {
    const auto window = host::FindWindowObject(handle);
    if (window == nullptr || window->IsChildStyle() || (menu != nullptr && !Find(menu))) {
        return FALSE;
    }
    window->id = reinterpret_cast<UINT_PTR>(menu);
    SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    return TRUE;
}

int WINAPI GetMenuItemCount(HMENU handle) {
    const Menu* menu = Find(handle);
    return menu == nullptr ? -1 : static_cast<int>(menu->size());
}

UINT WINAPI GetMenuItemID(HMENU handle, int position) {
    Menu* menu = Find(handle);
    const MenuItem* item = menu == nullptr ? nullptr : ItemAt(*menu, position);
    return item == nullptr || item->submenu != nullptr ? kNoItem : static_cast<UINT>(item->id);
}

int WINAPI GetMenuStringW(HMENU handle, UINT item, LPWSTR text, int length, UINT flags) {
    if (text != nullptr && length > 0) {
        text[0] = 0;
    }
    const MenuItem* found = FindItem(handle, item, flags);
    if (found == nullptr) {
        return 0;
    }
    if (text == nullptr || length <= 0) {
        return static_cast<int>(found->text.size());
    }
    const size_t copied = found->text.copy(text, static_cast<size_t>(length) - 1);
    text[copied] = 0;
    return static_cast<int>(copied);
}

UINT WINAPI GetMenuState(HMENU handle, UINT item, UINT flags) {
    const MenuItem* found = FindItem(handle, item, flags);
    if (found == nullptr) {
        return kNoItem;
    }
    if (found->submenu == nullptr) {
        return found->state;
    }
    return (found->state & 0xFF) | (static_cast<UINT>(GetMenuItemCount(found->submenu)) << 8);
}

HMENU WINAPI GetSubMenu(HMENU handle, int position) {
    Menu* menu = Find(handle);
    const MenuItem* item = menu == nullptr ? nullptr : ItemAt(*menu, position);
    return item == nullptr ? nullptr : item->submenu;
}

BOOL WINAPI DrawMenuBar(HWND handle) {
    const auto window = host::FindWindowObject(handle);
    if (window == nullptr || window->IsChildStyle()) {
        return FALSE;
    }
    return SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                        SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}
