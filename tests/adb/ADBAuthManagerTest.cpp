#include "adb/keys/ADBAuthManager.h"
#include "adb/ways/ADBKeyHelper.h"
#include "platform/keys/FileKeyStore.h"
#include "platform/process/QtProcessRunner.h"
#include "simulator/faults/FaultyADBD.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <chrono>

namespace tessary {

namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using std::operator""sv;

Bytes bytesOf(std::string_view text) {
    const auto* data = reinterpret_cast<const std::byte*>(text.data());
    return {data, data + text.size()};
}

const Bytes token = bytesOf("\0\x01token of 20 bytes!"sv);

QByteArray textOf(ByteView bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

Bytes bytesOfFile(const QByteArray& content) {
    return bytesOf({content.constData(), static_cast<std::size_t>(content.size())});
}

class ADBAuthManagerTest : public testing::Test {
protected:
    [[nodiscard]] ADBAuthManager manager(const QString& host = QStringLiteral("Ann's desk")) const {
        return ADBAuthManager(std::make_unique<FileKeyStore>(folder_.path(QStringLiteral("keys"))),
                              QStringLiteral("ann"), host);
    }
    /// Runs a command in the test's folder.
    void expectSucceeds(const char* line) {
        QStringList arguments = QString::fromLatin1(line)
                                    .replace(QLatin1Char('@'), folder_.path() + QLatin1Char('/'))
                                    .split(QLatin1Char(' '));
        const QString program = arguments.takeFirst();
        const ProcessResult result = runner_.run(program, arguments, 30s);
        EXPECT_TRUE(result.succeeded())
            << result.standardOutput.toStdString() << result.standardError.toStdString();
    }
    [[nodiscard]] QString storedKey() const {
        return QStringLiteral("keys/") + ADBAuthManager::keyTag;
    }

    const TemporaryFolder folder_;
    QtProcessRunner runner_;
};

TEST_F(ADBAuthManagerTest, keyOfTheADBToolSignsForItsPublicKeyAndForOurs) {
    folder_.makeFolder(QStringLiteral("keys"));
    expectSucceeds("adb keygen @keys/com.kestrine.adb.privatekey");
    ASSERT_TRUE(folder_.has(storedKey()));
    const Bytes signature = manager().sign(token, {});
    for (const Bytes& publicKey : {bytesOfFile(folder_.read(storedKey() + QStringLiteral(".pub"))),
                                   manager().getPhonePublicKeyPayload({})}) {
        ADBDKeys phone;
        ASSERT_TRUE(phone.trust(publicKey)) << textOf(publicKey).toStdString();
        EXPECT_TRUE(phone.hasSigned(token, signature));
        EXPECT_FALSE(phone.hasSigned(makeADBDToken(), signature));
    }
}

TEST_F(ADBAuthManagerTest, whatCannotBeUsedIsAnErrorAndStaysAsItIs) {
    try {
        (void)manager().sign(ByteView(token).first(19), {});
        ADD_FAILURE() << "signed";
    } catch (const Error& error) {
        EXPECT_TRUE(error.is(ADBError::notSigned));
        EXPECT_THAT(error.what(), HasSubstr("Failed to sign challenge token: "));
    }
    const QByteArray shortKey = [&] {
        expectSucceeds("openssl genrsa -out @short 1024");
        return folder_.read(QStringLiteral("short"));
    }();
    for (const QByteArray& stored : {QByteArray("damaged"), QByteArray(""), shortKey}) {
        folder_.write(storedKey(), stored); // keeps its permissions
        try {
            (void)manager().getPhonePublicKeyPayload({});
            ADD_FAILURE() << stored.toStdString();
        } catch (const Error& error) {
            EXPECT_TRUE(error.is(ADBError::noKey));
            EXPECT_THAT(error.what(), HasSubstr("Failed to generate RSA key: "));
        }
        EXPECT_EQ(folder_.read(storedKey()), stored);
    }
}

// What the program for the key does with the user's own store.
TEST_F(ADBAuthManagerTest, programForTheKeyAnswersAsTheKeyItself) {
    QProcessEnvironment home;
    home.insert(QStringLiteral("XDG_DATA_HOME"), folder_.path());
    home.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("unix:path=/nowhere"));
    QtProcessRunner runner(home);
    ADBKeyHelper helper(runner);
    const Bytes signature = helper.sign(token, {});
    ADBDKeys phone;
    ASSERT_TRUE(phone.trust(helper.getPhonePublicKeyPayload({})));
    EXPECT_TRUE(phone.hasSigned(token, signature));

    folder_.write(QStringLiteral("tessary/") + storedKey(), "damaged");
    try {
        (void)helper.sign(token, {});
        ADD_FAILURE() << "signed";
    } catch (const Error& error) {
        EXPECT_TRUE(error.is(ADBError::noKey));
        EXPECT_THAT(error.what(), HasSubstr("no RSA key of 2048 bits"));
    }
}

} // namespace

} // namespace tessary
