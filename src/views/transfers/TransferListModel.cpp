#include "views/transfers/TransferListModel.h"

#include "app/LanguageManager.h"
#include "app/texts/DisplayNames.h"
#include "app/texts/ErrorText.h"
#include "base/text/ByteFormat.h"
#include "base/text/PathNames.h"
#include "base/text/Printable.h"
#include "views/common/PlainText.h"

#include <QCoreApplication>

#include <algorithm>

namespace tessary {

namespace {

/// The context of this file's texts.
class CopyText {
    Q_DECLARE_TR_FUNCTIONS(CopyText)
};

QString nameWithReason(const LeftOut& left) {
    const QString& folder = left.item.folder;
    const QString path = (folder.isEmpty() ? folder : folder + QLatin1Char('/')) + left.item.name;
    //: the name of an item, and why it was left out
    return CopyText::tr("%1 (%2)").arg(printable(path), reasonText(left.error));
}

/// "2 of 200 items were not copied: a.txt (it is a link; links are not followed), b.txt (…)": what
/// a copy left out, the first few by name. Empty without any.
QString leftOutText(const std::vector<LeftOut>& leftOut, qint64 copiedFiles) {
    if (leftOut.empty())
        return {};
    constexpr std::size_t namedItems = 3;
    const std::size_t shown = std::min(leftOut.size(), namedItems);
    QStringList named;
    for (std::size_t i = 0; i < shown; ++i)
        named.append(nameWithReason(leftOut[i]));
    QString list = named.join(CopyText::tr(", ", "between the items of a list"));
    if (leftOut.size() > shown)
        list = CopyText::tr("%1 and %Ln more", nullptr, static_cast<int>(leftOut.size() - shown))
                   .arg(list);
    const int count = static_cast<int>(leftOut.size());
    return CopyText::tr("%Ln of %1 items were not copied: %2", nullptr, count)
        .arg(QLocale().toString(copiedFiles + count), list);
}

/// What was left out, a line each, for as many as a tool tip holds.
QString leftOutLines(const CopyJob& job) {
    constexpr std::size_t listedItems = 12;
    QString lines;
    for (std::size_t i = 0; i < std::min(job.leftOut.size(), listedItems); ++i)
        lines +=
            QStringLiteral("\n%1: %2")
                .arg(printable(job.leftOut[i].item.item.path), reasonText(job.leftOut[i].error));
    return lines;
}

} // namespace

TransferListModel::TransferListModel(CopyQueue& queue) : queue_(queue) {
    connect(&queue, &CopyQueue::jobAboutToBeAdded, this,
            [this](int row) { beginInsertRows({}, row, row); });
    connect(&queue, &CopyQueue::jobAdded, this, [this] { endInsertRows(); });
    connect(&queue, &CopyQueue::jobsAboutToBeRemoved, this,
            [this](int first, int last) { beginRemoveRows({}, first, last); });
    connect(&queue, &CopyQueue::jobsRemoved, this, [this] { endRemoveRows(); });
    connect(&queue, &CopyQueue::jobAboutToBeMoved, this,
            [this](int from, int before) { beginMoveRows({}, from, from, {}, before); });
    connect(&queue, &CopyQueue::jobMoved, this, [this] { endMoveRows(); });
    connect(&queue, &CopyQueue::jobChanged, this,
            [this](int row) { Q_EMIT dataChanged(index(row), index(row)); });
    connect(&LanguageManager::shared(), &LanguageManager::languageChanged, this, [this] {
        if (const int rows = rowCount(); rows > 0)
            Q_EMIT dataChanged(index(0), index(rows - 1));
    });
}

int TransferListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(queue_.jobs().size());
}

const CopyJob* TransferListModel::jobAt(const QModelIndex& index) const {
    if (!index.isValid() || index.row() >= rowCount())
        return nullptr;
    return &queue_.jobs()[static_cast<std::size_t>(index.row())];
}

QVariant TransferListModel::data(const QModelIndex& index, int role) const {
    const CopyJob* job = jobAt(index);
    if (job == nullptr)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return transferTitle(*job);
    case Qt::ToolTipRole:
        return plainToolTip(
            QStringLiteral("%1\n→ %2%3")
                .arg(printable(job->sourcePath), printable(job->targetFolder), leftOutLines(*job)));
    case Qt::AccessibleTextRole:
        return QStringLiteral("%1 %2, %3")
            .arg(displayName(job->direction), transferTitle(*job), transferDetail(*job));
    default:
        return {};
    }
}

QString transferTitle(const CopyJob& job) {
    const QString name = printable(job.name);
    return job.things == 1
               ? name
               : TransferListModel::tr("%1 and %Ln more", nullptr, job.things - 1).arg(name);
}

QString transferRoute(const CopyJob& job) {
    using Direction = CopyJob::Direction;
    const QString phone = printable(job.phone);
    const QString fromPhone = job.sourcePhone.isEmpty() ? phone : printable(job.sourcePhone);
    const QString from = lastComponent(parentPath(job.sourcePath));
    const QString to = lastComponent(job.targetFolder);
    const bool comesFromPhone =
        job.direction == Direction::toComputer || job.direction == Direction::betweenPhones;
    const bool goesToPhone =
        job.direction == Direction::toPhone || job.direction == Direction::betweenPhones;
    return QStringLiteral("%1 → %2").arg(comesFromPhone || from.isEmpty() ? fromPhone
                                                                          : printable(from),
                                         goesToPhone || to.isEmpty() ? phone : printable(to));
}

QString transferDetail(const CopyJob& job) {
    using Status = CopyJob::Status;
    if (job.status == Status::failed && job.error)
        return errorText(*job.error).text();
    if (job.status == Status::failed)
        return TransferListModel::tr("Tessary ended while this was being copied.");
    if (job.status == Status::incomplete)
        return leftOutText(job.leftOut, job.progress.completedFiles);
    if (job.status == Status::done)
        return QStringLiteral("%1  ·  %2")
            .arg(displayName(job.status), formatBytes(job.progress.totalBytes));
    if (job.status == Status::paused && job.doneBytes() > 0)
        return QStringLiteral("%1  ·  %2")
            .arg(displayName(job.status), job.progress.bytesDescription());
    if (job.status != Status::running)
        return displayName(job.status);
    if (job.isFinishing)
        return TransferListModel::tr("Finishing: the phone is still storing the file");
    QString text = job.progress.bytesDescription();
    if (job.progress.totalFiles > 1)
        text += QStringLiteral("  ·  ") +
                TransferListModel::tr("%1/%Ln files", nullptr,
                                      static_cast<int>(job.progress.totalFiles))
                    .arg(QLocale().toString(
                        std::min(job.progress.completedFiles, job.progress.totalFiles)));
    if (job.bytesPerSecond >= 1)
        text +=
            QStringLiteral("  ·  %1/s").arg(formatBytes(static_cast<qint64>(job.bytesPerSecond)));
    if (job.timeLeft)
        text += QStringLiteral("  ·  ") +
                TransferListModel::tr("%1 left").arg(formatDuration(*job.timeLeft));
    return text;
}

} // namespace tessary
