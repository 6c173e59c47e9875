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

// Where a window stands and how large it is, at first and as the person left it.

// A form may be a child at one time and a dialog at another, each with coordinates of its own.
QString FormWindow::placeKey() const
{
    return toQt(form_->name() + (kind_ == Kind::window ? ".finestra" : ""));
}

QSize FormWindow::wantedSize() const
{
    QSize size = content_->sizeHint().expandedTo(content_->minimumSizeHint());
    if (content_->layout() != nullptr && content_->layout()->hasHeightForWidth()) {
        // As if a scroll bar took its width: one that was there for a moment would otherwise make the texts higher, and
        // so keep itself needed.
        const int bar = content_->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, content_);
        size.setHeight(std::max(content_->layout()->totalHeightForWidth(size.width() - bar),
                                content_->minimumSizeHint().height()));
    }
    if (kind_ == Kind::child || kind_ == Kind::window) {
        // No title is cut by the buttons beside it.
        const QFontMetrics metrics(QApplication::font("QMdiSubWindowTitleBar"));
        const int title = metrics.horizontalAdvance(toQt(form_->caption())) * 6 / 5 + theme::pixels(130);
        size.setWidth(std::max(size.width(), title));
    }
    if (kind_ == Kind::child) {
        // The frame and the title around the contents.
        const int frame = shell_->style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, shell_);
        const int title = shell_->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, shell_);
        size += QSize(2 * frame, title + frame + 2);
    }
    return size;
}

QRect FormWindow::room() const
{
    if (kind_ == Kind::child) {
        return static_cast<ChildShell*>(shell_.data())->mdiArea()->viewport()->rect();
    }
    const QScreen* screen =
        owner_ != nullptr && owner_->screen() != nullptr ? owner_->screen() : QGuiApplication::primaryScreen();
    return screen->availableGeometry();
}

void FormWindow::placeShell()
{
    const QRect space = room();
    const bool fixed = form_->style() == WindowStyle::dialog || kind_ == Kind::splash;
    const auto kept = desktop_.places().place(placeKey());
    QSize size = kind_ == Kind::main ? QSize(theme::pixels(1180), theme::pixels(780)) : wantedSize();
    if (kept && !fixed) {
        size = kind_ == Kind::main ? kept->rect.size()
                                   : kept->rect.size().expandedTo(wantedSize().boundedTo(space.size()));
    }
    // A window of the screen has a frame around it that its own size leaves out.
    const QSize frame = kind_ == Kind::main ? QSize(theme::pixels(12), theme::pixels(40)) : QSize();
    size = size.boundedTo(space.size() - frame);
    if (fixed) {
        shell_->setFixedSize(size);
    } else {
        shell_->resize(size);
    }
    QRect place(QPoint(), size);
    if (kept && kind_ != Kind::splash) {
        place.moveTopLeft(kept->rect.topLeft());
    } else if (kind_ == Kind::window && owner_ != nullptr && !form_->centredOnScreen) {
        place.moveCenter(owner_->window()->frameGeometry().center());
    } else {
        place.moveCenter(space.center());
    }
    place.moveLeft(std::clamp(place.left(), space.left(), std::max(space.left(), space.right() - place.width() + 1)));
    place.moveTop(std::clamp(place.top(), space.top(), std::max(space.top(), space.bottom() - place.height() + 1)));
    shell_->move(place.topLeft());
    placedAt_ = QRect(shell_->pos(), shell_->size());
}

void FormWindow::savePlace()
{
    if (!shell_ || !shell_->isVisible() || form_ == nullptr || kind_ == Kind::splash || shell_->isMinimized()) {
        return;
    }
    const bool maximised = shell_->isMaximized();
    QRect rect(shell_->pos(), shell_->size());
    const auto kept = desktop_.places().place(placeKey());
    if (rect == placedAt_ && !maximised && !(kept && kept->maximised)) {
        return;  // nobody moved it
    }
    if (maximised) {
        rect = kept ? kept->rect : placedAt_;  // at its first use it has no place but the program's own
    }
    desktop_.places().setPlace(placeKey(), {rect, maximised});
}

void FormWindow::centre(bool onScreen)
{
    if (!shell_ || desktop_.places().place(placeKey())) {
        return;  // where the person left it, or in the middle by itself
    }
    QRect space = room();
    if (!onScreen && kind_ == Kind::window && owner_ != nullptr) {
        space = owner_->window()->frameGeometry();
    }
    QRect place(QPoint(), shell_->size());
    place.moveCenter(space.center());
    shell_->move(std::max(place.left(), 0), std::max(place.top(), 0));
    placedAt_ = QRect(shell_->pos(), shell_->size());
}

}  // namespace bravona
