#pragma once

#include "browser/model/FileBrowserViewModel.h"
#include "preview/PictureDecoder.h"
#include "preview/PreviewKind.h"
#include "preview/TextSample.h"

#include <QDialog>
#include <QTimer>

#include <functional>
#include <optional>
#include <stop_token>

class QLabel;
class QPlainTextEdit;
class QStackedWidget;
class QToolButton;

namespace tessary {

class FactsView;
class PictureView;

/// What the entry that the keyboard is on looks like, in a window of its own: pictures, pages of
/// documents, the first picture of films, the beginning of texts, and the facts of everything else.
/// Arrow keys walk on through the listing, space and escape close it. It follows the browser's
/// selection while it is open.
class PreviewWindow : public QDialog {
    Q_OBJECT

public:
    /// `browser` must outlive the window. `columns` tells how many entries stand beside one
    /// another in the listing.
    PreviewWindow(FileBrowserViewModel& browser, std::function<int()> columns, QWidget* parent);

    /// Gives up what is under way.
    ~PreviewWindow() override;

    /// Opens the window on the current entry, or closes it.
    void toggle();
    /// The entry that is shown.
    [[nodiscard]] const std::optional<FileItem>& item() const {
        return item_;
    }

protected:
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeFooter();
    void follow();
    void fetch();
    void showFile(const QString& localFile);
    void showText(const std::optional<TextSample>& sample);
    void showPicture(const Picture& picture);
    void showFacts(const QString& note);
    void turnTo(int page);
    void decode(std::function<Picture(const std::stop_token&)> work);
    void drop();
    bool handleKey(const QKeyEvent& event);

    FileBrowserViewModel& browser_;
    const std::function<int()> columns_;
    const PictureDecoder decoder_;

    std::optional<FileItem> item_;
    PreviewKind kind_ = PreviewKind::facts;
    QString localFile_;
    int page_ = 0;
    int pages_ = 1;
    std::uint64_t number_ = 0; ///< answers for an older entry or page are dropped
    std::stop_source stop_{std::nostopstate};
    QTimer fetchTimer_;

    QStackedWidget* stack_;
    FactsView* facts_;
    PictureView* picture_;
    QPlainTextEdit* text_;
    QLabel* caption_;
    QLabel* pageLabel_;
    QToolButton* previous_;
    QToolButton* next_;
    QToolButton* previousPage_;
    QToolButton* nextPage_;
};

} // namespace tessary
