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

/// What each folder may include besides itself and what those may include in turn. A folder with
/// rooms stands with each of them; "simulator" lies beside src/.
const std::map<std::string, std::vector<std::string>> arrows = {
    {"base/values", {}},
    {"base/text", {}},
    {"base/log", {"base/text"}},
    {"base/threads", {}},
    {"base/hash", {"base/values"}},
    {"base/local", {"base/log", "base/values"}},
    {"platform/net", {"base/local", "base/threads"}},
    {"platform/process", {"base/local"}},
    {"platform/sandbox", {"base/local", "base/values"}},
    {"platform/settings", {"base/local", "base/log", "base/threads"}},
    {"platform/keys", {"base/log"}},
    {"platform/dnssd", {"base/local", "base/log", "base/threads"}},
    {"platform/http", {"base/threads", "base/values"}},
    {"platform/mount", {"base/local", "base/log", "base/threads"}},
    {"platform/desktop", {"base/local", "base/log", "platform/net"}},
    {"platform/usb", {"base/local", "platform/process"}},
    {"phone/records", {"base/text", "base/values"}},
    {"phone", {"base/local", "base/text", "base/threads", "phone/records"}},
    {"mtp/protocol", {"platform/usb"}},
    {"mtp/client", {"base/threads", "mtp/protocol"}},
    {"mtp/objects", {"mtp/client", "phone"}},
    {"mtp/files", {"base/log", "mtp/objects"}},
    {"adb/protocol", {"platform/desktop", "platform/dnssd", "platform/keys"}},
    {"adb/services", {"adb/protocol", "base/threads", "platform/net"}},
    {"adb/server", {"adb/services"}},
    {"adb/direct", {"adb/services", "platform/usb"}},
    {"adb/tool", {"adb/protocol", "platform/process"}},
    {"adb/ways", {"adb/direct", "adb/server", "adb/tool", "phone/records"}},
    {"adb/files", {"adb/services", "base/log", "phone"}},
    {"ios", {"base/log", "phone"}},
    {"ios/helper", {"ios", "platform/process"}},
    {"ios/helper/server", {"ios/helper", "platform/sandbox"}},
    {"ios/files", {"ios/helper"}},
    {"transfer/copy", {"base/hash", "base/log", "phone"}},
    {"transfer/import", {"transfer/copy", "transfer/local"}},
    {"transfer/local", {"base/hash", "phone"}},
    {"transfer/mount", {"base/log", "phone", "platform/mount"}},
    {"transfer/queue", {"transfer/copy"}},
    {"transfer/staging", {"transfer/copy", "transfer/local"}},
    {"devices/files", {"adb/files", "adb/ways", "ios/files", "mtp/files"}},
    {"devices/list", {"devices/files", "platform/settings"}},
    {"sync/pair", {"base/text"}},
    {"sync/plan", {"phone", "sync/pair"}},
    {"sync/run", {"base/log", "sync/plan", "transfer/copy", "transfer/local"}},
    {"sync/manager", {"devices/list", "platform/desktop", "platform/settings", "sync/run"}},
    {"browser/listing", {"phone"}},
    {"browser/selection", {"browser/listing"}},
    {"browser/model",
     {"adb/protocol", "browser/listing", "devices/files", "transfer/import", "transfer/staging",
      "transfer/mount", "transfer/queue", "browser/actions", "browser/selection"}},
    {"browser/storage", {"phone"}},
    {"preview", {"base/log", "phone", "platform/process", "platform/sandbox"}},
    {"preview/decoding", {"preview"}},
    {"preview/film", {"preview"}},
    {"app/copies", {"devices/list", "transfer/local", "transfer/queue"}},
    {"app/favorites", {"platform/settings"}},
    {"app/mounts", {"app/texts", "devices/list", "transfer/mount"}},
    {"app/texts",
     {"browser/model", "platform/http", "sync/manager", "transfer/copy", "browser/actions"}},
    {"app/updates", {"platform/http", "platform/settings"}},
    {"app",
     {"app/copies", "app/favorites", "app/mounts", "app/texts", "app/updates", "platform/dnssd",
      "transfer/staging", "transfer/mount"}},
    {"views/common", {"app", "browser/model"}},
    {"views/dialogs", {"preview", "views/common"}},
    {"views/listing", {"views/dialogs"}},
    {"views/browser", {"views/listing"}},
    {"views/import", {"views/listing"}},
    {"views/sync", {"views/common"}},
    {"views/settings", {"views/sync"}},
    {"views/sidebar", {"views/common"}},
    {"views/transfers", {"views/common"}},
    {"views/phone", {"browser/storage", "views/sidebar", "views/sync"}},
    {"views/tabs", {"views/browser", "views/import", "views/phone", "views/settings"}},
    {"views/window", {"views/tabs", "views/transfers"}},
    {"cli/terminal",
     {"app/texts", "devices/list", "phone", "sync/plan", "transfer/copy", "transfer/queue"}},
    {"cli/devices", {"cli/terminal"}},
    {"cli/commands",
     {"cli/devices", "sync/manager", "transfer/import", "transfer/local", "transfer/mount"}},
    {"simulator/wire", {"base/local"}},
    {"simulator/usb", {"base/threads", "platform/usb", "simulator/wire"}},
    {"simulator/gadget", {"base/local", "platform/usb"}},
    {"simulator/storage", {"base/local", "mtp/protocol"}},
    {"simulator/mtp", {"mtp/protocol", "simulator/storage", "simulator/usb"}},
    {"simulator/adbd",
     {"adb/protocol", "base/hash", "platform/process", "simulator/usb", "simulator/wire"}},
    {"simulator/iphone", {"base/threads", "simulator/wire"}},
    {"simulator/content", {}},
    {"simulator/demo",
     {"simulator/adbd", "simulator/content", "simulator/iphone", "simulator/mtp"}},
    {"simulator/faults", {"simulator/adbd", "simulator/iphone", "simulator/mtp"}},
    // A main file puts its program together: it may also start the virtual phones.
    {"programs",
     {"views/window", "cli/commands", "ios/helper/server", "preview/decoding", "preview/film",
      "simulator/demo"}},
    {"browser/actions", {"transfer/mount", "transfer/staging", "browser/listing"}},
};

void addReachable(const std::string& folder, std::set<std::string>& reached) {
    if (!reached.insert(folder).second)
        return;
    for (const std::string& next : arrows.at(folder))
        addReachable(next, reached);
}

/// The folder of a path that is written as includes are; empty for one that is in no known folder.
std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "" : path.substr(0, slash);
    if (folder.starts_with("programs/"))
        return "programs";
    return arrows.contains(folder) ? folder : "";
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
    for (const auto& [folder, nexts] : arrows)
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
