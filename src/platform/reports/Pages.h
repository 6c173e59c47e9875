#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/values/Appearance.h"

namespace bravona {

// Laid out pages: drawing primitives in twips (1/1440 inch) from the sheet's upper left corner, in the order in which
// they are painted. Plain data; preview, printer and PDF paint the same list.
struct TextPrimitive {
    int x = 0, y = 0, width = 0, height = 0;  // the box; the text stands on one line in it, vertically centred
    std::string text;  // as printed: fitted, with its ellipsis where it was too long; may be empty
    double points = 9;
    bool bold = false;
    bool italic = false;
    bool symbol = false;  // in the symbol face, where "Ö" is the tick of a paid line
    Align align = Align::left;
    Colour colour = 0;
    std::string source;   // the bound column, of a fixed text the control
    std::string control;  // the control
    bool detail = false;
    int detailRow = -1;  // of the page, from 0
};
struct BoxPrimitive {
    int x = 0, y = 0, width = 0, height = 0;
    Colour line = 0;
    int lineWidth = 10;  // twips; 0: no outline
    bool filled = false;
    Colour fill = 0xFFFFFF;
    int radius = 0;
};
struct LinePrimitive {
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    Colour line = 0;
    int lineWidth = 10;
};
struct ImagePrimitive {
    int x = 0, y = 0, width = 0, height = 0;  // the picture is fitted into it, its proportions kept, at the upper left
    std::string path;
    std::string source;  // the control
};
using Primitive = std::variant<BoxPrimitive, LinePrimitive, ImagePrimitive, TextPrimitive>;

// What the design holds on this page and keeps out of sight; never painted.
struct HiddenText {
    std::string text;
    std::string source;
    std::string control;
    int detailRow = -1;  // -1: not in a detail row
};

struct Page {
    std::vector<Primitive> primitives;
    std::vector<HiddenText> hidden;
    int detailRows = 0;
};

// The pages of a print, from 0. Kept as they are added, or laid out one by one when they are asked for: then a few of
// the last ones are kept, however many there are, and a page is good for as long as `kept` others have not been asked
// for. Copies share what lays them out.
class PageList {
public:
    static constexpr std::size_t kept = 8;
    using Layout = std::function<Page(std::size_t)>;
    PageList() = default;
    PageList(std::size_t count, Layout layout) : count_(count), layout_(std::move(layout)) {}

    [[nodiscard]] std::size_t size() const { return layout_ ? count_ : pages_.size(); }
    [[nodiscard]] bool empty() const { return size() == 0; }
    [[nodiscard]] const Page& operator[](std::size_t page) const { return at(page); }
    [[nodiscard]] const Page& at(std::size_t page) const;  // std::out_of_range beyond the last
    void push_back(Page page) { pages_.push_back(std::move(page)); }

    class Iterator {
    public:
        Iterator(const PageList& list, std::size_t page) : list_(&list), page_(page) {}
        const Page& operator*() const { return list_->at(page_); }
        Iterator& operator++()
        {
            ++page_;
            return *this;
        }
        bool operator!=(const Iterator& other) const { return page_ != other.page_; }

    private:
        const PageList* list_;
        std::size_t page_;
    };
    [[nodiscard]] Iterator begin() const { return {*this, 0}; }
    [[nodiscard]] Iterator end() const { return {*this, size()}; }

private:
    struct Laid {
        std::size_t page = 0;
        std::shared_ptr<const Page> laid;
    };
    std::vector<Page> pages_;
    std::size_t count_ = 0;
    Layout layout_;
    mutable std::vector<Laid> recent_;  // in a ring
    mutable std::size_t oldest_ = 0;
};

// Number of the Errore with which the person stops the making of a PDF; there is no file then.
inline constexpr std::uint32_t interrotto = 32755;

class Pages {
public:
    int width = 11906;  // A4, twips
    int height = 16838;
    PageList pages;
};

// --- Reading pages. Names fold case; a control is found by its own name or by its column, control names first.

// The text printed outside the detail rows by that control or bound column; empty when there is none in sight.
std::optional<std::string> printedText(const Page& page, std::string_view name);
// True when the design has that control or column on the page (outside the detail rows) and does not show it.
bool isHidden(const Page& page, std::string_view name);
// The text of a column in a detail row of the page, from 0; columns that the design keeps out of sight answer as well.
std::optional<std::string> detailText(const Page& page, int row, std::string_view column);
// True when any text of the page contains `text`, without regard to case.
bool containsText(const Page& page, std::string_view text);

}  // namespace bravona
