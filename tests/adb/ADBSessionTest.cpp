#include "adb/files/ADBSession.h"
#include "adb/ADBScript.h"

#include <gmock/gmock.h>

#include <deque>

namespace tessary {

namespace {

using Answers = std::deque<Bytes>;

/// Says one thing for each thing that it is told; when nothing is left, it has ended.
class AnsweringStream final : public ADBStream {
public:
    explicit AnsweringStream(Answers answers) : answers_(std::move(answers)) {}

    std::size_t read(std::span<std::byte> to, const Wait&) override {
        const std::size_t count = std::min(to.size(), said_.size());
        std::copy_n(said_.begin(), count, to.begin());
        said_.erase(said_.begin(), said_.begin() + static_cast<std::ptrdiff_t>(count));
        return count;
    }
    void writeOn(ByteView&, const Wait&) override {
        if (answers_.empty())
            return;
        said_.insert(said_.end(), answers_.front().begin(), answers_.front().end());
        answers_.pop_front();
    }
    [[nodiscard]] bool hasInput() const override {
        return !said_.empty();
    }

private:
    Answers answers_;
    Bytes said_;
};

/// A phone of whose streams each says something else.
class AnsweringPhone final : public ADBConnection {
public:
    explicit AnsweringPhone(std::deque<Answers> streams) : streams_(std::move(streams)) {}

    std::unique_ptr<ADBStream> open(const QByteArray&, const Wait&) override {
        ++opened;
        auto stream = std::make_unique<AnsweringStream>(streams_.front());
        streams_.pop_front();
        return stream;
    }
    QByteArrayList features(const Wait&) override {
        return {"stat_v2", "shell_v2"};
    }

    int opened = 0;

private:
    std::deque<Answers> streams_;
};

const Bytes newStat = Record("LST2").zeros(20).number(0x81B0).zeros(44);

class KeptStreamTest : public testing::Test {
protected:
    void phoneWith(std::deque<Answers> streams) {
        phone_ = std::make_shared<AnsweringPhone>(std::move(streams));
        session_.emplace(phone_);
        EXPECT_TRUE(session_->facts("/sdcard/a", false, {})) << "the stream is kept from here on";
    }
    std::string list() {
        return codeOf([&] {
            session_->asking({}, [&](ADBSyncClient& sync) {
                sync.list("/sdcard/", [&](const ADBFacts&, QByteArray&&) { ++names_; }, {});
            });
        });
    }

    std::shared_ptr<AnsweringPhone> phone_;
    std::optional<ADBSession> session_;
    int names_ = 0;
};

TEST_F(KeptStreamTest, oneThatEndedUnnoticedIsOpenedAnewAndAskedOnceMore) {
    phoneWith({{newStat}, {oneEntry + listEnd}, {newStat}});
    EXPECT_EQ(list(), "nothing");
    EXPECT_EQ(names_, 1);
    EXPECT_TRUE(session_->facts("/sdcard/a", false, {}));
    EXPECT_EQ(phone_->opened, 3);
}

TEST_F(KeptStreamTest, whatThePhoneHasBegunToAnswerIsNotAskedAgain) {
    for (const Bytes& begun : {oneEntry, Bytes(1, std::byte{'D'})}) {
        names_ = 0;
        phoneWith({{newStat, begun}, {oneEntry + listEnd}});
        EXPECT_EQ(list(), "brokenOff");
        EXPECT_EQ(names_, begun == oneEntry ? 1 : 0) << "an entry is never handed over twice";
        EXPECT_EQ(phone_->opened, 1);
    }
}

TEST_F(KeptStreamTest, newStreamThatEndsAtOnceIsAnError) {
    phoneWith({{newStat}, {}, {}, {oneEntry + listEnd}});
    EXPECT_EQ(list(), "brokenOff");
    EXPECT_EQ(phone_->opened, 2);
    EXPECT_EQ(list(), "brokenOff") << "a stream that is opened for a request is not tried twice";
    EXPECT_EQ(phone_->opened, 3);
    EXPECT_EQ(list(), "nothing");
}

} // namespace

} // namespace tessary
