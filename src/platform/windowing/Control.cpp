#include "platform/windowing/Control.h"

#include "platform/windowing/Desktop.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Parts.h"

namespace bravona {

std::string Control::fullName() const
{
    std::string full = prefix_.empty() ? name_ : prefix_ + "." + name_;
    if (index_ >= 0) {
        full += "[" + std::to_string(index_) + "]";
    }
    return full;
}

bool Control::effectivelyEnabled() const
{
    if (!enabled_) {
        return false;
    }
    if (container_ == nullptr) {
        return true;
    }
    if (page_ >= 0 && container_->kind_ == ControlKind::tabControl &&
        !static_cast<const TabControl*>(container_)->pages()[static_cast<std::size_t>(page_)].enabled) {
        return false;
    }
    return container_->effectivelyEnabled();
}

bool Control::effectivelyVisible() const
{
    if (!visible_) {
        return false;
    }
    if (container_ == nullptr) {
        return true;
    }
    if (page_ >= 0 && container_->kind_ == ControlKind::tabControl) {
        const auto* tabs = static_cast<const TabControl*>(container_);
        if (tabs->tab() != page_ || !tabs->pages()[static_cast<std::size_t>(page_)].visible) {
            return false;
        }
    }
    return container_->effectivelyVisible();
}

void Control::setEnabled(bool enabled)
{
    if (enabled_ == enabled) {
        return;
    }
    enabled_ = enabled;
    notify(Aspect::enabled);
}

void Control::setVisible(bool visible)
{
    if (visible_ == visible) {
        return;
    }
    visible_ = visible;
    notify(Aspect::visible);
}

void Control::setBackColour(std::optional<Colour> colour)
{
    if (backColour_ == colour) {
        return;
    }
    backColour_ = colour;
    notify(Aspect::colours);
}

void Control::setForeColour(std::optional<Colour> colour)
{
    if (foreColour_ == colour) {
        return;
    }
    foreColour_ = colour;
    notify(Aspect::colours);
}

void Control::setToolTip(std::string tip)
{
    toolTip_ = std::move(tip);
    notify(Aspect::toolTip);
}

// From the inside out: the page that holds it, and the page that holds that one.
void Control::bringPagesForward() const
{
    if (container_ == nullptr)
        return;
    container_->bringPagesForward();
    if (page_ < 0 || container_->kind_ != ControlKind::tabControl)
        return;
    auto* tabs = static_cast<TabControl*>(container_);
    const TabControl::Page& page = tabs->pages()[static_cast<std::size_t>(page_)];
    if (tabs->tab() != page_ && page.enabled && page.visible)
        tabs->setTab(page_);
}

bool Control::setFocus()
{
    if (form_ != nullptr && form_->shown())
        bringPagesForward();
    return form_ != nullptr && form_->desktop().focus(*this);
}

bool Control::hasFocus() const
{
    return form_ != nullptr && form_->focusedControl() == this;
}

void Control::notify(Aspect aspect, std::size_t row)
{
    if (form_ != nullptr && form_->observer() != nullptr) {
        form_->observer()->changed(*this, aspect, row);
    }
}

}  // namespace bravona
