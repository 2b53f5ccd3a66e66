#pragma once

#include "support/StallWatch.h"
#include "tour/TourPhones.h"
#include "views/window/MainWindow.h"

#include <QString>
#include <QTemporaryDir>

#include <functional>
#include <optional>

namespace tessary {

/// Walks through the window as a person would and writes numbered screenshots. Main thread.
class Tour {
public:
    /// Both must outlive the tour; the window is shown already, with no phone plugged in.
    Tour(MainWindow& window, TourPhones& phones, const QString& folder);

    /// False, with the reason on standard error, when a step did not come about or a picture could
    /// not be written.
    [[nodiscard]] bool run();

private:
    static constexpr double slowSpeed = 4; ///< MB/s, so that a transfer can be seen running
    static constexpr int settleTime = 250; ///< ms for layouts and animations

    void welcome();
    void browse();
    void typePath();
    void preview();
    void properties();
    void edit();
    void settings();
    void languages();
    void wireless();
    void dark();
    void transfer();
    void copyQuestions();
    void fail();
    void lockAndLose();
    void iPhone();
    void sync();

    /// Lets the window work until `condition` holds; throws when it does not within a bound.
    void waitFor(const char* what, const std::function<bool()>& condition);
    void settle();
    void open(const QString& path);
    void selectNamed(const QStringList& names);
    void shoot(const QString& name);
    /// Makes a local file that takes a while to copy.
    static QString writeSample(const QString& path);

    std::optional<StallWatch> watch_; ///< of the window, not of the taking of pictures
    MainWindow& window_;
    TourPhones& phones_;
    QString folder_;
    QTemporaryDir syncFolder_;
    int number_ = 0;
};

} // namespace tessary
