#pragma once

#include <QPointer>
#include <memory>

#include "platform/qt/QtDesktop.h"
#include "support/journey/JourneyHost.h"

class QAbstractItemView;
class QApplication;
class QModelIndex;

namespace bravona {

// The journeys' hands on the real windows: key and mouse events as the system sends them.
class QtJourneyHost final : public JourneyHost {
public:
    QtJourneyHost(int& argc, char** argv);
    ~QtJourneyHost() override;

    Desktop& open(Transcript& transcript) override;
    void close() override;
    void setNextStep(std::function<bool()> next) override { next_ = std::move(next); }

    void focus(Control& control) override;
    void key(const KeyEvent& event) override;
    void paste(std::u32string_view text) override;

    void click(Control& control) override;
    void doubleClick(Control& control) override;
    void doubleClick(Form& form) override;
    void rightClick(Control& control) override;
    void selectRow(Control& list, std::size_t row) override;
    void doubleClickRow(Control& list, std::size_t row) override;
    void clickColumn(Control& list, std::size_t column) override;
    void tick(ListView& list, std::size_t row) override;
    void selectNode(TreeView& tree, int node) override;
    void chooseItem(Control& comboOrList, int item) override;
    void spin(SpinButton& spin, bool up) override;
    void setDate(DatePicker& picker, Date date) override;
    void chooseTab(TabControl& tabs, int page) override;
    void scroll(ScrollBar& bar, int value) override;
    void wheel(PictureBox& picture, int notches) override;
    void chooseDrive(DriveList& drives, int drive) override;
    void chooseFolder(DirList& folders, const std::string& path) override;
    void selectFile(FileList& files, int file) override;

    void clickCell(FlexGrid& grid, int row, int col) override;
    void goToCell(FlexGrid& grid, int row, int col) override;
    void goToCell(DataGrid& grid, std::size_t row, std::size_t col) override;
    void editCell(DataGrid& grid, std::size_t row, std::size_t col, std::u32string_view text) override;
    void cellButton(DataGrid& grid, std::size_t row, std::size_t col) override;
    void deleteRow(DataGrid& grid, std::size_t row) override;

    void menu(Form& owner, Menu& entry) override;
    [[nodiscard]] Menu* openPopup() const override;
    void front(Form& form) override;
    void closeWindow(Form& form) override;
    void wait(int milliseconds) override;

    [[nodiscard]] std::string shownText(const Control& control) override;
    bool picture(const std::string& path) override;

private:
    [[nodiscard]] QWidget& widget(const Control& control) const;  // Impossible where nothing was drawn
    [[nodiscard]] QWidget& keyTarget() const;
    FormWindow* activeWindow() const;
    void mouseAt(QWidget& target, QPoint place, bool twice = false);
    static void secondPress(QWidget& target, QPoint place);
    void clickIndex(QAbstractItemView& view, const QModelIndex& index, bool twice = false);
    void choose(QWidget& combo, int item);
    void pump(const std::function<bool()>& done);
    void settle();

    std::unique_ptr<QApplication> application_;
    std::unique_ptr<QtDesktop> desktop_;
    std::function<bool()> next_;
    int depth_ = 0;  // of modal windows whose steps run
};

std::unique_ptr<JourneyHost> makeQtHost(int& argc, char** argv, bool dark);

}  // namespace bravona
