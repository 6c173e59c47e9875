#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/values/Errore.h"
#include "platform/windowing/Events.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Interaction.h"
#include "platform/windowing/Schermate.h"

namespace bravona {

class Pages;

struct MessageBox {
    std::string title;
    std::string text;
    MsgIcon icon = MsgIcon::information;
    MsgButtons buttons = MsgButtons::ok;
    bool lastIsDefault = false;  // else the first one is: where the answer would throw something away
    bool fault = false;          // the platform's report of a failure that no routine caught
    std::uint32_t number = 0;    // of that failure
};

struct FileDialog {
    std::string title;
    std::string folder;
    std::string filter;  // "Caption|*.ext|Caption|*.ext"
};

// Thrown to end the process at once, from wherever it stands. Not a failure: nothing but a host catches it.
struct FineProcesso {
    int status = 0;
};

// The host that screens talk to. What both hosts do alike (the order of windows, the life of a form, the guard around
// every entry) is here; what they show is theirs.
class Desktop {
public:
    Desktop();
    virtual ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    [[nodiscard]] Schermate& screens() { return screens_; }
    [[nodiscard]] Interaction& interaction() { return interaction_; }

    // --- boxes
    MsgAnswer messageBox(const MessageBox& box);
    void inform(const std::string& text, const std::string& title);  // information icon, OK
    bool ask(const std::string& text, const std::string& title);     // question icon, Yes and No; true for Yes
    // The same with No the default: a Yes throws typed work or records away, or overrules a warning.
    bool askBeforeLosing(const std::string& text, const std::string& title);
    void critical(const std::string& text, const std::string& title);  // critical icon, OK
    // The platform's report: number and description under "Errore - Bravona".
    void report(const Errore& error);

    // --- windows
    void load(Form& form);
    void show(Form& form);  // loads it, brings it to the front
    // Shows it and returns when it is hidden or unloaded. Throws FineProcesso when the process ended meanwhile.
    void showModal(Form& form);
    void hide(Form& form);
    bool unload(Form& form, CloseCause cause = CloseCause::code);  // false when refused
    // The window in front: the topmost modal one, otherwise the one last brought forward.
    [[nodiscard]] Form* front() const;
    [[nodiscard]] const std::vector<Form*>& windows() const { return windows_; }  // shown, front last
    [[nodiscard]] Form* mainWindow() const;
    // Behind a modal window: takes no input.
    [[nodiscard]] bool blocked(const Form& form) const;
    // The main window is closing: no other window opens.
    [[nodiscard]] bool leaving() const { return leaving_; }
    bool focus(Control& control) { return interaction_.focus(control); }
    virtual void setPointer(Pointer pointer) { pointer_ = pointer; }
    [[nodiscard]] Pointer pointer() const { return pointer_; }
    // Shows a pop-up menu at the pointer and runs the chosen entry.
    virtual void popupMenu(Form& form, Menu& menu) = 0;
    // Lets windows paint; takes no input while a transaction is open.
    virtual void processEvents() = 0;
    // Lets windows paint and takes no input, for work in which no other command may come between.
    virtual void repaint() = 0;
    // CentraFinestra: the middle of the screen, or of the main window's area.
    virtual void centre(Form& form, bool onScreen) = 0;

    // --- dialogs; nullopt when cancelled
    virtual std::optional<std::string> openFile(const FileDialog& dialog) = 0;
    virtual std::optional<std::string> saveFile(const FileDialog& dialog, const std::string& name) = 0;
    virtual std::optional<std::string> chooseFolder(const std::string& title, const std::string& folder) = 0;
    virtual std::optional<Colour> chooseColour(const std::string& title, Colour start) = 0;

    // --- pages; Errore when the printer or the file refuses
    virtual bool printPages(const Pages& pages, const std::string& title) = 0;  // false when cancelled
    virtual void exportPdf(const Pages& pages, const std::string& path, const std::string& title) = 0;
    // Pixel size of a picture file; nullopt when it cannot be read.
    virtual std::optional<std::pair<int, int>> pictureSize(const std::string& path) = 0;

    // --- guard: every entry from the toolkit or the scripted user runs through it. What no routine caught rolls back
    // what the command opened, is reported, and the program goes on; FineProcesso ends the process. Afterwards the
    // focus leaves a control that was disabled or hidden meanwhile, and unloaded screens are destroyed.
    void guard(const std::function<void()>& entry);
    // The same for the start sequence: a failure, its own or that of a screen shown meanwhile, is reported and ends the
    // process with status 1.
    void guardStart(const std::function<void()>& entry);
    // How the guard sees and undoes a transaction that a failed command left open.
    void setTransactionProbe(std::function<bool()> inTransaction, std::function<void()> rollback);
    [[nodiscard]] bool inTransaction() const { return inTransaction_ && inTransaction_(); }

    [[nodiscard]] bool ended() const { return ended_; }
    [[nodiscard]] int exitStatus() const { return exitStatus_; }
    void end(int status);  // marks the end; loops of the host stop
    // Told after every entry, for each loaded form that has timers: follow their `enabled` and `interval`.
    virtual void timersChanged(Form& form) = 0;

protected:
    virtual MsgAnswer doMessageBox(const MessageBox& box) = 0;
    virtual void doShow(Form& form) = 0;  // makes the window and brings it to the front
    virtual void doHide(Form& form) = 0;
    virtual void doUnload(Form& form) = 0;  // the window goes for good
    // Runs events until the condition holds or the process has ended.
    virtual void doModalLoop(Form& form, const std::function<bool()>& done) = 0;
    virtual void doFocus(
        Control& control) = 0;  // moves the toolkit's focus; the core's is already there, no events come of it
    virtual void doEnd() {}
    virtual void keyRefused(Control& field) = 0;  // by a filter: beeps and marks the field for a moment
    friend class Interaction;

private:
    void guarded(const std::function<void()>& entry, bool fatal);
    void bringForward(Form& form);
    void withdraw(Form& form);  // from the windows on the screen
    void activateFront();
    void settle();
    void close(Form& form);
    bool closeMain(Form& form, CloseCause cause);
    Schermate screens_;
    Interaction interaction_;
    std::vector<Form*> windows_;
    std::vector<Form*> modals_;  // the topmost last
    Form* active_ = nullptr;     // last told by `onActivate`
    Pointer pointer_ = Pointer::normal;
    std::function<bool()> inTransaction_;
    std::function<void()> rollback_;
    int depth_ = 0;  // of entries
    bool starting_ = false;
    bool ended_ = false;
    bool leaving_ = false;  // the main window is closing: no other window opens
    int exitStatus_ = 0;
};

}  // namespace bravona
