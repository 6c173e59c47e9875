#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>
#include <unistd.h>

// The toolkit's tests run without a display, on a screen of a usual size; who wants to watch them sets QT_QPA_PLATFORM.
int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || qgetenv("QT_QPA_PLATFORM") == "offscreen") {
        const QString schermo = QDir::temp().filePath(QStringLiteral("bravona-schermo-%1.json").arg(getuid()));
        QFile file(schermo);
        if (file.open(QIODevice::WriteOnly)) {
            file.write(R"({"synchronousWindowSystemEvents": true, "windowFrameMargins": false,
                "screens": [{"name": "prova", "x": 0, "y": 0, "width": 1440, "height": 960, "dpr": 1,
                             "logicalDpi": 96, "logicalBaseDpi": 96}]})");
            file.close();
            qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(schermo));
        }
    }
    testing::InitGoogleTest(&argc, argv);
    const QApplication applicazione(argc, argv);
    return RUN_ALL_TESTS();
}
