#pragma once

#include <QTreeView>

#include "platform/qt/Binder.h"
#include "platform/qt/RowsModel.h"
#include "platform/windowing/Lists.h"

namespace bravona {

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
class ListWidget final : public QTreeView {
public:
    explicit ListWidget(QWidget* parent) : QTreeView(parent) {}
    std::function<void(int)> clickedRow;
    std::function<void(int)> movedTo;  // by the keyboard
    std::function<void()> doubleClickedRow;
    std::function<void()> resized;
    std::function<const ListView*()> list;
    QString emptyText;
    int lines = 8;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    void keyboardSearch(const QString& text) override;
    bool following = false;

protected:
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

class ListViewBinder final : public BinderOf<ListView> {
public:
    ListViewBinder(FormWindow& window, ListView& list, QWidget* parent);
    void detach() override;
    bool key(QKeyEvent& event) override;  // Space ticks the selected row

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;
    void followColours() override;

private:
    void followColumns();
    void followSelection();
    void followSort();
    void fitColumns();
    void fitLater();
    void shareSpareWidth();
    void saveWidths();
    [[nodiscard]] QString widthsKey() const;
    ListWidget* view_;
    ListViewModel* model_;
    std::vector<int> wanted_;  // widths as fitted, before the spare room is shared
    bool fitted_ = false;      // by contents, or by the person's hand
    bool byHand_ = false;
    bool sizing_ = false;
    bool fitting_ = false;
};

}  // namespace bravona
