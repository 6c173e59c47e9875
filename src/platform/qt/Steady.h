#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QFocusEvent>
#include <QStyleOptionViewItem>

#include "platform/qt/Theme.h"

namespace bravona {

// An item view that chooses nothing by itself: the toolkit's own makes its first row the current one when it gets the
// focus. It shows whether the keys go to it.
template <class Base>
class Steady : public Base {
public:
    using Base::Base;
    bool following = false;  // the record is being followed: changes are none of the person's

protected:
    void focusInEvent(QFocusEvent* event) override
    {
        const bool none = !this->currentIndex().isValid();
        const bool before = following;
        following = true;
        Base::focusInEvent(event);
        if (none && this->selectionModel() != nullptr) {
            this->selectionModel()->clearCurrentIndex();
        }
        following = before;
        this->viewport()->update();
    }
    void focusOutEvent(QFocusEvent* event) override
    {
        Base::focusOutEvent(event);
        this->viewport()->update();
    }
    // What is selected stands out where the keys go, and is only tinted elsewhere.
    void initViewItemOption(QStyleOptionViewItem* option) const override
    {
        Base::initViewItemOption(option);
        const QWidget* focused = QApplication::focusWidget();
        if (focused == nullptr || (focused != this && !this->isAncestorOf(focused))) {
            option->palette.setColor(QPalette::Highlight, theme::tinted(option->palette));
            option->palette.setColor(QPalette::HighlightedText, option->palette.color(QPalette::Text));
        }
    }
};

}  // namespace bravona
