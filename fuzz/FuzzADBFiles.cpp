#include "PhoneErrand.h"
#include "adb/files/ADBFileSystem.h"

#include <utility>

using namespace tessary;

namespace {

/// What a phone says on its streams: the input, a piece of which goes to each answer that is due.
/// A piece is a u8 count and that many bytes; 255 has none and ends the stream.
class SpokenInput {
public:
    explicit SpokenInput(ByteView input) : input_(input) {}

    /// Nothing is left, or a stream ends here.
    [[nodiscard]] std::pair<ByteView, bool> nextPiece() {
        if (input_.empty())
            return {{}, true};
        const auto count = std::to_integer<std::size_t>(input_[0]);
        const bool ends = count == 255;
        const ByteView piece = input_.subspan(1, ends ? 0 : std::min(count, input_.size() - 1));
        input_ = input_.subspan(1 + piece.size());
        return {piece, ends};
    }

private:
    ByteView input_;
};

/// A kept shell tells the end of a command by a mark of its own making. A phone repeats it, so the
/// input has any mark of the same length in its place.
class SpeakingStream final : public ADBStream {
public:
    explicit SpeakingStream(std::shared_ptr<SpokenInput> input) : input_(std::move(input)) {}

    std::size_t read(std::span<std::byte> to, const Wait&) override {
        while (piece_.isEmpty() && !ends_) {
            const auto [piece, ends] = input_->nextPiece();
            piece_ = QByteArray(reinterpret_cast<const char*>(piece.data()),
                                static_cast<qsizetype>(piece.size()));
            ends_ = ends;
            if (const qsizetype at = piece_.indexOf(markFront); at >= 0 && !mark_.isEmpty())
                piece_.replace(at, mark_.size(), mark_);
        }
        const std::size_t count = std::min(to.size(), static_cast<std::size_t>(piece_.size()));
        std::copy_n(std::as_bytes(std::span(piece_)).begin(), count, to.begin());
        piece_.remove(0, static_cast<qsizetype>(count));
        return count;
    }
    void writeOn(ByteView& left, const Wait&) override {
        const QByteArray text(reinterpret_cast<const char*>(left.data()),
                              static_cast<qsizetype>(left.size()));
        left = {};
        if (const qsizetype at = text.lastIndexOf(markFront); at >= 0)
            mark_ = text.mid(at, text.indexOf(':', at) - at);
    }
    [[nodiscard]] bool hasInput() const override {
        return false;
    }

private:
    static constexpr const char* markFront = "tessary-";

    const std::shared_ptr<SpokenInput> input_;
    QByteArray piece_;
    QByteArray mark_;
    bool ends_ = false;
};

class SpeakingPhone final : public ADBConnection {
public:
    SpeakingPhone(ByteView input, bool isNew)
        : input_(std::make_shared<SpokenInput>(input)), isNew_(isNew) {}

    std::unique_ptr<ADBStream> open(const QByteArray&, const Wait&) override {
        return std::make_unique<SpeakingStream>(input_);
    }
    QByteArrayList features(const Wait&) override {
        if (!isNew_)
            return {};
        return {"shell_v2", "stat_v2", "ls_v2"};
    }

private:
    const std::shared_ptr<SpokenInput> input_;
    const bool isNew_;
};

} // namespace

/// A phone whose adbd answers anything, through the file system, the copy and the local disk. The
/// first bit says what the phone claims to be able to do.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ByteView input = fuzzInput(data, size);
    if (input.empty())
        return 0;
    const bool isNew = (std::to_integer<int>(input[0]) & 1) != 0;
    PhoneIdentity phone;
    phone.udid = QStringLiteral("FUZZ");
    PhoneErrand(
        std::make_shared<ADBFileSystem>(phone, std::make_shared<PhoneQueue>(),
                                        std::make_shared<SpeakingPhone>(input.subspan(1), isNew)))
        .run(QStringLiteral("/sdcard"));
    return 0;
}
