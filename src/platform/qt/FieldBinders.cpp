#include "platform/qt/FieldBinders.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/TextBinders.h"
#include "platform/qt/Theme.h"

namespace bravona {

// --- labels

void LabelWidget::mousePressEvent(QMouseEvent* event)
{
    pressed_ = event->button() == Qt::LeftButton;
    QLabel::mousePressEvent(event);
}

void LabelWidget::mouseReleaseEvent(QMouseEvent* event)
{
    const bool here = pressed_ && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint());
    pressed_ = false;
    if (!(here && clicked && clicked())) {
        QLabel::mouseReleaseEvent(event);
    }
}

void LabelWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!(doubleClicked && doubleClicked())) {
        event->ignore();  // the window's own
    }
}

QSize LabelWidget::sizeHint() const
{
    const QSize whole = QLabel::sizeHint();
    return cut ? QSize(std::min(whole.width(), theme::pixels(240)), whole.height()) : whole;
}

QSize LabelWidget::minimumSizeHint() const
{
    const QSize whole = QLabel::minimumSizeHint();
    return cut ? QSize(std::min(whole.width(), theme::pixels(60)), whole.height()) : whole;
}

void LabelWidget::paintEvent(QPaintEvent* event)
{
    const QRect room = contentsRect();
    if (cut && QLabel::sizeHint().width() > width()) {
        QPainter painter(this);
        style()->drawItemText(&painter, room, static_cast<int>(alignment()), palette(), isEnabled(),
                              fontMetrics().elidedText(oneLine(text().toStdString()), Qt::ElideRight, room.width()),
                              foregroundRole());
        return;
    }
    QLabel::paintEvent(event);
    const auto from = text().indexOf(u' ');
    if (!mark || from < 0) {
        return;
    }
    auto to = from;
    while (to < text().size() && text()[to] == u' ') {
        ++to;
    }
    const QRect whole = style()->itemTextRect(fontMetrics(), room, static_cast<int>(alignment()) | Qt::TextShowMnemonic,
                                              isEnabled(), text());
    const int blanks = fontMetrics().horizontalAdvance(text().mid(from, to - from));
    const int side = std::min(blanks, fontMetrics().capHeight());
    const int left = whole.left() + fontMetrics().horizontalAdvance(text().left(from)) + (blanks - side) / 2;
    QPainter painter(this);
    painter.fillRect(left, whole.center().y() - side / 2, side, side,
                     theme::readable(*mark, palette().color(QPalette::Window)));
}

LabelBinder::LabelBinder(FormWindow& window, Label& label, QWidget* parent)
    : BinderOf(window, label),
      label_(new LabelWidget(parent))
{
    setWidget(label_);
    label_->setTextFormat(Qt::PlainText);
    label_->setWordWrap(label.wrap);
    label_->setFont(theme::font(label_->font(), label.style, label.fixedPitch));
    if (label.fixedPitch) {
        label_->setIndent(EntryText::inset(*label_));  // its characters stand above those of the text below it
    }
    label_->mark = label.mark;
    label_->cut = label.sunken && !label.wrap;
    if (label.sunken) {
        label_->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label_->setMinimumHeight(theme::fieldHeight(label_->font()));
    }
    label_->clicked = [this] {
        if (!alive() || !c().onClick) {
            return false;
        }
        enter([this] { desktop().interaction().click(c()); });
        return true;
    };
    label_->doubleClicked = [this] {
        if (!alive() || !c().onDblClick) {
            return false;
        }
        enter([this] { desktop().interaction().doubleClick(c()); });
        return true;
    };
}

void LabelBinder::follow(Aspect aspect, std::size_t /*row*/)
{
    if (aspect == Aspect::text) {
        label_->setText(toQt(Letters::marked(c().caption(), window().letters().of(c()))));
    }
}

void LabelBinder::followColours()
{
    QPalette palette = label_->parentWidget() != nullptr ? label_->parentWidget()->palette() : QPalette();
    const QColor ground = palette.color(QPalette::Window);
    if (c().backColour()) {
        label_->setAutoFillBackground(true);
        palette.setColor(QPalette::Window, toQt(*c().backColour()));
        palette.setColor(QPalette::WindowText, toQt(*c().backColour()).lightness() >= 128 ? Qt::black : Qt::white);
    } else {
        label_->setAutoFillBackground(false);
    }
    if (c().foreColour()) {
        palette.setColor(QPalette::WindowText,
                         theme::readable(*c().foreColour(), c().backColour() ? toQt(*c().backColour()) : ground));
    } else if (c().style == TextStyle::hint) {
        palette.setColor(QPalette::WindowText, theme::faint(palette));
    }
    label_->setPalette(palette);
}

void LabelBinder::followAll()
{
    label_->setText(toQt(Letters::marked(c().caption(), window().letters().of(c()))));
}

// --- buttons

ButtonBinder::ButtonBinder(FormWindow& window, Button& button, QWidget* parent)
    : BinderOf(window, button),
      button_(new QPushButton(parent))
{
    setWidget(button_);
    button_->setAutoDefault(false);
    button_->setFocusPolicy(Qt::StrongFocus);
    QObject::connect(button_, &QPushButton::clicked, button_,
                     [this] { enter([this] { desktop().interaction().click(c()); }); });
}

namespace {

// The toolkit would walk from button to button with the arrows, past the core.
bool isArrow(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Up || event.key() == Qt::Key_Down || event.key() == Qt::Key_Left ||
           event.key() == Qt::Key_Right;
}

}  // namespace

bool ButtonBinder::key(QKeyEvent& event)
{
    return isArrow(event);
}

bool CheckBinder::key(QKeyEvent& event)
{
    return isArrow(event);
}

bool OptionBinder::key(QKeyEvent& event)
{
    return isArrow(event);
}

void ButtonBinder::setDefault(bool isDefault)
{
    button_->setDefault(isDefault);
}

void ButtonBinder::follow(Aspect aspect, std::size_t /*row*/)
{
    if (aspect == Aspect::text) {
        followAll();
    }
}

void ButtonBinder::followAll()
{
    button_->setText(toQt(Letters::marked(c().caption(), window().letters().of(c()))));
    const QString plain = captionWithoutMark(c().caption());
    // A button of one sign ("...") is as wide as it needs; the others have a common least width.
    const bool sign =
        plain.size() == 1 || std::none_of(plain.begin(), plain.end(), [](QChar one) { return one.isLetterOrNumber(); });
    button_->setMinimumWidth(sign ? theme::pixels(28) : theme::pixels(86));
    button_->setMaximumWidth(sign ? theme::pixels(44) : QWIDGETSIZE_MAX);
    if (c().accessibleName().empty()) {
        button_->setAccessibleName(sign && !c().toolTip().empty() ? toQt(c().toolTip()) : plain);
    }
}

// --- check boxes

CheckBinder::CheckBinder(FormWindow& window, CheckBox& box, QWidget* parent)
    : BinderOf(window, box),
      box_(new QCheckBox(parent))
{
    setWidget(box_);
    QObject::connect(box_, &QCheckBox::clicked, box_, [this] {
        if (!alive()) {
            return;
        }
        box_->setChecked(c().checked());  // the core decides
        enter([this] { desktop().interaction().click(c()); });
    });
}

void CheckBinder::follow(Aspect aspect, std::size_t /*row*/)
{
    if (aspect == Aspect::text || aspect == Aspect::checks || aspect == Aspect::value) {
        followAll();
    }
}

void CheckBinder::followAll()
{
    box_->setText(toQt(Letters::marked(c().caption(), window().letters().of(c()))));
    box_->setChecked(c().checked());
}

// --- options

OptionBinder::OptionBinder(FormWindow& window, OptionButton& option, QWidget* parent)
    : BinderOf(window, option),
      option_(new QRadioButton(parent))
{
    setWidget(option_);
    option_->setAutoExclusive(false);  // the core knows the group
    QObject::connect(option_, &QRadioButton::clicked, option_, [this] {
        if (!alive()) {
            return;
        }
        option_->setChecked(c().chosen());
        enter([this] { desktop().interaction().click(c()); });
    });
}

void OptionBinder::follow(Aspect aspect, std::size_t /*row*/)
{
    if (aspect == Aspect::text || aspect == Aspect::checks || aspect == Aspect::value) {
        followAll();
    }
}

void OptionBinder::followAll()
{
    option_->setText(toQt(Letters::marked(c().caption(), window().letters().of(c()))));
    option_->setChecked(c().chosen());
}

// --- spin arrows

SpinBinder::SpinBinder(FormWindow& window, SpinButton& spin, QWidget* parent)
    : BinderOf(window, spin),
      up_(nullptr),
      down_(nullptr)
{
    auto* holder = new QWidget(parent);
    auto* box = new QVBoxLayout(holder);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(0);
    const int height = theme::fieldHeight(holder->font());
    const auto make = [&](Qt::ArrowType arrow, bool up) {
        auto* button = new QToolButton(holder);
        button->setArrowType(arrow);
        button->setFocusPolicy(Qt::NoFocus);
        button->setAutoRepeat(true);
        button->setFixedSize(theme::pixels(20), height / 2);
        button->setAccessibleName(up ? QStringLiteral("Aumenta") : QStringLiteral("Diminuisci"));
        box->addWidget(button);
        QObject::connect(button, &QToolButton::clicked, button, [this, up] { enter([this, up] { c().spin(up); }); });
        return button;
    };
    up_ = make(Qt::UpArrow, true);
    down_ = make(Qt::DownArrow, false);
    holder->setFixedSize(theme::pixels(20), height / 2 * 2);
    setWidget(holder);
}

void SpinBinder::follow(Aspect /*aspect*/, std::size_t /*row*/) {}

}  // namespace bravona
