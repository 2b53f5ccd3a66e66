#include "phones/VirtualMux.h"
#include "support/TemporaryFolder.h"

#include <QProcess>

#include <gmock/gmock.h>
#include <libimobiledevice/afc.h>
#include <libimobiledevice/house_arrest.h>
#include <libimobiledevice/lockdown.h>

#include <csignal>
#include <memory>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

template <auto free>
struct FreedBy {
    template <typename T>
    void operator()(T* handle) const {
        free(handle);
    }
};
template <typename T, auto free>
using Handle = std::unique_ptr<std::remove_pointer_t<T>, FreedBy<free>>;

/// What tools and a library that are not ours make of the virtual phone at its multiplexer.
class VirtualIPhoneTest : public testing::Test {
protected:
    VirtualIPhoneTest() {
        // Under TLS the library writes to connections that have ended.
        std::signal(SIGPIPE, SIG_IGN);
        mux_.useInThisProcess();
    }

    [[nodiscard]] VirtualIPhoneConfig config() const {
        const auto app = [this](const char* bundleID, bool shares) {
            VirtualIPhoneApp made;
            made.bundleID = QString::fromLatin1(bundleID);
            made.displayName = made.bundleID.section(u'.', -1);
            made.folder = folder_.path(made.bundleID);
            made.sharesFiles = shares;
            return made;
        };
        VirtualIPhoneConfig made;
        made.apps = {app("org.test.notes", true), app("org.test.closed", false)};
        return made;
    }
    void plugIn(VirtualIPhoneConfig config) {
        phone_ = std::make_unique<VirtualIPhone>(std::move(config));
        ASSERT_NE(phone_->plugInto(mux_), 0U);
    }
    /// A path below the notes' documents, on disk.
    [[nodiscard]] static QString documents(const char* name) {
        return u"org.test.notes/Documents/"_s + QString::fromUtf8(name);
    }
    std::string run(const char* tool, const char* arguments) {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"HOME"_s, folder_.path());
        process.setProcessEnvironment(environment);
        process.start(QString::fromLatin1(tool),
                      QString::fromLatin1(arguments).split(u' ', Qt::SkipEmptyParts));
        if (!process.waitForFinished(30'000)) {
            process.kill();
            process.waitForFinished(5'000);
            return "(no end)";
        }
        return (process.readAllStandardOutput() + process.readAllStandardError()).toStdString();
    }

    /// Opens an app's container; returns house arrest's error, or else leaves the connection in
    /// afc_.
    std::string open(const char* bundleID = "org.test.notes",
                     const char* command = "VendDocuments") {
        afc_.reset();
        houseArrest_.reset();
        idevice_t device = nullptr;
        idevice_new(&device, qPrintable(phone_->config().udid));
        device_.reset(device);
        house_arrest_client_t client = nullptr;
        if (house_arrest_client_start_service(device, &client, "test") != HOUSE_ARREST_E_SUCCESS)
            return "no service";
        houseArrest_.reset(client);
        plist_t answer = nullptr;
        if (house_arrest_send_command(client, command, bundleID) != HOUSE_ARREST_E_SUCCESS ||
            house_arrest_get_result(client, &answer) != HOUSE_ARREST_E_SUCCESS)
            return "no answer";
        const Handle<plist_t, plist_free> owned(answer);
        if (plist_t error = plist_dict_get_item(answer, "Error"))
            return plist_get_string_ptr(error, nullptr);
        afc_client_t afc = nullptr;
        afc_client_new_from_house_arrest_client(client, &afc);
        afc_.reset(afc);
        return {};
    }
    std::vector<std::string> list(const char* path) {
        char** names = nullptr;
        std::vector<std::string> found;
        if (afc_read_directory(afc_.get(), path, &names) != AFC_E_SUCCESS)
            return {"(failed)"};
        for (char** each = names; *each != nullptr; ++each)
            found.emplace_back(*each);
        afc_dictionary_free(names);
        return found;
    }
    afc_error_t openFile(const char* path, afc_file_mode_t mode = AFC_FOPEN_RDONLY) {
        return afc_file_open(afc_.get(), path, mode, &file_);
    }

    TemporaryFolder folder_;
    VirtualMux mux_{folder_.path(u"mux"_s)};
    std::unique_ptr<VirtualIPhone> phone_;
    Handle<idevice_t, idevice_free> device_;
    Handle<house_arrest_client_t, house_arrest_client_free> houseArrest_;
    Handle<afc_client_t, afc_client_free> afc_;
    std::uint64_t file_ = 0; ///< of the last openFile()
};

TEST_F(VirtualIPhoneTest, toolsListPhonesTheirValuesAndApps) {
    EXPECT_THAT(run("idevice_id", "-l"), Not(HasSubstr("0000")));
    for (const bool tls : {true, false}) {
        SCOPED_TRACE(tls);
        VirtualIPhoneConfig made = config();
        made.sessionTls = tls;
        made.serviceTls = tls;
        made.name = u"Zoë’s phone"_s;
        plugIn(made);
        EXPECT_EQ(run("idevice_id", "-l"), "00008101-000A1B2C3D4E001E\n");
        EXPECT_THAT(run("ideviceinfo", ""),
                    AllOf(HasSubstr("DeviceName: Zoë’s phone\n"),
                          HasSubstr("ProductType: iPhone13,2\n"),
                          HasSubstr("UniqueDeviceID: 00008101-000A1B2C3D4E001E\n")));
        EXPECT_THAT(run("ideviceinfo", "-q com.apple.disk_usage"),
                    HasSubstr("AmountDataAvailable: 64000000000\n"));
        EXPECT_THAT(run("ideviceinstaller", "-l"),
                    AllOf(HasSubstr("org.test.notes, \"42\", \"notes\"\n"),
                          HasSubstr("org.test.closed, \"42\", \"closed\"\n")));
        phone_.reset();
    }
}

TEST_F(VirtualIPhoneTest, pairingFollowsWhatTheOwnerOfThePhoneAnswers) {
    VirtualIPhoneConfig made = config();
    made.isPaired = false;
    made.trust = VirtualTrust::asking;
    plugIn(made);
    EXPECT_THAT(run("idevicepair", "pair"), HasSubstr("trust dialog"));
    phone_->setTrust(VirtualTrust::denied);
    EXPECT_THAT(run("idevicepair", "pair"), HasSubstr("denied"));
    phone_->setLocked(true);
    EXPECT_THAT(run("idevicepair", "pair"), HasSubstr("passcode"));
    phone_->setLocked(false);
    phone_->setTrust(VirtualTrust::trusted);
    EXPECT_THAT(run("idevicepair", "pair"), HasSubstr("SUCCESS"));
    EXPECT_THAT(run("idevicepair", "validate"), HasSubstr("SUCCESS"));
}

TEST_F(VirtualIPhoneTest, houseArrestOpensWhatAnAppShares) {
    plugIn(config());
    folder_.write(documents("a.txt"), "a");
    EXPECT_EQ(open("org.test.notes", "VendContainer"), "InstallationLookupFailed");
    EXPECT_EQ(open("org.test.closed"), "InstallationLookupFailed");
    EXPECT_EQ(open("org.test.none"), "ApplicationLookupFailed");
    ASSERT_EQ(open(), "");
    EXPECT_THAT(list("/Documents"), ElementsAre(".", "..", "a.txt"));
}

TEST_F(VirtualIPhoneTest, operationsAreRefusedAsPhonesDo) {
    plugIn(config());
    ASSERT_EQ(open(), "");
    folder_.write(documents("full/b"), "b");
    folder_.write(documents("a"), "a");
    EXPECT_EQ(openFile("/Documents/none"), AFC_E_OBJECT_NOT_FOUND);
    EXPECT_EQ(openFile("/Documents/full"), AFC_E_OBJECT_IS_DIR);
    EXPECT_EQ(afc_remove_path(afc_.get(), "/Documents/none"), AFC_E_OBJECT_NOT_FOUND);
    EXPECT_EQ(afc_remove_path(afc_.get(), "/Documents/full"), AFC_E_DIR_NOT_EMPTY);
    EXPECT_EQ(afc_make_directory(afc_.get(), "/Documents/a"), AFC_E_OBJECT_EXISTS);
    EXPECT_EQ(afc_rename_path(afc_.get(), "/Documents/none", "/Documents/c"),
              AFC_E_OBJECT_NOT_FOUND);
    EXPECT_THAT(list("/Documents"), ElementsAre(".", "..", "a", "full"));
}

TEST_F(VirtualIPhoneTest, noPathLeavesTheContainer) {
    plugIn(config());
    ASSERT_EQ(open(), "");
    const QString outside = folder_.write(u"outside/secret"_s, "secret");
    folder_.makeFolder(documents("."));
    QFile::link(folder_.path(u"outside"_s), folder_.path(documents("link")));
    QFile::link(outside, folder_.path(documents("file")));
    for (const char* path :
         {"/Documents/../../outside/secret", "/Documents/link/secret", "/Documents/file", "..",
          "/Documents/..", "/../org.test.closed/Documents", "/Library", "/", ""}) {
        EXPECT_NE(openFile(path), AFC_E_SUCCESS) << path;
        EXPECT_NE(openFile(path, AFC_FOPEN_WR), AFC_E_SUCCESS) << path;
        EXPECT_NE(afc_truncate(afc_.get(), path, 0), AFC_E_SUCCESS) << path;
        EXPECT_THAT(list(path), ElementsAre("(failed)")) << path;
    }
    EXPECT_EQ(afc_remove_path_and_contents(afc_.get(), "/Documents/link"), AFC_E_SUCCESS);
    EXPECT_NE(afc_remove_path_and_contents(afc_.get(), "/Documents/.."), AFC_E_SUCCESS);
    EXPECT_NE(afc_rename_path(afc_.get(), "/Documents/file", "/../out"), AFC_E_SUCCESS);
    EXPECT_EQ(folder_.read(u"outside/secret"_s), "secret");
}

} // namespace
} // namespace tessary
