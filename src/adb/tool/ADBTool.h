#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

namespace tessary {

/// The adb executable of this machine. Thread-safe and blocking.
class ADBTool {
public:
    /// The first path that is an executable file is used; without any, the usual places are looked
    /// at each time.
    explicit ADBTool(std::optional<QStringList> paths) : paths_(std::move(paths)) {}
    /// The usual places.
    [[nodiscard]] static QStringList defaultPaths();

    [[nodiscard]] std::optional<QString> find() const;
    /// The first of these paths that is an executable file.
    [[nodiscard]] static std::optional<QString> findAmong(const QStringList& paths);

private:
    const std::optional<QStringList> paths_;
};

} // namespace tessary
