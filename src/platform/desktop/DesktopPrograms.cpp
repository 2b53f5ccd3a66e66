#include "platform/desktop/DesktopPrograms.h"

#include "base/text/NameOrder.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QMimeDatabase>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>
#include <optional>
#include <utility>

namespace tessary {

namespace {

constexpr qint64 largestEntry = 256 * 1024; // bytes; real ones have a few thousand

/// The file's text; empty for what cannot be read or is no such file.
QString textOf(const QString& path) {
    QFile file(path);
    if (file.size() > largestEntry || !file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.read(largestEntry));
}

/// Calls `take` for each key of a file of groups ("[Group]", "key=value").
template <typename Take>
void readGroups(const QString& text, Take take) {
    QString group;
    for (QStringView line : QStringView(text).split(QLatin1Char('\n'))) {
        line = line.trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const qsizetype equals = line.indexOf(QLatin1Char('='));
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']')))
            group = line.mid(1, line.size() - 2).toString();
        else if (equals > 0)
            take(group, line.left(equals).trimmed().toString(),
                 line.mid(equals + 1).trimmed().toString());
    }
}

/// The associations of one mimeapps.list, or of several.
struct Associations {
    QStringList added; ///< ids, the default first
    QSet<QString> removed;
};

void readAssociations(const QString& path, const QStringList& types, Associations& found) {
    QStringList defaults;
    QStringList added;
    readGroups(textOf(path), [&](const QString& group, const QString& key, const QString& value) {
        if (!types.contains(key))
            return;
        const QStringList ids = value.split(QLatin1Char(';'), Qt::SkipEmptyParts);
        if (group == QLatin1StringView("Default Applications"))
            defaults += ids;
        else if (group == QLatin1StringView("Added Associations"))
            added += ids;
        else if (group == QLatin1StringView("Removed Associations"))
            found.removed.unite({ids.begin(), ids.end()});
    });
    found.added += defaults + added;
}

/// A type with those that it is a kind of: a program for texts opens a script.
QStringList typesOf(const QString& fileName) {
    const QMimeType type = QMimeDatabase().mimeTypeForFile(fileName, QMimeDatabase::MatchExtension);
    QStringList types{type.name()};
    types += type.aliases();
    for (const QString& above : type.allAncestors())
        if (above != QLatin1StringView("application/octet-stream"))
            types.append(above);
    return types;
}

/// The words of an Exec line: quoted ones hold blanks. No value when a quotation has no end.
std::optional<QStringList> wordsOf(const QString& command) {
    QStringList words;
    QString word;
    bool isQuoted = false;
    bool hasWord = false;
    for (qsizetype i = 0; i < command.size(); ++i) {
        const QChar letter = command[i];
        if (letter == QLatin1Char('"')) {
            isQuoted = !isQuoted;
            hasWord = true;
        } else if (letter == QLatin1Char('\\') && isQuoted && i + 1 < command.size()) {
            word += command[++i];
        } else if (letter.isSpace() && !isQuoted) {
            if (hasWord)
                words.append(std::exchange(word, {}));
            hasWord = false;
        } else {
            word += letter;
            hasWord = true;
        }
    }
    if (isQuoted)
        return std::nullopt;
    if (hasWord)
        words.append(word);
    return words;
}

QString asUrl(const QString& file) {
    return QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded);
}

/// One word with its field codes replaced; what stands for several files becomes several words.
QStringList expanded(const QString& word, const DesktopProgram& program, const QStringList& files) {
    if (word == QLatin1StringView("%F"))
        return files;
    if (word == QLatin1StringView("%U")) {
        QStringList urls;
        std::ranges::transform(files, std::back_inserter(urls), asUrl);
        return urls;
    }
    if (word == QLatin1StringView("%i"))
        return program.iconName.isEmpty() ? QStringList()
                                          : QStringList{QStringLiteral("--icon"), program.iconName};
    QString text;
    for (qsizetype i = 0; i < word.size(); ++i) {
        if (word[i] != QLatin1Char('%') || i + 1 == word.size()) {
            text += word[i];
            continue;
        }
        switch (word[++i].unicode()) {
        case u'%':
            text += QLatin1Char('%');
            break;
        case u'f':
            text += files.value(0);
            break;
        case u'u':
            text += files.isEmpty() ? QString() : asUrl(files.front());
            break;
        case u'c':
            text += program.name;
            break;
        default: // codes that have gone out of use stand for nothing
            break;
        }
    }
    return text.isEmpty() ? QStringList() : QStringList{text};
}

/// The program that a desktop entry's text describes; no name for one that is none to be shown.
/// `mimeTypes` gets those that it opens.
DesktopProgram parseDesktopEntry(const QString& text, const QString& language,
                                 QStringList& mimeTypes) {
    QHash<QString, QString> values;
    readGroups(text, [&](const QString& group, const QString& key, const QString& value) {
        if (group == QLatin1StringView("Desktop Entry") && !values.contains(key))
            values.insert(key, value);
    });
    const auto isOn = [&](const char* key) {
        return values.value(QString::fromLatin1(key)) == QLatin1StringView("true");
    };
    if (values.value(QStringLiteral("Type")) != QLatin1StringView("Application") ||
        isOn("NoDisplay") || isOn("Hidden") || isOn("Terminal"))
        return {};
    const QString needed = values.value(QStringLiteral("TryExec"));
    if (!needed.isEmpty() && QStandardPaths::findExecutable(needed).isEmpty())
        return {};
    mimeTypes =
        values.value(QStringLiteral("MimeType")).split(QLatin1Char(';'), Qt::SkipEmptyParts);
    QString name = values.value(QStringLiteral("Name"));
    for (const QString& spoken : {language.section(QLatin1Char('_'), 0, 0), language})
        name = values.value(QStringLiteral("Name[%1]").arg(spoken), name);
    return {{}, name, values.value(QStringLiteral("Icon")), values.value(QStringLiteral("Exec"))};
}

} // namespace

std::vector<DesktopProgram> programsFor(const QString& fileName, const QString& language) {
    const QStringList types = typesOf(fileName);
    const QStringList folders =
        QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    Associations associations;
    for (const QString& folder :
         QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation) + folders)
        readAssociations(folder + QStringLiteral("/mimeapps.list"), types, associations);
    std::vector<DesktopProgram> programs;
    QSet<QString> seen; // an entry of the user's own hides the system's
    for (const QString& folder : folders) {
        QDirIterator entries(folder, {QStringLiteral("*.desktop")}, QDir::Files,
                             QDirIterator::Subdirectories);
        while (entries.hasNext()) {
            const QString path = entries.next();
            const QString id =
                QDir(folder).relativeFilePath(path).replace(QLatin1Char('/'), QLatin1Char('-'));
            if (seen.contains(id))
                continue;
            seen.insert(id);
            QStringList opens;
            DesktopProgram program = parseDesktopEntry(textOf(path), language, opens);
            program.id = id;
            const bool isMeant = associations.added.contains(id) ||
                                 std::ranges::any_of(opens, [&](const QString& type) {
                                     return types.contains(type);
                                 });
            if (isMeant && !program.name.isEmpty() && !program.command.isEmpty() &&
                !associations.removed.contains(id))
                programs.push_back(std::move(program));
        }
    }
    const QCollator collator = nameCollator();
    std::ranges::sort(programs, [&](const DesktopProgram& left, const DesktopProgram& right) {
        const auto rank = [&](const DesktopProgram& program) {
            const qsizetype place = associations.added.indexOf(program.id);
            return place < 0 ? associations.added.size() : place;
        };
        return rank(left) != rank(right) ? rank(left) < rank(right)
                                         : collator.compare(left.name, right.name) < 0;
    });
    return programs;
}

std::vector<QStringList> commandsOf(const DesktopProgram& program, const QStringList& files) {
    const auto words = wordsOf(program.command);
    // Without a program of its own the first file would be run.
    if (!words || words->value(0).isEmpty() || words->front().startsWith(QLatin1Char('%')))
        return {};
    const auto holds = [&](const char* codes) {
        return std::ranges::any_of(*words, [&](const QString& word) {
            return word.contains(QString::fromLatin1(codes).left(2)) ||
                   word.contains(QString::fromLatin1(codes).right(2));
        });
    };
    const auto commandFor = [&](const QStringList& some) {
        QStringList command;
        for (const QString& word : *words)
            command += expanded(word, program, some);
        return command;
    };
    if (holds("%F%U"))
        return {commandFor(files)};
    std::vector<QStringList> commands;
    for (const QString& file : files) {
        commands.push_back(commandFor({file}));
        if (!holds("%f%u"))
            commands.back().append(file); // it does not say where files go
    }
    return commands;
}

bool openWith(const DesktopProgram& program, const QStringList& files) {
    const std::vector<QStringList> commands = commandsOf(program, files);
    bool hasStarted = !commands.empty();
    for (const QStringList& command : commands)
        hasStarted = QProcess::startDetached(command.front(), command.mid(1), QDir::homePath()) &&
                     hasStarted;
    return hasStarted;
}

} // namespace tessary
