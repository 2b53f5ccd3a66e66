#include "cli/terminal/ProgressPrinter.h"
#include "base/local/FileHandle.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <string>

namespace tessary {
namespace {

TEST(ProgressPrinter, oneLineOfATerminalIsRewrittenAndRemoved) {
    const FileHandle screen(posix_openpt(O_RDWR | O_NOCTTY));
    ASSERT_TRUE(screen.isOpen());
    ASSERT_EQ(grantpt(screen.get()), 0);
    ASSERT_EQ(unlockpt(screen.get()), 0);
    std::FILE* terminal = std::fopen(ptsname(screen.get()), "w");
    ASSERT_NE(terminal, nullptr);
    const auto shown = [&] {
        std::fflush(terminal);
        std::array<char, 500> text{};
        const ssize_t length = read(screen.get(), text.data(), text.size());
        return std::string(text.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
    };
    {
        ProgressPrinter printer(terminal);
        TransferProgress half;
        half.totalFiles = 3;
        half.completedFiles = 1;
        half.totalBytes = 4000;
        half.completedBytes = 1000;
        half.currentFileBytes = 1000;
        printer.show(half);
        EXPECT_EQ(shown(), "\r\033[K 50 %  2 kB / 4 kB  1/3 files");
        printer.show(9, 9);
        EXPECT_TRUE(shown().starts_with("\r\033[K100 %  9 bytes / 9 bytes"));
    }
    EXPECT_EQ(shown(), "\r\033[K");
    std::fclose(terminal);
}

TEST(ProgressPrinter, aFileGetsNothing) {
    std::FILE* file = std::tmpfile();
    {
        ProgressPrinter printer(file);
        printer.show(1, 2);
    }
    EXPECT_EQ(std::ftell(file), 0);
    std::fclose(file);
}

} // namespace
} // namespace tessary
