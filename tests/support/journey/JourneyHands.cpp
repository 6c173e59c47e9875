#include <algorithm>

#include "platform/text/Text.h"
#include "support/journey/JourneyControls.h"
#include "support/journey/JourneyRunner.h"

// The steps that are gestures: each looks whether a person could do it, and has the host do it.

namespace bravona {

namespace {

int whole(const Word& word)
{
    return static_cast<int>(*parseWhole(word.text));
}

void requireWritable(const Control& control)
{
    if (isReadOnly(control)) {
        throw Impossible(control.fullName() + " is read-only");
    }
}

// A menu command by its name in one menu, with everything above it in sight and enabled.
Menu* findEntry(Menu& menu, const std::string& name, bool& usable)
{
    for (const auto& entry : menu.entries) {
        bool below = entry->visible && entry->enabled;
        if (entry->name == name) {
            usable = usable && below;
            return entry.get();
        }
        if (Menu* found = findEntry(*entry, name, below); found != nullptr) {
            usable = usable && below;
            return found;
        }
    }
    return nullptr;
}

}  // namespace

void JourneyRunner::giveFocus(Control& control)
{
    if (!control.focusable()) {
        throw Impossible(control.fullName() + " takes no focus");
    }
    if (!control.hasFocus()) {
        host_.focus(control);
    }
    if (!desktop().ended() && !control.hasFocus()) {
        throw Impossible("the focus would not go to " + control.fullName());
    }
}

void JourneyRunner::typeKeys(std::u32string_view text)
{
    for (const char32_t character : text) {
        if (desktop().ended()) {
            return;
        }
        KeyEvent event;
        event.key = character == U'\n' ? Key::enter : character == U'\t' ? Key::tab : Key::character;
        event.character = event.key == Key::character ? character : 0;
        host_.key(event);
    }
}

void JourneyRunner::menu(const Step& step)
{
    Desktop& where = desktop();
    const std::string& name = step.words[1].text;
    std::vector<std::pair<Form*, Menu*>> menus;
    Form& front = frontForm(where);
    if (host_.openPopup() != nullptr) {
        menus.emplace_back(&front, host_.openPopup());
    }
    menus.emplace_back(&front, front.menuBar.get());
    if (Form* main = where.mainWindow(); main != nullptr && main != &front) {
        menus.emplace_back(main, main->menuBar.get());
    }
    for (const auto& [owner, bar] : menus) {
        bool usable = true;
        Menu* entry = bar == nullptr ? nullptr : findEntry(*bar, name, usable);
        if (entry == nullptr) {
            continue;
        }
        if (!usable) {
            throw Impossible("the menu command " + name + (entry->visible ? " is disabled" : " is hidden"));
        }
        if (where.blocked(*owner)) {
            throw Impossible("the menu is behind a modal window");
        }
        host_.menu(*owner, *entry);
        return;
    }
    throw Impossible("there is no menu command " + name);
}

void JourneyRunner::front(const Step& step)
{
    Form* form = desktop().screens().find(step.words[1].text);
    if (form == nullptr || !form->shown()) {
        throw Impossible(step.words[1].text + " is not open");
    }
    if (desktop().blocked(*form)) {
        throw Impossible(step.words[1].text + " is behind a modal window");
    }
    host_.front(*form);
}

void JourneyRunner::focus(const Step& step)
{
    giveFocus(usableControl(desktop(), step.words[1]));
}

void JourneyRunner::type(const Step& step)
{
    const bool named = step.words.size() > 2;
    if (named) {
        Control& control = usableControl(desktop(), step.words[1]);
        requireWritable(control);
        giveFocus(control);
    } else {
        Control* focused = frontForm(desktop()).focusedControl();
        if (focused == nullptr) {
            throw Impossible("nothing has the focus");
        }
        requireUsable(desktop(), *focused);
        requireWritable(*focused);
    }
    typeKeys(toCodePoints(step.words[named ? 2 : 1].text));
}

void JourneyRunner::key(const Step& step)
{
    frontForm(desktop());
    host_.key(*parseKey(step.words[1].text));
}

void JourneyRunner::press(const Step& step)
{
    host_.click(usableControl(desktop(), step.words[1]));
}

void JourneyRunner::choose(const Step& step)
{
    Control& control = usableControl(desktop(), step.words[1]);
    requireWritable(control);
    const Word& item = step.words[2];
    if (control.kind() == ControlKind::dirList) {
        const auto path = session_->folder.resolve(item.text);
        if (!std::filesystem::is_directory(path)) {
            throw Impossible("there is no folder " + item.text);
        }
        host_.chooseFolder(static_cast<DirList&>(control), path.string());
        return;
    }
    const std::size_t count = rowCount(control);
    std::size_t wanted = count;
    if (!item.quoted) {
        wanted = static_cast<std::size_t>(*parseWhole(item.text.substr(1)));
    } else {
        for (std::size_t row = 0; row < count && wanted == count; ++row) {
            if (comparable(cellText(control, row, 0)) == comparable(item.text)) {
                wanted = row;
            }
        }
    }
    if (wanted >= count) {
        throw Impossible(control.fullName() + " has no item " + item.text);
    }
    switch (control.kind()) {
    case ControlKind::comboBox:
    case ControlKind::listBox:
        host_.chooseItem(control, static_cast<int>(wanted));
        break;
    case ControlKind::driveList:
        host_.chooseDrive(static_cast<DriveList&>(control), static_cast<int>(wanted));
        break;
    case ControlKind::fileList:
        host_.selectFile(static_cast<FileList&>(control), static_cast<int>(wanted));
        break;
    default:
        throw Impossible(control.fullName() + " is no combo and no list");
    }
}

void JourneyRunner::select(const Step& step)
{
    Control& control = usableControl(desktop(), step.words[1]);
    const std::size_t row = findRow(control, step.words[2], true);
    switch (control.kind()) {
    case ControlKind::flexGrid:
        host_.clickCell(static_cast<FlexGrid&>(control), static_cast<int>(row) + 1, 1);
        break;
    case ControlKind::fileList:
        host_.selectFile(static_cast<FileList&>(control), static_cast<int>(row));
        break;
    case ControlKind::listView:
    case ControlKind::listBox:
    case ControlKind::dataGrid:
        host_.selectRow(control, row);
        break;
    default:
        throw Impossible(control.fullName() + " has no rows to click");
    }
}

void JourneyRunner::doubleClick(const Step& step)
{
    Desktop& where = desktop();
    Form& front = frontForm(where);
    if (step.words.size() == 2) {
        Form* form = front.name() == step.words[1].text ? &front : where.screens().find(step.words[1].text);
        if (form != nullptr && front.find(step.words[1].text) == nullptr) {
            if (!form->shown() || where.blocked(*form)) {
                throw Impossible(form->name() + " cannot be reached");
            }
            host_.doubleClick(*form);
            return;
        }
        host_.doubleClick(usableControl(where, step.words[1]));
        return;
    }
    Control& control = usableControl(where, step.words[1]);
    const std::size_t row = findRow(control, step.words[2], true);
    host_.doubleClickRow(control, control.kind() == ControlKind::flexGrid ? row + 1 : row);
}

void JourneyRunner::rightClick(const Step& step)
{
    host_.rightClick(usableControl(desktop(), step.words[1]));
    if (host_.openPopup() == nullptr) {
        throw Impossible(step.words[1].text + " has no pop-up menu");
    }
}

void JourneyRunner::column(const Step& step)
{
    Control& control = usableControl(desktop(), step.words[1]);
    const int column = whole(step.words[2]);
    const std::size_t count = control.kind() == ControlKind::listView ? static_cast<ListView&>(control).columns().size()
                              : control.kind() == ControlKind::flexGrid
                                  ? static_cast<std::size_t>(static_cast<FlexGrid&>(control).cols())
                                  : 0;
    if (column < 0 || static_cast<std::size_t>(column) >= count) {
        throw Impossible(control.fullName() + " has no column " + step.words[2].text);
    }
    host_.clickColumn(control, static_cast<std::size_t>(column));
}

void JourneyRunner::spin(const Step& step)
{
    host_.spin(as<SpinButton>(usableControl(desktop(), step.words[1]), ControlKind::spinButton, "spin button"),
               step.words[2].text == "up");
}

void JourneyRunner::paste(const Step& step)
{
    Control& control = usableControl(desktop(), step.words[1]);
    requireWritable(control);
    giveFocus(control);
    host_.paste(toCodePoints(step.words[2].text));
}

void JourneyRunner::tick(const Step& step)
{
    Control& control = usableControl(desktop(), step.words[1]);
    const std::size_t row = findRow(control, step.words[2]);
    const bool wanted = step.words[3].text == "on";
    bool now = false;
    if (control.kind() == ControlKind::flexGrid) {
        auto& grid = static_cast<FlexGrid&>(control);
        const int line = static_cast<int>(row) + 1;
        now = grid.picture(line, 0) == FlexGrid::Picture::paid;
        if (now != wanted) {
            host_.clickCell(grid, line, 0);
            if (!desktop().ended() && line < grid.rows()) {
                now = grid.picture(line, 0) == FlexGrid::Picture::paid;
            }
        }
    } else {
        auto& list = as<ListView>(control, ControlKind::listView, "list with check boxes");
        if (!list.checkBoxes) {
            throw Impossible(control.fullName() + " has no check boxes");
        }
        now = list.row(row).checked;
        if (now != wanted) {
            host_.tick(list, row);
            now = wanted;  // the program may have filled the list anew by now
        }
    }
    if (now != wanted) {
        throw Impossible("the mark of " + control.fullName() + " cannot be changed");
    }
}

void JourneyRunner::check(const Step& step)
{
    Control& control = usableControl(desktop(), step.words[1]);
    const bool wanted = step.words[2].text == "on";
    if (control.kind() == ControlKind::optionButton) {
        if (!wanted) {
            throw Impossible(control.fullName() + " is an option: another one is to be chosen");
        }
        host_.click(control);
        return;
    }
    if (as<CheckBox>(control, ControlKind::checkBox, "check box").checked() != wanted) {
        host_.click(control);
    }
}

void JourneyRunner::node(const Step& step)
{
    auto& tree = as<TreeView>(usableControl(desktop(), step.words[1]), ControlKind::treeView, "tree");
    const int node = tree.find(step.words[2].text);
    if (node < 0) {
        throw Impossible(tree.fullName() + " has no node \"" + step.words[2].text + "\"");
    }
    host_.selectNode(tree, node);
}

void JourneyRunner::cell(const Step& step)
{
    Control& control = usableControl(desktop(), step.words[1]);
    const std::size_t row = findRow(control, step.words[2], true);
    const int col = whole(step.words[3]);
    if (control.kind() == ControlKind::dataGrid) {
        auto& grid = static_cast<DataGrid&>(control);
        if (col < 0 || static_cast<std::size_t>(col) >= grid.columns().size()) {
            throw Impossible(grid.fullName() + " has no column " + step.words[3].text);
        }
        const auto column = static_cast<std::size_t>(col);
        if (step.words.size() == 4) {
            host_.goToCell(grid, row, column);
            return;
        }
        if (!grid.canEdit(row, column)) {
            throw Impossible("the cell of " + grid.fullName() + " is read-only");
        }
        host_.editCell(grid, row, column, toCodePoints(step.words[4].text));
        return;
    }
    auto& grid = as<FlexGrid>(control, ControlKind::flexGrid, "grid");
    if (col < 0 || col >= grid.cols()) {
        throw Impossible(grid.fullName() + " has no column " + step.words[3].text);
    }
    if (step.words.size() == 4) {
        host_.goToCell(grid, static_cast<int>(row) + 1, col);
        return;
    }
    requireWritable(grid);
    editFlexCell(grid, static_cast<int>(row) + 1, col, step.words[4].text);
}

// The first key opens the editor over the cell, the others go into it; an empty text is Enter, which opens it with what
// is there, and Delete.
void JourneyRunner::editFlexCell(FlexGrid& grid, int row, int col, const std::string& text)
{
    host_.goToCell(grid, row, col);
    if (!grid.hasFocus() || grid.row() != row || grid.col() != col) {
        throw Impossible("the cell of " + grid.fullName() + " cannot be reached");
    }
    const std::size_t boxes = session_->transcript.boxes.size();
    const std::u32string characters = toCodePoints(text);
    typeKeys(characters.empty() ? std::u32string(U"\n") : characters.substr(0, 1));
    if (desktop().ended() || session_->transcript.boxes.size() > boxes) {
        return;  // the program answered by a box
    }
    if (grid.hasFocus()) {
        throw Impossible("the cell of " + grid.fullName() + " cannot be typed into");
    }
    if (characters.empty()) {
        host_.key(KeyEvent{.key = Key::character, .character = U'a', .ctrl = true});
        host_.key(KeyEvent{.key = Key::del});
    } else {
        typeKeys(characters.substr(1));
    }
    host_.key(KeyEvent{.key = Key::enter});
}

void JourneyRunner::cellButton(const Step& step)
{
    auto& grid = as<DataGrid>(usableControl(desktop(), step.words[1]), ControlKind::dataGrid, "grid with buttons");
    const std::size_t row = findRow(grid, step.words[2], true);
    const int col = whole(step.words[3]);
    if (col < 0 || static_cast<std::size_t>(col) >= grid.columns().size() ||
        !grid.columns()[static_cast<std::size_t>(col)].button) {
        throw Impossible("there is no button in this cell of " + grid.fullName());
    }
    host_.cellButton(grid, row, static_cast<std::size_t>(col));
}

void JourneyRunner::deleteRow(const Step& step)
{
    auto& grid = as<DataGrid>(usableControl(desktop(), step.words[1]), ControlKind::dataGrid,
                              "grid whose rows are deleted in it");
    requireWritable(grid);
    const std::size_t row = findRow(grid, step.words[2]);
    if (!grid.allowDelete) {
        throw Impossible("the rows of " + grid.fullName() + " cannot be deleted");
    }
    host_.deleteRow(grid, row);
}

void JourneyRunner::date(const Step& step)
{
    host_.setDate(as<DatePicker>(usableControl(desktop(), step.words[1]), ControlKind::datePicker, "date picker"),
                  *Date::parse(step.words[2].text));
}

void JourneyRunner::tab(const Step& step)
{
    auto& tabs = as<TabControl>(usableControl(desktop(), step.words[1]), ControlKind::tabControl, "tab control");
    const int page = whole(step.words[2]);
    if (page < 0 || page >= static_cast<int>(tabs.pages().size())) {
        throw Impossible(tabs.fullName() + " has no page " + step.words[2].text);
    }
    const TabControl::Page& wanted = tabs.pages()[static_cast<std::size_t>(page)];
    if (!wanted.enabled || !wanted.visible) {
        throw Impossible("page " + step.words[2].text + " of " + tabs.fullName() + " cannot be chosen");
    }
    host_.chooseTab(tabs, page);
}

void JourneyRunner::close(const Step&)
{
    host_.closeWindow(frontForm(desktop()));
}

}  // namespace bravona
