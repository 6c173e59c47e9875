#include "platform/windowing/Desktop.h"

#include <algorithm>

#include "platform/windowing/Parts.h"

namespace bravona {

namespace {

// Tells that a form is on its way out, whatever way its closing ends.
class Closing {
public:
    explicit Closing(bool& flag) : flag_(flag) { flag_ = true; }
    ~Closing() { flag_ = false; }
    Closing(const Closing&) = delete;
    Closing& operator=(const Closing&) = delete;

private:
    bool& flag_;
};

}  // namespace

Desktop::Desktop() : interaction_(*this) {}
Desktop::~Desktop() = default;

// --- boxes ------------------------------------------------------------------------------------------------------

MsgAnswer Desktop::messageBox(const MessageBox& box)
{
    if (ended_) {
        throw FineProcesso{exitStatus_};
    }
    const MsgAnswer answer = doMessageBox(box);
    if (ended_) {
        throw FineProcesso{exitStatus_};
    }
    return answer;
}

void Desktop::inform(const std::string& text, const std::string& title)
{
    messageBox({.title = title, .text = text, .icon = MsgIcon::information});
}

bool Desktop::ask(const std::string& text, const std::string& title)
{
    return messageBox({.title = title, .text = text, .icon = MsgIcon::question, .buttons = MsgButtons::yesNo}) ==
           MsgAnswer::yes;
}

bool Desktop::askBeforeLosing(const std::string& text, const std::string& title)
{
    return messageBox({.title = title,
                       .text = text,
                       .icon = MsgIcon::question,
                       .buttons = MsgButtons::yesNo,
                       .lastIsDefault = true}) == MsgAnswer::yes;
}

void Desktop::critical(const std::string& text, const std::string& title)
{
    messageBox({.title = title, .text = text, .icon = MsgIcon::critical});
}

void Desktop::report(const Errore& error)
{
    messageBox({.title = "Errore - Bravona",
                .text = std::to_string(error.numero()) + " - " + error.descrizione(),
                .icon = MsgIcon::critical,
                .fault = true,
                .number = error.numero()});
}

// --- windows ----------------------------------------------------------------------------------------------------

void Desktop::load(Form& form)
{
    if (form.loaded_) {
        return;
    }
    form.loaded_ = true;
    try {
        form.onLoad();
    } catch (...) {
        // A screen that could not be filled is no screen: it goes without being asked.
        form.loaded_ = false;
        withdraw(form);
        screens_.forget(form);
        throw;
    }
}

void Desktop::show(Form& form)
{
    if (leaving_ || ended_) {
        return;
    }
    load(form);
    if (!form.loaded_) {
        return;
    }
    if (!form.modal_) {
        form.owner_ = modals_.empty() ? nullptr : modals_.back();
    }
    if (!form.shown_) {
        form.shown_ = true;
        form.fieldLeft_ = true;
        if (form.focused_ == nullptr) {
            interaction_.focusFirst(form);
        }
    }
    bringForward(form);
    doShow(form);
    activateFront();
}

namespace {

class Held {
public:
    explicit Held(int& depth) : depth_(depth) { ++depth_; }
    ~Held() { --depth_; }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

private:
    int& depth_;
};

}  // namespace

void Desktop::showModal(Form& form)
{
    if (leaving_ || ended_) {
        return;
    }
    load(form);
    if (!form.loaded_) {
        return;
    }
    if (!form.modal_) {
        form.modal_ = true;
        form.owner_ = modals_.empty() ? nullptr : modals_.back();
        modals_.push_back(&form);
    }
    show(form);
    if (form.shown_) {
        // What closes meanwhile is not swept: who asked still reads the answer from it.
        const Held held(depth_);
        doModalLoop(form, [this, &form] { return !form.shown_ || ended_; });
    }
    if (ended_) {
        throw FineProcesso{exitStatus_};
    }
}

void Desktop::hide(Form& form)
{
    if (!form.shown_) {
        return;
    }
    withdraw(form);
    doHide(form);
    activateFront();
}

bool Desktop::unload(Form& form, CloseCause cause)
{
    if (!form.loaded_ || form.closing_) {
        return true;
    }
    if (form.style_ == WindowStyle::main) {
        return closeMain(form, cause);
    }
    const Closing closing(form.closing_);
    if (!form.onQueryUnload(cause)) {
        return false;
    }
    close(form);
    activateFront();
    return true;
}

// The end of a form that has agreed to it.
void Desktop::close(Form& form)
{
    if (!form.loaded_) {
        return;
    }
    form.onUnload();
    form.loaded_ = false;
    withdraw(form);
    doUnload(form);
    screens_.forget(form);
}

bool Desktop::closeMain(Form& form, CloseCause cause)
{
    const Closing closing(form.closing_);
    if (!form.onQueryUnload(cause)) {
        return false;
    }
    const Closing leaving(leaving_);
    // All are asked before the first one goes, so that a refusal leaves every window in its place.
    std::vector<Form*> children = screens_.loaded();
    std::erase(children, &form);
    for (Form* child : children) {
        const Closing childClosing(child->closing_);
        if (child->loaded_ && !child->onQueryUnload(CloseCause::owner)) {
            return false;
        }
    }
    for (Form* child : children) {
        const Closing childClosing(child->closing_);
        close(*child);
    }
    close(form);
    end(0);
    return true;
}

void Desktop::withdraw(Form& form)
{
    form.shown_ = false;
    form.modal_ = false;
    std::erase(windows_, &form);
    std::erase(modals_, &form);
    for (Form* other : windows_) {
        if (other->owner_ == &form) {
            other->owner_ = form.owner_;
        }
    }
    form.owner_ = nullptr;
    if (active_ == &form) {
        active_ = nullptr;
    }
}

void Desktop::bringForward(Form& form)
{
    std::erase(windows_, &form);
    windows_.push_back(&form);
}

Form* Desktop::front() const
{
    Form* background = nullptr;
    for (auto place = windows_.rbegin(); place != windows_.rend(); ++place) {
        if (blocked(**place)) {
            continue;
        }
        // The main window lies under its children, whatever was touched last.
        if ((*place)->style_ != WindowStyle::main) {
            return *place;
        }
        background = *place;
    }
    return background;
}

Form* Desktop::mainWindow() const
{
    for (Form* form : screens_.loaded()) {
        if (form->style_ == WindowStyle::main) {
            return form;
        }
    }
    return nullptr;
}

bool Desktop::blocked(const Form& form) const
{
    return !modals_.empty() && &form != modals_.back() && form.owner_ != modals_.back();
}

void Desktop::activateFront()
{
    Form* now = front();
    if (now == active_ || now == nullptr) {
        return;
    }
    active_ = now;
    now->onActivate();
    interaction_.activated(*now);
}

// --- guard ------------------------------------------------------------------------------------------------------

void Desktop::guard(const std::function<void()>& entry)
{
    guarded(entry, false);
}
void Desktop::guardStart(const std::function<void()>& entry)
{
    guarded(entry, true);
}

void Desktop::guarded(const std::function<void()>& entry, bool fatal)
{
    if (ended_) {
        return;
    }
    const bool before = inTransaction();
    const auto failed = [&](const Errore& error) {
        try {
            if (!before && inTransaction() && rollback_) {
                rollback_();
            }
            report(error);
        } catch (const FineProcesso& fine) {
            end(fine.status);
        } catch (const Errore&) {
            // The rolling back itself was refused: the store does it when it closes.
            end(1);
        }
        if (starting_) {
            end(1);
        }
    };
    const bool startedBefore = starting_;
    starting_ = starting_ || fatal;
    ++depth_;
    const auto run = [&](const std::function<void()>& what) {
        try {
            what();
        } catch (const FineProcesso& fine) {
            end(fine.status);
        } catch (const Errore& error) {
            failed(error);
        } catch (const std::exception& error) {
            failed(Errore(5, error.what()));
        }
    };
    run(entry);
    if (!ended_) {
        run([this] { settle(); });
    }
    --depth_;
    starting_ = startedBefore;
    if (depth_ == 0) {
        screens_.sweep();
    }
}

void Desktop::settle()
{
    if (Form* now = front(); now != nullptr) {
        interaction_.settle(*now);
    }
    for (Form* form : screens_.loaded()) {
        if (!form->timers.empty()) {
            timersChanged(*form);
        }
    }
}

void Desktop::setTransactionProbe(std::function<bool()> inTransaction, std::function<void()> rollback)
{
    inTransaction_ = std::move(inTransaction);
    rollback_ = std::move(rollback);
}

void Desktop::end(int status)
{
    if (ended_) {
        return;
    }
    ended_ = true;
    exitStatus_ = status;
    doEnd();
}

}  // namespace bravona
