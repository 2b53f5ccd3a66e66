#pragma once

#include "base/threads/Background.h"
#include "support/Application.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace tessary {

using namespace std::chrono_literals;

/// A test on the main thread of an application, with its event loop turned by hand.
class MainLoop : public Application, public testing::Test {
protected:
    MainLoop() {
        Background::restart();
    }
    ~MainLoop() override {
        EXPECT_TRUE(Background::shutDown(30s));
        QCoreApplication::processEvents(); // answers for what is gone
    }

    static void turnFor(std::chrono::milliseconds time) {
        (void)eventually([] { return false; }, time);
    }
};

} // namespace tessary
