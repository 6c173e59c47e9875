#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/windowing/Control.h"
#include "platform/windowing/Parts.h"

namespace bravona {

// The letters that Alt reaches in a window, one of its own for each thing: the marked one of its caption, or, where
// something else has that, another of its caption. The menu bar comes first, then the captions of pages, then what
// stands on no page, then what stands on one; on different pages of one control a letter may serve twice. Hidden and
// disabled things keep theirs, so that a letter does not wander with the state of the window.
class Letters {
public:
    Letters() = default;
    explicit Letters(const Form& form);

    // 0: none.
    [[nodiscard]] char32_t of(const Control& control) const;
    [[nodiscard]] char32_t ofPage(const TabControl& tabs, int page) const;
    [[nodiscard]] char32_t ofLine(const Control& field) const;  // of the caption in front of it
    // The caption with the mark where this letter stands.
    [[nodiscard]] static std::string marked(std::string_view caption, char32_t letter);
    // The captions of a menu's entries, each with a letter of its own, those that bring none as well.
    [[nodiscard]] static std::vector<std::string> ofEntries(const Menu& menu);

    struct Thing {
        enum class What { caption, page, line };
        const Control* control = nullptr;
        What what = What::caption;
        int page = 0;  // of a page's caption
        std::string caption;
        char32_t letter = 0;
        bool operator==(const Thing&) const = default;
    };
    [[nodiscard]] const std::vector<Thing>& things() const { return things_; }
    [[nodiscard]] const std::u32string& ofMenuBar() const { return bar_; }
    // Both can be reached at one time.
    [[nodiscard]] static bool together(const Thing& a, const Thing& b);
    bool operator==(const Letters&) const = default;

private:
    [[nodiscard]] char32_t find(const Control& control, Thing::What what, int page) const;
    [[nodiscard]] bool free(const Thing& thing, char32_t letter) const;
    [[nodiscard]] char32_t freeLetter(const Thing& thing) const;
    void makeRoom(Thing& thing);
    void give(std::span<Thing> equals);
    void collect(const Form& form);
    std::vector<Thing> things_;
    std::u32string bar_;
};

}  // namespace bravona
