#include "phone/FileSearch.h"

#include "base/threads/CancellationError.h"
#include "phone/PartNames.h"
#include "phone/TreeLimits.h"

#include <deque>
#include <utility>

namespace tessary {

NamePattern::NamePattern(const QString& text) {
    constexpr QLatin1StringView wildcards("*?[");
    bool isPattern = false;
    for (const QChar sign : text)
        isPattern = isPattern || wildcards.contains(sign);
    if (isPattern)
        expression_ = QRegularExpression(QRegularExpression::wildcardToRegularExpression(text),
                                         QRegularExpression::CaseInsensitiveOption |
                                             QRegularExpression::UseUnicodePropertiesOption);
    if (!isPattern || !expression_.isValid()) // "[" without its end is one sign of a name
        part_ = text;
}

bool NamePattern::matches(const QString& name) const {
    return part_.isNull() ? expression_.match(name).hasMatch()
                          : name.contains(part_, Qt::CaseInsensitive);
}

void searchFiles(PhoneFileSystem& files, const QString& folder, const NamePattern& pattern,
                 const ListingReceiver& receiver, const Call& call) {
    struct Waiting {
        QString path;
        int depth = 0;
    };
    std::deque<Waiting> folders{{folder, 0}};
    qint64 seen = 0;
    const auto report = [&](const QString& path, const Error& error) {
        if (receiver.unreadable)
            receiver.unreadable({path, error});
    };
    while (!folders.empty()) {
        throwIfStopped(call.stop);
        const Waiting now = std::move(folders.front());
        folders.pop_front();
        const ListingReceiver rows{[&](std::vector<FileItem>&& items) {
                                       seen += static_cast<qint64>(items.size());
                                       if (seen > mostWalkedEntries)
                                           throw Error(PhoneError::listingBroken, {folder});
                                       std::vector<FileItem> found;
                                       for (FileItem& item : items) {
                                           if (isUnfinishedName(item.name))
                                               continue;
                                           if (item.isDirectory && now.depth + 1 < deepestFolder)
                                               folders.push_back({item.path, now.depth + 1});
                                           else if (item.isDirectory)
                                               report(item.path,
                                                      Error(PhoneError::insideItself, {item.path}));
                                           if (pattern.matches(item.name))
                                               found.push_back(std::move(item));
                                       }
                                       if (!found.empty())
                                           receiver.rows(std::move(found));
                                   },
                                   receiver.unreadable};
        try {
            files.list(now.path, rows, call);
        } catch (const Error& error) {
            // The folder that was asked for has to be there; of those below it each may fail.
            if (now.depth == 0 || endsEverything(error))
                throw;
            report(now.path, error);
        }
    }
}

} // namespace tessary
