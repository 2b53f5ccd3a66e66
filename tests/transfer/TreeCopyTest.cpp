#include "transfer/copy/TreeCopy.h"

#include "transfer/CopyRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessary {
namespace {

using testing::ElementsAre;

/// A phone over MTP: no renaming onto taken names.
std::unique_ptr<CopyEnd> aPhone() {
    return std::make_unique<MemorySide>(MemoryFileSystem::Options{
        .identity = QStringLiteral("mtp"), .queue = std::make_shared<PhoneQueue>()});
}
/// One over adb.
std::unique_ptr<CopyEnd> aPhoneThatReplaces() {
    return std::make_unique<MemorySide>(MemoryFileSystem::Options{
        .identity = QStringLiteral("adb"),
        .capabilities = {.renamesOntoTaken = true, .setsDates = true, .readsRanges = true},
        .queue = std::make_shared<PhoneQueue>()});
}
/// One over adb whose shell is up to it.
std::unique_ptr<CopyEnd> aPhoneForMany() {
    return std::make_unique<MemorySide>(
        MemoryFileSystem::Options{.identity = QStringLiteral("adb2"),
                                  .capabilities = {.renamesOntoTaken = true,
                                                   .setsDates = true,
                                                   .readsRanges = true,
                                                   .readsTogether = true,
                                                   .writesTogether = true},
                                  .queue = std::make_shared<PhoneQueue>()});
}

INSTANTIATE_TEST_SUITE_P(Ways, TreeCopyOverWays,
                         testing::Values(Way{"download", aPhone, aDisk},
                                         Way{"upload", aDisk, aPhone},
                                         Way{"uploadOnto", aDisk, aPhoneThatReplaces},
                                         Way{"uploadTogether", aDisk, aPhoneForMany},
                                         Way{"downloadTogether", aPhoneForMany, aDisk},
                                         Way{"fromPhoneToPhone", aPhone, aPhoneThatReplaces},
                                         Way{"manyToPhone", aPhoneForMany, aPhone}),
                         [](const auto& way) { return way.param.name; });

/// Names are decided by the target, and nothing is left out in silence.
TEST(TreeCopyNames, theTargetDecides) {
    MemorySide source({.identity = s("source"), .rules = {}});
    const NameRules strict{.ignoresCase = true,
                           .ignoresUnicodeForm = true,
                           .forbidsFATCharacters = true,
                           .longestUTF8 = 40};
    MemorySide target({.rules = strict});
    source.fill({{s("Foto.jpg"), "1"},
                 {s("foto.jpg"), "2"},
                 {s("caf\u00e9"), "3"},
                 {s("cafe\u0301"), "4"},
                 {s("1 10:20.txt"), "5"},
                 {s("this name is far too long for a strict target.txt"), "6"},
                 {s("Dir/"), {}},
                 {s("Dir/x"), "7"},
                 {s("dir/"), {}},
                 {s("dir/x"), "8"},
                 {s("end."), "9"},
                 {s("a/"), {}},
                 {s("a/b:c/"), {}},
                 {s("a/b:c/y"), "10"}},
                noon);
    source.memory->addHostile(source.root(), s(".."), "up");
    source.memory->addHostile(source.root(), s("x/y"), "slash");
    source.memory->addHostile(source.root(), s("../z"), {}, true);
    source.memory->addUnreadable(source.at(s("broken")), {PhoneError::unreadable});
    TreeCopyRequest request{.from = source.memory, .to = target.memory, .folder = target.root()};
    // As a folder, since what a listing of the top reports is the caller's to show.
    const FileItem all = source.memory->item(source.root());
    request.items = {{all, s("all")}};
    const CopyOutcome outcome = run(std::move(request));
    EXPECT_EQ(target.contents().keys(),
              (QStringList{s("all/"), s("all/Dir/"), s("all/Dir/x"), s("all/Foto.jpg"), s("all/a/"),
                           s("all/cafe\u0301"), s("all/caf\u00e9 (2)"), s("all/dir (2)/"),
                           s("all/dir (2)/x"), s("all/foto (2).jpg")}));
    EXPECT_THAT(namesLeftOut(outcome),
                ElementsAre(s("../z: nameNotAllowed"), s("..: nameNotAllowed"),
                            s("1 10:20.txt: nameNotAllowed"), s("b:c: nameNotAllowed"),
                            s("broken: unreadable"), s("end.: nameNotAllowed"),
                            s("this name is far too long for a strict target.txt: nameNotAllowed"),
                            s("x/y: nameNotAllowed")));
    EXPECT_EQ(outcome.end(), CopyOutcome::End::incomplete);
    EXPECT_EQ(outcome.files, 6);
}

TEST(TreeCopyNames, twoFilesOfOneNameBothArrive) {
    MemorySide source({.givesHandles = true, .queue = std::make_shared<PhoneQueue>()});
    DiskSide target;
    source.put(s("a.txt"), "first", noon);
    source.memory->addTwin(source.at(s("a.txt")), "second", noon);
    EXPECT_EQ(run(requestFor(source, target, ClashAnswer::replace)).end(), CopyOutcome::End::done);
    EXPECT_EQ(target.contents(), (Contents{{s("a.txt"), "first"}, {s("a (2).txt"), "second"}}));
}

} // namespace
} // namespace tessary
