#include "views/sync/SyncPreviewDialog.h"

#include "app/texts/ErrorText.h"
#include "app/texts/SyncTexts.h"
#include "base/text/ByteFormat.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/common/PlainText.h"
#include "views/sync/SyncFileList.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace tessary {

namespace {

/// So many conflicts have a choice of their own in the list; of more, both versions are kept.
constexpr int mostChoices = 500;

bool isDeletion(const SyncPreviewItem& item) {
    return item.deed == SyncDeed::deleteHere || item.deed == SyncDeed::deleteOnDevice;
}

/// What wants a decision stands first, what is left alone last.
int rank(const SyncPreviewItem& item) {
    if (!item.deed)
        return 3;
    return isDeletion(item) ? 0 : item.deed == SyncDeed::keepBoth ? 1 : 2;
}

QString actionText(const SyncPreviewItem& item) {
    if (item.deed)
        return deedText(*item.deed, SyncTense::planned);
    const QString left = SyncPreviewDialog::tr("Leave as it is");
    return item.reason ? left + QStringLiteral(": ") + errorText(*item.reason).what : left;
}

} // namespace

SyncPreviewDialog::SyncPreviewDialog(QWidget* parent)
    : QDialog(parent),
      title_(new QLabel),
      counts_(new QLabel),
      warning_(new QLabel),
      busy_(new QProgressBar),
      list_(new QTreeWidget) {
    setObjectName(QStringLiteral("syncPreview"));
    setWindowTitle(tr("What Will Happen"));
    resize(680, 460);
    title_->setFont(demiBold(title_->font()));
    for (QLabel* label : {title_, counts_, warning_})
        label->setWordWrap(true);
    QPalette red = warning_->palette();
    red.setColor(QPalette::WindowText, QColor(206, 58, 58));
    warning_->setPalette(red);
    busy_->setRange(0, 0);
    busy_->setTextVisible(false);
    list_->setAccessibleName(tr("What Will Happen"));
    setUpSyncFileList(*list_, tr("Action"));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    run_ = buttons->addButton(tr("Sync Now"), QDialogButtonBox::AcceptRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(10);
    for (QWidget* each : std::initializer_list<QWidget*>{title_, counts_, warning_, busy_})
        column->addWidget(each);
    column->addWidget(list_, 1);
    column->addWidget(buttons);
    cancel_ = buttons->button(QDialogButtonBox::Cancel);
    cancel_->setAutoDefault(false);
    run_->setDefault(true); // the dialog has it only now
    makePlain(*this);
}

void SyncPreviewDialog::show(const SyncViewModel::Preview& preview) {
    busy_->setVisible(preview.isLoading());
    run_->setEnabled(preview.plan.has_value());
    warning_->setText(preview.plan    ? guardText(preview.plan->guard)
                      : preview.error ? errorText(*preview.error).text()
                                      : QString());
    warning_->setVisible(!warning_->text().isEmpty());
    list_->setVisible(preview.plan.has_value());
    counts_->setVisible(preview.plan.has_value());
    if (preview.plan)
        fill(*preview.plan);
    else
        title_->setText(preview.isLoading() ? tr("Comparing the folders…")
                                            : tr("The folders cannot be compared"));
    QDialog::show();
}

QTreeWidgetItem* SyncPreviewDialog::makeRow(const SyncPreviewItem& item, bool isGuarded) {
    auto* row = makeSyncFileRow(item.path, item.size, actionText(item));
    row->setIcon(0, icon(item.deed ? deedIcon(*item.deed) : "dialog-warning"));
    if (isDeletion(item)) {
        // What looks like a mistake is not confirmed by a click on the way.
        row->setCheckState(0, isGuarded ? Qt::Unchecked : Qt::Checked);
        deletions_.insert(item.path, row);
    } else if (item.deed == SyncDeed::keepBoth) {
        conflicts_.insert(item.path, row);
    }
    return row;
}

void SyncPreviewDialog::fill(const SyncPreview& plan) {
    list_->clear();
    deletions_.clear();
    conflicts_.clear();
    choices_.clear();
    guard_ = plan.guard.kind;
    std::vector<const SyncPreviewItem*> items;
    for (const SyncPreviewItem& item : plan.items)
        items.push_back(&item);
    std::stable_sort(items.begin(), items.end(),
                     [](const auto* a, const auto* b) { return rank(*a) < rank(*b); });
    QList<QTreeWidgetItem*> rows;
    for (const SyncPreviewItem* item : items)
        rows.append(makeRow(*item, guard_ != SyncGuard::Kind::nothing));
    list_->addTopLevelItems(rows);
    addChoices();
    QStringList parts;
    if (!items.empty())
        parts.append(
            tr("%Ln files to go through, %1 to copy", nullptr, static_cast<int>(items.size()))
                .arg(formatBytes(plan.totalBytes)));
    if (items.empty() || plan.inSync > 0)
        parts.append(tr("%Ln files are the same already", nullptr, static_cast<int>(plan.inSync)));
    // Return changes nothing where something may go, or comes back that was meant to be gone.
    const bool isRisky = guard_ != SyncGuard::Kind::nothing || !deletions_.isEmpty();
    (isRisky ? cancel_ : run_)->setDefault(true);
    const bool isSideEmpty =
        guard_ == SyncGuard::Kind::localEmpty || guard_ == SyncGuard::Kind::deviceEmpty;
    run_->setText(isSideEmpty && deletions_.isEmpty() ? tr("Copy Everything Again")
                                                      : tr("Sync Now"));
    title_->setText(parts.join(QStringLiteral("  ·  ")));
    counts_->setText(countsText(plan.counts(), SyncTense::planned));
}

void SyncPreviewDialog::addChoices() {
    if (conflicts_.size() > mostChoices)
        return;
    for (auto it = conflicts_.constBegin(); it != conflicts_.constEnd(); ++it) {
        auto* choice = new QComboBox;
        choice->setAccessibleName(tr("Action"));
        const std::pair<QString, ConflictChoice> choices[] = {
            {deedText(SyncDeed::keepBoth, SyncTense::planned), ConflictChoice::keepBoth},
            {tr("Keep this computer's"), ConflictChoice::keepLocal},
            {tr("Keep the phone's"), ConflictChoice::keepDevice},
            {tr("Leave as it is"), ConflictChoice::leave},
        };
        for (const auto& [text, value] : choices)
            choice->addItem(text, static_cast<int>(value));
        list_->setItemWidget(it.value(), 2, choice);
        choices_.insert(it.key(), choice);
    }
}

SyncDecisions SyncPreviewDialog::decisions() const {
    SyncDecisions decisions;
    decisions.guard = guard_;
    for (auto it = deletions_.constBegin(); it != deletions_.constEnd(); ++it)
        (it.value()->checkState(0) == Qt::Checked ? decisions.deletions : decisions.kept)
            .insert(it.key());
    for (auto it = choices_.constBegin(); it != choices_.constEnd(); ++it)
        decisions.conflicts.insert(it.key(),
                                   static_cast<ConflictChoice>(it.value()->currentData().toInt()));
    return decisions;
}

} // namespace tessary
