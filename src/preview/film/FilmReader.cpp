#include "preview/film/FilmReader.h"

#include "base/values/FreeWith.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/display.h>
#include <libswscale/swscale.h>
}

#include <QTransform>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <memory>

#include <sys/stat.h>
#include <unistd.h>

namespace tessary {

namespace {

constexpr qint64 maxPixels = 36'000'000; // 8K
constexpr int mostPackets = 200;         // of all tracks, until there is a picture
constexpr int readSize = 32 * 1024;

constexpr std::array codecs{AV_CODEC_ID_H264, AV_CODEC_ID_HEVC, AV_CODEC_ID_MPEG4, AV_CODEC_ID_H263,
                            AV_CODEC_ID_VP8,  AV_CODEC_ID_VP9,  AV_CODEC_ID_AV1};

/// The library's own ends take a pointer to the pointer.
template <auto end>
struct EndWith {
    template <typename T>
    void operator()(T* object) const {
        end(&object);
    }
};
using Format = std::unique_ptr<AVFormatContext, EndWith<avformat_close_input>>;
using Decoder = std::unique_ptr<AVCodecContext, EndWith<avcodec_free_context>>;
using Packet = std::unique_ptr<AVPacket, EndWith<av_packet_free>>;
using Frame = std::unique_ptr<AVFrame, EndWith<av_frame_free>>;
using Scaler = std::unique_ptr<SwsContext, FreeWith<sws_freeContext>>;

template <typename Owner>
Owner made(Owner owner) {
    if (!owner)
        throw PictureError("no memory");
    return owner;
}

/// A file with holes, as the library reads it.
class FilmFile {
public:
    explicit FilmFile(int descriptor) : descriptor_(descriptor) {
        struct stat facts {};
        if (fstat(descriptor, &facts) != 0 || !S_ISREG(facts.st_mode))
            throw PictureError("the film cannot be read");
        size_ = facts.st_size;
        auto* buffer = static_cast<unsigned char*>(av_malloc(readSize));
        input_ = buffer == nullptr ? nullptr
                                   : avio_alloc_context(buffer, readSize, 0, this, &FilmFile::read,
                                                        nullptr, &FilmFile::seek);
        if (input_ == nullptr) {
            av_free(buffer);
            throw PictureError("no memory");
        }
    }
    ~FilmFile() {
        av_freep(&input_->buffer); // the library may have taken another one meanwhile
        avio_context_free(&input_);
    }
    FilmFile(const FilmFile&) = delete;
    FilmFile& operator=(const FilmFile&) = delete;

    [[nodiscard]] AVIOContext* input() const {
        return input_;
    }
    /// Matroska tells so at its beginning, and is read in one go; all else is taken for MP4.
    [[nodiscard]] bool isMatroska() const {
        constexpr std::array<unsigned char, 4> magic{0x1A, 0x45, 0xDF, 0xA3};
        std::array<unsigned char, 4> first{};
        return ::pread(descriptor_, first.data(), first.size(), 0) ==
                   static_cast<ssize_t>(first.size()) &&
               first == magic;
    }

private:
    static int read(void* opaque, std::uint8_t* into, int room) {
        auto& film = *static_cast<FilmFile*>(opaque);
        if (film.at_ >= film.size_)
            return AVERROR_EOF;
        const off_t end = ::lseek(film.descriptor_, film.at_, SEEK_HOLE);
        if (end <= film.at_)
            return AVERROR(EIO); // this part is missing
        const auto count =
            ::pread(film.descriptor_, into,
                    static_cast<std::size_t>(std::min<qint64>(end - film.at_, room)), film.at_);
        if (count <= 0)
            return AVERROR(EIO);
        film.at_ += count;
        return static_cast<int>(count);
    }
    static std::int64_t seek(void* opaque, std::int64_t offset, int whence) {
        auto& film = *static_cast<FilmFile*>(opaque);
        if (whence == AVSEEK_SIZE)
            return film.size_;
        // The library itself adds up all other ways.
        if ((whence & ~AVSEEK_FORCE) != SEEK_SET || offset < 0)
            return AVERROR(EINVAL);
        return film.at_ = offset;
    }

    const int descriptor_;
    qint64 size_ = 0;
    qint64 at_ = 0;
    AVIOContext* input_ = nullptr;
};

/// A film that names other files gets none.
int openNothing(AVFormatContext* /*format*/, AVIOContext** /*opened*/, const char* /*url*/,
                int /*flags*/, AVDictionary** /*options*/) {
    return AVERROR(EPERM);
}

Format openFormat(const FilmFile& film) {
    AVFormatContext* format = avformat_alloc_context();
    if (format == nullptr)
        throw PictureError("no memory");
    format->pb = film.input();
    format->io_open = openNothing;
    const bool isMatroska = film.isMatroska();
    if (isMatroska)
        format->pb->seekable = 0; // its index lies at its end, and is not needed
    const auto* kind = av_find_input_format(isMatroska ? "matroska" : "mov");
    // What fails has freed the context.
    if (kind == nullptr || avformat_open_input(&format, nullptr, kind, nullptr) != 0)
        throw PictureError("not a film of a known kind");
    return Format(format);
}

AVStream& videoOf(const AVFormatContext& format) {
    for (unsigned int n = 0; n < format.nb_streams; ++n) {
        AVStream& stream = *format.streams[n];
        const bool isFilm = stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO &&
                            (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) == 0;
        if (isFilm &&
            std::find(codecs.begin(), codecs.end(), stream.codecpar->codec_id) != codecs.end())
            return stream;
    }
    throw PictureError("the film has no pictures of a known kind");
}

Decoder openDecoder(const AVStream& video) {
    const AVCodec* codec = avcodec_find_decoder(video.codecpar->codec_id);
    if (codec == nullptr)
        throw PictureError("there is no decoder for the film");
    Decoder decoder = made(Decoder(avcodec_alloc_context3(codec)));
    decoder->thread_count = 1;
    decoder->max_pixels = maxPixels;
    if (avcodec_parameters_to_context(decoder.get(), video.codecpar) < 0 ||
        avcodec_open2(decoder.get(), codec, nullptr) != 0)
        throw PictureError("the film is damaged");
    return decoder;
}

/// The picture that a piece holds, which need not wait for those around it to be shown.
bool decodeAlone(AVCodecContext& decoder, const AVPacket& packet, AVFrame& frame) {
    bool isThere = avcodec_send_packet(&decoder, &packet) == 0 &&
                   (avcodec_receive_frame(&decoder, &frame) == 0 ||
                    (avcodec_send_packet(&decoder, nullptr) == 0 &&
                     avcodec_receive_frame(&decoder, &frame) == 0));
    avcodec_flush_buffers(&decoder);
    return isThere;
}

Frame firstFrame(AVFormatContext& format, const AVStream& video) {
    const Decoder decoder = openDecoder(video);
    const Packet packet = made(Packet(av_packet_alloc()));
    Frame frame = made(Frame(av_frame_alloc()));
    for (int n = 0; n < mostPackets && av_read_frame(&format, packet.get()) == 0; ++n) {
        const bool isWhole = (packet->flags & AV_PKT_FLAG_CORRUPT) == 0;
        if (packet->stream_index == video.index && isWhole &&
            decodeAlone(*decoder, *packet, *frame))
            return frame;
        av_packet_unref(packet.get());
    }
    throw PictureError("the film has no picture at its beginning");
}

/// In quarters of a turn clockwise, as the film is to be shown.
int turnOf(const AVStream& video) {
    const std::uint8_t* matrix =
        av_stream_get_side_data(&video, AV_PKT_DATA_DISPLAYMATRIX, nullptr);
    if (matrix == nullptr)
        return 0;
    const double degrees = -av_display_rotation_get(reinterpret_cast<const std::int32_t*>(matrix));
    return std::isfinite(degrees) ? static_cast<int>(std::lround(degrees / 90)) : 0;
}

QImage scaled(const AVFrame& frame, const QSize& size) {
    const Scaler scaler = made(Scaler(sws_getContext(
        frame.width, frame.height, static_cast<AVPixelFormat>(frame.format), size.width(),
        size.height(), AV_PIX_FMT_BGRA, SWS_AREA, nullptr, nullptr, nullptr)));
    constexpr int one = 1 << 16;
    const int isFullRange = frame.color_range == AVCOL_RANGE_JPEG ? 1 : 0;
    // Where it cannot, it takes what is most usual.
    (void)sws_setColorspaceDetails(scaler.get(), sws_getCoefficients(frame.colorspace), isFullRange,
                                   sws_getCoefficients(SWS_CS_DEFAULT), 1, 0, one, one);
    // Rows that end where the library may write a little more than it should.
    const Frame target = made(Frame(av_frame_alloc()));
    target->format = AV_PIX_FMT_BGRA;
    target->width = size.width();
    target->height = size.height();
    if (av_frame_get_buffer(target.get(), 0) != 0 ||
        sws_scale_frame(scaler.get(), target.get(), &frame) < 0)
        throw PictureError("the film is damaged");
    return QImage(target->data[0], size.width(), size.height(), target->linesize[0],
                  QImage::Format_RGB32)
        .copy();
}

} // namespace

Picture readFirstPicture(int descriptor, int maxSide) {
    av_log_set_level(AV_LOG_QUIET);
    const FilmFile film(descriptor);
    const Format format = openFormat(film);
    const AVStream& video = videoOf(*format);
    const Frame frame = firstFrame(*format, video);
    const QSize size(frame->width, frame->height);
    checkSize(size, maxPixels);
    const int turn = turnOf(video);
    Picture picture;
    picture.fullSize = turn % 2 == 0 ? size : size.transposed();
    picture.image = scaled(*frame, fitted(size, std::clamp(maxSide, 1, maxPictureSide)))
                        .transformed(QTransform().rotate(90.0 * turn));
    return picture;
}

} // namespace tessary
