#include "transfer/queue/CopyQueue.h"

#include "support/Gate.h"
#include "support/MainLoop.h"
#include "transfer/CopySides.h"
#include "transfer/queue/CopyHistory.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using testing::ElementsAre;
using Operation = MemoryFileSystem::Operation;
using Status = CopyJob::Status;

MemoryFileSystem::Options phoneCalled(const char* name) {
    return {.identity = s(name), .displayName = s(name), .queue = std::make_shared<PhoneQueue>()};
}

class CopyQueueTest : public MainLoop {
protected:
    CopyQueueTest() {
        one.fill({{s("a"), "a"}, {s("b"), film}, {s("d/e"), "e"}}, noon);
        other.fill({{s("x"), "x"}}, noon);
        QObject::connect(&queue, &CopyQueue::jobFinished, [this] { ++finished; });
    }
    ~CopyQueueTest() override {
        gate.open();
    }

    /// Copies one thing of a phone to this computer, or to `to`.
    QUuid copy(MemorySide& from, const char* name, CopyEnd* to = nullptr) {
        CopyEnd& target = to != nullptr ? *to : here;
        return queue.enqueue({.from = from.files(),
                              .to = target.files(),
                              .items = {{from.memory->item(from.at(s(name))), s(name)}},
                              .folder = target.root()});
    }
    /// Reading from a phone waits for the gate.
    void hold(MemorySide& phone) {
        phone.memory->beforeEach([this](const MemoryFileSystem::Request& request) {
            if (request.operation == Operation::read)
                gate.pass();
        });
    }
    [[nodiscard]] std::vector<Status> statuses() const {
        std::vector<Status> found;
        for (const CopyJob& job : queue.jobs())
            found.push_back(job.status);
        return found;
    }
    [[nodiscard]] const CopyJob& job(const QUuid& id) const {
        return queue.jobs().at(static_cast<std::size_t>(queue.indexOf(id)));
    }
    void finishAll() {
        ASSERT_TRUE(eventually([this] { return queue.summary().isIdle(); }));
    }

    MemorySide one{phoneCalled("one")};
    MemorySide other{phoneCalled("other")};
    DiskSide here;
    Gate gate;
    CopyQueue queue;
    int finished = 0;
};

TEST_F(CopyQueueTest, onePhoneCopiesInOrderAndTwoSideBySide) {
    hold(one);
    copy(one, "a");
    copy(one, "b");
    copy(other, "x");
    ASSERT_TRUE(eventually([this] { return queue.jobs()[2].status == Status::done; }));
    EXPECT_THAT(statuses(), ElementsAre(Status::running, Status::queued, Status::done));
    gate.open();
    finishAll();
    EXPECT_THAT(statuses(), ElementsAre(Status::done, Status::done, Status::done));
}

TEST_F(CopyQueueTest, aCopyBetweenPhonesNeedsBothAndIsNotOvertaken) {
    hold(one);
    copy(one, "a");
    copy(other, "x", &one);
    copy(other, "x");
    turnFor(100ms);
    EXPECT_THAT(statuses(), ElementsAre(Status::running, Status::queued, Status::queued));
    gate.open();
    finishAll();
    EXPECT_EQ(one.contents().value(s("x")), "x");
}

TEST_F(CopyQueueTest, cancellingShowsAtOnceAndLetsTheNextBegin) {
    hold(one);
    const QUuid a = copy(one, "a");
    const QUuid b = copy(one, "b");
    copy(one, "d");
    ASSERT_TRUE(eventually([this] { return gate.waiting() > 0; }));
    queue.cancel(b);
    queue.cancel(a);
    EXPECT_THAT(statuses(), ElementsAre(Status::cancelled, Status::cancelled, Status::queued));
    queue.clearFinished();
    EXPECT_THAT(statuses(), ElementsAre(Status::cancelled, Status::queued)) << "it still ends";
    gate.open();
    finishAll();
    queue.cancel(a);
    EXPECT_THAT(statuses(), ElementsAre(Status::cancelled, Status::done));
    EXPECT_EQ(here.contents().keys(), (QStringList{s("d/"), s("d/e")}));
    queue.clearFinished();
    EXPECT_TRUE(queue.jobs().empty());
    EXPECT_EQ(queue.summary().finished, 0);
}

TEST_F(CopyQueueTest, whatIsPausedWaitsAndGoesOn) {
    hold(one);
    const QUuid d = copy(one, "d");
    const QUuid a = copy(one, "a");
    ASSERT_TRUE(eventually([this] { return gate.waiting() > 0; }));
    queue.pause(d);
    EXPECT_EQ(job(d).status, Status::paused);
    gate.open();
    ASSERT_TRUE(eventually([&] { return job(a).status == Status::done; }));
    EXPECT_EQ(job(d).status, Status::paused);
    EXPECT_EQ(queue.summary().queued, 1);
    queue.resume(d);
    finishAll();
    EXPECT_EQ(job(d).status, Status::done);
    EXPECT_EQ(here.contents().keys(), (QStringList{s("a"), s("d/"), s("d/e")})); // no "d (2)"
    queue.pause(d); // no effect on what has finished
    EXPECT_EQ(job(d).status, Status::done);
}

/// The answers were given about other clashes than those that a second try meets.
TEST_F(CopyQueueTest, whatWasLeftOutReplacesNothingWhenItIsTriedAgain) {
    for (const bool isMove : {false, true}) {
        SCOPED_TRACE(isMove);
        MemorySide phone(phoneCalled(isMove ? "moved from" : "copied from"));
        DiskSide target;
        phone.fill({{s("d/e"), "e"}, {s("d/f"), "f"}}, noon);
        target.fill({{s("d/"), {}}, {s("d/e"), "the user's own"}}, noon);
        phone.memory->fail(Operation::read, s("/side/d/e"), {PhoneError::refused}, 1);
        const QUuid id = queue.enqueue({.from = phone.files(),
                                        .to = target.files(),
                                        .items = {{phone.memory->item(s("/side/d")), s("d")}},
                                        .folder = target.root(),
                                        .policy =
                                            [](const Clash& clash) {
                                                return clash.coming.isDirectory
                                                           ? ClashAnswer::keepBoth
                                                           : ClashAnswer::replace;
                                            },
                                        .removesSource = isMove});
        finishAll();
        ASSERT_EQ(job(id).status, Status::incomplete);
        target.put(s("d (2)/e"), "put there meanwhile", noon);
        queue.goOn(id);
        finishAll();
        EXPECT_EQ(job(id).status, Status::done);
        EXPECT_EQ(target.contents(), (Contents{{s("d/"), {}},
                                               {s("d/e"), "the user's own"},
                                               {s("d (2)/"), {}},
                                               {s("d (2)/e"), "put there meanwhile"},
                                               {s("d (2)/f"), "f"},
                                               {s("d (2)/e (2)"), "e"}}));
        EXPECT_EQ(phone.contents().isEmpty(), isMove);
    }
}

TEST_F(CopyQueueTest, whoGoesOnRightAfterCancellingIsNotCancelledAgain) {
    hold(one);
    const QUuid id = copy(one, "b");
    ASSERT_TRUE(eventually([this] { return gate.waiting() > 0; }));
    queue.cancel(id);
    queue.goOn(id);
    EXPECT_EQ(job(id).status, Status::queued);
    gate.open();
    finishAll();
    EXPECT_EQ(job(id).status, Status::done);
}

TEST_F(CopyQueueTest, jobsThatWaitCanBeReordered) {
    hold(one);
    copy(one, "a");
    copy(one, "b");
    const QUuid d = copy(one, "d");
    std::vector<std::pair<int, int>> moves;
    QObject::connect(&queue, &CopyQueue::jobAboutToBeMoved,
                     [&moves](int from, int before) { moves.emplace_back(from, before); });
    queue.moveTo(d, 1);
    EXPECT_EQ(queue.indexOf(d), 1);
    EXPECT_EQ(queue.jobs()[2].name, s("b"));
    queue.moveTo(d, 1); // is there
    queue.moveTo(d, 2);
    EXPECT_THAT(moves, ElementsAre(std::pair(2, 1)));
    std::vector<QString> order;
    QObject::connect(&queue, &CopyQueue::jobFinished,
                     [&](const QUuid& id) { order.push_back(job(id).name); });
    gate.open();
    finishAll();
    EXPECT_THAT(order, ElementsAre(s("a"), s("d"), s("b")));
}

/// What broke off is gone on with in another run of the program, from its record.
TEST_F(CopyQueueTest, aRecordSaysWhatHappenedAndGoesOn) {
    const TemporaryFolder disk;
    one.memory->fail(Operation::read, s("/side/d/e"), {PhoneError::accessDenied, {s("/side/d/e")}},
                     1);
    one.memory->failAfterBytes(Operation::read, s("/side/b"), 1000, {PhoneError::unplugged});
    const QUuid a = copy(one, "a");
    const QUuid d = copy(one, "d");
    const QUuid b = copy(one, "b");
    const CopyRecord begun = queue.recordOf(b); // all that a killed program leaves
    finishAll();
    {
        CopyHistory history(disk.path(s("new/history")));
        CopyRecord ofApp = queue.recordOf(a);
        ofApp.job.sourceApp = s("Notes");
        ofApp.job.targetApp = s("Pages");
        history.add({queue.recordOf(a), queue.recordOf(d), queue.recordOf(b), ofApp});
    }
    CopyHistory history(disk.path(s("new/history")));
    ASSERT_EQ(history.find({}).size(), 3U);
    EXPECT_EQ(history.find({})[0].job.id, a); // it was added last
    EXPECT_EQ(history.find({})[0].job.sourceApp, s("Notes"));
    EXPECT_EQ(history.find({})[0].job.targetApp, s("Pages"));
    ASSERT_EQ(history.find(s("SIDE/D ONE")).size(), 1U);
    const CopyRecord left = history.find(s("side/d one"))[0];
    EXPECT_EQ(left.job.status, Status::incomplete);
    ASSERT_EQ(left.job.leftOut.size(), 1U);
    EXPECT_EQ(left.job.leftOut[0].error, Error(PhoneError::accessDenied, {s("/side/d/e")}));
    ASSERT_EQ(history.unfinished().size(), 1U);
    const CopyRecord broken = history.unfinished()[0];
    EXPECT_EQ(broken.job.error, Error(PhoneError::unplugged));
    history.noteOffered({b});
    EXPECT_TRUE(history.unfinished().empty());
    history.add({begun});
    EXPECT_TRUE(history.unfinished().empty()) << "it is under way";
    EXPECT_EQ(CopyHistory(disk.path(s("new/history"))).unfinished().size(), 1U);
    for (const CopyRecord& record : {left, broken})
        queue.enqueue(record.requestForRest(one.files(), here.files()));
    finishAll();
    EXPECT_EQ(here.contents(),
              (Contents{{s("a"), "a"}, {s("b"), film}, {s("d/"), {}}, {s("d/e"), "e"}}));
}

TEST_F(CopyQueueTest, historyForgetsWhatIsOldAndSurvivesWhatIsBroken) {
    const TemporaryFolder disk;
    copy(one, "a");
    finishAll();
    CopyRecord record = queue.recordOf(queue.jobs()[0].id);
    CopyRecord old = record;
    old.job.id = QUuid::createUuid();
    old.ended = record.ended.addDays(-CopyHistory::keptDays - 1);
    {
        CopyHistory history(disk.path());
        history.add({old});
        EXPECT_TRUE(history.find({}).empty());
        history.add({record});
        EXPECT_EQ(history.find({}).size(), 1U);
        old.ended = record.ended.addYears(5); // by a clock that was wrong
        history.add({old});
        EXPECT_LE(history.find({})[0].ended, QDateTime::currentDateTime());
    }
    const QByteArray whole = disk.read(s("copies.json"));
    for (qsizetype length = 0; length < whole.size(); length += 7) {
        disk.write(s("copies.json"), whole.left(length));
        EXPECT_TRUE(CopyHistory(disk.path()).find({}).empty()) << length;
    }
    disk.write(s("copies.json"), R"([{"id":1},7,{"direction":99},null,[]])");
    CopyHistory history(disk.path());
    history.add({record});
    EXPECT_EQ(CopyHistory(disk.path()).find({}).size(), 1U);
    history.clear();
    EXPECT_TRUE(CopyHistory(disk.path()).find({}).empty());
}

} // namespace
} // namespace tessary
