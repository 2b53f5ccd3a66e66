#pragma once

#include "core/Background.h"
#include "support/QtPrinters.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <thread>

namespace tessary {

using namespace std::chrono_literals;

/// A test on the main thread of an application, with its event loop turned by hand.
class MainLoop : public testing::Test {
protected:
    MainLoop() {
        static int count = 1;
        static char name[] = "test";
        static char* arguments[] = {name, nullptr};
        static const QCoreApplication application(count, arguments);
        Background::restart();
    }
    ~MainLoop() override {
        EXPECT_TRUE(Background::shutDown(30s));
        QCoreApplication::processEvents(); // answers for what is gone
    }

    /// Turns the event loop until `holds`, and tells whether it did in time.
    [[nodiscard]] static bool eventually(const std::function<bool()>& holds,
                                         std::chrono::milliseconds limit = 20s) {
        const auto end = std::chrono::steady_clock::now() + limit;
        while (!holds()) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            std::this_thread::sleep_for(1ms);
        }
        return true;
    }
    static void turnFor(std::chrono::milliseconds time) {
        (void)eventually([] { return false; }, time);
    }
};

} // namespace tessary
