#include "transfer/CopyRows.h"
#include "transfer/PhoneSides.h"

namespace tessary {
namespace {

INSTANTIATE_TEST_SUITE_P(
    Ways, TreeCopyOverWays,
    testing::Values(Way{"downloadOverMTP", overMTP, aDisk}, Way{"uploadOverMTP", aDisk, overMTP},
                    Way{"downloadOverADB", overADB, aDisk}, Way{"uploadOverADB", aDisk, overADB},
                    Way{"downloadOverAFC", overAFC, aDisk}, Way{"uploadOverAFC", aDisk, overAFC},
                    Way{"fromMTPToMTP", overMTP, overMTPToAnother},
                    Way{"fromMTPToAFC", overMTP, overAFC}, Way{"fromAFCToADB", overAFC, overADB},
                    Way{"withinOnePhone", overADB, overADB}),
    [](const auto& way) { return way.param.name; });

struct Cable {
    const char* name;
    qint64 size;      ///< from which on the way goes on with a file
    qint64 mostTwice; ///< a piece, and what may not have been written out, or is in buffers
    std::function<std::unique_ptr<PhoneSide>()> phone;
};

void PrintTo(const Cable& cable, std::ostream* stream) {
    *stream << cable.name;
}

class Unplugged : public testing::TestWithParam<Cable> {};

INSTANTIATE_TEST_SUITE_P(
    Ways, Unplugged,
    testing::Values(Cable{"overMTP", qint64{80} << 20, qint64{9} << 20, overMTP},
                    Cable{"overADB", qint64{40} << 20, qint64{16} << 20, overADB},
                    Cable{"overAFC", qint64{40} << 20, qint64{9} << 20, overAFC}),
    [](const auto& cable) { return cable.param.name; });

/// A cable that comes out in the middle of a large file, either way.
TEST_P(Unplugged, onlyWhatWasUnderWayComesAcrossAgain) {
    const qint64 size = GetParam().size;
    const qint64 unplugAt = size / 10 * 7;
    for (const bool isUpload : {true, false}) {
        const auto phone = GetParam().phone();
        DiskSide disk;
        CopyEnd& from = isUpload ? static_cast<CopyEnd&>(disk) : *phone;
        CopyEnd& to = isUpload ? static_cast<CopyEnd&>(*phone) : disk;
        QByteArray film(size, 'f');
        for (qint64 n = 0; n < size; n += 4093)
            film[n] = static_cast<char>(n / 4093);
        from.put(s("film"), film, noon);
        FileCopy copy{*from.files(), require(*from.files(), from.at(s("film")), {}), *to.files(),
                      to.root(), s("film")};
        qint64 arrived = 0;
        const auto unplugLate = [&](qint64 done) {
            arrived = done;
            if (done >= unplugAt)
                phone->unplug();
        };
        EXPECT_THROW(copyFile(copy, unplugLate, {}), Error);
        ASSERT_LT(arrived, size);
        phone->plugIn();
        copy.file = require(*from.files(), from.at(s("film")), {}); // by another handle
        qint64 first = -1;
        const auto noteFirst = [&](qint64 done) { first = first < 0 ? done : first; };
        EXPECT_EQ(copyFile(copy, noteFirst, {}).size, size);
        EXPECT_EQ(to.contents(), (Contents{{s("film"), film}}));
        EXPECT_LE(arrived - first, GetParam().mostTwice) << (isUpload ? "up" : "down");
    }
}

} // namespace
} // namespace tessary
