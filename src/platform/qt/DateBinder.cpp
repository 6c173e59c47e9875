#include <QCalendarWidget>
#include <QDate>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/TextBinders.h"
#include "platform/qt/Theme.h"

namespace bravona {

namespace {

QIcon calendarIcon(const QPalette& palette)
{
    const int side = theme::pixels(16);
    QPixmap pixmap(side * 2, side * 2);
    pixmap.setDevicePixelRatio(2);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = palette.color(QPalette::ButtonText);
    painter.setPen(QPen(ink, 1.2));
    const double s = side;
    painter.drawRoundedRect(QRectF(s * 0.12, s * 0.2, s * 0.76, s * 0.68), 1.5, 1.5);
    painter.drawLine(QPointF(s * 0.12, s * 0.4), QPointF(s * 0.88, s * 0.4));
    painter.drawLine(QPointF(s * 0.32, s * 0.08), QPointF(s * 0.32, s * 0.26));
    painter.drawLine(QPointF(s * 0.68, s * 0.08), QPointF(s * 0.68, s * 0.26));
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    for (int row = 0; row < 2; ++row) {
        for (int col = 0; col < 3; ++col) {
            painter.drawRect(QRectF(s * (0.26 + col * 0.19), s * (0.5 + row * 0.18), s * 0.1, s * 0.1));
        }
    }
    return QIcon(pixmap);
}

}  // namespace

DateBinder::DateBinder(FormWindow& window, DatePicker& picker, QWidget* parent)
    : BinderOf(window, picker),
      edit_(nullptr),
      button_(nullptr)
{
    auto* holder = new QWidget(parent);
    auto* box = new QHBoxLayout(holder);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(0);
    edit_ = new EntryLine(holder);
    base_ = edit_->palette();
    button_ = new QToolButton(holder);
    button_->setFocusPolicy(Qt::NoFocus);
    button_->setIcon(calendarIcon(button_->palette()));
    button_->setToolTip(QStringLiteral("Calendario"));
    button_->setAccessibleName(QStringLiteral("Calendario"));
    const int height = theme::fieldHeight(edit_->font());
    button_->setFixedSize(height, height);
    edit_->setFixedWidth(theme::textWidth(edit_->font(), 10) + theme::pixels(14));
    box->addWidget(edit_);
    box->addWidget(button_);
    holder->setFocusProxy(edit_);
    holder->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setWidget(holder);
    QObject::connect(edit_, &QLineEdit::textEdited, edit_, [this](const QString& text) {
        if (!following_) {
            enter([this, text] { c().userTyped(fromQt(text)); });
        }
    });
    QObject::connect(button_, &QToolButton::clicked, button_, [this] {
        enter([this] {
            if (desktop().interaction().focus(c())) {
                openCalendar();
            }
        });
    });
    edit_->pasted = [this](const QString& text) { desktop().paste(*this, text); };
}

void DateBinder::insert(const QString& text)
{
    edit_->insert(text);
}

bool DateBinder::key(QKeyEvent& event)
{
    if (event.key() == Qt::Key_F4 || (event.key() == Qt::Key_Down && event.modifiers().testFlag(Qt::AltModifier))) {
        openCalendar();
        return true;
    }
    if (event.key() == Qt::Key_Up || event.key() == Qt::Key_Down) {
        enter([this, up = event.key() == Qt::Key_Up] { c().setDate(c().date().addDays(up ? 1 : -1)); });
        edit_->selectAll();
        return true;
    }
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
        enter([this] { c().endTyping(); });
        return true;
    }
    const char32_t typed = typedCharacter(event);
    const bool written =
        typed < 32 || (typed >= U'0' && typed <= U'9') || typed == U'/' || typed == U'-' || typed == U'.';
    return !written;
}

void DateBinder::openCalendar()
{
    auto* popup = new QFrame(edit_, Qt::Popup);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    popup->setFrameShape(QFrame::StyledPanel);
    auto* box = new QVBoxLayout(popup);
    box->setContentsMargins(1, 1, 1, 1);
    auto* calendar = new QCalendarWidget(popup);
    calendar->setLocale(QLocale(QLocale::Italian, QLocale::Italy));
    calendar->setFirstDayOfWeek(Qt::Monday);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setSelectedDate(QDate(c().date().year(), c().date().month(), c().date().day()));
    box->addWidget(calendar);
    const auto choose = [this, popup](const QDate& day) {
        popup->close();
        enter([this, day] {
            if (const auto date = Date::fromYmd(day.year(), day.month(), day.day())) {
                c().setDate(*date);
            }
        });
    };
    QObject::connect(calendar, &QCalendarWidget::clicked, popup, choose);
    QObject::connect(calendar, &QCalendarWidget::activated, popup, choose);
    popup->move(edit_->mapToGlobal(QPoint(0, edit_->height())));
    popup->show();
    calendar->setFocus();
}

void DateBinder::follow(Aspect aspect, std::size_t /*row*/)
{
    if (aspect == Aspect::value || aspect == Aspect::text) {
        followAll();
    } else if (aspect == Aspect::caret) {
        followAll();
        focused();
    }
}

void DateBinder::focused()
{
    c().typed() ? edit_->end(false) : edit_->selectAll();
}

void DateBinder::followColours()
{
    QPalette palette = theme::fieldPalette(base_, c(), false);
    if (reading()) {
        theme::makeLegible(palette);
    }
    edit_->setPalette(palette);
}

void DateBinder::followAll()
{
    const QString text = toQt(c().typed() ? *c().typed() : c().date().text());
    if (edit_->text() != text) {
        following_ = true;
        edit_->setText(text);
        following_ = false;
    }
}

}  // namespace bravona
