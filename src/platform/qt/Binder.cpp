#include "platform/qt/Binder.h"

#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/QtDesktop.h"

namespace bravona {

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
        widget_->setEnabled(control_->enabled());
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

void Binder::refresh()
{
    if (!alive() || !widget_) {
        return;
    }
    widget_->setEnabled(control_->enabled());
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
