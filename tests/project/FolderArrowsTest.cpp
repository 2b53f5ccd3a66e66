#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

using testing::HasSubstr;
using testing::IsEmpty;

using Arrows = std::map<std::string, std::vector<std::string>>;

/// What each folder may include besides itself and what those may include in turn, as the build
/// has it.
const Arrows& arrows() {
    static const Arrows all = [] {
        Arrows read;
        std::ifstream lines(TESSARY_ARROWS);
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            std::string folder;
            words >> folder;
            auto& nexts = read[folder];
            nexts.insert(nexts.end(), std::istream_iterator<std::string>(words), {});
        }
        return read;
    }();
    return all;
}

void addReachable(const std::string& folder, std::set<std::string>& reached) {
    if (!reached.insert(folder).second)
        return;
    for (const std::string& next : arrows().at(folder))
        addReachable(next, reached);
}

/// The folder of a path that is written as includes are; empty for one that is in no known folder.
std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "" : path.substr(0, slash);
    if (folder.starts_with("programs/"))
        return "programs";
    return arrows().contains(folder) ? folder : "";
}

std::set<std::string> allowed(const std::string& file) {
    std::set<std::string> folders;
    addReachable(folderOf(file), folders);
    return folders;
}

bool isQtWidgetsHeader(const std::string& header) {
    return header.starts_with("QtWidgets/") ||
           std::filesystem::exists(std::filesystem::path(TESSARY_QT_WIDGETS) / header);
}

/// One line for each include that is against the arrows.
std::vector<std::string> violations(const std::string& file, const std::string& text) {
    static const std::regex include(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
    if (folderOf(file).empty())
        return {file + " is in no known folder"};
    const bool mayUseWidgets = allowed(file).contains("views/common");
    std::vector<std::string> found;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::smatch match;
        if (!std::regex_search(line, match, include))
            continue;
        const std::string header = match[2];
        if (match[1] == "<") {
            if (isQtWidgetsHeader(header) && !mayUseWidgets)
                found.push_back(file + " uses Qt Widgets: " + header);
        } else if (!allowed(file).contains(folderOf(header))) {
            found.push_back(file + " may not include " + header);
        }
    }
    return found;
}

/// Each source file by the path that includes name it by.
std::map<std::string, std::string> sources() {
    std::map<std::string, std::string> found;
    const std::filesystem::path top(TESSARY_TOP);
    for (const auto& [folder, base] :
         {std::pair(top / "src", top / "src"), std::pair(top / "simulator", top)})
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            const auto extension = entry.path().extension();
            if (extension != ".h" && extension != ".cpp")
                continue;
            std::stringstream text;
            text << std::ifstream(entry.path()).rdbuf();
            found[entry.path().lexically_relative(base).generic_string()] = text.str();
        }
    return found;
}

TEST(FolderArrows, sourcesIncludeOnlyWhatTheyMay) {
    std::vector<std::string> found;
    const auto all = sources();
    for (const auto& [name, text] : all)
        for (const std::string& violation : violations(name, text))
            found.push_back(violation);
    EXPECT_GT(all.size(), 400U);
    EXPECT_THAT(found, IsEmpty());
}

TEST(FolderArrows, foldersPointOneWayOnly) {
    std::vector<std::string> cycles;
    for (const auto& [folder, nexts] : arrows())
        for (const std::string& next : nexts) {
            std::set<std::string> reached;
            addReachable(next, reached);
            if (reached.contains(folder))
                cycles.push_back(folder + " <-> " + next);
        }
    EXPECT_THAT(cycles, IsEmpty());
}

TEST(FolderArrows, noFolderIsAHall) {
    constexpr int most = 26;
    std::map<std::string, int> counts;
    for (const auto& [name, text] : sources())
        ++counts[name.substr(0, name.rfind('/'))];
    std::vector<std::string> halls;
    for (const auto& [folder, count] : counts)
        if (count > most)
            halls.push_back(folder + ": " + std::to_string(count) + " files");
    EXPECT_THAT(halls, IsEmpty());
}

TEST(FolderArrows, plantedViolationsAreFound) {
    const std::pair<const char*, const char*> rows[] = {
        {"mtp/client/MTPClient.h", "#pragma once\n\n  # include \"browser/listing/FileRows.h\""},
        {"cli/commands/A.cpp", "#include \"simulator/faults/FaultyAndroid.h\""},
        {"cli/terminal/A.cpp", "#include \"views/window/MainWindow.h\""},
        {"base/text/A.cpp", "#include \"base/log/Product.h\""},
        {"app/TessaryApp.cpp", "#include <QMessageBox>"},
        {"sync/plan/A.cpp", "#include \"B.h\""},
        {"stray/A.cpp", ""},
    };
    for (const auto& [file, text] : rows)
        EXPECT_THAT(violations(file, text), testing::ElementsAre(HasSubstr(file))) << text;
}

} // namespace
