#pragma once

#include <QByteArray>

namespace tessary {

/// Leaves this process what decoding takes and nothing else, for good: decoderRules(), and this
/// computer's own fonts, for documents that bring none along. What the libraries would load later
/// is loaded before. std::system_error when that is not possible: nothing may be decoded then.
/// Needs an application object.
void enterDecodingSandbox();

/// All that is left to be read of a descriptor. PictureError when it cannot be read or is longer
/// than PictureDecoder::longestFile.
[[nodiscard]] QByteArray restOf(int descriptor);

} // namespace tessary
