#include "preview/TextSample.h"

#include <QFile>
#include <QStringDecoder>

#include <algorithm>

namespace tessary {

namespace {

/// Text in one encoding; nothing where the bytes are not in it. A character that the end of the
/// sample cuts in two is left out.
std::optional<QString> decoded(const QByteArray& bytes, QStringConverter::Encoding encoding) {
    QStringDecoder decoder(encoding);
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

/// Text in the western alphabets has a zero in every second byte then.
std::optional<QStringConverter::Encoding> utf16Of(const QByteArray& bytes) {
    qsizetype zeros[2] = {0, 0};
    for (qsizetype i = 0; i < bytes.size(); ++i)
        if (bytes[i] == '\0')
            ++zeros[i % 2];
    const qsizetype half = bytes.size() / 2;
    if (zeros[1] > half / 2 && zeros[0] == 0)
        return QStringConverter::Utf16LE;
    if (zeros[0] > half / 2 && zeros[1] == 0)
        return QStringConverter::Utf16BE;
    return std::nullopt;
}

/// Characters that no text has.
bool looksBinary(const QString& text) {
    constexpr qsizetype tolerated = 100; // one in so many
    const auto isStrange = [](QChar character) {
        const char16_t code = character.unicode();
        const bool isLayout =
            code == u'\t' || code == u'\n' || code == u'\r' || code == u'\f' || code == u'\x1B';
        return (code < 0x20 && !isLayout) || (code >= 0x7F && code < 0xA0 && code != 0x85);
    };
    if (text.contains(QChar::Null))
        return true;
    return std::count_if(text.begin(), text.end(), isStrange) * tolerated > text.size();
}

std::optional<QString> textOf(const QByteArray& bytes) {
    if (const auto marked = QStringConverter::encodingForData(bytes))
        return decoded(bytes, *marked);
    if (const auto wide = utf16Of(bytes)) // before UTF-8, in which zeros are valid
        return decoded(bytes, *wide);
    if (const auto utf8 = decoded(bytes, QStringConverter::Utf8))
        return utf8;
    return decoded(bytes, QStringConverter::Latin1);
}

} // namespace

std::optional<TextSample> textSampleOf(const QByteArray& bytes) {
    auto text = textOf(bytes.left(TextSample::maxBytes));
    if (!text || looksBinary(*text))
        return std::nullopt;
    return TextSample{*std::move(text), bytes.size() > TextSample::maxBytes};
}

std::optional<TextSample> readTextSample(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return textSampleOf(file.read(TextSample::maxBytes + 1));
}

} // namespace tessary
