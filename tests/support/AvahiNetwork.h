#pragma once

#include "support/TemporaryFolder.h"

#include <QProcess>
#include <QStringList>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include <unistd.h>

namespace tessary {

/// A network of the test's own, with a real avahi-daemon and system bus on it once they are
/// started. Nothing outside sees any of it.
class AvahiNetwork {
public:
    /// Starts this test program anew, all its tests, in network and mount namespaces; returns in
    /// there only.
    /// False where they cannot be had.
    [[nodiscard]] static bool enter() {
        if (qEnvironmentVariableIsSet(inside))
            return true;
        for (const char* flags : {"-rnm", "-nm"}) {
            const QString can = QString::fromLatin1(flags);
            if (QProcess::execute(QStringLiteral("unshare"), {can, QStringLiteral("true")}) != 0)
                continue;
            qputenv(inside, "1");
            const QByteArray self = QFile::symLinkTarget(QStringLiteral("/proc/self/exe")).toUtf8();
            ::execlp("unshare", "unshare", flags, "--propagation", "private", self.constData(),
                     nullptr);
            return false;
        }
        return false;
    }

    AvahiNetwork() {
        // The daemon wants users of its own, and folders that the true one may be using.
        folder_.write(QStringLiteral("passwd"), "root:x:0:0::/:/bin/sh\navahi:x:0:0::/:/bin/sh\n"
                                                "messagebus:x:0:0::/:/bin/sh\n");
        folder_.write(QStringLiteral("group"), "root:x:0:\navahi:x:0:\nnetdev:x:0:\n");
        folder_.write(QStringLiteral("avahi.conf"),
                      "[server]\nuse-ipv6=no\nallow-interfaces=net0\n[publish]\n"
                      "publish-workstation=no\npublish-hinfo=no\n");
        folder_.write(
            QStringLiteral("bus.conf"),
            "<busconfig><type>system</type><listen>unix:path=" +
                folder_.path(QStringLiteral("bus")).toUtf8() +
                "</listen><auth>EXTERNAL</auth><policy context=\"default\"><allow user=\"*\"/>"
                "<allow send_destination=\"*\"/><allow receive_sender=\"*\"/><allow own=\"*\"/>"
                "</policy></busconfig>");
        qputenv("DBUS_SYSTEM_BUS_ADDRESS",
                "unix:path=" + folder_.path(QStringLiteral("bus")).toUtf8());
        run("mount --bind @passwd /etc/passwd && mount --bind @group /etc/group && "
            "mkdir -p /run/avahi-daemon && mount -t tmpfs none /run/avahi-daemon && "
            "{ ip link add net0 type dummy 2>/dev/null || "
            "  { ip link add net0 type veth peer name net1 && ip link set net1 up; }; } && "
            "ip addr add 10.77.0.1/24 dev net0 && ip link set net0 up multicast on && "
            "ip link set lo up");
    }

    void startDaemon() {
        bus_ = start("exec dbus-daemon --config-file=@bus.conf --nofork");
        run("for n in $(seq 100); do test -S @bus && exit; sleep 0.1; done; exit 1");
        daemon_ = start("exec avahi-daemon -f @avahi.conf --no-drop-root --no-chroot --no-rlimits");
        run("for n in $(seq 100); do avahi-browse -t _x._tcp && exit; sleep 0.1; done; exit 1");
    }
    void stopDaemon() {
        daemon_.reset();
        bus_.reset();
    }
    /// Announces a service until the end of the test.
    void publish(const QString& name, const QString& type, int port) {
        published_.push_back(std::make_unique<Child>());
        published_.back()->process.start(QStringLiteral("avahi-publish"),
                                         {QStringLiteral("-s"), name, type, QString::number(port)});
    }

private:
    struct Child {
        QProcess process;
        ~Child() {
            process.terminate();
            process.waitForFinished();
        }
    };

    static constexpr const char* inside = "TESSARY_TEST_NAMESPACE";

    [[nodiscard]] QStringList shell(const char* line) const {
        return {QStringLiteral("-c"), QString::fromLatin1(line).replace(
                                          QLatin1Char('@'), folder_.path() + QLatin1Char('/'))};
    }
    void run(const char* line) {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QStringLiteral("sh"), shell(line));
        EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0)
            << line << process.readAll().toStdString();
    }
    [[nodiscard]] std::unique_ptr<Child> start(const char* line) const {
        auto child = std::make_unique<Child>();
        child->process.setProcessChannelMode(QProcess::MergedChannels);
        child->process.start(QStringLiteral("sh"), shell(line));
        return child;
    }

    const TemporaryFolder folder_;
    std::unique_ptr<Child> bus_;
    std::unique_ptr<Child> daemon_;
    std::vector<std::unique_ptr<Child>> published_;
};

} // namespace tessary
