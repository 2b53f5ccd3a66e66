#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace tessary {

/// A program that the desktop knows, as its desktop entry describes it. A value.
struct DesktopProgram {
    QString id;       ///< "org.example.Viewer.desktop"
    QString name;     ///< in the language of the interface
    QString iconName; ///< of the icon theme, or a path; may be empty
    QString command;  ///< the entry's Exec line, with its field codes
};

/// The programs that open files of this name, those that the user has added first, then in order of
/// their names. `language` is that of the interface ("pt_BR"). Reads the desktop's folders:
/// blocking, for a background thread.
[[nodiscard]] std::vector<DesktopProgram> programsFor(const QString& fileName,
                                                      const QString& language);

/// What an Exec line starts for these files: a program and its arguments each; several where it
/// takes one file at a time. Empty for a line that makes no sense. Pure.
[[nodiscard]] std::vector<QStringList> commandsOf(const DesktopProgram& program,
                                                  const QStringList& files);

/// Starts a program with local files; it outlives this one. False when it cannot be started.
bool openWith(const DesktopProgram& program, const QStringList& files);

} // namespace tessary
