#include "platform/qt/FormWindow.h"

#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

#include "platform/qt/Binder.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/FieldBinders.h"
#include "platform/qt/LayoutBuilder.h"
#include "platform/qt/Menus.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/Shells.h"
#include "platform/qt/Theme.h"

namespace bravona {

FormWindow::FormWindow(QtDesktop& desktop, Form& form) : desktop_(desktop), form_(&form)
{
    build();
    form.setObserver(this);
}

FormWindow::~FormWindow()
{
    if (form_ != nullptr) {
        detach();
    }
    delete shell_;
    delete content_;
}

// --- contents

void FormWindow::build()
{
    content_ = new QWidget;
    content_->setObjectName(toQt(form_->name()));
    letters_ = Letters(*form_);
    // A picture alone reaches the edges of its splash; anything else keeps its distance.
    const bool bare = form_->style() == WindowStyle::splash && form_->layout().kind == Layout::Kind::control;
    LayoutBuilder(*this).build(form_->layout(), content_, bare ? 0 : theme::group());
    for (const Line& line : lines_) {
        for (const Control* control : line.contents) {
            if (const Binder* known = control->focusable() ? binder(*control) : nullptr) {
                line.label->setBuddy(known->focusWidget());
                break;
            }
        }
    }
    markLines();
    if (form_->menuBar && form_->style() != WindowStyle::main) {
        ownMenu_ = new QMenuBar(content_);
        content_->layout()->setMenuBar(ownMenu_);
    }
    followLines();
    followForm();
    content_->installEventFilter(this);
}

bool FormWindow::eventFilter(QObject* target, QEvent* event)
{
    if (event->type() == QEvent::Resize && form_ != nullptr && form_->shown()) {
        desktop_.enter([this] { form_->onResize(); });
    }
    // On the empty area: a control that has its own use for it keeps it.
    if (event->type() == QEvent::MouseButtonDblClick && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        doubleClicked();
        return true;
    }
    return QObject::eventFilter(target, event);
}

QMenuBar* FormWindow::menuBar() const
{
    return main() != nullptr ? main()->menuBar() : ownMenu_.data();
}

Binder& FormWindow::place(Control& control, QWidget* parent)
{
    auto made = makeBinder(*this, control, parent);
    Binder& result = *made;
    controls_[made->widget()] = &control;
    binders_[&control] = std::move(made);
    return result;
}

Binder* FormWindow::binder(const Control& control) const
{
    const auto known = binders_.find(&control);
    return known == binders_.end() ? nullptr : known->second.get();
}

void FormWindow::followEnabledIn(const Control& frame)
{
    for (const Form::Entry& entry : form_->controls()) {
        const Control* around = entry.control->container();
        while (around != nullptr && around != &frame) {
            around = around->container();
        }
        Binder* inside = around != nullptr ? binder(*entry.control) : nullptr;
        if (inside != nullptr) {
            inside->followEnabled();
        }
    }
}

Binder& FormWindow::binderFor(Control& control, QWidget* parent)
{
    if (Binder* known = binder(control)) {
        if (known->widget()->parentWidget() != parent) {
            known->widget()->setParent(parent);
        }
        return *known;
    }
    Binder& made = place(control, parent);
    made.refresh();
    made.widget()->setVisible(control.visible());
    return made;
}

void FormWindow::addLine(QLabel* label, const Layout& line, std::vector<Control*> contents)
{
    lines_.push_back({label, line.caption, std::move(contents), line.label == nullptr});
}

void FormWindow::followLines()
{
    for (const Line& line : lines_) {
        if (line.hides && line.label) {
            line.label->setVisible(line.contents.empty() || std::any_of(line.contents.begin(), line.contents.end(),
                                                                        [](const Control* c) { return c->visible(); }));
        }
    }
}

Control* FormWindow::controlOf(const QWidget* widget) const
{
    for (; widget != nullptr && widget != content_; widget = widget->parentWidget()) {
        if (const auto known = controls_.find(widget); known != controls_.end()) {
            return known->second;
        }
    }
    return nullptr;
}

// --- following

void FormWindow::changed(Control& control, Aspect aspect, std::size_t row)
{
    if (form_ == nullptr) {
        return;
    }
    if (Binder* known = binder(control)) {
        known->changed(aspect, row);
        if (aspect == Aspect::visible) {
            followLines();
            growLater();
        } else if (aspect == Aspect::text &&
                   (control.kind() == ControlKind::label || control.kind() == ControlKind::button)) {
            growLater();
        }
        if (aspect == Aspect::text && control.kind() != ControlKind::textBox) {
            followLetters();
        }
    }
}

// The marks in captions stand where the core says.
void FormWindow::followLetters()
{
    Letters now(*form_);
    if (now == letters_) {
        return;
    }
    letters_ = std::move(now);
    for (const auto& [control, binder] : binders_) {
        binder->lettersChanged();
    }
    markLines();
}

void FormWindow::markLines()
{
    for (const Line& line : lines_) {
        const auto field = std::ranges::find(line.contents, line.caption, &Control::labelCaption);
        if (line.hides && line.label && field != line.contents.end()) {
            line.label->setText(toQt(Letters::marked(line.caption, letters_.ofLine(**field))));
        }
    }
}

void FormWindow::changed(Form& /*form*/)
{
    if (form_ != nullptr) {
        followForm();
    }
}

void FormWindow::followForm()
{
    for (const auto& [control, binder] : binders_) {
        if (control->kind() == ControlKind::button) {
            static_cast<ButtonBinder&>(*binder).setDefault(control == form_->defaultButton());
        }
    }
    if (shell_) {
        shell_->setWindowTitle(toQt(form_->caption()));
    }
    followMenu();
    if (main() != nullptr && form_->statusBar) {
        main()->setPanels(form_->statusBar->panels);
        main()->setProgress(form_->statusBar->progress);
    }
}

void FormWindow::followMenu()
{
    if (!form_->menuBar || menuBar() == nullptr) {
        return;
    }
    QtDesktop& desktop = desktop_;
    Form& form = *form_;
    menus::follow(*menuBar(), *form_->menuBar,
                  [&desktop, &form](Menu& entry) { desktop.enter([&] { desktop.interaction().menu(form, entry); }); });
}

// --- shells

QWidget* FormWindow::topLevel() const
{
    return shell_ ? shell_->window() : nullptr;
}

MainShell* FormWindow::main() const
{
    return kind_ == Kind::main ? static_cast<MainShell*>(shell_.data()) : nullptr;
}

void FormWindow::show(QWidget* owner, MainShell* main)
{
    Kind wanted = Kind::window;
    if (form_->style() == WindowStyle::main) {
        wanted = Kind::main;
    } else if (form_->style() == WindowStyle::splash) {
        wanted = Kind::splash;
    } else if (main != nullptr && !form_->modal() && form_->owner() == nullptr) {
        wanted = Kind::child;
    }
    if (!shell_ || wanted != kind_ || (wanted == Kind::window && owner != owner_)) {
        dropShell();
        makeShell(wanted, owner, main);
    }
    if (shell_->isMinimized()) {
        shell_->showNormal();
    }
    if (!shell_->isVisible()) {
        placeShell();
        if (kind_ != Kind::main) {
            content_->show();  // the main window's own contents stand in no window
        }
        const auto kept = desktop_.places().place(placeKey());
        if (kept && kept->maximised && form_->style() != WindowStyle::dialog && kind_ != Kind::splash) {
            shell_->showMaximized();
        } else {
            shell_->show();
        }
    }
    if (kind_ == Kind::child) {
        main->area()->setActiveSubWindow(static_cast<ChildShell*>(shell_.data()));
    } else if (kind_ != Kind::splash) {
        shell_->activateWindow();
    }
    shell_->raise();
}

void FormWindow::makeShell(Kind kind, QWidget* owner, MainShell* main)
{
    kind_ = kind;
    owner_ = owner;
    switch (kind) {
    case Kind::main:
        makeMain();
        break;
    case Kind::child:
        makeChild(*main);
        break;
    default:
        makeWindow(owner, kind == Kind::splash);
        break;
    }
    desktop_.know(*this);
    followForm();
}

void FormWindow::makeMain()
{
    auto* shell = new MainShell;
    shell_ = shell;
    shell->closeAsked = [this] { closeAsked(); };
    shell->area()->doubleClicked = [this] { doubleClicked(); };
}

void FormWindow::doubleClicked()
{
    desktop_.enter([this] {
        if (form_ != nullptr && !desktop_.blocked(*form_)) {
            desktop_.interaction().leaveField(*form_, [this] { form_->onDblClick(); });
        }
    });
}

namespace {

// Contents that are larger than what room there is scroll; otherwise nobody sees that they could.
QScrollArea* scrolling(QWidget* content, QWidget* parent)
{
    auto* scroll = new QScrollArea(parent);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(content);
    content->setAutoFillBackground(false);
    scroll->viewport()->setAutoFillBackground(false);
    return scroll;
}

}  // namespace

void FormWindow::makeChild(MainShell& main)
{
    auto* shell = new ChildShell;
    shell_ = shell;
    scroll_ = scrolling(content_, shell);
    shell->setWidget(scroll_);
    shell->setAttribute(Qt::WA_DeleteOnClose, false);
    shell->closeAsked = [this] { closeAsked(); };
    Qt::WindowFlags flags = Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                            Qt::WindowCloseButtonHint;
    if (form_->style() != WindowStyle::dialog) {
        flags |= Qt::WindowMinMaxButtonsHint;
    }
    main.area()->addSubWindow(shell, flags);
    shell->setWindowIcon(QGuiApplication::windowIcon());
}

void FormWindow::makeWindow(QWidget* owner, bool bare)
{
    auto* shell = new DialogShell(
        owner, bare ? Qt::SplashScreen | Qt::FramelessWindowHint
                    : Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowCloseButtonHint |
                          (form_->style() == WindowStyle::dialog ? Qt::WindowFlags() : Qt::WindowMaximizeButtonHint));
    shell_ = shell;
    shell->closeAsked = [this] { closeAsked(); };
    auto* box = new QVBoxLayout(shell);
    box->setContentsMargins(0, 0, 0, 0);
    scroll_ = scrolling(content_, shell);
    box->addWidget(scroll_);
    if (form_->modal()) {
        shell->setWindowModality(owner != nullptr ? Qt::WindowModal : Qt::ApplicationModal);
    }
}

void FormWindow::dropShell()
{
    if (!shell_) {
        return;
    }
    savePlace();
    if (scroll_) {
        scroll_->takeWidget();
    }
    content_->setParent(nullptr);
    content_->hide();
    desktop_.forget(*this);
    hideShell();
    shell_->deleteLater();
    shell_.clear();
    scroll_.clear();
    kind_ = Kind::none;
}

void FormWindow::closeAsked()
{
    desktop_.enter([this] {
        if (form_ != nullptr) {
            desktop_.interaction().close(*form_);
        }
    });
}

void FormWindow::hide()
{
    if (shell_) {
        savePlace();
        hideShell();
    }
}

// The keyboard goes back to the window that a dialog lay on; not every window manager sees to it.
void FormWindow::hideShell()
{
    const bool hadKeyboard = kind_ == Kind::window && shell_->isVisible() &&
                             (QApplication::activeWindow() == nullptr || shell_->isActiveWindow());
    shell_->hide();
    if (QWidget* next = owner_ != nullptr ? owner_->window() : nullptr; hadKeyboard && next && next->isVisible()) {
        next->activateWindow();
    }
}

void FormWindow::detach()
{
    if (form_ == nullptr) {
        return;
    }
    savePlace();
    form_->setObserver(nullptr);
    for (const auto& [control, binder] : binders_) {
        binder->detach();
    }
    desktop_.forget(*this);
    form_ = nullptr;
    if (shell_) {
        hideShell();
    }
}

// --- places

void FormWindow::growLater()
{
    if (growing_ || !shell_ || !shell_->isVisible()) {
        return;
    }
    growing_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            growing_ = false;
            if (form_ != nullptr && shell_ && shell_->isVisible() && !shell_->isMaximized()) {
                grow();
            }
        },
        Qt::QueuedConnection);
}

void FormWindow::grow()
{
    if (kind_ != Kind::child && kind_ != Kind::window) {
        return;
    }
    const QRect space = room();
    const bool fixed = form_->style() == WindowStyle::dialog;
    const QSize wanted = wantedSize();
    const QSize size = (fixed ? wanted : shell_->size().expandedTo(wanted)).boundedTo(space.size());
    if (size == shell_->size()) {
        return;
    }
    const QSize before = shell_->size();
    const bool untouched = QRect(shell_->pos(), before) == placedAt_;
    if (fixed) {
        shell_->setFixedSize(size);
    } else {
        shell_->resize(size);
    }
    QRect place(shell_->pos(), size);
    if (untouched && !desktop_.places().place(placeKey())) {
        place.moveCenter(QRect(shell_->pos(), before).center());
    }
    place.moveLeft(std::max(space.left(), std::min(place.left(), space.right() - place.width() + 1)));
    place.moveTop(std::max(space.top(), std::min(place.top(), space.bottom() - place.height() + 1)));
    shell_->move(place.topLeft());
    if (untouched) {
        placedAt_ = QRect(shell_->pos(), shell_->size());
    }
}

void FormWindow::takeFocus(const Control& control)
{
    Binder* known = binder(control);
    if (known == nullptr || !known->alive() || known->focusWidget() == nullptr) {
        return;
    }
    QWidget* target = known->focusWidget();
    if (shell_ && kind_ == Kind::child) {
        auto* shell = static_cast<ChildShell*>(shell_.data());
        if (shell->mdiArea() != nullptr && shell->mdiArea()->activeSubWindow() != shell) {
            shell->mdiArea()->setActiveSubWindow(shell);
        }
    }
    target->setFocus(Qt::OtherFocusReason);
    // The style marks the focus only where it believes that keys are in use.
    target->window()->setAttribute(Qt::WA_KeyboardFocusChange);
    known->focused();
    if (scroll_) {
        scroll_->ensureWidgetVisible(target, theme::unit(), theme::unit());
    }
}

}  // namespace bravona
