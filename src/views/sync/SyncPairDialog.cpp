#include "views/sync/SyncPairDialog.h"

#include "app/texts/DisplayNames.h"
#include "app/texts/SharedWords.h"
#include "app/texts/SyncTexts.h"
#include "base/text/Printable.h"
#include "views/common/PlainText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace tessary {

SyncPairDialog::SyncPairDialog(SyncPair pair, Purpose purpose, QWidget* parent)
    : QDialog(parent),
      pair_(std::move(pair)),
      folder_(new QLineEdit(QDir::toNativeSeparators(pair_.localFolderPath))),
      mode_(new QComboBox),
      deletes_(
          new QCheckBox(tr("A file deleted on one side is deleted on the other, after asking"))),
      moves_(new QCheckBox(tr("Remove files from where they came once they have arrived"))),
      runsByItself_(new QCheckBox(tr("Sync whenever this phone is plugged in"))),
      patterns_(new QPlainTextEdit(pair_.patterns.join(QLatin1Char('\n')))),
      sentence_(new QLabel) {
    setObjectName(QStringLiteral("syncPairDialog"));
    setWindowTitle(purpose == Purpose::makes ? tr("Sync This Folder") : tr("Edit This Pair"));
    setMinimumWidth(520);
    folder_->setObjectName(QStringLiteral("syncLocalFolder"));
    folder_->setAccessibleName(words::folderOnThisComputer());
    mode_->setAccessibleName(tr("Direction"));
    mode_->addItem(tr("Both ways"), static_cast<int>(SyncMode::biDirectional));
    mode_->addItem(tr("Only to the phone"), static_cast<int>(SyncMode::toPhone));
    mode_->addItem(tr("Only to this computer"), static_cast<int>(SyncMode::toComputer));
    mode_->setCurrentIndex(mode_->findData(static_cast<int>(pair_.syncMode)));
    deletes_->setChecked(pair_.deleteSyncEnabled);
    moves_->setChecked(pair_.moveFilesEnabled);
    runsByItself_->setChecked(pair_.runsWhenPluggedIn);
    patterns_->setAccessibleName(tr("Left out"));
    patterns_->setToolTip(tr("One pattern a line, by the rules of .gitignore: *.tmp, /private/"));
    patterns_->setTabChangesFocus(true);
    patterns_->setLineWrapMode(QPlainTextEdit::NoWrap);
    patterns_->setFixedHeight(patterns_->fontMetrics().lineSpacing() * 6);
    sentence_->setWordWrap(true);
    sentence_->setMinimumHeight(sentence_->fontMetrics().height() * 3);
    sentence_->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    auto* choose = new QPushButton(tr("Choose…"));
    choose->setAutoDefault(false); // Return goes on
    connect(choose, &QPushButton::clicked, this, [this] {
        const QString chosen =
            QFileDialog::getExistingDirectory(this, words::folderOnThisComputer(), folder_->text());
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
    form->addRow(words::folderOnThisComputer(), folderRow);
    form->addRow(tr("Direction"), mode_);
    for (QCheckBox* box : {deletes_, moves_, runsByItself_}) {
        form->addRow(QString(), box);
        connect(box, &QCheckBox::toggled, this, &SyncPairDialog::change);
    }
    form->addRow(tr("Left out"), patterns_);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    next_ = buttons->addButton(purpose == Purpose::makes ? tr("Show What Will Happen") : tr("Save"),
                               QDialogButtonBox::AcceptRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(14);
    column->addLayout(form);
    column->addWidget(sentence_);
    column->addWidget(buttons);

    connect(folder_, &QLineEdit::textChanged, this, &SyncPairDialog::change);
    connect(mode_, &QComboBox::currentIndexChanged, this, &SyncPairDialog::change);
    connect(patterns_, &QPlainTextEdit::textChanged, this, &SyncPairDialog::change);
    buttons->button(QDialogButtonBox::Cancel)->setAutoDefault(false);
    next_->setDefault(true); // the dialog has it only now
    makePlain(*this);
    change();
}

void SyncPairDialog::change() {
    pair_.localFolderPath = QDir::fromNativeSeparators(folder_->text().trimmed());
    pair_.syncMode = static_cast<SyncMode>(mode_->currentData().toInt());
    pair_.deleteSyncEnabled = deletes_->isChecked();
    pair_.moveFilesEnabled = moves_->isChecked();
    pair_.runsWhenPluggedIn = runsByItself_->isChecked();
    pair_.patterns = patterns_->toPlainText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const bool isTwoWay = pair_.syncMode == SyncMode::biDirectional;
    deletes_->setVisible(isTwoWay);
    moves_->setVisible(!isTwoWay);
    sentence_->setText(sentenceOf(pair_));
    next_->setEnabled(QDir::isAbsolutePath(pair_.localFolderPath));
}

} // namespace tessary
