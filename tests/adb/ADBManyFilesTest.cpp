#include "adb/ADBFilesFixture.h"
#include "support/Soon.h"

namespace tessary {

namespace {

using namespace Qt::StringLiterals;
using testing::Each;
using testing::IsEmpty;

/// Files that cross in a few steps for all of them.
class ADBManyFilesTest : public ADBFilesFixture {
protected:
    static constexpr int count = 150; // more than go into one group

    static std::vector<SmallFile> manyFiles() {
        std::vector<SmallFile> files;
        for (int n = 0; n < count; ++n)
            files.push_back({u"it's n\u00b0 %1.jpg"_s.arg(n), manyBytes(1000 * (n % 70)),
                             QDateTime(QDate(2019, 5, 6), QTime(7, 8, n % 60))});
        return files;
    }
    std::vector<std::optional<FileItem>> writeAll(
        const std::vector<SmallFile>& files, const Call& call = {},
        const std::function<bool(std::size_t)>& isWanted = [](std::size_t) { return true; },
        const ByteProgress& progress = {}) {
        return files_->writeTogether(u"/sdcard/many"_s, files, isWanted, progress, call);
    }

    const QString folder_ = disk_.makeFolder(u"phone/many"_s);
};

TEST_P(ADBManyFilesTest, crossBothWaysWholeAndDated) {
    const std::vector<SmallFile> files = manyFiles();
    ASSERT_TRUE(files_->capabilities({}).readsTogether && files_->capabilities({}).writesTogether);
    adbd_->clearLog();
    const auto made = writeAll(files);
    EXPECT_LT(adbd_->log().size(), 5U) << "streams are kept";
    ASSERT_EQ(made.size(), files.size());
    std::vector<FileItem> items;
    for (std::size_t n = 0; n < files.size(); ++n) {
        ASSERT_TRUE(made[n]);
        EXPECT_EQ(made[n]->path, u"/sdcard/many/"_s + files[n].name);
        EXPECT_EQ(made[n]->modifiedDate, files[n].modified);
        EXPECT_EQ(content(u"many/"_s + files[n].name), files[n].content);
        items.push_back(*made[n]);
    }
    EXPECT_EQ(disk_.names(u"phone/many"_s).size(), count) << "and nothing else";
    const auto read = files_->readTogether(items, {});
    ASSERT_EQ(read.size(), files.size());
    for (std::size_t n = 0; n < files.size(); ++n)
        EXPECT_EQ(read[n], files[n].content);
}

TEST_P(ADBManyFilesTest, takenAndUnwantedOnesAreLeftOutAlone) {
    write(u"many/taken"_s, "old");
    disk_.makeFolder(u"phone/many/folder"_s);
    const std::vector<SmallFile> files{{u"taken"_s, "new", {}},
                                       {u"folder"_s, "new", {}},
                                       {u"unwanted"_s, "new", {}},
                                       {u"late"_s, "new", {}},
                                       {u"good"_s, "new", {}}};
    const auto made = writeAll(files, {}, [&](std::size_t n) {
        if (files[n].name == u"late"_s)
            write(u"many/late"_s, "another's"); // in between
        return files[n].name != u"unwanted"_s;
    });
    for (std::size_t n = 0; n < files.size(); ++n)
        EXPECT_EQ(made[n].has_value(), files[n].name == u"good"_s) << n;
    EXPECT_EQ(disk_.names(u"phone/many"_s),
              (QStringList{u"folder"_s, u"good"_s, u"late"_s, u"taken"_s}));
    EXPECT_EQ(content(u"many/taken"_s), "old");
    EXPECT_EQ(content(u"many/late"_s), "another's");
}

TEST_P(ADBManyFilesTest, whatIsRefusedOrWrongLeavesNothing) {
    const std::pair<const char*, std::function<void(ADBDFaults&)>> rows[] = {
        {"writeProtected", [](ADBDFaults& faults) { faults.readOnly = true; }},
        {"nothing", [](ADBDFaults& faults) { faults.sizeLie = -1; }},
        {"nothing",
         [](ADBDFaults& faults) {
             faults.rewrite = [](QByteArray line) -> std::optional<QByteArray> {
                 const QByteArray sign = "; echo ";
                 if (!line.startsWith("'mv'"))
                     return std::nullopt;
                 return line.mid(line.indexOf(sign) + sign.size()).replace("$?", "0") + '\n';
             };
         }},
    };
    for (const auto& [code, change] : rows) {
        breakPhone(change);
        std::vector<std::optional<FileItem>> made;
        EXPECT_EQ(codeOf([&] { made = writeAll(manyFiles(), {}); }), code);
        EXPECT_THAT(made, Each(std::nullopt));
        breakPhone([](ADBDFaults& faults) { faults = {}; });
        EXPECT_THAT(disk_.names(u"phone/many"_s), IsEmpty());
    }
    EXPECT_EQ(codeOf([&] {
                  (void)files_->writeTogether(u"/none"_s, manyFiles(),
                                              [](std::size_t) { return true; }, {}, {});
              }),
              "notFound");
    EXPECT_EQ(codeOf([&] {
                  (void)writeAll({{u"../x"_s, "x", {}}, {u"y"_s, "y", {}}});
              }),
              "nameNotAllowed");
    EXPECT_EQ(disk_.names(u"phone"_s), QStringList(u"many"_s));
}

TEST_P(ADBManyFilesTest, cancelledOrLostOnesHaveNoNameAndTheCallEndsSoon) {
    breakPhone([](ADBDFaults& faults) { faults.megabytesPerSecond = 0.3; });
    std::stop_source stop;
    const auto begun = std::chrono::steady_clock::now();
    EXPECT_EQ(codeOf([&] {
                  (void)writeAll(
                      manyFiles(), stop.get_token(), [](std::size_t) { return true; },
                      [&](qint64) { stop.request_stop(); });
              }),
              "cancelled");
    EXPECT_LT(std::chrono::steady_clock::now() - begun, soon);
    EXPECT_THAT(listed(u"/many"_s), IsEmpty());
    breakPhone([](ADBDFaults& faults) {
        faults = {};
        faults.dropAfter = 2'000'000;
    });
    EXPECT_EQ(codeOf([&] { (void)writeAll(manyFiles()); }),
              GetParam() == ADBWay::network ? "nothing" : "brokenOff")
        << "what is lost is known once the phone is asked again, and then they go one by one";
    ASSERT_TRUE(comesBack());
    for (const QString& name : listed(u"/many"_s))
        EXPECT_TRUE(name.startsWith(u".tessary-part-"_s)) << name.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Ways, ADBManyFilesTest, allADBWays, testing::PrintToStringParamName());

} // namespace

} // namespace tessary
