#pragma once

#include "app/TessaryApp.h"
#include "sync/manager/SyncViewModel.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QTabWidget;

namespace tessary {

class WindowStateStore;

/// The settings: language and window, sync pairs, updates, and what this program is. What is chosen
/// applies at once.
class SettingsWindow : public QDialog {
    Q_OBJECT

public:
    /// All must outlive it.
    SettingsWindow(TessaryApp& app, SyncViewModel& sync, WindowStateStore& memory,
                   QWidget* parent = nullptr);

    [[nodiscard]] QTabWidget& tabs() {
        return *tabs_;
    }

private:
    [[nodiscard]] QWidget* makeGeneral();
    [[nodiscard]] QWidget* makeUpdates();
    [[nodiscard]] QWidget* makeAbout();
    void showTexts();
    void showState();

    TessaryApp& app_;
    WindowStateStore& memory_;
    QTabWidget* tabs_;
    QLabel* languageLabel_;
    QComboBox* language_;
    QLabel* languageNote_;
    QCheckBox* remember_;
    QCheckBox* compare_;
    QLabel* compareNote_;
    QCheckBox* autoCheck_;
    QPushButton* check_;
    QLabel* version_;
    QLabel* aboutVersion_;
    QLabel* aboutWords_;
    QPushButton* homepage_;
};

} // namespace tessary
