#include "preview/FilmPicture.h"

#include "base/local/FileHandle.h"
#include "preview/PictureDecoder.h"

#include <QtEndian>

#include <algorithm>
#include <optional>

#include <sys/mman.h>
#include <unistd.h>

namespace tessary {

namespace {

constexpr qint64 beginning = 256 << 10; // bytes that are fetched at first
constexpr qint64 firstSamples = 3 << 20;
constexpr int mostBoxes = 64;

/// One part of an MP4 file, as its header tells:
///
///     0  4  length with this header, big-endian; 1: see below; 0: to the file's end
///     4  4  type
///     8  8  length, where the first one is 1
struct Box {
    QByteArray type;
    qint64 length = 0; ///< at least the header's own

    /// No value where there is no such part between `at` and the file's end.
    static std::optional<Box> read(const QByteArray& header, qint64 at, qint64 fileSize) {
        constexpr qsizetype shortHeader = 8;
        constexpr qsizetype longHeader = 16;
        if (header.size() < shortHeader)
            return std::nullopt;
        const auto rest = static_cast<quint64>(fileSize - at);
        quint64 length = qFromBigEndian<quint32>(header.constData());
        qsizetype own = shortHeader;
        if (length == 1 && header.size() >= longHeader) {
            length = qFromBigEndian<quint64>(header.constData() + shortHeader);
            own = longHeader;
        } else if (length == 0) {
            length = rest;
        }
        if (length < static_cast<quint64>(own) || length > rest)
            return std::nullopt;
        return Box{header.mid(4, 4), static_cast<qint64>(length)};
    }
};

/// A file in memory, as long as the film, that holds those parts of it that its first picture is in
/// or is found by, and holes for all else: the beginning, and in MP4 and its kin the index, which
/// cameras write behind the film.
class FilmParts {
public:
    FilmParts(PhoneFileSystem& files, const FileItem& film, const Call& call)
        : files_(files),
          film_(film),
          call_(call),
          file_(::memfd_create("film", MFD_CLOEXEC | MFD_ALLOW_SEALING)) {
        if (!file_.isOpen() || ::ftruncate(file_.get(), film.size) != 0)
            throw PictureError("there is no memory for the film");
    }

    void fetchWhatIsNeeded() {
        if (!files_.capabilities(call_).readsRanges) {
            if (film_.size > filmPartsLimit)
                throw PictureError("the phone sends only the whole film");
            (void)fetch(0, film_.size);
            return;
        }
        head_ = fetch(0, beginning);
        if (head_.startsWith("\x1A\x45\xDF\xA3"))
            (void)fetch(beginning, firstSamples); // Matroska: all is in order
        else
            followBoxes();
    }
    [[nodiscard]] const FileHandle& file() const {
        return file_;
    }

private:
    /// The index, and where the pictures begin.
    void followBoxes() {
        constexpr qsizetype headerSize = 16;
        std::optional<qint64> samples;
        bool hasIndex = false;
        qint64 at = 0;
        for (int boxes = 0; at < film_.size && !(hasIndex && samples); ++boxes) {
            const auto box = boxes == mostBoxes ? std::nullopt
                                                : Box::read(fetch(at, headerSize), at, film_.size);
            if (!box)
                throw PictureError("the film is damaged");
            if (box->type == "moov" || box->type == "moof") {
                hasIndex = true;
                (void)fetch(at, box->length);
            } else if (box->type == "mdat" && !samples) {
                samples = at;
            }
            at += box->length;
        }
        if (!samples || !hasIndex)
            throw PictureError("the film is damaged");
        (void)fetch(std::max(*samples, head_.size()),
                    std::min(firstSamples, filmPartsLimit - fetched_));
    }
    /// What of a part the film has, which then lies in the file.
    QByteArray fetch(qint64 at, qint64 length) {
        length = std::min(length, film_.size - at);
        if (length <= 0)
            return {};
        if (at + length <= head_.size())
            return head_.mid(at, length);
        if (length > filmPartsLimit - fetched_)
            throw PictureError("too much of the film is needed for a picture");
        fetched_ += length;
        QByteArray bytes;
        files_.read(
            film_, {at, length},
            [&](ByteView piece) {
                const auto room = static_cast<std::size_t>(length - bytes.size());
                bytes.append(reinterpret_cast<const char*>(piece.data()),
                             static_cast<qsizetype>(std::min(piece.size(), room)));
            },
            call_);
        if (::pwrite(file_.get(), bytes.constData(), static_cast<std::size_t>(bytes.size()), at) !=
            bytes.size())
            throw PictureError("there is no memory for the film");
        return bytes;
    }

    PhoneFileSystem& files_;
    const FileItem& film_;
    const Call& call_;
    const FileHandle file_;
    QByteArray head_; ///< what was fetched first
    qint64 fetched_ = 0;
};

} // namespace

Picture firstPictureOf(PhoneFileSystem& files, const FileItem& film, int maxSide,
                       const Call& call) {
    FilmParts parts(files, film, call);
    parts.fetchWhatIsNeeded();
    return PictureDecoder(installedHelper(QStringLiteral("tessary-film")))
        .decode(parts.file(), maxSide, 0, call.stop);
}

} // namespace tessary
