#include "cli/terminal/CommandLine.h"
#include "support/QtPrinters.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

/// What a line of words without blanks asks for; nothing when it is wrong. '' is an empty word.
std::optional<CliRequest> request(const char* line) {
    QStringList words = QString::fromLatin1(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    words.replaceInStrings(u"''"_s, QString());
    auto parsed = parseCommandLine(words);
    if (auto* good = std::get_if<CliRequest>(&parsed))
        return *good;
    return std::nullopt;
}

} // namespace

TEST(CommandLine, commandsTakeTheirPaths) {
    const auto get = request("get Pixel /DCIM/a.jpg here");
    ASSERT_TRUE(get);
    EXPECT_EQ(get->command, CliRequest::Command::get);
    EXPECT_EQ(get->device, u"Pixel"_s);
    EXPECT_EQ(get->paths, QStringList{u"/DCIM/a.jpg"_s});
    EXPECT_EQ(get->localPath, QDir::current().absoluteFilePath(u"here"_s));

    EXPECT_EQ(request("put P /tmp/x /Music").value().paths, QStringList{u"/Music"_s});

    EXPECT_EQ(request("rm P /a /b").value().paths, (QStringList{u"/a"_s, u"/b"_s}));
    EXPECT_EQ(request("ls P").value().paths, QStringList{u"/"_s});
    EXPECT_EQ(request("find P *.jpg").value().paths, QStringList{u"/"_s});
    EXPECT_EQ(request("find P *.jpg /DCIM").value().pattern, u"*.jpg"_s);
    EXPECT_EQ(request("mount P /tmp/x").value().localPath, u"/tmp/x"_s);
}

TEST(CommandLine, generalOptionsStandBeforeOrBehindTheCommand) {
    for (const char* line :
         {"--demo --usb 46F4:0004 devices --json", "devices --usb 46f4:4 --demo --json"}) {
        const auto devices = request(line);
        ASSERT_TRUE(devices) << line;
        EXPECT_TRUE(devices->demo && devices->json) << line;
        EXPECT_EQ(devices->alsoAccept, (std::vector{USBIds{0x46F4, 0x0004}})) << line;
    }
}

TEST(CommandLine, wrongUsageSaysSo) {
    for (const char* line :
         {"", "dance", "ls", "get P /a", "mv P /a", "devices --fast", "--usb pixel devices",
          "--usb 12345:1 devices", "sync P /tmp/x /Music", "sync P /tmp/x /Music --mode sideways",
          "sync P /tmp/x /Music --mode both --yes --keep",
          "sync P /tmp/x /Music --mode both --move",
          // empty words of scripts
          "get P '' x", "put P '' /DCIM", "mv P /a ''", "rm P /a ''", "rm '' /a", "ls P ''",
          "find P a ''", "mount P ''", "import P '' --dry-run", "sync P x '' --mode both",
          "ls --app '' P", "sync P x /Music --mode both --exclude ''", "--demo-folder '' rm P /a"})
        EXPECT_FALSE(request(line)) << line;
}

TEST(CommandLine, syncTakesItsModeAndOneAnswer) {
    const auto move =
        request("sync P /tmp/x /Music --mode to-mac --move --no-delete --yes-all --dry-run "
                "--exclude *.tmp --exclude /private/");
    ASSERT_TRUE(move);
    EXPECT_EQ(move->command, CliRequest::Command::sync);
    EXPECT_EQ(move->mode, SyncMode::toComputer);
    EXPECT_TRUE(move->moves && move->isDryRun && !move->deletes);
    EXPECT_EQ(move->answer, CliRequest::Answer::yesAll);
    EXPECT_EQ(move->localPath, u"/tmp/x"_s);
    EXPECT_EQ(move->paths, QStringList{u"/Music"_s});
    EXPECT_EQ(move->excludes, (QStringList{u"*.tmp"_s, u"/private/"_s}));
    EXPECT_EQ(request("sync P /tmp/x /Music --mode to-computer")->mode, SyncMode::toComputer);
    const auto both = request("sync P /tmp/x /Music --mode both");
    ASSERT_TRUE(both);
    EXPECT_EQ(both->answer, CliRequest::Answer::ask);
    EXPECT_TRUE(both->deletes);
}
