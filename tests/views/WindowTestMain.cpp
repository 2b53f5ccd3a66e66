#include "app/InterfaceTexts.h"
#include "support/TemporaryFolder.h"

#include <QApplication>
#include <gmock/gmock.h>

int main(int argc, char** argv) {
    // The caches of whoever runs the tests stay as they are.
    const tessary::TemporaryFolder caches;
    qputenv("XDG_CACHE_HOME", caches.path().toLocal8Bit());
    QApplication application(argc, argv);
    const tessary::InterfaceTexts texts;
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
