#pragma once

#include <QtGlobal>

#include <vector>

namespace tessary {

class Story;

/// Memory, descriptors and threads of this process over time. What grows from round to round is
/// lost somewhere.
class Resources {
public:
    /// To be called in a quiet moment.
    void measure();
    /// Compares the time after the warm-up with the end; throws Broken for what has grown. Says
    /// nothing about a short run.
    void check(Story& story) const;

private:
    struct Sample {
        qint64 kilobytes = 0; ///< allocated and not freed
        qint64 descriptors = 0;
        qint64 threads = 0;
    };

    std::vector<Sample> samples_;
};

} // namespace tessary
