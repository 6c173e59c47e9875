#include "platform/qt/Theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <QProxyStyle>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>
#include <algorithm>
#include <cmath>

#include "platform/qt/Conversions.h"

namespace bravona::theme {

namespace {

// On a dark ground an empty check box or option is hardly to be seen: a brighter outline. A long caption keeps its
// distance from the edges of its button.
class OutliningStyle final : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override
    {
        QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
            type == CT_PushButton && button != nullptr && button->text.size() > 3) {
            const int caption = button->fontMetrics.size(Qt::TextShowMnemonic, button->text).width();
            size.setWidth(std::max(size.width(), caption + pixels(24)));
        }
        return size;
    }
    // The focus shows at a glance, and not as the default button does.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override
    {
        QProxyStyle::drawControl(element, option, painter, widget);
        if (element != CE_PushButton || !option->state.testFlag(State_HasFocus)) {
            return;
        }
        const int width = pixels(2);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(focusRing(option->palette), width));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(QRectF(option->rect).adjusted(width, width, -width, -width), 3, 3);
        painter->restore();
    }
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        const bool box = element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck;
        if ((!box && element != PE_IndicatorRadioButton) || !dark(option->palette)) {
            return;
        }
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(faint(option->palette), 1));
        painter->setBrush(Qt::NoBrush);
        const QRectF outline = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
        box ? painter->drawRoundedRect(outline, 2, 2) : painter->drawEllipse(outline);
        painter->restore();
    }
};

// What cannot be used now is read all the same: text that is off keeps a contrast of 4.5 : 1, whatever the palette.
class Legibility final : public QObject {
public:
    using QObject::QObject;
    static void follow()
    {
        const QPalette palette = QApplication::palette();
        if (const QPalette wanted = legible(palette); wanted != palette) {
            QApplication::setPalette(wanted);
        }
    }
    bool eventFilter(QObject* target, QEvent* event) override
    {
        if (target == qApp && event->type() == QEvent::ApplicationPaletteChange) {
            follow();
        }
        return false;
    }
};

}  // namespace

void install()
{
    static constexpr const char* mark = "bravonaStyle";
    if (!qApp->property(mark).toBool()) {
        QApplication::setStyle(new OutliningStyle(QApplication::style()->name()));
        // A machine with hardly any fonts falls back on a typewriter's.
        if (QFont font = QApplication::font(); QFontInfo(font).fixedPitch()) {
            font.setFamily(QStringLiteral("Liberation Sans"));
            QApplication::setFont(font);
        }
        qApp->installEventFilter(new Legibility(qApp));
        Legibility::follow();
        qApp->setProperty(mark, true);
    }
}

double scale()
{
    return std::max(0.5, QFontInfo(QApplication::font()).pixelSize() / 13.0);
}

int pixels(int size)
{
    return static_cast<int>(std::lround(size * scale()));
}

int unit()
{
    return pixels(6);
}

int group()
{
    return pixels(12);
}

int twips(int size)
{
    return pixels(size / 15);
}

int textWidth(const QFont& font, int characters)
{
    const QFontMetricsF metrics(font);
    // Wide fields hold running text, narrow ones figures and codes.
    const double each = characters <= 12
                            ? std::max(metrics.horizontalAdvance(QLatin1Char('0')), metrics.averageCharWidth())
                            : metrics.averageCharWidth() * 1.05;
    return static_cast<int>(std::ceil(each * characters));
}

int fieldHeight(const QFont& font)
{
    QStyleOptionFrame option;
    option.fontMetrics = QFontMetrics(font);
    option.lineWidth = 1;
    const QSize text(10, std::max(option.fontMetrics.height(), pixels(14)) + 2);
    return QApplication::style()->sizeFromContents(QStyle::CT_LineEdit, &option, text, nullptr).height();
}

QFont font(const QFont& base, TextStyle style, bool fixedPitch)
{
    QFont result = base;
    if (fixedPitch) {
        result = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        if (base.pointSizeF() > 0) {
            result.setPointSizeF(base.pointSizeF());
        }
    }
    const double size = base.pointSizeF() > 0 ? base.pointSizeF() : 10.0;
    switch (style) {
    case TextStyle::title:
        result.setPointSizeF(size * 1.35);
        result.setWeight(QFont::DemiBold);
        break;
    case TextStyle::total:
        result.setPointSizeF(size * 1.12);
        result.setWeight(QFont::DemiBold);
        break;
    case TextStyle::grand:
        result.setPointSizeF(size * 1.5);
        result.setWeight(QFont::Bold);
        break;
    case TextStyle::normal:
    case TextStyle::hint:
        break;
    }
    return result;
}

bool dark(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < 128;
}

namespace {

double luminance(const QColor& colour)
{
    const auto channel = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(colour.redF()) + 0.7152 * channel(colour.greenF()) + 0.0722 * channel(colour.blueF());
}

QColor mixed(const QColor& a, const QColor& b, double share)
{
    const auto channel = [share](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * share));
    };
    return {channel(a.red(), b.red()), channel(a.green(), b.green()), channel(a.blue(), b.blue())};
}

}  // namespace

double contrast(const QColor& a, const QColor& b)
{
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

QColor readable(Colour colour, const QColor& ground)
{
    const QColor exact = toQt(colour);
    if (ground.lightness() >= 128) {
        return exact;
    }
    for (double share = 0; share < 1; share += 0.05) {
        const QColor lighter = mixed(exact, Qt::white, share);
        if (contrast(lighter, ground) >= leastContrast) {
            return lighter;
        }
    }
    return Qt::white;
}

QColor readable(const QColor& wanted, const QColor& strongest, std::initializer_list<QColor> grounds)
{
    QColor result = wanted;
    for (double share = 0; share <= 1; share += 0.05) {
        result = mixed(wanted, strongest, share);
        if (std::all_of(grounds.begin(), grounds.end(),
                        [&result](const QColor& ground) { return contrast(result, ground) >= leastContrast; })) {
            break;
        }
    }
    return result;
}

QPalette legible(const QPalette& palette)
{
    QPalette result = palette;
    const auto colour = [&palette](QPalette::ColorRole role) { return palette.color(QPalette::Disabled, role); };
    const QColor window = colour(QPalette::Window);
    const auto mend = [&](QPalette::ColorRole text, const QColor& ground) {
        const QColor strongest = window.lightness() >= 128 ? Qt::black : Qt::white;
        const QColor mended = readable(colour(text), strongest, {ground, window});
        if (mended != colour(text)) {
            result.setColor(QPalette::Disabled, text, mended);
        }
    };
    mend(QPalette::WindowText, window);
    mend(QPalette::Text, colour(QPalette::Base));
    mend(QPalette::ButtonText, colour(QPalette::Button));
    return result;
}

QColor focusRing(const QPalette& palette)
{
    const QColor ground = palette.color(QPalette::Button);
    return readable(palette.color(QPalette::Highlight), ground.lightness() >= 128 ? Qt::black : Qt::white, {ground});
}

QColor faint(const QPalette& palette)
{
    return mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.62);
}

QColor tinted(const QPalette& palette)
{
    return mixed(palette.color(QPalette::Base), palette.color(QPalette::Highlight), 0.28);
}

QPalette fieldPalette(const QPalette& base, const Control& control, bool readOnly)
{
    QPalette result = base;
    const auto set = [&result](QPalette::ColorRole role, const QColor& colour) {
        result.setColor(QPalette::Active, role, colour);
        result.setColor(QPalette::Inactive, role, colour);
    };
    if (readOnly) {
        set(QPalette::Base, Qt::transparent);
        set(QPalette::Text, base.color(QPalette::WindowText));
    }
    result.setColor(QPalette::Disabled, QPalette::Base, base.color(QPalette::Disabled, QPalette::Window));
    // White is how a field looks that has not the focus: the system's own ground.
    const auto& back = control.backColour();
    const bool own = back && *back != colours::white;
    if (own) {
        set(QPalette::Base, toQt(*back));
        set(QPalette::Text, toQt(*back).lightness() >= 128 ? Qt::black : Qt::white);
        const bool light = toQt(*back).lightness() >= 128;
        set(QPalette::PlaceholderText, readable(Qt::gray, light ? Qt::black : Qt::white, {toQt(*back)}));
    }
    if (control.foreColour()) {
        set(QPalette::Text, readable(*control.foreColour(), base.color(QPalette::Active, QPalette::Base)));
    }
    return result;
}

void makeLegible(QPalette& palette)
{
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText}) {
        palette.setColor(QPalette::Disabled, role, palette.color(QPalette::Active, role));
    }
}

void drawMark(QPainter& painter, const QRect& cell, bool paid, const QPalette& palette)
{
    const int side = std::min({cell.width() - 4, cell.height() - 6, pixels(16)});
    if (side < 4) {
        return;
    }
    QRectF box(0, 0, side, side);
    box.moveCenter(QRectF(cell).center());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor green = readable(rgb(0, 128, 0), palette.color(QPalette::Base));
    if (paid) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(green);
        painter.drawRoundedRect(box, side / 5.0, side / 5.0);
        QPainterPath tick;
        tick.moveTo(box.left() + side * 0.22, box.top() + side * 0.54);
        tick.lineTo(box.left() + side * 0.43, box.top() + side * 0.74);
        tick.lineTo(box.left() + side * 0.79, box.top() + side * 0.28);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(green.lightness() < 160 ? Qt::white : Qt::black, side / 7.0, Qt::SolidLine, Qt::RoundCap,
                            Qt::RoundJoin));
        painter.drawPath(tick);
    } else {
        painter.setPen(QPen(faint(palette), std::max(1.0, side / 12.0)));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), side / 5.0, side / 5.0);
    }
    painter.restore();
}

void drawShadow(QPainter& painter, const QRect& frame, const QPalette& palette)
{
    constexpr int depth = 6;
    constexpr int strength = 40;  // of one layer, of 255
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(dark(palette) ? QColor(255, 255, 255, strength) : QColor(0, 0, 0, strength));
    for (int layer = 0; layer < depth / 2; ++layer) {
        painter.drawRect(frame.translated(depth, depth).adjusted(layer - depth, layer - depth, -layer, -layer));
    }
    painter.restore();
}

}  // namespace bravona::theme
