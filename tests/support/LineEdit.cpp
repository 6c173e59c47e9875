#include "support/LineEdit.h"

#include <algorithm>

namespace bravona {

void LineEdit::selectAll()
{
    anchor_ = 0;
    caret_ = text_.size();
}

void LineEdit::insert(std::u32string_view what)
{
    erase(start(), length());
    text_.insert(caret_, what);
    move(caret_ + what.size(), false);
}

void LineEdit::erase(std::size_t from, std::size_t count)
{
    text_.erase(from, count);
    move(from, false);
}

void LineEdit::move(std::size_t to, bool select)
{
    caret_ = to;
    if (!select) {
        anchor_ = to;
    }
}

std::size_t LineEdit::lineStart(std::size_t at) const
{
    const auto found = at == 0 ? std::u32string::npos : text_.rfind(U'\n', at - 1);
    return found == std::u32string::npos ? 0 : found + 1;
}

std::size_t LineEdit::lineEnd(std::size_t at) const
{
    return std::min(text_.find(U'\n', at), text_.size());
}

bool LineEdit::key(const KeyEvent& event)
{
    const bool selected = length() > 0;
    switch (event.key) {
    case Key::left:
        if (selected && !event.shift) {
            move(start(), false);
        } else if (caret_ > 0) {
            move(caret_ - 1, event.shift);
        }
        return true;
    case Key::right:
        if (selected && !event.shift) {
            move(start() + length(), false);
        } else if (caret_ < text_.size()) {
            move(caret_ + 1, event.shift);
        }
        return true;
    case Key::home:
        move(event.ctrl ? 0 : lineStart(caret_), event.shift);
        return true;
    case Key::end:
        move(event.ctrl ? text_.size() : lineEnd(caret_), event.shift);
        return true;
    case Key::up: {
        const std::size_t line = lineStart(caret_);
        if (line > 0) {
            const std::size_t above = lineStart(line - 1);
            move(std::min(above + (caret_ - line), line - 1), event.shift);
        }
        return true;
    }
    case Key::down: {
        const std::size_t line = lineStart(caret_);
        const std::size_t end = lineEnd(caret_);
        if (end < text_.size()) {
            move(std::min(end + 1 + (caret_ - line), lineEnd(end + 1)), event.shift);
        }
        return true;
    }
    case Key::backspace:
        if (selected) {
            erase(start(), length());
        } else if (caret_ > 0) {
            erase(caret_ - 1, 1);
        }
        return true;
    case Key::del:
        if (selected) {
            erase(start(), length());
        } else if (caret_ < text_.size()) {
            erase(caret_, 1);
        }
        return true;
    case Key::character:
        if (event.ctrl && (event.character == U'a' || event.character == U'A')) {
            selectAll();
            return true;
        }
        return false;
    default:
        return false;
    }
}

}  // namespace bravona
