#include "app/InterfaceTexts.h"
#include "support/TemporaryFolder.h"
#include "views/common/AppStyle.h"
#include "views/common/Icons.h"

#include <QApplication>
#include <gmock/gmock.h>

int main(int argc, char** argv) {
    // The caches of whoever runs the tests stay as they are.
    const tessary::TemporaryFolder caches;
    qputenv("XDG_CACHE_HOME", caches.path().toLocal8Bit());
    QApplication application(argc, argv);
    tessary::setUpStyle();
    tessary::setUpIconTheme();
    const tessary::InterfaceTexts texts;
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
