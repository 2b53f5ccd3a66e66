#include "transfer/TransferEnd.h"

#include "base/threads/CancellationError.h"
#include "transfer/TransferJob.h"

namespace tessary {

TransferEnd TransferEnd::from(const std::exception_ptr& error, FileAccess* files) {
    TransferEnd end;
    end.error = error;
    if (!error)
        return end;
    try {
        std::rethrow_exception(error);
    } catch (const CancellationError&) {
        end.isCancelled = true;
    } catch (const IncompleteTransferError& incomplete) {
        end.words.message = QString::fromUtf8(incomplete.what());
        end.skipped = incomplete.outcome().skipped;
    } catch (const std::exception& other) {
        end.words = files ? adviceFor(other, *files) : adviceFor(other);
    } catch (...) {
        end.words.message = QStringLiteral("The copy failed for an unknown reason.");
    }
    return end;
}

} // namespace tessary
