#include "platform/qt/DataGridWidget.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "platform/qt/Conversions.h"
#include "platform/qt/Theme.h"

namespace bravona {

namespace {

constexpr int buttonRole = Qt::UserRole;

QRect buttonIn(const QRect& cell)
{
    const int side = std::min(cell.height(), cell.width());
    return {cell.right() - side + 1, cell.top(), side, side};
}

class CellDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        if (!index.data(buttonRole).toBool()) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        QStyleOptionViewItem text = option;
        text.rect.setRight(buttonIn(option.rect).left() - 1);
        QStyledItemDelegate::paint(painter, text, index);
        QStyleOptionButton button;
        button.rect = buttonIn(option.rect).adjusted(1, 1, -1, -1);
        button.text = QStringLiteral("…");
        button.state = option.state | QStyle::State_Raised;
        button.palette = option.palette;
        button.fontMetrics = option.fontMetrics;
        option.widget->style()->drawControl(QStyle::CE_PushButton, &button, painter, option.widget);
    }
};

}  // namespace

// --- model

QVariant DataGridModel::data(const QModelIndex& index, int role) const
{
    const DataGrid* records = grid();
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    if (records == nullptr || row >= records->shownRows() || column >= records->columns().size()) {
        return {};
    }
    const DataColumn& info = records->columns()[column];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return toQt(records->cellText(row, column));
    case Qt::TextAlignmentRole:
        return static_cast<int>(toQt(info.align));
    case buttonRole:
        return info.button;
    default:
        return {};
    }
}

QVariant DataGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const DataGrid* records = grid();
    if (records == nullptr) {
        return {};
    }
    const auto at = static_cast<std::size_t>(section);
    if (orientation == Qt::Vertical) {
        if (role == Qt::DisplayRole) {
            const bool current = at == records->row();
            const bool newRow = at >= records->dataRows();
            return current && records->editing() ? QStringLiteral("✎")
                   : newRow                      ? QStringLiteral("*")
                   : current                     ? QStringLiteral("▸")
                                                 : QString();
        }
        return role == Qt::TextAlignmentRole ? QVariant(static_cast<int>(Qt::AlignCenter)) : QVariant();
    }
    if (at >= records->columns().size()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return toQt(records->caption(at));
    }
    if (role == Qt::TextAlignmentRole) {
        return data(index(0, section), Qt::TextAlignmentRole).isValid()
                   ? data(index(0, section), Qt::TextAlignmentRole)
                   : QVariant(static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter));
    }
    return {};
}

// --- view

QSize DataGridWidget::sizeHint() const
{
    return {std::clamp(horizontalHeader()->length() + verticalHeader()->width() + theme::pixels(24), theme::pixels(320),
                       theme::pixels(900)),
            horizontalHeader()->sizeHint().height() + verticalHeader()->defaultSectionSize() * 12 + 4};
}

QSize DataGridWidget::minimumSizeHint() const
{
    return {theme::pixels(200), horizontalHeader()->sizeHint().height() + verticalHeader()->defaultSectionSize() * 3};
}

void DataGridWidget::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    pressing_ = true;
    following = true;
    QTableView::mousePressEvent(event);
    following = false;
    pressing_ = false;
    if (index.isValid() && event->button() == Qt::LeftButton && clickedCell) {
        clickedCell(index, event->position().toPoint());
    }
}

void DataGridWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    if (index.isValid() && event->button() == Qt::LeftButton && doubleClickedCell) {
        doubleClickedCell(index, event->position().toPoint());
    }
}

void DataGridWidget::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    if (!following && !pressing_ && current.isValid() && movedTo) {
        movedTo(current);
    }
}

void DataGridWidget::updateGeometries()
{
    QTableView::updateGeometries();
    if (moved) {
        moved();
    }
}

void DataGridWidget::scrollContentsBy(int dx, int dy)
{
    QTableView::scrollContentsBy(dx, dy);
    if (moved) {
        moved();
    }
}

void DataGridWidget::drawButtons()
{
    setItemDelegate(new CellDelegate(this));
}

QRect DataGridWidget::buttonIn(const QRect& cell)
{
    return bravona::buttonIn(cell);
}

}  // namespace bravona
