#pragma once

#include <QString>

#include <vector>

namespace tessary {

/// The folders that were visited, with a position among them; an empty path is the phone itself. A
/// value.
class BrowserHistory {
public:
    /// Records a folder after the position, which moves to it. What lay ahead is dropped, as in a
    /// web browser.
    void record(const QString& path);
    [[nodiscard]] bool canGoBack() const {
        return index_ >= 1;
    }
    [[nodiscard]] bool canGoForward() const {
        return index_ < static_cast<int>(paths_.size()) - 1;
    }
    /// Moves the position and returns the folder there. Only when the move is possible.
    QString back();
    QString forward();

    /// The folder at the position. Only when something is recorded.
    [[nodiscard]] const QString& current() const {
        return paths_[static_cast<std::size_t>(index_)];
    }
    [[nodiscard]] const std::vector<QString>& paths() const {
        return paths_;
    }
    /// -1 while nothing is recorded.
    [[nodiscard]] int index() const {
        return index_;
    }

private:
    std::vector<QString> paths_;
    int index_ = -1;
};

} // namespace tessary
