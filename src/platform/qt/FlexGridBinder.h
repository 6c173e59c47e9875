#pragma once

#include <QStyledItemDelegate>
#include <QTableView>

#include "platform/qt/Binder.h"
#include "platform/qt/RowsModel.h"
#include "platform/qt/Steady.h"
#include "platform/windowing/Grids.h"

namespace bravona {

// Rows of the grid below its heading row, which is the view's header.
class FlexGridModel final : public RowsModel {
public:
    std::function<const FlexGrid*()> grid;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
};

class FlexGridWidget final : public Steady<QTableView> {
public:
    explicit FlexGridWidget(QWidget* parent) : Steady(parent) {}
    std::function<void(int, int)> clickedCell;
    std::function<void(int, int)> doubleClickedCell;
    std::function<void(int, int)> movedTo;
    std::function<void()> moved;                              // scrolled or resized: editors follow their cells
    void keyboardSearch(const QString& /*text*/) override {}  // letters belong to the screen
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;

private:
    bool pressing_ = false;
};

class FlexGridBinder final : public BinderOf<FlexGrid> {
public:
    FlexGridBinder(FormWindow& window, FlexGrid& grid, QWidget* parent);
    void detach() override;
    [[nodiscard]] QRect cell(int row, int col) const;  // in the viewport

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;
    void followColours() override;

private:
    void followColumns();
    void followRows();
    void followLock();
    void followCurrent();
    void followEditors();
    void layEditors();
    void shareSpareWidth();
    void fitFigures(int first, int last);  // rows of the grid
    FlexGridWidget* view_;
    FlexGridModel* model_;
    std::vector<int> wanted_;  // widths of the columns before they share what room is left
    bool laying_ = false;
};

}  // namespace bravona
