#include "views/dialogs/DeleteQuestion.h"

#include "base/text/Printable.h"
#include "base/threads/Background.h"
#include "transfer/copy/ContentCount.h"
#include "views/common/PlainText.h"

#include <QCoreApplication>
#include <QMessageBox>

#include <algorithm>
#include <limits>

namespace tessary {

namespace {

/// The context of this file's texts.
class DeleteQuestion {
    Q_DECLARE_TR_FUNCTIONS(DeleteQuestion)
};

constexpr int longestName = 360; // pixels; longer ones are cut in the middle
constexpr std::size_t mostNames = 5;

QString shortName(const FileItem& item, const QWidget& question) {
    return question.fontMetrics().elidedText(printable(item.name), Qt::ElideMiddle, longestName);
}

QString whatIsAsked(const std::vector<FileItem>& items, const QWidget& question) {
    if (items.size() > 1)
        return DeleteQuestion::tr("Delete %Ln items?", nullptr, static_cast<int>(items.size()));
    const QString name = shortName(items.front(), question);
    return items.front().isDirectory ? DeleteQuestion::tr("Delete the folder “%1”?").arg(name)
                                     : DeleteQuestion::tr("Delete “%1”?").arg(name);
}

/// A line each, and how many more there are.
QString names(const std::vector<FileItem>& items, const QWidget& question) {
    const std::size_t shown = items.size() > mostNames ? mostNames - 1 : items.size();
    QStringList lines;
    for (std::size_t i = 0; i < shown; ++i)
        lines << shortName(items[i], question);
    if (shown < items.size())
        lines << DeleteQuestion::tr("and %Ln more", nullptr,
                                    static_cast<int>(items.size() - shown));
    return lines.join(QLatin1Char('\n'));
}

QString whatFollows(DeletedGo where, int count) {
    switch (where) {
    case DeletedGo::intoTheTrash:
        return DeleteQuestion::tr("%Ln items will be moved to the trash.", nullptr, count);
    case DeletedGo::pastTheBin:
        return DeleteQuestion::tr(
                   "They go at once, and not to the phone's album “Recently Deleted”.") +
               QLatin1Char(' ') + DeleteQuestion::tr("This cannot be undone.");
    case DeletedGo::away:
        break;
    }
    return DeleteQuestion::tr("This cannot be undone.");
}

void sayWhatIsInside(QMessageBox& question, const FileItem& folder, const ContentCount& count) {
    const qint64 inside = count.files + count.folders;
    if (inside == 0 || count.unreadable > 0)
        return;
    question.setText(DeleteQuestion::tr("Delete the folder “%1” and the %Ln items in it?", nullptr,
                                        static_cast<int>(std::min<qint64>(
                                            inside, std::numeric_limits<int>::max())))
                         .arg(shortName(folder, question)));
}

} // namespace

bool askToDelete(QWidget& parent, const std::shared_ptr<PhoneFileSystem>& files,
                 const std::vector<FileItem>& items, DeletedGo where, bool readsThem,
                 const QString& copiedTo) {
    QMessageBox question(&parent);
    question.setIcon(QMessageBox::Warning);
    question.setWindowTitle(DeleteQuestion::tr("Delete"));
    question.setText(whatIsAsked(items, question));
    QStringList body;
    if (items.size() > 1)
        body << names(items, question) << QString();
    if (!copiedTo.isEmpty())
        body << DeleteQuestion::tr("The copy to “%1” is taken back.").arg(printable(copiedTo));
    if (readsThem)
        body << DeleteQuestion::tr("A copy is still under way: what it has not read yet will be "
                                   "missing there.");
    body << whatFollows(where, static_cast<int>(items.size()));
    question.setInformativeText(body.join(QLatin1Char('\n')));
    std::stop_source counting(std::nostopstate);
    if (items.size() == 1 && items.front().isDirectory)
        counting = runInBackground(
            &question,
            [files, items](const std::stop_token& stop) {
                return countContent(*files, items, {}, {stop, Urgency::copy});
            },
            [&question, &items](BackgroundResult<ContentCount> result) {
                if (result.succeeded())
                    sayWhatIsInside(question, items.front(), result.take());
            });
    const bool agrees = isAgreed(question, DeleteQuestion::tr("Delete"));
    counting.request_stop();
    return agrees;
}

} // namespace tessary
