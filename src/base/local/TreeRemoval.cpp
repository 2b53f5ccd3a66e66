#include "base/local/TreeRemoval.h"

#include "base/local/FileHandle.h"
#include "base/local/FolderEntries.h"

#include <QUuid>

#include <cerrno>
#include <optional>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>

namespace tessary {

namespace {

/// Folders that are open at a time. What is deeper is first moved up to the top.
constexpr int mostOpen = 32;

class Removal {
public:
    explicit Removal(int top) : top_(top) {}

    void remove(int folder, const QByteArray& name, int depth) {
        struct stat facts {};
        if (::fstatat(folder, name.constData(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
            return note(errno == ENOENT ? 0 : errno);
        if (!S_ISDIR(facts.st_mode))
            return note(::unlinkat(folder, name.constData(), 0) == 0 ? 0 : errno);
        if (depth == 0)
            device_ = facts.st_dev;
        if (facts.st_dev != device_)
            return note(EXDEV);
        if (depth < mostOpen)
            empty(folder, name, depth);
        else
            moveUp(folder, name);
    }
    /// What was too deep, one after the other.
    void finish() {
        while (!movedUp_.empty()) {
            const QByteArray name = std::move(movedUp_.back());
            movedUp_.pop_back();
            remove(top_, name, 0);
        }
    }
    [[nodiscard]] int firstError() const {
        return error_;
    }

private:
    void empty(int folder, const QByteArray& name, int depth) {
        constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
        FileHandle opened(::openat(folder, name.constData(), flags));
        if (!opened.isOpen() && errno == EACCES) {
            // Ours, and closed against ourselves, as folders of phones can be. No link: see above.
            if (::fchmodat(folder, name.constData(), S_IRWXU, 0) == 0)
                opened = FileHandle(::openat(folder, name.constData(), flags));
        }
        if (!opened.isOpen())
            return note(errno);
        (void)::fchmod(opened.get(), S_IRWXU);
        if (const auto names = namesIn(opened.get()))
            for (const QByteArray& child : *names)
                remove(opened.get(), child, depth + 1);
        note(::unlinkat(folder, name.constData(), AT_REMOVEDIR) == 0 ? 0 : errno);
    }

    std::optional<std::vector<QByteArray>> namesIn(int folder) {
        const FolderEntries entries = entriesOf(folder);
        if (!entries) {
            note(errno);
            return std::nullopt;
        }
        std::vector<QByteArray> names;
        while (const dirent* entry = ::readdir(entries.get())) {
            QByteArray name(entry->d_name);
            if (name != "." && name != "..")
                names.push_back(std::move(name));
        }
        return names;
    }

    void moveUp(int folder, const QByteArray& name) {
        const QByteArray fresh = QUuid::createUuid().toByteArray(QUuid::Id128);
        if (::renameat(folder, name.constData(), top_, fresh.constData()) != 0)
            return note(errno);
        movedUp_.push_back(fresh);
    }

    void note(int error) {
        if (error_ == 0)
            error_ = error;
    }

    const int top_;
    dev_t device_ = 0;
    std::vector<QByteArray> movedUp_;
    int error_ = 0;
};

} // namespace

int removeTreeAt(int folder, const QByteArray& name) {
    Removal removal(folder);
    removal.remove(folder, name, 0);
    removal.finish();
    return removal.firstError();
}

} // namespace tessary
