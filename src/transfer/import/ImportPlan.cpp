#include "transfer/import/ImportPlan.h"

#include "base/local/LocalError.h"
#include "base/text/ByteCount.h"
#include "base/text/PathNames.h"

#include <QSet>

#include <algorithm>
#include <map>
#include <type_traits>

namespace tessary {

namespace {

/// Phones date to the second.
constexpr std::chrono::milliseconds phonesStep{1000};

QString folderFor(const Photo& photo, const ImportWishes& wishes) {
    if (!wishes.byDate)
        return {};
    const auto day = photo.day();
    if (!day)
        return QStringLiteral("Undated");
    const QString date = day->toString(Qt::ISODate);
    return date.left(date.indexOf(u'-')) + u'/' + date;
}

/// "IMG_0001 (2).HEIC" for the second of its name.
QString numbered(const QString& name, int number) {
    if (number < 2)
        return name;
    const qsizetype dot = name.lastIndexOf(u'.');
    const qsizetype stem = dot > 0 ? dot : name.size();
    return name.left(stem) + QStringLiteral(" (%1)").arg(number) + name.mid(stem);
}

/// The number that a copy was given; no value when it was called otherwise since.
std::optional<int> numberOf(const QString& copyName, const QString& name) {
    constexpr int most = 1000;
    for (int n = 1; n < most; ++n)
        if (copyName == numbered(name, n))
            return n;
    return std::nullopt;
}

/// What `ask` answers, unless the folder that it asks about is not there yet: the copy makes it.
template <typename Ask>
auto whereThere(const Ask& ask, std::invoke_result_t<Ask> otherwise) {
    try {
        return ask();
    } catch (const Error& error) {
        if (!error.is(LocalError::notFound) && !error.is(PhoneError::notFound))
            throw;
        return otherwise;
    }
}

/// The names that are taken in one folder of the target.
class FolderNames {
public:
    FolderNames(PhoneFileSystem& to, const QString& target, const QString& path, const Call& call)
        : rules_(whereThere([&] { return to.nameRules(path, call); },
                            whereThere([&] { return to.nameRules(target, call); }, NameRules()))),
          dateStep_(whereThere([&] { return std::max(to.capabilities(call).dateStep, phonesStep); },
                               phonesStep)) {
        Listing listing = whereThere([&] { return listAll(to, path, call); }, Listing());
        for (FileItem& item : listing.items)
            there_.insert(rules_.key(item.name), std::move(item));
        for (const UnreadableEntry& entry : listing.unreadable)
            given_.insert(rules_.key(lastComponent(entry.path)));
    }

    /// Gives files that belong together one number, from `number` on.
    [[nodiscard]] int numberFor(const std::vector<FileItem>& files, int number) const {
        while (std::any_of(files.begin(), files.end(), [&](const FileItem& file) {
            const QString name = numbered(file.name, number);
            return rules_.accepts(name) && isTaken(file, rules_.key(name));
        }))
            ++number;
        return number;
    }
    void give(const QString& name) {
        given_.insert(rules_.key(name));
    }
    /// What has the name and is the same as far as can be told without reading it.
    [[nodiscard]] const FileItem* sameAs(const FileItem& file, const QString& name) const {
        const auto there = there_.constFind(rules_.key(name));
        return there != there_.constEnd() && areAlike(*there, file, dateStep_) ? &*there : nullptr;
    }
    /// Those of one name to one of them each: they cannot have one number.
    [[nodiscard]] std::vector<std::vector<FileItem>>
    together(const std::vector<FileItem>& files) const {
        std::vector<std::vector<FileItem>> groups{{}};
        QSet<QString> names;
        for (const FileItem& file : files) {
            const QString key = rules_.key(file.name);
            if (names.contains(key))
                groups.push_back({file});
            else
                groups.front().push_back(file);
            names.insert(key);
        }
        return groups;
    }

private:
    [[nodiscard]] bool isTaken(const FileItem& file, const QString& key) const {
        const auto there = there_.constFind(key);
        return given_.contains(key) ||
               (there != there_.constEnd() && !areAlike(*there, file, dateStep_));
    }

    const NameRules rules_;
    const std::chrono::milliseconds dateStep_;
    QHash<QString, FileItem> there_; ///< by key
    QSet<QString> given_;            ///< keys of names that this plan, or nobody knows what, has
};

class Planner {
public:
    Planner(const ImportLedger& ledger, PhoneFileSystem& to, const QString& folder,
            const ImportWishes& wishes, const Call& call)
        : ledger_(ledger), to_(to), folder_(folder), wishes_(wishes), call_(call) {}

    void add(const Photo& photo) {
        const QString below = folderFor(photo, wishes_);
        const QString path = below.isEmpty() ? folder_ : joinPath(folder_, below);
        std::vector<FileItem> wanted;
        int number = 1;
        const bool isAgain = wishes_.again && isFetched(photo, ledger_);
        for (const FileItem& file : photo.files) {
            const auto record = ledger_.find(file);
            if (!record || isAgain)
                wanted.push_back(file);
            else if (parentPath(record->copy) == path)
                number = numberOf(lastComponent(record->copy), file.name).value_or(number);
        }
        auto folder = folders_.find(below);
        if (folder == folders_.end())
            folder = folders_.try_emplace(below, to_, folder_, path, call_).first;
        const std::size_t before = items_[below].size();
        for (const auto& files : folder->second.together(wanted))
            place(files, number, below, folder->second);
        plan_.photos += items_[below].size() > before ? 1 : 0;
    }

    [[nodiscard]] ImportPlan take() {
        for (auto& [below, items] : items_)
            std::move(items.begin(), items.end(), std::back_inserter(plan_.items));
        return std::move(plan_);
    }

private:
    void place(const std::vector<FileItem>& files, int number, const QString& below,
               FolderNames& names) {
        number = names.numberFor(files, number);
        for (const FileItem& file : files) {
            const QString name = numbered(file.name, number);
            if (const FileItem* same = names.sameAs(file, name)) {
                if (!ledger_.find(file))
                    plan_.alreadyHere.push_back(
                        {file.path, file.size, file.modifiedDate, same->path, {}});
            } else {
                items_[below].push_back({file, name, below});
                plan_.bytes = addByteCounts(plan_.bytes, std::max<qint64>(file.size, 0));
            }
            names.give(name);
        }
    }

    const ImportLedger& ledger_;
    PhoneFileSystem& to_;
    const QString folder_;
    const ImportWishes wishes_;
    const Call& call_;
    std::map<QString, FolderNames> folders_; ///< by their paths below the target
    std::map<QString, std::vector<CopyItem>> items_;
    ImportPlan plan_;
};

} // namespace

bool isFetched(const Photo& photo, const ImportLedger& ledger) {
    return std::all_of(photo.files.begin(), photo.files.end(),
                       [&](const FileItem& file) { return ledger.find(file).has_value(); });
}

ImportPlan planImport(const std::vector<Photo>& photos, const ImportLedger& ledger,
                      PhoneFileSystem& to, const QString& folder, const ImportWishes& wishes,
                      const Call& call) {
    Planner planner(ledger, to, folder, wishes, call);
    // The oldest first, so that of two of one name the older one keeps it, whenever it is asked.
    for (auto photo = photos.rbegin(); photo != photos.rend(); ++photo)
        planner.add(*photo);
    return planner.take();
}

} // namespace tessary
