#include "platform/windowing/Interaction.h"

#include <algorithm>

#include "platform/text/Text.h"
#include "platform/windowing/Desktop.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Grids.h"
#include "platform/windowing/Lists.h"
#include "platform/windowing/Parts.h"

namespace bravona {

namespace {

bool isLockedText(const Control& control)
{
    return control.kind() == ControlKind::textBox && static_cast<const TextBox&>(control).locked();
}

}  // namespace

// Among options the chosen one takes Tab, or the first where none is chosen.
bool Interaction::takesTab(Control& control)
{
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

bool Interaction::canHoldFocus(const Control& control)
{
    return control.focusable() && usable(control);
}

bool Interaction::usable(const Control& control)
{
    return control.effectivelyEnabled() && control.effectivelyVisible();
}

void Interaction::EvidenziaCampo(Control& box, bool focused)
{
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

bool Interaction::focus(Control& control)
{
    return moveFocus(control);
}

void Interaction::focusMoved(Form& form, Control* control)
{
    if (control == nullptr || control == form.focused_ || desktop_.blocked(form)) {
        return;
    }
    desktop_.guard([&] { moveFocus(*control); });
}

bool Interaction::moveFocus(Control& control)
{
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

// Raises `onLostFocus` once. False when a grid keeps its cell or a date is none, a handler took the focus, or it
// failed: then nothing has moved.
bool Interaction::leave(Form& form)
{
    Control* control = form.focused_;
    if (control == nullptr || form.fieldLeft_) {
        return true;
    }
    if (control->kind() == ControlKind::dataGrid && !static_cast<DataGrid*>(control)->userLeave()) {
        return false;
    }
    if (control->kind() == ControlKind::datePicker && !static_cast<DatePicker*>(control)->endTyping()) {
        return false;
    }
    form.fieldLeft_ = true;
    const bool text = control->kind() == ControlKind::textBox;
    if (text || control->kind() == ControlKind::datePicker) {
        EvidenziaCampo(*control, false);
    }
    const unsigned before = moves_;
    try {
        if (text) {
            static_cast<TextBox*>(control)->pointToComma();
        }
        if (control->onLostFocus) {
            control->onLostFocus();
        }
    } catch (...) {
        if (form.focused_ == control) {
            enter(form);
            desktop_.doFocus(*control);
        }
        throw;
    }
    return moves_ == before;
}

void Interaction::enter(Form& form)
{
    Control* control = form.focused_;
    if (control == nullptr || !form.fieldLeft_) {
        return;
    }
    if (!canHoldFocus(*control)) {
        return;
    }
    form.fieldLeft_ = false;
    if (control->kind() == ControlKind::textBox) {
        static_cast<TextBox*>(control)->pointTyped_ = false;
    }
    if (control->kind() == ControlKind::textBox || control->kind() == ControlKind::datePicker) {
        EvidenziaCampo(*control, true);
    }
    desktop_.doFocus(*control);
    if (control->onGotFocus) {
        control->onGotFocus();
    }
}

// `onGotFocus` of a field that was left for a command or another window, once that is over.
void Interaction::activated(Form& form)
{
    if (form.commands_ == 0 && form.shown_ && desktop_.front() == &form) {
        enter(form);
    }
}

bool Interaction::leaveField(Form& form, const std::function<void()>& command)
{
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

void Interaction::focusFirst(Form& form)
{
    if (Control* first = next(form, nullptr, false); first != nullptr) {
        focus(*first);
    }
}

Control* Interaction::next(Form& form, Control* from, bool backwards) const
{
    const std::vector<Control*>& order = form.tabOrder();
    const std::size_t count = order.size();
    if (count == 0) {
        return nullptr;
    }
    const auto place = std::find(order.begin(), order.end(), from);
    std::size_t at = place != order.end() ? static_cast<std::size_t>(place - order.begin()) : backwards ? 0 : count - 1;
    auto* option =
        from != nullptr && from->kind() == ControlKind::optionButton ? static_cast<OptionButton*>(from) : nullptr;
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

// After a command: a control that can no longer hold the focus hands it on, without `onLostFocus` of its own being due
// twice.
void Interaction::settle(Form& form)
{
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

// --- commands ---------------------------------------------------------------------------------------------------

void Interaction::act(Control& control)
{
    if (!usable(control)) {
        return;
    }
    switch (control.kind()) {
    case ControlKind::checkBox: {
        auto& box = static_cast<CheckBox&>(control);
        box.setChecked(!box.checked());
        break;
    }
    case ControlKind::optionButton:
        static_cast<OptionButton&>(control).choose();
        break;
    default:
        if (control.onClick) {
            control.onClick();
        }
    }
}

void Interaction::click(Control& control)
{
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

void Interaction::doubleClick(Control& control)
{
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

bool Interaction::wheel(PictureBox& picture, int notches, bool sideways)
{
    const auto moves = [](const ScrollBar* bar) { return bar != nullptr && usable(*bar); };
    ScrollBar* bar = sideways || !moves(picture.verticalBar) ? picture.horizontalBar : picture.verticalBar;
    if (!moves(bar) || desktop_.blocked(*picture.form())) {
        return false;
    }
    desktop_.guard([&] { bar->setValue(bar->value() - notches * bar->step()); });
    return true;
}

void Interaction::menu(Form& form, Menu& entry)
{
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

void Interaction::tab(TabControl& tabs, int page)
{
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
        if (!focus(tabs)) {
            return;
        }
        tabs.setTab(page);
        // Where the screen says nothing else, the page is opened to be typed in.
        if (form->shown_ && form->focused_ == &tabs && tabs.tab() == page) {
            if (Control* inside = firstOnPage(*form, tabs); inside != nullptr) {
                focus(*inside);
            }
        }
    });
}

Control* Interaction::firstOnPage(Form& form, TabControl& tabs) const
{
    for (Control* candidate : form.tabOrder()) {
        const Control* around = candidate->container();
        while (around != nullptr && around != &tabs) {
            around = around->container();
        }
        if (around != nullptr && takesTab(*candidate)) {
            return candidate;
        }
    }
    return nullptr;
}

void Interaction::front(Form& form)
{
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

void Interaction::close(Form& form)
{
    if (desktop_.blocked(form)) {
        return;
    }
    desktop_.guard([&] { leaveField(form, [&] { desktop_.unload(form, CloseCause::person); }); });
}

}  // namespace bravona
