#pragma once

#include "platform/settings/SettingsStore.h"

#include <QJsonArray>
#include <QObject>

namespace tessary {

class MainWindow;

/// Keeps which windows and tabs are open, and where, so that the next start of the program opens
/// them again; where the user wishes windows to come back as they were left. What one shows of a
/// phone that is not there is shown once it comes.
class WindowSession : public QObject {
public:
    static constexpr qsizetype mostWindows = 20; ///< that are opened again
    static constexpr qsizetype mostTabs = 50;    ///< the same, of a window

    /// Both outlive it; `first` is the one that the others are opened from.
    WindowSession(MainWindow& first, SettingsStore& defaults);

    /// Opens what was kept, and keeps from then on what is opened.
    void reopen();

private:
    void keep();

    MainWindow& first_;
    SettingsStore& defaults_;
    QJsonArray kept_;
    bool isOver_ = false;
};

} // namespace tessary
