#include "views/browser/OpenProgress.h"

#include "base/text/Printable.h"
#include "browser/actions/OpenFetch.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressDialog>

#include <chrono>

namespace tessary {

namespace {

/// The context of this file's texts.
class Words {
    Q_DECLARE_TR_FUNCTIONS(tessary::OpenProgress)
};

constexpr std::chrono::milliseconds aMoment{600};

} // namespace

void fetchForOpening(FileBrowserViewModel& browser, std::vector<FileItem> items, WhenHere whenHere,
                     QWidget& parent) {
    const QString text =
        items.size() == 1
            ? Words::tr("Fetching “%1” to open it…").arg(printable(items.front().name))
            : Words::tr("Fetching %Ln files to open them…", nullptr,
                        static_cast<int>(items.size()));
    constexpr int whole = 1000;
    auto* window = new QProgressDialog(&parent);
    window->setObjectName(QStringLiteral("openProgress"));
    window->setWindowTitle(Words::tr("Open"));
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    window->setLabel(label);
    window->setRange(0, whole);
    window->setAutoReset(false);
    window->setMinimumDuration(static_cast<int>(aMoment.count()));
    window->setValue(0); // the moment begins
    auto* fetch = new OpenFetch(
        {browser.files(), std::move(items), browser.dragMount(), browser.stagedFiles()}, window);
    QObject::connect(fetch, &OpenFetch::progress, window, [window](qint64 done, qint64 total) {
        const double share = total > 0 ? static_cast<double>(done) / static_cast<double>(total) : 0;
        window->setValue(static_cast<int>(share * whole));
    });
    QObject::connect(fetch, &OpenFetch::ready, window,
                     [window, whenHere = std::move(whenHere)](const QStringList& localPaths) {
                         window->deleteLater();
                         whenHere(localPaths);
                     });
    QObject::connect(fetch, &OpenFetch::failed, window,
                     [window, &browser](const BrowserProblem& problem) {
                         window->deleteLater();
                         browser.showProblem(problem);
                     });
    const auto giveUp = [window, fetch] {
        fetch->cancel();
        window->deleteLater();
    };
    QObject::connect(window, &QProgressDialog::canceled, fetch, giveUp);
    QObject::connect(window, &QDialog::rejected, fetch, giveUp); // by Esc
}

} // namespace tessary
