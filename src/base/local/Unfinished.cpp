#include "base/local/Unfinished.h"

#include "base/local/FileHandle.h"
#include "base/local/TreeRemoval.h"

#include <map>
#include <mutex>

#include <fcntl.h>

namespace tessary {

namespace {

constexpr int mostAttempts = 100;

struct Entry {
    FileHandle folder;
    QByteArray name;
};

struct Entries {
    std::mutex mutex;
    std::map<std::uint64_t, Entry> all;
    std::uint64_t last = 0;
};

/// Never released: it is wanted at the very end.
Entries& entries() {
    static Entries& shared = *new Entries;
    return shared;
}

} // namespace

Unfinished::Unfinished(int folder, const QByteArray& name) {
    Entry entry{FileHandle(fcntl(folder, F_DUPFD_CLOEXEC, 0)), name};
    const std::scoped_lock lock(entries().mutex);
    number_ = ++entries().last;
    entries().all.emplace(number_, std::move(entry));
}

Unfinished::~Unfinished() {
    if (number_ == 0)
        return;
    const std::scoped_lock lock(entries().mutex);
    entries().all.erase(number_);
}

void Unfinished::removeAll() {
    const std::scoped_lock lock(entries().mutex);
    for (const auto& [number, entry] : entries().all)
        // Another thread may still be filling it: once the folders go, it cannot.
        for (int attempt = 0; attempt < mostAttempts; ++attempt)
            if (removeTreeAt(entry.folder.get(), entry.name) == 0)
                break;
}

} // namespace tessary
