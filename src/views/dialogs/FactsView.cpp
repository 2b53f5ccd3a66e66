#include "views/dialogs/FactsView.h"

#include "app/LanguageManager.h"
#include "app/texts/DisplayNames.h"
#include "base/text/ByteFormat.h"
#include "base/text/Printable.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tessary {

namespace {

constexpr int iconSide = 96;
constexpr int columnWidth = 440;
constexpr int steps = 1000; // of the bar

} // namespace

QString dateText(const std::optional<QDateTime>& date, QLocale::FormatType days,
                 const QLocale& locale) {
    if (!date || !date->isValid())
        return QStringLiteral("--");
    QString timeFormat = locale.timeFormat(QLocale::ShortFormat);
    timeFormat.remove(QStringLiteral(":ss"));
    const QDateTime local = date->toLocalTime();
    return QStringLiteral("%1  %2").arg(locale.toString(local.date(), days),
                                        locale.toString(local.time(), timeFormat));
}

QString factsLine(const FileItem& item) {
    QStringList facts{displayName(item.category())};
    if (!item.isDirectory)
        facts.append(formatBytes(item.size));
    if (item.modifiedDate && item.modifiedDate->isValid())
        facts.append(dateText(item.modifiedDate));
    return facts.join(QStringLiteral("  ·  "));
}

FactsView::FactsView(QWidget* parent)
    : QWidget(parent),
      icon_(new QLabel),
      name_(new QLabel),
      facts_(new QLabel),
      note_(new QLabel),
      progress_(new QProgressBar),
      cancel_(new QPushButton) {
    setObjectName(QStringLiteral("previewFacts"));
    name_->setFont(demiBold(scaled(name_->font(), 1.25)));
    for (QLabel* label : {icon_, name_, facts_, note_})
        label->setAlignment(Qt::AlignCenter);
    for (QLabel* label : {name_, facts_, note_}) {
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText);
        label->setFixedWidth(columnWidth);
    }
    facts_->setObjectName(QStringLiteral("previewFactsLine"));
    note_->setObjectName(QStringLiteral("previewNote"));
    facts_->setForegroundRole(QPalette::PlaceholderText);
    progress_->setObjectName(QStringLiteral("previewProgress"));
    progress_->setTextVisible(false);
    progress_->setFixedSize(220, 6);
    cancel_->setObjectName(QStringLiteral("previewCancel"));
    cancel_->setFocusPolicy(Qt::NoFocus); // the keys walk through the listing
    keepTranslated(this, [this] {
        cancel_->setText(tr("Cancel"));
        progress_->setAccessibleName(tr("Fetching the file"));
    });

    auto* column = new QVBoxLayout(this);
    column->setSpacing(10);
    column->addStretch(2);
    for (QWidget* widget :
         std::initializer_list<QWidget*>{icon_, name_, facts_, note_, progress_, cancel_})
        column->addWidget(widget, 0, Qt::AlignHCenter);
    column->addStretch(3);
    showNote({});
}

void FactsView::setItem(const FileItem& item) {
    icon_->setPixmap(icon(item.iconName()).pixmap(iconSide, iconSide));
    // A name without a blank in it cannot be wrapped: it would be cut off.
    constexpr int lines = 3;
    name_->setText(name_->fontMetrics().elidedText(printable(item.name), Qt::ElideMiddle,
                                                   columnWidth * lines - columnWidth / 2));
    facts_->setText(factsLine(item));
}

void FactsView::showNote(const QString& note) {
    note_->setText(note);
    note_->setVisible(!note.isEmpty());
    progress_->hide();
    cancel_->hide();
}

void FactsView::showProgress(qint64 done, qint64 total) {
    progress_->setRange(0, total > 0 ? steps : 0);
    if (total > 0)
        progress_->setValue(static_cast<int>(
            steps * std::clamp(static_cast<double>(done) / static_cast<double>(total), 0.0, 1.0)));
    progress_->show();
    cancel_->show();
    note_->setText(total > 0 ? tr("%1 of %2").arg(formatBytes(done), formatBytes(total))
                             : QString());
    note_->setVisible(total > 0);
}

void FactsView::setOnCancel(std::function<void()> cancel) {
    connect(cancel_, &QPushButton::clicked, this, [cancel = std::move(cancel)] { cancel(); });
}

} // namespace tessary
