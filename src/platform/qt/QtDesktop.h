#pragma once

#include <QElapsedTimer>
#include <QMenu>
#include <QObject>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/files/Files.h"
#include "platform/qt/WindowPlaces.h"
#include "platform/windowing/Desktop.h"

class QEventLoop;
class QMessageBox;
class QPixmap;
class QSettings;
class QTimer;
class QWidget;

namespace bravona {

class Binder;
class FormWindow;
class InputFilter;
class MainShell;

// The host on real windows. Needs a QApplication; one at a time.
class QtDesktop final : public Desktop {
public:
    // Windows are remembered in `store`, or, without one, for as long as the desktop lives.
    explicit QtDesktop(QSettings* store = nullptr);
    ~QtDesktop() override;

    // Runs the event loop until the process ends; its status.
    int run();

    // --- for tests and journeys
    // Runs instead of the event loop of a modal window or box, and returns when `done` holds.
    using Pump = std::function<void(const std::function<bool()>& done)>;
    void setModalPump(Pump pump) { pump_ = std::move(pump); }
    void setTimerScale(double scale) { timerScale_ = scale; }  // 0.01: a hundred times as fast
    struct Hooks {
        std::function<void(QMessageBox&, const MessageBox&)> box;  // shown: press one of its buttons
        std::function<std::optional<std::string>(const FileDialog&)> openFile;
        std::function<std::optional<std::string>(const FileDialog&, const std::string&)> saveFile;
        std::function<std::optional<std::string>(const std::string&, const std::string&)> chooseFolder;
        std::function<std::optional<Colour>(const std::string&, Colour)> chooseColour;
        std::function<bool(const Pages&, const std::string&)> print;
        std::function<void(const Pages&, const std::string&, const std::string&)> exported;  // a PDF was written
    };
    Hooks hooks;
    [[nodiscard]] QWidget* widgetOf(const Control& control) const;  // nullptr before its window was shown
    [[nodiscard]] Binder* binderOf(const Control& control) const;
    [[nodiscard]] QMenu* popup() const { return popup_; }  // the pop-up menu that is open
    [[nodiscard]] Menu* popupRecord() const { return popupRecord_; }
    [[nodiscard]] QPixmap picture(Form& form);

    void setFiles(Files& files) { files_ = &files; }  // through which PDF files are written
    // All windows go, without any event; before their forms do.
    void dropWindows();

    // --- Desktop
    void setPointer(Pointer pointer) override;
    void popupMenu(Form& form, Menu& menu) override;
    void processEvents() override;
    void repaint() override;
    void centre(Form& form, bool onScreen) override;
    std::optional<std::string> openFile(const FileDialog& dialog) override;
    std::optional<std::string> saveFile(const FileDialog& dialog, const std::string& name) override;
    std::optional<std::string> chooseFolder(const std::string& title, const std::string& folder) override;
    std::optional<Colour> chooseColour(const std::string& title, Colour start) override;
    bool printPages(const Pages& pages, const std::string& title) override;
    void exportPdf(const Pages& pages, const std::string& path, const std::string& title) override;
    std::optional<std::pair<int, int>> pictureSize(const std::string& path) override;
    void timersChanged(Form& form) override;

    // --- for the renderer's pieces
    void enter(const std::function<void()>& entry) { guard(entry); }
    [[nodiscard]] WindowPlaces& places() { return places_; }
    [[nodiscard]] FormWindow* windowOf(const Form& form) const;
    [[nodiscard]] FormWindow* windowOf(const QWidget* widget) const;  // in whose shell it is
    [[nodiscard]] MainShell* mainShell() const;
    void know(FormWindow& window);    // it has a new shell
    void forget(FormWindow& window);  // its shell goes
    [[nodiscard]] bool movingFocus() const { return movingFocus_ > 0; }
    void focusLater();  // the core's focus, once events have settled
    void paste(Binder& binder, const QString& text);

protected:
    MsgAnswer doMessageBox(const MessageBox& box) override;
    void doShow(Form& form) override;
    void doHide(Form& form) override;
    void doUnload(Form& form) override;
    void doModalLoop(Form& form, const std::function<bool()>& done) override;
    void doFocus(Control& control) override;
    void doEnd() override;
    void keyRefused(Control& field) override;

private:
    void waitFor(const std::function<bool()>& done);
    [[nodiscard]] QWidget* frontWindow() const;  // on which boxes and dialogs lie
    [[nodiscard]] QWidget* ownerOf(const Form& form) const;
    void settleFocus();

    WindowPlaces places_;
    std::unique_ptr<InputFilter> filter_;
    std::unordered_map<const Form*, QPointer<FormWindow>> windows_;
    std::unordered_map<const QWidget*, FormWindow*> shells_;
    std::map<const Form*, std::map<Timer*, std::unique_ptr<QTimer>>> timers_;
    QObject context_;  // of what is posted for later
    QPointer<QMenu> popup_;
    Menu* popupRecord_ = nullptr;
    Pump pump_;
    double timerScale_ = 1;
    int movingFocus_ = 0;
    bool focusPending_ = false;
    bool waiting_ = false;  // the wait pointer
    QElapsedTimer waitingSince_;
    Files ownFiles_;
    Files* files_ = &ownFiles_;
};

}  // namespace bravona
