#include "platform/qt/PartBinders.h"

#include <QKeyEvent>
#include <QLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cstdlib>

#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/Pictures.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/Theme.h"

namespace bravona {

// --- frames

FrameWidget::FrameWidget(QWidget* parent) : QWidget(parent) {}

void FrameWidget::setCaption(const QString& caption)
{
    caption_ = caption;
    leaveRoomForCaption();
    update();
}

int FrameWidget::captionHeight() const
{
    return caption_.isEmpty() ? 0 : fontMetrics().height() + theme::unit();
}

void FrameWidget::leaveRoomForCaption()
{
    if (layout() != nullptr) {
        layout()->setContentsMargins(0, captionHeight(), 0, 0);
    }
}

void FrameWidget::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        leaveRoomForCaption();
    } else if (event->type() == QEvent::EnabledChange) {
        update();
    }
}

void FrameWidget::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    if (boxed) {
        painter.setPen(palette().color(QPalette::Mid));
        painter.setBrush(palette().color(QPalette::Base));
        painter.drawRect(QRect(0, captionHeight(), width() - 1, height() - captionHeight() - 1));
    }
    if (caption_.isEmpty()) {
        return;
    }
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    painter.setFont(bold);
    const QFontMetrics metrics(bold);
    const int width = metrics.horizontalAdvance(caption_);
    const int height = fontMetrics().height();
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(QRect(0, 0, this->width(), height), Qt::AlignLeft | Qt::AlignVCenter, caption_);
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(0.22F);
    painter.setPen(line);
    painter.drawLine(width + theme::unit(), height / 2 + 1, this->width() - 1, height / 2 + 1);
}

FrameBinder::FrameBinder(FormWindow& window, Frame& frame, QWidget* parent)
    : BinderOf(window, frame),
      frame_(new FrameWidget(parent))
{
    setWidget(frame_);
    if (frame.boxWidth > 0) {
        frame_->boxed = true;
        frame_->setFixedHeight(frame.boxHeight);
        frame_->setMinimumWidth(frame.boxWidth);
    }
}

void FrameBinder::follow(Aspect aspect, std::size_t /*row*/)
{
    if (aspect == Aspect::text) {
        followAll();
    }
}

void FrameBinder::followAll()
{
    frame_->setCaption(captionWithoutMark(c().caption()));
}

// --- tabs

void AskingTabBar::mousePressEvent(QMouseEvent* event)
{
    const int tab = tabAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && tab >= 0 && isTabEnabled(tab) && asked) {
        asked(tab);
    }
}

void AskingTabBar::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void AskingTabBar::keyPressEvent(QKeyEvent* event)
{
    event->ignore();
}  // the core's arrows choose

TabWidget::TabWidget(QWidget* parent) : QTabWidget(parent), bar_(new AskingTabBar(this))
{
    setTabBar(bar_);
    bar_->setFocusPolicy(Qt::TabFocus);
    setFocusProxy(bar_);
}

TabBinder::TabBinder(FormWindow& window, TabControl& tabs, QWidget* parent)
    : BinderOf(window, tabs),
      tabs_(new TabWidget(parent))
{
    setWidget(tabs_);
    tabs_->bar()->asked = [this](int tab) { enter([this, tab] { desktop().interaction().tab(c(), tab); }); };
}

void TabBinder::follow(Aspect aspect, std::size_t /*row*/)
{
    if (aspect == Aspect::selection || aspect == Aspect::structure || aspect == Aspect::value ||
        aspect == Aspect::text) {
        followAll();
    }
}

void TabBinder::followAll()
{
    for (std::size_t i = 0; i < c().pages().size() && static_cast<int>(i) < tabs_->count(); ++i) {
        const TabControl::Page& page = c().pages()[i];
        const int tab = static_cast<int>(i);
        tabs_->setTabText(tab, toQt(Letters::marked(page.caption, window().letters().ofPage(c(), tab))));
        tabs_->setTabVisible(tab, page.visible);
        // The core answers for what can be used; a page that is off must not be chosen for another by the toolkit.
        if (tabs_->isTabEnabled(tab) != page.enabled) {
            tabs_->setTabEnabled(tab, page.enabled);
        }
    }
    tabs_->setCurrentIndex(c().tab());
}

// --- pictures

void PictureWidget::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    if (!picture.isNull()) {
        const QRect frame(place, picture.size());
        if (shadow) {
            theme::drawShadow(painter, frame, palette());
        }
        painter.drawPixmap(place, picture);
    } else if (!failure.isEmpty()) {
        painter.fillRect(rect(), palette().color(QPalette::Base));  // what the faint colour is readable on
        painter.setPen(theme::faint(palette()));
        painter.drawText(rect().adjusted(4, 4, -4, -4), Qt::AlignCenter | Qt::TextWordWrap, failure);
    }
}

void PictureWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (resized) {
        resized();
    }
}

void PictureWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (!(clicked && clicked(false))) {
        event->ignore();
    }
}

void PictureWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!(clicked && clicked(true))) {
        event->ignore();
    }
}

void PictureWidget::wheelEvent(QWheelEvent* event)
{
    const QPoint turn = event->angleDelta();
    const bool sideways = std::abs(turn.x()) > std::abs(turn.y());
    turned_ += sideways ? turn.x() : turn.y();
    const int notches = turned_ / QWheelEvent::DefaultDeltasPerStep;
    turned_ %= QWheelEvent::DefaultDeltasPerStep;
    if (!(wheeled && wheeled(notches, sideways))) {
        event->ignore();
    }
}

PictureBinder::PictureBinder(FormWindow& window, PictureBox& box, QWidget* parent)
    : BinderOf(window, box),
      picture_(new PictureWidget(parent))
{
    setWidget(picture_);
    // Pictures count in pixels, whatever the size of the letters.
    picture_->setFixedSize(box.boxWidth, box.boxHeight);
    picture_->clicked = [this](bool twice) {
        if (!alive() || (twice ? !c().onDblClick : !c().onClick)) {
            return false;
        }
        enter([this, twice] { twice ? desktop().interaction().doubleClick(c()) : desktop().interaction().click(c()); });
        return true;
    };
    picture_->wheeled = [this](int notches, bool sideways) {
        bool moves = false;
        enter([&] { moves = desktop().interaction().wheel(c(), notches, sideways); });
        return moves;
    };
}

void PictureBinder::follow(Aspect aspect, std::size_t /*row*/)
{
    if (aspect == Aspect::value || aspect == Aspect::text) {
        followAll();
    } else if (aspect == Aspect::scroll) {
        picture_->place = QPoint(c().x(), c().y());
        picture_->update();
    }
}

void PictureBinder::followAll()
{
    picture_->picture = c().path().empty() ? QPixmap() : readPicture(c().path());
    picture_->failure = !c().path().empty() && picture_->picture.isNull() ? toQt(c().failureText) : QString();
    picture_->place = QPoint(c().x(), c().y());
    picture_->shadow = c().shadow();
    picture_->update();
}

// --- scroll bars

void BarWidget::paintEvent(QPaintEvent* event)
{
    QScrollBar::paintEvent(event);
    if (hasFocus()) {
        QPainter painter(this);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

ScrollBarBinder::ScrollBarBinder(FormWindow& window, ScrollBar& bar, QWidget* parent)
    : BinderOf(window, bar),
      bar_(new BarWidget(bar.horizontal ? Qt::Horizontal : Qt::Vertical, parent))
{
    setWidget(bar_);
    bar_->setFocusPolicy(Qt::StrongFocus);
    QObject::connect(bar_, &QScrollBar::valueChanged, bar_, [this](int value) {
        if (!following_) {
            enter([this, value] { c().setValue(value); });
        }
    });
}

void ScrollBarBinder::follow(Aspect /*aspect*/, std::size_t /*row*/)
{
    followAll();
}

void ScrollBarBinder::followAll()
{
    following_ = true;
    bar_->setRange(c().minimum(), c().maximum());
    bar_->setPageStep(c().pageStep());
    bar_->setSingleStep(c().step());
    bar_->setValue(c().value());
    following_ = false;
}

// --- progress

ProgressBinder::ProgressBinder(FormWindow& window, ProgressBar& bar, QWidget* parent)
    : BinderOf(window, bar),
      bar_(new QProgressBar(parent))
{
    setWidget(bar_);
    bar_->setRange(0, 100);
}

void ProgressBinder::follow(Aspect aspect, std::size_t /*row*/)
{
    if (aspect == Aspect::value) {
        followAll();
    }
}

void ProgressBinder::followAll()
{
    bar_->setValue(c().value());
}

// --- compounds

CompositeBinder::CompositeBinder(FormWindow& window, Composite& composite, QWidget* parent)
    : BinderOf(window, composite)
{
    setWidget(new QWidget(parent));
}

}  // namespace bravona
