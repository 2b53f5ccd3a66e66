#include "app/updates/UpdateInfo.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace tessary {

namespace {

using Key = QLatin1StringView;

std::optional<UpdateInfo> decode(const QByteArray& body) {
    const QJsonObject json = QJsonDocument::fromJson(body).object();
    const auto text = [&](const char* key) { return json.value(Key(key)).toString(); };
    UpdateInfo info{.version = text("version"),
                    .releaseNotes = text("release_notes"),
                    .downloadUrl = text("download_url"),
                    .mandatory = json.value(Key("mandatory")).toBool()};
    return info.version.isEmpty() ? std::nullopt : std::optional(std::move(info));
}

/// The text with a quote and a comma at the end of lines that lack them before the next key.
QString repaired(QString text) {
    // Looks at each run of white space no more than twice: an answer may hold nothing else.
    static const QRegularExpression openLine(QStringLiteral(
        R"x(([^\"\s]|(?<=\")\s)[^\S\n]*+\n\s*+\"(download_url|homepage_url|pub_date|mandatory|version|build)\")x"));
    return text.replace(openLine, QStringLiteral("\\1\",\n  \"\\2\""));
}

QString field(const QString& text, const char* key) {
    const QRegularExpression pattern(
        QStringLiteral(R"x(\"%1\"\s*:\s*\"([^\"]+)\")x").arg(QLatin1StringView(key)));
    return pattern.match(text).captured(1);
}

std::optional<UpdateInfo> pick(const QString& text) {
    UpdateInfo info{.version = field(text, "version"),
                    .releaseNotes = field(text, "release_notes"),
                    .downloadUrl = field(text, "download_url")};
    if (info.version.isEmpty())
        return std::nullopt;
    if (info.releaseNotes.isEmpty())
        info.releaseNotes = QStringLiteral("A new version of Tessary is available.");
    return info;
}

/// The run of digits that begins at `at`, without leading zeros; `at` moves behind it.
QStringView number(const QString& text, qsizetype& at) {
    while (at < text.size() && text[at] == QLatin1Char('0'))
        ++at;
    const qsizetype start = at;
    while (at < text.size() && text[at].isDigit())
        ++at;
    return QStringView(text).mid(start, at - start);
}

} // namespace

std::optional<UpdateInfo> parseUpdateManifest(const QByteArray& body) {
    if (auto info = decode(body))
        return info;
    const QString text = QString::fromUtf8(body);
    if (auto info = decode(repaired(text).toUtf8()))
        return info;
    return pick(text);
}

bool isNewerVersion(const QString& version, const QString& other) {
    qsizetype i = 0;
    qsizetype j = 0;
    while (i < version.size() && j < other.size()) {
        if (version[i].isDigit() && other[j].isDigit()) {
            const QStringView left = number(version, i);
            const QStringView right = number(other, j);
            if (left.size() != right.size())
                return left.size() > right.size();
            if (left != right)
                return left > right;
        } else if (version[i] != other[j]) {
            return version[i] > other[j];
        } else {
            ++i;
            ++j;
        }
    }
    return i < version.size();
}

} // namespace tessary
