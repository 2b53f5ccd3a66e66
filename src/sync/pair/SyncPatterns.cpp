#include "sync/pair/SyncPatterns.h"

#include <QStringView>

#include <algorithm>

namespace tessary {

namespace {

constexpr QLatin1StringView anyFolders("**");

/// Reads a "[...]" that begins at `at`. Moves `at` behind it and says whether `unit` is one of it;
/// leaves `at` where it is when there is no end: then it is a plain sign.
bool readSet(QStringView glob, qsizetype& at, QChar unit) {
    qsizetype n = at + 1;
    const bool isNegated = n < glob.size() && (glob[n] == u'!' || glob[n] == u'^');
    if (isNegated)
        ++n;
    bool isIn = false;
    const qsizetype first = n;
    while (n < glob.size() && (glob[n] != u']' || n == first)) {
        if (glob[n] == u'\\' && n + 1 < glob.size())
            ++n;
        const QChar from = glob[n++];
        QChar to = from;
        if (n + 1 < glob.size() && glob[n] == u'-' && glob[n + 1] != u']') {
            to = glob[n + 1];
            n += 2;
        }
        isIn |= from <= unit && unit <= to;
    }
    if (n >= glob.size())
        return false;
    at = n + 1;
    return isIn != isNegated;
}

/// Takes one sign of the glob, which is no "*". Says whether `unit` is such a one.
bool takesUnit(QStringView glob, qsizetype& at, QChar unit) {
    const QChar sign = glob[at];
    if (sign == u'?') {
        ++at;
        return true;
    }
    if (sign == u'[') {
        const qsizetype before = at;
        const bool isIn = readSet(glob, at, unit);
        if (at != before)
            return isIn;
    }
    if (sign == u'\\' && at + 1 < glob.size())
        ++at;
    return glob[at++] == unit;
}

/// Whether a name matches; takes no more than their lengths multiplied.
bool matchesName(QStringView glob, QStringView name) {
    qsizetype g = 0;
    qsizetype n = 0;
    qsizetype starAt = -1; // behind the last "*"
    qsizetype starName = 0;
    while (n < name.size()) {
        if (g < glob.size() && glob[g] == u'*') {
            starAt = ++g;
            starName = n;
            continue;
        }
        if (g < glob.size() && takesUnit(glob, g, name[n])) {
            ++n;
        } else if (starAt >= 0) {
            g = starAt;
            n = ++starName;
        } else {
            return false;
        }
    }
    while (g < glob.size() && glob[g] == u'*')
        ++g;
    return g == glob.size();
}

/// The same for components, of which "**" stands for any number.
bool matchesPath(const QStringList& globs, const QList<QStringView>& names) {
    qsizetype g = 0;
    qsizetype n = 0;
    qsizetype anyAt = -1;
    qsizetype anyName = 0;
    while (n < names.size()) {
        if (g < globs.size() && globs[g] == anyFolders) {
            anyAt = ++g;
            anyName = n;
            if (g == globs.size())
                return true; // everything below, and not the folder itself
            continue;
        }
        if (g < globs.size() && matchesName(globs[g], names[n])) {
            ++g;
            ++n;
        } else if (anyAt >= 0) {
            g = anyAt;
            n = ++anyName;
        } else {
            return false;
        }
    }
    return g == globs.size();
}

/// Blanks at the end do not count unless the last one is escaped.
QString withoutBlanks(QString line) {
    while (line.endsWith(u' ') && !line.endsWith(QLatin1StringView("\\ ")))
        line.chop(1);
    return line;
}

} // namespace

SyncPatterns::SyncPatterns(const QStringList& lines) {
    for (const QString& each : lines) {
        QString line = withoutBlanks(each);
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        Pattern pattern;
        pattern.takesBack = line.startsWith(u'!');
        if (pattern.takesBack)
            line.remove(0, 1);
        pattern.isFoldersOnly = line.endsWith(u'/');
        while (line.endsWith(u'/'))
            line.chop(1);
        const bool isTied = line.contains(u'/');
        pattern.names = line.split(u'/', Qt::SkipEmptyParts);
        if (pattern.names.isEmpty())
            continue;
        if (!isTied)
            pattern.names.prepend(anyFolders);
        patterns_.push_back(std::move(pattern));
    }
}

const QStringList& SyncPatterns::defaults() {
    static const QStringList lines{
        QStringLiteral(".Trash-*"),    QStringLiteral(".DS_Store"),   QStringLiteral("Thumbs.db"),
        QStringLiteral(".thumbnails"), QStringLiteral("desktop.ini"),
    };
    return lines;
}

bool SyncPatterns::excludes(const QString& path, bool isFolder) const {
    if (patterns_.empty())
        return false;
    const QList<QStringView> names = QStringView(path).split(u'/');
    const auto last = std::find_if(patterns_.rbegin(), patterns_.rend(), [&](const Pattern& one) {
        return (isFolder || !one.isFoldersOnly) && matchesPath(one.names, names);
    });
    return last != patterns_.rend() && !last->takesBack;
}

} // namespace tessary
