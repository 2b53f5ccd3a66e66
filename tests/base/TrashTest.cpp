#include "base/local/Trash.h"
#include "support/TemporaryFolder.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

TEST(TrashTest, withoutAFolderForItNothingGoesToTheWorkingFolder) {
    const TemporaryFolder home;
    home.write(u"file"_s, "kept");
    const QString file = home.write(u"pair/old.txt"_s, "old");
    qputenv("HOME", home.path().toUtf8());
    QDir::setCurrent(home.makeFolder(u"here"_s));

    qputenv("XDG_DATA_HOME", home.path(u"file/data"_s).toUtf8());
    EXPECT_FALSE(moveToTrash(file));
    EXPECT_EQ(home.read(u"pair/old.txt"_s), "old");

    qputenv("XDG_DATA_HOME", home.path(u"new/data"_s).toUtf8());
    EXPECT_TRUE(moveToTrash(file));
    EXPECT_EQ(home.read(u"new/data/Trash/files/old.txt"_s), "old");
    EXPECT_EQ(home.names(u"here"_s), QStringList());
}

} // namespace
