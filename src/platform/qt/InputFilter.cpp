#include "platform/qt/InputFilter.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <algorithm>

#include "platform/qt/Binder.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/Menus.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/Shells.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Lists.h"

namespace bravona {

namespace {

// What is selected in a field that is there to be read, which has not the keyboard; false without a selection.
bool copyRead(QWidget* field)
{
    if (auto* line = qobject_cast<QLineEdit*>(field); line != nullptr && line->hasSelectedText()) {
        line->copy();
        return true;
    }
    auto* text = qobject_cast<QPlainTextEdit*>(field);
    if (text == nullptr || !text->textCursor().hasSelection()) {
        return false;
    }
    text->copy();
    return true;
}

}  // namespace

bool InputFilter::passing(const QEvent& event) const
{
    return std::find(passing_.begin(), passing_.end(), &event) != passing_.end();
}

void InputFilter::pass(QWidget& target, QEvent& event)
{
    passing_.push_back(&event);
    QCoreApplication::sendEvent(&target, &event);
    std::erase(passing_, &event);
}

void InputFilter::dropPending()
{
    deaf_ = true;
    QCoreApplication::processEvents();
    deaf_ = false;
}

bool InputFilter::eventFilter(QObject* target, QEvent* event)
{
    if (!target->isWidgetType()) {
        return false;
    }
    auto& widget = static_cast<QWidget&>(*target);
    if (deaf_ && dynamic_cast<QInputEvent*>(event) != nullptr) {
        return true;
    }
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (keyWindow(widget) != nullptr) {
            event->accept();  // every key comes as a key
            return true;
        }
        return false;
    case QEvent::KeyPress:
        return !passing(*event) && key(widget, static_cast<QKeyEvent&>(*event));
    case QEvent::InputMethod:
        return !passing(*event) && inputMethod(widget, static_cast<QInputMethodEvent&>(*event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return press(widget, static_cast<QMouseEvent&>(*event));
    case QEvent::MouseButtonRelease:
        release(widget, static_cast<QMouseEvent&>(*event));
        return false;
    case QEvent::ContextMenu:
        return contextMenu(widget);
    case QEvent::FocusIn:
        focusIn(widget, static_cast<QFocusEvent&>(*event));
        return false;
    case QEvent::WindowActivate:
        if (FormWindow* window = desktop_.windowOf(&widget);
            widget.isWindow() && window != nullptr && window->main() == nullptr && !desktop_.movingFocus()) {
            desktop_.enter([&] { desktop_.interaction().front(*window->form()); });
        }
        return false;
    default:
        return false;
    }
}

// The window whose keys these are: with the focus on the main window's ground, the child in front.
FormWindow* InputFilter::keyWindow(QWidget& target) const
{
    FormWindow* window = desktop_.windowOf(&target);
    if (window == nullptr || (window->main() != nullptr && qobject_cast<QMenuBar*>(&target) != nullptr)) {
        return nullptr;
    }
    if (window->main() != nullptr) {
        Form* front = desktop_.front();
        FormWindow* child = front != nullptr ? desktop_.windowOf(*front) : nullptr;
        return child != nullptr ? child : window;
    }
    return window;
}

// --- keys

bool InputFilter::key(QWidget& target, QKeyEvent& event)
{
    FormWindow* window = keyWindow(target);
    if (window == nullptr) {
        return false;
    }
    byKey_ = true;
    const KeyEvent pressed = toKeyEvent(event);
    if (pressed.key == Key::none) {
        return leftOver(*window, target, event, 0);
    }
    Form& form = *window->form();
    const QPointer<QWidget> alive(&target);
    const QPointer<FormWindow> open(window);
    const Control* focused = form.focusedControl();
    const Interaction::KeyResult result = desktop_.interaction().key(form, pressed);
    if (!open || open->form() == nullptr || !alive) {
        return true;
    }
    if (result.handled) {
        return true;
    }
    if (form.focusedControl() != focused) {
        return true;
    }
    return leftOver(*window, target, event, result.character);
}

// What the core did not use goes to the widget, perhaps as another character.
bool InputFilter::leftOver(FormWindow& window, QWidget& target, QKeyEvent& event, char32_t character)
{
    const Control* control = window.form()->focusedControl();
    Binder* binder = control != nullptr ? window.binder(*control) : nullptr;
    const char32_t typed = typedCharacter(event);
    if (binder != nullptr && event.matches(QKeySequence::Paste) && binder->takesText()) {
        desktop_.paste(*binder, QApplication::clipboard()->text());
        return true;
    }
    const bool typing = control != nullptr && control->kind() == ControlKind::textBox;
    if (event.matches(QKeySequence::Copy) && !typing && copyRead(window.readText)) {
        return true;
    }
    int key = event.key();
    Qt::KeyboardModifiers modifiers = event.modifiers();
    QString text = event.text();
    if (character >= 32 && text != QString::fromUcs4(&character, 1)) {
        text = QString::fromUcs4(&character, 1);
        modifiers.setFlag(Qt::KeypadModifier, false);
        if (character != typed) {
            key = 0;
            modifiers = {};
        }
    }
    QKeyEvent copy(event.type(), key, modifiers, text, event.isAutoRepeat());
    if (binder != nullptr && binder->alive() && binder->key(copy)) {
        return true;
    }
    if (windowKey(window, event)) {
        return true;
    }
    const KeyEvent pressed = toKeyEvent(event);
    if (pressed.key == Key::character && pressed.alt && !pressed.ctrl) {
        return true;  // a letter that belongs to nothing is none to be typed
    }
    pass(binder != nullptr && binder->alive() && binder->focusWidget() != nullptr ? *binder->focusWidget() : target,
         copy);
    return true;
}

// Keys of the windows themselves.
bool InputFilter::windowKey(FormWindow& window, const QKeyEvent& event)
{
    const bool ctrl = event.modifiers().testFlag(Qt::ControlModifier);
    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    if (ctrl && event.key() == Qt::Key_F4) {
        desktop_.enter([&] { desktop_.interaction().close(*window.form()); });
        return true;
    }
    if (ctrl && (event.key() == Qt::Key_Tab || event.key() == Qt::Key_F6)) {
        // The child window longest out of sight.
        for (Form* form : desktop_.windows()) {
            if (form != window.form() && form->style() != WindowStyle::main && !desktop_.blocked(*form)) {
                desktop_.enter([&] { desktop_.interaction().front(*form); });
                break;
            }
        }
        return true;
    }
    MainShell* main = desktop_.mainShell();
    if (main == nullptr || desktop_.blocked(*desktop_.mainWindow())) {
        return false;
    }
    if (alt && !ctrl) {
        const KeyEvent pressed = toKeyEvent(event);
        return pressed.key == Key::character && menus::openByLetter(*main->menuBar(), pressed.character);
    }
    if (event.key() == Qt::Key_F10 && event.modifiers() == Qt::NoModifier && !main->menuBar()->actions().isEmpty()) {
        main->menuBar()->setFocus(Qt::MenuBarFocusReason);
        main->menuBar()->setActiveAction(main->menuBar()->actions().constFirst());
        return true;
    }
    return false;
}

// Characters that an input method composed pass the key filters one by one.
bool InputFilter::inputMethod(QWidget& target, QInputMethodEvent& event)
{
    FormWindow* window = keyWindow(target);
    if (window == nullptr || event.commitString().isEmpty()) {
        return false;
    }
    const QPointer<QWidget> alive(&target);
    const QPointer<FormWindow> open(window);
    QString passed;
    for (const char32_t character : event.commitString().toStdU32String()) {
        KeyEvent pressed;
        pressed.key = Key::character;
        pressed.character = character;
        const Interaction::KeyResult result = desktop_.interaction().key(*window->form(), pressed);
        if (!open || open->form() == nullptr || !alive) {
            return true;
        }
        if (!result.handled && result.character != 0) {
            passed += QString::fromUcs4(&result.character, 1);
        }
    }
    QInputMethodEvent copy(event.preeditString(), event.attributes());
    copy.setCommitString(passed, event.replacementStart(), event.replacementLength());
    pass(target, copy);
    return true;
}

// --- mouse

// The old field is left before the widget under the pointer hears of the click; true where the click goes no further.
bool InputFilter::press(QWidget& target, QMouseEvent& /*event*/)
{
    FormWindow* window = desktop_.windowOf(&target);
    if (window == nullptr) {
        return false;
    }
    byKey_ = false;
    Form* form = window->form();
    const QPointer<FormWindow> open(window);
    const QPointer<QWidget> alive(&target);
    if (desktop_.blocked(*form)) {
        return true;
    }
    if (window->main() == nullptr && desktop_.front() != form && form->style() != WindowStyle::splash) {
        desktop_.enter([&] { desktop_.interaction().front(*form); });
        if (!open || open->form() == nullptr || !alive || desktop_.front() != form) {
            return true;
        }
    }
    Control* control = window->controlOf(&target);
    const bool takes = control != nullptr && control->focusable() && control->kind() != ControlKind::tabControl &&
                       control->effectivelyEnabled() && control->effectivelyVisible();
    // The toolkit has given the focus already; whoever refused it then is not asked twice.
    if (takes && control == refused_) {
        refused_ = nullptr;
        return true;
    }
    if (!takes || control == form->focusedControl()) {
        return false;
    }
    desktop_.interaction().focusMoved(*form, control);
    if (!open || open->form() == nullptr || !alive || form->focusedControl() != control) {
        return true;
    }
    entered_ = control;
    return false;
}

// A click that brought the focus leaves the whole text selected, unless it drew a selection of its own.
void InputFilter::release(QWidget& target, QMouseEvent& /*event*/)
{
    Control* control = entered_;
    entered_ = nullptr;
    FormWindow* window = desktop_.windowOf(&target);
    if (control == nullptr || window == nullptr || window->controlOf(&target) != control ||
        window->form()->focusedControl() != control) {
        return;
    }
    auto* edit = qobject_cast<QLineEdit*>(&target);
    if (edit == nullptr || edit->hasSelectedText()) {
        return;
    }
    if (control->kind() == ControlKind::textBox && static_cast<TextBox*>(control)->selectOnFocus) {
        desktop_.enter([&] { static_cast<TextBox*>(control)->selectAll(); });
        edit->selectAll();
    } else if (control->kind() == ControlKind::datePicker || control->kind() == ControlKind::comboBox) {
        edit->selectAll();
    }
}

// The menu of a list, or of the screen; fields for typing have the toolkit's own.
bool InputFilter::contextMenu(QWidget& target)
{
    FormWindow* window = desktop_.windowOf(&target);
    if (window == nullptr || window->main() != nullptr || desktop_.blocked(*window->form())) {
        return false;
    }
    Form& form = *window->form();
    Control* control = window->controlOf(&target);
    Menu* menu = nullptr;
    if (control != nullptr && control->kind() == ControlKind::listView) {
        menu = static_cast<ListView*>(control)->contextMenu;
    }
    const Binder* binder = control != nullptr ? window->binder(*control) : nullptr;
    if (menu == nullptr && (binder == nullptr || !binder->takesText())) {
        menu = form.popupMenu.get();
    }
    if (menu == nullptr) {
        return false;
    }
    desktop_.enter([&] {
        if (control == nullptr || !control->focusable() || desktop_.interaction().focus(*control)) {
            desktop_.popupMenu(form, *menu);
        }
    });
    return true;
}

// --- focus

void InputFilter::focusIn(QWidget& target, QFocusEvent& event)
{
    if (desktop_.movingFocus()) {
        return;
    }
    FormWindow* window = desktop_.windowOf(&target);
    if (window == nullptr || window->main() != nullptr) {
        return;
    }
    Control* control = window->controlOf(&target);
    if (control == nullptr || control == window->form()->focusedControl()) {
        return;
    }
    if (event.reason() == Qt::MouseFocusReason && control->focusable()) {
        const QPointer<FormWindow> open(window);
        desktop_.interaction().focusMoved(*window->form(), control);
        const bool here = open && open->form() != nullptr && open->form()->focusedControl() == control;
        entered_ = here ? control : nullptr;
        refused_ = here ? nullptr : control;
        // A press follows at once, or never.
        QMetaObject::invokeMethod(
            this, [this] { refused_ = nullptr; }, Qt::QueuedConnection);
    } else {
        // The toolkit's own idea, after something was hidden, disabled or activated: the core knows better.
        desktop_.focusLater();
    }
}

}  // namespace bravona
