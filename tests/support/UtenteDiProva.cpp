#include "support/UtenteDiProva.h"

#include <filesystem>
#include <fstream>

#include "platform/files/Files.h"
#include "platform/text/Text.h"
#include "platform/values/Errore.h"
#include "support/PictureHeader.h"

namespace bravona {

// --- windows ------------------------------------------------------------------------------------------------------

void UtenteDiProva::doModalLoop(Form& form, const std::function<bool()>& done)
{
    bool stepsRun = false;
    while (!done()) {
        if (form.style() == WindowStyle::splash) {
            if (!fireNext(-1)) {
                end(1);  // nothing would ever close it
            }
        } else if (next_) {
            if (!next_()) {
                end(0);
            }
        } else if (!stepsRun && !modalSteps_.empty()) {
            stepsRun = true;
            const auto steps = std::move(modalSteps_.front());
            modalSteps_.pop_front();
            steps(form);
        } else {
            closeWindow(form);
            if (!done()) {
                end(1);
            }
        }
    }
}

void UtenteDiProva::doUnload(Form& form)
{
    for (Timer* timer : form.timers) {
        due_.erase(timer);
    }
    popup_ = nullptr;
}

void UtenteDiProva::doFocus(Control& control)
{
    line_ = LineEdit(toCodePoints(control.shownText()), 0, 0);
    line_.selectAll();
}

void UtenteDiProva::popupMenu(Form&, Menu& menu)
{
    popup_ = &menu;
}

void UtenteDiProva::centre(Form&, bool) {}

// --- dialogs and paper --------------------------------------------------------------------------------------------

std::optional<std::string> UtenteDiProva::openFile(const FileDialog& dialog)
{
    lastDialog_ = dialog;
    return transcript_->file();
}

std::optional<std::string> UtenteDiProva::saveFile(const FileDialog& dialog, const std::string&)
{
    lastDialog_ = dialog;
    return transcript_->file();
}

std::optional<std::string> UtenteDiProva::chooseFolder(const std::string& title, const std::string& folder)
{
    lastDialog_ = FileDialog{title, folder, {}};
    return transcript_->file();
}

std::optional<Colour> UtenteDiProva::chooseColour(const std::string&, Colour)
{
    return transcript_->colour();
}

bool UtenteDiProva::printPages(const Pages& pages, const std::string& title)
{
    transcript_->papers.push_back({title, {}, pages});
    return true;
}

void UtenteDiProva::exportPdf(const Pages& pages, const std::string& path, const std::string& title)
{
    std::ofstream file(Files::native(path), std::ios::binary);
    file << "%PDF-1.4\n";
    if (!file.flush()) {
        throw Errore(errori::erroreDiPercorso, "Il file non può essere scritto: " + path);
    }
    transcript_->papers.push_back({title, path, pages});
}

std::optional<std::pair<int, int>> UtenteDiProva::pictureSize(const std::string& path)
{
    return readPictureSize(Files::native(path));
}

// --- time ---------------------------------------------------------------------------------------------------------

void UtenteDiProva::timersChanged(Form& form)
{
    for (Timer* timer : form.timers) {
        if (!timer->enabled || timer->interval <= 0) {
            due_.erase(timer);
            continue;
        }
        const auto place = due_.find(timer);
        if (place == due_.end() || place->second.interval != timer->interval) {
            due_[timer] = {now_ + timer->interval, timer->interval};
        }
    }
}

// Lets the timer that is due first go off, if it is due by then (-1: whenever).
bool UtenteDiProva::fireNext(long until)
{
    for (Form* form : screens().loaded()) {
        timersChanged(*form);
    }
    const auto first = std::min_element(due_.begin(), due_.end(),
                                        [](const auto& a, const auto& b) { return a.second.at < b.second.at; });
    if (first == due_.end() || (until >= 0 && first->second.at > until)) {
        return false;
    }
    Timer* timer = first->first;
    now_ = std::max(now_, first->second.at);
    first->second.at = now_ + first->second.interval;
    guard([timer] {
        if (timer->onTimer) {
            timer->onTimer();
        }
    });
    return true;
}

void UtenteDiProva::wait(int milliseconds)
{
    const long until = now_ + milliseconds;
    while (!ended() && fireNext(until)) {
    }
    now_ = until;
}

// --- mouse --------------------------------------------------------------------------------------------------------

bool UtenteDiProva::reach(Control& control)
{
    mouse();
    return control.form() != nullptr && control.form()->shown() && !blocked(*control.form()) &&
           control.effectivelyEnabled() && control.effectivelyVisible();
}

// A click into a control: it takes the focus first, and nothing happens when another one refuses to let it go.
void UtenteDiProva::onControl(Control& control, const std::function<void()>& what)
{
    if (!reach(control)) {
        return;
    }
    guard([&] {
        if (!control.focusable() || interaction().focus(control)) {
            what();
        }
    });
}

void UtenteDiProva::focus(Control& control)
{
    onControl(control, [] {});
}

void UtenteDiProva::doubleClick(Form& form)
{
    mouse();
    if (!blocked(form) && form.shown()) {
        guard([&] { interaction().leaveField(form, [&] { form.onDblClick(); }); });
    }
}

void UtenteDiProva::rightClick(Control& control)
{
    onControl(control, [&] {
        Menu* menu = control.kind() == ControlKind::listView ? static_cast<ListView&>(control).contextMenu : nullptr;
        menu = menu != nullptr ? menu : control.form()->popupMenu.get();
        if (menu != nullptr) {
            popupMenu(*control.form(), *menu);
        }
    });
}

void UtenteDiProva::selectRow(Control& list, std::size_t row)
{
    onControl(list, [&] {
        switch (list.kind()) {
        case ControlKind::listView:
            if (row < static_cast<ListView&>(list).rowCount()) {
                static_cast<ListView&>(list).userSelect(row);
            }
            break;
        case ControlKind::listBox:
            static_cast<ListBox&>(list).setListIndex(static_cast<int>(row));
            break;
        case ControlKind::dataGrid: {
            auto& grid = static_cast<DataGrid&>(list);
            for (std::size_t column = 0; column < grid.columns().size(); ++column) {
                if (grid.columns()[column].visible && grid.columns()[column].width != 0) {
                    grid.userMove(row, column);
                    break;
                }
            }
            break;
        }
        default:
            break;
        }
    });
}

void UtenteDiProva::doubleClickRow(Control& list, std::size_t row)
{
    if (list.kind() == ControlKind::flexGrid) {
        clickCell(static_cast<FlexGrid&>(list), static_cast<int>(row), 1);
    } else {
        selectRow(list, row);
    }
    if (!ended() && reach(list)) {
        interaction().doubleClick(list);
    }
}

void UtenteDiProva::clickColumn(Control& list, std::size_t column)
{
    onControl(list, [&] {
        if (list.kind() == ControlKind::listView) {
            static_cast<ListView&>(list).userColumnClick(column);
        } else if (list.kind() == ControlKind::flexGrid) {
            static_cast<FlexGrid&>(list).userClick(0, static_cast<int>(column));
        }
    });
}

void UtenteDiProva::tick(ListView& list, std::size_t row)
{
    onControl(list, [&] { list.userCheck(row, !list.row(row).checked); });
}

void UtenteDiProva::selectNode(TreeView& tree, int node)
{
    onControl(tree, [&] { tree.userSelect(node); });
}

void UtenteDiProva::chooseItem(Control& comboOrList, int item)
{
    onControl(comboOrList, [&] {
        if (comboOrList.kind() == ControlKind::listBox) {
            static_cast<ListBox&>(comboOrList).setListIndex(item);
        } else if (!static_cast<ComboBox&>(comboOrList).locked()) {
            static_cast<ComboBox&>(comboOrList).setListIndex(item);
            doFocus(comboOrList);
        }
    });
}

void UtenteDiProva::spin(SpinButton& spin, bool up)
{
    onControl(spin, [&] { spin.spin(up); });
}

void UtenteDiProva::setDate(DatePicker& picker, Date date)
{
    onControl(picker, [&] { picker.setDate(date); });
}

void UtenteDiProva::scroll(ScrollBar& bar, int value)
{
    onControl(bar, [&] { bar.setValue(value); });
}

void UtenteDiProva::chooseDrive(DriveList& drives, int drive)
{
    drives.refresh();
    onControl(drives, [&] { drives.userChoose(drives.drives().at(static_cast<std::size_t>(drive))); });
}

void UtenteDiProva::chooseFolder(DirList& folders, const std::string& path)
{
    onControl(folders, [&] { folders.userChoose(path); });
}

void UtenteDiProva::selectFile(FileList& files, int file)
{
    onControl(files, [&] { files.setListIndex(file); });
}

void UtenteDiProva::clickCell(FlexGrid& grid, int row, int col)
{
    onControl(grid, [&] { grid.userClick(row, col); });
}

void UtenteDiProva::goToCell(FlexGrid& grid, int row, int col)
{
    onControl(grid, [&] { grid.userMove(row, col); });
}

void UtenteDiProva::goToCell(DataGrid& grid, std::size_t row, std::size_t col)
{
    onControl(grid, [&] { grid.userMove(row, col); });
}

void UtenteDiProva::editCell(DataGrid& grid, std::size_t row, std::size_t col, std::string_view text)
{
    goToCell(grid, row, col);
    if (!grid.hasFocus() || grid.row() != row || grid.col() != col) {
        return;
    }
    if (text.empty()) {
        key(Key::del);
    } else {
        type(text);
    }
    key(Key::enter);
}

void UtenteDiProva::cellButton(DataGrid& grid, std::size_t row, std::size_t col)
{
    onControl(grid, [&] { grid.userButton(row, col); });
}

void UtenteDiProva::deleteRow(DataGrid& grid, std::size_t row)
{
    onControl(grid, [&] { grid.userSelectRow(row); });
    if (grid.hasFocus() && grid.rowSelected()) {
        key(Key::del);
    }
}

void UtenteDiProva::menu(Form& owner, Menu& entry)
{
    mouse();
    interaction().menu(owner, entry);
}

}  // namespace bravona
