#pragma once

#include "ios/Multiplexer.h"

#include <QObject>

#include <memory>
#include <vector>

namespace tessary {

/// The multiplexer's list as it was last read, kept current in the background. Lives on the main
/// thread.
class MultiplexerMonitor : public QObject {
    Q_OBJECT

public:
    /// `multiplexer` may be null, and must outlive the work in the background.
    explicit MultiplexerMonitor(Multiplexer* multiplexer, QObject* parent = nullptr);
    ~MultiplexerMonitor() override;

    void start();
    /// Answers that are still to come are dropped.
    void stop();
    /// Reads the list, unless that is under way: then once more afterwards.
    void refresh();

    [[nodiscard]] const std::vector<MultiplexerEntry>& entries() const {
        return entries_;
    }
    [[nodiscard]] bool isReading() const {
        return isReading_;
    }

Q_SIGNALS:
    /// A list has been read, whether or not it differs from the last one.
    void wasRead();
    /// A device came, went or was paired; the list is read anew.
    void eventCame();

private:
    void subscribe();

    Multiplexer* const multiplexer_;
    std::unique_ptr<MultiplexerWatch> watch_;
    std::vector<MultiplexerEntry> entries_;
    bool isReading_ = false;
    bool isOutdated_ = false; ///< a reading was asked for while one was under way
    unsigned period_ = 0;     ///< counts calls of stop()
};

} // namespace tessary
