#pragma once

#include <functional>
#include <vector>

/// One entry of the main window's menu.
struct MenuEntry
{
    int level;           ///< 0 for the menu bar, 1 for a menu's entries, 2 for those of a menu inside it
    const char *name;    ///< the menu control's name
    const char *caption; ///< what the user sees
    enum class Kind { Group, Form, Routine, SwitchedOff } kind;
    const char *form = nullptr;         ///< of kind Form: what it loads
    std::function<void()> routine = {}; ///< of the other kinds: what it calls
};

/// The whole menu in its order; an entry follows the group it stands in.
const std::vector<MenuEntry> &menuEntries();
