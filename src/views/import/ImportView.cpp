#include "views/import/ImportView.h"

#include "app/LanguageManager.h"
#include "app/texts/SharedWords.h"
#include "base/text/ByteFormat.h"
#include "base/text/Printable.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/common/PageStack.h"
#include "views/common/PlaceholderView.h"
#include "views/common/PlainText.h"
#include "views/import/PhotoDelegate.h"
#include "views/import/PhotoListModel.h"
#include "views/listing/ThumbnailStore.h"

#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

namespace tessary {

namespace {

using State = ImportViewModel::State;

constexpr QLatin1StringView folderKey("importFolder");
constexpr QLatin1StringView byDateKey("importByDate");

ThumbnailSource sourceOf(ImportViewModel& import, CopyQueue& queue) {
    return {[&import](const QString& id) {
                const Photo* photo = import.photo(id);
                return photo == nullptr ? nullptr : &photo->files.front();
            },
            [&import] { return import.files(); },
            [&import, &queue] {
                return import.state() == State::choosing && queue.summary().isIdle();
            }};
}

QListView* makeList() {
    auto* list = new QListView;
    list->setObjectName(QStringLiteral("photoList"));
    list->setViewMode(QListView::IconMode);
    list->setResizeMode(QListView::Adjust);
    list->setMovement(QListView::Static);
    list->setSelectionMode(QAbstractItemView::NoSelection);
    list->setFrameShape(QFrame::NoFrame);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list->setSpacing(2);
    list->setIconSize({PhotoDelegate::pictureSide, PhotoDelegate::pictureSide});
    return list;
}

} // namespace

ImportView::ImportView(const Setup& setup)
    : import_(setup.import),
      queue_(setup.queue),
      defaults_(setup.defaults),
      showInFolder_(setup.showInFolder),
      photos_(new PhotoListModel(setup.import, this)),
      thumbnails_(new ThumbnailStore(sourceOf(setup.import, setup.queue),
                                     PhotoDelegate::pictureSide, setup.copies, this)),
      title_(new QLabel),
      all_(new QCheckBox),
      stack_(new PageStack),
      list_(makeList()),
      placeholder_(new PlaceholderView),
      progress_(new QProgressBar),
      count_(new QLabel),
      target_(new QPushButton),
      byDate_(new QCheckBox),
      leave_(new QPushButton),
      proceed_(new QPushButton) {
    setObjectName(QStringLiteral("importView"));
    target_->setObjectName(QStringLiteral("importFolder"));
    byDate_->setObjectName(QStringLiteral("importByDate"));
    leave_->setObjectName(QStringLiteral("importLeave"));
    proceed_->setObjectName(QStringLiteral("importProceed"));
    folder_ = defaults_.value(folderKey).toString(
        QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
    byDate_->setChecked(defaults_.value(byDateKey).toBool(true));
    title_->setFont(demiBold(title_->font()));
    proceed_->setDefault(true);
    target_->setIcon(icon("folder"));
    list_->setModel(photos_);
    list_->setItemDelegate(new PhotoDelegate(*list_, *thumbnails_));
    thumbnails_->setIsVisible([this](const QString& id) {
        return list_->isVisible() &&
               list_->viewport()->rect().intersects(list_->visualRect(photos_->indexOf(id)));
    });
    stack_->addWidget(list_);
    stack_->addWidget(placeholder_);
    setFocusProxy(stack_);

    auto* top = new QHBoxLayout;
    top->setContentsMargins(18, 9, 10, 9);
    top->addWidget(title_);
    top->addStretch(1);
    top->addWidget(all_);
    auto* where = new QHBoxLayout;
    where->addWidget(byDate_);
    where->addStretch(1);
    where->addWidget(target_);
    auto* last = new QHBoxLayout;
    last->addWidget(count_);
    last->addWidget(progress_, 1);
    last->addStretch(0);
    last->addWidget(leave_);
    last->addWidget(proceed_);
    auto* bottom = new QVBoxLayout;
    bottom->setContentsMargins(14, 8, 10, 8);
    bottom->setSpacing(8);
    bottom->addLayout(where);
    bottom->addLayout(last);
    auto* column = makeColumn(*this);
    column->addLayout(top);
    column->addWidget(stack_, 1);
    column->addLayout(bottom);

    connect(thumbnails_, &ThumbnailStore::thumbnailReady, this,
            [this](const QString& id) { list_->update(photos_->indexOf(id)); });
    connect(&import_, &ImportViewModel::photosChanged, thumbnails_, &ThumbnailStore::startOver);
    connect(&queue_, &CopyQueue::summaryChanged, thumbnails_, &ThumbnailStore::pauseOrGoOn);
    connect(&import_, &ImportViewModel::stateChanged, this, [this] {
        thumbnails_->pauseOrGoOn();
        show();
    });
    connect(&import_, &ImportViewModel::chosenChanged, this, &ImportView::show);
    connect(all_, &QCheckBox::toggled, this, [this](bool isOn) { import_.setShowsFetched(isOn); });
    connect(byDate_, &QCheckBox::toggled, this,
            [this](bool isOn) { defaults_.setValue(byDateKey, isOn); });
    connect(target_, &QPushButton::clicked, this, &ImportView::chooseFolder);
    connect(proceed_, &QPushButton::clicked, this, &ImportView::proceed);
    connect(leave_, &QPushButton::clicked, this, [this] {
        if (import_.state() == State::copying)
            import_.cancelCopy();
        else if (import_.state() == State::removing)
            import_.cancelRemoval();
        else
            import_.close();
    });
    keepTranslated(this, [this] { showTexts(); });
}

void ImportView::showTexts() {
    all_->setText(tr("Also What Was Imported Before"));
    byDate_->setText(tr("A Folder for Each Day"));
    target_->setToolTip(words::folderOnThisComputer());
    list_->setAccessibleName(tr("Photos & Videos"));
    show();
}

void ImportView::show() {
    const State state = import_.state();
    const DeviceInfo& device = import_.device();
    title_->setText(tr("Import from %1").arg(printable(device.deviceName.value_or(device.udid))));
    const QString shown =
        QFontMetrics(target_->font())
            .elidedText(printable(QDir::toNativeSeparators(folder_)), Qt::ElideMiddle, 260);
    target_->setText(QString(shown).replace(QLatin1Char('&'), QStringLiteral("&&")));
    const bool isChoosing = state == State::choosing;
    const bool hasPhotos = isChoosing && !import_.photos().empty();
    all_->setVisible(isChoosing && import_.countOfAll() > 0);
    all_->setChecked(import_.showsFetched());
    byDate_->setVisible(hasPhotos);
    target_->setVisible(hasPhotos);
    count_->setVisible(hasPhotos);
    progress_->setVisible(state == State::copying);
    proceed_->setEnabled(true);
    proceed_->setVisible(hasPhotos || state == State::failed || state == State::copied ||
                         state == State::removed);
    const bool isUnderWay = state == State::copying || state == State::removing;
    leave_->setText(isUnderWay ? tr("Cancel") : tr("Close"));
    const CopyJob* copy = import_.job();
    leave_->setEnabled(state != State::copying || copy == nullptr ||
                       copy->status != CopyJob::Status::cancelled);
    switch (state) {
    case State::closed:
        break;
    case State::looking:
        showPlaceholder(QStringLiteral("camera-photo"), tr("Looking for photos and videos…"),
                        tr("%Ln files found", nullptr, static_cast<int>(import_.filesFound())),
                        true);
        break;
    case State::failed: {
        const ErrorText words = errorText(*import_.problem());
        showPlaceholder(QStringLiteral("dialog-error"), words.what, words.advice);
        placeholder_->setDetails(words.details);
        proceed_->setText(tr("Retry"));
        break;
    }
    case State::choosing:
        showChoice();
        break;
    case State::copying:
        showCopy();
        break;
    case State::copied:
        showEnd();
        break;
    case State::removing:
        showPlaceholder(QStringLiteral("edit-delete"), tr("Deleting from the phone…"),
                        tr("%1 of %2").arg(import_.removedSoFar()).arg(import_.arrivedCount()),
                        true);
        break;
    case State::removed:
        showRemoval();
        break;
    }
}

void ImportView::showPlaceholder(const QString& iconName, const QString& title,
                                 const QString& detail, bool isBusy) {
    placeholder_->show(iconName, title, detail, {}, {}, isBusy);
    stack_->setCurrentWidget(placeholder_);
}

void ImportView::showChoice() {
    const auto unreadable = static_cast<int>(import_.unreadableCount());
    const QString left =
        unreadable == 0 ? QString() : tr("%Ln entries could not be read.", nullptr, unreadable);
    if (import_.photos().empty()) {
        const bool hasAny = import_.countOfAll() > 0;
        const QString detail = hasAny ? tr("All of this phone was imported before.") : QString();
        showPlaceholder(QStringLiteral("camera-photo"),
                        hasAny ? tr("No new photos") : tr("No photos or videos"),
                        QStringList{detail, left}.join(QLatin1Char('\n')).trimmed());
        return;
    }
    stack_->setCurrentWidget(list_);
    QString text = tr("%Ln chosen", nullptr, import_.chosenCount()) + QStringLiteral("  ·  ") +
                   formatBytes(import_.chosenBytes());
    if (!left.isEmpty())
        text += QStringLiteral("  ·  ") + left;
    count_->setText(text);
    proceed_->setText(tr("Import"));
    proceed_->setEnabled(import_.chosenCount() > 0);
}

void ImportView::showCopy() {
    const CopyJob* job = import_.job();
    constexpr int whole = 1000;
    progress_->setRange(0, job == nullptr ? 0 : whole);
    progress_->setValue(job == nullptr ? 0 : static_cast<int>(job->fractionDone() * whole));
    const QString detail =
        job == nullptr
            ? QString()
            : tr("%1 of %2 files").arg(job->progress.completedFiles).arg(job->progress.totalFiles);
    showPlaceholder(QStringLiteral("document-import"), tr("Importing…"), detail);
}

void ImportView::showEnd() {
    const CopyJob* job = import_.job();
    const int arrived = import_.arrivedCount();
    const bool isAll = job == nullptr || job->status == CopyJob::Status::done;
    QStringList lines;
    if (arrived > 0)
        lines << tr("They were compared with those on the phone, and lie in %1.")
                     .arg(printable(QDir::toNativeSeparators(import_.folder())));
    if (!isAll)
        lines << tr("Not everything arrived: the list of copies below says why.");
    placeholder_->show(isAll ? QStringLiteral("dialog-ok") : QStringLiteral("dialog-warning"),
                       tr("%Ln photos and videos imported", nullptr, arrived),
                       lines.join(QLatin1Char('\n')),
                       arrived > 0 ? tr("Show in Folder") : QString(),
                       [this] { showInFolder_(import_.folder()); });
    if (arrived > 0)
        placeholder_->addChoice(tr("Delete from the Phone…"), [this] { askAndRemove(); });
    stack_->setCurrentWidget(placeholder_);
    proceed_->setText(tr("Import More"));
}

ErrorText ImportView::removalText(const ImportRemoval& removal) {
    QStringList lines;
    QString details;
    if (!removal.leftOut.empty()) {
        lines << tr("%Ln files stayed, the first because: %1", nullptr,
                    static_cast<int>(removal.leftOut.size()))
                     .arg(reasonText(removal.leftOut.front().error));
        details = errorText(removal.leftOut.front().error).details;
    }
    if (removal.failure) {
        const ErrorText words = errorText(*removal.failure);
        lines << words.text();
        details = words.details;
    }
    return {tr("%Ln photos and videos deleted from the phone", nullptr,
               static_cast<int>(removal.photos)),
            lines.join(QLatin1Char('\n')), details};
}

void ImportView::showRemoval() {
    const ImportRemoval& removal = import_.removal();
    const ErrorText words = removalText(removal);
    const bool isAll = words.advice.isEmpty() && !removal.isCancelled;
    showPlaceholder(isAll ? QStringLiteral("dialog-ok") : QStringLiteral("dialog-warning"),
                    words.what, words.advice);
    placeholder_->setDetails(words.details);
    proceed_->setText(tr("Import More"));
}

void ImportView::chooseFolder() {
    const QString chosen =
        QFileDialog::getExistingDirectory(this, words::folderOnThisComputer(), folder_);
    if (chosen.isEmpty())
        return;
    folder_ = chosen;
    defaults_.setValue(folderKey, folder_);
    show();
}

void ImportView::proceed() {
    if (import_.state() == State::choosing)
        import_.start(folder_, byDate_->isChecked());
    else if (import_.state() == State::failed)
        import_.lookAgain();
    else
        import_.chooseMore();
}

void ImportView::askAndRemove() {
    QMessageBox question(
        QMessageBox::Warning, tr("Delete from the Phone…"),
        tr("Delete %Ln photos and videos from the phone?", nullptr, import_.arrivedCount()),
        QMessageBox::NoButton, this);
    const bool isIPhone = import_.device().platform == DevicePlatform::iOS;
    question.setInformativeText(
        (isIPhone ? tr("They go at once, and not to the phone's album “Recently Deleted”.") +
                        QLatin1Char(' ')
                  : QString()) +
        tr("Each copy on this computer is read once more before. This cannot be undone."));
    if (isAgreed(question, tr("Delete")))
        import_.removeFromPhone();
}

} // namespace tessary
