#include "simulator/faults/FaultyADBD.h"

#include "support/ADBFixture.h"
#include "support/ManyBytes.h"
#include "support/QtPrinters.h"

namespace tessary {

namespace {

using namespace Qt::StringLiterals;

class VirtualADBDTest : public ADBFixture {};

/// What both sides of our own take for a record could be none.
TEST_F(VirtualADBDTest, theRealToolListsPullsAndPushes) {
    write(u"DCIM/one.jpg"_s, manyBytes(300'000));
    write(u"DCIM/empty"_s, {});
    QStringList names;
    for (const QByteArray& line : adb({u"ls"_s, u"/sdcard/DCIM"_s}).standardOutput.split('\n'))
        if (line.size() > 27) // three numbers of eight digits before the name
            names.append(QString::fromUtf8(line.mid(27)));
    names.sort();
    EXPECT_EQ(names, (QStringList{u"."_s, u".."_s, u"empty"_s, u"one.jpg"_s}));
    EXPECT_TRUE(adb({u"pull"_s, u"-a"_s, u"/sdcard/DCIM"_s, disk_.path(u"here"_s)}).succeeded());
    EXPECT_EQ(disk_.read(u"here/one.jpg"_s), manyBytes(300'000));
    EXPECT_TRUE(adb({u"push"_s, disk_.path(u"here"_s), u"/sdcard/back"_s}).succeeded());
    EXPECT_EQ(content(u"back/one.jpg"_s), manyBytes(300'000));
}

} // namespace

} // namespace tessary
