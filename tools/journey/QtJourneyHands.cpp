#include <QCalendarWidget>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

#include "journey/QtJourneyHost.h"
#include "journey/QtJourneyViews.h"
#include "platform/qt/Binder.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/Shells.h"
#include "platform/qt/TextBinders.h"

namespace bravona {

// --- mouse

// As the system sends it: a double click is a click and then a press that counts as two.
void QtJourneyHost::mouseAt(QWidget& target, QPoint place, bool twice)
{
    const QPointer<QWidget> alive(&target);
    QTest::mouseClick(&target, Qt::LeftButton, {}, place);
    if (twice) {
        QCoreApplication::processEvents();
        if (alive) {
            secondPress(target, place);
        }
    }
    settle();
}

void QtJourneyHost::secondPress(QWidget& target, QPoint place)
{
    const QPointer<QWidget> alive(&target);
    const QPointF global = target.mapToGlobal(QPointF(place));
    QMouseEvent press(QEvent::MouseButtonDblClick, QPointF(place), global, Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&target, &press);
    if (alive) {
        QMouseEvent release(QEvent::MouseButtonRelease, QPointF(place), global, Qt::LeftButton, {}, {});
        QCoreApplication::sendEvent(&target, &release);
    }
}

void QtJourneyHost::click(Control& control)
{
    QWidget& target = widget(control);
    const bool mark = control.kind() == ControlKind::checkBox || control.kind() == ControlKind::optionButton;
    mouseAt(target, mark ? QPoint(8, target.height() / 2) : target.rect().center());
}

void QtJourneyHost::doubleClick(Control& control)
{
    QWidget* target = &widget(control);
    if (auto* view = dynamic_cast<QAbstractItemView*>(target)) {
        // On the row that is chosen: the click that chose it counts as the first.
        focus(control);
        secondPress(*view->viewport(), indexRect(*view, view->currentIndex()).center());
        settle();
        return;
    }
    if (auto* edit = dynamic_cast<QPlainTextEdit*>(target)) {
        target = edit->viewport();
    }
    mouseAt(*target, target->rect().center(), true);
}

void QtJourneyHost::doubleClick(Form& form)
{
    FormWindow* window = desktop_->windowOf(form);
    if (window == nullptr) {
        throw Impossible("the window is not drawn");
    }
    QWidget* target = window->main() != nullptr ? window->main()->area()->viewport() : window->content();
    mouseAt(*target, QPoint(2, target->height() - 2), true);
}

void QtJourneyHost::rightClick(Control& control)
{
    QWidget* target = &widget(control);
    if (auto* view = dynamic_cast<QAbstractItemView*>(target)) {
        target = view->viewport();
    }
    focus(control);
    // Where the rows stay as they are.
    const QPoint place = target->rect().center();
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, place, target->mapToGlobal(place));
    QCoreApplication::sendEvent(target, &menu);
    settle();
}

void QtJourneyHost::clickIndex(QAbstractItemView& view, const QModelIndex& index, bool twice)
{
    const QRect rect = indexRect(view, index);
    mouseAt(*view.viewport(), rect.center(), twice);
}

namespace {

// The first cell of a row that shows and is no mark.
QModelIndex cellOf(QAbstractItemView& view, const Control& list, std::size_t row)
{
    const int count = view.model()->columnCount();
    const int at = static_cast<int>(row);
    for (int column = 0; column < count; ++column) {
        const QModelIndex index = view.model()->index(at, column);
        if (auto* table = dynamic_cast<QTableView*>(&view); table != nullptr && table->isColumnHidden(column)) {
            continue;
        }
        if (auto* tree = dynamic_cast<QTreeView*>(&view); tree != nullptr && tree->isColumnHidden(column)) {
            continue;
        }
        if (list.kind() == ControlKind::flexGrid && column == 0 && count > 1) {
            continue;
        }
        return index;
    }
    throw Impossible("there is no such row");
}

}  // namespace

void QtJourneyHost::selectRow(Control& list, std::size_t row)
{
    auto& view = as<QAbstractItemView>(widget(list));
    clickIndex(view, cellOf(view, list, list.kind() == ControlKind::flexGrid ? row - 1 : row));
}

void QtJourneyHost::doubleClickRow(Control& list, std::size_t row)
{
    auto& view = as<QAbstractItemView>(widget(list));
    clickIndex(view, cellOf(view, list, list.kind() == ControlKind::flexGrid ? row - 1 : row), true);
}

void QtJourneyHost::clickColumn(Control& list, std::size_t column)
{
    QHeaderView* header = headerOf(widget(list));
    const int section = static_cast<int>(column);
    const int place = header->sectionViewportPosition(section) + std::min(header->sectionSize(section) / 2, 20);
    mouseAt(*header->viewport(), QPoint(place, header->height() / 2));
}

void QtJourneyHost::tick(ListView& list, std::size_t row)
{
    auto& view = as<QTreeView>(widget(list));
    const QModelIndex index = view.model()->index(static_cast<int>(row), 0);
    const QRect cell = indexRect(view, index);
    QStyleOptionViewItem option;
    option.initFrom(&view);
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    option.rect = cell;
    option.widget = &view;
    const QRect mark = view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view);
    mouseAt(*view.viewport(), mark.center());
}

void QtJourneyHost::selectNode(TreeView& tree, int node)
{
    auto& view = as<QTreeView>(widget(tree));
    settle();
    for (int parent = tree.nodes().at(static_cast<std::size_t>(node)).parent; parent >= 0;
         parent = tree.nodes()[static_cast<std::size_t>(parent)].parent) {
        tree.setExpanded(parent, true);
    }
    std::function<QModelIndex(int)> find = [&](int wanted) {
        const TreeNode& one = tree.nodes()[static_cast<std::size_t>(wanted)];
        const QModelIndex parent = one.parent < 0 ? QModelIndex() : find(one.parent);
        for (int row = 0; row < view.model()->rowCount(parent); ++row) {
            const QModelIndex index = view.model()->index(row, 0, parent);
            if (static_cast<int>(index.internalId()) == wanted) {
                return index;
            }
        }
        throw Impossible("there is no such node");
    };
    clickIndex(view, find(node));
}

// Opens the list of a combo and takes an item of it.
void QtJourneyHost::choose(QWidget& target, int item)
{
    auto& combo = as<QComboBox>(target);
    activeWindow();  // as a click would: a window that is not in front has no focus to give
    combo.setFocus(Qt::MouseFocusReason);
    settle();
    combo.showPopup();
    if (!combo.view()->isVisible() || item >= combo.count()) {
        throw Impossible("the list does not open");
    }
    combo.view()->setCurrentIndex(combo.model()->index(item, 0));
    QTest::sendKeyEvent(QTest::Click, combo.view(), Qt::Key_Return, QStringLiteral("\r"), Qt::NoModifier);
    settle();
    if (combo.view()->isVisible()) {
        combo.hidePopup();  // it would take the next key or click
        settle();
    }
}

void QtJourneyHost::chooseItem(Control& comboOrList, int item)
{
    QWidget& target = widget(comboOrList);
    if (comboOrList.kind() == ControlKind::comboBox) {
        choose(target, item);
    } else {
        selectRow(comboOrList, static_cast<std::size_t>(item));
    }
}

void QtJourneyHost::spin(SpinButton& spin, bool up)
{
    const auto arrows = widget(spin).findChildren<QToolButton*>();
    if (arrows.size() != 2) {
        throw Impossible("the arrows are not drawn");
    }
    mouseAt(*arrows[up ? 0 : 1], arrows[0]->rect().center());
}

void QtJourneyHost::setDate(DatePicker& picker, Date date)
{
    focus(picker);
    auto* binder = dynamic_cast<DateBinder*>(desktop_->binderOf(picker));
    QTest::mouseClick(binder->button(), Qt::LeftButton);
    QWidget* popup = QApplication::activePopupWidget();
    auto* calendar = popup != nullptr ? popup->findChild<QCalendarWidget*>() : nullptr;
    if (calendar == nullptr) {
        throw Impossible("the calendar does not open");
    }
    calendar->setSelectedDate(QDate(date.year(), date.month(), date.day()));
    auto* days = calendar->findChild<QAbstractItemView*>();
    QTest::sendKeyEvent(QTest::Click, days, Qt::Key_Return, QStringLiteral("\r"), Qt::NoModifier);
    settle();
}

void QtJourneyHost::chooseTab(TabControl& tabs, int page)
{
    auto& pages = as<QTabWidget>(widget(tabs));
    mouseAt(*pages.tabBar(), pages.tabBar()->tabRect(page).center());
}

void QtJourneyHost::scroll(ScrollBar& bar, int value)
{
    focus(bar);
    as<QScrollBar>(widget(bar)).setValue(value);
    settle();
}

void QtJourneyHost::wheel(PictureBox& picture, int notches)
{
    QWidget& target = widget(picture);
    const QPointF place = target.rect().center();
    QWheelEvent turn(place, target.mapToGlobal(place), {}, {0, notches * QWheelEvent::DefaultDeltasPerStep},
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&target, &turn);
    settle();
}

void QtJourneyHost::chooseDrive(DriveList& drives, int drive)
{
    choose(widget(drives), drive);
}

// However deep: at once, as a typed path goes.
void QtJourneyHost::chooseFolder(DirList& folders, const std::string& path)
{
    focus(folders);
    desktop_->enter([&] { folders.userChoose(path); });
    settle();
}

void QtJourneyHost::selectFile(FileList& files, int file)
{
    selectRow(files, static_cast<std::size_t>(file));
}

// --- grids

void QtJourneyHost::clickCell(FlexGrid& grid, int row, int col)
{
    if (row == 0) {
        clickColumn(grid, static_cast<std::size_t>(col));
        return;
    }
    auto& view = as<QTableView>(widget(grid));
    clickIndex(view, view.model()->index(row - 1, col));
}

void QtJourneyHost::goToCell(FlexGrid& grid, int row, int col)
{
    focus(grid);
    auto& view = as<QTableView>(widget(grid));
    if (row >= 1 && !view.isColumnHidden(col)) {
        view.setCurrentIndex(view.model()->index(row - 1, col));
    } else {
        desktop_->enter([&] { grid.userMove(row, col); });
    }
    settle();
}

void QtJourneyHost::goToCell(DataGrid& grid, std::size_t row, std::size_t col)
{
    auto& view = as<QTableView>(widget(grid));
    const int column = static_cast<int>(col);
    if (view.isColumnHidden(column)) {
        focus(grid);
        desktop_->enter([&] { grid.userMove(row, col); });
        settle();
        return;
    }
    const QRect rect = indexRect(view, view.model()->index(static_cast<int>(row), column));
    // The button of a cell stands at its right end.
    mouseAt(*view.viewport(), QPoint(rect.left() + 4, rect.center().y()));
}

void QtJourneyHost::editCell(DataGrid& grid, std::size_t row, std::size_t col, std::u32string_view text)
{
    goToCell(grid, row, col);
    if (!grid.hasFocus() || grid.row() != row || grid.col() != col) {
        return;
    }
    if (text.empty()) {
        key({.key = Key::del});
    }
    for (const char32_t character : text) {
        key({.key = Key::character, .character = character});
    }
    key({.key = Key::enter});
}

void QtJourneyHost::cellButton(DataGrid& grid, std::size_t row, std::size_t col)
{
    auto& view = as<QTableView>(widget(grid));
    const QRect rect = indexRect(view, view.model()->index(static_cast<int>(row), static_cast<int>(col)));
    mouseAt(*view.viewport(), QPoint(rect.right() - 4, rect.center().y()));
}

void QtJourneyHost::deleteRow(DataGrid& grid, std::size_t row)
{
    auto& view = as<QTableView>(widget(grid));
    indexRect(view, cellOf(view, grid, row));
    QHeaderView* header = view.verticalHeader();
    const int section = static_cast<int>(row);
    mouseAt(*header->viewport(), QPoint(header->width() / 2, header->sectionViewportPosition(section) + 4));
    key({.key = Key::del});
}

}  // namespace bravona
