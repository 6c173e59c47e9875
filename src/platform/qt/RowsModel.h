#pragma once

#include <QAbstractTableModel>

namespace bravona {

// A table over records that it does not own: its size is followed, its contents are read when they are painted.
class RowsModel : public QAbstractTableModel {
public:
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : columns_;
    }

    // Rows may have come, gone or changed, anywhere: the view keeps its place.
    void followRows(int rows)
    {
        if (rows > rows_) {
            beginInsertRows({}, rows_, rows - 1);
            rows_ = rows;
            endInsertRows();
        } else if (rows < rows_) {
            beginRemoveRows({}, rows, rows_ - 1);
            rows_ = rows;
            endRemoveRows();
        }
        rowsChanged(0, rows_ - 1);
    }
    // One row more at the end, the others as they were.
    void rowAdded(int rows)
    {
        beginInsertRows({}, rows_, rows - 1);
        rows_ = rows;
        endInsertRows();
    }
    void rowsChanged(int first, int last)
    {
        if (first >= 0 && first <= last && last < rows_ && columns_ > 0) {
            Q_EMIT dataChanged(index(first, 0), index(last, columns_ - 1));
        }
    }
    void followColumns(int rows, int columns)
    {
        beginResetModel();
        rows_ = rows;
        columns_ = columns;
        endResetModel();
    }

private:
    int rows_ = 0;
    int columns_ = 0;
};

}  // namespace bravona
