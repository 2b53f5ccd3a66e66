#pragma once

#include "mtp/MTPClient.h"
#include "mtp/MockMTPTransport.h"
#include "support/MTPContainers.h"
#include "support/MTPFailure.h"

#include <gmock/gmock.h>

namespace tessary {

inline constexpr std::uint16_t ok = 0x2001;
inline constexpr std::uint32_t storage = 0x00010001;

/// A client on a transport in memory.
class MTPClientTest : public ::testing::Test {
protected:
    void answer(std::initializer_list<Bytes> containers) {
        for (const Bytes& container : containers)
            mock_->enqueueIncoming(ByteView(container));
    }
    std::vector<Bytes> sent() {
        std::vector<Bytes> buffers;
        while (auto buffer = mock_->popOutgoing())
            buffers.push_back(*std::move(buffer));
        return buffers;
    }
    /// The next call finds the client able to go on.
    void expectUsable(std::uint32_t nextTransactionID) {
        (void)sent();
        answer({dataOf(0x1004, nextTransactionID, hexBytes("01000000 01000100")),
                responseOf(ok, nextTransactionID)});
        EXPECT_THAT(client_.getStorageIDs(), ::testing::ElementsAre(storage));
        EXPECT_THAT(sent(), ::testing::ElementsAre(commandOf(0x1004, nextTransactionID, {})));
    }

    MockMTPTransport* mock_ = new MockMTPTransport;
    MTPClient client_{std::unique_ptr<MTPTransportProtocol>(mock_)};
};

} // namespace tessary
