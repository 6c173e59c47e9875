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

QPalette darkPalette()
{
    const QColor ground(0x2B, 0x2D, 0x30), field(0x1E, 0x1F, 0x22), text(0xDD, 0xDF, 0xE2);
    QPalette p(QColor(0x3A, 0x3D, 0x41), ground);
    p.setColor(QPalette::Window, ground);
    p.setColor(QPalette::WindowText, text);
    p.setColor(QPalette::Base, field);
    p.setColor(QPalette::AlternateBase, QColor(0x25, 0x27, 0x2A));
    p.setColor(QPalette::Text, text);
    p.setColor(QPalette::Button, QColor(0x3A, 0x3D, 0x41));
    p.setColor(QPalette::ButtonText, text);
    p.setColor(QPalette::ToolTipBase, ground);
    p.setColor(QPalette::ToolTipText, text);
    p.setColor(QPalette::Highlight, QColor(0x2F, 0x65, 0xA8));
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::PlaceholderText, QColor(0x8A, 0x8D, 0x91));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        p.setColor(QPalette::Disabled, role, QColor(0x7A, 0x7D, 0x81));
    }
    return p;
}

}  // namespace bravona
