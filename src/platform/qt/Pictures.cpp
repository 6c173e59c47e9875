#include "platform/qt/Pictures.h"

#include <QImageReader>

#include "platform/files/Files.h"
#include "platform/qt/Conversions.h"

namespace bravona {

namespace {

constexpr const char* builtIn = "bravona";
constexpr int builtInSide = 128;

// The program's mark as a resource, of one of the sizes made.
QString programMark(int side)
{
    return QStringLiteral(":/bravona-%1.png").arg(side);
}

}  // namespace

QPixmap readPicture(const std::string& path)
{
    if (path == builtIn) {
        return QPixmap(programMark(builtInSide));
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

QIcon programIcon()
{
    QIcon icon;
    for (const int side : {16, 32, 48, 64, 128, 256}) {
        icon.addFile(programMark(side));
    }
    return icon;
}

}  // namespace bravona
