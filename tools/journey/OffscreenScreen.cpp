#include "journey/OffscreenScreen.h"

#include <unistd.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace bravona {

void useOffscreenScreen()
{
    // One file for all processes of a user, always whole.
    QSaveFile file(QDir::temp().filePath(QStringLiteral("bravona-screen-%1.json").arg(getuid())));
    if (!file.open(QIODevice::WriteOnly)) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        return;
    }
    file.write(R"({"synchronousWindowSystemEvents": true, "windowFrameMargins": false,
        "screens": [{"name": "screen", "x": 0, "y": 0, "width": 1440, "height": 960,
                     "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    file.commit();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(file.fileName()));
}

}  // namespace bravona
