#pragma once

#include <QAbstractItemView>
#include <QFocusEvent>

namespace bravona {

// An item view that chooses nothing by itself: the toolkit's own makes its first row the current one when it gets the
// focus.
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
    }
};

}  // namespace bravona
