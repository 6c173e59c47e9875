#pragma once

#include <QAbstractItemView>
#include <QHeaderView>
#include <QTableView>
#include <QTreeView>

#include "platform/qt/Conversions.h"
#include "support/journey/JourneyHost.h"

// Finding one's way in the toolkit's views; Impossible where a person could not.

namespace bravona {

template <class Kind>
Kind& as(QWidget& widget)
{
    auto* found = dynamic_cast<Kind*>(&widget);
    if (found == nullptr) {
        throw Impossible(fromQt(widget.objectName()) + " is drawn as something else");
    }
    return *found;
}

inline QRect indexRect(QAbstractItemView& view, const QModelIndex& index)
{
    if (!index.isValid()) {
        throw Impossible("there is no such row");
    }
    view.scrollTo(index);
    const QRect rect = view.visualRect(index).intersected(view.viewport()->rect());
    if (rect.isEmpty()) {
        throw Impossible("the row is out of sight");
    }
    return rect;
}

inline QHeaderView* headerOf(QWidget& widget)
{
    if (auto* tree = dynamic_cast<QTreeView*>(&widget)) {
        return tree->header();
    }
    if (auto* table = dynamic_cast<QTableView*>(&widget)) {
        return table->horizontalHeader();
    }
    throw Impossible("no headings there");
}

}  // namespace bravona
