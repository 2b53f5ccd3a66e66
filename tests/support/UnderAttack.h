#pragma once

#include "base/threads/CancellationError.h"
#include "phone/PhoneFileSystem.h"
#include "support/CodeOf.h"
#include "support/Soon.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <thread>
#include <vector>

#include <malloc.h>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
/// Of the sanitizer's runtime; the compiler comes without its header.
extern "C" std::size_t
__sanitizer_get_current_allocated_bytes(); // NOLINT(bugprone-reserved-identifier)
#endif

namespace tessary {

/// What is asked of a phone that lies.
struct PhoneUse {
    const char* name;
    std::function<void(PhoneFileSystem&, const Call&)> run;
};

/// The things that people do with `folder`, which has a file "a.jpg".
inline std::vector<PhoneUse> usesOf(const QString& folder) {
    const QString file = folder + QStringLiteral("/a.jpg");
    return {
        {"list", [=](auto& files, auto& call) { (void)listAll(files, folder, call); }},
        {"read",
         [=](auto& files, auto& call) {
             files.read(
                 require(files, file, call), {}, [](ByteView) {}, call);
         }},
        {"write",
         [=](auto& files, auto& call) {
             (void)files.write(
                 {folder, QStringLiteral("new"), 5000, {}},
                 [](std::span<std::byte> buffer) { return buffer.size(); }, {}, call);
         }},
        {"thumbnail",
         [=](auto& files, auto& call) {
             (void)files.thumbnail(require(files, file, call), 1 << 20, call);
         }},
        {"rename",
         [=](auto& files, auto& call) {
             (void)files.rename(require(files, file, call), QStringLiteral("b.jpg"),
                                TakenName::refused, call);
         }},
        {"free space", [=](auto& files, auto& call) { (void)files.freeBytes(folder, call); }},
    };
}

/// What this process holds on its heap, bytes: what is freed but kept by the allocator (a
/// sanitizer's quarantine, above all) is not asked of the machine again.
inline std::size_t usedMemory() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
#endif
}

/// One use of a phone that lies: it ends, however, and soon after it is stopped, and takes no more
/// memory than one answer may have. Whoever waits for nonsense loses patience after 300 ms.
inline void expectBounded(PhoneFileSystem& files, const PhoneUse& use) {
    using Clock = std::chrono::steady_clock;
    using namespace std::chrono_literals;
    constexpr auto patience = 300ms;
    // One answer may have 64 MiB, and the phone that sends it is in this process, too.
    constexpr std::size_t mostMemory = 160 << 20;

    const std::size_t before = usedMemory();
    std::stop_source stop;
    std::atomic<bool> hasEnded = false;
    std::atomic<std::size_t> peak = before;
    Clock::time_point stopped{};
    std::jthread impatient([&] {
        const auto end = Clock::now() + patience;
        while (!hasEnded && Clock::now() < end) {
            peak = std::max(peak.load(), usedMemory());
            std::this_thread::sleep_for(5ms);
        }
        stopped = Clock::now();
        stop.request_stop();
    });
    try {
        use.run(files, stop.get_token());
    } catch (const Error&) {
    } catch (const CancellationError&) {
    }
    const auto end = Clock::now();
    hasEnded = true;
    impatient.join();
    EXPECT_LT(end - std::min(stopped, end), soon);
    EXPECT_LT(peak, before + mostMemory);
}

/// A phone that tells the truth again is used again.
inline void expectUsable(PhoneFileSystem& files, const QString& folder) {
    std::string failure;
    for (int tries = 0; tries < 3; ++tries) { // what a lie tore is noticed by its next user
        failure = codeOf([&] { (void)listAll(files, folder, {}); });
        if (failure == "nothing")
            return;
    }
    ADD_FAILURE() << "not usable: " << failure;
}

} // namespace tessary
