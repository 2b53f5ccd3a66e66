#include "views/dialogs/PropertiesDialog.h"

#include "app/LanguageManager.h"
#include "app/texts/DisplayNames.h"
#include "base/text/ByteCount.h"
#include "base/text/ByteFormat.h"
#include "base/text/PathNames.h"
#include "base/text/Printable.h"
#include "base/threads/Background.h"
#include "base/threads/TellLatest.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/dialogs/FactsView.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tessary {

namespace {

constexpr int iconSide = 64;
constexpr int valueWidth = 330;

} // namespace

QString exactSizeText(qint64 bytes) {
    constexpr qint64 kilo = 1000;
    if (bytes < kilo)
        return formatBytes(bytes);
    return QStringLiteral("%1 (%2)").arg(
        formatBytes(bytes), PropertiesDialog::tr("%1 bytes", nullptr,
                                                 static_cast<int>(std::min<qint64>(bytes, INT_MAX)))
                                .arg(QLocale().toString(bytes)));
}

PropertiesDialog::PropertiesDialog(std::shared_ptr<PhoneFileSystem> files,
                                   std::vector<FileItem> items, QWidget* parent)
    : QDialog(parent),
      files_(std::move(files)),
      items_(std::move(items)),
      form_(new QFormLayout),
      note_(new QLabel),
      busy_(new QProgressBar),
      stopButton_(new QPushButton) {
    setObjectName(QStringLiteral("propertiesDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(14);
    column->setSizeConstraint(QLayout::SetFixedSize);
    makeHeading(*column);

    form_->setHorizontalSpacing(16);
    form_->setVerticalSpacing(9);
    form_->setLabelAlignment(Qt::AlignRight | Qt::AlignTop);
    const FileItem& first = items_.front();
    const bool isOne = items_.size() == 1;
    const bool isOfOneKind = std::ranges::all_of(
        items_, [&](FileCategory kind) { return kind == first.category(); }, &FileItem::category);
    addRow(QT_TR_NOOP("Kind"), "propertiesKind", [&first, isOfOneKind] {
        return isOfOneKind ? displayName(first.category()) : tr("Various kinds");
    });
    size_ = addRow(QT_TR_NOOP("Size"), "propertiesSize");
    if (std::ranges::any_of(items_, &FileItem::isDirectory))
        content_ = addRow(QT_TR_NOOP("Content"), "propertiesContent");
    if (isOne)
        addRow(QT_TR_NOOP("Date Modified"), "propertiesDate",
               [&first] { return dateText(first.modifiedDate); });
    addRow(isOne ? QT_TR_NOOP("Path") : QT_TR_NOOP("Folder"), "propertiesPath",
           [path = files_->canonicalPath(isOne ? first.path : parentPath(first.path))] {
               return printable(path);
           });
    column->addLayout(form_);

    auto* counting = new QHBoxLayout;
    makeBusy(*busy_);
    stopButton_->setObjectName(QStringLiteral("propertiesStop"));
    stopButton_->setAutoDefault(false);
    connect(stopButton_, &QPushButton::clicked, this, &PropertiesDialog::stopCount);
    counting->addWidget(busy_, 1, Qt::AlignVCenter);
    counting->addWidget(stopButton_);
    column->addLayout(counting);
    note_->setObjectName(QStringLiteral("propertiesNote"));
    note_->setWordWrap(true);
    note_->setForegroundRole(QPalette::PlaceholderText);
    column->addWidget(note_);

    auto* buttons = new QDialogButtonBox;
    auto* close = buttons->addButton(QString(), QDialogButtonBox::RejectRole);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    close->setDefault(true);
    column->addWidget(buttons);
    for (const FileItem& item : items_)
        if (!item.isDirectory) {
            ++count_.files;
            count_.bytes = addByteCounts(count_.bytes, std::max(item.size, qint64{0}));
        }
    keepTranslated(this, [this, close] {
        setWindowTitle(tr("Properties"));
        close->setText(tr("Close"));
        stopButton_->setText(tr("Stop Counting"));
        busy_->setAccessibleName(tr("Counting the content"));
        showCount();
    });
    if (content_ != nullptr)
        startCount();
    showCount();
}

PropertiesDialog::~PropertiesDialog() {
    stop_.request_stop();
}

void PropertiesDialog::makeHeading(QVBoxLayout& column) {
    auto* picture = new QLabel;
    const QString first = items_.front().iconName();
    const bool isOfOneKind = std::ranges::all_of(
        items_, [&](const QString& name) { return name == first; }, &FileItem::iconName);
    picture->setPixmap(
        icon(isOfOneKind ? first : QStringLiteral("text-x-generic")).pixmap(iconSide, iconSide));
    auto* title = new QLabel;
    title->setObjectName(QStringLiteral("propertiesTitle"));
    title->setTextFormat(Qt::PlainText);
    title->setTextInteractionFlags(Qt::TextSelectableByMouse);
    title->setFont(demiBold(scaled(title->font(), 1.2)));
    title->setWordWrap(true);
    title->setMinimumWidth(valueWidth);
    keepTranslated(title, [this, title] {
        constexpr int shownLines = 4;
        title->setText(items_.size() > 1 ? tr("%Ln items", nullptr, static_cast<int>(items_.size()))
                                         : title->fontMetrics().elidedText(
                                               printable(items_.front().name), Qt::ElideMiddle,
                                               valueWidth * shownLines));
    });
    auto* row = new QHBoxLayout;
    row->setSpacing(14);
    row->addWidget(picture);
    row->addWidget(title, 1);
    column.addLayout(row);
}

QLabel* PropertiesDialog::addRow(const char* title, const char* objectName,
                                 std::function<QString()> text) {
    auto* heading = new QLabel;
    heading->setForegroundRole(QPalette::PlaceholderText);
    auto* value = new QLabel;
    value->setObjectName(QString::fromLatin1(objectName));
    value->setTextFormat(Qt::PlainText);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    value->setWordWrap(true);
    value->setFixedWidth(valueWidth);
    form_->addRow(heading, value);
    keepTranslated(heading, [heading, value, title, text = std::move(text)] {
        heading->setText(tr(title));
        value->setAccessibleName(heading->text());
        if (text)
            value->setText(text());
    });
    return value;
}

void PropertiesDialog::showCount() {
    const bool isKnown = !wasStopped_ && !isCounting_;
    const QString bytes = exactSizeText(count_.bytes);
    size_->setText(isKnown || content_ == nullptr ? bytes : QStringLiteral("≥ ") + bytes);
    if (content_ != nullptr)
        content_->setText(
            tr("Files: %1, folders: %2")
                .arg(QLocale().toString(count_.files), QLocale().toString(count_.folders)));
    busy_->setVisible(isCounting_);
    stopButton_->setVisible(isCounting_);
    if (wasStopped_)
        note_->setText(tr("The count was stopped: there may be more."));
    else
        note_->setText(
            tr("Folders that could not be read: %1").arg(QLocale().toString(count_.unreadable)));
    note_->setVisible(wasStopped_ || count_.unreadable > 0);
}

void PropertiesDialog::startCount() {
    isCounting_ = true;
    const auto progress = tellLatest<ContentCount>(this, [this](const ContentCount& count) {
        if (!isCounting_)
            return;
        count_ = count;
        showCount();
    });
    stop_ = runInBackground(
        this,
        [files = files_, items = items_, progress](const std::stop_token& stop) {
            return countContent(*files, items, progress, {stop, Urgency::copy});
        },
        [this](BackgroundResult<ContentCount> result) {
            if (!isCounting_)
                return;
            isCounting_ = false;
            wasStopped_ = !result.succeeded();
            if (result.succeeded())
                count_ = result.take();
            showCount();
        });
}

void PropertiesDialog::stopCount() {
    stop_.request_stop();
    isCounting_ = false;
    wasStopped_ = true;
    showCount();
}

} // namespace tessary
