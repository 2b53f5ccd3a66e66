#include "views/dialogs/PreviewWindow.h"

#include "app/LanguageManager.h"
#include "app/texts/ErrorText.h"
#include "base/log/DiagnosticsLogger.h"
#include "base/text/Printable.h"
#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"
#include "base/threads/TellLatest.h"
#include "preview/FilmPicture.h"
#include "preview/PhoneThumbnail.h"
#include "transfer/staging/StagedFiles.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/common/PageStack.h"
#include "views/dialogs/FactsView.h"
#include "views/dialogs/PictureView.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QToolButton>

namespace tessary {

namespace {

constexpr int walkingPace = 120; // ms that an entry stays before it is fetched
constexpr int shownSide = 2560;  // pixels

QToolButton* footerButton(const char* iconName) {
    auto* button = new QToolButton;
    button->setIcon(icon(iconName));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus); // the keys walk through the listing
    return button;
}

/// A film's first picture, or the small one that the phone itself has of it.
Picture pictureOfFilm(PhoneFileSystem& files, const FileItem& item, const PictureDecoder& decoder,
                      const std::stop_token& stop) {
    try {
        return firstPictureOf(files, item, shownSide, stop);
    } catch (const PictureError&) {
        const auto own = phoneThumbnail(files, item, stop);
        if (!own)
            throw;
        return decoder.decode(*own, shownSide, stop);
    }
}

} // namespace

PreviewWindow::PreviewWindow(FileBrowserViewModel& browser, std::function<int()> columns,
                             QWidget* parent)
    : QDialog(parent),
      browser_(browser),
      columns_(std::move(columns)),
      stack_(new PageStack),
      facts_(new FactsView),
      picture_(new PictureView),
      text_(new QPlainTextEdit),
      caption_(new QLabel),
      pageLabel_(new QLabel),
      previous_(footerButton("go-previous")),
      next_(footerButton("go-next")),
      previousPage_(footerButton("go-up")),
      nextPage_(footerButton("go-down")) {
    setObjectName(QStringLiteral("previewWindow"));
    resize(820, 620);
    setMinimumSize(480, 360);
    text_->setObjectName(QStringLiteral("previewText"));
    text_->setReadOnly(true);
    text_->setFrameShape(QFrame::NoFrame);
    text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text_->document()->setDocumentMargin(16);
    stack_->setAutoFillBackground(true);
    stack_->setBackgroundRole(QPalette::Base);
    for (QWidget* page : std::initializer_list<QWidget*>{facts_, picture_, text_})
        stack_->addWidget(page);
    // The window has one thing to walk through, wherever the focus is.
    installEventFilter(this);
    text_->installEventFilter(this);
    facts_->setOnCancel([this] {
        drop();
        showFacts(tr("Cancelled"));
    });

    auto* column = makeColumn(*this);
    column->addWidget(stack_, 1);
    column->addWidget(makeFooter());
    fetchTimer_.setSingleShot(true);
    fetchTimer_.setInterval(walkingPace);
    connect(&fetchTimer_, &QTimer::timeout, this, &PreviewWindow::fetch);

    connect(&browser.selection(), &EntrySelection::changed, this, &PreviewWindow::follow);
    connect(&browser, &FileBrowserViewModel::stateChanged, this, &PreviewWindow::follow);
}

PreviewWindow::~PreviewWindow() {
    stop_.request_stop();
}

QWidget* PreviewWindow::makeFooter() {
    connect(previous_, &QToolButton::clicked, this, [this] { browser_.selection().move(-1); });
    connect(next_, &QToolButton::clicked, this, [this] { browser_.selection().move(1); });
    connect(previousPage_, &QToolButton::clicked, this, [this] { turnTo(page_ - 1); });
    connect(nextPage_, &QToolButton::clicked, this, [this] { turnTo(page_ + 1); });
    keepTranslated(this, [this] {
        setName(*previous_, tr("Previous"));
        setName(*next_, tr("Next"));
        setName(*previousPage_, tr("Previous Page"));
        setName(*nextPage_, tr("Next Page"));
        text_->setAccessibleName(tr("Preview"));
    });
    caption_->setObjectName(QStringLiteral("previewCaption"));
    caption_->setTextFormat(Qt::PlainText);
    caption_->setForegroundRole(QPalette::PlaceholderText);
    caption_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    pageLabel_->setObjectName(QStringLiteral("previewPage"));

    auto* footer = new QWidget;
    auto* row = new QHBoxLayout(footer);
    row->setContentsMargins(8, 6, 12, 6);
    row->setSpacing(4);
    row->addWidget(previous_);
    row->addWidget(next_);
    row->addSpacing(8);
    row->addWidget(caption_, 1);
    row->addWidget(pageLabel_);
    row->addWidget(previousPage_);
    row->addWidget(nextPage_);
    return footer;
}

void PreviewWindow::toggle() {
    if (isVisible()) {
        hide();
        return;
    }
    show();
    raise();
    activateWindow();
    setFocus();
    follow();
}

void PreviewWindow::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    drop();
    item_.reset();
}

/// Gives up what is under way, and the room of what was shown.
void PreviewWindow::drop() {
    ++number_;
    fetchTimer_.stop();
    stop_.request_stop();
    localFile_.clear();
    page_ = 0;
    pages_ = 1;
    picture_->setImage({});
    text_->clear();
}

/// Shows the entry that the keyboard is on.
void PreviewWindow::follow() {
    if (!isVisible())
        return;
    const auto& current = browser_.selection().currentId();
    const FileItem* item = current ? browser_.itemWithId(*current) : nullptr;
    if (item == nullptr || browser_.state() != BrowserState::ready) {
        if (!browser_.isLoading()) { // else it may come yet
            hide();
        } else if (localFile_.isEmpty()) { // nor does another folder wait for what is on its way
            drop();
            item_.reset();
        }
        return;
    }
    previous_->setEnabled(browser_.selection().canMove(-1));
    next_->setEnabled(browser_.selection().canMove(1));
    if (item_ == *item)
        return;
    const bool isFirst = !item_;
    drop();
    item_ = *item;
    kind_ = previewKindOf(*item_);
    setWindowTitle(printable(item_->name));
    facts_->setItem(*item_);
    showFacts({});
    if (kind_ == PreviewKind::facts || item_->size == 0)
        return;
    if (kind_ != PreviewKind::film && item_->size > previewLimit(kind_)) {
        showFacts(tr("“%1” is too large for a preview. Copy it to this computer first.")
                      .arg(printable(item_->name)));
        return;
    }
    fetchTimer_.start(isFirst ? 0 : walkingPace);
}

void PreviewWindow::fetch() {
    facts_->showProgress(0, 0);
    if (kind_ == PreviewKind::film) {
        decode([decoder = decoder_, files = browser_.files(),
                item = *item_](const std::stop_token& stop) {
            return pictureOfFilm(*files, item, decoder, stop);
        });
        return;
    }
    const auto tell =
        tellLatest<qint64>(this, [this, number = number_, total = item_->size](qint64 done) {
            if (number == number_)
                facts_->showProgress(done, total);
        });
    stop_ = runInBackground(
        this,
        [&copies = browser_.stagedFiles(), files = browser_.files(), item = *item_,
         tell](const std::stop_token& stop) { return copies.fetch(*files, item, tell, stop); },
        [this, number = number_](BackgroundResult<QString> result) {
            if (number != number_)
                return;
            try {
                showFile(result.take());
            } catch (const CancellationError&) {
                // Nobody waits for it.
            } catch (const Error& error) {
                DiagnosticsLogger::shared().ui.error("Failed to cache file for preview: %s",
                                                     {error.logText()});
                showFacts(errorText(error).what);
            }
        });
}

void PreviewWindow::showFile(const QString& localFile) {
    localFile_ = localFile;
    if (kind_ != PreviewKind::text) {
        turnTo(0);
        return;
    }
    stop_ = runInBackground(
        this, [localFile] { return readTextSample(localFile); },
        [this, number = number_](BackgroundResult<std::optional<TextSample>> result) {
            if (number == number_)
                showText(result.succeeded() ? result.take() : std::nullopt);
        });
}

void PreviewWindow::turnTo(int page) {
    if (localFile_.isEmpty() || page < 0 || page >= pages_)
        return;
    stop_.request_stop();
    page_ = page;
    decode([decoder = decoder_, request = PictureRequest{localFile_, shownSide, page}](
               const std::stop_token& stop) { return decoder.decode(request, stop); });
}

void PreviewWindow::decode(std::function<Picture(const std::stop_token&)> work) {
    stop_ = runInBackground(
        this, std::move(work), [this, number = ++number_](BackgroundResult<Picture> result) {
            if (number != number_)
                return;
            try {
                showPicture(result.take());
            } catch (const CancellationError&) {
                // Another one is on its way.
            } catch (const Error& error) {
                showFacts(errorText(error).what);
            } catch (const std::exception&) {
                showFacts(tr("It cannot be shown: it is damaged, too large or protected."));
            }
        });
}

void PreviewWindow::showText(const std::optional<TextSample>& sample) {
    if (!sample) {
        showFacts({});
        return;
    }
    text_->setPlainText(sample->text);
    stack_->setCurrentWidget(text_);
    text_->setFocus();
    QString caption = factsLine(*item_);
    if (sample->isCut)
        caption += QStringLiteral("  ·  ") + tr("only its beginning is shown");
    caption_->setText(caption);
}

void PreviewWindow::showPicture(const Picture& picture) {
    pages_ = picture.pages;
    picture_->setImage(picture.image);
    picture_->setAccessibleName(printable(item_->name));
    stack_->setCurrentWidget(picture_);
    setFocus();
    QString caption = factsLine(*item_);
    if (!picture.fullSize.isEmpty())
        caption += QStringLiteral("  ·  %1 × %2")
                       .arg(picture.fullSize.width())
                       .arg(picture.fullSize.height());
    caption_->setText(caption);
    const bool hasPages = kind_ == PreviewKind::document;
    pageLabel_->setText(hasPages ? tr("Page %1 of %2").arg(page_ + 1).arg(pages_) : QString());
    previousPage_->setVisible(hasPages);
    nextPage_->setVisible(hasPages);
    previousPage_->setEnabled(page_ > 0);
    nextPage_->setEnabled(page_ + 1 < pages_);
}

void PreviewWindow::showFacts(const QString& note) {
    facts_->showNote(note);
    stack_->setCurrentWidget(facts_);
    setFocus();
    caption_->clear(); // the facts stand above it
    pageLabel_->clear();
    previousPage_->hide();
    nextPage_->hide();
}

bool PreviewWindow::handleKey(const QKeyEvent& event) {
    const auto keys = event.modifiers() & ~Qt::KeypadModifier;
    if (keys != Qt::NoModifier)
        return false;
    const int columns = columns_();
    switch (event.key()) {
    case Qt::Key_Space:
    case Qt::Key_Escape:
        hide();
        return true;
    case Qt::Key_Left:
        browser_.selection().move(-1);
        return true;
    case Qt::Key_Right:
        browser_.selection().move(1);
        return true;
    case Qt::Key_Up:
        browser_.selection().move(-columns);
        return true;
    case Qt::Key_Down:
        browser_.selection().move(columns);
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (kind_ != PreviewKind::document)
            return false;
        turnTo(event.key() == Qt::Key_PageUp ? page_ - 1 : page_ + 1);
        return true;
    default:
        return false;
    }
}

bool PreviewWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && handleKey(*static_cast<QKeyEvent*>(event)))
        return true;
    return QDialog::eventFilter(watched, event);
}

} // namespace tessary
