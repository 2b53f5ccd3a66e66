#include "platform/desktop/DesktopPrograms.h"
#include "support/QtPrinters.h"

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
        {"\"\" %f", {}},
    };
    for (const auto& [line, commands] : rows) {
        const DesktopProgram program{u"v.desktop"_s, u"Viewer"_s, u"eye"_s,
                                     QString::fromUtf8(line)};
        EXPECT_EQ(commandsOf(program, files), commands) << line;
    }
}

} // namespace
} // namespace tessary
