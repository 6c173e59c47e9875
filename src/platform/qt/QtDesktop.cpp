#include "platform/qt/QtDesktop.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QEventLoop>
#include <QLibraryInfo>
#include <QLocale>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QTimer>
#include <QTranslator>
#include <cmath>

#include "platform/qt/Binder.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/InputFilter.h"
#include "platform/qt/Menus.h"
#include "platform/qt/Pictures.h"
#include "platform/qt/Shells.h"
#include "platform/qt/Theme.h"
#include "platform/text/Text.h"

namespace bravona {

namespace {
constexpr qint64 longWait = 500;  // ms

// A red outline over a field whose filter dropped a key.
class RefusalMark final : public QWidget {
public:
    static constexpr QLatin1StringView mark{"tastoRifiutato"};
    explicit RefusalMark(QWidget* field) : QWidget(field)
    {
        setObjectName(mark);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setGeometry(field->rect());
        show();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const int width = theme::pixels(2);
        QPainter painter(this);
        painter.setPen(QPen(theme::readable(rgb(200, 0, 0), palette().color(QPalette::Window)), width));
        painter.drawRect(rect().adjusted(width / 2, width / 2, -width + width / 2, -width + width / 2));
    }
};
}  // namespace

QtDesktop::QtDesktop(QSettings* store) : places_(store), filter_(std::make_unique<InputFilter>(*this))
{
    theme::install();
    if (QApplication::windowIcon().isNull()) {
        QApplication::setWindowIcon(programIcon());
    }
    QApplication::setQuitOnLastWindowClosed(false);
    qApp->installEventFilter(filter_.get());
}

QtDesktop::~QtDesktop()
{
    dropWindows();
    qApp->removeEventFilter(filter_.get());
    setPointer(Pointer::normal);
}

void QtDesktop::dropWindows()
{
    timers_.clear();
    ++movingFocus_;
    // Over the main window lie the others.
    const auto windows = std::exchange(windows_, {});
    for (const auto& [form, window] : windows) {
        if (window) {
            window->detach();
        }
    }
    for (const auto& [form, window] : windows) {
        delete window.data();
    }
    --movingFocus_;
}

int QtDesktop::run()
{
    if (!ended()) {
        QApplication::exec();
    }
    return exitStatus();
}

// --- windows

FormWindow* QtDesktop::windowOf(const Form& form) const
{
    const auto known = windows_.find(&form);
    return known == windows_.end() ? nullptr : known->second.data();
}

FormWindow* QtDesktop::windowOf(const QWidget* widget) const
{
    for (; widget != nullptr; widget = widget->parentWidget()) {
        if (const auto known = shells_.find(widget); known != shells_.end()) {
            return known->second;
        }
        if (widget->isWindow()) {
            break;  // a pop-up of a combo, a box: not the form's
        }
    }
    return nullptr;
}

void QtDesktop::know(FormWindow& window)
{
    shells_[window.shell()] = &window;
}

void QtDesktop::forget(FormWindow& window)
{
    std::erase_if(shells_, [&window](const auto& entry) { return entry.second == &window; });
}

MainShell* QtDesktop::mainShell() const
{
    const Form* main = mainWindow();
    const FormWindow* window = main != nullptr ? windowOf(*main) : nullptr;
    return window != nullptr ? window->main() : nullptr;
}

QWidget* QtDesktop::frontWindow() const
{
    const Form* form = front();
    const FormWindow* window = form != nullptr ? windowOf(*form) : nullptr;
    QWidget* top = window != nullptr ? window->topLevel() : nullptr;
    return top != nullptr && top->isVisible() ? top : static_cast<QWidget*>(mainShell());
}

// The window over which a modal one lies.
QWidget* QtDesktop::ownerOf(const Form& form) const
{
    if (form.owner() != nullptr) {
        if (const FormWindow* window = windowOf(*form.owner()); window != nullptr && window->topLevel() != nullptr) {
            return window->topLevel();
        }
    }
    return mainShell();
}

void QtDesktop::doShow(Form& form)
{
    FormWindow* window = windowOf(form);
    if (window == nullptr) {
        window = new FormWindow(*this, form);
        windows_[&form] = window;
    }
    ++movingFocus_;
    window->show(form.style() == WindowStyle::main ? nullptr : ownerOf(form), mainShell());
    --movingFocus_;
    focusLater();
}

void QtDesktop::doHide(Form& form)
{
    if (FormWindow* window = windowOf(form)) {
        ++movingFocus_;
        window->hide();
        --movingFocus_;
    }
    focusLater();
}

void QtDesktop::doUnload(Form& form)
{
    if (const auto known = timers_.find(&form); known != timers_.end()) {
        for (auto& [timer, running] : known->second) {
            running->stop();
            running.release()->deleteLater();  // it may be the one that is firing
        }
        timers_.erase(known);
    }
    if (FormWindow* window = windowOf(form)) {
        ++movingFocus_;
        window->detach();
        --movingFocus_;
        window->deleteLater();
    }
    windows_.erase(&form);
    focusLater();
}

void QtDesktop::centre(Form& form, bool onScreen)
{
    if (FormWindow* window = windowOf(form)) {
        window->centre(onScreen);
    }
}

// --- loops

void QtDesktop::waitFor(const std::function<bool()>& done)
{
    // The entry that waits is not over: its timers run all the same.
    for (Form* form : screens().loaded()) {
        timersChanged(*form);
    }
    // A waiting person sees the usual pointer.
    const bool waiting = waiting_;
    setPointer(Pointer::normal);
    if (pump_) {
        pump_([this, &done] { return done() || ended(); });
    } else {
        QEventLoop loop;
        while (!done() && !ended()) {
            loop.processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        }
    }
    setPointer(waiting ? Pointer::wait : Pointer::normal);
}

void QtDesktop::doModalLoop(Form& form, const std::function<bool()>& done)
{
    if (form.style() == WindowStyle::splash) {
        // Nobody is waited for: its timer closes it.
        Pump pump;
        std::swap(pump, pump_);
        waitFor(done);
        std::swap(pump, pump_);
    } else {
        waitFor(done);
    }
}

void QtDesktop::doEnd()
{
    // Wakes the loops that wait for the person, and ends the outermost.
    QCoreApplication::exit(exitStatus());
    if (auto* dispatcher = QAbstractEventDispatcher::instance()) {
        dispatcher->wakeUp();
    }
}

void QtDesktop::processEvents()
{
    QCoreApplication::processEvents(inTransaction() ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents);
}

void QtDesktop::repaint()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtDesktop::setPointer(Pointer pointer)
{
    Desktop::setPointer(pointer);
    const bool wait = pointer == Pointer::wait;
    if (wait == waiting_) {
        return;
    }
    waiting_ = wait;
    if (wait) {
        waitingSince_.start();
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        // After a long wait a key of the waiting must not answer the box that tells the result, unseen.
        if (waitingSince_.hasExpired(longWait)) {
            filter_->dropPending();
        }
        QApplication::restoreOverrideCursor();
    }
}

// --- focus

void QtDesktop::doFocus(Control& control)
{
    FormWindow* window = control.form() != nullptr ? windowOf(*control.form()) : nullptr;
    if (window == nullptr) {
        return;
    }
    ++movingFocus_;
    window->takeFocus(control);
    --movingFocus_;
}

// An outline over the field for a moment.
void QtDesktop::keyRefused(Control& field)
{
    constexpr int moment = 350;  // ms
    QApplication::beep();
    FormWindow* window = field.form() != nullptr ? windowOf(*field.form()) : nullptr;
    Binder* binder = window != nullptr ? window->binder(field) : nullptr;
    QWidget* widget = binder != nullptr ? binder->widget() : nullptr;
    if (widget == nullptr || widget->findChild<QWidget*>(RefusalMark::mark, Qt::FindDirectChildrenOnly) != nullptr) {
        return;
    }
    auto* mark = new RefusalMark(widget);
    QTimer::singleShot(moment, mark, &QObject::deleteLater);
}

void QtDesktop::focusLater()
{
    if (focusPending_) {
        return;
    }
    focusPending_ = true;
    QMetaObject::invokeMethod(
        &context_,
        [this] {
            focusPending_ = false;
            settleFocus();
        },
        Qt::QueuedConnection);
}

// The toolkit's focus where the core's is.
void QtDesktop::settleFocus()
{
    Form* form = front();
    FormWindow* window = form != nullptr ? windowOf(*form) : nullptr;
    if (window == nullptr || form->focusedControl() == nullptr || QApplication::activePopupWidget() != nullptr) {
        return;
    }
    const QWidget* focus = QApplication::focusWidget();
    if (focus != nullptr && windowOf(focus) == window && window->controlOf(focus) == form->focusedControl()) {
        return;
    }
    if (focus != nullptr && windowOf(focus) == nullptr) {
        return;  // a box or dialog is in front
    }
    ++movingFocus_;
    window->takeFocus(*form->focusedControl());
    --movingFocus_;
}

void QtDesktop::paste(Binder& binder, const QString& text)
{
    enter([&] {
        if (!binder.alive()) {
            return;
        }
        const std::u32string passed = interaction().filterPaste(*binder.control(), text.toStdU32String());
        if (!passed.empty()) {
            binder.insert(QString::fromStdU32String(passed));
        }
    });
}

// --- timers

void QtDesktop::timersChanged(Form& form)
{
    auto& running = timers_[&form];
    for (Timer* timer : form.timers) {
        auto& mine = running[timer];
        if (!timer->enabled || timer->interval <= 0) {
            if (mine) {
                mine->stop();
            }
            continue;
        }
        const int interval = std::max(1, static_cast<int>(std::lround(timer->interval * timerScale_)));
        if (!mine) {
            mine = std::make_unique<QTimer>();
            QObject::connect(mine.get(), &QTimer::timeout, mine.get(), [this, timer, &form] {
                enter([this, timer, &form] {
                    if (timers_.contains(&form) && timer->enabled && timer->onTimer) {
                        timer->onTimer();
                    }
                });
            });
        }
        if (!mine->isActive() || mine->interval() != interval) {
            mine->start(interval);
        }
    }
}

// --- for tests

Binder* QtDesktop::binderOf(const Control& control) const
{
    const FormWindow* window = control.form() != nullptr ? windowOf(*control.form()) : nullptr;
    return window != nullptr ? window->binder(control) : nullptr;
}

QWidget* QtDesktop::widgetOf(const Control& control) const
{
    const Binder* binder = binderOf(control);
    return binder != nullptr ? binder->widget() : nullptr;
}

QPixmap QtDesktop::picture(Form& form)
{
    FormWindow* window = windowOf(form);
    return window != nullptr && window->shell() != nullptr ? window->shell()->grab() : QPixmap();
}

}  // namespace bravona
