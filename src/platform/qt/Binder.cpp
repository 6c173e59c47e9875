#include "platform/qt/Binder.h"

#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/QtDesktop.h"

namespace bravona {

namespace {

bool inDisabledFrame(const Control& control)
{
    const Control* around = control.container();
    while (around != nullptr && (around->kind() != ControlKind::frame || around->enabled())) {
        around = around->container();
    }
    return around != nullptr;
}

}  // namespace

Binder::Binder(FormWindow& window, Control& control) : window_(window), control_(&control) {}

QtDesktop& Binder::desktop() const
{
    return window_.desktop();
}

void Binder::setWidget(QWidget* widget)
{
    widget_ = widget;
    widget->setObjectName(toQt(control_->fullName()));
}

void Binder::enter(const std::function<void()>& entry)
{
    if (alive()) {
        window_.desktop().enter(entry);
    }
}

void Binder::changed(Aspect aspect, std::size_t row)
{
    if (!alive() || !widget_) {
        return;
    }
    switch (aspect) {
    case Aspect::enabled:
        followEnabled();
        follow(aspect, row);
        break;
    case Aspect::visible:
        widget_->setVisible(control_->visible());
        follow(aspect, row);
        break;
    case Aspect::colours:
        followColours();
        break;
    case Aspect::toolTip:
        widget_->setToolTip(toQt(control_->toolTip()));
        break;
    default:
        follow(aspect, row);
        break;
    }
}

void Binder::followEnabled()
{
    if (!alive() || !widget_) {
        return;
    }
    if (control_->kind() == ControlKind::frame) {
        window_.followEnabledIn(*control_);
        return;
    }
    reading_ = control_->enabled() && inDisabledFrame(*control_);
    widget_->setEnabled(control_->enabled() && (!reading_ || canBeRead()));
    followReading();
}

void Binder::refresh()
{
    if (!alive() || !widget_) {
        return;
    }
    followEnabled();
    if (!control_->visible()) {
        widget_->setVisible(false);
    }
    widget_->setToolTip(toQt(control_->toolTip()));
    const std::string& own = control_->accessibleName();
    const std::string& label = control_->labelCaption();
    QString name = captionWithoutMark(own.empty() ? label : own);
    while (name.endsWith(QLatin1Char(':')) || name.endsWith(QLatin1Char(' '))) {
        name.chop(1);
    }
    if (!name.isEmpty()) {
        widget_->setAccessibleName(name);
        if (focusWidget() != nullptr) {
            focusWidget()->setAccessibleName(name);
        }
    }
    followAll();
    followColours();
}

}  // namespace bravona
