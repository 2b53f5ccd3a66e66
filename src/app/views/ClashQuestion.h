#pragma once

#include <QDateTime>
#include <QHash>
#include <QString>

#include <optional>
#include <vector>

class QWidget;

namespace tessary {

enum class ClashChoice { replace, keepBoth, skip };

/// One side of two files that share a name.
struct ClashSide {
    qint64 size = 0; ///< bytes
    std::optional<QDateTime> date;
};

/// Something that is to be copied to where its name is taken.
struct Clash {
    QString key; ///< whatever the caller knows it by
    QString name;
    bool isFolder = false;
    ClashSide coming;
    ClashSide existing;
};

/// Asks what to do about each, or about all at once. No value when the user calls the copy off.
/// Runs an event loop of its own.
[[nodiscard]] std::optional<QHash<QString, ClashChoice>>
askAboutClashes(QWidget* parent, const std::vector<Clash>& clashes, bool canKeepBoth);

} // namespace tessary
