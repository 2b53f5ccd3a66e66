#include "browser/model/BrowserHistory.h"

namespace tessary {

void BrowserHistory::record(const QString& path) {
    paths_.resize(static_cast<std::size_t>(index_ + 1));
    paths_.push_back(path);
    ++index_;
}

QString BrowserHistory::back() {
    Q_ASSERT(canGoBack());
    return paths_[static_cast<std::size_t>(--index_)];
}

QString BrowserHistory::forward() {
    Q_ASSERT(canGoForward());
    return paths_[static_cast<std::size_t>(++index_)];
}

} // namespace tessary
