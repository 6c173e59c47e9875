#pragma once

#include <QStyledItemDelegate>

#include "platform/qt/Theme.h"

namespace bravona {

// Rows with a little air above and below the text.
class RowDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, theme::unit());
    }
};

}  // namespace bravona
