#include "platform/keys/DesktopKeyStore.h"
#include "platform/keys/FileKeyStore.h"
#include "support/Application.h"
#include "support/TemporaryFolder.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QProcess>
#include <QStandardPaths>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace tessary {

namespace {

const QString tag = QStringLiteral("com.example.key");

class KeyStoreTest : protected Application, public testing::Test {
protected:
    [[nodiscard]] FileKeyStore files() const {
        return FileKeyStore(folder_.path(QStringLiteral("data/keys")));
    }
    [[nodiscard]] DesktopKeyStore desktop() const {
        return DesktopKeyStore(QStringLiteral("tessary-test"),
                               std::make_unique<FileKeyStore>(files()), folder_.path());
    }
    [[nodiscard]] mode_t mode(const char* relative) const {
        struct stat facts {};
        EXPECT_EQ(::lstat(qPrintable(folder_.path(QString::fromLatin1(relative))), &facts), 0);
        return facts.st_mode & 07777;
    }

    const TemporaryFolder folder_;
};

TEST_F(KeyStoreTest, fileIsForItsUserAloneAndKeepsItsFirstSecret) {
    EXPECT_EQ(files().find(tag), std::nullopt);
    EXPECT_EQ(files().addIfMissing(tag, "first"), "first");
    EXPECT_EQ(files().addIfMissing(tag, "second"), "first");
    EXPECT_EQ(files().find(tag), "first");
    EXPECT_EQ(mode("data/keys"), 0700u);
    EXPECT_EQ(mode("data/keys/com.example.key"), 0600u);
    EXPECT_EQ(folder_.names(QStringLiteral("data/keys")), QStringList{tag});
}

TEST_F(KeyStoreTest, fileThatIsNoSecretIsRefused) {
    const QString path = folder_.write(QStringLiteral("data/keys/") + tag, "known to all");
    ASSERT_EQ(::chmod(qPrintable(path), 0640), 0);
    EXPECT_THROW((void)files().find(tag), KeyStoreError);
    EXPECT_THROW((void)files().addIfMissing(tag, "mine"), KeyStoreError);
    ASSERT_TRUE(QFile::rename(path, folder_.path(QStringLiteral("elsewhere"))));
    ASSERT_EQ(::symlink(qPrintable(folder_.path(QStringLiteral("elsewhere"))), qPrintable(path)),
              0);
    EXPECT_THROW((void)files().find(tag), KeyStoreError);
    EXPECT_EQ(folder_.read(QStringLiteral("elsewhere")), "known to all");
}

// The libraries keep the bus once they have found one: what needs none comes first.
TEST_F(KeyStoreTest, fileStandsInWhereNoSecretServiceAnswers) {
    const QByteArray bus = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    EXPECT_EQ(desktop().find(tag), std::nullopt);
    EXPECT_EQ(desktop().addIfMissing(tag, "first"), "first");
    EXPECT_EQ(desktop().addIfMissing(tag, "second"), "first");
    EXPECT_EQ(files().find(tag), "first");
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus);
}

TEST_F(KeyStoreTest, secretServiceKeepsTheSecretOutOfFiles) {
    if (QStandardPaths::findExecutable(QStringLiteral("gnome-keyring-daemon")).isEmpty())
        GTEST_SKIP() << "gnome-keyring is not installed";
    qputenv("HOME", qPrintable(folder_.makeFolder(QStringLiteral("home"))));
    qputenv("XDG_RUNTIME_DIR", qPrintable(folder_.makeFolder(QStringLiteral("run"))));
    QProcess service;
    service.start(QStringLiteral("gnome-keyring-daemon"),
                  {QStringLiteral("--foreground"), QStringLiteral("--unlock"),
                   QStringLiteral("--components=secrets")});
    service.write("password");
    service.closeWriteChannel();
    const auto bus = QDBusConnection::sessionBus();
    ASSERT_TRUE(eventually([&] {
        return bus.interface()->isServiceRegistered(QStringLiteral("org.freedesktop.secrets"));
    }));

    EXPECT_EQ(desktop().find(tag), std::nullopt);
    EXPECT_EQ(desktop().addIfMissing(tag, "first"), "first");
    EXPECT_EQ(desktop().addIfMissing(tag, "second"), "first");
    EXPECT_EQ(desktop().find(tag), "first");
    EXPECT_FALSE(folder_.has(QStringLiteral("data/keys")));

    // A key that was made without the service is the one that stays in use.
    EXPECT_EQ(files().addIfMissing(tag, "third"), "third");
    EXPECT_EQ(desktop().find(tag), "third");
    service.kill();
    service.waitForFinished();
}

} // namespace

} // namespace tessary
