#include "app/texts/DisplayNames.h"

#include "base/text/ByteCount.h"
#include "base/text/ByteFormat.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <array>

namespace tessary {

namespace {

/// The context of this file's texts.
class DisplayNames {
    Q_DECLARE_TR_FUNCTIONS(DisplayNames)
};

/// In the order of the enum's cases.
template <typename Enum, std::size_t count>
QString nameOf(const std::array<const char*, count>& names, Enum value) {
    return DisplayNames::tr(names[static_cast<std::size_t>(value)]);
}

constexpr std::array categoryNames{
    QT_TRANSLATE_NOOP("DisplayNames", "Folder"),
    QT_TRANSLATE_NOOP("DisplayNames", "Image"),
    QT_TRANSLATE_NOOP("DisplayNames", "Video"),
    QT_TRANSLATE_NOOP("DisplayNames", "Audio"),
    QT_TRANSLATE_NOOP("DisplayNames", "Document"),
    QT_TRANSLATE_NOOP("DisplayNames", "Archive"),
    QT_TRANSLATE_NOOP("DisplayNames", "APK Package"),
    QT_TRANSLATE_NOOP("DisplayNames", "Source Code"),
    QT_TRANSLATE_NOOP("DisplayNames", "File"),
};
static_assert(categoryNames.size() == static_cast<std::size_t>(FileCategory::other) + 1);

constexpr std::array modeNames{
    QT_TRANSLATE_NOOP("DisplayNames", "iOS File Transfer"),
    QT_TRANSLATE_NOOP("DisplayNames", "Standard MTP"),
    QT_TRANSLATE_NOOP("DisplayNames", "Turbo Mode (ADB)"),
};

constexpr std::array typeNames{
    QT_TRANSLATE_NOOP("DisplayNames", "Upload"),
    QT_TRANSLATE_NOOP("DisplayNames", "Download"),
    QT_TRANSLATE_NOOP("DisplayNames", "Copy"),
    QT_TRANSLATE_NOOP("DisplayNames", "Copy"),
};

constexpr std::array statusNames{
    QT_TRANSLATE_NOOP("DisplayNames", "Queued"),
    QT_TRANSLATE_NOOP("DisplayNames", "Paused"),
    QT_TRANSLATE_NOOP("DisplayNames", "In Progress"),
    QT_TRANSLATE_NOOP("DisplayNames", "Completed"),
    QT_TRANSLATE_NOOP("DisplayNames", "Incomplete"),
    QT_TRANSLATE_NOOP("DisplayNames", "Failed"),
    QT_TRANSLATE_NOOP("DisplayNames", "Cancelled"),
};

/// What this program, not the phone, calls the top of a tree of files; the last stands for a
/// storage with nothing but a number.
constexpr std::array placeNames{
    QT_TRANSLATE_NOOP("DisplayNames", "Internal Storage"),
    QT_TRANSLATE_NOOP("DisplayNames", "SD Card"),
    QT_TRANSLATE_NOOP("DisplayNames", "USB Drive"),
    QT_TRANSLATE_NOOP("DisplayNames", "Documents"),
    QT_TRANSLATE_NOOP("DisplayNames", "Photos & Videos"),
    QT_TRANSLATE_NOOP("DisplayNames", "Storage %1"),
};

} // namespace

QString displayName(FileCategory category) {
    return nameOf(categoryNames, category);
}

QString displayName(ProtocolMode mode) {
    return nameOf(modeNames, mode);
}

QString displayName(CopyJob::Direction direction) {
    return nameOf(typeNames, direction);
}

QString displayName(CopyJob::Status status) {
    return nameOf(statusNames, status);
}

QString placeDisplayName(const QString& name) {
    // As most phones call it over MTP.
    if (name.compare(QLatin1StringView("Internal shared storage"), Qt::CaseInsensitive) == 0)
        return DisplayNames::tr(placeNames.front());
    for (const char* english : placeNames) {
        const QLatin1StringView known(english);
        if (name.compare(known, Qt::CaseInsensitive) == 0)
            return DisplayNames::tr(english);
        // One of several: "SD Card (1234-ABCD)".
        if (name.startsWith(known) && QStringView(name).mid(known.size()).startsWith(u" ("))
            return DisplayNames::tr(english) + name.mid(known.size());
    }
    constexpr QLatin1StringView numbered("Storage ");
    if (name.startsWith(numbered))
        return DisplayNames::tr(placeNames.back()).arg(name.mid(numbered.size()));
    return name;
}

QString freeSpaceText(const StorageVolume& storage) {
    const auto shown = [](std::uint64_t bytes) { return formatBytes(clampedByteCount(bytes)); };
    if (storage.totalBytes == 0)
        return {}; // nobody knows
    return DisplayNames::tr("%1 free of %2")
        .arg(shown(std::min(storage.freeBytes, storage.totalBytes)), shown(storage.totalBytes));
}

QString modeDisplayName(const SyncPair& pair) {
    switch (pair.syncMode) {
    case SyncMode::toPhone:
        return pair.movesFiles() ? DisplayNames::tr("Move to the phone")
                                 : DisplayNames::tr("Only to the phone");
    case SyncMode::toComputer:
        return pair.movesFiles() ? DisplayNames::tr("Move to this computer")
                                 : DisplayNames::tr("Only to this computer");
    case SyncMode::biDirectional:
        break;
    }
    return DisplayNames::tr("Both ways");
}

QString remoteDisplayPath(const SyncPair& pair) {
    const QString place = placeDisplayName(pair.appName);
    if (pair.remoteFolderPath.isEmpty() || pair.remoteFolderPath == QLatin1StringView("/"))
        return place;
    if (pair.appBundleID == SyncPair::deviceStorage)
        return place + QStringLiteral(": ") + pair.remoteFolderPath;
    return place + QStringLiteral(" / ") +
           pair.remoteFolderPath.section(QLatin1Char('/'), -1, -1, QString::SectionSkipEmpty);
}

QString dayDisplayName(const QDate& day) {
    if (!day.isValid())
        return DisplayNames::tr("No Date");
    const qint64 ago = day.daysTo(QDate::currentDate());
    if (ago == 0)
        return DisplayNames::tr("Today");
    return ago == 1 ? DisplayNames::tr("Yesterday") : QLocale().toString(day, QLocale::LongFormat);
}

} // namespace tessary
