#include "platform/windowing/Interaction.h"

#include <algorithm>

#include "platform/text/Text.h"
#include "platform/windowing/Desktop.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Grids.h"
#include "platform/windowing/Parts.h"

namespace bravona {

namespace {

bool canHoldFocus(const Control& control) {
    return control.focusable() && control.effectivelyEnabled() && control.effectivelyVisible();
}

bool isLockedText(const Control& control) {
    return control.kind() == ControlKind::textBox && static_cast<const TextBox&>(control).locked();
}

// Among options the chosen one takes Tab, or the first where none is chosen.
bool takesTab(Control& control) {
    if (!canHoldFocus(control) || !control.tabStop || isLockedText(control)) {
        return false;
    }
    if (control.kind() != ControlKind::optionButton) {
        return true;
    }
    auto& option = static_cast<OptionButton&>(control);
    if (option.chosen()) {
        return true;
    }
    for (OptionButton* other : option.group()) {
        if (canHoldFocus(*other)) {
            if (other->chosen()) {
                return false;
            }
        }
    }
    for (OptionButton* other : option.group()) {
        if (canHoldFocus(*other)) {
            return other == &option;
        }
    }
    return false;
}

} // namespace

void Interaction::EvidenziaCampo(Control& box, bool focused) {
    if (!focused) {
        box.setBackColour(std::nullopt);
        return;
    }
    if (box.kind() == ControlKind::textBox) {
        auto& text = static_cast<TextBox&>(box);
        if (!text.locked()) {
            box.setBackColour(colours::focusYellow);
        }
        if (text.selectOnFocus && !text.multiLine) {
            text.selectAll();
        }
        return;
    }
    box.setBackColour(colours::focusYellow);
}

// --- focus ------------------------------------------------------------------------------------------------------

bool Interaction::focus(Control& control) { return moveFocus(control); }

void Interaction::focusMoved(Form& form, Control* control) {
    if (control == nullptr || control == form.focused_ || desktop_.blocked(form)) {
        return;
    }
    desktop_.guard([&] { moveFocus(*control); });
}

bool Interaction::moveFocus(Control& control) {
    Form* form = control.form();
    if (control.kind() == ControlKind::composite) {
        return moveFocus(static_cast<Composite&>(control).mainPart());
    }
    if (form == nullptr || !canHoldFocus(control)) {
        return false;
    }
    if (!form->shown_ || desktop_.front() != form) {
        // Not in front: it is remembered, and the events come when the window does.
        ++moves_;
        form->focused_ = &control;
        form->fieldLeft_ = true;
        return true;
    }
    if (form->focused_ == &control && !form->fieldLeft_) {
        ++moves_;
        desktop_.doFocus(control);
        return true;
    }
    Control* left = form->focused_;
    const unsigned before = moves_;
    if (!leave(*form)) {
        // A handler may have sent the focus elsewhere itself; otherwise it stays where it was.
        if (left != nullptr && form->focused_ == left) {
            desktop_.doFocus(*left);
        }
        return form->focused_ == &control;
    }
    if (moves_ != before || !form->shown_ || !canHoldFocus(control)) {
        return form->focused_ == &control;
    }
    ++moves_;
    form->focused_ = &control;
    form->fieldLeft_ = true;
    enter(*form);
    return form->focused_ == &control;
}

// Raises `onLostFocus` once. False when a grid keeps its cell, a handler took the focus, or it failed: then nothing has moved.
bool Interaction::leave(Form& form) {
    Control* control = form.focused_;
    if (control == nullptr || form.fieldLeft_) {
        return true;
    }
    if (control->kind() == ControlKind::dataGrid && !static_cast<DataGrid*>(control)->userLeave()) {
        return false;
    }
    form.fieldLeft_ = true;
    if (control->kind() == ControlKind::textBox || control->kind() == ControlKind::datePicker) {
        EvidenziaCampo(*control, false);
    }
    if (!control->onLostFocus) {
        return true;
    }
    const unsigned before = moves_;
    try {
        control->onLostFocus();
    } catch (...) {
        if (form.focused_ == control) {
            enter(form);
            desktop_.doFocus(*control);
        }
        throw;
    }
    return moves_ == before;
}

void Interaction::enter(Form& form) {
    Control* control = form.focused_;
    if (control == nullptr || !form.fieldLeft_) {
        return;
    }
    if (!canHoldFocus(*control)) {
        return;
    }
    form.fieldLeft_ = false;
    if (control->kind() == ControlKind::textBox || control->kind() == ControlKind::datePicker) {
        EvidenziaCampo(*control, true);
    }
    desktop_.doFocus(*control);
    if (control->onGotFocus) {
        control->onGotFocus();
    }
}

// `onGotFocus` of a field that was left for a command or another window, once that is over.
void Interaction::activated(Form& form) {
    if (form.commands_ == 0 && form.shown_ && desktop_.front() == &form) {
        enter(form);
    }
}

bool Interaction::leaveField(Form& form, const std::function<void()>& command) {
    if (!leave(form)) {
        return false;
    }
    ++form.commands_;
    try {
        command();
    } catch (...) {
        --form.commands_;
        throw;
    }
    --form.commands_;
    activated(form);
    return true;
}

void Interaction::focusFirst(Form& form) {
    if (Control* first = next(form, nullptr, false); first != nullptr) {
        focus(*first);
    }
}

Control* Interaction::next(Form& form, Control* from, bool backwards) const {
    const std::vector<Control*>& order = form.tabOrder();
    const std::size_t count = order.size();
    if (count == 0) {
        return nullptr;
    }
    const auto place = std::find(order.begin(), order.end(), from);
    std::size_t at = place != order.end() ? static_cast<std::size_t>(place - order.begin())
                     : backwards          ? 0
                                          : count - 1;
    auto* option = from != nullptr && from->kind() == ControlKind::optionButton ? static_cast<OptionButton*>(from) : nullptr;
    const std::vector<OptionButton*> group = option != nullptr ? option->group() : std::vector<OptionButton*>();
    for (std::size_t step = 0; step < count; ++step) {
        at = backwards ? (at + count - 1) % count : (at + 1) % count;
        Control* candidate = order[at];
        if (candidate != from && takesTab(*candidate) &&
            std::find(group.begin(), group.end(), candidate) == group.end()) {
            return candidate;
        }
    }
    return nullptr;
}

// After a command: a control that can no longer hold the focus hands it on, without `onLostFocus` of its own being due twice.
void Interaction::settle(Form& form) {
    Control* control = form.focused_;
    if (control == nullptr) {
        focusFirst(form);
        return;
    }
    if (canHoldFocus(*control)) {
        activated(form);
        return;
    }
    if (Control* following = next(form, control, false); following != nullptr) {
        focus(*following);
        return;
    }
    leave(form);
    form.focused_ = nullptr;
}

// --- keyboard ---------------------------------------------------------------------------------------------------

Interaction::KeyResult Interaction::key(Form& form, KeyEvent event) {
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
        case Key::character: character = event.ctrl || event.alt ? 0 : event.character; break;
        case Key::enter: character = 13; break;
        case Key::backspace: character = 8; break;
        case Key::escape: character = 27; break;
        default: break;
        }
        if (character == 0) {
            result.handled = focused != nullptr && widgetKey(*focused, event);
            return;
        }
        form.onKeyPress(character);
        if (character == 0 || !form.shown_ || form.focused_ != focused) {
            return;
        }
        if (focused != nullptr && focused->onKeyPress) {
            focused->onKeyPress(character);
            if (character == 0 || !form.shown_ || form.focused_ != focused) {
                return;
            }
        }
        if (focused != nullptr && character == U' ' && widgetKey(*focused, event)) {
            return;
        }
        result.handled = false;
        result.character = character;
    });
    return result;
}

// Tab, Enter and Escape for their buttons, Alt and a letter, menu shortcuts, the pop-up menu.
bool Interaction::windowKey(Form& form, Control* focused, const KeyEvent& event) {
    const ControlKind kind = focused != nullptr ? focused->kind() : ControlKind::label;
    switch (event.key) {
    case Key::tab: return tabKey(form, event);
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
        leaveField(form, [&] { act(*target); });
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
    default: return shortcut(form, event);
    }
}

bool Interaction::tabKey(Form& form, const KeyEvent& event) {
    if (event.ctrl || event.alt) {
        return false;
    }
    Control* focused = form.focused_;
    if (focused != nullptr && focused->kind() == ControlKind::dataGrid) {
        // Within a row Tab goes from cell to cell.
        auto& grid = static_cast<DataGrid&>(*focused);
        const std::size_t count = grid.columns().size();
        std::size_t column = grid.col();
        while (event.shift ? column > 0 : column + 1 < count) {
            column = event.shift ? column - 1 : column + 1;
            const DataColumn& candidate = grid.columns()[column];
            if (candidate.visible && candidate.width != 0) {
                grid.userMove(grid.row(), column);
                return true;
            }
        }
    }
    if (Control* target = next(form, focused, event.shift); target != nullptr) {
        focus(*target);
    }
    return true;
}

bool Interaction::shortcut(Form& form, const KeyEvent& event) {
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

// Keys that mean the same whatever draws the control: Space on what can be clicked, arrows among options and pages.
bool Interaction::widgetKey(Control& control, const KeyEvent& event) {
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
    default: return false;
    }
}

std::u32string Interaction::filterPaste(Control& control, const std::u32string& text) {
    const bool oneLine = control.kind() != ControlKind::textBox || !static_cast<TextBox&>(control).multiLine;
    std::u32string passed;
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
            passed += oneLine ? U' ' : U'\n';
            continue;
        }
        if (control.form() != nullptr) {
            control.form()->onKeyPress(character);
        }
        if (character != 0 && control.onKeyPress) {
            control.onKeyPress(character);
        }
        if (character != 0) {
            passed += character;
        }
    }
    return passed;
}

// --- commands ---------------------------------------------------------------------------------------------------

namespace {

bool usable(const Control& control) { return control.effectivelyEnabled() && control.effectivelyVisible(); }

} // namespace

void Interaction::act(Control& control) {
    if (!usable(control)) {
        return;
    }
    switch (control.kind()) {
    case ControlKind::checkBox: {
        auto& box = static_cast<CheckBox&>(control);
        box.setChecked(!box.checked());
        break;
    }
    case ControlKind::optionButton: static_cast<OptionButton&>(control).choose(); break;
    default:
        if (control.onClick) {
            control.onClick();
        }
    }
}

void Interaction::click(Control& control) {
    Form* form = control.form();
    if (form == nullptr || desktop_.blocked(*form) || !usable(control)) {
        return;
    }
    desktop_.guard([&] {
        if (control.focusable()) {
            if (focus(control) && form->shown_) {
                act(control);
            }
            return;
        }
        leaveField(*form, [&] { act(control); });
    });
}

void Interaction::doubleClick(Control& control) {
    Form* form = control.form();
    if (form == nullptr || desktop_.blocked(*form) || !usable(control)) {
        return;
    }
    desktop_.guard([&] {
        if (control.focusable() && !focus(control)) {
            return;
        }
        if (control.onDblClick) {
            control.onDblClick();
        }
    });
}

void Interaction::menu(Form& form, Menu& entry) {
    if (desktop_.blocked(form) || !entry.enabled || !entry.visible || !entry.onClick) {
        return;
    }
    desktop_.guard([&] {
        Form* left = desktop_.front();
        const std::function<void()> action = entry.onClick;
        if (left != nullptr) {
            leaveField(*left, action);
        } else {
            action();
        }
    });
}

void Interaction::tab(TabControl& tabs, int page) {
    Form* form = tabs.form();
    if (form == nullptr || desktop_.blocked(*form) || !usable(tabs) || page < 0 ||
        page >= static_cast<int>(tabs.pages().size())) {
        return;
    }
    const TabControl::Page& wanted = tabs.pages()[static_cast<std::size_t>(page)];
    if (!wanted.enabled || !wanted.visible) {
        return;
    }
    desktop_.guard([&] {
        if (focus(tabs)) {
            tabs.setTab(page);
        }
    });
}

void Interaction::front(Form& form) {
    if (desktop_.blocked(form) || !form.shown_ || desktop_.front() == &form) {
        return;
    }
    desktop_.guard([&] {
        Form* left = desktop_.front();
        if (left != nullptr && !leave(*left)) {
            return;
        }
        desktop_.show(form);
    });
}

void Interaction::close(Form& form) {
    if (desktop_.blocked(form)) {
        return;
    }
    desktop_.guard([&] { leaveField(form, [&] { desktop_.unload(form, CloseCause::person); }); });
}

bool Interaction::mnemonic(Form& form, char32_t letter) {
    if (desktop_.blocked(form)) {
        return false;
    }
    const std::u32string wanted = toCodePoints(upper(fromCodePoints(std::u32string(1, letter))));
    const std::vector<Control*>& order = form.tabOrder();
    const auto place = std::find(order.begin(), order.end(), form.focused_);
    const std::size_t start = place == order.end() ? 0 : static_cast<std::size_t>(place - order.begin()) + 1;
    for (std::size_t step = 0; step < order.size(); ++step) {
        const std::size_t at = (start + step) % order.size();
        Control& control = *order[at];
        if (!usable(control)) {
            continue;
        }
        switch (control.kind()) {
        case ControlKind::button:
        case ControlKind::checkBox:
        case ControlKind::optionButton:
            if (bravona::mnemonic(control.shownText()) == wanted.front()) {
                click(control);
                return true;
            }
            break;
        case ControlKind::tabControl: {
            auto& tabs = static_cast<TabControl&>(control);
            for (std::size_t page = 0; page < tabs.pages().size(); ++page) {
                if (bravona::mnemonic(tabs.pages()[page].caption) == wanted.front() && tabs.pages()[page].enabled &&
                    tabs.pages()[page].visible) {
                    tab(tabs, static_cast<int>(page));
                    return true;
                }
            }
            break;
        }
        case ControlKind::label:
            // A label with a mark and no line of its own speaks for what follows it.
            if (bravona::mnemonic(control.shownText()) == wanted.front()) {
                for (std::size_t after = at + 1; after < order.size(); ++after) {
                    if (order[after]->focusable()) {
                        Control* target = order[after];
                        desktop_.guard([&] { focus(*target); });
                        return true;
                    }
                }
            }
            break;
        default: break;
        }
        if (control.focusable() && bravona::mnemonic(control.labelCaption()) == wanted.front()) {
            desktop_.guard([&] { focus(control); });
            return true;
        }
    }
    return false;
}

} // namespace bravona
