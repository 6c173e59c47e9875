#include "platform/windowing/Form.h"

#include <algorithm>

#include "platform/text/Text.h"
#include "platform/windowing/Desktop.h"
#include "platform/windowing/Fields.h"

namespace bravona {

namespace {

// The control that a label in front of this content speaks of.
Control* firstFocusable(const Layout& content)
{
    Control* found = nullptr;
    layout::forEachControl(content, [&](Control& control) {
        if (found != nullptr) {
            return;
        }
        if (control.focusable()) {
            found = &control;
        } else if (control.kind() == ControlKind::composite) {
            found = &static_cast<Composite&>(control).mainPart();
        }
    });
    return found;
}

}  // namespace

Form::Form(Desktop& desktop, std::string name, std::string caption, WindowStyle style)
    : desktop_(desktop),
      name_(std::move(name)),
      caption_(std::move(caption)),
      style_(style)
{}

Form::~Form() = default;

void Form::setCaption(std::string caption)
{
    caption_ = std::move(caption);
    if (observer_ != nullptr) {
        observer_->changed(*this);
    }
}

void Form::setDefaultButton(Button* button)
{
    defaultButton_ = button;
    if (observer_ != nullptr) {
        observer_->changed(*this);
    }
}

void Form::setCancelButton(Button* button)
{
    cancelButton_ = button;
    if (observer_ != nullptr) {
        observer_->changed(*this);
    }
}

void Form::statusBarChanged()
{
    if (observer_ != nullptr) {
        observer_->changed(*this);
    }
}

void Form::menuChanged()
{
    if (observer_ != nullptr) {
        observer_->changed(*this);
    }
}

void Form::add(const std::string& name, Control& control, int index)
{
    control.name_ = name;
    control.index_ = index;
    control.form_ = this;
    controls_.push_back({name, index, &control});
    if (control.kind() == ControlKind::composite) {
        const std::string prefix = control.fullName();
        for (const Composite::Part& part : static_cast<Composite&>(control).parts()) {
            part.control->name_ = part.name;
            part.control->prefix_ = prefix;
            part.control->index_ = part.index;
            part.control->form_ = this;
            part.control->container_ = &control;
            controls_.push_back({prefix + "." + part.name, part.index, part.control});
        }
    }
}

Control* Form::find(std::string_view fullName) const
{
    for (const Entry& entry : controls_) {
        if (entry.control->fullName() == fullName) {
            return entry.control;
        }
    }
    return nullptr;
}

std::string Form::fieldContents(const std::vector<const Control*>& except) const
{
    constexpr std::array fields{ControlKind::textBox,  ControlKind::checkBox, ControlKind::optionButton,
                                ControlKind::comboBox, ControlKind::listBox,  ControlKind::datePicker};
    std::string contents;
    for (const Entry& entry : controls_) {
        if (std::ranges::find(fields, entry.control->kind()) != fields.end() &&
            std::ranges::find(except, entry.control) == except.end()) {
            contents.append(entry.control->shownText()).append(1, '\0');
        }
    }
    return contents;
}

void Form::setLayout(Layout layout)
{
    layout_ = std::move(layout);
    tabOrder_.clear();
    place(layout_, nullptr, -1);
    for (const Entry& entry : controls_) {
        if (std::find(tabOrder_.begin(), tabOrder_.end(), entry.control) == tabOrder_.end()) {
            tabOrder_.push_back(entry.control);
        }
    }
}

void Form::place(const Layout& node, Control* container, int page)
{
    if (node.label != nullptr) {
        node.label->container_ = container;
        node.label->page_ = page;
        tabOrder_.push_back(node.label);
    }
    if (node.kind == Layout::Kind::line && !node.children.empty()) {
        if (Control* buddy = firstFocusable(node.children.front()); buddy != nullptr) {
            const std::string caption = node.label != nullptr ? node.label->shownText() : node.caption;
            buddy->labelCaption_ = caption;
            buddy->label_ = node.label;
            if (buddy->accessibleName_.empty()) {
                buddy->accessibleName_ = withoutMnemonic(caption);
            }
        }
    }
    if (node.control != nullptr) {
        node.control->container_ = container;
        node.control->page_ = page;
        tabOrder_.push_back(node.control);
        if (node.control->kind() == ControlKind::composite) {
            placeParts(*node.control);
        }
    }
    const bool contains = node.kind == Layout::Kind::frame || node.kind == Layout::Kind::tabs;
    int child = 0;
    for (const Layout& inner : node.children) {
        place(inner, contains ? node.control : container,
              node.kind == Layout::Kind::tabs ? child
              : contains                      ? -1
                                              : page);
        ++child;
    }
}

void Form::placeParts(Control& control)
{
    auto& compound = static_cast<Composite&>(control);
    place(compound.layout(), &control, -1);
    for (const Composite::Part& part : compound.parts()) {
        if (std::find(tabOrder_.begin(), tabOrder_.end(), part.control) == tabOrder_.end()) {
            tabOrder_.push_back(part.control);
        }
    }
}

void Form::show()
{
    desktop_.show(*this);
}
void Form::showModal()
{
    desktop_.showModal(*this);
}
void Form::hide()
{
    desktop_.hide(*this);
}
bool Form::unload()
{
    return desktop_.unload(*this);
}

}  // namespace bravona
