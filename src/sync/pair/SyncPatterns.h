#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace tessary {

/// What a pair leaves out, by the rules of gitignore: "*" and "?" stay within a name, "**" does
/// not, "[a-z]" is one of them; a "/" in front or within ties a pattern to the pair's folder, one
/// at its end means folders only; "!" takes back in what an earlier line left out; "#" begins a
/// comment and "\" takes any sign's meaning away. Upper and lower case are different. A value.
class SyncPatterns {
public:
    SyncPatterns() = default;
    /// One pattern a line. What is no pattern is passed over.
    explicit SyncPatterns(const QStringList& lines);

    /// What systems strew about, and nobody wants on the other side.
    [[nodiscard]] static const QStringList& defaults();

    /// Whether a relative path is left out, when no folder above it is: whoever walks a tree does
    /// not enter what is left out.
    [[nodiscard]] bool excludes(const QString& path, bool isFolder) const;

private:
    struct Pattern {
        QStringList names; ///< of the components; "**" for any number of them
        bool takesBack = false;
        bool isFoldersOnly = false;
    };

    std::vector<Pattern> patterns_;
};

} // namespace tessary
