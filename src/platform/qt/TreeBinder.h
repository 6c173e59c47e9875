#pragma once

#include <QAbstractItemModel>
#include <QTreeView>

#include "platform/qt/Binder.h"
#include "platform/qt/Steady.h"
#include "platform/windowing/Lists.h"

namespace bravona {

class TreeModel final : public QAbstractItemModel {
public:
    std::function<const TreeView*()> tree;
    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QModelIndex of(int node) const;
    [[nodiscard]] static int node(const QModelIndex& index) { return static_cast<int>(index.internalId()); }
    void follow();  // the nodes have changed
    void nodeChanged(int node);

private:
    void takeIn(const TreeView& records);
    std::vector<int> roots_;
    std::vector<int> places_;  // of each node among its parent's children
    std::vector<int> shown_;   // how many children of each node are known to the view
};

class TreeWidget final : public Steady<QTreeView> {
public:
    explicit TreeWidget(QWidget* parent) : Steady(parent) {}
    std::function<void(const QModelIndex&)> clickedNode;
    std::function<void(const QModelIndex&)> movedTo;
    std::function<void()> doubleClickedNode;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    bool pressing_ = false;
};

class TreeBinder final : public BinderOf<TreeView> {
public:
    TreeBinder(FormWindow& window, TreeView& tree, QWidget* parent);
    void detach() override;

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;

private:
    void followSelection();
    void followExpanded();
    void followLater();
    void settle();  // takes in what came meanwhile
    TreeWidget* view_;
    TreeModel* model_;
    bool pending_ = false;
};

}  // namespace bravona
