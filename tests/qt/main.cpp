#include <QApplication>
#include <gtest/gtest.h>

#include "journey/OffscreenScreen.h"

// The toolkit's tests run without a display, on a screen of a usual size; who wants to watch them sets QT_QPA_PLATFORM.
int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || qgetenv("QT_QPA_PLATFORM") == "offscreen") {
        bravona::useOffscreenScreen();
    }
    testing::InitGoogleTest(&argc, argv);
    const QApplication applicazione(argc, argv);
    return RUN_ALL_TESTS();
}
