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
#include <tuple>

#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/RowDelegate.h"
#include "platform/qt/Theme.h"
#include "platform/qt/WindowPlaces.h"
#include "platform/text/Text.h"

namespace bravona {

namespace {

constexpr std::size_t sample = 60;  // rows whose texts decide on the widths

}  // namespace

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
    view_->header()->setSectionsClickable(true);
    view_->header()->setHighlightSections(false);
    view_->header()->setStretchLastSection(false);
    view_->header()->setSectionsMovable(false);
    view_->header()->setMinimumSectionSize(theme::pixels(16));
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
    // One list may show different tables.
    QString key = toQt(c().form()->name() + "." + c().fullName());
    for (const ListColumn& column : c().columns()) {
        key += u'.' + toQt(column.caption);
    }
    return key;
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
        wanted_[i] = kept.size() == wanted_.size() ? kept[i] : std::max(theme::twips(told), headingWidth(i));
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

int ListViewBinder::headingWidth(std::size_t column) const
{
    return view_->fontMetrics().horizontalAdvance(toQt(c().columns()[column].caption)) + theme::pixels(22);
}

// The first rows decide; the width told by the screen is the least where there is room.
void ListViewBinder::fitColumns()
{
    if (fitted_ || c().rowCount() == 0 || wanted_.empty()) {
        shareSpareWidth();
        return;
    }
    fitted_ = true;
    const QFontMetrics metrics = view_->fontMetrics();
    const int padding = theme::pixels(14);
    for (std::size_t i = 0; i < wanted_.size(); ++i) {
        int width = headingWidth(i);
        for (std::size_t row = 0; row < std::min(sample, c().rowCount()); ++row) {
            width = std::max(width, metrics.horizontalAdvance(shownCell(c(), row, i)) + padding);
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
        // The screen's own widths tell which column is the wide one.
        const auto rank = [this](std::size_t column) {
            const ListColumn& info = c().columns()[column];
            return std::tuple(info.align == Align::left, info.width, wanted_[column]);
        };
        const bool better = widest == wanted_.size() || rank(i) > rank(widest);
        if (better) {
            widest = i;
        }
    }
    if (widest == wanted_.size()) {
        return;
    }
    view_->wantedWidth = total;
    const int spare = view_->viewport()->width() - total;
    sizing_ = true;
    for (std::size_t i = 0; i < wanted_.size(); ++i) {
        int width = wanted_[i];
        if (i == widest) {
            // Rather a shorter text than a scroll bar, within reason.
            const int least = std::max(theme::pixels(120), headingWidth(i));
            width += spare >= 0 ? spare : std::max(spare, std::min(0, least - width));
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
    widths.reserve(static_cast<std::size_t>(view_->header()->count()));
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
        if (rows <= static_cast<int>(sample)) {
            fitted_ = byHand_;  // too few to be sure
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
