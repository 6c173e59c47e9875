#pragma once

#include <memory>
#include <utility>

#include "platform/text/Text.h"
#include "support/UtenteDiProva.h"
#include "support/journey/JourneyHost.h"

namespace bravona {

// Journeys on the scripted user.
class ProvaHost final : public JourneyHost {
public:
    Desktop& open(Transcript& transcript) override
    {
        user_ = std::make_unique<UtenteDiProva>(transcript);
        user_->setNextStep(next_);
        return *user_;
    }
    void close() override { user_.reset(); }
    void setNextStep(std::function<bool()> next) override { next_ = std::move(next); }

    void focus(Control& control) override { user_->focus(control); }
    void key(const KeyEvent& event) override { user_->key(event); }
    void paste(std::u32string_view text) override { user_->paste(fromCodePoints(text)); }
    void click(Control& control) override { user_->click(control); }
    void doubleClick(Control& control) override { user_->doubleClick(control); }
    void doubleClick(Form& form) override { user_->doubleClick(form); }
    void rightClick(Control& control) override { user_->rightClick(control); }
    void selectRow(Control& list, std::size_t row) override { user_->selectRow(list, row); }
    void doubleClickRow(Control& list, std::size_t row) override { user_->doubleClickRow(list, row); }
    void clickColumn(Control& list, std::size_t column) override { user_->clickColumn(list, column); }
    void tick(ListView& list, std::size_t row) override { user_->tick(list, row); }
    void selectNode(TreeView& tree, int node) override { user_->selectNode(tree, node); }
    void chooseItem(Control& comboOrList, int item) override { user_->chooseItem(comboOrList, item); }
    void spin(SpinButton& spin, bool up) override { user_->spin(spin, up); }
    void setDate(DatePicker& picker, Date date) override { user_->setDate(picker, date); }
    void chooseTab(TabControl& tabs, int page) override { user_->chooseTab(tabs, page); }
    void scroll(ScrollBar& bar, int value) override { user_->scroll(bar, value); }
    void wheel(PictureBox& picture, int notches) override { user_->wheel(picture, notches); }
    void chooseDrive(DriveList& drives, int drive) override { user_->chooseDrive(drives, drive); }
    void chooseFolder(DirList& folders, const std::string& path) override { user_->chooseFolder(folders, path); }
    void selectFile(FileList& files, int file) override { user_->selectFile(files, file); }
    void clickCell(FlexGrid& grid, int row, int col) override { user_->clickCell(grid, row, col); }
    void goToCell(FlexGrid& grid, int row, int col) override { user_->goToCell(grid, row, col); }
    void goToCell(DataGrid& grid, std::size_t row, std::size_t col) override { user_->goToCell(grid, row, col); }
    void editCell(DataGrid& grid, std::size_t row, std::size_t col, std::u32string_view text) override
    {
        user_->editCell(grid, row, col, fromCodePoints(text));
    }
    void cellButton(DataGrid& grid, std::size_t row, std::size_t col) override { user_->cellButton(grid, row, col); }
    void deleteRow(DataGrid& grid, std::size_t row) override { user_->deleteRow(grid, row); }
    void menu(Form& owner, Menu& entry) override { user_->menu(owner, entry); }
    [[nodiscard]] Menu* openPopup() const override { return user_->openPopup(); }
    void front(Form& form) override { user_->bringFront(form); }
    void closeWindow(Form& form) override { user_->closeWindow(form); }
    void wait(int milliseconds) override { user_->wait(milliseconds); }
    bool picture(const std::string&) override { return false; }

private:
    std::unique_ptr<UtenteDiProva> user_;
    std::function<bool()> next_;
};

}  // namespace bravona
