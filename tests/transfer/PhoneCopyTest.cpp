#include "transfer/CopyRows.h"
#include "transfer/PhoneSides.h"

#include "phone/PartNames.h"
#include "support/CodeOf.h"
#include "support/StrangeDisk.h"

namespace tessary {
namespace {

/// A phone that cannot rename onto taken names, as over MTP.
std::unique_ptr<PhoneEnd> inMemory() {
    return std::make_unique<MemoryPhone>(
        MemoryFileSystem::Options{.pieceSize = 64 * 1024, .queue = std::make_shared<PhoneQueue>()});
}
std::unique_ptr<PhoneEnd> inMemoryOfACard() {
    return std::make_unique<MemoryPhone>(
        MemoryFileSystem::Options{.rules = {.ignoresCase = true, .forbidsFATCharacters = true},
                                  .queue = std::make_shared<PhoneQueue>()});
}
/// One that takes many small files at a time, as over adb.
std::unique_ptr<CopyEnd> forMany() {
    return std::make_unique<MemorySide>(
        MemoryFileSystem::Options{.identity = s("many"),
                                  .capabilities = {.renamesOntoTaken = true,
                                                   .setsDates = true,
                                                   .readsRanges = true,
                                                   .readsTogether = true,
                                                   .writesTogether = true},
                                  .pieceSize = 64 * 1024,
                                  .queue = std::make_shared<PhoneQueue>()});
}

INSTANTIATE_TEST_SUITE_P(
    Ways, TreeCopyOverWays,
    testing::Values(Way{"downloadFromMemory", inMemory, aDisk},
                    Way{"uploadToMemory", aDisk, inMemory}, Way{"downloadOfMany", forMany, aDisk},
                    Way{"uploadOfMany", aDisk, forMany},
                    Way{"fromMemoryToMemory", inMemory, forMany},
                    Way{"downloadOverMTP", overMTP, aDisk}, Way{"uploadOverMTP", aDisk, overMTP},
                    Way{"downloadOverADB", overADB, aDisk}, Way{"uploadOverADB", aDisk, overADB},
                    Way{"downloadOverAFC", overAFC, aDisk}, Way{"uploadOverAFC", aDisk, overAFC},
                    Way{"fromMTPToMTP", overMTP, overMTPToAnother},
                    Way{"fromMTPToAFC", overMTP, overAFC}, Way{"fromAFCToADB", overAFC, overADB},
                    Way{"withinOnePhone", overADB, overADB}),
    [](const auto& way) { return way.param.name; });

struct Strange {
    const char* name;
    qint64 size;      ///< from which on the way goes on with a file; less than half is under way
    qint64 mostTwice; ///< a piece, and what may not have been written out, or is in buffers
    std::function<std::unique_ptr<PhoneEnd>()> phone;
    std::function<std::unique_ptr<PhoneEnd>()> card; ///< its storage with the strictest names
};

void PrintTo(const Strange& strange, std::ostream* stream) {
    *stream << strange.name;
}

class StrangePhone : public testing::TestWithParam<Strange> {};

INSTANTIATE_TEST_SUITE_P(
    Ways, StrangePhone,
    testing::Values(Strange{"inMemory", qint64{20} << 20, qint64{9} << 20, inMemory,
                            inMemoryOfACard},
                    Strange{"overMTP", qint64{80} << 20, qint64{9} << 20, overMTP, overMTPToCard},
                    Strange{"overADB", qint64{80} << 20, qint64{16} << 20, overADB, overADBToCard},
                    Strange{"overAFC", qint64{80} << 20, qint64{9} << 20, overAFC, overAFC}),
    [](const auto& strange) { return strange.param.name; });

/// Of a file that is not gone on with something may stay.
TEST_P(StrangePhone, whatStaysOfASmallFileGoesWithALaterCopyIntoItsFolder) {
    const auto phone = GetParam().phone();
    DiskSide disk;
    disk.put(s("film"), QByteArray(3'000'000, 'f'), noon);
    FileCopy copy{*disk.files(), require(*disk.files(), disk.at(s("film")), {}), *phone->files(),
                  phone->root(), s("film")};
    EXPECT_THROW(copyFile(copy, [&](qint64) { phone->unplug(); }, {}), Error);
    phone->plugIn();
    const QDateTime now = QDateTime::currentDateTime();
    const QString young = newPartName({});
    phone->put(newPartName({}), "old", now.addSecs(-700));
    phone->put(young, "young", now);
    for (const QString& left : phone->contents().keys()) {
        EXPECT_TRUE(isUnfinishedName(left)) << left.toStdString();
        if (left != young)
            phone->put(left, "left", now.addSecs(-700));
    }
    EXPECT_EQ(run(requestFor(disk, *phone, ClashAnswer::skip)).end(), CopyOutcome::End::done);
    EXPECT_EQ(phone->contents().keys(), (QStringList{young, s("film")}));
}

TEST_P(StrangePhone, strangeTargetsKeepWhatArrivedAndSayWhatDidNot) {
    using End = CopyOutcome::End;
    const bool ignoresCase = GetParam().phone()->files()->nameRules(s("/"), {}).ignoresCase;
    EXPECT_EQ(ignoresCase, std::string(GetParam().name) != "overAFC");
    const QString small(s("Foto.jpg"));
    const QString large(s("foto.jpg"));
    const struct {
        const char* name;
        std::function<void(PhoneEnd&)> becomes;
        End end;
        QStringList there;
        qsizetype leftOut;
    } rows[] = {
        {"names in two cases",
         [](auto&) {},
         End::done,
         {small, ignoresCase ? s("foto (2).jpg") : large},
         0},
        {"full", [](auto& phone) { phone.fillUpAt(1'200'000); }, End::failed, {small}, 0},
        {"read only", [](auto& phone) { phone.becomeReadOnly(); }, End::incomplete, {}, 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const auto phone = GetParam().phone();
        DiskSide disk;
        disk.fill({{small, QByteArray(1'100'000, 's')}, {large, film}}, noon);
        TreeCopyRequest request = requestFor(disk, *phone, ClashAnswer::keepBoth);
        std::sort(request.items.begin(), request.items.end(),
                  [](const CopyItem& a, const CopyItem& b) { return a.name < b.name; });
        row.becomes(*phone);
        const CopyOutcome outcome = run(std::move(request));
        phone->becomeSound();
        (void)phone->items(); // what failed has been cleaned up then
        EXPECT_EQ(outcome.end(), row.end);
        EXPECT_EQ(outcome.failure && outcome.failure->is(PhoneError::full), row.end == End::failed);
        EXPECT_EQ(namesLeftOut(outcome).size(), row.leftOut);
        QStringList there = phone->contents().keys();
        there.sort();
        EXPECT_EQ(there, row.there);
    }
}

/// Onto the phone, and from it onto a disk as strict as a card of short names.
TEST_P(StrangePhone, namesThatTheTargetCannotHoldAreNamedAndAllElseArrives) {
    for (const bool isUpload : {true, false}) {
        SCOPED_TRACE(isUpload ? "up" : "down");
        const auto phone = GetParam().card();
        DiskSide disk;
        const StrangeDisk strict(
            {.rules = {.ignoresCase = true, .forbidsFATCharacters = true, .longestUTF8 = 230}});
        if (!strict.isMounted())
            GTEST_SKIP() << "this machine mounts nothing for its users";
        CopyEnd& from = isUpload ? static_cast<CopyEnd&>(disk) : *phone;
        const std::shared_ptr<PhoneFileSystem> to =
            isUpload ? phone->files() : std::make_shared<LocalFileSystem>(strict.path());
        const QString top = isUpload ? phone->root() : strict.path();
        const bool takesColons = isUpload && std::string(GetParam().name) == "overAFC";
        const bool isTooLong = !isUpload || std::string(GetParam().name) == "overMTP";
        const struct {
            QString name;
            bool fits;
        } rows[] = {{s("1 10:20.txt"), takesColons},
                    {s("b:c/y"), takesColons},
                    {s("end."), takesColons},
                    {s("space "), takesColons},
                    {QString(isUpload ? 255 : 250, u'l'), !isTooLong},
                    {s("caf\u00e9"), true},
                    {s("dir/plain"), true}};
        QStringList there;
        qsizetype leftOut = 1;
        for (const auto& row : rows) {
            from.put(s("all/") + row.name, "x", noon);
            if (row.fits)
                there << row.name.section(u'/', 0, 0);
            else
                ++leftOut;
        }
        from.putNameless(s("all"));
        const CopyOutcome outcome =
            run({.from = from.files(),
                 .to = to,
                 .items = {{require(*from.files(), from.at(s("all")), {}), s("all")}},
                 .folder = top});
        EXPECT_EQ(outcome.end(), CopyOutcome::End::incomplete);
        EXPECT_EQ(namesLeftOut(outcome).size(), leftOut)
            << namesLeftOut(outcome).join(u'\n').toStdString();
        EXPECT_EQ(outcome.files, there.size());
        EXPECT_THAT(namesOf(listAll(*to, joinPath(top, s("all")), {}).items),
                    testing::UnorderedElementsAreArray(there));
        phone->becomeSound();
    }
}

TEST_P(StrangePhone, bytesThatChangeOnTheirWayAreFoundByComparing) {
    for (const bool isUpload : {true, false}) {
        SCOPED_TRACE(isUpload ? "up" : "down");
        const auto phone = GetParam().phone();
        DiskSide disk;
        CopyEnd& from = isUpload ? static_cast<CopyEnd&>(disk) : *phone;
        CopyEnd& to = isUpload ? static_cast<CopyEnd&>(*phone) : disk;
        from.put(s("film"), film, noon);
        TreeCopyRequest request = requestFor(from, to, ClashAnswer::skip);
        request.verifies = true;
        phone->garbleNext();
        EXPECT_EQ(namesLeftOut(run(request)), QStringList{s("film: differs")});
        EXPECT_THAT(to.contents(), testing::IsEmpty());
        EXPECT_EQ(run(request).end(), CopyOutcome::End::done);
        EXPECT_EQ(to.contents(), (Contents{{s("film"), film}}));
    }
}

/// A cable that comes out in the middle of a large file, either way. Of a file that is another one
/// by then nothing is kept, and what was damaged meanwhile is found by comparing.
TEST_P(StrangePhone, onlyWhatWasUnderWayComesAcrossAgain) {
    const qint64 size = GetParam().size;
    enum Meanwhile { nothing, theFileChanges, thePartIsDamaged };
    for (const auto& [meanwhile, isUpload] : {std::pair(nothing, true),
                                              {nothing, false},
                                              {theFileChanges, true},
                                              {theFileChanges, false},
                                              {thePartIsDamaged, true},
                                              {thePartIsDamaged, false}}) {
        SCOPED_TRACE(std::to_string(meanwhile) + (isUpload ? " up" : " down"));
        const auto phone = GetParam().phone();
        DiskSide disk;
        CopyEnd& from = isUpload ? static_cast<CopyEnd&>(disk) : *phone;
        CopyEnd& to = isUpload ? static_cast<CopyEnd&>(*phone) : disk;
        QByteArray content(size, 'f');
        for (qint64 n = 0; n < size; n += 4093)
            content[n] = static_cast<char>(n / 4093);
        from.put(s("film"), content, noon);
        FileCopy copy{*from.files(), require(*from.files(), from.at(s("film")), {}), *to.files(),
                      to.root(), s("film")};
        qint64 arrived = 0;
        const auto unplugHalfway = [&](qint64 done) {
            arrived = done;
            if (done >= size / 2)
                phone->unplug();
        };
        EXPECT_THROW(copyFile(copy, unplugHalfway, {}), Error);
        ASSERT_LT(arrived, size);
        phone->plugIn();
        if (meanwhile == theFileChanges)
            from.put(s("film"), content = QByteArray(size, 'g'), noon.addSecs(60));
        copy.file = require(*from.files(), from.at(s("film")), {}); // by another handle
        copy.verifies = meanwhile == thePartIsDamaged;
        const QStringList kept = to.contents().keys();
        if (copy.verifies && !kept.isEmpty()) {
            to.damage(kept.front());
            EXPECT_EQ(codeOf([&] { (void)copyFile(copy, {}, {}); }), "differs");
            EXPECT_THAT(to.contents(), testing::IsEmpty());
        }
        qint64 first = -1;
        const auto noteFirst = [&](qint64 done) { first = first < 0 ? done : first; };
        EXPECT_EQ(copyFile(copy, noteFirst, {}).size, size);
        EXPECT_TRUE(to.contents().value(s("film")) == content);
        if (meanwhile == nothing && to.files()->capabilities({}).appends) {
            EXPECT_LE(arrived - first, GetParam().mostTwice);
        }
    }
}

} // namespace
} // namespace tessary
