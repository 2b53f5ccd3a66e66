#include "FuzzTarget.h"
#include "ios/AFCFileInfo.h"
#include "ios/AppLister.h"
#include "ios/PlistValues.h"

#include <array>
#include <cstring>
#include <string>
#include <vector>

using namespace tessary;

namespace {

/// Answers as the library hands them on: trees of nodes that a device chose, and lists of texts.
/// A node is a byte, whose low three bits are its kind, and what the kind needs:
///
///     0  text: u8 count, bytes         3  real: u64        6  a list of u8 nodes
///     1  number: u64                   4  bytes: u8 count  7  a dictionary of u8 pairs: u8 key,
///     2  truth: u8                     5  nothing             an index of `keys`, and a node
class AnswerReader {
public:
    explicit AnswerReader(ByteView input) : input_(input) {}

    plist_t node(int depth = 0) {
        const std::uint8_t kind = byte() & 7U;
        if (depth > deepest || input_.empty())
            return plist_new_string("");
        switch (kind) {
        case 0:
            return plist_new_string(text().c_str());
        case 1:
            return plist_new_uint(number());
        case 2:
            return plist_new_bool(byte());
        case 3: {
            const std::uint64_t bits = number();
            double value = 0;
            std::memcpy(&value, &bits, sizeof value);
            return plist_new_real(value);
        }
        case 4: {
            const std::string bytes = text();
            return plist_new_data(bytes.data(), bytes.size());
        }
        case 6: {
            plist_t list = plist_new_array();
            for (int left = byte(); left > 0 && !input_.empty(); --left)
                plist_array_append_item(list, node(depth + 1));
            return list;
        }
        case 7: {
            plist_t dictionary = plist_new_dict();
            for (int left = byte(); left > 0 && !input_.empty(); --left) {
                const char* key = keys[byte() % keys.size()];
                plist_dict_set_item(dictionary, key, node(depth + 1));
            }
            return dictionary;
        }
        default:
            return plist_new_uid(0);
        }
    }

    std::vector<std::string> texts() {
        std::vector<std::string> all;
        while (!input_.empty()) {
            const std::uint8_t key = byte();
            all.push_back(key < facts.size() ? facts[key] : text());
        }
        return all;
    }

private:
    static constexpr int deepest = 8;
    static constexpr std::array keys{
        "CFBundleIdentifier",   "CFBundleDisplayName", "CFBundleName",
        "UIFileSharingEnabled", "TotalDiskCapacity",   "TotalDataCapacity",
        "TotalDataAvailable",   "AmountDataAvailable", "Error",
        "TotalSystemCapacity"};
    static constexpr std::array facts{"st_ifmt", "S_IFDIR",  "S_IFREG",   "S_IFLNK",
                                      "st_size", "st_mtime", "LinkTarget"};

    std::uint8_t byte() {
        if (input_.empty())
            return 0;
        const auto value = static_cast<std::uint8_t>(input_.front());
        input_ = input_.subspan(1);
        return value;
    }
    std::uint64_t number() {
        std::uint64_t value = 0;
        for (int i = 0; i < 8; ++i)
            value = value << 8U | byte();
        return value;
    }
    std::string text() {
        const std::size_t wanted = byte();
        const std::size_t count = std::min(wanted, input_.size());
        const std::string value(reinterpret_cast<const char*>(input_.data()), count);
        input_ = input_.subspan(count);
        return value;
    }

    ByteView input_;
};

} // namespace

/// Answers of lockdown, the installation proxy, house arrest and AFC.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ByteView input = fuzzInput(data, size);
    const PlistHandle answer(AnswerReader(input).node());
    for (const AppInfo& app : fileSharingAppsIn(answer.get()))
        require(!app.displayName.isNull());
    if (const auto storage = storageFromDiskUsage(answer.get()))
        require(storage->freeBytes >= 0 && storage->freeBytes <= storage->totalBytes);
    (void)textAt(answer.get(), "Error");

    const std::vector<std::string> texts = AnswerReader(input).texts();
    std::vector<const char*> list;
    for (const std::string& text : texts)
        list.push_back(text.c_str());
    list.push_back(nullptr);
    const AFCFileInfo info = parseFileInfo(list.data());
    require(!(info.isDirectory && info.isLink));
    return 0;
}
