#include "views/transfers/TransferListModel.h"

#include "app/LanguageManager.h"
#include "app/Translations.h"
#include "app/texts/DisplayNames.h"
#include "base/text/ByteFormat.h"
#include "base/text/Printable.h"
#include "views/common/Icons.h"
#include "views/common/PlainText.h"

#include <algorithm>

namespace tessary {

TransferListModel::TransferListModel(TransferViewModel& transfers, QObject* parent)
    : QAbstractListModel(parent), transfers_(transfers) {
    connect(&transfers, &TransferViewModel::jobAboutToBeAdded, this,
            [this](int row) { beginInsertRows({}, row, row); });
    connect(&transfers, &TransferViewModel::jobAdded, this, [this] { endInsertRows(); });
    connect(&transfers, &TransferViewModel::jobsAboutToBeRemoved, this,
            [this](int first, int last) { beginRemoveRows({}, first, last); });
    connect(&transfers, &TransferViewModel::jobsRemoved, this, [this] { endRemoveRows(); });
    connect(&transfers, &TransferViewModel::jobChanged, this,
            [this](int row) { Q_EMIT dataChanged(index(row), index(row)); });
    connect(&LanguageManager::shared(), &LanguageManager::languageChanged, this, [this] {
        if (const int rows = rowCount(); rows > 0)
            Q_EMIT dataChanged(index(0), index(rows - 1));
    });
}

int TransferListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(transfers_.jobs().size());
}

const TransferJob* TransferListModel::jobAt(const QModelIndex& index) const {
    if (!index.isValid() || index.row() >= rowCount())
        return nullptr;
    return &transfers_.jobs()[static_cast<std::size_t>(index.row())];
}

QVariant TransferListModel::data(const QModelIndex& index, int role) const {
    const TransferJob* job = jobAt(index);
    if (job == nullptr)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return printable(job->name);
    case Qt::DecorationRole:
        return icon(job->type == TransferJob::TransferType::upload ? "arrow-up" : "arrow-down");
    case Qt::ToolTipRole:
        return plainToolTip(QStringLiteral("%1\n→ %2%3")
                                .arg(printable(job->sourcePath), printable(job->destinationPath),
                                     job->advice.isEmpty()
                                         ? QString()
                                         : QLatin1Char('\n') + trMessage(job->advice)));
    case Qt::AccessibleTextRole:
        return QStringLiteral("%1 %2, %3")
            .arg(displayName(job->type), printable(job->name), transferDetail(*job));
    default:
        return {};
    }
}

QString transferDetail(const TransferJob& job) {
    using Status = TransferJob::TransferStatus;
    if (job.status == Status::failed)
        return printable(
            trMessage(job.error.value_or(QString())) +
            (job.advice.isEmpty() ? QString() : QLatin1Char(' ') + trMessage(job.advice)));
    if (job.status == Status::completed)
        return QStringLiteral("%1  ·  %2")
            .arg(displayName(job.status), formatBytes(job.progress.totalBytes));
    if (job.status != Status::inProgress)
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
