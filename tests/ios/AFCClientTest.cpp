#include "ios/AFCClient.h"

#include "support/Failure.h"
#include "support/PluggedIPhone.h"
#include "support/QtPrinters.h"

#include <QTimeZone>

#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

const QString notFound = QStringLiteral("AFC Error: objectNotFound (code 8)");

QStringList namesOf(const std::vector<FileItem>& items) {
    QStringList names;
    for (const FileItem& item : items)
        names << item.name;
    return names;
}

void refuse(PluggedIPhone& iphone, const char* request, std::uint64_t status) {
    iphone.faults([&](VirtualIPhoneFaults& faults) {
        faults.statuses[QString::fromLatin1(request)] = {status, false};
    });
}

TEST(AFCClientOpening, documentsBelowTheRootAreFoundByAProbe) {
    VirtualIPhoneConfig config;
    for (const bool areRoot : {false, true}) {
        config.documentsAreRoot = areRoot;
        PluggedIPhone iphone(config);
        iphone.write(u"a.txt"_s, "content");
        const auto client = iphone.open();
        EXPECT_EQ(client->workingRootPath(), areRoot ? u"/"_s : u"/Documents"_s);
        EXPECT_EQ(namesOf(client->listContents(u"/"_s)), QStringList(u"a.txt"_s));
        EXPECT_EQ(client->listContents(u"/"_s).front().path, u"/a.txt"_s);
        EXPECT_EQ(client->readSampleBytes(u"/a.txt"_s, 4), QByteArray("cont"));
    }
}

TEST(AFCClientOpening, theContainerIsTriedWhenTheDocumentsAreRefused) {
    VirtualIPhoneConfig config;
    PluggedIPhone iphone(config);
    iphone.faults([](VirtualIPhoneFaults& faults) {
        faults.houseArrestErrors[u"VendDocuments"_s] = u"InstallationLookupFailed"_s;
        faults.houseArrestErrors[u"VendContainer"_s] = u"ApplicationLookupFailed"_s;
    });
    EXPECT_EQ(failureOf([&] { (void)iphone.open(); }),
              u"House Arrest error: VendDocuments/VendContainer failed: ApplicationLookupFailed"_s);
    EXPECT_EQ(iphone.count("houseArrest.VendDocuments"), 1U);
    EXPECT_EQ(iphone.count("houseArrest.VendContainer"), 1U);
}

TEST(AFCClientOpening, aDevelopersAppOpensByItsContainer) {
    const TemporaryFolder disk;
    VirtualIPhoneConfig config;
    VirtualIPhoneApp own;
    own.bundleID = u"com.example.own"_s;
    own.folder = disk.makeFolder(u"own"_s);
    own.isDebuggable = true;
    config.apps = {own};
    PluggedIPhone iphone(config);
    iphone.faults([](VirtualIPhoneFaults& faults) {
        faults.houseArrestErrors[u"VendDocuments"_s] = u"InstallationLookupFailed"_s;
    });
    AFCClient client(std::make_unique<LockdownSession>(iphone.udid()), own.bundleID);
    EXPECT_EQ(client.workingRootPath(), u"/Documents"_s);
    EXPECT_TRUE(client.listContents(u"/"_s).empty());
}

class AFCClientTest : public testing::Test {
protected:
    PluggedIPhone iphone_;
    std::unique_ptr<AFCClient> client_ = iphone_.open();
};

TEST_F(AFCClientTest, listsFoldersFirstThenByNameWithFacts) {
    iphone_.write(u"b.txt"_s, "12345");
    iphone_.write(u"A.txt"_s, "");
    iphone_.disk.makeFolder(iphone_.inDocuments(u"zoo"_s));
    client_->setModifiedDate(u"/b.txt"_s,
                             QDateTime(QDate(2024, 2, 29), QTime(12, 30, 15), QTimeZone::utc()));
    const auto items = client_->listContents(u"/"_s);
    EXPECT_EQ(namesOf(items), QStringList({u"zoo"_s, u"A.txt"_s, u"b.txt"_s}));
    EXPECT_TRUE(items[0].isDirectory);
    EXPECT_EQ(items[2].size, 5);
    EXPECT_EQ(items[2].modifiedDate,
              QDateTime(QDate(2024, 2, 29), QTime(12, 30, 15), QTimeZone::utc()));
    EXPECT_TRUE(client_->listContents(u"/zoo"_s).empty());
    EXPECT_EQ(failureOf([&] { (void)client_->listContents(u"/none"_s); }), notFound);
}

TEST_F(AFCClientTest, oddFactsLeaveDefaultsAndRequiredOnesFail) {
    iphone_.write(u"a"_s, "123");
    iphone_.faults([](VirtualIPhoneFaults& faults) {
        faults.rewriteFileInfo = [](const QString&, const QStringList&) {
            return QStringList({u"st_size"_s, u"many"_s, u"st_ifmt"_s});
        };
    });
    EXPECT_EQ(client_->listContents(u"/"_s).front(),
              FileItem(u"a"_s, u"/a"_s, false, 0, std::nullopt));
    refuse(iphone_, "afc.getFileInfo", 10);
    EXPECT_EQ(client_->listContents(u"/"_s).front(),
              FileItem(u"a"_s, u"/a"_s, false, 0, std::nullopt));
    refuse(iphone_, "afc.getFileInfo", 10);
    EXPECT_THROW((void)client_->listContents(u"/"_s, {}, AFCClient::EntryFacts::required),
                 TessaryError);
}

TEST(AFCClientRemoving, aFullFolderGoesWithItsTreeWhateverTheRefusalsNumber) {
    VirtualIPhoneConfig config;
    for (const std::uint64_t status : {33, 1}) {
        config.fullFolderStatus = status;
        PluggedIPhone iphone(config);
        iphone.write(u"tree/a/b/c.txt"_s, "1");
        iphone.write(u"tree/d.txt"_s, "2");
        iphone.write(u"stays.txt"_s, "3");
        const auto client = iphone.open();
        client->removePath(u"/tree"_s);
        EXPECT_FALSE(iphone.has(u"tree"_s)) << status;
        EXPECT_TRUE(iphone.has(u"stays.txt"_s));
    }
}

TEST_F(AFCClientTest, removalStaysInItsFolderWhateverNamesAreListed) {
    iphone_.write(u"tree/inner"_s, "1");
    iphone_.write(u"precious"_s, "2");
    iphone_.faults(
        [](VirtualIPhoneFaults& faults) { faults.nameOverrides[u"inner"_s] = u"../precious"_s; });
    EXPECT_THROW(client_->removePath(u"/tree"_s), TessaryError);
    EXPECT_TRUE(iphone_.has(u"precious"_s));
}

TEST_F(AFCClientTest, aFolderCalledLikeTheRootIsNotTheRoot) {
    iphone_.write(u"Documents/a"_s, "1");
    iphone_.write(u"keep"_s, "2");
    client_->removePath(u"/Documents/Documents"_s);
    EXPECT_FALSE(iphone_.has(u"Documents"_s));
    EXPECT_TRUE(iphone_.has(u"keep"_s));
}

} // namespace
} // namespace tessary
