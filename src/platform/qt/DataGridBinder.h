#pragma once

#include <QTableView>

#include "platform/qt/Binder.h"
#include "platform/qt/RowsModel.h"
#include "platform/windowing/Grids.h"

namespace bravona {

class LineEdit;

class DataGridModel final : public RowsModel {
public:
    std::function<const DataGrid*()> grid;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
};

class DataGridWidget final : public QTableView {
public:
    explicit DataGridWidget(QWidget* parent) : QTableView(parent) {}
    std::function<void(const QModelIndex&, QPoint)> clickedCell;
    std::function<void(const QModelIndex&)> doubleClickedCell;
    std::function<void(const QModelIndex&)> movedTo;
    std::function<void()> moved;
    bool following = false;
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

// The grid over a record set. Typing opens an editor over the current cell; what it holds is the grid's `editText`.
class DataGridBinder final : public BinderOf<DataGrid> {
public:
    DataGridBinder(FormWindow& window, DataGrid& grid, QWidget* parent);
    void detach() override;
    [[nodiscard]] QWidget* focusWidget() const override;
    bool key(QKeyEvent& event) override;
    void insert(const QString& text) override;
    [[nodiscard]] bool takesText() const override { return true; }
    [[nodiscard]] QRect cell(std::size_t row, std::size_t column) const;
    [[nodiscard]] LineEdit* editor() const { return editor_; }

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;

private:
    void followColumns();
    void followCurrent();
    void followEditor();
    void layEditor();
    void shareSpareWidth();
    bool begin(const QString& text);
    bool editorKey(QKeyEvent& event);
    bool cellKey(QKeyEvent& event);
    void move(int rows, int columns);
    void moveTo(std::size_t row, std::size_t column);
    void deleteRow(std::size_t row);
    [[nodiscard]] QRect button(const QModelIndex& index) const;
    DataGridWidget* view_;
    DataGridModel* model_;
    LineEdit* editor_;
    bool following_ = false;
    bool laying_ = false;
    bool byHand_ = false;
    int wholeRow_ = -1;  // selected by its heading
};

}  // namespace bravona
