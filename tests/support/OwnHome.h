#pragma once

#include "support/TemporaryFolder.h"

#include <QDirIterator>
#include <QProcess>
#include <QProcessEnvironment>

#include <sys/stat.h>

namespace tessary {

/// A home of its own for programs that a test starts: settings, caches, run files and temporary
/// files go there, and the desktop's services of whoever runs the test stay out of it.
class OwnHome {
public:
    OwnHome() {
        for (const char* folder : {"config", "cache", "data", "run", "tmp"})
            disk.makeFolder(QString::fromLatin1(folder));
        ::chmod(qUtf8Printable(disk.path(QStringLiteral("run"))), S_IRWXU);
        environment.insert(QStringLiteral("HOME"), disk.path());
        for (const auto& [name, folder] :
             {std::pair("XDG_CONFIG_HOME", "config"), std::pair("XDG_CACHE_HOME", "cache"),
              std::pair("XDG_DATA_HOME", "data"), std::pair("XDG_RUNTIME_DIR", "run"),
              std::pair("TMPDIR", "tmp")})
            environment.insert(QString::fromLatin1(name), disk.path(QString::fromLatin1(folder)));
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    }

    /// The files, and the folders that are empty, below one of the folders.
    [[nodiscard]] QStringList leftIn(const QString& folder) const {
        QStringList left;
        QDirIterator all(disk.path(folder),
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
        while (all.hasNext())
            left.append(all.next());
        return left;
    }

    TemporaryFolder disk;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
};

} // namespace tessary
