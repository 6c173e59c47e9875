#include "platform/reports/Pages.h"

#include <stdexcept>

#include "platform/text/Text.h"

namespace bravona {

namespace {

const TextPrimitive* findPrinted(const Page& page, std::string_view name, std::string TextPrimitive::*key)
{
    for (const Primitive& primitive : page.primitives) {
        const auto* text = std::get_if<TextPrimitive>(&primitive);
        if (text != nullptr && !text->detail && equalFolded(text->*key, name)) {
            return text;
        }
    }
    return nullptr;
}

}  // namespace

const Page& PageList::at(std::size_t page) const
{
    if (!layout_) {
        return pages_.at(page);
    }
    if (page >= count_) {
        throw std::out_of_range("no such page");
    }
    for (const Laid& recent : recent_) {
        if (recent.page == page) {
            return *recent.laid;
        }
    }
    Laid fresh{page, std::make_shared<const Page>(layout_(page))};
    if (recent_.size() < kept) {
        recent_.push_back(std::move(fresh));
        return *recent_.back().laid;
    }
    Laid& place = recent_[oldest_];
    oldest_ = (oldest_ + 1) % kept;
    place = std::move(fresh);
    return *place.laid;
}

std::optional<std::string> printedText(const Page& page, std::string_view name)
{
    const TextPrimitive* found = findPrinted(page, name, &TextPrimitive::control);
    if (found == nullptr) {
        found = findPrinted(page, name, &TextPrimitive::source);
    }
    return found == nullptr ? std::nullopt : std::optional(found->text);
}

bool isHidden(const Page& page, std::string_view name)
{
    if (printedText(page, name)) {
        return false;
    }
    for (const HiddenText& hidden : page.hidden) {
        if (hidden.detailRow < 0 && (equalFolded(hidden.control, name) || equalFolded(hidden.source, name))) {
            return true;
        }
    }
    return false;
}

std::optional<std::string> detailText(const Page& page, int row, std::string_view column)
{
    for (const Primitive& primitive : page.primitives) {
        const auto* text = std::get_if<TextPrimitive>(&primitive);
        if (text != nullptr && text->detail && text->detailRow == row &&
            (equalFolded(text->source, column) || equalFolded(text->control, column))) {
            return text->text;
        }
    }
    for (const HiddenText& hidden : page.hidden) {
        if (hidden.detailRow == row && (equalFolded(hidden.source, column) || equalFolded(hidden.control, column))) {
            return hidden.text;
        }
    }
    return std::nullopt;
}

bool containsText(const Page& page, std::string_view text)
{
    if (text.empty()) {
        return false;
    }
    const std::string wanted = fold(text);
    for (const Primitive& primitive : page.primitives) {
        const auto* printed = std::get_if<TextPrimitive>(&primitive);
        if (printed != nullptr && !printed->text.empty() && fold(printed->text).find(wanted) != std::string::npos) {
            return true;
        }
    }
    return false;
}

}  // namespace bravona
