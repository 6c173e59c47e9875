#pragma once

#include <cstddef>
#include <string>

#include "platform/windowing/Events.h"

namespace bravona {

// One line (or several) of text with a caret and a selection, edited as the toolkit's own boxes do.
class LineEdit {
public:
    LineEdit() = default;
    LineEdit(std::u32string text, std::size_t start, std::size_t length)
        : text_(std::move(text)),
          anchor_(start),
          caret_(start + length)
    {}

    [[nodiscard]] const std::u32string& text() const { return text_; }
    [[nodiscard]] std::size_t caret() const { return caret_; }
    [[nodiscard]] std::size_t start() const { return anchor_ < caret_ ? anchor_ : caret_; }
    [[nodiscard]] std::size_t length() const { return anchor_ < caret_ ? caret_ - anchor_ : anchor_ - caret_; }

    void selectAll();
    void insert(std::u32string_view what);  // over the selection
    // Moves and deletes: left, right, up, down, home, end, del, backspace; Ctrl+A selects all. False for other keys.
    bool key(const KeyEvent& event);

private:
    void erase(std::size_t from, std::size_t count);
    void move(std::size_t to, bool select);
    [[nodiscard]] std::size_t lineStart(std::size_t at) const;
    [[nodiscard]] std::size_t lineEnd(std::size_t at) const;

    std::u32string text_;
    std::size_t anchor_ = 0;
    std::size_t caret_ = 0;
};

}  // namespace bravona
