#include "app/texts/SyncTexts.h"

#include "app/texts/ErrorText.h"
#include "base/text/Printable.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <iterator>

namespace tessary {

namespace {

struct DeedLook {
    const char* planned;
    const char* done;
    const char* icon;
};

class Texts {
    Q_DECLARE_TR_FUNCTIONS(SyncTexts)

public:
    /// In the order of SyncDeed.
    static constexpr DeedLook looks[] = {
        {QT_TR_NOOP("Copy to the phone"), QT_TR_NOOP("Copied to the phone"), "copyToPhone"},
        {QT_TR_NOOP("Replace on the phone"), QT_TR_NOOP("Replaced on the phone"), "copyToPhone"},
        {QT_TR_NOOP("Copy to this computer"), QT_TR_NOOP("Copied to this computer"),
         "copyFromPhone"},
        {QT_TR_NOOP("Replace on this computer"), QT_TR_NOOP("Replaced on this computer"),
         "copyFromPhone"},
        {QT_TR_NOOP("Move to the phone"), QT_TR_NOOP("Moved to the phone"), "copyToPhone"},
        {QT_TR_NOOP("Move to this computer"), QT_TR_NOOP("Moved to this computer"),
         "copyFromPhone"},
        {QT_TR_NOOP("Keep both versions"), QT_TR_NOOP("Kept both versions"), "edit-copy"},
        {QT_TR_NOOP("Delete on the phone"), QT_TR_NOOP("Deleted on the phone"), "edit-delete"},
        {QT_TR_NOOP("Delete on this computer"), QT_TR_NOOP("Deleted on this computer"),
         "edit-delete"},
        {QT_TR_NOOP("Rename on the phone"), QT_TR_NOOP("Renamed on the phone"), "edit-rename"},
        {QT_TR_NOOP("Rename on this computer"), QT_TR_NOOP("Renamed on this computer"),
         "edit-rename"},
    };
    static_assert(std::size(looks) == static_cast<std::size_t>(SyncDeed::renameHere) + 1);

    /// In the order of SyncStage.
    static constexpr const char* stages[] = {
        "",
        QT_TR_NOOP("Connecting to device…"),
        QT_TR_NOOP("Waiting for another sync…"),
        QT_TR_NOOP("Scanning folders…"),
        QT_TR_NOOP("Awaiting deletion confirmation…"),
        QT_TR_NOOP("Analyzing files…"),
        QT_TR_NOOP("Starting transfer…"),
        QT_TR_NOOP("Uploading"),
        QT_TR_NOOP("Downloading"),
        QT_TR_NOOP("Moving"),
        QT_TR_NOOP("Moving (already on destination)"),
        QT_TR_NOOP("Deleting"),
        QT_TR_NOOP("Up to date"),
    };
    static_assert(std::size(stages) == static_cast<std::size_t>(SyncStage::upToDate) + 1);
};

const DeedLook& lookOf(SyncDeed deed) {
    return Texts::looks[static_cast<std::size_t>(deed)];
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
    return stage == SyncStage::none ? QString()
                                    : Texts::tr(Texts::stages[static_cast<std::size_t>(stage)]);
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

QString guardText(const SyncGuard& guard) {
    using Kind = SyncGuard::Kind;
    const auto count = static_cast<int>(guard.recorded);
    switch (guard.kind) {
    case Kind::nothing:
        break;
    case Kind::localEmpty:
        return Texts::tr("The folder on this computer is empty, although %Ln files were in it "
                         "after the last sync. Is its disk missing?",
                         nullptr, count);
    case Kind::deviceEmpty:
        return Texts::tr("The folder on the phone is empty, although %Ln files were in it after "
                         "the last sync. Is its memory card missing?",
                         nullptr, count);
    case Kind::manyDeletions:
        return Texts::tr("More than half of the %Ln files of the last sync would be deleted.",
                         nullptr, count);
    }
    return {};
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
