#include "core/CancellationError.h"
#include "core/TessaryError.h"
#include "core/TransferProgress.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <limits>

namespace tessary {
namespace {

TEST(AFCErrorText, namesTheCaseAndItsNumber) {
    const struct {
        std::int32_t status;
        const char* text;
    } rows[] = {
        {0, "AFC Error: success (code 0)"},        {1, "AFC Error: unknownError (code 1)"},
        {8, "AFC Error: objectNotFound (code 8)"}, {23, "AFC Error: internalError (code 23)"},
        {24, "AFC Error: unknownError (code 1)"},  {29, "AFC Error: unknownError (code 1)"},
        {30, "AFC Error: muxError (code 30)"},     {34, "AFC Error: sslError (code 34)"},
        {35, "AFC Error: unknownError (code 1)"},  {-1, "AFC Error: unknownError (code 1)"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(description(afcErrorFromStatus(row.status)), QString::fromLatin1(row.text))
            << row.status;
}

TEST(TessaryErrorText, everyCaseHasItsPrefix) {
    const QString why = QStringLiteral("\u00e4 %1");
    const std::pair<TessaryError, const char*> rows[] = {
        {TessaryError::deviceNotFound(why), "Device not found: \u00e4 %1"},
        {TessaryError::lockdownFailed(why), "Lockdown error: \u00e4 %1"},
        {TessaryError::serviceStartFailed(why), "Failed to start service: \u00e4 %1"},
        {TessaryError::houseArrestFailed(why), "House Arrest error: \u00e4 %1"},
        {TessaryError::afcError(AFCError::permDenied), "AFC Error: permDenied (code 10)"},
        {TessaryError::instProxyFailed(why), "InstProxy error: \u00e4 %1"},
        {TessaryError::fileIOError(why), "File I/O error: \u00e4 %1"},
        {TessaryError::transferCancelled(), "Transfer was cancelled"},
    };
    for (const auto& [error, text] : rows) {
        EXPECT_EQ(error.description(), QString::fromUtf8(text));
        EXPECT_STREQ(error.what(), text);
    }
}

TEST(TessaryErrorText, equalityIsCaseAndPayload) {
    const QString a = QStringLiteral("a");
    EXPECT_EQ(TessaryError::fileIOError(a), TessaryError::fileIOError(a));
    EXPECT_FALSE(TessaryError::fileIOError(a) == TessaryError::fileIOError(QString()));
    EXPECT_FALSE(TessaryError::fileIOError(a) == TessaryError::lockdownFailed(a));
    EXPECT_FALSE(TessaryError::afcError(AFCError::ioError) ==
                 TessaryError::afcError(AFCError::noMem));
}

TEST(Cancellation, onlyAnAskedTokenThrows) {
    std::stop_source source;
    EXPECT_NO_THROW(throwIfStopped(source.get_token()));
    EXPECT_NO_THROW(throwIfStopped({}));
    source.request_stop();
    EXPECT_THROW(throwIfStopped(source.get_token()), CancellationError);
}

TEST(TransferProgressText, neverShowsMoreDoneThanThereIs) {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    TransferProgress progress{10, 3, 4'000'000, 1'000'000, 500'000, 900'000};
    EXPECT_EQ(progress.fileCountDescription(), QStringLiteral("3/10 files"));
    EXPECT_EQ(progress.bytesDescription(), QStringLiteral("1.5 MB / 4.0 MB"));
    progress.completedFiles = 11;
    progress.completedBytes = 4'000'000;
    EXPECT_EQ(progress.fileCountDescription(), QStringLiteral("10/10 files"));
    EXPECT_EQ(progress.bytesDescription(), QStringLiteral("4.0 MB / 4.0 MB"));
    progress.currentFileBytes = std::numeric_limits<qint64>::max();
    EXPECT_DEATH((void)progress.bytesDescription(), "signed 64-bit");
}

} // namespace
} // namespace tessary
