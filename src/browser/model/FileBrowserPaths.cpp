// Paths that the user types into a browser.

#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"
#include "browser/model/FileBrowserViewModel.h"
#include "phone/DevicePath.h"

namespace tessary {

namespace {

constexpr QLatin1Char slash('/');

/// What is typed, from the root on: a relative path begins in `folder`, "." and ".." are taken out.
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

struct TypedPath {
    std::optional<FileItem> item;
    ErrorAdvice error; ///< without an item
};

/// Blocking.
TypedPath lookUp(FileAccess& files, const QString& path, const QString& typed,
                 const std::stop_token& stop) {
    try {
        return {files.itemAt(path, stop), {}};
    } catch (const CancellationError&) {
        throw;
    } catch (const std::exception& error) {
        // Missing, or not to be read for another reason.
        if (!loadFolder(files, path, QLocale::c(), stop).livingFolder)
            return {std::nullopt, adviceFor(error, files)};
        return {std::nullopt,
                {QStringLiteral("There is no \"%1\" on the phone.").arg(typed),
                 QStringLiteral("Check the spelling, or choose the folder below.")}};
    }
}

} // namespace

QStringList FileBrowserViewModel::pathCompletions(const QString& typed) const {
    if (!files_)
        return {};
    const QString above = typed.left(typed.lastIndexOf(slash) + 1);
    QStringList paths;
    for (const QString& name : knownFolders_.namesIn(
             files_->canonicalPath(absolutePath(above, currentPath_)), typed.mid(above.size())))
        paths.append(above + name);
    return paths;
}

void FileBrowserViewModel::goToTyped(const QString& typed, std::function<void(bool)> whenDone) {
    if (!files_ || typed.isEmpty())
        return;
    dismissError();
    const std::uint64_t number = ++typedNumber_;
    const QString path = files_->canonicalPath(absolutePath(typed, currentPath_));
    runInBackground(
        this,
        [files = files_, path, typed](const std::stop_token& stop) {
            return lookUp(*files, path, typed, stop);
        },
        [this, number, path, whenDone = std::move(whenDone)](BackgroundResult<TypedPath> result) {
            if (number != typedNumber_ || !files_ || !result.succeeded())
                return;
            const TypedPath found = result.take();
            if (found.item) {
                navigateTo(found.item->isDirectory ? path : parentPath(path));
                if (!found.item->isDirectory)
                    awaited_ = Awaited{found.item->name};
            } else {
                setError(found.error);
            }
            whenDone(found.item.has_value());
        });
}

} // namespace tessary
