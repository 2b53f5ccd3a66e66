#include "views/sync/SyncTexts.h"

#include "app/texts/ErrorText.h"
#include "base/text/Printable.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <array>

namespace tessary {

namespace {

class Texts {
    Q_DECLARE_TR_FUNCTIONS(SyncTexts)
};

struct DeedLook {
    const char* planned;
    const char* done;
    const char* icon;
};

/// In the order of SyncDeed.
constexpr std::array looks{
    DeedLook{QT_TRANSLATE_NOOP("SyncTexts", "Copy to the phone"),
             QT_TRANSLATE_NOOP("SyncTexts", "Copied to the phone"), "copyToPhone"},
    DeedLook{QT_TRANSLATE_NOOP("SyncTexts", "Replace on the phone"),
             QT_TRANSLATE_NOOP("SyncTexts", "Replaced on the phone"), "copyToPhone"},
    DeedLook{QT_TRANSLATE_NOOP("SyncTexts", "Copy to this computer"),
             QT_TRANSLATE_NOOP("SyncTexts", "Copied to this computer"), "copyFromPhone"},
    DeedLook{QT_TRANSLATE_NOOP("SyncTexts", "Replace on this computer"),
             QT_TRANSLATE_NOOP("SyncTexts", "Replaced on this computer"), "copyFromPhone"},
    DeedLook{QT_TRANSLATE_NOOP("SyncTexts", "Move to the phone"),
             QT_TRANSLATE_NOOP("SyncTexts", "Moved to the phone"), "copyToPhone"},
    DeedLook{QT_TRANSLATE_NOOP("SyncTexts", "Move to this computer"),
             QT_TRANSLATE_NOOP("SyncTexts", "Moved to this computer"), "copyFromPhone"},
    DeedLook{QT_TRANSLATE_NOOP("SyncTexts", "Keep both versions"),
             QT_TRANSLATE_NOOP("SyncTexts", "Kept both versions"), "edit-copy"},
    DeedLook{QT_TRANSLATE_NOOP("SyncTexts", "Delete on the phone"),
             QT_TRANSLATE_NOOP("SyncTexts", "Deleted on the phone"), "edit-delete"},
    DeedLook{QT_TRANSLATE_NOOP("SyncTexts", "Delete on this computer"),
             QT_TRANSLATE_NOOP("SyncTexts", "Deleted on this computer"), "edit-delete"},
    DeedLook{QT_TRANSLATE_NOOP("SyncTexts", "Rename on the phone"),
             QT_TRANSLATE_NOOP("SyncTexts", "Renamed on the phone"), "edit-rename"},
    DeedLook{QT_TRANSLATE_NOOP("SyncTexts", "Rename on this computer"),
             QT_TRANSLATE_NOOP("SyncTexts", "Renamed on this computer"), "edit-rename"},
};
static_assert(looks.size() == static_cast<std::size_t>(SyncDeed::renameHere) + 1);

/// In the order of SyncStage.
constexpr std::array stages{
    "",
    QT_TRANSLATE_NOOP("SyncTexts", "Connecting to device…"),
    QT_TRANSLATE_NOOP("SyncTexts", "Waiting for another sync…"),
    QT_TRANSLATE_NOOP("SyncTexts", "Scanning folders…"),
    QT_TRANSLATE_NOOP("SyncTexts", "Awaiting deletion confirmation…"),
    QT_TRANSLATE_NOOP("SyncTexts", "Analyzing files…"),
    QT_TRANSLATE_NOOP("SyncTexts", "Starting transfer…"),
    QT_TRANSLATE_NOOP("SyncTexts", "Uploading"),
    QT_TRANSLATE_NOOP("SyncTexts", "Downloading"),
    QT_TRANSLATE_NOOP("SyncTexts", "Moving"),
    QT_TRANSLATE_NOOP("SyncTexts", "Moving (already on destination)"),
    QT_TRANSLATE_NOOP("SyncTexts", "Deleting"),
    QT_TRANSLATE_NOOP("SyncTexts", "Up to date"),
};
static_assert(stages.size() == static_cast<std::size_t>(SyncStage::upToDate) + 1);

const DeedLook& lookOf(SyncDeed deed) {
    return looks[static_cast<std::size_t>(deed)];
}

} // namespace

QString sentenceOf(const SyncPair& pair) {
    switch (pair.syncMode) {
    case SyncMode::biDirectional:
        return pair.deleteSyncEnabled
                   ? Texts::tr("New and changed files are copied both ways. Files deleted on one "
                               "side are deleted on the other after you agreed.")
                   : Texts::tr("New and changed files are copied both ways. Files deleted on one "
                               "side are copied back.");
    case SyncMode::toPhone:
        return pair.moveFilesEnabled
                   ? Texts::tr("Files are moved to the phone: each is deleted here once it has "
                               "arrived.")
                   : Texts::tr("New and changed files are copied to the phone. Nothing is "
                               "deleted.");
    case SyncMode::toComputer:
        break;
    }
    return pair.moveFilesEnabled
               ? Texts::tr("Files are moved here: each is deleted on the phone once it has "
                           "arrived.")
               : Texts::tr("New and changed files of the phone are copied here. Nothing is "
                           "deleted.");
}

QString stageText(SyncStage stage) {
    const auto index = static_cast<std::size_t>(stage);
    return stage == SyncStage::none || index >= stages.size() ? QString()
                                                              : Texts::tr(stages[index]);
}

QString deedText(SyncDeed deed, SyncTense tense) {
    const DeedLook& look = lookOf(deed);
    return Texts::tr(tense == SyncTense::done ? look.done : look.planned);
}

const char* deedIcon(SyncDeed deed) {
    return lookOf(deed).icon;
}

QString countsText(const std::map<SyncDeed, qint64>& counts, SyncTense tense) {
    QStringList parts;
    for (const auto& [deed, count] : counts)
        parts.append(
            QStringLiteral("%1: %2").arg(deedText(deed, tense), QLocale().toString(count)));
    return parts.join(QStringLiteral("  ·  "));
}

QString reportText(const SyncReport& report) {
    QStringList parts;
    if (report.failure && report.outcome == SyncReport::Outcome::failed)
        parts.append(printable(errorText(*report.failure).what));
    else if (report.outcome == SyncReport::Outcome::cancelled)
        parts.append(Texts::tr("Cancelled"));
    if (report.hasChanges())
        parts.append(countsText(report.counts(), SyncTense::done));
    else if (report.outcome == SyncReport::Outcome::done)
        parts.append(Texts::tr("Up to date"));
    if (!report.skipped.empty())
        parts.append(Texts::tr("%Ln files were left as they are", nullptr,
                               static_cast<int>(report.skipped.size())));
    return parts.join(QStringLiteral("  ·  "));
}

QString notFinishedText(const SyncPair& pair) {
    return Texts::tr("The sync with %1 was not finished.").arg(printable(pair.deviceName));
}

QString troubleText(const SyncPair& pair, const SyncReport& report) {
    return report.outcome == SyncReport::Outcome::failed
               ? notFinishedText(pair)
               : Texts::tr("The sync with %1 left some files as they are.")
                     .arg(printable(pair.deviceName));
}

QString datedReportText(const SyncReport& report) {
    return QLocale().toString(report.endedAt.toLocalTime(), QLocale::ShortFormat) +
           QStringLiteral(": ") + reportText(report);
}

} // namespace tessary
