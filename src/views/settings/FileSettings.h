#pragma once

#include "platform/settings/SettingsStore.h"
#include "views/common/FileClick.h"

#include <QLatin1StringView>
#include <QWidget>

class QComboBox;
class QFormLayout;

namespace tessary {

/// The folder that copies from a phone go to; without one the user is asked.
inline constexpr QLatin1StringView downloadFolderKey{"Tessary_DownloadFolder"};
/// What a double click on a file does.
inline constexpr QLatin1StringView fileClickKey{"Tessary_FileClick"};
/// What is stored may be anything; then files open.
[[nodiscard]] FileClick fileClickOf(const SettingsStore& defaults);

/// The settings of phones and their files: where copies go, what a double click does, how the files
/// of a new phone are shown, and how it is reached.
class FileSettings : public QWidget {
    Q_OBJECT

public:
    /// `defaults` must outlive it.
    explicit FileSettings(SettingsStore& defaults);

private:
    [[nodiscard]] QComboBox* addChoice(const char* name, int count);
    void showTexts();
    void takeFolder(int choice);
    void showFolder();

    SettingsStore& defaults_;
    QFormLayout* form_;
    QComboBox* folder_;
    QComboBox* click_;
    QComboBox* view_;
    QComboBox* turbo_;
};

} // namespace tessary
