#include "simulator/mtp/MTPResponderTransaction.h"

#include "simulator/storage/MTPRefusal.h"

namespace tessary {

Bytes MTPResponderTransaction::receiveDataset() {
    constexpr std::size_t largestDataset = std::size_t{64} << 10;
    Bytes dataset;
    link.receiveData(command, [&](ByteView bytes) {
        if (dataset.size() + bytes.size() > largestDataset)
            throw MTPRefusal(MTPResponseCode::invalidParameter);
        dataset.insert(dataset.end(), bytes.begin(), bytes.end());
    });
    return dataset;
}

} // namespace tessary
