#pragma once

#include "phone/PhoneFileSystem.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <memory>
#include <stop_token>

namespace tessary {

class StagedFiles;

/// The local copy that a preview waits for: one at a time. Lives on the main thread.
class PreviewFetch : public QObject {
    Q_OBJECT

public:
    /// `copies` must outlive this.
    explicit PreviewFetch(StagedFiles& copies, QObject* parent = nullptr)
        : QObject(parent), copies_(copies) {}
    ~PreviewFetch() override;

    /// Answers with ready() or failed(), which carry `id`. Drops the call before it.
    void start(std::shared_ptr<PhoneFileSystem> files, const FileItem& item, const QString& id);
    void cancel();

Q_SIGNALS:
    /// Not for each piece.
    void progress(const QString& id, qint64 done, qint64 total);
    void ready(const QString& id, const QString& localFile);
    void failed(const QString& id, const tessary::Error& error);

private:
    StagedFiles& copies_;
    std::uint64_t number_ = 0; ///< answers to older calls are dropped
    std::stop_source stop_{std::nostopstate};
};

} // namespace tessary
