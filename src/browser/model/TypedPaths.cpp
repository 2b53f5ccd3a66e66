#include "browser/model/TypedPaths.h"

#include "base/text/NameOrder.h"
#include "base/text/PathNames.h"
#include "base/threads/Background.h"

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

constexpr QLatin1Char slash('/');

/// What the user typed as a path, from the root on: a relative path begins in `folder`, "." and
/// ".." are taken out.
QString absolutePath(const QString& typed, const QString& folder) {
    const QString whole = typed.startsWith(slash) ? typed : joinPath(folder, typed);
    QStringList parts;
    for (const QString& part : whole.split(slash, Qt::SkipEmptyParts)) {
        if (part == QLatin1StringView("..")) {
            if (!parts.isEmpty())
                parts.removeLast();
        } else if (part != QLatin1StringView(".")) {
            parts.append(part);
        }
    }
    return slash + parts.join(slash);
}

/// Blocking. Throws nothing but CancellationError.
TypedPath lookUpTypedPath(PhoneFileSystem& files, const QString& path, const QString& typed,
                          const std::stop_token& stop) {
    using What = BrowserProblem::What;
    try {
        if (auto item = files.find(path, stop))
            return {std::move(item), std::nullopt};
        return {std::nullopt, BrowserProblem{What::noSuchPath, typed, 1, 1, {}}};
    } catch (const Error& error) {
        return {std::nullopt, BrowserProblem::of(What::load, path, error)};
    }
}

} // namespace

void TypedPaths::note(const QString& folder, const std::vector<FileItem>& items) {
    QStringList names;
    for (const FileItem& item : items)
        if (item.isDirectory)
            names.append(item.name);
    names_ -= folders_.take(folder).size();
    if (names_ + names.size() > mostNames)
        clear();
    if (names.size() > mostNames)
        return;
    names_ += names.size();
    folders_.insert(folder, std::move(names));
}

void TypedPaths::clear() {
    folders_.clear();
    names_ = 0;
}

QStringList TypedPaths::completions(const PhoneFileSystem& files, const QString& typed,
                                    const QString& folder) const {
    const QString above = typed.left(typed.lastIndexOf(slash) + 1);
    const QString begun = typed.mid(above.size());
    QStringList paths;
    for (const QString& name : folders_.value(files.canonicalPath(absolutePath(above, folder))))
        if (name.startsWith(begun, Qt::CaseInsensitive))
            paths.append(above + name);
    std::sort(paths.begin(), paths.end(), nameCollator());
    return paths;
}

void TypedPaths::lookUp(const std::shared_ptr<PhoneFileSystem>& files, const QString& typed,
                        const QString& folder, Found whenFound) {
    const QString path = files->canonicalPath(absolutePath(typed, folder));
    runInBackground(
        this,
        [files, path, typed](const std::stop_token& stop) {
            return lookUpTypedPath(*files, path, typed, stop);
        },
        [this, number = ++number_, path,
         whenFound = std::move(whenFound)](BackgroundResult<TypedPath> result) {
            if (number == number_ && result.succeeded())
                whenFound(result.take(), path);
        });
}

} // namespace tessary
