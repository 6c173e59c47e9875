#include "platform/qt/ListWidget.h"

#include <QApplication>
#include <QDateTime>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>

#include "platform/qt/Conversions.h"
#include "platform/qt/Theme.h"
#include "platform/text/Text.h"
#include "platform/values/Errore.h"
#include "platform/values/Numeri.h"

namespace bravona {

// --- model

QString shownCell(const ListView& records, std::size_t row, std::size_t column)
{
    const ListRow& cells = records.row(row);
    if (column > cells.sub.size()) {
        return {};
    }
    const std::string& text = cells.cell(column);
    if (column < records.columns().size() && records.columns()[column].amount) {
        try {
            return parseAmount(text) ? toQt(FormattaImporto(text)) : oneLine(text);
        } catch (const Errore&) {
            // too large an amount stands as it was written
        }
    }
    return oneLine(text);
}

QVariant ListViewModel::data(const QModelIndex& index, int role) const
{
    const ListView* records = list();
    if (records == nullptr || !index.isValid() || index.row() >= static_cast<int>(records->rowCount())) {
        return {};
    }
    const ListRow& row = records->row(static_cast<std::size_t>(index.row()));
    const auto column = static_cast<std::size_t>(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return shownCell(*records, static_cast<std::size_t>(index.row()), column);
    case Qt::TextAlignmentRole:
        return column < records->columns().size() ? static_cast<int>(toQt(records->columns()[column].align))
                                                  : static_cast<int>(toQt(Align::left));
    case Qt::ForegroundRole:
        if (row.colour) {
            return theme::readable(*row.colour, QApplication::palette().color(QPalette::Base));
        }
        return {};
    case Qt::FontRole:
        if (row.bold) {
            QFont font;
            font.setBold(true);
            return font;
        }
        return {};
    case Qt::CheckStateRole:
        if (records->checkBoxes && column == 0) {
            return static_cast<int>(row.checked ? Qt::Checked : Qt::Unchecked);
        }
        return {};
    default:
        return {};
    }
}

QVariant ListViewModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const ListView* records = list();
    if (records == nullptr || orientation != Qt::Horizontal || section >= static_cast<int>(records->columns().size())) {
        return {};
    }
    const ListColumn& column = records->columns()[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) {
        return toQt(column.caption);
    }
    if (role == Qt::TextAlignmentRole) {
        return static_cast<int>(toQt(column.align));
    }
    return {};
}

Qt::ItemFlags ListViewModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    const ListView* records = list();
    if (records != nullptr && records->checkBoxes && index.column() == 0) {
        flags |= Qt::ItemIsUserCheckable;
    }
    return flags;
}

bool ListViewModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || list() == nullptr) {
        return false;
    }
    ticked(static_cast<std::size_t>(index.row()), value.toInt() == Qt::Checked);
    return true;
}

// --- view

QSize ListWidget::sizeHint() const
{
    const int row = fontMetrics().height() + theme::pixels(6);
    return {std::min(wantedWidth + 2 * frameWidth() + verticalScrollBar()->sizeHint().width(), theme::pixels(900)),
            header()->sizeHint().height() + row * lines + 2 * frameWidth()};
}

QSize ListWidget::minimumSizeHint() const
{
    const int row = fontMetrics().height() + theme::pixels(6);
    return {theme::pixels(160), header()->sizeHint().height() + row * std::min(lines, 3) + 2 * frameWidth()};
}

void ListWidget::keyboardSearch(const QString& text)
{
    // From the records themselves: a hundred thousand rows take no notice of it.
    const ListView* records = list();
    if (records == nullptr || records->rowCount() == 0) {
        return;
    }
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    searched_ = now - searchedAt_ > 1000 ? text : searched_ + text;
    searchedAt_ = now;
    const std::string wanted = fromQt(searched_);
    const auto count = records->rowCount();
    const auto start =
        currentIndex().isValid() ? static_cast<std::size_t>(currentIndex().row()) + (searched_.size() == 1 ? 1 : 0) : 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t row = (start + i) % count;
        if (startsWithFolded(records->row(row).text, wanted)) {
            setCurrentIndex(model()->index(static_cast<int>(row), 0));
            return;
        }
    }
}

void ListWidget::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (!emptyText.isEmpty() && model() != nullptr && model()->rowCount() == 0) {
        QPainter painter(viewport());
        painter.setPen(theme::faint(palette()));
        painter.drawText(viewport()->rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap, emptyText);
    }
}

// With nothing selected yet the toolkit takes every key for the first row.
QModelIndex ListWidget::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    if (!currentIndex().isValid() && action == MoveEnd && model()->rowCount() > 0) {
        return model()->index(model()->rowCount() - 1, 0);
    }
    return QTreeView::moveCursor(action, modifiers);
}

void ListWidget::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    pressing_ = true;
    QTreeView::mousePressEvent(event);
    pressing_ = false;
    if (!index.isValid() || !clickedRow) {
        return;
    }
    // A click on the mark of a row ticks it and leaves the rest alone.
    if (index.column() == 0 && index.flags().testFlag(Qt::ItemIsUserCheckable) && event->button() == Qt::LeftButton) {
        QStyleOptionViewItem option;
        initViewItemOption(&option);
        option.features |= QStyleOptionViewItem::HasCheckIndicator;
        option.rect = visualRect(index);
        if (style()
                ->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this)
                .contains(event->position().toPoint())) {
            return;
        }
    }
    clickedRow(index.row());
}

void ListWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    if (index.isValid() && event->button() == Qt::LeftButton && doubleClickedRow) {
        doubleClickedRow();
    }
}

bool ListWidget::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        const QModelIndex index = indexAt(help->pos());
        if (index.isValid()) {
            const QRect cell = visualRect(index);
            if (sizeHintForIndex(index).width() > cell.width()) {
                QToolTip::showText(help->globalPos(), index.data().toString(), viewport(), cell);
                return true;
            }
        }
        if (toolTip().isEmpty()) {
            QToolTip::hideText();
            return true;
        }
    }
    return QTreeView::viewportEvent(event);
}

void ListWidget::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (!following && !pressing_ && current.isValid() && current.row() != previous.row() && movedTo) {
        movedTo(current.row());
    }
}

void ListWidget::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    if (resized) {
        resized();
    }
}

}  // namespace bravona
