#pragma once

#include "Dice.h"

#include <QString>
#include <QStringList>

#include <map>

namespace tessary {

/// The files below a folder, by relative path, each with the seed that its content was made of:
/// equal seeds are equal contents, down to the last byte.
using Tree = std::map<QString, quint64>;

/// Makes files that tell by themselves whether they are whole: seed and size, and then what follows
/// from the two.
class Content {
public:
    explicit Content(Dice& dice) : dice_(dice) {}

    /// A new file with a name that no other one has. Returns its path.
    QString make(const QString& folder);
    /// The same name with another content. One in ten keeps its size and gets a date of tomorrow.
    void change(const QString& path);
    /// Makes files, some in subfolders, until there are this many.
    void fillUp(const QString& folder, int files);
    /// One that lies somewhere below the folder; empty when there is none.
    [[nodiscard]] QString anyFile(const QString& folder);

    /// Throws Broken for a file that is not whole. One that still waits for this name, since a copy
    /// that was to replace the old one broke off, is as good.
    [[nodiscard]] static quint64 seedOf(const QString& path);
    /// The same for every file; temporary files and those that wait for their names go into
    /// `parts`, manifests nowhere.
    [[nodiscard]] static Tree read(const QString& folder, QStringList* parts = nullptr);
    /// The first path that is missing in `other` or has another content there; empty without one.
    [[nodiscard]] static QString firstMissing(const Tree& tree, const Tree& other);

private:
    void write(const QString& path, qint64 size);

    Dice& dice_;
    int count_ = 0;
};

} // namespace tessary
