#include "browser/model/TypedPaths.h"

#include "base/threads/Background.h"

#include <utility>

namespace tessary {

QStringList TypedPaths::completions(const PhoneFileSystem& files, const QString& typed,
                                    const QString& folder) const {
    const QString above = typed.left(typed.lastIndexOf(QLatin1Char('/')) + 1);
    QStringList paths;
    for (const QString& name :
         known_.namesIn(files.canonicalPath(absolutePath(above, folder)), typed.mid(above.size())))
        paths.append(above + name);
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
