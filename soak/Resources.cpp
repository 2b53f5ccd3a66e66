#include "Resources.h"

#include "Story.h"

#include <QDir>

#include <algorithm>

#include <malloc.h>
#include <sys/resource.h>

/// Of the sanitizers, which have an allocator of their own; null without one.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace tessary {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t windowSize =
    12; ///< samples; the least of them is free of what comes and goes

qint64 entriesIn(const char* folder) {
    return QDir(QString::fromUtf8(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

} // namespace

void Resources::measure() {
    const std::size_t bytes = &__sanitizer_get_current_allocated_bytes != nullptr
                                  ? __sanitizer_get_current_allocated_bytes()
                                  : mallinfo2().uordblks;
    samples_.push_back({static_cast<qint64>(bytes / 1024), entriesIn("/proc/self/fd"),
                        entriesIn("/proc/self/task")});
}

void Resources::check(Story& story) const {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    story.raise("memory, peak (kB)", usage.ru_maxrss);
    if (samples_.size() < 4 * windowSize)
        return;
    struct Row {
        const char* name;
        qint64 Sample::*number;
        qint64 spare;
        int percent;
    };
    // Phones and browser remember folders; the threads for work in the background come as they are
    // needed.
    const Row rows[] = {{"memory in use (kB)", &Sample::kilobytes, 4 * 1024, 20},
                        {"descriptors", &Sample::descriptors, 8, 0},
                        {"threads", &Sample::threads, 12, 0}};
    for (const Row& row : rows) {
        const auto least = [&](std::size_t from) {
            qint64 number = samples_[from].*row.number;
            for (std::size_t n = from; n < from + windowSize; ++n)
                number = std::min(number, samples_[n].*row.number);
            return number;
        };
        const qint64 warm = least(samples_.size() / 3);
        const qint64 end = least(samples_.size() - windowSize);
        story.raise(qPrintable(QString::fromUtf8(row.name) + u", warm"_s), warm);
        story.raise(qPrintable(QString::fromUtf8(row.name) + u", end"_s), end);
        if (end > warm + warm * row.percent / 100 + row.spare)
            throw Broken(
                u"%1 grew from %2 to %3"_s.arg(QString::fromUtf8(row.name)).arg(warm).arg(end));
    }
}

} // namespace tessary
