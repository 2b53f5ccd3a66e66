#include "cli/CommandLine.h"
#include "support/QtPrinters.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace tessary;

namespace {

std::optional<CliRequest> request(const QStringList& arguments) {
    auto parsed = parseCommandLine(arguments);
    if (auto* good = std::get_if<CliRequest>(&parsed))
        return *good;
    return std::nullopt;
}

std::optional<CliUsage> usage(const QStringList& arguments) {
    auto parsed = parseCommandLine(arguments);
    if (auto* bad = std::get_if<CliUsage>(&parsed))
        return *bad;
    return std::nullopt;
}

} // namespace

TEST(CommandLine, commandsTakeTheirPaths) {
    const auto get = request({QStringLiteral("get"), QStringLiteral("Pixel"),
                              QStringLiteral("/DCIM/a b.jpg"), QStringLiteral("here")});
    ASSERT_TRUE(get);
    EXPECT_EQ(get->command, CliRequest::Command::get);
    EXPECT_EQ(get->device, QStringLiteral("Pixel"));
    EXPECT_EQ(get->paths, QStringList{QStringLiteral("/DCIM/a b.jpg")});
    EXPECT_EQ(get->localPath, QDir::current().absoluteFilePath(QStringLiteral("here")));

    const auto put = request({QStringLiteral("put"), QStringLiteral("P"), QStringLiteral("/tmp/x"),
                              QStringLiteral("/Music")});
    ASSERT_TRUE(put);
    EXPECT_EQ(put->localPath, QStringLiteral("/tmp/x"));
    EXPECT_EQ(put->paths, QStringList{QStringLiteral("/Music")});

    const auto remove = request(
        {QStringLiteral("rm"), QStringLiteral("P"), QStringLiteral("/a"), QStringLiteral("/b")});
    ASSERT_TRUE(remove);
    EXPECT_EQ(remove->paths, (QStringList{QStringLiteral("/a"), QStringLiteral("/b")}));

    const auto list = request({QStringLiteral("ls"), QStringLiteral("P")});
    ASSERT_TRUE(list);
    EXPECT_EQ(list->paths, QStringList{QStringLiteral("/")});
}

TEST(CommandLine, generalOptionsStandBeforeOrBehindTheCommand) {
    const auto before =
        request({QStringLiteral("--demo"), QStringLiteral("--usb"), QStringLiteral("46F4:0004"),
                 QStringLiteral("devices"), QStringLiteral("--json")});
    ASSERT_TRUE(before);
    EXPECT_TRUE(before->demo);
    EXPECT_TRUE(before->json);
    ASSERT_EQ(before->alsoAccept.size(), 1U);
    EXPECT_EQ(before->alsoAccept.front(), (UsbIds{0x46F4, 0x0004}));
    const auto behind = request({QStringLiteral("devices"), QStringLiteral("--usb"),
                                 QStringLiteral("46f4:4"), QStringLiteral("--demo")});
    ASSERT_TRUE(behind);
    EXPECT_TRUE(behind->demo);
    EXPECT_EQ(behind->alsoAccept, before->alsoAccept);
}

TEST(CommandLine, wrongUsageSaysSo) {
    const std::vector<QStringList> wrong{
        {},
        {QStringLiteral("dance")},
        {QStringLiteral("ls")},
        {QStringLiteral("get"), QStringLiteral("P"), QStringLiteral("/a")},
        {QStringLiteral("mv"), QStringLiteral("P"), QStringLiteral("/a")},
        {QStringLiteral("devices"), QStringLiteral("--fast")},
        {QStringLiteral("--usb"), QStringLiteral("pixel"), QStringLiteral("devices")},
        {QStringLiteral("--usb"), QStringLiteral("12345:1"), QStringLiteral("devices")},
    };
    for (const QStringList& arguments : wrong) {
        const auto answer = usage(arguments);
        ASSERT_TRUE(answer) << arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_EQ(answer->exitStatus, 2);
        EXPECT_FALSE(answer->text.isEmpty());
    }
}

TEST(CommandLine, helpIsNoFailure) {
    for (const QStringList& arguments :
         {QStringList{QStringLiteral("--help")},
          QStringList{QStringLiteral("get"), QStringLiteral("--help")}}) {
        const auto answer = usage(arguments);
        ASSERT_TRUE(answer);
        EXPECT_EQ(answer->exitStatus, 0);
        EXPECT_TRUE(answer->text.contains(QStringLiteral("tessary-cli")));
    }
}

TEST(CommandLine, syncTakesItsModeAndOneAnswer) {
    const auto sync = [](const char* options) {
        return request((QStringLiteral("sync P /tmp/x /Music ") + QString::fromLatin1(options))
                           .split(QLatin1Char(' '), Qt::SkipEmptyParts));
    };
    const auto move = sync("--mode to-mac --move --no-delete --yes-all --dry-run");
    ASSERT_TRUE(move);
    EXPECT_EQ(move->command, CliRequest::Command::sync);
    EXPECT_EQ(move->mode, SyncMode::toMac);
    EXPECT_TRUE(move->moves && move->isDryRun && !move->deletes);
    EXPECT_EQ(move->answer, CliRequest::Answer::yesAll);
    EXPECT_EQ(move->localPath, QStringLiteral("/tmp/x"));
    EXPECT_EQ(move->paths, QStringList{QStringLiteral("/Music")});
    const auto both = sync("--mode both");
    ASSERT_TRUE(both);
    EXPECT_EQ(both->answer, CliRequest::Answer::ask);
    EXPECT_TRUE(both->deletes);
    for (const char* wrong : {"", "--mode sideways", "--mode both --yes --keep"})
        EXPECT_FALSE(sync(wrong)) << wrong;
}
