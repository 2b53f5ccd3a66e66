#include "FuzzTarget.h"
#include "adb/protocol/ADBError.h"
#include "adb/services/ADBShellClient.h"
#include "adb/services/ADBShellSession.h"
#include "adb/services/ADBSyncClient.h"

#include <algorithm>

using namespace tessary;

namespace {

/// Says what it was given, in pieces whose sizes the first byte chooses, and ends.
class InputStream final : public ADBStream {
public:
    explicit InputStream(ByteView input)
        : input_(input.empty() ? input : input.subspan(1)),
          step_(input.empty() ? 1 : 1 + std::to_integer<std::size_t>(input[0])) {}

    std::size_t read(std::span<std::byte> to, const Wait&) override {
        const std::size_t count = std::min({to.size(), step_, input_.size()});
        std::copy_n(input_.begin(), count, to.begin());
        input_ = input_.subspan(count);
        return count;
    }
    void writeOn(ByteView& left, const Wait&) override {
        left = {};
    }
    [[nodiscard]] bool hasInput() const override {
        return false;
    }

private:
    ByteView input_;
    const std::size_t step_;
};

class InputPhone final : public ADBConnection {
public:
    explicit InputPhone(ByteView input) : input_(input) {}
    std::unique_ptr<ADBStream> open(const QByteArray&, const Wait&) override {
        return std::make_unique<InputStream>(input_);
    }
    QByteArrayList features(const Wait&) override {
        return {};
    }

private:
    const ByteView input_;
};

/// Whatever a phone answers, a request ends well or with an error of this layer.
template <typename Work>
void attempt(Work work) {
    try {
        work();
    } catch (const Error& error) {
        require(error.code().as<ADBError>().has_value());
    }
}

} // namespace

/// What a phone's sync and shell services answer, in both versions.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ByteView input = fuzzInput(data, size);
    for (const bool isNew : {false, true}) {
        const auto client = [&] {
            return ADBSyncClient(std::make_unique<InputStream>(input), {isNew, isNew});
        };
        attempt([&] {
            auto sync = client();
            std::size_t bytes = 0;
            sync.list("/sdcard/",
                      [&](const ADBFacts&, QByteArray&& name) {
                          bytes += static_cast<std::size_t>(name.size());
                      },
                      {});
            require(bytes <= size);
            (void)sync.stat({{"/sdcard/a", true}}, {});
        });
        attempt([&] {
            auto sync = client();
            std::size_t bytes = 0;
            const std::uint64_t count = sync.receive(
                "/sdcard/a", [](const ADBFacts&) {},
                [&](ByteView piece) {
                    bytes += piece.size();
                    return true;
                },
                {});
            require(bytes == count && bytes <= size);
        });
        attempt([&] {
            auto sync = client();
            (void)sync.send(
                "/sdcard/a", 0100660, [](std::span<std::byte>) { return std::size_t{0}; }, 0,
                [](std::uint64_t) {}, {});
        });
        attempt([&] {
            auto sync = client();
            sync.sendTogether({{"/a", "a", 0}, {"/b", "b", 0}}, 0100660, [](std::uint64_t) {}, {});
        });
        attempt([&] {
            auto sync = client();
            for (const auto& content : sync.receiveTogether({{"/a", 1}, {"/b", 2}}, {}))
                require(!content || content->size() <= 2);
        });
        attempt([&] {
            InputPhone phone(input);
            const ADBCommandResult result =
                ADBShellClient(phone, isNew ? QByteArrayList{"shell_v2"} : QByteArrayList())
                    .run("ls", {});
            require(static_cast<std::size_t>(result.output.size() + result.errors.size()) <= size);
        });
        attempt([&] {
            InputPhone phone(input);
            (void)ADBShellSession(phone, {}).run("'ls'", {});
        });
    }
    return 0;
}
