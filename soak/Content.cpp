#include "Content.h"

#include "Story.h"
#include "phone/PartNames.h"
#include "sync/plan/SyncManifest.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <array>
#include <cstring>

namespace tessary {

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 magic = 0x7465737361727921;
constexpr qsizetype headSize = 3 * sizeof(quint64);
constexpr qsizetype blockSize = 4096;

/// The bytes that a file of this seed consists of, block after block.
QByteArray block(quint64 seed, qsizetype number) {
    std::array<quint64, blockSize / sizeof(quint64)> words{};
    quint64 state = seed * 0x9E3779B97F4A7C15 + static_cast<quint64>(number);
    for (quint64& word : words) {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        word = state;
    }
    return {reinterpret_cast<const char*>(words.data()), blockSize};
}

QByteArray contentOf(quint64 seed, qint64 size) {
    const std::array<quint64, 3> head{magic, seed, static_cast<quint64>(size)};
    QByteArray bytes(reinterpret_cast<const char*>(head.data()), headSize);
    for (qsizetype number = 0; bytes.size() < size; ++number)
        bytes.append(block(seed, number));
    bytes.truncate(size);
    return bytes;
}

QDirIterator filesBelow(const QString& folder) {
    return {folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories};
}

} // namespace

void Content::write(const QString& path, qint64 size) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(contentOf(dice_.number(), size)) != size)
        throw std::runtime_error("cannot write " + path.toStdString());
}

QString Content::make(const QString& folder) {
    // Most are small, and some take a phone long enough for something to come in between.
    const int most = dice_.happens(70) ? 20'000 : dice_.happens(80) ? 300'000 : 3'000'000;
    QDir().mkpath(folder);
    QString path = folder + u"/f%1.bin"_s.arg(++count_);
    write(path, dice_.between(headSize, most));
    return path;
}

void Content::change(const QString& path) {
    const qint64 size = QFileInfo(path).size();
    const bool keepsSize = dice_.happens(10);
    write(path, keepsSize ? size : headSize + (size + dice_.between(1, 5000)) % 400'000);
    QFile file(path);
    if (keepsSize && file.open(QIODevice::ReadWrite))
        file.setFileTime(QDateTime::currentDateTime().addDays(1),
                         QFileDevice::FileModificationTime);
}

void Content::fillUp(const QString& folder, int files) {
    QDir().mkpath(folder);
    int there = 0;
    for (QDirIterator walk = filesBelow(folder); walk.hasNext(); ++there)
        walk.next();
    for (; there < files; ++there)
        (void)make(dice_.happens(50) ? folder : folder + u"/d%1"_s.arg(dice_.between(1, 3)));
}

QString Content::anyFile(const QString& folder) {
    QStringList paths;
    for (const auto& [path, seed] : read(folder))
        paths << folder + u'/' + path;
    return paths.isEmpty() ? QString() : dice_.oneOf(paths);
}

quint64 Content::seedOf(const QString& path) {
    QFile file(path);
    if (!file.exists()) {
        const QFileInfo info(path);
        file.setFileName(info.dir().filePath(waitingName({}, info.fileName(), {})));
    }
    if (!file.open(QIODevice::ReadOnly))
        throw Broken(path + u" is missing"_s);
    const QByteArray bytes = file.readAll();
    std::array<quint64, 3> head{};
    if (bytes.size() >= headSize)
        std::memcpy(head.data(), bytes.constData(), headSize);
    if (head[0] != magic || head[2] != static_cast<quint64>(bytes.size()) ||
        bytes != contentOf(head[1], bytes.size()))
        throw Broken(u"%1 is not whole: %2 bytes of %3"_s.arg(path).arg(bytes.size()).arg(head[2]));
    return head[1];
}

Tree Content::read(const QString& folder, QStringList* parts) {
    Tree tree;
    const QDir top(folder);
    for (QDirIterator walk = filesBelow(folder); walk.hasNext();) {
        const QString path = walk.next();
        if (path.contains(u"/.tessary-part-"_s)) {
            if (parts != nullptr)
                parts->append(path);
            const auto part = partNameOf(walk.fileName(), {});
            if (part && part->kind == PartName::Kind::waiting && part->awaited &&
                *part->awaited != SyncManifest::fileName)
                tree.emplace(top.relativeFilePath(walk.fileInfo().dir().filePath(*part->awaited)),
                             seedOf(path));
        } else if (walk.fileName() != SyncManifest::fileName) {
            tree[top.relativeFilePath(path)] = seedOf(path);
        }
    }
    return tree;
}

QString Content::firstMissing(const Tree& tree, const Tree& other) {
    for (const auto& [path, seed] : tree) {
        const auto found = other.find(path);
        if (found == other.end() || found->second != seed)
            return path;
    }
    return {};
}

} // namespace tessary
