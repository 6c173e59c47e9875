#include "platform/qt/DataGridBinder.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/TextBinders.h"
#include "platform/qt/Theme.h"

namespace bravona {

// --- binder

DataGridBinder::DataGridBinder(FormWindow& window, DataGrid& grid, QWidget* parent)
    : BinderOf(window, grid),
      view_(new DataGridWidget(parent)),
      model_(new DataGridModel),
      editor_(nullptr)
{
    setWidget(view_);
    model_->setParent(view_);
    model_->grid = [this]() -> const DataGrid* { return alive() ? &c() : nullptr; };
    view_->setModel(model_);
    view_->drawButtons();
    view_->setSelectionMode(QAbstractItemView::SingleSelection);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->setTabKeyNavigation(false);
    view_->setAlternatingRowColors(true);
    view_->verticalHeader()->setDefaultSectionSize(theme::fieldHeight(view_->font()));
    view_->verticalHeader()->setFixedWidth(theme::pixels(24));
    view_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view_->horizontalHeader()->setHighlightSections(false);
    editor_ = new EntryLine(view_->viewport());
    editor_->hide();
    QPalette yellow = editor_->palette();
    yellow.setColor(QPalette::Base, toQt(colours::focusYellow));
    yellow.setColor(QPalette::Text, Qt::black);
    editor_->setPalette(yellow);
    editor_->pasted = [this](const QString& text) { desktop().paste(*this, text); };
    QObject::connect(editor_, &QLineEdit::textEdited, editor_, [this](const QString& text) {
        if (!following_) {
            enter([this, text] { c().userEditText(fromQt(text)); });
        }
    });
    view_->clickedCell = [this](const QModelIndex& index, QPoint at) { clicked(index, at, false); };
    view_->doubleClickedCell = [this](const QModelIndex& index, QPoint at) { clicked(index, at, true); };
    view_->movedTo = [this](const QModelIndex& index) {
        moveTo(static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column()));
    };
    view_->moved = [this] {
        if (alive()) {
            shareSpareWidth();
            layEditor();
        }
    };
    QObject::connect(view_->verticalHeader(), &QHeaderView::sectionPressed, view_,
                     [this](int section) { rowPressed(static_cast<std::size_t>(section)); });
    QObject::connect(view_->horizontalHeader(), &QHeaderView::sectionResized, view_, [this](int, int, int) {
        if (!laying_ && view_->isVisible()) {
            byHand_ = true;
        }
    });
}

void DataGridBinder::detach()
{
    view_->following = true;
    following_ = true;
    editor_->hide();
    Binder::detach();
}

QWidget* DataGridBinder::focusWidget() const
{
    return alive() && c().editing() ? static_cast<QWidget*>(editor_) : view_;
}

QRect DataGridBinder::cell(std::size_t row, std::size_t column) const
{
    return view_->visualRect(model_->index(static_cast<int>(row), static_cast<int>(column)));
}

QRect DataGridBinder::button(const QModelIndex& index) const
{
    return DataGridWidget::buttonIn(view_->visualRect(index));
}

// --- what the hand does

bool DataGridBinder::begin(const QString& text)
{
    bool begun = false;
    enter([this, &begun, text] { begun = c().userBeginEdit(fromQt(text)); });
    return begun;
}

void DataGridBinder::moveTo(std::size_t row, std::size_t column)
{
    enter([this, row, column] { c().userMove(row, column); });
    if (alive()) {
        followCurrent();  // also back, where the cell was kept
    }
}

void DataGridBinder::clicked(const QModelIndex& index, QPoint at, bool twice)
{
    if (!alive()) {
        return;
    }
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    if (c().columns()[column].button && button(index).contains(at)) {
        enter([this, row, column] { c().userButton(row, column); });
    } else if (!twice) {
        moveTo(row, column);
    } else if (c().onDblClick) {
        enter([this] { desktop().interaction().doubleClick(c()); });
    } else {
        enter([this] { c().userEditCell(); });
    }
}

void DataGridBinder::rowPressed(std::size_t row)
{
    enter([this, row] {
        if (desktop().interaction().focus(c())) {
            c().userSelectRow(row);
        }
    });
    if (alive()) {
        followCurrent();
    }
}

bool DataGridBinder::key(QKeyEvent& event)
{
    if (!alive() || c().columns().empty()) {
        return false;
    }
    const bool bare = !editor_->hasSelectedText();
    const bool atStart = bare && editor_->cursorPosition() == 0;
    const bool atEnd = bare && editor_->cursorPosition() == editor_->text().size();
    bool handled = false;
    enter([&] { handled = c().userKey(toKeyEvent(event), atStart, atEnd); });
    if (handled || !alive() || c().editing()) {
        return handled;
    }
    const char32_t typed = typedCharacter(event);
    if (typed >= 32) {
        begin(QString::fromUcs4(&typed, 1));
        return true;
    }
    return false;
}

void DataGridBinder::insert(const QString& text)
{
    if (c().editing()) {
        editor_->insert(text);
    } else {
        begin(text);
    }
}

// --- what the record says

void DataGridBinder::followColumns()
{
    view_->following = true;
    laying_ = true;
    model_->followColumns(static_cast<int>(c().shownRows()), static_cast<int>(c().columns().size()));
    for (std::size_t i = 0; i < c().columns().size(); ++i) {
        const DataColumn& info = c().columns()[i];
        const int column = static_cast<int>(i);
        view_->setColumnHidden(column, !info.visible || info.width == 0);
        if (info.visible && info.width != 0) {
            const int heading = view_->fontMetrics().horizontalAdvance(toQt(c().caption(i))) + theme::pixels(16);
            view_->setColumnWidth(column, std::max(theme::twips(info.width), heading));
        }
    }
    laying_ = false;
    view_->following = false;
    byHand_ = false;
    shareSpareWidth();
    followCurrent();
}

// The widest column of text takes what room is left.
void DataGridBinder::shareSpareWidth()
{
    if (laying_ || byHand_ || model_->columnCount() != static_cast<int>(c().columns().size())) {
        return;
    }
    int widest = -1;
    int total = 0;
    for (int i = 0; i < model_->columnCount(); ++i) {
        const DataColumn& info = c().columns()[static_cast<std::size_t>(i)];
        if (!info.visible || info.width == 0) {
            continue;
        }
        total += view_->columnWidth(i);
        const bool text = info.align == Align::left;
        if (widest < 0 || (text && info.width >= c().columns()[static_cast<std::size_t>(widest)].width)) {
            widest = i;
        }
    }
    if (widest < 0) {
        return;
    }
    const int least = theme::twips(c().columns()[static_cast<std::size_t>(widest)].width);
    const int width = std::max(least, view_->columnWidth(widest) + view_->viewport()->width() - total);
    if (width != view_->columnWidth(widest)) {
        laying_ = true;
        view_->setColumnWidth(widest, width);
        laying_ = false;
    }
}

void DataGridBinder::followCurrent()
{
    view_->following = true;
    if (c().row() < c().shownRows() && c().col() < c().columns().size()) {
        const QModelIndex current = model_->index(static_cast<int>(c().row()), static_cast<int>(c().col()));
        view_->setCurrentIndex(current);
        if (c().rowSelected()) {
            view_->selectionModel()->select(current, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        }
    } else {
        view_->selectionModel()->clear();
    }
    view_->following = false;
    view_->verticalHeader()->viewport()->update();
    followEditor();
}

void DataGridBinder::followEditor()
{
    if (!c().editing()) {
        if (!editor_->isHidden()) {
            const bool had = editor_->hasFocus();
            editor_->hide();
            if (had) {
                view_->setFocus(Qt::OtherFocusReason);
            }
        }
        return;
    }
    const QString text = toQt(c().editText());
    if (editor_->text() != text) {
        following_ = true;
        editor_->setText(text);
        following_ = false;
    }
    if (editor_->isHidden()) {
        const Align align = c().columns()[c().col()].align;
        editor_->setAlignment(align == Align::right ? Qt::AlignRight : Qt::AlignLeft);
        editor_->end(false);
        if (c().editsWhole()) {
            editor_->selectAll();
        }
        layEditor();
        editor_->show();
        editor_->raise();
        if (view_->hasFocus()) {
            editor_->setFocus(Qt::OtherFocusReason);
        }
    }
}

void DataGridBinder::layEditor()
{
    if (c().editing()) {
        editor_->setGeometry(cell(c().row(), c().col()));
    }
}

void DataGridBinder::follow(Aspect aspect, std::size_t row)
{
    switch (aspect) {
    case Aspect::columns:
        followColumns();
        break;
    case Aspect::items:
        view_->following = true;
        model_->followRows(static_cast<int>(c().shownRows()));
        view_->following = false;
        followCurrent();
        break;
    case Aspect::row:
        if (model_->rowCount() != static_cast<int>(c().shownRows())) {
            follow(Aspect::items, row);
            break;
        }
        model_->rowsChanged(static_cast<int>(row), static_cast<int>(row));
        view_->verticalHeader()->viewport()->update();
        followEditor();
        break;
    case Aspect::selection:
        followCurrent();
        break;
    default:
        break;
    }
}

void DataGridBinder::followAll()
{
    followColumns();
}

}  // namespace bravona
