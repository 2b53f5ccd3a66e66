#include "browser/actions/PreviewFetch.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"
#include "base/threads/TellLatest.h"
#include "transfer/staging/StagedFiles.h"

namespace tessary {

PreviewFetch::~PreviewFetch() {
    stop_.request_stop();
}

void PreviewFetch::start(std::shared_ptr<PhoneFileSystem> files, const FileItem& item,
                         const QString& id) {
    cancel();
    const std::uint64_t number = number_;
    const auto tell = tellLatest<qint64>(this, [this, id, number, total = item.size](qint64 done) {
        if (number == number_)
            Q_EMIT progress(id, done, total);
    });
    stop_ = runInBackground(
        this,
        [files = std::move(files), item, &copies = copies_, tell](const std::stop_token& stop) {
            return copies.fetch(*files, item, tell, stop);
        },
        [this, id, number](BackgroundResult<QString> result) {
            if (number != number_)
                return;
            try {
                Q_EMIT ready(id, result.take());
            } catch (const CancellationError&) {
                // Nobody waits for it.
            } catch (const Error& error) {
                DiagnosticsLogger::shared().ui.error("Failed to cache file for preview: %s",
                                                     {error.logText()});
                Q_EMIT failed(id, error);
            }
        });
}

void PreviewFetch::cancel() {
    ++number_;
    stop_.request_stop();
}

} // namespace tessary
