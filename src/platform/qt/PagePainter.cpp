#include "platform/qt/PagePainter.h"

#include <QFileInfo>
#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>

#include "platform/qt/Conversions.h"
#include "platform/qt/Pictures.h"

namespace bravona::pagePainter {

namespace {

constexpr double twipsPerPoint = 20;

QPen pen(Colour colour, int width)
{
    QPen result(toQt(colour), std::max(1, width));
    result.setCapStyle(Qt::FlatCap);
    result.setJoinStyle(Qt::MiterJoin);
    return result;
}

void paintPrimitive(QPainter& painter, const BoxPrimitive& box)
{
    painter.setPen(box.lineWidth > 0 ? pen(box.line, box.lineWidth) : QPen(Qt::NoPen));
    painter.setBrush(box.filled ? QBrush(toQt(box.fill)) : QBrush(Qt::NoBrush));
    const QRectF rect(box.x, box.y, box.width, box.height);
    if (box.radius > 0) {
        painter.drawRoundedRect(rect, box.radius, box.radius);
    } else {
        painter.drawRect(rect);
    }
}

void paintPrimitive(QPainter& painter, const LinePrimitive& line)
{
    painter.setPen(pen(line.line, line.lineWidth));
    painter.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
}

void paintPrimitive(QPainter& painter, const ImagePrimitive& image)
{
    const QPixmap picture = readPicture(image.path);
    if (image.width <= 0 || image.height <= 0) {
        return;
    }
    if (picture.isNull()) {
        // Seen in the preview, before a page without its sender leaves the house.
        painter.setFont(face(9, false, false));
        painter.setPen(Qt::black);
        painter.drawText(QRectF(image.x, image.y, image.width, image.height), Qt::AlignCenter | Qt::TextWordWrap,
                         QStringLiteral("Immagine non leggibile:\n%1").arg(QFileInfo(toQt(image.path)).fileName()));
        return;
    }
    const QSizeF size = QSizeF(picture.size()).scaled(QSizeF(image.width, image.height), Qt::KeepAspectRatio);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QRectF(QPointF(image.x, image.y), size), picture, QRectF(picture.rect()));
}

// The one sign of the symbol face that is in use.
void paintTick(QPainter& painter, const TextPrimitive& text)
{
    const double size = text.points * twipsPerPoint * 0.8;
    const double middle = text.y + text.height / 2.0;
    const double left = text.align == Align::right    ? text.x + text.width - size
                        : text.align == Align::centre ? text.x + (text.width - size) / 2
                                                      : text.x;
    QPainterPath tick;
    tick.moveTo(left + size * 0.12, middle + size * 0.05);
    tick.lineTo(left + size * 0.38, middle + size * 0.32);
    tick.lineTo(left + size * 0.88, middle - size * 0.36);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(toQt(text.colour), size * 0.13, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(tick);
}

void paintPrimitive(QPainter& painter, const TextPrimitive& text)
{
    if (text.text.empty()) {
        return;
    }
    if (text.symbol && text.text == "Ö") {
        paintTick(painter, text);
        return;
    }
    painter.setFont(face(text.points, text.bold, text.italic));
    painter.setPen(toQt(text.colour));
    painter.drawText(QRectF(text.x, text.y, text.width, text.height),
                     static_cast<int>(toQt(text.align)) | Qt::TextSingleLine | Qt::TextDontClip, toQt(text.text));
}

void markFinds(QPainter& painter, const TextPrimitive& text, const QString& search)
{
    const QString whole = toQt(text.text);
    const QFontMetricsF metrics(face(text.points, text.bold, text.italic));
    const double width = metrics.horizontalAdvance(whole);
    const double left = text.align == Align::right    ? text.x + text.width - width
                        : text.align == Align::centre ? text.x + (text.width - width) / 2
                                                      : text.x;
    for (qsizetype at = whole.indexOf(search, 0, Qt::CaseInsensitive); at >= 0;
         at = whole.indexOf(search, at + search.size(), Qt::CaseInsensitive)) {
        const double from = left + metrics.horizontalAdvance(whole.left(at));
        const double to = left + metrics.horizontalAdvance(whole.left(at + search.size()));
        const double height = metrics.height();
        painter.fillRect(QRectF(from, text.y + (text.height - height) / 2, to - from, height), QColor(255, 214, 64));
    }
}

}  // namespace

QFont face(double points, bool bold, bool italic)
{
    QFont font(QStringLiteral("Liberation Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(1, static_cast<int>(points * twipsPerPoint)));
    font.setBold(bold);
    font.setItalic(italic);
    // The core has measured the texts without them.
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

void fit(QPainter& painter, const Pages& pages, const QRectF& area)
{
    const double scale = std::min(area.width() / pages.width, area.height() / pages.height);
    painter.translate(area.topLeft());
    painter.scale(scale, scale);
}

void paint(QPainter& painter, const Page& page, const std::string& search)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const QString wanted = toQt(search);
    for (const Primitive& primitive : page.primitives) {
        if (!wanted.isEmpty()) {
            if (const auto* text = std::get_if<TextPrimitive>(&primitive); text != nullptr && !text->symbol) {
                markFinds(painter, *text, wanted);
            }
        }
        std::visit([&painter](const auto& one) { paintPrimitive(painter, one); }, primitive);
    }
}

}  // namespace bravona::pagePainter
