#include "platform/qt/Pictures.h"

#include <QImageReader>
#include <QPainter>
#include <QPainterPath>

#include "platform/files/Files.h"
#include "platform/qt/Conversions.h"

namespace bravona {

namespace {

constexpr const char* builtIn = "bravona";
constexpr int builtInSide = 128;

}  // namespace

QPixmap readPicture(const std::string& path)
{
    if (path == builtIn) {
        return programMark(builtInSide);
    }
    QImageReader reader(toQt(Files::native(path)));
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    return QPixmap::fromImage(reader.read());
}

std::optional<std::pair<int, int>> pictureFileSize(const std::string& path)
{
    const QPixmap picture = readPicture(path);  // the size in the heading says nothing of the rest
    if (picture.isNull()) {
        return std::nullopt;
    }
    return std::pair(picture.width(), picture.height());
}

// A sheet with a folded corner and three lines, the last one a total.
QPixmap programMark(int side)
{
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const double s = side;
    QPainterPath sheet;
    sheet.moveTo(s * 0.18, s * 0.10);
    sheet.lineTo(s * 0.60, s * 0.10);
    sheet.lineTo(s * 0.82, s * 0.32);
    sheet.lineTo(s * 0.82, s * 0.90);
    sheet.lineTo(s * 0.18, s * 0.90);
    sheet.closeSubpath();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x1F, 0x5F, 0x8B));
    painter.drawPath(sheet);
    QPainterPath fold;
    fold.moveTo(s * 0.60, s * 0.10);
    fold.lineTo(s * 0.60, s * 0.32);
    fold.lineTo(s * 0.82, s * 0.32);
    fold.closeSubpath();
    painter.setBrush(QColor(0x9C, 0xC7, 0xE4));
    painter.drawPath(fold);
    painter.setBrush(Qt::white);
    const auto bar = [&](double y, double left, double right, double thick) {
        painter.drawRoundedRect(QRectF(s * left, s * y, s * (right - left), s * thick), s * 0.01, s * 0.01);
    };
    bar(0.44, 0.28, 0.72, 0.045);
    bar(0.55, 0.28, 0.72, 0.045);
    painter.setBrush(QColor(0xFF, 0xFF, 0xC0));
    bar(0.70, 0.46, 0.72, 0.08);
    return pixmap;
}

QIcon programIcon()
{
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128, 256, 512}) {
        icon.addPixmap(programMark(side));
    }
    return icon;
}

}  // namespace bravona
