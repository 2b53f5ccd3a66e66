#pragma once

#include "support/StallWatch.h"
#include "tour/TourPhones.h"
#include "views/window/MainWindow.h"

#include <QAbstractItemView>
#include <QString>
#include <QTemporaryDir>

#include <functional>
#include <optional>

namespace tessary {

/// Where a tour takes place: the window, the phones, and the camera. Main thread. Every step throws
/// std::runtime_error when it does not come about within a bound.
class TourStage {
public:
    static constexpr double slowSpeed = 4; ///< MB/s, so that a transfer can be seen running
    static constexpr int settleTime = 250; ///< ms for layouts and animations

    /// Both must outlive the stage; the window is shown already, with no phone plugged in.
    /// Screenshots go to the folder.
    TourStage(MainWindow& window, TourPhones& phones, const QString& folder);

    [[nodiscard]] MainWindow& window() {
        return window_;
    }
    [[nodiscard]] FileBrowserViewModel& browser() {
        return window_.browser();
    }
    [[nodiscard]] const BrowserActions& actions() {
        return window_.browserView().actions();
    }
    [[nodiscard]] QAbstractItemView& listing() {
        return window_.browserView().currentListing();
    }
    [[nodiscard]] TourPhones& phones() {
        return phones_;
    }
    /// A folder of this computer for the length of the tour.
    [[nodiscard]] const QTemporaryDir& local() const {
        return local_;
    }

    /// Lets the window work until `condition` holds.
    void waitFor(const char* what, const std::function<bool()>& condition);
    /// Until the folder that is opened is read.
    void waitForFolder();
    /// Until the newest copy can be seen running, of phones that were slowed down.
    void waitForCopy();
    /// The phones are fast again and all copies come to their end.
    void endCopies();
    void open(const QString& path);
    /// A key of the listing's.
    void press(Qt::Key key, Qt::KeyboardModifiers keys);
    void selectNamed(const QStringList& names);
    /// Writes a numbered screenshot of the window and what is in front of it.
    void shoot(const QString& name) {
        shoot(name, window_);
    }
    void shoot(const QString& name, QWidget& window);
    /// The same of the window with little room.
    void shootSmall(const QString& name);
    /// The same once `page` has all the small pictures that its view shows.
    void shootPictures(const QString& name, QAbstractItemView& view, const QWidget& page);
    /// The same of the next menu or question, which runs a loop of its own; it is closed then.
    void shootWhenOpen(const QString& name);
    static void write(const QString& path, const QByteArray& content);
    /// Makes a local file of zeros, of a size (in bytes) that takes a while to copy.
    static QString writeSample(const QString& path, qint64 size = 9'000'000);

    [[nodiscard]] int pictures() const {
        return number_;
    }
    /// The longest time for which the window stood still, the taking of pictures apart; ms.
    [[nodiscard]] qint64 longestStall() const {
        return watch_->longest();
    }

private:
    void settle();

    std::optional<StallWatch> watch_;
    MainWindow& window_;
    TourPhones& phones_;
    QString folder_;
    QTemporaryDir local_;
    QString awaited_; ///< the picture of what is to open
    int number_ = 0;
};

} // namespace tessary
