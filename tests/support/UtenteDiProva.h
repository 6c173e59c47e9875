#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/windowing/Desktop.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Grids.h"
#include "platform/windowing/Lists.h"
#include "platform/windowing/Parts.h"
#include "support/LineEdit.h"
#include "support/journey/Transcript.h"

namespace bravona {

// The scripted user: a desktop in memory and the hands that work at it. Everything shown is kept in the transcript;
// boxes and dialogs take their answers from there. Time stands still until `wait`. The gestures do what the hand does
// on the real windows and nothing on what it cannot use: disabled, hidden, read-only, behind a modal window.
class UtenteDiProva final : public Desktop {
public:
    UtenteDiProva() = default;
    explicit UtenteDiProva(Transcript& transcript) : transcript_(&transcript) {}
    ~UtenteDiProva() override { screens().clear(); }

    [[nodiscard]] Transcript& transcript() { return *transcript_; }
    // Title and text of the box shown last, and how many there were.
    [[nodiscard]] const MessageBox& lastBox() const { return transcript_->boxes.at(transcript_->boxes.size() - 1).box; }
    std::vector<std::string> refused;  // fields whose filter dropped a key
    [[nodiscard]] std::size_t boxCount() const { return transcript_->boxes.size(); }
    void answer(MsgAnswer next) { transcript_->answers.push_back(next); }
    void answerFile(std::string path) { transcript_->files.push_back(std::move(path)); }

    // --- modal windows. While one waits, its next step is asked for: `next` answers false when there is none left, and
    // the desktop ends. Without `next`, the functions queued by `inModal` are run, one a modal window (whatever it
    // leaves open is closed by the person).
    void setNextStep(std::function<bool()> next) { next_ = std::move(next); }
    void inModal(std::function<void(Form&)> steps) { modalSteps_.push_back(std::move(steps)); }

    // --- keys, at the focus of the window in front
    void key(const KeyEvent& event);
    void key(Key which) { key(KeyEvent{.key = which}); }
    void type(std::string_view text);  // character by character; "\n" is Enter
    void paste(std::string_view text);
    void focus(Control& control);  // as a click on it
    void type(Control& control, std::string_view text);

    // --- mouse
    void click(Control& control) { mouse(), interaction().click(control); }
    void doubleClick(Control& control) { mouse(), interaction().doubleClick(control); }
    void doubleClick(Form& form);
    void rightClick(Control& control);
    void selectRow(Control& list, std::size_t row);
    void doubleClickRow(Control& list, std::size_t row);
    void clickColumn(Control& list, std::size_t column);
    void tick(ListView& list, std::size_t row);
    void selectNode(TreeView& tree, int node);
    void chooseItem(Control& comboOrList, int item);
    void spin(SpinButton& spin, bool up);
    void setDate(DatePicker& picker, Date date);
    void chooseTab(TabControl& tabs, int page) { mouse(), interaction().tab(tabs, page); }
    void scroll(ScrollBar& bar, int value);
    void wheel(PictureBox& picture, int notches) { interaction().wheel(picture, notches, false); }
    void chooseDrive(DriveList& drives, int drive);
    void chooseFolder(DirList& folders, const std::string& path);
    void selectFile(FileList& files, int file);
    void clickCell(FlexGrid& grid, int row, int col);
    void goToCell(FlexGrid& grid, int row, int col);
    void goToCell(DataGrid& grid, std::size_t row, std::size_t col);
    void editCell(DataGrid& grid, std::size_t row, std::size_t col, std::string_view text);
    void cellButton(DataGrid& grid, std::size_t row, std::size_t col);
    void deleteRow(DataGrid& grid, std::size_t row);
    void menu(Form& owner, Menu& entry);
    void bringFront(Form& form) { mouse(), interaction().front(form); }
    void closeWindow(Form& form) { mouse(), interaction().close(form); }
    void wait(int milliseconds);

    [[nodiscard]] Menu* openPopup() const { return popup_; }

    // --- Desktop
    void popupMenu(Form& form, Menu& menu) override;
    void processEvents() override
    {
        ++paints_;
        if (whileWorking) {
            whileWorking();
        }
    }
    void repaint() override
    {
        ++paints_;
        if (whilePainting) {
            whilePainting();
        }
    }
    std::function<void()> whileAsked;     // what happens elsewhere while a message box stands
    std::function<void()> whileWorking;   // what the hand does while the program works and looks for input
    std::function<void()> whilePainting;  // what else happens while the program works and only paints
    [[nodiscard]] int paints() const { return paints_; }  // times that windows were let paint
    void centre(Form& form, bool onScreen) override;
    std::optional<std::string> openFile(const FileDialog& dialog) override;
    std::optional<std::string> saveFile(const FileDialog& dialog, const std::string& name) override;
    std::optional<std::string> chooseFolder(const std::string& title, const std::string& folder) override;
    std::optional<Colour> chooseColour(const std::string& title, Colour start) override;
    bool printPages(const Pages& pages, const std::string& title) override;
    void exportPdf(const Pages& pages, const std::string& path, const std::string& title) override;
    std::optional<std::pair<int, int>> pictureSize(const std::string& path) override;
    void timersChanged(Form& form) override;
    [[nodiscard]] const std::optional<FileDialog>& lastFileDialog() const { return lastDialog_; }

protected:
    MsgAnswer doMessageBox(const MessageBox& box) override
    {
        if (whileAsked) {
            whileAsked();
        }
        return transcript_->answer(box);
    }
    void doShow(Form&) override {}
    void doHide(Form&) override {}
    void doUnload(Form& form) override;
    void doModalLoop(Form& form, const std::function<bool()>& done) override;
    void doFocus(Control& control) override;
    void keyRefused(Control& field) override { refused.push_back(field.fullName()); }

private:
    struct Due {
        long at = 0;
        int interval = 0;
    };
    void mouse() { popup_ = nullptr; }  // a click anywhere closes a pop-up menu
    bool reach(Control& control);
    void onControl(Control& control, const std::function<void()>& what);
    bool fireNext(long until);
    void widgetKey(Control& control, const KeyEvent& event, char32_t character);
    void editText(TextBox& box, const KeyEvent& event, char32_t character);
    void editCombo(ComboBox& combo, const KeyEvent& event, char32_t character);
    void editDate(DatePicker& picker, const KeyEvent& event, char32_t character);
    void editData(DataGrid& grid, const KeyEvent& event, char32_t character);
    void openLine(const DataGrid& grid);
    void moveInList(Control& list, const KeyEvent& event, char32_t character);
    void moveInTree(TreeView& tree, const KeyEvent& event);
    bool editLine(const KeyEvent& event, char32_t character);

    Transcript own_;
    Transcript* transcript_ = &own_;
    std::function<bool()> next_;
    std::deque<std::function<void(Form&)>> modalSteps_;
    std::map<Timer*, Due> due_;
    long now_ = 0;
    int paints_ = 0;
    Menu* popup_ = nullptr;
    LineEdit line_;  // what is being typed in a control that keeps no caret of its own
    std::optional<FileDialog> lastDialog_;
};

}  // namespace bravona
