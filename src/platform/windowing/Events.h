#pragma once

#include <cstdint>
#include <string>

namespace bravona {

// red + 256 x green + 65536 x blue
using Colour = std::uint32_t;
constexpr Colour rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return red + 256U * green + 65536U * blue;
}
namespace colours {
inline constexpr Colour black = 0;
inline constexpr Colour red = rgb(255, 0, 0);
inline constexpr Colour blue = rgb(0, 0, 255);
inline constexpr Colour white = rgb(255, 255, 255);
inline constexpr Colour focusYellow = rgb(255, 255, 192);
} // namespace colours

enum class Key {
    none,
    character, // `KeyEvent::character` tells which
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
    char32_t character = 0; // of a character key (the blank included), as typed
    bool shift = false;
    bool ctrl = false;
    bool alt = false;

    void drop() { key = Key::none; } // a handler swallows the key
    [[nodiscard]] bool dropped() const { return key == Key::none; }
};

enum class CloseCause { person, owner, code };
enum class Pointer { normal, wait };
enum class Align { left, right, centre };
enum class MsgIcon { none, information, question, critical, exclamation };
enum class MsgButtons { ok, okCancel, yesNo };
enum class MsgAnswer { ok, cancel, yes, no };

// What of a control has changed, for the renderer to follow.
enum class Aspect {
    text,      // text or caption
    enabled,   //
    visible,   //
    colours,   //
    toolTip,   //
    items,     // items of a combo or list, rows as a whole
    row,       // one row of a list or grid
    columns,   //
    selection, // list index, selected row, current cell
    scroll,    // a row is to be brought into view
    checks,    // check mark of one row (or of a box)
    caret,     // caret and selected text
    value,     // date, number, progress, picture, page, locked
    structure  // layout parts, tab pages, menus, overlays
};

} // namespace bravona
