#pragma once

#include <cstdint>
#include <string>

#include "platform/values/Appearance.h"

namespace bravona {

enum class Key {
    none,
    character,  // `KeyEvent::character` tells which
    enter,
    tab,
    escape,
    up,
    down,
    left,
    right,
    home,
    end,
    pageUp,
    pageDown,
    del,
    backspace,
    f1,
    f2,
    f3,
    f4,
    f5,
    f6,
    f7,
    f8,
    f9,
    f10,
    f11,
    f12
};

struct KeyEvent {
    Key key = Key::none;
    char32_t character = 0;  // of a character key (the blank included), as typed
    bool shift = false;
    bool ctrl = false;
    bool alt = false;

    void drop() { key = Key::none; }  // a handler swallows the key
    [[nodiscard]] bool dropped() const { return key == Key::none; }
};

enum class CloseCause { person, owner, code };
enum class Pointer { normal, wait };
enum class MsgIcon { none, information, question, critical, exclamation };
enum class MsgButtons { ok, okCancel, yesNo };
enum class MsgAnswer { ok, cancel, yes, no };

// What of a control has changed, for the renderer to follow.
enum class Aspect {
    text,       // text or caption
    enabled,    //
    visible,    //
    colours,    //
    toolTip,    //
    items,      // items of a combo or list, rows as a whole
    row,        // one row of a list or grid
    columns,    //
    selection,  // list index, selected row, current cell
    scroll,     // a row is to be brought into view
    checks,     // check mark of one row (or of a box)
    caret,      // caret and selected text
    value,      // date, number, progress, picture, page, locked
    structure   // layout parts, tab pages, menus, overlays
};

}  // namespace bravona
