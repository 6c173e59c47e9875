#include "platform/windowing/Letters.h"

#include <algorithm>

#include "platform/text/Text.h"
#include "platform/windowing/Desktop.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"

namespace bravona {

namespace {

char32_t capital(char32_t letter)
{
    const std::u32string one = toCodePoints(upper(fromCodePoints(std::u32string(1, letter))));
    return one.empty() ? letter : one.front();
}

bool isLetter(char32_t one)
{
    return (one >= U'0' && one <= U'9') || (one >= U'a' && one <= U'z') || (one >= U'A' && one <= U'Z') ||
           (one >= 0xC0 && one != 0xD7 && one != 0xF7 && one < 0x250);
}

bool beginsWord(const std::u32string& text, std::size_t at)
{
    return at == 0 || !isLetter(text[at - 1]);
}

// Where a letter may be marked: beginnings of words before the others.
std::vector<std::size_t> places(const std::u32string& text)
{
    std::vector<std::size_t> result;
    for (const bool beginnings : {true, false}) {
        for (std::size_t at = 0; at < text.size(); ++at) {
            if (isLetter(text[at]) && beginsWord(text, at) == beginnings) {
                result.push_back(at);
            }
        }
    }
    return result;
}

// With a mark before this place; nowhere: without one.
std::string markedAt(const std::u32string& text, std::size_t place)
{
    std::u32string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (at == place || text[at] == U'&') {
            result += U'&';
        }
        result += text[at];
    }
    return fromCodePoints(result);
}

const TabControl* nextTabs(const Control*& control, int& page)
{
    while (control != nullptr) {
        const Control* inside = control;
        control = control->container();
        if (control != nullptr && control->kind() == ControlKind::tabControl && inside->page() >= 0) {
            page = inside->page();
            return static_cast<const TabControl*>(control);
        }
    }
    return nullptr;
}

bool onAPage(const Control& control)
{
    const Control* at = &control;
    int page = 0;
    return nextTabs(at, page) != nullptr;
}

// Who comes first: captions of pages, then commands before fields, on no page before on one.
int rank(const Letters::Thing& thing)
{
    if (thing.what == Letters::Thing::What::page) {
        return 0;
    }
    const bool field = thing.what == Letters::Thing::What::line || thing.control->kind() == ControlKind::label;
    return (field ? 2 : 1) + (onAPage(*thing.control) ? 2 : 0);
}

}  // namespace

std::string Letters::marked(std::string_view caption, char32_t letter)
{
    if (bravona::mnemonic(caption) == letter) {
        return std::string(caption);
    }
    const std::u32string text = toCodePoints(withoutMnemonic(caption));
    for (const std::size_t at : places(text)) {
        if (letter != 0 && capital(text[at]) == letter) {
            return markedAt(text, at);
        }
    }
    return markedAt(text, text.size());
}

std::vector<std::string> Letters::ofEntries(const Menu& menu)
{
    std::vector<std::string> result;
    std::u32string taken;
    for (const auto& entry : menu.entries) {
        result.push_back(entry->caption);
        if (const char32_t letter = bravona::mnemonic(entry->caption)) {
            taken += letter;
        }
    }
    for (std::size_t i = 0; i < result.size(); ++i) {
        if (menu.entries[i]->separator || bravona::mnemonic(result[i]) != 0) {
            continue;
        }
        const std::u32string text = toCodePoints(withoutMnemonic(result[i]));
        for (const std::size_t at : places(text)) {
            if (taken.find(capital(text[at])) == std::u32string::npos) {
                taken += capital(text[at]);
                result[i] = markedAt(text, at);
                break;
            }
        }
    }
    return result;
}

bool Letters::together(const Thing& a, const Thing& b)
{
    int pageOfA = 0;
    for (const Control* one = a.control; const TabControl* tabs = nextTabs(one, pageOfA);) {
        int pageOfB = 0;
        for (const Control* other = b.control; const TabControl* same = nextTabs(other, pageOfB);) {
            if (tabs == same && pageOfA != pageOfB) {
                return false;
            }
        }
    }
    return true;
}

void Letters::collect(const Form& form)
{
    const auto note = [this](const Control& control, Thing::What what, const std::string& caption, int page = 0) {
        if (bravona::mnemonic(caption) != 0) {
            things_.push_back({&control, what, page, caption, 0});
        }
    };
    for (const Control* control : form.tabOrder()) {
        switch (control->kind()) {
        case ControlKind::button:
            note(*control, Thing::What::caption, static_cast<const Button*>(control)->caption());
            break;
        case ControlKind::checkBox:
            note(*control, Thing::What::caption, static_cast<const CheckBox*>(control)->caption());
            break;
        case ControlKind::optionButton:
            note(*control, Thing::What::caption, static_cast<const OptionButton*>(control)->caption());
            break;
        case ControlKind::label:
            note(*control, Thing::What::caption, control->shownText());
            break;
        case ControlKind::tabControl: {
            const auto& pages = static_cast<const TabControl*>(control)->pages();
            for (std::size_t page = 0; page < pages.size(); ++page) {
                note(*control, Thing::What::page, pages[page].caption, static_cast<int>(page));
            }
            break;
        }
        default:
            break;
        }
        // The letter of a label that is a control is its own.
        if (control->focusable() && control->labelControl() == nullptr) {
            note(*control, Thing::What::line, control->labelCaption());
        }
    }
    std::stable_sort(things_.begin(), things_.end(), [](const Thing& a, const Thing& b) { return rank(a) < rank(b); });
}

Letters::Letters(const Form& form)
{
    collect(form);
    const Form* main = form.desktop().mainWindow();
    const Form* owner = form.menuBar != nullptr ? &form : main;
    if (owner != nullptr && owner->menuBar != nullptr) {
        for (const std::string& caption : ofEntries(*owner->menuBar)) {
            bar_ += bravona::mnemonic(caption);
        }
    }
    for (auto first = things_.begin(); first != things_.end();) {
        const auto last =
            std::find_if(first, things_.end(), [first](const Thing& thing) { return rank(thing) != rank(*first); });
        give({first, last});
        first = last;
    }
}

// To things of one rank.
void Letters::give(std::span<Thing> equals)
{
    for (Thing& thing : equals) {
        if (const char32_t wanted = bravona::mnemonic(thing.caption); free(thing, wanted)) {
            thing.letter = wanted;
        }
    }
    for (Thing& thing : equals) {
        if (thing.letter == 0) {
            thing.letter = freeLetter(thing);
        }
        if (thing.letter == 0) {
            makeRoom(thing);
        }
    }
}

char32_t Letters::freeLetter(const Thing& thing) const
{
    const std::u32string text = toCodePoints(withoutMnemonic(thing.caption));
    for (const std::size_t at : places(text)) {
        if (free(thing, capital(text[at]))) {
            return capital(text[at]);
        }
    }
    return 0;
}

// Takes a letter that one other thing has, where that has another one to go to and did not bring this one along.
void Letters::makeRoom(Thing& thing)
{
    const std::u32string text = toCodePoints(withoutMnemonic(thing.caption));
    for (const std::size_t at : places(text)) {
        const char32_t letter = capital(text[at]);
        std::vector<Thing*> holders;
        for (Thing& other : things_) {
            if (&other != &thing && other.letter == letter && together(other, thing)) {
                holders.push_back(&other);
            }
        }
        if (holders.size() != 1 || bravona::mnemonic(holders.front()->caption) == letter ||
            bar_.find(letter) != std::u32string::npos) {
            continue;
        }
        thing.letter = letter;
        if (const char32_t other = freeLetter(*holders.front()); other != 0) {
            holders.front()->letter = other;
            return;
        }
        thing.letter = 0;
    }
}

bool Letters::free(const Thing& thing, char32_t letter) const
{
    return bar_.find(letter) == std::u32string::npos &&
           std::none_of(things_.begin(), things_.end(), [&](const Thing& other) {
               return &other != &thing && other.letter == letter && together(other, thing);
           });
}

char32_t Letters::find(const Control& control, Thing::What what, int page) const
{
    for (const Thing& thing : things_) {
        if (thing.control == &control && thing.what == what && thing.page == page) {
            return thing.letter;
        }
    }
    return 0;
}

char32_t Letters::of(const Control& control) const
{
    return find(control, Thing::What::caption, 0);
}

char32_t Letters::ofPage(const TabControl& tabs, int page) const
{
    return find(tabs, Thing::What::page, page);
}

char32_t Letters::ofLine(const Control& field) const
{
    return find(field, Thing::What::line, 0);
}

}  // namespace bravona
