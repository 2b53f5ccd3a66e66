#pragma once

#include <QHash>
#include <QJsonArray>
#include <QObject>
#include <QString>

#include <optional>

namespace tessary {

class FileBrowserViewModel;
class FileListing;
class FileRows;

/// Whether a browser's files stand in groups by day. Only the grid has groups: by themselves in
/// folders that hold mostly pictures, several of a day; elsewhere where the user wants them; what
/// he chose for a folder is remembered. What a search has found has none. On the main thread.
class DayGrouping : public QObject {
    Q_OBJECT

public:
    static constexpr qsizetype mostChoices = 200; ///< the one that was made longest ago goes

    /// Both outlive it.
    DayGrouping(FileBrowserViewModel& browser, FileRows& rows);

    /// Whether it can be chosen for what is shown.
    [[nodiscard]] bool isOffered() const;
    [[nodiscard]] bool isOn() const;
    void setOn(bool on);

    /// What the user chose, for his settings.
    [[nodiscard]] const QJsonArray& choices() const {
        return choices_;
    }
    /// Takes over what choices() gave; it may be anything.
    void restore(const QJsonArray& choices);

Q_SIGNALS:
    void changed(); ///< isOffered, isOn
    void choicesChanged();

private:
    [[nodiscard]] QString folder() const;
    [[nodiscard]] std::optional<bool> chosen() const;
    [[nodiscard]] bool isGrouped(const FileListing& listing) const;
    void follow();

    FileBrowserViewModel& browser_;
    FileRows& rows_;
    QJsonArray choices_; ///< [folder, on], the last choice first
};

} // namespace tessary
