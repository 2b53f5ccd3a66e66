#pragma once

#include <QCoreApplication>

#include <chrono>
#include <functional>
#include <thread>

namespace tessary {

/// The application object of a test, made before anything else: the first base of a fixture.
class Application {
public:
    Application() {
        static int count = 1;
        static char name[] = "test";
        static char* arguments[] = {name, nullptr};
        static const QCoreApplication application(count, arguments);
    }

    /// Turns the event loop until `holds`, and tells whether it did in time.
    [[nodiscard]] static bool
    eventually(const std::function<bool()>& holds,
               std::chrono::milliseconds limit = std::chrono::seconds(20)) {
        const auto end = std::chrono::steady_clock::now() + limit;
        while (!holds()) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return true;
    }
};

} // namespace tessary
