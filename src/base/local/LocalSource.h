#pragma once

#include <QDir>
#include <QFileInfo>
#include <QString>

namespace tessary {

/// A local file or folder that is sent to a device, and the name that its copy gets there: its own
/// unless another is given.
struct LocalSource {
    // Most copies keep their name: a path alone will do.
    LocalSource(const QString& localPath) // NOLINT(google-explicit-constructor)
        : LocalSource(localPath, QFileInfo(QDir(localPath).absolutePath()).fileName()) {}
    LocalSource(QString localPath, QString copyName)
        : path(std::move(localPath)), name(std::move(copyName)) {}

    QString path;
    QString name;
};

} // namespace tessary
