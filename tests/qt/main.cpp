#include <QApplication>
#include <gtest/gtest.h>

// The toolkit's tests run without a display; who wants to watch them sets QT_QPA_PLATFORM.
int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    testing::InitGoogleTest(&argc, argv);
    const QApplication applicazione(argc, argv);
    return RUN_ALL_TESTS();
}
