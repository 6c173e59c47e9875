#include "platform/qt/ComboBinders.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStylePainter>
#include <algorithm>

#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/RowDelegate.h"
#include "platform/qt/TextBinders.h"
#include "platform/qt/Theme.h"

namespace bravona {

// --- items

int ItemModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : known_;
}

QVariant ItemModel::data(const QModelIndex& index, int role) const
{
    const auto* items = items_();
    if (items == nullptr || !index.isValid() || index.row() >= static_cast<int>(items->size())) {
        return {};
    }
    if (role == Qt::DisplayRole || role == Qt::EditRole) {
        return toQt((*items)[static_cast<std::size_t>(index.row())].text);
    }
    return {};
}

void ItemModel::follow()
{
    const auto* items = items_();
    const int now = items == nullptr ? 0 : static_cast<int>(items->size());
    if (now > known_) {
        beginInsertRows({}, known_, now - 1);
        known_ = now;
        endInsertRows();
    } else {
        beginResetModel();
        known_ = now;
        endResetModel();
    }
}

// --- combo

void ComboWidget::showPopup()
{
    if (!locked) {
        QComboBox::showPopup();
    }
}

void ComboWidget::paintEvent(QPaintEvent* event)
{
    if (reading) {
        if (!isEditable()) {
            QPainter painter(this);
            painter.setPen(palette().color(QPalette::Active, QPalette::WindowText));
            painter.drawText(rect().adjusted(theme::pixels(2), 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, shown);
        }
        return;
    }
    if (isEditable()) {
        QComboBox::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = shown;
    if (locked) {
        option.subControls &= ~QStyle::SC_ComboBoxArrow;
    }
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void ComboWidget::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}  // the wheel scrolls the window, not the choice

ComboBinder::ComboBinder(FormWindow& window, ComboBox& combo, QWidget* parent)
    : BinderOf(window, combo),
      combo_(new ComboWidget(parent)),
      model_(new ItemModel([this]() { return alive() ? &c().items() : nullptr; }))
{
    setWidget(combo_);
    model_->setParent(combo_);
    combo_->setModel(model_);
    combo_->setMaxVisibleItems(16);
    base_ = combo_->palette();
    if (combo.editable()) {
        combo_->setEditable(true);
        combo_->setInsertPolicy(QComboBox::NoInsert);
        auto* edit = new EntryLine(combo_);
        combo_->setLineEdit(edit);
        combo_->setCompleter(nullptr);  // the line brings one along, and it would finish other words than were typed
        edit->pasted = [this](const QString& text) { desktop().paste(*this, text); };
        QObject::connect(edit, &QLineEdit::textEdited, edit, [this](const QString& text) {
            if (!following_) {
                enter([this, text] { c().userText(fromQt(text)); });
            }
        });
    }
    const int width = theme::textWidth(combo_->font(), combo.width) + theme::pixels(34);
    if (combo.grows) {
        combo_->setMinimumWidth(std::min(width, theme::pixels(420)));
        combo_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    } else {
        combo_->setFixedWidth(width);
    }
    QObject::connect(combo_, &QComboBox::activated, combo_, [this](int index) {
        if (following_ || !alive()) {
            return;
        }
        enter([this, index] { c().setListIndex(index); });
        if (alive()) {
            followChoice();
        }
    });
}

QWidget* ComboBinder::focusWidget() const
{
    return combo_->lineEdit() != nullptr ? static_cast<QWidget*>(combo_->lineEdit()) : combo_;
}

void ComboBinder::insert(const QString& text)
{
    if (combo_->lineEdit() != nullptr && !c().locked()) {
        combo_->lineEdit()->insert(text);
    }
}

void ComboBinder::focused()
{
    if (combo_->lineEdit() != nullptr) {
        combo_->lineEdit()->selectAll();
    }
}

bool ComboBinder::key(QKeyEvent& event)
{
    const bool opens =
        event.key() == Qt::Key_F4 || (event.key() == Qt::Key_Down && event.modifiers().testFlag(Qt::AltModifier));
    if (opens) {
        combo_->showPopup();
        return true;
    }
    return c().locked() && !event.modifiers().testFlag(Qt::ControlModifier);
}

void ComboBinder::detach()
{
    combo_->hidePopup();
    Binder::detach();
}

void ComboBinder::followChoice()
{
    following_ = true;
    combo_->shown = toQt(c().text());
    QLineEdit* edit = combo_->lineEdit();
    const int caret = edit != nullptr ? edit->cursorPosition() : 0;
    if (combo_->currentIndex() != c().listIndex()) {
        combo_->setCurrentIndex(c().listIndex());
    }
    if (edit != nullptr && (edit->text() != combo_->shown || edit->cursorPosition() != caret)) {
        edit->setText(combo_->shown);
        edit->setCursorPosition(edit->hasFocus() ? caret : 0);
    }
    combo_->setToolTip(!c().toolTip().empty() ? toQt(c().toolTip())
                       : combo_->fontMetrics().horizontalAdvance(combo_->shown) > combo_->width() - theme::pixels(30)
                           ? combo_->shown
                           : QString());
    following_ = false;
    combo_->update();
}

void ComboBinder::follow(Aspect aspect, std::size_t /*row*/)
{
    switch (aspect) {
    case Aspect::items:
        following_ = true;
        model_->follow();
        following_ = false;
        followChoice();
        break;
    case Aspect::selection:
    case Aspect::text:
        followChoice();
        break;
    case Aspect::value:
        combo_->locked = c().locked();
        if (combo_->lineEdit() != nullptr) {
            combo_->lineEdit()->setReadOnly(c().locked());
        }
        followColours();
        combo_->update();
        break;
    case Aspect::caret:
        if (combo_->lineEdit() != nullptr) {
            combo_->lineEdit()->selectAll();
        }
        break;
    default:
        break;
    }
}

void ComboBinder::followColours()
{
    QPalette palette = theme::fieldPalette(base_, c(), c().locked() && c().editable());
    if (!c().editable() && c().backColour() && *c().backColour() != colours::white) {
        // A fixed combo is drawn as a button.
        palette.setColor(QPalette::Button, toQt(*c().backColour()));
        palette.setColor(QPalette::ButtonText, palette.color(QPalette::Text));
    }
    if (reading()) {
        theme::makeLegible(palette);
        palette.setColor(QPalette::Disabled, QPalette::Base, Qt::transparent);
    }
    combo_->setPalette(palette);
}

void ComboBinder::followReading()
{
    combo_->reading = reading();
    followColours();
    combo_->update();
}

void ComboBinder::followAll()
{
    follow(Aspect::items, 0);
    follow(Aspect::value, 0);
}

// --- list box

QSize ListBoxWidget::sizeHint() const
{
    const int row = model() != nullptr && model()->rowCount() > 0 ? sizeHintForRow(0) : fontMetrics().lineSpacing();
    return {Steady<QListView>::sizeHint().width(), row * lines + 2 * frameWidth()};
}

ListBoxBinder::ListBoxBinder(FormWindow& window, ListBox& list, QWidget* parent)
    : BinderOf(window, list),
      list_(new ListBoxWidget(parent)),
      model_(new ItemModel([this]() { return alive() ? &c().items() : nullptr; }))
{
    setWidget(list_);
    model_->setParent(list_);
    list_->setModel(model_);
    list_->setItemDelegate(new RowDelegate(list_));
    list_->setUniformItemSizes(true);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->lines = std::max(2, list.lines);
    list_->setMinimumSize(theme::pixels(140), list_->fontMetrics().lineSpacing() * std::max(2, list.lines) / 2);
    QObject::connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, list_,
                     [this](const QModelIndex& now) {
                         if (!list_->following && now.isValid()) {
                             enter([this, row = now.row()] { c().setListIndex(row); });
                         }
                     });
    QObject::connect(list_, &QListView::doubleClicked, list_,
                     [this] { enter([this] { desktop().interaction().doubleClick(c()); }); });
}

void ListBoxBinder::detach()
{
    list_->following = true;
    Binder::detach();
}

void ListBoxBinder::follow(Aspect aspect, std::size_t /*row*/)
{
    list_->following = true;
    if (aspect == Aspect::items) {
        model_->follow();
    }
    if (aspect == Aspect::items || aspect == Aspect::selection) {
        list_->setCurrentIndex(c().listIndex() < 0 ? QModelIndex() : model_->index(c().listIndex()));
    }
    list_->following = false;
}

void ListBoxBinder::followAll()
{
    follow(Aspect::items, 0);
}

}  // namespace bravona
