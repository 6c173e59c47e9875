#pragma once

#include <QTableView>
#include <functional>

#include "platform/qt/RowsModel.h"
#include "platform/qt/Steady.h"
#include "platform/windowing/Grids.h"

namespace bravona {

class DataGridModel final : public RowsModel {
public:
    std::function<const DataGrid*()> grid;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
};

class DataGridWidget final : public Steady<QTableView> {
public:
    explicit DataGridWidget(QWidget* parent) : Steady(parent) {}
    std::function<void(const QModelIndex&, QPoint)> clickedCell;
    std::function<void(const QModelIndex&, QPoint)> doubleClickedCell;
    std::function<void(const QModelIndex&)> movedTo;
    std::function<void()> moved;
    void drawButtons();  // in the cells of columns that have one
    [[nodiscard]] static QRect buttonIn(const QRect& cell);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    void keyboardSearch(const QString& /*text*/) override {}  // letters type into the cell

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;

private:
    bool pressing_ = false;
};

}  // namespace bravona
