#include "FuzzTarget.h"
#include "ios/helper/HelperMessages.h"

#include <algorithm>

using namespace tessary;

namespace {

template <typename Value>
Value valueIn(const QByteArray& bytes) {
    QDataStream stream(bytes);
    Value value{};
    stream >> value;
    return value;
}

} // namespace

/// What the helper that speaks to an iPhone answers, once a phone has taken it over.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ByteView input = fuzzInput(data, size);
    const QByteArray bytes(reinterpret_cast<const char*>(input.data()),
                           static_cast<qsizetype>(input.size()));
    QDataStream stream(bytes);
    if (const auto error = readError(stream))
        require(!error->logText().isEmpty());
    // Every name and every app takes bytes of its own.
    require(valueIn<std::vector<QByteArray>>(bytes).size() <= input.size() + 1);
    require(valueIn<std::vector<AppInfo>>(bytes).size() <= input.size() + 1);
    const auto facts = valueIn<IPhoneFacts>(bytes);
    require(!facts.battery || (*facts.battery >= 0 && *facts.battery <= 100));
    require(!facts.storage || (facts.storage->freeBytes >= 0 &&
                               facts.storage->freeBytes <= facts.storage->totalBytes));
    const auto info = valueIn<std::optional<AFCFileInfo>>(bytes);
    require(!info || !info->size || *info->size >= 0);
    (void)valueIn<std::optional<quint64>>(bytes);
    return 0;
}
