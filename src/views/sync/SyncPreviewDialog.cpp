#include "views/sync/SyncPreviewDialog.h"

#include "app/Translations.h"
#include "base/text/ByteFormat.h"
#include "views/common/Icons.h"
#include "views/common/PlainText.h"
#include "views/sync/SyncFileList.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tessary {

namespace {

using Kind = SyncPreviewItem::Kind;

QString actionText(const SyncPreviewItem& item) {
    switch (item.kind) {
    case Kind::upload:
        return SyncPreviewDialog::tr("Copy to the phone");
    case Kind::download:
        return SyncPreviewDialog::tr("Copy to this computer");
    case Kind::move:
        return item.toDevice ? SyncPreviewDialog::tr("Move to the phone")
                             : SyncPreviewDialog::tr("Move to this computer");
    case Kind::conflict:
        return SyncPreviewDialog::tr("Changed on both sides: keep both");
    case Kind::remove:
        return item.toDevice ? SyncPreviewDialog::tr("Delete on the phone")
                             : SyncPreviewDialog::tr("Delete on this computer");
    case Kind::leave:
        return SyncPreviewDialog::tr("Leave as it is");
    case Kind::skip:
        break;
    }
    return SyncPreviewDialog::tr("Skip");
}

const char* actionIcon(const SyncPreviewItem& item) {
    switch (item.kind) {
    case Kind::upload:
        return "go-up";
    case Kind::download:
        return "go-down";
    case Kind::move:
        return item.toDevice ? "go-up" : "go-down";
    case Kind::conflict:
        return "edit-copy";
    case Kind::remove:
        return "edit-delete";
    case Kind::leave:
    case Kind::skip:
        break;
    }
    return "dialog-warning";
}

} // namespace

SyncPreviewDialog::SyncPreviewDialog(QWidget* parent)
    : QDialog(parent),
      title_(new QLabel),
      warning_(new QLabel),
      busy_(new QProgressBar),
      list_(new QTreeWidget),
      run_(nullptr) {
    setObjectName(QStringLiteral("syncPreview"));
    setWindowTitle(tr("What Will Happen"));
    resize(640, 440);
    title_->setWordWrap(true);
    QFont bold = title_->font();
    bold.setWeight(QFont::DemiBold);
    title_->setFont(bold);
    warning_->setWordWrap(true);
    QPalette red = warning_->palette();
    red.setColor(QPalette::WindowText, QColor(206, 58, 58));
    warning_->setPalette(red);
    busy_->setRange(0, 0);
    busy_->setTextVisible(false);
    list_->setAccessibleName(tr("What Will Happen"));
    setUpSyncFileList(*list_, tr("Action"));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    run_ = buttons->addButton(tr("Sync Now"), QDialogButtonBox::AcceptRole);
    run_->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(10);
    column->addWidget(title_);
    column->addWidget(warning_);
    column->addWidget(busy_);
    column->addWidget(list_, 1);
    column->addWidget(buttons);
    makePlain(*this);
}

void SyncPreviewDialog::show(const SyncViewModel::Preview& preview) {
    busy_->setVisible(preview.isLoading());
    run_->setEnabled(preview.plan.has_value());
    warning_->setText(preview.plan ? trMessage(preview.plan->warning) : trMessage(preview.error));
    warning_->setVisible(!warning_->text().isEmpty());
    list_->setVisible(preview.plan.has_value());
    if (preview.plan)
        fill(*preview.plan);
    else
        title_->setText(preview.isLoading() ? tr("Comparing the folders…")
                                            : tr("The folders cannot be compared"));
    QDialog::show();
}

void SyncPreviewDialog::fill(const SyncPreview& plan) {
    constexpr int maxLines = 2000; // more are read by nobody
    list_->clear();
    QList<QTreeWidgetItem*> rows;
    for (const SyncPreviewItem& item : plan.items) {
        if (rows.size() == maxLines)
            break;
        const QString reason =
            item.reason.isEmpty() ? QString() : QStringLiteral(": ") + trMessage(item.reason);
        auto* row = makeSyncFileRow(item.relativePath, item.size, actionText(item) + reason);
        row->setIcon(0, icon(actionIcon(item)));
        rows.append(row);
    }
    list_->addTopLevelItems(rows);
    const auto files = static_cast<qint64>(plan.items.size());
    QStringList parts;
    if (files > 0)
        parts.append(tr("%Ln files to go through, %1 to copy", nullptr, static_cast<int>(files))
                         .arg(formatBytes(plan.totalBytes)));
    if (files == 0 || plan.inSync > 0)
        parts.append(tr("%Ln files are the same already", nullptr, static_cast<int>(plan.inSync)));
    title_->setText(parts.join(QStringLiteral("  ·  ")));
}

} // namespace tessary
