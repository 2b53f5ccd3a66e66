#include "views/sync/SyncPairSheet.h"

#include "app/Translations.h"
#include "app/texts/DisplayNames.h"
#include "base/text/Printable.h"
#include "sync/manager/SyncViewModel.h"
#include "views/common/PlainText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tessary {

SyncPairSheet::SyncPairSheet(SyncPair draft, ChooseFolder chooseFolder, QWidget* parent)
    : QDialog(parent),
      pair_(std::move(draft)),
      chooseFolder_(std::move(chooseFolder)),
      folder_(new QLineEdit(QDir::toNativeSeparators(pair_.localFolderPath))),
      mode_(new QComboBox),
      deletes_(
          new QCheckBox(tr("A file deleted on one side is deleted on the other, after asking"))),
      moves_(new QCheckBox(tr("Remove files from where they came once they have arrived"))),
      sentence_(new QLabel),
      next_(nullptr) {
    setObjectName(QStringLiteral("syncPairSheet"));
    setWindowTitle(tr("Sync This Folder"));
    setMinimumWidth(520);
    folder_->setObjectName(QStringLiteral("syncLocalFolder"));
    folder_->setAccessibleName(tr("Folder on this computer"));
    mode_->setAccessibleName(tr("Direction"));
    mode_->addItem(tr("Both ways"), static_cast<int>(SyncMode::biDirectional));
    mode_->addItem(tr("Only to the phone"), static_cast<int>(SyncMode::toiPhone));
    mode_->addItem(tr("Only to this computer"), static_cast<int>(SyncMode::toMac));
    mode_->setCurrentIndex(mode_->findData(static_cast<int>(pair_.syncMode)));
    deletes_->setChecked(pair_.deleteSyncEnabled);
    moves_->setChecked(pair_.moveFilesEnabled);
    sentence_->setWordWrap(true);
    sentence_->setObjectName(QStringLiteral("syncSentence"));
    sentence_->setMinimumHeight(sentence_->fontMetrics().height() * 3);
    sentence_->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    auto* choose = new QPushButton(tr("Choose…"));
    connect(choose, &QPushButton::clicked, this, [this] {
        const QString chosen = chooseFolder_(this, folder_->text());
        if (!chosen.isEmpty())
            folder_->setText(QDir::toNativeSeparators(chosen));
    });
    auto* folderRow = new QHBoxLayout;
    folderRow->addWidget(folder_, 1);
    folderRow->addWidget(choose);
    auto* remote = new QLabel(QStringLiteral("%1: %2").arg(printable(pair_.deviceName),
                                                           printable(remoteDisplayPath(pair_))));
    auto* form = new QFormLayout;
    form->addRow(tr("Folder on the phone"), remote);
    form->addRow(tr("Folder on this computer"), folderRow);
    form->addRow(tr("Direction"), mode_);
    form->addRow(QString(), deletes_);
    form->addRow(QString(), moves_);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    next_ = buttons->addButton(tr("Show What Will Happen"), QDialogButtonBox::AcceptRole);
    next_->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(14);
    column->addLayout(form);
    column->addWidget(sentence_);
    column->addWidget(buttons);

    connect(folder_, &QLineEdit::textChanged, this, &SyncPairSheet::change);
    connect(mode_, &QComboBox::currentIndexChanged, this, &SyncPairSheet::change);
    connect(deletes_, &QCheckBox::toggled, this, &SyncPairSheet::change);
    connect(moves_, &QCheckBox::toggled, this, &SyncPairSheet::change);
    makePlain(*this);
    change();
}

void SyncPairSheet::change() {
    pair_.localFolderPath = QDir::fromNativeSeparators(folder_->text().trimmed());
    pair_.syncMode = static_cast<SyncMode>(mode_->currentData().toInt());
    pair_.deleteSyncEnabled = deletes_->isChecked();
    pair_.moveFilesEnabled = moves_->isChecked();
    const bool isTwoWay = pair_.syncMode == SyncMode::biDirectional;
    deletes_->setVisible(isTwoWay);
    moves_->setVisible(!isTwoWay);
    sentence_->setText(trMessage(SyncViewModel::sentence(pair_)));
    next_->setEnabled(QDir::isAbsolutePath(pair_.localFolderPath));
}

} // namespace tessary
