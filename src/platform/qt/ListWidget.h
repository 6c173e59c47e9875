#pragma once

#include <QTreeView>
#include <functional>

#include "platform/qt/RowsModel.h"
#include "platform/qt/Steady.h"
#include "platform/windowing/Lists.h"

namespace bravona {

// The cell as it is drawn, in one line; empty beyond the row's own cells.
[[nodiscard]] QString shownCell(const ListView& records, std::size_t row, std::size_t column);

class ListViewModel final : public RowsModel {
public:
    std::function<const ListView*()> list;
    std::function<void(std::size_t, bool)> ticked;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
};

// The view: an empty list says so in its middle, a text that does not fit shows whole as a tip, letters jump.
class ListWidget final : public Steady<QTreeView> {
public:
    explicit ListWidget(QWidget* parent) : Steady(parent) {}
    std::function<void(int)> clickedRow;
    std::function<void(int)> movedTo;  // by the keyboard
    std::function<void()> doubleClickedRow;
    std::function<void()> resized;
    std::function<const ListView*()> list;
    QString emptyText;
    int lines = 8;
    int wantedWidth = 0;  // of the columns, before they were fitted into the view
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    void keyboardSearch(const QString& text) override;

protected:
    [[nodiscard]] QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool pressing_ = false;
    QString searched_;
    qint64 searchedAt_ = 0;
};

}  // namespace bravona
