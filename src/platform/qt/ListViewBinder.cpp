#include "platform/qt/ListViewBinder.h"

#include <QApplication>
#include <QDateTime>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <numeric>

#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/RowDelegate.h"
#include "platform/qt/Theme.h"
#include "platform/qt/WindowPlaces.h"
#include "platform/text/Text.h"

namespace bravona {

namespace {

int alignment(Align align)
{
    const Qt::Alignment across = align == Align::right    ? Qt::AlignRight
                                 : align == Align::centre ? Qt::AlignHCenter
                                                          : Qt::AlignLeft;
    return static_cast<int>(across | Qt::AlignVCenter);
}

QString oneLine(const std::string& text)
{
    QString shown = toQt(text);
    if (shown.contains(QLatin1Char('\n')) || shown.contains(QLatin1Char('\r'))) {
        shown.replace(QLatin1String("\r\n"), QLatin1String(" ")).replace(QLatin1Char('\n'), QLatin1Char(' '));
    }
    return shown;
}

}  // namespace

// --- model

QVariant ListViewModel::data(const QModelIndex& index, int role) const
{
    const ListView* records = list();
    if (records == nullptr || !index.isValid() || index.row() >= static_cast<int>(records->rowCount())) {
        return {};
    }
    const ListRow& row = records->row(static_cast<std::size_t>(index.row()));
    const auto column = static_cast<std::size_t>(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return column <= row.sub.size() ? oneLine(row.cell(column)) : QString();
    case Qt::TextAlignmentRole:
        return column < records->columns().size() ? alignment(records->columns()[column].align)
                                                  : alignment(Align::left);
    case Qt::ForegroundRole:
        if (row.colour) {
            return theme::readable(*row.colour, QApplication::palette().color(QPalette::Base));
        }
        return {};
    case Qt::FontRole:
        if (row.bold) {
            QFont font;
            font.setBold(true);
            return font;
        }
        return {};
    case Qt::CheckStateRole:
        if (records->checkBoxes && column == 0) {
            return static_cast<int>(row.checked ? Qt::Checked : Qt::Unchecked);
        }
        return {};
    default:
        return {};
    }
}

QVariant ListViewModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const ListView* records = list();
    if (records == nullptr || orientation != Qt::Horizontal || section >= static_cast<int>(records->columns().size())) {
        return {};
    }
    const ListColumn& column = records->columns()[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) {
        return toQt(column.caption);
    }
    if (role == Qt::TextAlignmentRole) {
        return alignment(column.align);
    }
    return {};
}

Qt::ItemFlags ListViewModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    const ListView* records = list();
    if (records != nullptr && records->checkBoxes && index.column() == 0) {
        flags |= Qt::ItemIsUserCheckable;
    }
    return flags;
}

bool ListViewModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || list() == nullptr) {
        return false;
    }
    ticked(static_cast<std::size_t>(index.row()), value.toInt() == Qt::Checked);
    return true;
}

// --- view

QSize ListWidget::sizeHint() const
{
    const int row = fontMetrics().height() + theme::pixels(6);
    return {
        std::min(header()->length() + 2 * frameWidth() + verticalScrollBar()->sizeHint().width(), theme::pixels(900)),
        header()->sizeHint().height() + row * lines + 2 * frameWidth()};
}

QSize ListWidget::minimumSizeHint() const
{
    const int row = fontMetrics().height() + theme::pixels(6);
    return {theme::pixels(160), header()->sizeHint().height() + row * std::min(lines, 3) + 2 * frameWidth()};
}

void ListWidget::keyboardSearch(const QString& text)
{
    // From the records themselves: a hundred thousand rows take no notice of it.
    const ListView* records = list();
    if (records == nullptr || records->rowCount() == 0) {
        return;
    }
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    searched_ = now - searchedAt_ > 1000 ? text : searched_ + text;
    searchedAt_ = now;
    const std::string wanted = fromQt(searched_);
    const auto count = records->rowCount();
    const auto start =
        currentIndex().isValid() ? static_cast<std::size_t>(currentIndex().row()) + (searched_.size() == 1 ? 1 : 0) : 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t row = (start + i) % count;
        if (startsWithFolded(records->row(row).text, wanted)) {
            setCurrentIndex(model()->index(static_cast<int>(row), 0));
            return;
        }
    }
}

void ListWidget::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (!emptyText.isEmpty() && model() != nullptr && model()->rowCount() == 0) {
        QPainter painter(viewport());
        painter.setPen(theme::faint(palette()));
        painter.drawText(viewport()->rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap, emptyText);
    }
}

void ListWidget::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    pressing_ = true;
    QTreeView::mousePressEvent(event);
    pressing_ = false;
    if (!index.isValid() || !clickedRow) {
        return;
    }
    // A click on the mark of a row ticks it and leaves the rest alone.
    if (index.column() == 0 && index.flags().testFlag(Qt::ItemIsUserCheckable) && event->button() == Qt::LeftButton) {
        QStyleOptionViewItem option;
        initViewItemOption(&option);
        option.features |= QStyleOptionViewItem::HasCheckIndicator;
        option.rect = visualRect(index);
        if (style()
                ->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this)
                .contains(event->position().toPoint())) {
            return;
        }
    }
    clickedRow(index.row());
}

void ListWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    if (index.isValid() && event->button() == Qt::LeftButton && doubleClickedRow) {
        doubleClickedRow();
    }
}

bool ListWidget::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        const QModelIndex index = indexAt(help->pos());
        if (index.isValid()) {
            const QRect cell = visualRect(index);
            if (sizeHintForIndex(index).width() > cell.width()) {
                QToolTip::showText(help->globalPos(), index.data().toString(), viewport(), cell);
                return true;
            }
        }
        if (toolTip().isEmpty()) {
            QToolTip::hideText();
            return true;
        }
    }
    return QTreeView::viewportEvent(event);
}

void ListWidget::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (!following && !pressing_ && current.isValid() && current.row() != previous.row() && movedTo) {
        movedTo(current.row());
    }
}

void ListWidget::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    if (resized) {
        resized();
    }
}

// --- binder

ListViewBinder::ListViewBinder(FormWindow& window, ListView& list, QWidget* parent)
    : BinderOf(window, list),
      view_(new ListWidget(parent)),
      model_(new ListViewModel)
{
    setWidget(view_);
    model_->setParent(view_);
    model_->list = [this]() -> const ListView* { return alive() ? &c() : nullptr; };
    view_->list = model_->list;
    model_->ticked = [this](std::size_t row, bool checked) {
        enter([this, row, checked] { c().userCheck(row, checked); });
    };
    view_->setModel(model_);
    view_->setItemDelegate(new RowDelegate(view_));
    view_->lines = list.lines;
    view_->setRootIsDecorated(false);
    view_->setItemsExpandable(false);
    view_->setUniformRowHeights(true);
    view_->setAlternatingRowColors(true);
    view_->setAllColumnsShowFocus(true);
    view_->setSelectionBehavior(QAbstractItemView::SelectRows);
    view_->setSelectionMode(QAbstractItemView::SingleSelection);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->setTextElideMode(Qt::ElideRight);
    view_->setContextMenuPolicy(Qt::CustomContextMenu);
    view_->header()->setSectionsClickable(true);
    view_->header()->setHighlightSections(false);
    view_->header()->setStretchLastSection(false);
    view_->header()->setSectionsMovable(false);
    const auto select = [this](int row) { enter([this, row] { c().userSelect(static_cast<std::size_t>(row)); }); };
    view_->clickedRow = select;
    view_->movedTo = select;
    view_->doubleClickedRow = [this] { enter([this] { desktop().interaction().doubleClick(c()); }); };
    view_->resized = [this] { shareSpareWidth(); };
    QObject::connect(view_->header(), &QHeaderView::sectionClicked, view_, [this](int section) {
        enter([this, section] {
            if (desktop().interaction().focus(c())) {
                c().userColumnClick(static_cast<std::size_t>(section));
            }
        });
    });
    QObject::connect(view_->header(), &QHeaderView::sectionResized, view_, [this](int, int, int) {
        if (!sizing_ && alive() && view_->isVisible()) {
            byHand_ = true;
            saveWidths();
        }
    });
    QObject::connect(view_, &QTreeView::customContextMenuRequested, view_, [this] {
        if (alive() && c().contextMenu != nullptr) {
            enter([this] { desktop().popupMenu(*c().form(), *c().contextMenu); });
        }
    });
}

bool ListViewBinder::key(QKeyEvent& event)
{
    if (event.key() == Qt::Key_Space && c().checkBoxes && c().selected()) {
        enter([this, row = *c().selected()] { c().userCheck(row, !c().row(row).checked); });
        return true;
    }
    return false;
}

void ListViewBinder::detach()
{
    view_->following = true;
    Binder::detach();
}

QString ListViewBinder::widthsKey() const
{
    return toQt(c().form()->name() + "." + c().fullName());
}

void ListViewBinder::followColumns()
{
    model_->followColumns(static_cast<int>(c().rowCount()), static_cast<int>(c().columns().size()));
    fitted_ = false;
    byHand_ = false;
    wanted_.assign(c().columns().size(), 0);
    const std::vector<int> kept = desktop().places().widths(widthsKey());
    sizing_ = true;
    for (std::size_t i = 0; i < c().columns().size(); ++i) {
        const int section = static_cast<int>(i);
        const int told = c().columns()[i].width;
        view_->header()->setSectionHidden(section, told == 0);
        wanted_[i] = kept.size() == wanted_.size() ? kept[i] : theme::twips(told);
        if (told != 0) {
            view_->header()->resizeSection(section, wanted_[i]);
        }
    }
    sizing_ = false;
    byHand_ = kept.size() == wanted_.size() && !kept.empty();
    fitted_ = byHand_;
    fitColumns();
    followSort();
    followSelection();
}

// The first rows decide; the width told by the screen is the least where there is room.
void ListViewBinder::fitColumns()
{
    if (fitted_ || c().rowCount() == 0 || wanted_.empty()) {
        shareSpareWidth();
        return;
    }
    fitted_ = true;
    constexpr std::size_t sample = 60;
    const QFontMetrics metrics = view_->fontMetrics();
    const int padding = theme::pixels(14);
    for (std::size_t i = 0; i < wanted_.size(); ++i) {
        int width = metrics.horizontalAdvance(toQt(c().columns()[i].caption)) + padding + theme::pixels(8);
        for (std::size_t row = 0; row < std::min(sample, c().rowCount()); ++row) {
            if (i <= c().row(row).sub.size()) {
                width = std::max(width, metrics.horizontalAdvance(oneLine(c().row(row).cell(i))) + padding);
            }
        }
        if (i == 0 && c().checkBoxes) {
            width += theme::pixels(24);
        }
        const int told = theme::twips(c().columns()[i].width);
        wanted_[i] = std::clamp(width, std::min(told, theme::pixels(60)), std::max(told * 2, theme::pixels(260)));
    }
    shareSpareWidth();
}

// Spare width goes to the widest column of text, so that figures stay near their headings.
void ListViewBinder::shareSpareWidth()
{
    if (byHand_ || sizing_ || !alive() || wanted_.size() != c().columns().size()) {
        return;
    }
    std::size_t widest = wanted_.size();
    int total = 0;
    for (std::size_t i = 0; i < wanted_.size(); ++i) {
        if (c().columns()[i].width == 0) {
            continue;
        }
        total += wanted_[i];
        const bool text = c().columns()[i].align == Align::left;
        const bool better = widest == wanted_.size() || (text && c().columns()[widest].align != Align::left) ||
                            (text == (c().columns()[widest].align == Align::left) && wanted_[i] > wanted_[widest]);
        if (better) {
            widest = i;
        }
    }
    if (widest == wanted_.size()) {
        return;
    }
    const int spare = view_->viewport()->width() - total;
    sizing_ = true;
    for (std::size_t i = 0; i < wanted_.size(); ++i) {
        int width = wanted_[i];
        if (i == widest) {
            // Rather a shorter text than a scroll bar, within reason.
            width += spare >= 0 ? spare : std::max(spare, std::min(0, theme::pixels(120) - width));
        }
        if (c().columns()[i].width != 0 && view_->header()->sectionSize(static_cast<int>(i)) != width) {
            view_->header()->resizeSection(static_cast<int>(i), width);
        }
    }
    sizing_ = false;
}

void ListViewBinder::saveWidths()
{
    std::vector<int> widths;
    for (int i = 0; i < view_->header()->count(); ++i) {
        widths.push_back(view_->header()->sectionSize(i));
    }
    desktop().places().setWidths(widthsKey(), widths);
}

void ListViewBinder::followSelection()
{
    view_->following = true;
    if (c().selected()) {
        const QModelIndex index = model_->index(static_cast<int>(*c().selected()), 0);
        view_->selectionModel()->setCurrentIndex(index,
                                                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    } else {
        view_->selectionModel()->clear();
    }
    view_->following = false;
}

void ListViewBinder::followSort()
{
    QHeaderView* header = view_->header();
    header->setSortIndicatorShown(c().sortable && c().sortColumn() >= 0);
    if (c().sortColumn() >= 0) {
        header->setSortIndicator(c().sortColumn(), c().sortAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
    }
}

void ListViewBinder::follow(Aspect aspect, std::size_t row)
{
    const int rows = static_cast<int>(c().rowCount());
    switch (aspect) {
    case Aspect::columns:
        followColumns();
        break;
    case Aspect::items:
        view_->following = true;
        if (rows == model_->rowCount() + 1) {
            model_->rowAdded(rows);
        } else {
            model_->followRows(rows);
        }
        view_->following = false;
        if (rows == 0) {
            fitted_ = byHand_;
        }
        followSelection();
        followSort();
        if (!fitted_) {
            fitLater();
        }
        view_->viewport()->update();
        break;
    case Aspect::row:
    case Aspect::checks:
        if (row == Control::noRow) {
            model_->rowsChanged(0, rows - 1);
        } else {
            model_->rowsChanged(static_cast<int>(row), static_cast<int>(row));
        }
        break;
    case Aspect::selection:
        followSelection();
        break;
    case Aspect::scroll:
        view_->scrollTo(model_->index(static_cast<int>(row), 0));
        break;
    default:
        break;
    }
}

// Many rows come one by one; they are measured once they are there.
void ListViewBinder::fitLater()
{
    if (fitting_) {
        return;
    }
    fitting_ = true;
    QMetaObject::invokeMethod(
        view_,
        [this] {
            fitting_ = false;
            if (alive()) {
                fitColumns();
            }
        },
        Qt::QueuedConnection);
}

void ListViewBinder::followColours()
{
    if (c().foreColour()) {
        QPalette palette = view_->palette();
        palette.setColor(QPalette::Text, theme::readable(*c().foreColour(), palette.color(QPalette::Base)));
        view_->setPalette(palette);
    }
}

void ListViewBinder::followAll()
{
    view_->emptyText = toQt(c().emptyText);
    followColumns();
}

}  // namespace bravona
