#pragma once

#include "adb/protocol/ADBError.h"
#include "adb/services/ADBStream.h"
#include "base/values/LittleEndian.h"
#include "support/CodeOf.h"

#include <algorithm>
#include <memory>
#include <string>

namespace tessary {

/// A record: its word, and numbers or texts.
class Record {
public:
    explicit Record(const char* word) {
        text(word);
    }
    Record& number(std::uint32_t value) {
        appendLittleEndian(bytes_, value);
        return *this;
    }
    Record& text(const QByteArray& value) {
        const auto* data = reinterpret_cast<const std::byte*>(value.constData());
        bytes_.insert(bytes_.end(), data, data + value.size());
        return *this;
    }
    Record& zeros(std::size_t count) {
        bytes_.resize(bytes_.size() + count);
        return *this;
    }
    operator Bytes() const { // NOLINT(google-explicit-constructor)
        return bytes_;
    }

private:
    Bytes bytes_;
};

inline Bytes operator+(Bytes left, const Bytes& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

/// A phone's side of one stream: what it says, whatever it is asked, and then the end.
class Script final : public ADBStream {
public:
    /// `again` is said without end after `bytes`.
    explicit Script(Bytes bytes, Bytes again = {}, std::size_t step = 3)
        : bytes_(std::move(bytes)), again_(std::move(again)), step_(step) {}

    std::size_t read(std::span<std::byte> to, const Wait&) override {
        if (at_ == bytes_.size() && !again_.empty()) {
            bytes_ = again_;
            at_ = 0;
        }
        const std::size_t count = std::min({to.size(), step_, bytes_.size() - at_});
        std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(at_), count, to.begin());
        at_ += count;
        return count;
    }
    void writeOn(ByteView& left, const Wait&) override {
        left = {};
    }
    [[nodiscard]] bool hasInput() const override {
        return false; // nothing is said before it is asked
    }

private:
    Bytes bytes_;
    const Bytes again_;
    std::size_t at_ = 0;
    const std::size_t step_;
};

inline const Bytes oneEntry = Record("DENT").number(0x81B0).number(5).number(9).number(1).text("a");
inline const Bytes listEnd = Record("DONE").zeros(16);
inline const Bytes oneStat = Record("STAT").number(0x81B0).number(5).number(9);

/// Gives one script to whoever opens a service.
class ScriptedConnection final : public ADBConnection {
public:
    explicit ScriptedConnection(Bytes bytes, Bytes again = {})
        : bytes_(std::move(bytes)), again_(std::move(again)) {}
    std::unique_ptr<ADBStream> open(const QByteArray& service, const Wait&) override {
        service_ = service;
        return std::make_unique<Script>(bytes_, again_, 4096);
    }
    QByteArrayList features(const Wait&) override {
        return {};
    }
    [[nodiscard]] const QByteArray& service() const {
        return service_;
    }

private:
    Bytes bytes_;
    Bytes again_;
    QByteArray service_;
};

} // namespace tessary
