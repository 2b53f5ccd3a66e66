#include "cli/CliRunner.h"
#include "platform/MemoryUserDefaults.h"
#include "support/FakeProcessRunner.h"
#include "support/MainLoop.h"
#include "support/PluggedPhone.h"

#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>
#include <unistd.h>

using namespace tessary;

namespace {

using Command = CliRequest::Command;

/// A stream that a run writes to, and that another thread may read meanwhile.
class Capture {
public:
    ~Capture() {
        std::fclose(stream_);
    }
    Capture() = default;
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;

    std::FILE* stream() {
        return stream_;
    }
    /// What has been written and flushed.
    [[nodiscard]] QString text() const {
        QByteArray bytes(1 << 20, Qt::Uninitialized);
        const ssize_t count =
            ::pread(fileno(stream_), bytes.data(), static_cast<std::size_t>(bytes.size()), 0);
        return QString::fromUtf8(bytes.left(std::max<qsizetype>(count, 0)));
    }
    [[nodiscard]] bool eventuallyHolds(const char* part) const {
        const auto end = std::chrono::steady_clock::now() + 20s;
        while (!text().contains(QLatin1StringView(part))) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            std::this_thread::sleep_for(5ms);
        }
        return true;
    }

private:
    std::FILE* const stream_ = std::tmpfile();
};

struct Result {
    CliRunner::ExitStatus status;
    QString out;
    QString error;

    [[nodiscard]] QJsonDocument json() const {
        return QJsonDocument::fromJson(out.toUtf8());
    }
};

VirtualAndroidConfig config(const char* serial, const char* location) {
    VirtualAndroidConfig made;
    made.serialNumber = QString::fromLatin1(serial);
    made.location = QString::fromLatin1(location);
    return made;
}

class CliRunnerTest : public MainLoop {
protected:
    CliRunnerTest() {
        phone_.write(QStringLiteral("DCIM/one.txt"), "one");
        phone_.write(QStringLiteral("DCIM/sub/two.txt"), "second");
        phone_.write(QStringLiteral("big.bin"), QByteArray(3 * 1024 * 1024, 'b'));
    }

    [[nodiscard]] QString here(const QString& path) const {
        return folder_.path(path);
    }

    Result run(Command command, const QStringList& paths = {}, const QString& local = {},
               bool json = false, const std::stop_token& stop = {}) {
        CliRequest request;
        request.command = command;
        request.device = device_;
        request.paths = paths;
        request.localPath = local;
        request.json = json;
        return run(request, stop);
    }
    Result run(const CliRequest& request, const std::stop_token& stop = {}) {
        Capture out;
        return run(request, stop, out);
    }
    Result run(const CliRequest& request, const std::stop_token& stop, Capture& out) {
        Capture error;
        CliRunner runner(bus_, files_, defaults_, out.stream(), error.stream());
        CliRunner::ExitStatus status = CliRunner::failed;
        // As in the program: the main thread's event loop turns while the work is done elsewhere.
        QEventLoop loop;
        std::jthread work([&] {
            status = runner.run(request, stop);
            MainThread::post([&loop] { loop.quit(); });
        });
        loop.exec();
        work.join();
        std::fflush(out.stream());
        std::fflush(error.stream());
        return {status, out.text(), error.text()};
    }

    TemporaryFolder folder_;
    VirtualUsbBus bus_;
    PluggedPhone phone_{bus_, config("ABC123", "1-1")};
    FakeProcessRunner processes_;
    DeviceFileService files_{bus_, processes_};
    MemoryUserDefaults defaults_;
    QString device_ = QStringLiteral("ABC");
};

} // namespace

TEST_F(CliRunnerTest, devicesAreListedWithBatteryAndStorage) {
    const Result json = run(Command::devices, {}, {}, true);
    EXPECT_EQ(json.status, CliRunner::done);
    const QJsonObject device = json.json().array().at(0).toObject();
    EXPECT_EQ(device.value(QStringLiteral("udid")).toString(), QStringLiteral("ABC123"));
    EXPECT_EQ(device.value(QStringLiteral("deviceName")).toString(),
              QStringLiteral("Google Pixel 7"));
    EXPECT_EQ(device.value(QStringLiteral("batteryLevel")).toInt(), 80);
    EXPECT_EQ(device.value(QStringLiteral("volumes")).toArray().size(), 1);
    EXPECT_TRUE(run(Command::devices).out.contains(QStringLiteral("free of")));

    phone_.android.setLocked(true);
    EXPECT_TRUE(run(Command::devices).out.contains(QStringLiteral("unlock it")));
}

TEST_F(CliRunnerTest, watchPrintsWhatHappensUntilItIsInterrupted) {
    std::stop_source stop;
    Capture out;
    std::jthread user([&] {
        EXPECT_TRUE(out.eventuallyHolds("changed"));
        phone_.android.unplug();
        EXPECT_TRUE(out.eventuallyHolds("detached"));
        stop.request_stop();
    });
    CliRequest request;
    request.command = Command::watch;
    request.device = device_;
    request.json = true;
    const Result result = run(request, stop.get_token(), out);
    EXPECT_EQ(result.status, CliRunner::interrupted);
    QStringList events;
    for (const QString& line : result.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QJsonDocument document = QJsonDocument::fromJson(line.toUtf8());
        ASSERT_TRUE(document.isObject()) << line.toStdString();
        events.append(document.object().value(QStringLiteral("event")).toString());
    }
    EXPECT_EQ(events, (QStringList{QStringLiteral("attached"), QStringLiteral("changed"),
                                   QStringLiteral("detached")}));
}

TEST_F(CliRunnerTest, deviceIsChosenByPrefixOrName) {
    device_ = QStringLiteral("google pixel 7");
    EXPECT_EQ(run(Command::info).status, CliRunner::done);
    device_ = QStringLiteral("XYZ");
    const Result missing = run(Command::list, {QStringLiteral("/")});
    EXPECT_EQ(missing.status, CliRunner::failed);
    EXPECT_TRUE(missing.error.contains(QStringLiteral("\"XYZ\" is not attached")));

    const PluggedPhone second(bus_, config("ABC999", "1-2"));
    device_ = QStringLiteral("ABC");
    const Result ambiguous = run(Command::info);
    EXPECT_EQ(ambiguous.status, CliRunner::failed);
    EXPECT_TRUE(ambiguous.error.contains(QStringLiteral("fits 2 devices")));
    device_ = QStringLiteral("ABC9");
    EXPECT_EQ(run(Command::info).status, CliRunner::done);
}

TEST_F(CliRunnerTest, listingShowsFoldersFirstAndNoTerminalCommands) {
    phone_.write(QStringLiteral("a\x1b[31mred\nline.txt"), "x");
    const Result text = run(Command::list, {QStringLiteral("/")});
    EXPECT_EQ(text.status, CliRunner::done);
    EXPECT_TRUE(text.out.section(QLatin1Char('\n'), 0, 0).endsWith(QStringLiteral("DCIM/")));
    EXPECT_FALSE(text.out.contains(QChar(0x1b)));
    EXPECT_EQ(text.out.count(QLatin1Char('\n')), 3);
    const Result missing = run(Command::list, {QStringLiteral("/nowhere")});
    EXPECT_EQ(missing.status, CliRunner::failed);
    EXPECT_EQ(missing.error.count(QLatin1Char('\n')), 1);
    EXPECT_TRUE(missing.out.isEmpty());
}

TEST_F(CliRunnerTest, getCopiesIntoAFolderOrUnderANewName) {
    EXPECT_EQ(run(Command::get, {QStringLiteral("/DCIM/one.txt")}, here({})).status,
              CliRunner::done);
    EXPECT_EQ(folder_.read(QStringLiteral("one.txt")), "one");
    EXPECT_EQ(run(Command::get, {QStringLiteral("/DCIM")}, here(QStringLiteral("copy"))).status,
              CliRunner::done);
    EXPECT_EQ(folder_.read(QStringLiteral("copy/sub/two.txt")), "second");
}

TEST_F(CliRunnerTest, whatIsLeftOutOfAFolderIsNamedAndFails) {
    phone_.android.faults().update([](VirtualFaults& faults) {
        faults.nameOverrides[QStringLiteral("one.txt")] = QStringLiteral("..");
    });
    const Result result =
        run(Command::get, {QStringLiteral("/DCIM")}, here(QStringLiteral("copy")), true);
    EXPECT_EQ(result.status, CliRunner::failed);
    EXPECT_TRUE(result.error.contains(QStringLiteral("Not copied")));
    EXPECT_EQ(folder_.read(QStringLiteral("copy/sub/two.txt")), "second");
    EXPECT_EQ(result.json().object().value(QStringLiteral("skipped")).toArray().size(), 1);
}

TEST_F(CliRunnerTest, putMakeMoveAndRemoveChangeThePhone) {
    const QString local = folder_.write(QStringLiteral("new.txt"), "fresh");
    EXPECT_EQ(run(Command::makeFolder, {QStringLiteral("/Docs")}).status, CliRunner::done);
    EXPECT_EQ(run(Command::put, {QStringLiteral("/Docs")}, local).status, CliRunner::done);
    EXPECT_EQ(phone_.content(QStringLiteral("Docs/new.txt")), "fresh");
    EXPECT_EQ(run(Command::put, {QStringLiteral("/Nowhere")}, local).status, CliRunner::failed);

    EXPECT_EQ(run(Command::move, {QStringLiteral("/Docs/new.txt"), QStringLiteral("b.txt")}).status,
              CliRunner::done);
    EXPECT_EQ(run(Command::move, {QStringLiteral("/Docs/b.txt"), QStringLiteral("/DCIM")}).status,
              CliRunner::done);
    EXPECT_EQ(phone_.content(QStringLiteral("DCIM/b.txt")), "fresh");

    EXPECT_EQ(run(Command::remove, {QStringLiteral("/Docs"), QStringLiteral("/big.bin")}).status,
              CliRunner::done);
    EXPECT_EQ(phone_.names(), QStringList(QStringLiteral("DCIM")));
}

TEST_F(CliRunnerTest, interruptedCopyLeavesNoFile) {
    std::stop_source stop;
    stop.request_stop();
    const Result result = run(Command::get, {QStringLiteral("/big.bin")},
                              here(QStringLiteral("big.bin")), false, stop.get_token());
    EXPECT_EQ(result.status, CliRunner::interrupted);
    EXPECT_EQ(folder_.names(), QStringList());
}

TEST_F(CliRunnerTest, unpluggingAtAnyPointIsSaidInOneLineWithTheNextStep) {
    const QString target = here(QStringLiteral("big.bin"));
    unsigned phase = 1;
    for (;; ++phase) {
        SCOPED_TRACE(phase);
        phone_.android.faults().update([phase](VirtualFaults& faults) {
            faults.unplug = VirtualByteFault{UsbDirection::in, 5, phase};
        });
        const Result result = run(Command::get, {QStringLiteral("/big.bin")}, target);
        if (result.status == CliRunner::done)
            break;
        EXPECT_EQ(result.status, CliRunner::failed);
        EXPECT_EQ(result.error.count(QLatin1Char('\n')), 1) << result.error.toStdString();
        EXPECT_TRUE(result.error.contains(QStringLiteral("Plug the phone in again")))
            << result.error.toStdString();
        EXPECT_EQ(folder_.names(), QStringList());
        phone_.android.unplug();
        phone_.android.plugInto(bus_);
    }
    EXPECT_GT(phase, 5U);
    EXPECT_EQ(folder_.read(QStringLiteral("big.bin")).size(), 3 * 1024 * 1024);
}

TEST_F(CliRunnerTest, syncPreviewsCopiesAndDeletesOnlyOnRequest) {
    using Answer = CliRequest::Answer;
    CliRequest request;
    request.command = Command::sync;
    request.device = device_;
    request.paths = QStringList(QStringLiteral("/DCIM"));
    request.localPath = here(QStringLiteral("pictures"));
    request.json = true;
    const auto lengths = [](const Result& result, const char* key) {
        return result.json().object().value(QString::fromLatin1(key)).toArray().size();
    };

    request.isDryRun = true;
    EXPECT_EQ(lengths(run(request), "items"), 2);
    EXPECT_FALSE(QFileInfo::exists(request.localPath));

    request.isDryRun = false;
    Result result = run(request);
    EXPECT_EQ(result.status, CliRunner::done);
    EXPECT_EQ(lengths(result, "downloaded"), 2);
    EXPECT_EQ(folder_.read(QStringLiteral("pictures/sub/two.txt")), "second");

    // Nobody can be asked here, and half of the files is no matter to be careless about.
    QFile::remove(request.localPath + QStringLiteral("/sub/two.txt"));
    result = run(request);
    EXPECT_EQ(result.status, CliRunner::failed);
    EXPECT_EQ(lengths(result, "errors"), 1);
    EXPECT_EQ(phone_.content(QStringLiteral("DCIM/sub/two.txt")), "second");

    request.answer = Answer::yes;
    result = run(request);
    EXPECT_EQ(lengths(result, "deleted"), 1);
    EXPECT_EQ(phone_.content(QStringLiteral("DCIM/sub/two.txt")), QByteArray());

    QFile::remove(request.localPath + QStringLiteral("/one.txt"));
    EXPECT_EQ(run(request).status, CliRunner::failed); // the folder is empty now
    request.answer = Answer::keep;
    EXPECT_EQ(lengths(run(request), "downloaded"), 1);
    QFile::remove(request.localPath + QStringLiteral("/one.txt"));
    request.answer = Answer::yesAll;
    EXPECT_EQ(lengths(run(request), "deleted"), 1);

    QDir(request.localPath).removeRecursively();
    request.answer = Answer::keep;
    result = run(request);
    EXPECT_EQ(result.status, CliRunner::failed);
    EXPECT_TRUE(result.error.contains(QStringLiteral("is gone")));
    EXPECT_FALSE(QFileInfo::exists(request.localPath));
}
