#pragma once

#include "platform/qt/Binder.h"
#include "platform/qt/DataGridWidget.h"
#include "platform/windowing/Grids.h"

namespace bravona {

class EntryLine;

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
    [[nodiscard]] EntryLine* editor() const { return editor_; }

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
    void clicked(const QModelIndex& index, QPoint at, bool twice);
    void rowPressed(std::size_t row);
    void moveTo(std::size_t row, std::size_t column);
    [[nodiscard]] QRect button(const QModelIndex& index) const;
    DataGridWidget* view_;
    DataGridModel* model_;
    EntryLine* editor_;
    bool following_ = false;
    bool laying_ = false;
    bool byHand_ = false;
};

}  // namespace bravona
