// Single steps over every way to a phone, and on the disk: what holds for one holds for all.

#include "adb/keys/ADBAuthManager.h"
#include "transfer/PhoneSides.h"

#include "adb/direct/ADBDirectConnection.h"
#include "adb/direct/ADBTCPTransport.h"
#include "platform/keys/FileKeyStore.h"
#include "support/CodeOf.h"
#include "support/FileBytes.h"
#include "support/Soon.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

namespace tessary {
namespace {

using namespace std::chrono_literals;
using testing::IsEmpty;

/// A virtual phone's adbd without an adb server.
class StraightADBSide final : private OwnFolder, public FolderSide {
public:
    explicit StraightADBSide(ADBDConfig config = {.folder = {}, .ignoresCase = true})
        : FolderSide(disk, s("phone/side")), adbd_(onDisk(std::move(config))) {
        adbd_.start();
    }
    ~StraightADBSide() override {
        EXPECT_THAT(adbd_.violations(), IsEmpty());
    }
    [[nodiscard]] std::shared_ptr<PhoneFileSystem> files() override {
        return files_;
    }
    [[nodiscard]] QString root() const override {
        return s("/sdcard/side");
    }

private:
    [[nodiscard]] ADBDConfig onDisk(ADBDConfig config) const {
        config.folder = disk.path(s("phone"));
        return config;
    }
    [[nodiscard]] std::unique_ptr<ADBTransport> connect(const Wait& wait) const {
        return std::make_unique<ADBTCPTransport>(s("127.0.0.1"), adbd_.port(), wait);
    }

    const TemporaryFolder keys_;
    FaultyADBD adbd_;
    const std::shared_ptr<ADBFileSystem> files_ = std::make_shared<ADBFileSystem>(
        PhoneIdentity{}, std::make_shared<PhoneQueue>(),
        std::make_shared<ADBDirectConnection>(
            [this](const Wait& wait) { return connect(wait); },
            std::make_shared<ADBAuthManager>(std::make_unique<FileKeyStore>(keys_.path()), s("ann"),
                                             s("desk")),
            std::function<QStringList()>(), 300ms));
};

std::unique_ptr<CopyEnd> overOldADB() {
    return std::make_unique<StraightADBSide>(oldADBD(23));
}

struct StepWay {
    const char* name;
    std::function<std::unique_ptr<CopyEnd>()> end;
    const char* otherForm = "sameName"; ///< the error for a name that is there in another form
};

void PrintTo(const StepWay& way, std::ostream* stream) {
    *stream << way.name;
}

struct Step {
    const char* name;
    const char* code;
    std::function<void()> work;
};

class PhoneStepsTest : public testing::TestWithParam<StepWay> {
protected:
    static constexpr TakenName refused = TakenName::refused;
    static constexpr TakenName replaced = TakenName::replaced;

    [[nodiscard]] FileItem item(const QString& path) {
        return require(files_, end_->at(path), {});
    }
    FileItem write(const QString& folder, const QString& name, const QByteArray& content,
                   std::optional<QDateTime> date = {}) {
        return files_.write({end_->at(folder), name, content.size(), std::move(date)},
                            sourceOf(content), {}, {});
    }
    [[nodiscard]] QByteArray read(const FileItem& file, ByteRange range = {}) {
        return readBytes(files_, file, range);
    }
    /// The code that a step ends with. This computer's disk calls some by other names.
    static std::string endOf(const std::function<void()>& work) {
        const std::string code = codeOf(work);
        if (code == "nameNotUsable" || code == "nameTooLong")
            return "nameNotAllowed";
        return code == "folderInTheWay" ? "taken" : code;
    }
    /// What a step has returned is what is there since.
    void expectThere(const FileItem& made, const char* path) {
        EXPECT_EQ(made, item(s(path)));
    }
    /// Each of them ends as it says, and changes nothing.
    void expectRefusals(const std::vector<Step>& steps) {
        const Contents before = end_->contents();
        for (const Step& step : steps) {
            EXPECT_EQ(endOf(step.work), step.code) << step.name;
            EXPECT_EQ(end_->contents(), before) << step.name;
        }
    }

    const std::unique_ptr<CopyEnd> end_ = GetParam().end();
    PhoneFileSystem& files_ = *end_->files();
};

TEST_P(PhoneStepsTest, whatIsMissingTakenOrOfAnotherKindIsRefused) {
    end_->fill({{s("a/"), {}},
                {s("a/x"), "x"},
                {s("a/y"), "y"},
                {s("b/"), {}},
                {s("b/f"), "other"},
                {s("f"), "f"}},
               noon);
    const FileItem a = item(s("a"));
    const FileItem x = item(s("a/x"));
    const FileItem f = item(s("f"));
    const FileItem gone(s("gone"), end_->at(s("a/gone")), false, 1, noon);
    const FileItem top = require(files_, files_.rootOf(end_->root()).path, {});
    std::vector<Step> steps{
        {"list nothing", "notFound", [&] { (void)listAll(files_, end_->at(s("none")), {}); }},
        {"list below nothing", "notFound",
         [&] { (void)listAll(files_, end_->at(s("none/deep")), {}); }},
        {"list a file", "notAFolder", [&] { (void)listAll(files_, f.path, {}); }},
        {"read nothing", "notFound", [&] { (void)read(gone); }},
        {"remove nothing", "notFound", [&] { files_.remove(gone, {}); }},
        {"remove no tree", "notFound", [&] { files_.removeTree(gone, {}); }},
        {"rename nothing", "notFound", [&] { files_.rename(gone, s("z"), refused, {}); }},
        {"move nothing", "notFound", [&] { files_.move(gone, end_->at(s("b")), {}); }},
        {"move to nothing", "notFound", [&] { files_.move(x, end_->at(s("none")), {}); }},
        {"move into a file", "notAFolder", [&] { files_.move(x, f.path, {}); }},
        {"move into itself", "insideItself", [&] { files_.move(a, a.path, {}); }},
        {"move onto a name", "taken", [&] { files_.move(f, end_->at(s("b")), {}); }},
        {"write into nothing", "notFound", [&] { write(s("none"), s("x"), "new"); }},
        {"write into a file", "notAFolder", [&] { write(s("f"), s("x"), "new"); }},
        {"write onto a file", "taken", [&] { write(s("a"), s("x"), "new"); }},
        {"write onto a folder", "taken", [&] { write({}, s("a"), "new"); }},
        {"folder in nothing", "notFound",
         [&] { files_.makeFolder(end_->at(s("none")), s("x"), {}); }},
        {"folder in a file", "notAFolder", [&] { files_.makeFolder(f.path, s("x"), {}); }},
        {"folder onto a folder", "taken", [&] { files_.makeFolder(end_->root(), s("a"), {}); }},
        {"folder onto a file", "taken", [&] { files_.makeFolder(end_->root(), s("f"), {}); }},
        {"rename onto a file", "taken", [&] { files_.rename(x, s("y"), refused, {}); }},
        {"rename onto a folder", "taken", [&] { files_.rename(a, s("b"), refused, {}); }},
        {"remove all", "wholeStorage", [&] { files_.removeTree(top, {}); }},
        {"rename all", "wholeStorage", [&] { files_.rename(top, s("z"), refused, {}); }},
        {"move all", "wholeStorage", [&] { files_.move(top, end_->at(s("b")), {}); }},
        {"remove a full folder", "folderNotEmpty", [&] { files_.remove(a, {}); }},
    };
    if (files_.capabilities({}).renamesOntoTaken) {
        steps.push_back({"a file in a folder's place", "taken",
                         [&] { files_.rename(f, s("b"), replaced, {}); }});
        steps.push_back({"a folder in another's place", "taken",
                         [&] { files_.rename(a, s("b"), replaced, {}); }});
    }
    if (files_.capabilities({}).hasHashes)
        steps.push_back({"hash of nothing", "notFound", [&] { (void)files_.hash(gone, {}); }});
    if (files_.capabilities({}).setsDates)
        steps.push_back(
            {"date of nothing", "notFound", [&] { files_.setModified(gone, noon, {}); }});
    expectRefusals(steps);
    for (const char* nowhere : {"none", "none/at/all", "a/x/below/a/file"})
        EXPECT_EQ(files_.find(end_->at(s(nowhere)), {}), std::nullopt) << nowhere;
}

TEST_P(PhoneStepsTest, namesThatAreNoneAreRefusedEverywhere) {
    end_->put(s("f"), "f", noon);
    const FileItem f = item(s("f"));
    for (const QString& name : {QString(), s("."), s(".."), s("../f"), s("a/b"), QString(256, u'n'),
                                s("a") + QChar(0xD800), s("a") + QChar(u'\0')})
        expectRefusals(
            {{"write", "nameNotAllowed", [&] { write({}, name, "new"); }},
             {"folder", "nameNotAllowed", [&] { files_.makeFolder(end_->root(), name, {}); }},
             {"rename", "nameNotAllowed", [&] { files_.rename(f, name, refused, {}); }}});
    for (const QString& path : {s("/../f"), s("/."), s("/x/../f")}) {
        const FileItem hostile(path.section(u'/', -1), end_->root() + path, true, 0, noon);
        EXPECT_NE(endOf([&] { files_.removeTree(hostile, {}); }), "nothing") << path.toStdString();
    }
    EXPECT_EQ(end_->contents(), (Contents{{s("f"), "f"}}));
}

TEST_P(PhoneStepsTest, whatIsNotWhatWasSeenIsLeftAlone) {
    end_->fill({{s("a"), "12345"}, {s("b/"), {}}}, noon);
    const FileItem seen = item(s("a"));
    files_.remove(seen, {});
    end_->put(s("a/precious"), "p", noon);
    const FileItem folder = item(s("a"));
    FileItem fileNow = item(s("a/precious"));
    fileNow.isDirectory = true;
    expectRefusals({
        {"remove", "changed", [&] { files_.remove(seen, {}); }},
        {"remove a tree", "changed", [&] { files_.removeTree(seen, {}); }},
        {"rename", "changed", [&] { files_.rename(seen, s("c"), refused, {}); }},
        {"move", "changed", [&] { files_.move(seen, end_->at(s("b")), {}); }},
        {"read", "changed", [&] { (void)read(seen); }},
        {"a file for a tree", "changed", [&] { files_.removeTree(fileNow, {}); }},
    });
}

TEST_P(PhoneStepsTest, whatIsChangedIsToldAsItIsThen) {
    end_->fill({{s("a/"), {}}, {s("a/x"), "x"}, {s("b/"), {}}}, noon);
    expectThere(files_.rename(item(s("a/x")), s("Ünï 🎉"), refused, {}), "a/Ünï 🎉");
    expectThere(files_.move(item(s("a/Ünï 🎉")), end_->at(s("b")), {}), "b/Ünï 🎉");
    expectThere(files_.move(item(s("b")), end_->at(s("a")), {}), "a/b");
    expectThere(files_.rename(item(s("a")), s("c"), refused, {}), "c");
    expectThere(files_.makeFolder(end_->at(s("c")), s("d"), {}), "c/d");
    EXPECT_EQ(end_->contents(),
              (Contents{{s("c/"), {}}, {s("c/b/"), {}}, {s("c/b/Ünï 🎉"), "x"}, {s("c/d/"), {}}}));
    if (files_.capabilities({}).renamesOntoTaken) {
        write(s("c/d"), s("part"), "new");
        write(s("c/d"), s("old"), "old");
        expectThere(files_.rename(item(s("c/d/part")), s("old"), replaced, {}), "c/d/old");
        EXPECT_EQ(end_->contents()[s("c/d/old")], "new");
        files_.remove(item(s("c/d/old")), {});
    }
    files_.remove(item(s("c/d")), {});
    EXPECT_EQ(end_->items().size(), 1U);
    files_.removeTree(item(s("c")), {});
    EXPECT_THAT(end_->contents(), IsEmpty());
}

TEST_P(PhoneStepsTest, otherSpellingsOfANameAreOneNameWhereTheRulesSaySo) {
    const QString composed = s("caf\u00e9");
    const QString decomposed = s("cafe\u0301");
    end_->fill({{s("Dir/"), {}}, {s("Dir/x"), "x"}, {s("img.jpg"), "old"}, {composed, "c"}}, noon);
    const NameRules rules = files_.nameRules(end_->root(), {});
    if (rules.ignoresCase)
        expectRefusals({
            {"write", "sameName", [&] { write({}, s("IMG.JPG"), "new"); }},
            {"folder", "sameName", [&] { files_.makeFolder(end_->root(), s("DIR"), {}); }},
            {"rename", "sameName",
             [&] { files_.rename(item(s("Dir")), s("IMG.jpg"), refused, {}); }},
        });
    if (rules.ignoresUnicodeForm)
        expectRefusals({{"write", GetParam().otherForm, [&] { write({}, decomposed, "new"); }}});
    // Another spelling of its own name is not taken.
    EXPECT_EQ(files_.rename(item(s("img.jpg")), s("Img.jpg"), refused, {}).name, s("Img.jpg"));
    EXPECT_EQ(files_.rename(item(s("Dir")), s("dir"), refused, {}).name, s("dir"));
    Contents expected{{s("dir/"), {}}, {s("dir/x"), "x"}, {s("Img.jpg"), "old"}, {composed, "c"}};
    if (rules.ignoresUnicodeForm) {
        files_.rename(item(composed), decomposed, refused, {});
        expected.insert(decomposed, expected.take(composed));
    }
    EXPECT_EQ(end_->contents(), expected);
    if (!rules.ignoresCase && !rules.ignoresUnicodeForm) {
        write({}, s("IMG.JPG"), "new");
        write({}, decomposed, "new");
        EXPECT_EQ(end_->contents().size(), expected.size() + 2);
    }
}

/// Names that hold what shells, listings and file systems give a meaning to.
TEST_P(PhoneStepsTest, namesOfAllKindsAreListedTravelAndAreEditedAsThemselves) {
    QStringList names =
        s("-rf\n--\n lead\ntrail \na  b\nit's\n''\n\"q\"\na -> b\n$(reboot)\n`id`\n$HOME\n"
          "a;b\na&&b\na|b\n<>\n*?[x]\n\\n\n\\\n#x\n~\n!!\n{a,b}\n%s %n\nä📷\n"
          "2020-01-01 10:00 x\ntotal 4\n\ttab\n.hidden\n...\n=x\na:b\nx,33188")
            .split(u'\n');
    names << s("two\nlines") << QString(250, u'n');
    end_->putFolder(s("odd"));
    const NameRules rules = files_.nameRules(end_->root(), {});
    Contents expected{{s("odd/"), {}}};
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        if (!rules.accepts(name)) {
            EXPECT_EQ(endOf([&] { write({}, name, "x"); }), "nameNotAllowed");
            continue;
        }
        const QByteArray content = "content of " + name.toUtf8();
        const FileItem there = write({}, name, content);
        EXPECT_EQ(there, item(name));
        EXPECT_EQ(read(there), content);
        if (const auto hash = files_.hash(there, {}); hash) {
            EXPECT_EQ(hash, QCryptographicHash::hash(content, QCryptographicHash::Sha256));
        }
        const FileItem plain = files_.rename(there, s("plain"), refused, {});
        const FileItem back = files_.rename(plain, name, refused, {});
        (void)files_.move(back, end_->at(s("odd")), {});
        expected[s("odd/") + name] = content;
        if (HasFailure())
            return;
    }
    EXPECT_EQ(end_->contents(), expected);
    EXPECT_EQ(listAll(files_, end_->at(s("odd")), {}).items.size() + 1, expected.size());
    files_.removeTree(item(s("odd")), {});
    EXPECT_THAT(end_->contents(), IsEmpty());
}

TEST_P(PhoneStepsTest, contentsDatesAndProgressAreRightAtEverySize) {
    const QDateTime date(QDate(2020, 2, 29), QTime(12, 34, 56));
    for (const qint64 size : {0, 1, 65'535, 65'536, 65'537, 131'071, 131'072, 131'073, 5'000'000}) {
        SCOPED_TRACE(size);
        const QByteArray content = manyBytes(size);
        std::vector<qint64> steps{0};
        const FileItem made = files_.write({end_->root(), s("f"), size, date}, sourceOf(content),
                                           [&](qint64 done) { steps.push_back(done); }, {});
        EXPECT_EQ(made, item(s("f")));
        EXPECT_EQ(made.size, size);
        EXPECT_EQ(made.modifiedDate, date);
        EXPECT_EQ(end_->contents(), (Contents{{s("f"), content}}));
        EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
        EXPECT_EQ(steps.back(), size);
        EXPECT_EQ(read(made), content);
        if (files_.capabilities({}).setsDates) {
            files_.setModified(made, date.addSecs(1), {});
            EXPECT_EQ(item(s("f")).modifiedDate, date.addSecs(1));
        }
        files_.remove(item(s("f")), {});
    }
}

TEST_P(PhoneStepsTest, rangesHoldWhatLiesThereAndNoMore) {
    const QByteArray content = manyBytes(9'000'000);
    end_->put(s("f"), content, noon);
    const FileItem file = item(s("f"));
    const bool readsRanges = files_.capabilities({}).readsRanges;
    EXPECT_EQ(readsRanges, std::string(GetParam().name) != "overOldADB");
    for (const auto& [offset, length] :
         std::initializer_list<std::pair<qint64, qint64>>{{0, 0},
                                                          {0, 1},
                                                          {5, 0},
                                                          {0, 100'000},
                                                          {65'536, 65'536},
                                                          {65'535, 2},
                                                          {1, -1},
                                                          {8'999'999, -1},
                                                          {8'999'990, 100},
                                                          {9'000'000, -1},
                                                          {9'100'000, 5},
                                                          {0, -1},
                                                          {4'000'001, 3'000'003}})
        if (readsRanges || offset == 0) {
            EXPECT_TRUE(read(file, {offset, length}) == content.mid(offset, length))
                << offset << ' ' << length;
        }
}

TEST_P(PhoneStepsTest, sourcesAndSinksThatFailPassThroughAndNothingIsLeft) {
    struct Stop {};
    const QByteArray content = manyBytes(5'000'000);
    end_->put(s("f"), content, noon);
    const FileItem file = item(s("f"));
    EXPECT_THROW(files_.read(file, {}, [](ByteView) { throw Stop(); }, {}), Stop);
    const ByteSource broken = [n = 0](std::span<std::byte> to) mutable {
        if (++n > 3)
            throw Stop();
        return std::min<std::size_t>(to.size(), 100'000);
    };
    EXPECT_THROW(files_.write({end_->root(), s("x"), 5'000'000, {}}, broken, {}, {}), Stop);
    EXPECT_TRUE(read(file) == content) << "the next step is done as ever";
    EXPECT_EQ(end_->contents(), (Contents{{s("f"), content}}));
}

TEST_P(PhoneStepsTest, othersGetInBetweenThePiecesOfALargeFile) {
    const auto queue = files_.queue();
    if (!queue)
        GTEST_SKIP() << "nobody waits for a turn";
    constexpr qint64 kept = 4'194'304;
    const QByteArray content = manyBytes(40'000'000);
    end_->fill({{s("film"), content}, {s("part"), content.first(kept)}}, noon);
    const Call call{{}, Urgency::copy};
    std::jthread other;
    std::atomic<qint64> crossed = 0;
    qint64 crossedWhenListed = 0;
    const auto meet = [&](qint64 bytes) {
        crossed += bytes;
        if (other.joinable())
            return;
        other = std::jthread([&] {
            files_.list(end_->root(), {[&](auto&&) { crossedWhenListed = crossed; }, {}}, {});
        });
        while (queue->waitingCount() == 0)
            std::this_thread::yield();
        // No turn is passed before there was some time for one's own work.
        const auto enough = std::chrono::steady_clock::now() + 60ms;
        while (std::chrono::steady_clock::now() < enough)
            std::this_thread::yield();
    };
    const auto readFrom = [&](qint64 offset) {
        QByteArray got;
        const auto sink = [&, into = sinkInto(got)](ByteView piece) {
            into(piece);
            meet(static_cast<qint64>(piece.size()));
        };
        files_.read(item(s("film")), {offset, -1}, sink, call);
        EXPECT_TRUE(got == content.mid(offset));
    };
    const auto source = [&](qint64 from) {
        return sourceOf(content.mid(from), [&, last = qint64{0}](qint64 drawn) mutable {
            meet(drawn - std::exchange(last, drawn));
        });
    };
    std::vector<std::pair<const char*, std::function<void()>>> rows{{"read", [&] { readFrom(0); }}};
    const auto can = files_.capabilities({});
    if (can.readsRanges)
        rows.emplace_back("read of a part", [&] { readFrom(1'000'000); });
    if (can.appends && can.appendsFrom <= content.size()) {
        const NewFile made{end_->root(), s("new"), content.size(), {}};
        const NewFile whole{end_->root(), s("part"), content.size(), noon, true};
        rows.emplace_back("write", [&, made] { files_.write(made, source(0), {}, call); });
        rows.emplace_back("append", [&, whole] {
            files_.append(item(s("part")), kept, whole, source(kept), {}, call);
        });
    }
    for (const auto& [name, work] : rows) {
        SCOPED_TRACE(name);
        crossed = 0;
        work();
        other.join();
        EXPECT_GT(crossedWhenListed, 0);
        EXPECT_LT(crossedWhenListed, crossed);
    }
    for (const auto& [name, there] : end_->contents().asKeyValueRange())
        EXPECT_TRUE(there == content || (rows.size() < 4 && name == s("part")));
}

TEST_P(PhoneStepsTest, aCancelIsHeardAndNothingIsLeft) {
    const QByteArray content = manyBytes(20'000'000);
    end_->put(s("f"), content, noon);
    const FileItem file = item(s("f"));
    if (auto* const phone = dynamic_cast<PhoneSide*>(end_.get()))
        phone->slowDownTo(0.5);
    const auto expectCancelled = [&](const auto& work) {
        std::stop_source stop;
        std::chrono::steady_clock::time_point asked;
        const auto onBytes = [&] {
            if (stop.request_stop())
                asked = std::chrono::steady_clock::now();
        };
        EXPECT_EQ(codeOf([&] { work(stop.get_token(), onBytes); }), "cancelled");
        EXPECT_LT(std::chrono::steady_clock::now() - asked, soon);
    };
    expectCancelled([&](const std::stop_token& stop, const auto& onBytes) {
        files_.read(
            file, {}, [&](ByteView) { onBytes(); }, stop);
    });
    expectCancelled([&](const std::stop_token& stop, const auto& onBytes) {
        files_.write(
            {end_->root(), s("x"), content.size(), {}}, sourceOf(content),
            [&](qint64) { onBytes(); }, stop);
    });
    if (auto* const phone = dynamic_cast<PhoneEnd*>(end_.get()))
        phone->becomeSound();
    EXPECT_EQ(end_->items().size(), 1U);
    EXPECT_EQ(end_->contents().keys(), QStringList(s("f")));
}

INSTANTIATE_TEST_SUITE_P(
    Ways, PhoneStepsTest,
    testing::Values(StepWay{"inMemory", [] { return std::make_unique<MemoryPhone>(); }},
                    StepWay{"onDisk", [] { return std::make_unique<DiskSide>(); }},
                    StepWay{"overMTP", overMTP}, StepWay{"overADB", overADB},
                    StepWay{"overADBStraight", [] { return std::make_unique<StraightADBSide>(); }},
                    StepWay{"overOldADB", overOldADB}, StepWay{"overAFC", overAFC, "taken"}),
    [](const auto& way) { return way.param.name; });

} // namespace
} // namespace tessary
