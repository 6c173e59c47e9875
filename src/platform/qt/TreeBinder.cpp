#include "platform/qt/TreeBinder.h"

#include <QMouseEvent>

#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/RowDelegate.h"
#include "platform/qt/Theme.h"

namespace bravona {

// --- model

void TreeModel::follow()
{
    const TreeView* records = tree();
    if (records != nullptr && !places_.empty() && records->nodes().size() >= places_.size()) {
        takeIn(*records);
        return;
    }
    beginResetModel();
    roots_.clear();
    places_.clear();
    shown_.clear();
    if (records != nullptr) {
        const auto& nodes = records->nodes();
        places_.resize(nodes.size());
        shown_.resize(nodes.size());
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            if (nodes[i].parent < 0) {
                places_[i] = static_cast<int>(roots_.size());
                roots_.push_back(static_cast<int>(i));
            }
            shown_[i] = static_cast<int>(nodes[i].children.size());
            for (std::size_t k = 0; k < nodes[i].children.size(); ++k) {
                places_[static_cast<std::size_t>(nodes[i].children[k])] = static_cast<int>(k);
            }
        }
    }
    endResetModel();
}

// Only those behind the known ones are new: the view stays where it is.
void TreeModel::takeIn(const TreeView& records)
{
    const auto& nodes = records.nodes();
    for (std::size_t i = places_.size(); i < nodes.size(); ++i) {
        const int parent = nodes[i].parent;
        const int shown = parent < 0 ? static_cast<int>(roots_.size()) : shown_[static_cast<std::size_t>(parent)];
        beginInsertRows(of(parent), shown, shown);
        places_.push_back(shown);
        shown_.push_back(0);
        if (parent < 0) {
            roots_.push_back(static_cast<int>(i));
        } else {
            ++shown_[static_cast<std::size_t>(parent)];
        }
        endInsertRows();
    }
}

QModelIndex TreeModel::of(int node) const
{
    if (node < 0 || static_cast<std::size_t>(node) >= places_.size()) {
        return {};
    }
    return createIndex(places_[static_cast<std::size_t>(node)], 0, static_cast<quintptr>(node));
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (column != 0 || row < 0 || row >= rowCount(parent)) {
        return {};
    }
    const int node =
        parent.isValid()
            ? tree()->nodes()[static_cast<std::size_t>(TreeModel::node(parent))].children[static_cast<std::size_t>(row)]
            : roots_[static_cast<std::size_t>(row)];
    return createIndex(row, 0, static_cast<quintptr>(node));
}

QModelIndex TreeModel::parent(const QModelIndex& child) const
{
    const TreeView* records = tree();
    const auto at = static_cast<std::size_t>(node(child));
    if (records == nullptr || !child.isValid() || at >= records->nodes().size()) {
        return {};
    }
    return of(records->nodes()[at].parent);
}

int TreeModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid()) {
        return static_cast<int>(roots_.size());
    }
    const auto at = static_cast<std::size_t>(node(parent));
    return tree() != nullptr && at < shown_.size() ? shown_[at] : 0;
}

int TreeModel::columnCount(const QModelIndex& /*parent*/) const
{
    return 1;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const
{
    const TreeView* records = tree();
    const auto at = static_cast<std::size_t>(node(index));
    if (records == nullptr || !index.isValid() || at >= records->nodes().size()) {
        return {};
    }
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
        return toQt(records->nodes()[at].text);
    }
    if (role == Qt::FontRole && records->nodes()[at].bold) {
        QFont font;
        font.setBold(true);
        return font;
    }
    return {};
}

void TreeModel::nodeChanged(int node)
{
    const QModelIndex index = of(node);
    if (index.isValid()) {
        Q_EMIT dataChanged(index, index);
    }
}

// --- view

void TreeWidget::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    pressing_ = true;
    QTreeView::mousePressEvent(event);
    pressing_ = false;
    if (index.isValid() && event->button() == Qt::LeftButton &&
        visualRect(index).contains(event->position().toPoint()) && clickedNode) {
        clickedNode(index);
    }
}

void TreeWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTreeView::mouseDoubleClickEvent(event);
    if (indexAt(event->position().toPoint()).isValid() && doubleClickedNode) {
        doubleClickedNode();
    }
}

void TreeWidget::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (!following && !pressing_ && current.isValid() && movedTo) {
        movedTo(current);
    }
}

// --- binder

TreeBinder::TreeBinder(FormWindow& window, TreeView& tree, QWidget* parent)
    : BinderOf(window, tree),
      view_(new TreeWidget(parent)),
      model_(new TreeModel)
{
    setWidget(view_);
    model_->setParent(view_);
    model_->tree = [this]() -> const TreeView* { return alive() ? &c() : nullptr; };
    view_->setModel(model_);
    view_->setItemDelegate(new RowDelegate(view_));
    view_->setHeaderHidden(true);
    view_->setUniformRowHeights(true);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->setMinimumSize(theme::pixels(180), theme::pixels(120));
    const auto select = [this](const QModelIndex& index) {
        enter([this, node = TreeModel::node(index)] { c().userSelect(node); });
    };
    view_->clickedNode = select;
    view_->movedTo = select;
    view_->doubleClickedNode = [this] { enter([this] { desktop().interaction().doubleClick(c()); }); };
    const auto expanded = [this](const QModelIndex& index, bool open) {
        if (!view_->following && alive()) {
            c().setExpanded(TreeModel::node(index), open);
        }
    };
    QObject::connect(view_, &QTreeView::expanded, view_,
                     [expanded](const QModelIndex& index) { expanded(index, true); });
    QObject::connect(view_, &QTreeView::collapsed, view_,
                     [expanded](const QModelIndex& index) { expanded(index, false); });
}

void TreeBinder::detach()
{
    view_->following = true;
    Binder::detach();
}

void TreeBinder::followSelection()
{
    view_->following = true;
    if (c().selected() < 0) {
        view_->selectionModel()->clear();
    } else {
        view_->setCurrentIndex(model_->of(c().selected()));
    }
    view_->following = false;
}

void TreeBinder::followExpanded()
{
    view_->following = true;
    for (std::size_t i = 0; i < c().nodes().size(); ++i) {
        if (!c().nodes()[i].children.empty()) {
            view_->setExpanded(model_->of(static_cast<int>(i)), c().nodes()[i].expanded);
        }
    }
    view_->following = false;
}

// Nodes come by the hundred, each with its own notice; the view takes them in at once, before it paints or answers.
void TreeBinder::followLater()
{
    if (pending_) {
        return;
    }
    pending_ = true;
    QMetaObject::invokeMethod(
        view_,
        [this] {
            if (alive()) {
                settle();
            }
        },
        Qt::QueuedConnection);
}

void TreeBinder::settle()
{
    if (!pending_) {
        return;
    }
    pending_ = false;
    view_->following = true;
    model_->follow();
    view_->following = false;
    followExpanded();
    followSelection();
    view_->viewport()->update();
}

void TreeBinder::follow(Aspect aspect, std::size_t row)
{
    const int node = static_cast<int>(row);
    if (aspect == Aspect::items) {
        if (c().nodes().empty()) {
            pending_ = true;
            settle();  // the old nodes are gone
        } else {
            followLater();
        }
        return;
    }
    if (aspect == Aspect::scroll || aspect == Aspect::selection) {
        settle();
    }
    if (pending_) {
        return;
    }
    switch (aspect) {
    case Aspect::row:
        model_->nodeChanged(node);
        view_->following = true;
        view_->setExpanded(model_->of(node), c().nodes()[row].expanded);
        view_->following = false;
        break;
    case Aspect::selection:
        followSelection();
        break;
    case Aspect::scroll:
        view_->scrollTo(model_->of(node));
        break;
    default:
        break;
    }
}

void TreeBinder::followAll()
{
    pending_ = true;
    settle();
}

}  // namespace bravona
