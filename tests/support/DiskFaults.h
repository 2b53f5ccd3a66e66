#pragma once

#include "support/StrangeDisk.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <vector>

namespace tessary {

/// Something that uses the disk, and what has to hold however it went.
struct DiskUse {
    std::function<void()> prepare;
    std::function<void()> run;
    std::function<void()> check;
    std::vector<int> errors{EIO, ENOSPC, EDQUOT, EACCES, EROFS, EMFILE, ENOMEM};
    int leastRequests = 20;
    /// The first error comes at each request; others, whose ways through the code are the same, at
    /// each of so many.
    int others = 1;
};

/// Each of its requests to the disk fails once, in each way.
inline void expectToStandFaults(StrangeDisk& disk, const DiskUse& use) {
    for (const int error : use.errors) {
        int failing = 1;
        const int step = error == use.errors.front() ? 1 : use.others;
        for (bool hasFailed = true; hasFailed; failing += step) {
            SCOPED_TRACE(QStringLiteral("%1 at request %2")
                             .arg(QLatin1StringView(::strerrorname_np(error)))
                             .arg(failing)
                             .toStdString());
            use.prepare();
            disk.failRequest(failing, error);
            use.run();
            hasFailed = disk.requests() >= failing;
            disk.failRequest(0, 0);
            use.check();
            if (testing::Test::HasFailure())
                return;
        }
        EXPECT_GT(failing, use.leastRequests);
    }
}

} // namespace tessary
