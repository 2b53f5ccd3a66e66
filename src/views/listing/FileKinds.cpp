#include "views/listing/FileKinds.h"

#include "app/LanguageManager.h"
#include "base/threads/Background.h"

#include <QMimeDatabase>

#include <utility>

namespace tessary {

namespace {

/// Endings that phones make up are without end: what is kept of them is not.
constexpr qsizetype mostEndings = 1000;

} // namespace

FileKinds::FileKinds(QObject* parent) : QObject(parent) {
    runInBackground(
        this, [] { (void)QMimeDatabase().mimeTypeForName(QStringLiteral("text/plain")).comment(); },
        [this](BackgroundResult<void>) {
            isRead_ = true;
            Q_EMIT changed();
        });
    connect(&LanguageManager::shared(), &LanguageManager::languageChanged, this, [this] {
        byEnding_.clear();
        Q_EMIT changed();
    });
}

std::optional<QString> FileKinds::kindOf(const QString& fileName) {
    const qsizetype dot = fileName.lastIndexOf(QLatin1Char('.'));
    if (!isRead_ || dot < 0)
        return std::nullopt;
    const QString ending = fileName.mid(dot).toLower();
    auto known = byEnding_.constFind(ending);
    if (known == byEnding_.constEnd()) {
        if (byEnding_.size() >= mostEndings)
            byEnding_.clear();
        const QMimeType type = QMimeDatabase().mimeTypeForFile(QLatin1Char('x') + ending,
                                                               QMimeDatabase::MatchExtension);
        QString kind = type.isDefault() ? QString() : type.comment();
        if (!kind.isEmpty())
            kind[0] = kind[0].toUpper(); // "plain text document" stands beside "Folder"
        known = byEnding_.insert(ending, std::move(kind));
    }
    return known->isEmpty() ? std::nullopt : std::optional(*known);
}

} // namespace tessary
