#include "mtp/MTPFilesFixture.h"

#include <QDirIterator>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using enum MTPOperationCode;

class MTPEditsTest : public MTPFilesFixture {
protected:
    MTPEditsTest() : MTPFilesFixture(phoneWithCard()) {
        phone().write(u"A/f.txt"_s, "f");
        phone().write(u"A/sub/g.txt"_s, "g");
        phone().write(u"B/f.txt"_s, "other f");
        phone().disk.write(u"1/f.txt"_s, "card f");
    }
    FileItem move(const char* path, const char* into) {
        return files_.move(item(path), QString::fromUtf8(into), {});
    }
    /// Every file of the phone with its content, sorted.
    [[nodiscard]] QStringList everything() {
        QStringList all;
        QDirIterator walk(phone().disk.path(), QDir::Files | QDir::Hidden,
                          QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            const QString path = QDir(phone().disk.path()).relativeFilePath(walk.next());
            all.append(path + u'=' + QString::fromUtf8(phone().disk.read(path)));
        }
        all.sort();
        return all;
    }
    [[nodiscard]] bool has(const char* path) {
        return phone().disk.has(QString::fromUtf8(path));
    }
    static FileItem withHandle(FileItem item, std::optional<std::uint32_t> handle) {
        item.handle = handle;
        return item;
    }
};

TEST_F(MTPEditsTest, wholeTreeGoesInOneStepOrOneByOne) {
    for (const bool refusesFull : {false, true}) {
        phone().write(u"A/x/y/z/deep.txt"_s, "d");
        phone().write(u"A/x/1.txt"_s, "1");
        phone().disk.makeFolder(u"0/A/x/empty"_s);
        queue_->noteEdit(); // of which this session cannot know
        phone().behave([&](VirtualBehaviour& b) { b.refusesFullFolders = refusesFull; });
        phone().android.clearRequestLog();
        files_.removeTree(item("/A/x"), {});
        EXPECT_FALSE(has("0/A/x"));
        EXPECT_EQ(phone().requests(deleteObject) == 1, !refusesFull);
    }
    EXPECT_EQ(everything(), (QStringList{u"0/A/f.txt=f"_s, u"0/A/sub/g.txt=g"_s,
                                         u"0/B/f.txt=other f"_s, u"1/f.txt=card f"_s}));
}

TEST_F(MTPEditsTest, emptyingAFolderNeverLeavesIt) {
    // A phone that lists other folders' objects in a folder which it will not delete whole.
    phone().behave([](VirtualBehaviour& behaviour) { behaviour.refusesFullFolders = true; });
    const FileItem folder = item("/A");
    const std::uint32_t stranger = *item("/B/f.txt").handle;
    phone().fault([](VirtualFaults& faults) { faults.foldersHoldThemselves = true; });
    phone().rewriteData(getObjectHandles, [=](Bytes& list) {
        list[12] = static_cast<std::byte>(static_cast<int>(list[12]) + 1); // one more at its end
        list[0] = static_cast<std::byte>(static_cast<int>(list[0]) + 4);
        for (int shift = 0; shift < 32; shift += 8)
            list.push_back(static_cast<std::byte>(stranger >> shift));
    });
    EXPECT_NE(codeOf([&] { files_.removeTree(folder, {}); }), "nothing");
    EXPECT_EQ(phone().content(u"B/f.txt"_s), "other f");
}

TEST_F(MTPEditsTest, renameThatChangesNothingIsNoSuccess) {
    const FileItem file = item("/A/f.txt");
    phone().fault([](VirtualFaults& faults) { faults.nameOverrides[u"new.txt"_s] = u"f.txt"_s; });
    EXPECT_EQ(codeOf([&] { files_.rename(file, u"new.txt"_s, TakenName::refused, {}); }),
              "notDone");
}

TEST_F(MTPEditsTest, movesGoIntoOtherFoldersOfTheStorage) {
    EXPECT_EQ(move("/A/f.txt", "/sdcard").path, u"/f.txt"_s);
    EXPECT_EQ(codeOf([&] { move("/f.txt", "/storage/131073"); }), "otherStorage");
    EXPECT_EQ(phone().requests(moveObject), 1U);
    // Whoever cannot move says so in many words: a copy takes its place then.
    for (const MTPResponseCode code :
         {MTPResponseCode::operationNotSupported, MTPResponseCode::invalidObjectHandle,
          MTPResponseCode::generalError, MTPResponseCode::invalidParameter}) {
        phone().refuse(moveObject, code);
        EXPECT_EQ(codeOf([&] { move("/f.txt", "/A"); }), "notSupported");
    }
    phone().refuse(moveObject, MTPResponseCode::accessDenied);
    EXPECT_EQ(codeOf([&] { move("/f.txt", "/A"); }), "accessDenied");
}

// Items keep the handle that a listing gave them; devices give others.

TEST_F(MTPEditsTest, recycledHandleOfTheSameNameElsewhereIsNotFollowed) {
    const FileItem inA = item("/A/f.txt");
    const FileItem inB = item("/B/f.txt");
    const FileItem onCard = item("/storage/131073/f.txt");
    phone().write(u"f.txt"_s, "root f");
    const FileItem inRoot = item("/f.txt");
    // Each of them with the handle that now is the other's: the path decides.
    files_.remove(withHandle(inA, inB.handle), {});
    EXPECT_FALSE(has("0/A/f.txt"));
    EXPECT_TRUE(has("0/B/f.txt"));
    // Both lie in a root: only the storage tells them apart.
    files_.remove(withHandle(onCard, inRoot.handle), {});
    EXPECT_FALSE(has("1/f.txt"));
    EXPECT_TRUE(has("0/f.txt"));
}

TEST_F(MTPEditsTest, objectThatSomebodyElseReplacedIsLeftAlone) {
    const FileItem inA = item("/A/f.txt");
    files_.rename(inA, u"old.txt"_s, TakenName::refused, {});
    phone().write(u"A/f.txt"_s, "a new one, longer");
    queue_->noteEdit();
    EXPECT_EQ(codeOf([&] { files_.remove(inA, {}); }), "changed");
    EXPECT_TRUE(has("0/A/f.txt"));
    // Moved away with its folder: its path is no more, whatever its handle says.
    const FileItem inB = item("/B/f.txt");
    (void)move("/B", "/A");
    EXPECT_EQ(codeOf([&] { files_.remove(inB, {}); }), "notFound");
    EXPECT_EQ(codeOf([&] { files_.rename(inB, u"z"_s, TakenName::refused, {}); }), "notFound");
    EXPECT_TRUE(has("0/A/B/f.txt"));
}

TEST_F(MTPEditsTest, entryWithoutANameNeverStandsForItsFolder) {
    phone().write(u"A/blank"_s, "blank");
    phone().write(u"slash"_s, "slash");
    phone().fault([](VirtualFaults& faults) {
        faults.nameOverrides[u"blank"_s] = QString();
        faults.nameOverrides[u"slash"_s] = u"B/f.txt"_s;
    });
    const auto named = [this](const char* folder, const QString& name) {
        const auto entries = list(folder);
        return *std::find_if(entries.begin(), entries.end(),
                             [&](const FileItem& entry) { return entry.name == name; });
    };
    // What it stands for may go; nothing else.
    (void)codeOf([&] { files_.removeTree(named("/A", {}), {}); });
    EXPECT_TRUE(has("0/A/f.txt"));
    // A name that reads like a path is not that path.
    const FileItem slash = named("/", u"B/f.txt"_s);
    for (const auto handle : {std::optional<std::uint32_t>(), std::optional(0x12345678U)})
        (void)codeOf([&] { files_.remove(withHandle(slash, handle), {}); });
    EXPECT_TRUE(has("0/B/f.txt"));
}

TEST_F(MTPEditsTest, phoneThatReportsNoParentsIsAsGood) {
    phone().write(u"f.txt"_s, "root f");
    phone().behave([](VirtualBehaviour& behaviour) { behaviour.parentsAreZero = true; });
    const FileItem inA = item("/A/f.txt");
    const FileItem inRoot = item("/f.txt");
    EXPECT_EQ(read(inA), "f");
    EXPECT_EQ(rename("/A/sub/g.txt", u"h.txt"_s).path, u"/A/sub/h.txt"_s);
    EXPECT_EQ(write("/A/sub", u"new"_s, "n").path, u"/A/sub/new"_s);
    files_.remove(withHandle(inA, inRoot.handle), {});
    EXPECT_FALSE(has("0/A/f.txt"));
    EXPECT_TRUE(has("0/f.txt"));
}

TEST_F(MTPEditsTest, twoPhonesOfOneModelAreToldApartByWhereTheyArePlugged) {
    PluggedPhone second(bus_, phoneConfig("", "1-2"));
    second.write(u"A/f.txt"_s, "second A"); // the same tree, hence the same handles
    MTPFileSystem there(bus_, identityOf(second.info), std::make_shared<PhoneQueue>());
    EXPECT_NE(there.identity(), files_.identity());
    const FileItem file = item("/A/f.txt");
    EXPECT_EQ(read(file), "f");
    there.remove(require(there, u"/A/f.txt"_s, {}), {});
    EXPECT_TRUE(has("0/A/f.txt"));
    EXPECT_FALSE(second.disk.has(u"0/A/f.txt"_s));
    second.android.unplug();
    EXPECT_EQ(codeOf([&] { (void)listAll(there, u"/"_s, {}); }), "notConnected");
}

} // namespace
} // namespace tessary
