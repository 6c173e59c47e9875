#include <algorithm>

#include "platform/text/Text.h"
#include "platform/windowing/Desktop.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Grids.h"
#include "platform/windowing/Interaction.h"
#include "platform/windowing/Letters.h"
#include "platform/windowing/Lists.h"
#include "platform/windowing/Parts.h"

namespace bravona {

Interaction::KeyResult Interaction::key(Form& form, KeyEvent event)
{
    KeyResult result;
    result.handled = true;
    if (desktop_.blocked(form) || desktop_.ended()) {
        return result;
    }
    desktop_.guard([&] {
        Control* focused = form.focused_;
        const auto gone = [&] { return event.dropped() || !form.shown_ || form.focused_ != focused; };
        form.onKeyDown(event);
        if (gone()) {
            return;
        }
        if (focused != nullptr && focused->onKeyDown) {
            focused->onKeyDown(event);
            if (gone()) {
                return;
            }
        }
        if (windowKey(form, focused, event)) {
            return;
        }
        char32_t character = 0;
        switch (event.key) {
        case Key::character:
            character = event.ctrl || event.alt ? 0 : event.character;
            break;
        case Key::enter:
            character = 13;
            break;
        case Key::backspace:
            character = 8;
            break;
        case Key::escape:
            character = 27;
            break;
        default:
            break;
        }
        if (character == 0) {
            result.handled = focused != nullptr && widgetKey(*focused, event);
            return;
        }
        const std::string before = focused != nullptr ? focused->shownText() : std::string();
        form.onKeyPress(character);
        if (character == 0) {
            tellRefused(form, focused, event, before);
        }
        if (character == 0 || !form.shown_ || form.focused_ != focused) {
            return;
        }
        if (focused != nullptr && focused->onKeyPress) {
            focused->onKeyPress(character);
            if (character == 0) {
                tellRefused(form, focused, event, before);
            }
            if (character == 0 || !form.shown_ || form.focused_ != focused) {
                return;
            }
        }
        if (focused != nullptr && character == U' ' && widgetKey(*focused, event)) {
            return;
        }
        result.handled = false;
        result.character = character;
        if (character == U'.' && focused != nullptr && focused->kind() == ControlKind::textBox) {
            static_cast<TextBox*>(focused)->pointTyped_ = true;
        }
    });
    return result;
}

// A character that a filter dropped and that did nothing else either.
void Interaction::tellRefused(const Form& form, Control* field, const KeyEvent& event, const std::string& before)
{
    const bool typed = field != nullptr && event.key == Key::character && form.shown_ && form.focused_ == field &&
                       desktop_.front() == &form && field->shownText() == before;
    const bool open = typed && ((field->kind() == ControlKind::textBox && !static_cast<TextBox*>(field)->locked()) ||
                                field->kind() == ControlKind::comboBox);
    if (open) {
        desktop_.keyRefused(*field);
    }
}

// Tab, Enter and Escape for their buttons, Alt and a letter, menu shortcuts, the pop-up menu.
bool Interaction::windowKey(Form& form, Control* focused, const KeyEvent& event)
{
    const ControlKind kind = focused != nullptr ? focused->kind() : ControlKind::label;
    switch (event.key) {
    case Key::tab:
        return tabKey(form, event);
    case Key::enter: {
        if (kind == ControlKind::button) {
            click(*focused);
            return true;
        }
        const bool ownEnter = kind == ControlKind::dataGrid || kind == ControlKind::flexGrid ||
                              (kind == ControlKind::textBox && static_cast<TextBox*>(focused)->multiLine &&
                               !static_cast<TextBox*>(focused)->locked());
        Button* target = form.defaultButton_;
        if (ownEnter || target == nullptr || !target->effectivelyEnabled() || !target->effectivelyVisible()) {
            return false;
        }
        leaveField(form, [&] { act(*target); });
        return true;
    }
    case Key::escape: {
        if (kind == ControlKind::dataGrid && static_cast<DataGrid*>(focused)->userEscape()) {
            return true;
        }
        Button* target = form.cancelButton_;
        if (target == nullptr || !target->effectivelyEnabled() || !target->effectivelyVisible()) {
            return false;
        }
        leaveField(form, [&] {
            if (!form.hasUnsavedWork() || desktop_.askBeforeLosing("Abbandonare i dati inseriti?", form.subject())) {
                act(*target);
            }
        });
        return true;
    }
    case Key::f10:
        if (event.shift && !event.ctrl && !event.alt) {
            Menu* menu = kind == ControlKind::listView ? static_cast<ListView*>(focused)->contextMenu : nullptr;
            if (menu == nullptr) {
                menu = form.popupMenu.get();
            }
            if (menu != nullptr) {
                desktop_.popupMenu(form, *menu);
                return true;
            }
        }
        return shortcut(form, event);
    case Key::pageUp:
    case Key::pageDown:
        if (event.ctrl) {
            for (Control* around = focused; around != nullptr; around = around->container()) {
                if (around->kind() == ControlKind::tabControl) {
                    KeyEvent arrow = event;
                    arrow.key = event.key == Key::pageUp ? Key::left : Key::right;
                    return widgetKey(*around, arrow);
                }
            }
        }
        return false;
    case Key::character:
        if (event.alt && !event.ctrl) {
            return mnemonic(form, event.character);
        }
        return event.ctrl && shortcut(form, event);
    default:
        return shortcut(form, event);
    }
}

bool Interaction::tabKey(Form& form, const KeyEvent& event)
{
    if (event.ctrl || event.alt) {
        return false;
    }
    Control* focused = form.focused_;
    if (focused != nullptr && focused->kind() == ControlKind::dataGrid &&
        static_cast<DataGrid*>(focused)->userTab(event.shift)) {
        return true;
    }
    if (Control* target = next(form, focused, event.shift); target != nullptr) {
        focus(*target);
    }
    return true;
}

bool Interaction::shortcut(Form& form, const KeyEvent& event)
{
    std::string wanted;
    wanted += event.ctrl ? "Ctrl+" : "";
    wanted += event.shift && event.key != Key::character ? "Shift+" : "";
    wanted += event.alt ? "Alt+" : "";
    if (event.key == Key::character) {
        wanted += upper(fromCodePoints(std::u32string(1, event.character)));
    } else if (event.key >= Key::f1 && event.key <= Key::f12) {
        wanted += "F" + std::to_string(static_cast<int>(event.key) - static_cast<int>(Key::f1) + 1);
    } else {
        return false;
    }
    const std::function<Menu*(Menu&)> search = [&](Menu& menu) -> Menu* {
        if (!menu.visible || !menu.enabled) {
            return nullptr;
        }
        if (menu.shortcut == wanted) {
            return &menu;
        }
        for (const auto& entry : menu.entries) {
            if (Menu* found = search(*entry); found != nullptr) {
                return found;
            }
        }
        return nullptr;
    };
    Form* main = desktop_.mainWindow();
    for (Form* owner : {&form, main}) {
        if (owner != nullptr && owner->menuBar != nullptr && !desktop_.blocked(*owner)) {
            if (Menu* found = search(*owner->menuBar); found != nullptr) {
                menu(*owner, *found);
                return true;
            }
        }
    }
    return false;
}

// Keys that mean the same whatever draws the control: Space on what can be clicked, arrows among options and pages and
// on a number that can be spun.
bool Interaction::widgetKey(Control& control, const KeyEvent& event)
{
    const bool forward = event.key == Key::right || event.key == Key::down;
    const bool backward = event.key == Key::left || event.key == Key::up;
    switch (control.kind()) {
    case ControlKind::button:
    case ControlKind::checkBox:
        if (event.key == Key::character && event.character == U' ') {
            click(control);
            return true;
        }
        return false;
    case ControlKind::optionButton: {
        if (event.key == Key::character && event.character == U' ') {
            click(control);
            return true;
        }
        if (!forward && !backward) {
            return false;
        }
        auto& option = static_cast<OptionButton&>(control);
        std::vector<OptionButton*> group = option.group();
        std::erase_if(group, [](OptionButton* other) { return !canHoldFocus(*other); });
        const auto place = std::find(group.begin(), group.end(), &option);
        if (place == group.end() || group.size() < 2) {
            return true;
        }
        const auto at = static_cast<std::size_t>(place - group.begin());
        click(*group[forward ? (at + 1) % group.size() : (at + group.size() - 1) % group.size()]);
        return true;
    }
    case ControlKind::tabControl: {
        const bool right = event.key == Key::right;
        if (!right && event.key != Key::left) {
            return false;
        }
        auto& tabs = static_cast<TabControl&>(control);
        const int count = static_cast<int>(tabs.pages().size());
        for (int page = tabs.tab() + (right ? 1 : -1); page >= 0 && page < count; page += right ? 1 : -1) {
            const TabControl::Page& candidate = tabs.pages()[static_cast<std::size_t>(page)];
            if (candidate.enabled && candidate.visible) {
                tab(tabs, page);
                break;
            }
        }
        return true;
    }
    case ControlKind::scrollBar:
        return static_cast<ScrollBar&>(control).userKey(event.key);
    case ControlKind::textBox: {
        // A number with spin arrows beside it.
        if ((event.key != Key::up && event.key != Key::down) || event.alt || event.ctrl || control.form() == nullptr) {
            return false;
        }
        for (Control* beside : control.form()->tabOrder()) {
            if (beside->kind() == ControlKind::spinButton && usable(*beside) &&
                static_cast<SpinButton*>(beside)->buddy == &control) {
                static_cast<SpinButton*>(beside)->spin(event.key == Key::up);
                return true;
            }
        }
        return false;
    }
    default:
        return false;
    }
}

// While a paste is filtered the box holds what would have been pasted so far; nobody is told, and it is undone.
class Interaction::PastePreview {
public:
    explicit PastePreview(TextBox* box) : box_(box)
    {
        if (box_ != nullptr) {
            text_ = box_->text_;
            start_ = box_->selStart_;
            length_ = box_->selLength_;
        }
    }
    ~PastePreview()
    {
        if (box_ != nullptr) {
            box_->text_ = text_;
            box_->selStart_ = start_;
            box_->selLength_ = length_;
        }
    }
    PastePreview(const PastePreview&) = delete;
    PastePreview& operator=(const PastePreview&) = delete;

    void insert(char32_t character) const
    {
        if (box_ == nullptr) {
            return;
        }
        std::u32string text = toCodePoints(box_->text_);
        const std::size_t start = std::min(box_->selStart_, text.size());
        text.replace(start, box_->selLength_, 1, character);
        box_->text_ = fromCodePoints(text);
        box_->selStart_ = start + 1;
        box_->selLength_ = 0;
    }

private:
    TextBox* box_;
    std::string text_;
    std::size_t start_ = 0;
    std::size_t length_ = 0;
};

std::u32string Interaction::filterPaste(Control& control, const std::u32string& text)
{
    auto* box = control.kind() == ControlKind::textBox ? static_cast<TextBox*>(&control) : nullptr;
    const bool oneLine = box == nullptr || !box->multiLine;
    std::u32string passed;
    // The filters see the text as it would stand behind each character.
    const PastePreview preview(control.onKeyPress ? box : nullptr);
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        if (character == U'\r') {
            if (i + 1 < text.size() && text[i + 1] == U'\n') {
                continue;
            }
            character = U'\n';
        }
        if (character == U'\n') {
            // A line break is no key of the person's: it never runs what Enter would.
            character = oneLine ? U' ' : U'\n';
        } else {
            if (control.form() != nullptr) {
                control.form()->onKeyPress(character);
            }
            if (character != 0 && control.onKeyPress) {
                control.onKeyPress(character);
            }
        }
        if (character != 0) {
            passed += character;
            preview.insert(character);
        }
    }
    return passed;
}

// Should two controls that can be used carry one letter all the same (none of their captions' was free), it only moves
// the focus from one to the next, so that no command runs that was not meant.
bool Interaction::mnemonic(Form& form, char32_t letter)
{
    if (desktop_.blocked(form)) {
        return false;
    }
    const char32_t wanted = toCodePoints(upper(fromCodePoints(std::u32string(1, letter)))).front();
    const std::vector<Control*>& order = form.tabOrder();
    const auto place = std::find(order.begin(), order.end(), form.focused_);
    const std::size_t start = place == order.end() ? 0 : static_cast<std::size_t>(place - order.begin()) + 1;

    const Letters letters(form);
    struct Target {
        Control* control = nullptr;
        int page = -1;         // of a tab control
        bool command = false;  // it acts, and does not only take the focus
    };
    const auto targetOf = [&](std::size_t at) -> Target {
        Control& control = *order[at];
        switch (control.kind()) {
        case ControlKind::button:
        case ControlKind::checkBox:
        case ControlKind::optionButton:
            if (letters.of(control) == wanted) {
                return {&control, -1, true};
            }
            break;
        case ControlKind::tabControl: {
            const auto& tabs = static_cast<TabControl&>(control);
            const auto& pages = tabs.pages();
            for (std::size_t page = 0; page < pages.size(); ++page) {
                if (letters.ofPage(tabs, static_cast<int>(page)) == wanted && pages[page].enabled &&
                    pages[page].visible) {
                    return {&control, static_cast<int>(page), true};
                }
            }
            break;
        }
        case ControlKind::label:
            // A label with a mark and no line of its own speaks for what follows it.
            if (letters.of(control) == wanted) {
                for (std::size_t after = at + 1; after < order.size(); ++after) {
                    if (order[after]->focusable()) {
                        return {order[after], -1, false};
                    }
                }
            }
            break;
        default:
            break;
        }
        if (letters.ofLine(control) == wanted) {
            return {&control, -1, false};
        }
        return {};
    };

    std::vector<Target> targets;
    for (std::size_t step = 0; step < order.size(); ++step) {
        const std::size_t at = (start + step) % order.size();
        if (!usable(*order[at])) {
            continue;
        }
        if (const Target target = targetOf(at); target.control != nullptr) {
            targets.push_back(target);
        }
    }
    if (targets.empty()) {
        return false;
    }
    const Target& first = targets.front();
    if (!first.command || targets.size() > 1) {
        desktop_.guard([&] { focus(*first.control); });
    } else if (first.page >= 0) {
        tab(static_cast<TabControl&>(*first.control), first.page);
    } else {
        click(*first.control);
    }
    return true;
}

}  // namespace bravona
