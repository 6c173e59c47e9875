#include "journey/QtJourneyHost.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QThread>
#include <QToolButton>
#include <QTreeView>
#include <cmath>

#include "journey/OffscreenScreen.h"
#include "platform/qt/Binder.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/Shells.h"
#include "platform/qt/TextBinders.h"

namespace bravona {

namespace {

constexpr double timerScale = 0.02;  // of the program's timers: nobody is watching
constexpr int waitTogether = 15;     // milliseconds that a wait takes besides

QMessageBox::StandardButton buttonOf(MsgAnswer answer)
{
    switch (answer) {
    case MsgAnswer::cancel:
        return QMessageBox::Cancel;
    case MsgAnswer::yes:
        return QMessageBox::Yes;
    case MsgAnswer::no:
        return QMessageBox::No;
    case MsgAnswer::ok:
        break;
    }
    return QMessageBox::Ok;
}

}  // namespace

std::unique_ptr<JourneyHost> makeQtHost(int& argc, char** argv, bool dark)
{
    auto host = std::make_unique<QtJourneyHost>(argc, argv);
    if (dark) {
        QApplication::setPalette(darkPalette());
    }
    return host;
}

QtJourneyHost::QtJourneyHost(int& argc, char** argv)
{
    if (QCoreApplication::instance() == nullptr) {
        const bool display = !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
        const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
        if (platform == "offscreen" || (platform.isEmpty() && !display)) {
            useOffscreenScreen();
        }
        application_ = std::make_unique<QApplication>(argc, argv);
    }
}

QtJourneyHost::~QtJourneyHost() = default;

// --- sessions

Desktop& QtJourneyHost::open(Transcript& transcript)
{
    desktop_ = std::make_unique<QtDesktop>();
    desktop_->setTimerScale(timerScale);
    desktop_->setModalPump([this](const std::function<bool()>& done) { pump(done); });
    desktop_->hooks.box = [&transcript](QMessageBox& window, const MessageBox& box) {
        const MsgAnswer answer = transcript.answer(box);
        QAbstractButton* button = window.button(buttonOf(answer));
        QTest::mouseClick(button != nullptr ? button : window.defaultButton(), Qt::LeftButton);
    };
    desktop_->hooks.openFile = [&transcript](const FileDialog&) { return transcript.file(); };
    desktop_->hooks.saveFile = [&transcript](const FileDialog&, const std::string&) { return transcript.file(); };
    desktop_->hooks.chooseFolder = [&transcript](const std::string&, const std::string&) { return transcript.file(); };
    desktop_->hooks.chooseColour = [&transcript](const std::string&, Colour) { return transcript.colour(); };
    desktop_->hooks.print = [&transcript](const Pages& pages, const std::string& title) {
        transcript.papers.push_back({title, {}, pages});
        return true;
    };
    desktop_->hooks.exported = [&transcript](const Pages& pages, const std::string& path, const std::string& title) {
        transcript.papers.push_back({title, path, pages});
    };
    return *desktop_;
}

void QtJourneyHost::close()
{
    desktop_.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

// The journey goes on inside a modal window.
void QtJourneyHost::pump(const std::function<bool()>& done)
{
    ++depth_;
    while (!done()) {
        QCoreApplication::processEvents();
        if (done()) {
            break;
        }
        if (!next_ || !next_()) {
            desktop_->end(0);
        }
    }
    --depth_;
}

// Everything that a gesture set off has been delivered when it returns.
void QtJourneyHost::settle()
{
    QCoreApplication::processEvents();
    if (depth_ == 0) {
        // Windows that have gone; deeper down one of their handlers may still be running.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QCoreApplication::processEvents();
}

// --- finding

QWidget& QtJourneyHost::widget(const Control& control) const
{
    QWidget* found = desktop_->widgetOf(control);
    if (found == nullptr || !found->isVisible()) {
        throw Impossible(control.fullName() + " is not drawn");
    }
    return *found;
}

// The window in front. Without a window manager nobody activates it again after a box or a list lay over it, and a
// window that is not active gives no widget the focus.
FormWindow* QtJourneyHost::activeWindow() const
{
    const Form* form = desktop_->front();
    FormWindow* window = form != nullptr ? desktop_->windowOf(*form) : nullptr;
    if (window != nullptr && window->shell() != nullptr && QApplication::activePopupWidget() == nullptr &&
        QApplication::activeWindow() != window->shell()->window()) {
        QApplication::setActiveWindow(window->shell()->window());
    }
    return window;
}

QWidget& QtJourneyHost::keyTarget() const
{
    const FormWindow* window = activeWindow();
    if (QWidget* focus = QApplication::focusWidget()) {
        return *focus;
    }
    if (window == nullptr || window->shell() == nullptr) {
        throw Impossible("no window takes keys");
    }
    return *window->shell();
}

// --- keys

void QtJourneyHost::focus(Control& control)
{
    QWidget& target = widget(control);
    Binder* binder = desktop_->binderOf(control);
    activeWindow();
    if (control.hasFocus() && QApplication::focusWidget() == binder->focusWidget()) {
        return;
    }
    if (dynamic_cast<QLineEdit*>(binder->focusWidget()) != nullptr ||
        dynamic_cast<QPlainTextEdit*>(&target) != nullptr) {
        QWidget* inner = binder->focusWidget();
        if (auto* edit = dynamic_cast<QPlainTextEdit*>(inner)) {
            inner = edit->viewport();
        }
        QTest::mouseClick(inner, Qt::LeftButton, {}, QPoint(inner->width() / 2, inner->height() / 2));
    } else {
        // A click that does nothing else: there is no such place on a button, a list or a combo.
        binder->focusWidget()->setFocus(Qt::MouseFocusReason);
    }
    settle();
}

void QtJourneyHost::key(const KeyEvent& event)
{
    int code = 0;
    QString text;
    switch (event.key) {
    case Key::character:
        text = event.ctrl || event.alt ? QString() : QString::fromUcs4(&event.character, 1);
        code = QString::fromUcs4(&event.character, 1).toUpper().at(0).unicode();
        break;
    case Key::enter:
        code = Qt::Key_Return;
        text = QStringLiteral("\r");
        break;
    case Key::tab:
        code = event.shift ? Qt::Key_Backtab : Qt::Key_Tab;
        text = QStringLiteral("\t");
        break;
    case Key::escape:
        code = Qt::Key_Escape;
        text = QStringLiteral("\x1b");
        break;
    case Key::backspace:
        code = Qt::Key_Backspace;
        text = QStringLiteral("\b");
        break;
    case Key::del:
        code = Qt::Key_Delete;
        break;
    case Key::up:
        code = Qt::Key_Up;
        break;
    case Key::down:
        code = Qt::Key_Down;
        break;
    case Key::left:
        code = Qt::Key_Left;
        break;
    case Key::right:
        code = Qt::Key_Right;
        break;
    case Key::home:
        code = Qt::Key_Home;
        break;
    case Key::end:
        code = Qt::Key_End;
        break;
    case Key::pageUp:
        code = Qt::Key_PageUp;
        break;
    case Key::pageDown:
        code = Qt::Key_PageDown;
        break;
    case Key::none:
        return;
    default:
        code = Qt::Key_F1 + static_cast<int>(event.key) - static_cast<int>(Key::f1);
    }
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, event.shift);
    modifiers.setFlag(Qt::ControlModifier, event.ctrl);
    modifiers.setFlag(Qt::AltModifier, event.alt);
    QTest::sendKeyEvent(QTest::Click, &keyTarget(), static_cast<Qt::Key>(code), text, modifiers);
    settle();
}

void QtJourneyHost::paste(std::u32string_view text)
{
    QApplication::clipboard()->setText(QString::fromUcs4(text.data(), static_cast<qsizetype>(text.size())));
    key({.key = Key::character, .character = U'v', .ctrl = true});
}

// --- windows

namespace {

QAction* find(const QList<QAction*>& actions, const QString& name)
{
    for (QAction* action : actions) {
        if (action->objectName() == name) {
            return action;
        }
        if (action->menu() != nullptr) {
            if (QAction* found = find(action->menu()->actions(), name)) {
                return found;
            }
        }
    }
    return nullptr;
}

}  // namespace

void QtJourneyHost::menu(Form& owner, Menu& entry)
{
    const QString name = toQt(entry.name);
    QMenu* popup = desktop_->popup();
    QAction* action = popup != nullptr && popup->isVisible() ? find(popup->actions(), name) : nullptr;
    if (action != nullptr) {
        popup->close();
    } else {
        const FormWindow* window = desktop_->windowOf(owner);
        if (window == nullptr || window->menuBar() == nullptr) {
            throw Impossible("there is no menu");
        }
        action = find(window->menuBar()->actions(), name);
    }
    if (action == nullptr || !action->isEnabled() || !action->isVisible()) {
        throw Impossible(entry.name + " cannot be chosen");
    }
    const QPointer<QAction> alive(action);
    action->trigger();
    settle();
}

Menu* QtJourneyHost::openPopup() const
{
    return desktop_->popup() != nullptr && desktop_->popup()->isVisible() ? desktop_->popupRecord() : nullptr;
}

void QtJourneyHost::front(Form& form)
{
    FormWindow* window = desktop_->windowOf(form);
    if (window == nullptr || window->shell() == nullptr) {
        throw Impossible("the window is not drawn");
    }
    if (dynamic_cast<QMdiSubWindow*>(window->shell()) != nullptr) {
        mouseAt(*window->shell(), QPoint(window->shell()->width() / 2, 8));
    } else {
        desktop_->enter([&] { desktop_->interaction().front(form); });
        settle();
    }
}

void QtJourneyHost::closeWindow(Form& form)
{
    FormWindow* window = desktop_->windowOf(form);
    if (window == nullptr || window->shell() == nullptr) {
        throw Impossible("the window is not drawn");
    }
    window->shell()->close();
    settle();
}

void QtJourneyHost::wait(int milliseconds)
{
    QElapsedTimer passed;
    passed.start();
    const auto needed = static_cast<qint64>(std::ceil(milliseconds * timerScale)) + waitTogether;
    while (passed.elapsed() < needed && !desktop_->ended()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QThread::msleep(1);
    }
    settle();
}

// --- eyes

std::string QtJourneyHost::shownText(const Control& control)
{
    const QWidget* drawn = desktop_->widgetOf(control);
    if (drawn == nullptr) {
        return control.shownText();
    }
    switch (control.kind()) {
    case ControlKind::label:
        return fromQt(static_cast<const QLabel*>(drawn)->text());
    case ControlKind::button:
        return fromQt(static_cast<const QPushButton*>(drawn)->text());
    case ControlKind::checkBox:
    case ControlKind::optionButton:
        return static_cast<const QAbstractButton*>(drawn)->isChecked() ? "1" : "0";
    case ControlKind::textBox: {
        if (const auto* edit = dynamic_cast<const QPlainTextEdit*>(drawn)) {
            return fromQt(edit->toPlainText());
        }
        return fromQt(static_cast<const QLineEdit*>(drawn)->text());
    }
    case ControlKind::datePicker: {
        const auto* edit = drawn->findChild<QLineEdit*>();
        return edit != nullptr ? fromQt(edit->text()) : control.shownText();
    }
    default:
        return control.shownText();
    }
}

bool QtJourneyHost::picture(const std::string& path)
{
    Form* form = desktop_->front();
    return form != nullptr && desktop_->picture(*form).save(toQt(path));
}

}  // namespace bravona
