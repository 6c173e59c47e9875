#pragma once

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/values/Date.h"
#include "platform/windowing/Desktop.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Grids.h"
#include "platform/windowing/Lists.h"
#include "platform/windowing/Parts.h"
#include "support/journey/Transcript.h"

namespace bravona {

// A person could not do it: the step fails.
class Impossible : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The hands and eyes of a journey on one kind of desktop. The runner has looked before each gesture that the control is
// in sight, enabled and in a window that takes input; a host throws Impossible for what only it can see. Rows and
// columns count from 0; row 0 of a flex grid is its heading. Every gesture returns when its events have been delivered,
// or, when it opened a modal window, after that has closed: meanwhile the host calls the next step again and again.
class JourneyHost {
public:
    virtual ~JourneyHost() = default;

    // --- sessions: one desktop at a time. What it shows is written into the transcript, and answers are taken from
    // there.
    virtual Desktop& open(Transcript& transcript) = 0;
    // The desktop and its windows go, without any event.
    virtual void close() = 0;
    // Does one step of the journey while a modal window waits, and returns false when none is left: the host then ends
    // the desktop with status 0, and FineProcesso unwinds what was open.
    virtual void setNextStep(std::function<bool()> next) = 0;

    // --- keys, at the focus
    virtual void focus(Control& control) = 0;  // as a click on it does
    virtual void key(const KeyEvent& event) = 0;
    virtual void paste(std::u32string_view text) = 0;

    // --- mouse
    virtual void click(Control& control) = 0;  // button, option, check box, label, picture
    virtual void doubleClick(Control& control) = 0;
    virtual void doubleClick(Form& form) = 0;  // on its empty area
    virtual void rightClick(Control& control) = 0;
    virtual void selectRow(Control& list, std::size_t row) = 0;  // list view, list box, data grid: first cell in sight
    virtual void doubleClickRow(Control& list, std::size_t row) = 0;
    virtual void clickColumn(Control& list, std::size_t column) = 0;
    virtual void tick(ListView& list, std::size_t row) = 0;  // the row's check box
    virtual void selectNode(TreeView& tree, int node) = 0;
    virtual void chooseItem(Control& comboOrList, int item) = 0;
    virtual void spin(SpinButton& spin, bool up) = 0;
    virtual void setDate(DatePicker& picker, Date date) = 0;
    virtual void chooseTab(TabControl& tabs, int page) = 0;
    virtual void scroll(ScrollBar& bar, int value) = 0;
    virtual void wheel(PictureBox& picture, int notches) = 0;  // away from the person above 0
    virtual void chooseDrive(DriveList& drives, int drive) = 0;
    virtual void chooseFolder(DirList& folders, const std::string& path) = 0;  // an absolute one
    virtual void selectFile(FileList& files, int file) = 0;

    // --- grids
    virtual void clickCell(FlexGrid& grid, int row, int col) = 0;
    virtual void goToCell(FlexGrid& grid, int row, int col) = 0;  // by the keyboard: no click
    virtual void goToCell(DataGrid& grid, std::size_t row, std::size_t col) = 0;
    // Types the text over what is in the cell and leaves it by Enter; an empty text empties it.
    virtual void editCell(DataGrid& grid, std::size_t row, std::size_t col, std::u32string_view text) = 0;
    virtual void cellButton(DataGrid& grid, std::size_t row, std::size_t col) = 0;
    virtual void deleteRow(DataGrid& grid, std::size_t row) = 0;

    // --- windows
    virtual void menu(Form& owner, Menu& entry) = 0;  // of a menu bar, or of the pop-up menu that is open
    [[nodiscard]] virtual Menu* openPopup() const = 0;
    virtual void front(Form& form) = 0;
    virtual void closeWindow(Form& form) = 0;  // by its system menu
    virtual void wait(int milliseconds) = 0;

    // --- eyes
    // What the control shows on the screen; a host that draws looks at what it drew.
    [[nodiscard]] virtual std::string shownText(const Control& control) { return control.shownText(); }
    // The window in front as a PNG; false on a host that draws nothing.
    virtual bool picture(const std::string& path) = 0;
};

}  // namespace bravona
