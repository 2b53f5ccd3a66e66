#include "browser/actions/TypedPath.h"

#include "base/text/PathNames.h"

#include <QStringList>

namespace tessary {

namespace {

constexpr QLatin1Char slash('/');

} // namespace

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

} // namespace tessary
