// Imports from the media folder of a virtual iPhone, by the real library.

#include "base/text/PathNames.h"
#include "support/IPhoneFiles.h"
#include "support/QtPrinters.h"
#include "transfer/import/Import.h"
#include "transfer/import/ImportRemoval.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class PhoneImport : public testing::Test {
protected:
    PhoneImport() {
        device_.udid = iphone_.udid();
        device_.platform = DevicePlatform::iOS;
    }

    void take(const QString& name, const QByteArray& content) const {
        camera_.write(u"DCIM/100APPLE/"_s + name, content);
    }
    [[nodiscard]] FoundPhotos find() {
        return findPhotos(iphone_.files, device_, here_.path(u"ledgers"_s), {}, {});
    }
    CopyOutcome fetch() {
        const FoundPhotos found = find();
        const auto to = std::make_shared<LocalFileSystem>(here_.makeFolder(u"pictures"_s));
        ImportPlan plan = planImport(found.newOnes(), *found.ledger, *to, to->folder(), {}, {});
        const std::shared_ptr<PhoneFileSystem> from(std::shared_ptr<void>(), &iphone_.files);
        return TreeCopy(importRequest(from, to, std::move(plan), found.ledger)).run({}, {});
    }
    using Counts = std::map<QString, std::size_t>;
    /// Requests by their names, as many as `work` makes.
    Counts requestsOf(const std::function<void()>& work) {
        Counts counts;
        for (const char* name : {"afc.readDir", "afc.getFileInfo", "afc.fileOpen", "afc.fileRead",
                                 "afc.fileClose", "afc.removePath", "afc.renamePath"})
            counts[QString::fromLatin1(name)] -= iphone_.count(name);
        work();
        for (auto& [name, count] : counts)
            count += iphone_.phone.requestCount(name);
        std::erase_if(counts, [](const auto& entry) { return entry.second == 0; });
        return counts;
    }

    static VirtualIPhoneConfig media(const TemporaryFolder& folder) {
        VirtualIPhoneConfig config;
        config.mediaFolder = folder.path();
        return config;
    }

    TemporaryFolder camera_;
    TemporaryFolder here_;
    IPhoneFiles iphone_{media(camera_), true};
    DeviceInfo device_;
};

TEST_F(PhoneImport, twoThousandPhotosAreFetchedOnceAndThenListedOnly) {
    constexpr std::size_t count = 2000;
    for (std::size_t n = 0; n < count; ++n)
        take(u"IMG_%1.JPG"_s.arg(n, 4, 10, QChar(u'0')), "picture " + QByteArray::number(n));
    const CopyOutcome outcome = fetch();
    EXPECT_EQ(outcome.end(), CopyOutcome::End::done);
    EXPECT_EQ(outcome.files, static_cast<qint64>(count));
    EXPECT_EQ(here_.read(u"pictures/IMG_1999.JPG"_s), "picture 1999");

    EXPECT_EQ(requestsOf([this] { EXPECT_TRUE(find().newOnes().empty()); }),
              (Counts{{u"afc.readDir"_s, 2}, {u"afc.getFileInfo"_s, count + 1}}));
}

/// Phones let the camera's files be deleted, and not written.
TEST_F(PhoneImport, fetchedPhotosGoFromThePhone) {
    take(u"IMG_0001.HEIC"_s, "still");
    take(u"IMG_0001.MOV"_s, "moving");
    take(u"IMG_0002.JPG"_s, "later");
    EXPECT_EQ(fetch().files, 3);
    take(u"IMG_0003.JPG"_s, "not fetched");
    const FoundPhotos found = find();
    const ImportRemoval result = removeImported(iphone_.files, found.photos, *found.ledger, {}, {});
    EXPECT_EQ(result.photos, 2);
    EXPECT_EQ(result.files, 3);
    EXPECT_EQ(camera_.names(u"DCIM/100APPLE"_s), QStringList(u"IMG_0003.JPG"_s));
}

} // namespace
} // namespace tessary
