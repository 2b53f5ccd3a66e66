#include "platform/desktop/DesktopPrograms.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <QFile>
#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

TEST(DesktopEntry, execLinesTakeFilesAsTheySay) {
    using Commands = std::vector<QStringList>;
    const QStringList files{u"/a b.txt"_s, u"/ü%.txt"_s};
    const std::tuple<const char*, Commands> rows[] = {
        {"view %F", {{u"view"_s, u"/a b.txt"_s, u"/ü%.txt"_s}}},
        {"view -n %U", {{u"view"_s, u"-n"_s, u"file:///a%20b.txt"_s, u"file:///%C3%BC%25.txt"_s}}},
        {"view %f", {{u"view"_s, u"/a b.txt"_s}, {u"view"_s, u"/ü%.txt"_s}}},
        {"view", {{u"view"_s, u"/a b.txt"_s}, {u"view"_s, u"/ü%.txt"_s}}},
        {R"("/my programs/view" --title=%c "a \"quoted\" word" %F %i)",
         {{u"/my programs/view"_s, u"--title=Viewer"_s, u"a \"quoted\" word"_s, u"/a b.txt"_s,
           u"/ü%.txt"_s, u"--icon"_s, u"eye"_s}}},
        {"view 100%% %d%v %F", {{u"view"_s, u"100%"_s, u"/a b.txt"_s, u"/ü%.txt"_s}}},
        {"\"unfinished %F", {}},
        {"  ", {}},
        {"%i", {}}, // or the phone's file would be the program
        {"%F", {}},
    };
    for (const auto& [line, commands] : rows) {
        const DesktopProgram program{u"v.desktop"_s, u"Viewer"_s, u"eye"_s,
                                     QString::fromUtf8(line)};
        EXPECT_EQ(commandsOf(program, files), commands) << line;
    }
}

/// A desktop of this test's own.
class DesktopProgramsTest : public ::testing::Test {
protected:
    DesktopProgramsTest() {
        qputenv("XDG_DATA_HOME", QFile::encodeName(home_.path()));
        qputenv("XDG_DATA_DIRS", QFile::encodeName(system_.path()) + ":/usr/share");
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(config_.path()));
    }
    void install(const TemporaryFolder& where, const char* id, const char* name,
                 const char* types) {
        where.write(u"applications/"_s + QString::fromLatin1(id),
                    QByteArray("[Desktop Entry]\nType=Application\nExec=true %F\nName=") + name +
                        "\nMimeType=" + types + "\n");
    }
    static QStringList namesFor(const QString& file) {
        QStringList names;
        for (const DesktopProgram& program : programsFor(file, u"en_US"_s))
            if (program.id.startsWith(u"test"))
                names << program.name;
        return names;
    }

    TemporaryFolder home_;
    TemporaryFolder system_;
    TemporaryFolder config_;
};

TEST_F(DesktopProgramsTest, theUsersChoicesComeFirstAndHideTheSystems) {
    install(system_, "test-zebra.desktop", "Zebra", "image/png;");
    install(system_, "test-apple.desktop", "Apple", "image/png;");
    install(system_, "test-text.desktop", "Text", "text/plain;");
    install(system_, "test-own.desktop", "Of the system", "image/png;");
    install(home_, "test-own.desktop", "Mine", "image/png;");
    EXPECT_EQ(namesFor(u"x.png"_s), (QStringList{u"Apple"_s, u"Mine"_s, u"Zebra"_s}));
    EXPECT_EQ(namesFor(u"x.py"_s), QStringList{u"Text"_s}) << "a script is a text, too";

    config_.write(u"mimeapps.list"_s, "[Default Applications]\nimage/png=test-zebra.desktop\n"
                                      "[Added Associations]\nimage/png=test-text.desktop;\n"
                                      "[Removed Associations]\nimage/png=test-apple.desktop;\n");
    EXPECT_EQ(namesFor(u"x.png"_s), (QStringList{u"Zebra"_s, u"Text"_s, u"Mine"_s}));
}

} // namespace
} // namespace tessary
