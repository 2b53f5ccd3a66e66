// Steps that take long: others use the phone meanwhile, and a file that broke off is gone on with.

#include "adb/ADBFilesFixture.h"

#include <QCryptographicHash>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class ADBLongStepsTest : public ADBFilesFixture {
protected:
    [[nodiscard]] NewFile whole() const {
        return {u"/sdcard"_s, u"part"_s, bytes_.size(), date_, true};
    }
    FileItem goOn(qint64 kept, const QByteArray& content, const ByteProgress& progress = {}) {
        return files_->append(item(u"/part"_s), kept, whole(), sourceOf(content), progress, {});
    }

    const QByteArray bytes_ = manyBytes(20'000'000);
    const QDateTime date_{QDate(2019, 5, 6), QTime(7, 8, 9)};
};

TEST_P(ADBLongStepsTest, whatBrokeOffStaysAndGoesOnWhereverItIsTold) {
    ASSERT_TRUE(files_->capabilities({}).appends);
    ASSERT_LE(files_->capabilities({}).appendsFrom, bytes_.size());
    std::stop_source stop;
    const auto stopLate = [&](qint64) {
        if (QFileInfo(disk_.path(u"phone/part"_s)).size() > 1'000'000)
            stop.request_stop(); // more is on its way
    };
    EXPECT_EQ(
        codeOf([&] { (void)files_->write(whole(), sourceOf(bytes_), stopLate, stop.get_token()); }),
        "cancelled");
    EXPECT_GT(item(u"/part"_s).size, 1'000'000);
    EXPECT_TRUE(bytes_.startsWith(content(u"part"_s)));
    write(u"part"_s, bytes_.first(7'000'000));
    for (const qint64 kept : {6'000'000, 5'242'880, 4'194'305, 0, 20'000'000}) {
        qint64 first = -1;
        const FileItem made =
            goOn(kept, bytes_.mid(kept), [&](qint64 done) { first = first < 0 ? done : first; });
        EXPECT_TRUE(content(u"part"_s) == bytes_) << kept;
        EXPECT_EQ(made, item(u"/part"_s));
        EXPECT_EQ(made.modifiedDate, date_);
        EXPECT_TRUE(first < 0 || (first > kept && first <= kept + 65'536)) << first;
        if (kept == 6'000'000)
            write(u"part"_s, bytes_.first(kept));
    }
}

TEST_P(ADBLongStepsTest, whatStandsInTheWayOfGoingOnIsAnErrorAndThePartStays) {
    constexpr qint64 kept = 6'291'456;
    const QByteArray rest = bytes_.mid(kept);
    const auto breaks = [this](const auto& change) {
        return [this, change] { breakPhone([&](ADBDFaults& faults) { change(faults); }); };
    };
    const struct {
        const char* name;
        std::function<void()> before;
        QByteArray rest;
        std::string code;
    } rows[] = {
        {"full", breaks([](auto& faults) { faults.storeFullAfter = 12'000'000; }), rest, "full"},
        {"read only", breaks([](auto& faults) { faults.readOnly = true; }), rest, "writeProtected"},
        {"a shell that does nothing", breaks([](auto& faults) {
             faults.rewrite = [](const QByteArray& line) {
                 return line.contains("seek=") ? std::optional(QByteArray()) : std::nullopt;
             };
         }),
         rest, "wrongSize"},
        {"a phone that tells other sizes", breaks([](auto& faults) { faults.sizeLie = 1; }), rest,
         "wrongSize"},
        {"too little comes", [] {}, rest.chopped(1), "wrongSize"},
        {"the link is lost", breaks([](auto& faults) { faults.dropAfter = 5'000'000; }), rest,
         "brokenOff"},
        {"it was cut short", [&] { write(u"part"_s, bytes_.first(kept - 1)); }, rest, "changed"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        write(u"part"_s, bytes_.first(kept + 1000));
        row.before();
        EXPECT_EQ(codeOf([&] { (void)goOn(kept, row.rest); }), row.code);
        breakPhone([](ADBDFaults& faults) { faults = {}; });
        ASSERT_TRUE(comesBack());
        EXPECT_TRUE(bytes_.startsWith(content(u"part"_s))) << content(u"part"_s).size();
        EXPECT_GE(content(u"part"_s).size(), kept - 1);
    }
}

TEST_P(ADBLongStepsTest, commandsThatWorkForLongLeaveThePhoneToOthers) {
    write(u"film"_s, bytes_);
    write(u"folder/a"_s, "a");
    int others = 0;
    breakPhone([&](ADBDFaults& faults) {
        faults.rewrite = [&](const QByteArray& line) -> std::optional<QByteArray> {
            if (line.contains("/film'") || line.contains("'rm' '-rf'")) {
                const PhoneQueue::Turn turn = queue_->take({});
                ++others;
            }
            return std::nullopt;
        };
    });
    EXPECT_EQ(files_->hash(item(u"/film"_s), {}),
              QCryptographicHash::hash(bytes_, QCryptographicHash::Sha256));
    files_->removeTree(item(u"/folder"_s), {});
    EXPECT_FALSE(disk_.has(u"phone/folder"_s));
    EXPECT_EQ(others, 2);
}

INSTANTIATE_TEST_SUITE_P(Ways, ADBLongStepsTest, allADBWays, testing::PrintToStringParamName());

} // namespace
} // namespace tessary
