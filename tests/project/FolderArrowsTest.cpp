#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

using testing::HasSubstr;
using testing::IsEmpty;

/// What each folder of src/ may include besides itself and what those may include in turn.
const std::map<std::string, std::vector<std::string>> arrows = {
    {"core", {}},           {"platform", {"core"}},     {"mtp", {"platform"}},
    {"adb", {"platform"}},  {"ios", {"platform"}},      {"files", {"mtp", "adb", "ios"}},
    {"devices", {"files"}}, {"sync", {"devices"}},      {"app", {"sync"}},
    {"app/views", {"app"}}, {"phones", {"mtp", "adb"}}, {"cli", {"app"}},
};

void addReachable(const std::string& folder, std::set<std::string>& reached) {
    if (!reached.insert(folder).second)
        return;
    for (const std::string& next : arrows.at(folder))
        addReachable(next, reached);
}

/// The folder of a path that is written from src/; empty for one that is in no known folder.
std::string folderOf(const std::string& path) {
    if (path.starts_with("app/views/"))
        return "app/views";
    const std::size_t slash = path.find('/');
    const std::string folder = slash == std::string::npos ? "" : path.substr(0, slash);
    return arrows.contains(folder) ? folder : "";
}

bool isMain(const std::string& file) {
    return file.ends_with("/main.cpp");
}

/// What a file may include. A main file puts its program together: it may start the virtual
/// phones, and that of the application its windows.
std::set<std::string> allowed(const std::string& file) {
    std::set<std::string> folders;
    addReachable(folderOf(file), folders);
    if (isMain(file))
        addReachable("phones", folders);
    if (folderOf(file) == "app" && isMain(file))
        addReachable("app/views", folders);
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
    const bool mayUseWidgets = allowed(file).contains("app/views");
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

TEST(FolderArrows, sourcesIncludeOnlyWhatTheyMay) {
    const std::filesystem::path sources(TESSARY_SOURCES);
    std::vector<std::string> found;
    int files = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(sources)) {
        const auto extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp")
            continue;
        std::stringstream text;
        text << std::ifstream(entry.path()).rdbuf();
        const std::string name = entry.path().lexically_relative(sources).generic_string();
        for (const std::string& violation : violations(name, text.str()))
            found.push_back(violation);
        ++files;
    }
    EXPECT_GT(files, 20);
    EXPECT_THAT(found, IsEmpty());
}

TEST(FolderArrows, plantedViolationsAreFound) {
    const std::pair<const char*, const char*> rows[] = {
        {"mtp/MTPClient.h", "#pragma once\n\n  # include \"files/DirectoryCache.h\""},
        {"cli/Commands.cpp", "#include \"phones/VirtualAndroid.h\""},
        {"cli/main.cpp", "#include \"app/views/MainWindow.h\""},
        {"app/TessaryApp.cpp", "#include <QMessageBox>"},
        {"files/A.cpp", "#include \"B.h\""},
        {"stray/A.cpp", ""},
    };
    for (const auto& [file, text] : rows)
        EXPECT_THAT(violations(file, text), testing::ElementsAre(HasSubstr(file))) << text;
}

} // namespace
