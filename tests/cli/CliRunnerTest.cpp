#include "cli/commands/CliRunner.h"
#include "platform/settings/MemorySettingsStore.h"
#include "simulator/adbd/VirtualADBD.h"
#include "support/FakeProcessRunner.h"
#include "support/MainLoop.h"
#include "support/PluggedPhone.h"
#include "sync/run/SyncLock.h"

#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <thread>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

using Command = CliRequest::Command;

/// A stream that a run writes to, and that another thread may read meanwhile.
struct Capture {
    const TemporaryFolder folder;
    std::FILE* const stream = std::fopen(qPrintable(folder.path(u"text"_s)), "w");

    ~Capture() {
        std::fclose(stream);
    }
    /// What has been written and flushed.
    [[nodiscard]] QString text() const {
        return QString::fromUtf8(folder.read(u"text"_s));
    }
};

struct Result {
    CliRunner::ExitStatus status;
    QString out;
    QString error;

    [[nodiscard]] QJsonDocument json() const {
        return QJsonDocument::fromJson(out.toUtf8());
    }
};

class CliRunnerTest : public MainLoop {
protected:
    CliRunnerTest() {
        phone_.write(u"DCIM/one.txt"_s, "one");
        phone_.write(u"DCIM/sub/two.txt"_s, "second");
        phone_.write(u"big.bin"_s, QByteArray(3 * 1024 * 1024, 'b'));
    }

    Result run(Command command, const QStringList& paths = {}, const QString& local = {},
               bool json = false) {
        CliRequest request;
        request.command = command;
        request.device = device_;
        request.paths = paths;
        request.localPath = local;
        request.json = json;
        return run(request);
    }
    Result run(const CliRequest& request, const std::stop_token& stop = {},
               Capture* shared = nullptr, Capture* sharedError = nullptr) {
        Capture own;
        Capture& out = shared != nullptr ? *shared : own;
        Capture ownError;
        Capture& error = sharedError != nullptr ? *sharedError : ownError;
        std::setvbuf(error.stream, nullptr, _IONBF, 0); // as stderr
        CliRunner runner(
            {bus_, *used_, defaults_, out.stream, error.stream, folder_.path(u"ledgers"_s)});
        CliRunner::ExitStatus status = CliRunner::failed;
        // As in the program: the main thread's event loop turns while the work is done elsewhere.
        QEventLoop loop;
        std::jthread work([&] {
            status = runner.run(request, stop);
            MainThread::post([&loop] { loop.quit(); });
        });
        loop.exec();
        work.join();
        std::fflush(out.stream);
        std::fflush(error.stream);
        return {status, out.text(), error.text()};
    }

    TemporaryFolder folder_;
    VirtualUSBBus bus_;
    PluggedPhone phone_{bus_, phoneConfig("ABC123")};
    FakeProcessRunner processes_;
    DeviceServices services_{{bus_, processes_}};
    DeviceServices* used_ = &services_;
    MemorySettingsStore defaults_;
    QString device_ = u"ABC"_s;
};

/// A phone on the network, and a computer without adb.
class CliNetworkPhoneTest : public CliRunnerTest {
protected:
    CliNetworkPhoneTest() {
        adbd_.start();
        used_ = &withoutADB_;
    }
    [[nodiscard]] CliRequest request(Command command, const QString& path,
                                     const QString& local = {}) const {
        CliRequest request;
        request.command = command;
        request.protocol = ProtocolMode::adbTurbo;
        request.device = adbd_.address();
        request.paths = {path};
        request.localPath = local;
        return request;
    }

    VirtualADBD adbd_{{.folder = folder_.makeFolder(u"phone"_s)}};
    DeviceServices withoutADB_{
        {bus_, processes_, ADBServerAddress{.port = 1, .socketPath = {}}, QStringList()}};
};

} // namespace

TEST_F(CliRunnerTest, devicesAreListedWithBatteryAndStorage) {
    const Result json = run(Command::devices, {}, {}, true);
    EXPECT_EQ(json.status, CliRunner::done);
    const QJsonObject device = json.json().array().at(0).toObject();
    EXPECT_EQ(device.value(u"udid"_s).toString(), u"ABC123"_s);
    EXPECT_EQ(device.value(u"deviceName"_s).toString(), u"Google Pixel 7"_s);
    EXPECT_EQ(device.value(u"batteryLevel"_s).toInt(), 80);
    EXPECT_EQ(device.value(u"volumes"_s).toArray().size(), 1);
    EXPECT_TRUE(run(Command::devices).out.contains(u"free of"_s));

    phone_.android.setLocked(true);
    EXPECT_TRUE(run(Command::devices).out.contains(u"unlock it"_s));
}

TEST_F(CliNetworkPhoneTest, phoneOnACableWithoutADBIsToldSo) {
    CliRequest cable = request(Command::list, u"/"_s);
    cable.device = u"ABC"_s;
    const Result result = run(cable);
    EXPECT_EQ(result.status, CliRunner::failed);
    EXPECT_TRUE(result.error.contains(u"adb is not installed"_s)) << result.error.toStdString();
}

TEST_F(CliRunnerTest, watchPrintsWhatHappensUntilItIsInterrupted) {
    std::stop_source stop;
    Capture out;
    const std::jthread user([&] {
        const auto await = [&](const QString& part) {
            for (int n = 0; n < 4000 && !out.text().contains(part); ++n)
                std::this_thread::sleep_for(5ms);
        };
        await(u"changed"_s);
        phone_.android.unplug();
        await(u"detached"_s);
        stop.request_stop();
    });
    CliRequest request;
    request.command = Command::watch;
    request.device = device_;
    request.json = true;
    const Result result = run(request, stop.get_token(), &out);
    EXPECT_EQ(result.status, CliRunner::interrupted);
    QStringList events;
    for (const QString& line : result.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QJsonDocument document = QJsonDocument::fromJson(line.toUtf8());
        ASSERT_TRUE(document.isObject()) << line.toStdString();
        events.append(document.object().value(u"event"_s).toString());
    }
    EXPECT_EQ(events, (QStringList{u"attached"_s, u"changed"_s, u"detached"_s}));
}

TEST_F(CliRunnerTest, importBringsWhatIsNewOnce) {
    phone_.write(u"DCIM/Camera/IMG_1.jpg"_s, "picture");
    phone_.write(u"DCIM/Camera/IMG_1.mp4"_s, "moving");
    phone_.write(u"DCIM/Camera/IMG_2.jpg"_s, "another");
    CliRequest request;
    request.command = Command::importPhotos;
    request.device = device_;
    request.localPath = folder_.path(u"new/pictures"_s);
    request.isDryRun = true;
    EXPECT_TRUE(run(request).out.contains(u"2 of 2 photos and videos are new (3 files"_s));
    EXPECT_FALSE(folder_.has(u"new"_s));

    request.isDryRun = false;
    request.byDate = true;
    EXPECT_EQ(run(request).status, CliRunner::done);
    const QString day = QDate::currentDate().toString(u"yyyy/yyyy-MM-dd"_s);
    EXPECT_EQ(folder_.names(u"new/pictures/"_s + day),
              (QStringList{u"IMG_1.jpg"_s, u"IMG_1.mp4"_s, u"IMG_2.jpg"_s}));

    phone_.write(u"DCIM/Camera/IMG_3.jpg"_s, "the third");
    request.json = true;
    const QJsonObject done = run(request).json().object();
    EXPECT_EQ(done[u"photos"_s].toInt(), 3);
    EXPECT_EQ(done[u"fetchedBefore"_s].toInt(), 2);
    EXPECT_EQ(done[u"files"_s].toArray().at(0).toObject()[u"copy"_s].toString(),
              day + u"/IMG_3.jpg"_s);
    EXPECT_EQ(done[u"outcome"_s].toObject()[u"completedFiles"_s].toInt(), 1);

    // What is not here any more stays on the phone, with all that belongs to it.
    ASSERT_TRUE(QFile::remove(folder_.path(u"new/pictures/"_s + day + u"/IMG_1.mp4"_s)));
    phone_.write(u"DCIM/Camera/IMG_4.jpg"_s, "the fourth");
    request.deletesFromPhone = true;
    const Result deleting = run(request);
    EXPECT_EQ(deleting.status, CliRunner::failed);
    EXPECT_EQ(deleting.error.count(u"Not deleted: "_s), 1) << deleting.error.toStdString();
    EXPECT_EQ(deleting.json().object()[u"deleted"_s].toObject()[u"photos"_s].toInt(), 3);
    EXPECT_EQ(phone_.disk.names(u"0/DCIM/Camera"_s), (QStringList{u"IMG_1.jpg"_s, u"IMG_1.mp4"_s}));
}

TEST_F(CliRunnerTest, deviceIsChosenByPrefixOrName) {
    const auto complaintAbout = [&](const QString& device) {
        device_ = device;
        const Result result = run(Command::info);
        EXPECT_EQ(result.status == CliRunner::done, result.error.isEmpty());
        return result.error;
    };
    EXPECT_EQ(complaintAbout(u"google pixel 7"_s), QString());
    EXPECT_TRUE(complaintAbout(u"XYZ"_s).contains(u"\"XYZ\" is not attached"_s));
    const PluggedPhone second(bus_, phoneConfig("ABC999", "1-2"));
    EXPECT_TRUE(complaintAbout(u"ABC"_s).contains(u"fits 2 devices"_s));
    EXPECT_EQ(complaintAbout(u"ABC9"_s), QString());
}

TEST_F(CliRunnerTest, listingShowsFoldersFirstAndNoTerminalCommands) {
    phone_.write(u"a\x1b[31mred\nline.txt"_s, "x");
    const Result text = run(Command::list, {u"/"_s});
    EXPECT_EQ(text.status, CliRunner::done);
    EXPECT_TRUE(text.out.section(QLatin1Char('\n'), 0, 0).endsWith(u"DCIM/"_s));
    EXPECT_FALSE(text.out.contains(QChar(0x1b)));
    EXPECT_EQ(text.out.count(QLatin1Char('\n')), 3);
    const Result facts = run(Command::info, {u"/a\x1b[31mred\nline.txt"_s});
    EXPECT_EQ(facts.status, CliRunner::done);
    EXPECT_FALSE(facts.out.contains(QChar(0x1b)));
    const Result missing = run(Command::list, {u"/nowhere"_s});
    EXPECT_EQ(missing.status, CliRunner::failed);
    EXPECT_EQ(missing.error.count(QLatin1Char('\n')), 1);
    EXPECT_TRUE(missing.out.isEmpty());
}

TEST_F(CliRunnerTest, aPhoneIsMountedUntilItGoes) {
    if (!QFile::exists(u"/dev/fuse"_s))
        GTEST_SKIP() << "no FUSE here";
    CliRequest request;
    request.command = Command::mount;
    request.device = device_;
    request.localPath = folder_.path(u"one.txt"_s);
    EXPECT_TRUE(run(request).error.contains(u"There is no folder"_s));
    request.localPath = folder_.makeFolder(u"mnt"_s);
    const QString copy = request.localPath + u"/DCIM/one.txt"_s;
    QByteArray content;
    const std::jthread user([&] {
        for (int n = 0; n < 4000 && content.isEmpty(); ++n) {
            std::this_thread::sleep_for(5ms);
            QFile file(copy);
            if (file.open(QIODevice::ReadOnly))
                content = file.readAll();
        }
        phone_.android.unplug();
    });
    const Result result = run(request);
    EXPECT_EQ(content, "one");
    EXPECT_EQ(result.status, CliRunner::failed);
    EXPECT_TRUE(result.error.contains(u"was unplugged"_s)) << result.error.toStdString();
    EXPECT_TRUE(QDir(request.localPath).isEmpty());
}

TEST_F(CliRunnerTest, whatIsLeftOutOfAFolderIsNamedAndFails) {
    phone_.fault([](VirtualFaults& faults) { faults.nameOverrides[u"one.txt"_s] = u".."_s; });
    const Result result = run(Command::get, {u"/DCIM"_s}, folder_.path(u"copy"_s), true);
    EXPECT_EQ(result.status, CliRunner::failed);
    EXPECT_TRUE(result.error.contains(u"Not copied"_s));
    EXPECT_EQ(folder_.read(u"copy/sub/two.txt"_s), "second");
    EXPECT_EQ(result.json().object().value(u"skipped"_s).toArray().size(), 1);
}

TEST_F(CliRunnerTest, unpluggingAtAnyPointIsSaidInOneLineWithTheNextStep) {
    const QString target = folder_.path(u"big.bin"_s);
    unsigned phase = 1;
    for (;; ++phase) {
        SCOPED_TRACE(phase);
        phone_.unplugAfter(USBDirection::in, 5, phase);
        const Result result = run(Command::get, {u"/big.bin"_s}, target);
        if (result.status == CliRunner::done)
            break;
        EXPECT_EQ(result.status, CliRunner::failed);
        EXPECT_EQ(result.error.count(QLatin1Char('\n')), 1) << result.error.toStdString();
        EXPECT_TRUE(result.error.contains(u"Plug the phone in again"_s))
            << result.error.toStdString();
        EXPECT_EQ(folder_.names(), QStringList());
        phone_.android.unplug();
        phone_.android.plugInto(bus_);
    }
    EXPECT_GT(phase, 5U);
    EXPECT_EQ(folder_.read(u"big.bin"_s).size(), 3 * 1024 * 1024);
}

TEST_F(CliRunnerTest, syncPreviewsCopiesAndDeletesOnlyOnRequest) {
    using Answer = CliRequest::Answer;
    CliRequest request;
    request.command = Command::sync;
    request.device = device_;
    request.paths = QStringList(u"/DCIM"_s);
    request.localPath = folder_.path(u"pictures"_s);
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
    EXPECT_EQ(folder_.read(u"pictures/sub/two.txt"_s), "second");

    // A sync of another program comes first, and that is said at once.
    Capture error;
    std::optional<SyncLock> before(std::in_place, SyncLock::defaultFile(), nullptr,
                                   std::stop_token());
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (error.text().contains(u"Another sync is running"_s))
            before.reset();
    });
    look.start(std::chrono::milliseconds(10));
    EXPECT_EQ(run(request, {}, nullptr, &error).status, CliRunner::done);
    look.stop();

    // What is left out and could come is no success.
    CliRequest other = request;
    other.localPath = folder_.path(u"other"_s);
    folder_.makeFolder(u"other/one.txt"_s);
    result = run(other);
    EXPECT_EQ(result.status, CliRunner::failed);
    EXPECT_TRUE(result.error.contains(u"Not synced: one.txt"_s)) << result.error.toStdString();
    EXPECT_EQ(result.json().object().value(u"outcome"_s), u"incomplete"_s);
    EXPECT_EQ(folder_.read(u"other/sub/two.txt"_s), "second");

    // Nobody can be asked here, and half of the files is no matter to be careless about.
    QFile::remove(request.localPath + u"/sub/two.txt"_s);
    result = run(request);
    EXPECT_EQ(result.status, CliRunner::failed);
    EXPECT_EQ(lengths(result, "errors"), 1);
    EXPECT_EQ(phone_.content(u"DCIM/sub/two.txt"_s), "second");

    request.answer = Answer::yes;
    result = run(request);
    EXPECT_EQ(lengths(result, "deleted"), 1);
    EXPECT_EQ(phone_.content(u"DCIM/sub/two.txt"_s), QByteArray());

    QFile::remove(request.localPath + u"/one.txt"_s);
    EXPECT_EQ(run(request).status, CliRunner::failed); // the folder is empty now
    request.answer = Answer::keep;
    EXPECT_EQ(lengths(run(request), "downloaded"), 1);
    QFile::remove(request.localPath + u"/one.txt"_s);
    request.answer = Answer::yesAll;
    EXPECT_EQ(lengths(run(request), "deleted"), 1);

    QDir(request.localPath).removeRecursively();
    request.answer = Answer::keep;
    result = run(request);
    EXPECT_EQ(result.status, CliRunner::failed);
    EXPECT_TRUE(result.error.contains(u"is gone"_s));
    EXPECT_FALSE(QFileInfo::exists(request.localPath));
}
