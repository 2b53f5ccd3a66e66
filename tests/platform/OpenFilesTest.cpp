#include "platform/process/OpenFiles.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryFile>

#include <gmock/gmock.h>

namespace tessary {
namespace {

using testing::IsEmpty;

TEST(OpenFiles, namesOtherProcessesOnly) {
    QTemporaryFile file; // open in this process, too
    ASSERT_TRUE(file.open());
    const QByteArray path = QFile::encodeName(file.fileName());
    EXPECT_THAT(programsWithOpenFile(path), IsEmpty());

    QProcess holder;
    holder.setStandardInputFile(file.fileName());
    holder.start(QStringLiteral("sleep"), {QStringLiteral("60")});
    ASSERT_TRUE(holder.waitForStarted());
    const QString expected = QStringLiteral("sleep (%1)").arg(holder.processId());
    EXPECT_THAT(programsWithOpenFile(path), testing::ElementsAre(expected));

    holder.kill();
    ASSERT_TRUE(holder.waitForFinished());
    EXPECT_THAT(programsWithOpenFile(path), IsEmpty());
}

} // namespace
} // namespace tessary
