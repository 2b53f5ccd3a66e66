#pragma once

#include "phones/VirtualMux.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libimobiledevice/afc.h>
#include <libimobiledevice/house_arrest.h>
#include <libimobiledevice/lockdown.h>

#include <csignal>
#include <memory>
#include <type_traits>

namespace tessary {

template <auto free>
struct FreedBy {
    template <typename T>
    void operator()(T* handle) const {
        free(handle);
    }
};
template <typename T, auto free>
using Handle = std::unique_ptr<std::remove_pointer_t<T>, FreedBy<free>>;
using Device = Handle<idevice_t, idevice_free>;
using Lockdown = Handle<lockdownd_client_t, lockdownd_client_free>;
using HouseArrest = Handle<house_arrest_client_t, house_arrest_client_free>;
using AFC = Handle<afc_client_t, afc_client_free>;

/// A virtual phone at a multiplexer, and the installed library's calls to reach it.
class IPhoneFixture : public testing::Test {
protected:
    IPhoneFixture() {
        // Under TLS the library writes to connections that have ended.
        std::signal(SIGPIPE, SIG_IGN);
        mux_ = std::make_unique<VirtualMux>(folder_.path(QStringLiteral("mux")));
        mux_->useInThisProcess();
    }
    ~IPhoneFixture() override {
        phone_.reset();
        mux_.reset();
    }

    [[nodiscard]] VirtualIPhoneConfig config() const {
        const auto app = [this](const char* bundleID, const char* name, bool shares) {
            VirtualIPhoneApp made;
            made.bundleID = QString::fromLatin1(bundleID);
            made.displayName = QString::fromLatin1(name);
            made.folder = folder_.path(made.bundleID);
            made.sharesFiles = shares;
            return made;
        };
        VirtualIPhoneConfig made;
        made.apps = {app("org.test.notes", "Notes", true), app("org.test.paint", "Paint", true),
                     app("org.test.closed", "Closed", false)};
        return made;
    }
    VirtualIPhone& plugIn(VirtualIPhoneConfig config) {
        phone_ = std::make_unique<VirtualIPhone>(std::move(config));
        EXPECT_NE(phone_->plugInto(*mux_), 0U);
        return *phone_;
    }
    VirtualIPhone& plugIn() {
        return plugIn(config());
    }
    void fault(const std::function<void(VirtualIPhoneFaults&)>& change) {
        phone_->faults().update(change);
    }
    /// A path below the notes' documents, on disk.
    [[nodiscard]] static QString documents(const char* name) {
        return QStringLiteral("org.test.notes/Documents/") + QString::fromUtf8(name);
    }

    [[nodiscard]] Device device() const {
        idevice_t made = nullptr;
        idevice_new_with_options(
            &made, qPrintable(phone_->config().udid),
            static_cast<idevice_options>(IDEVICE_LOOKUP_USBMUX | IDEVICE_LOOKUP_NETWORK));
        return Device(made);
    }
    [[nodiscard]] static Lockdown handshake(const Device& device,
                                            lockdownd_error_t* status = nullptr) {
        lockdownd_client_t made = nullptr;
        const auto result = lockdownd_client_new_with_handshake(device.get(), &made, "test");
        if (status != nullptr)
            *status = result;
        return Lockdown(made);
    }
    /// Opens an app's container; what is not opened is null.
    struct Container {
        Device device;
        HouseArrest houseArrest;
        AFC afc;
        std::string error; ///< house arrest's
    };
    [[nodiscard]] Container open(const char* bundleID = "org.test.notes",
                                 const char* command = "VendDocuments") const {
        Container opened;
        opened.device = device();
        const Lockdown lockdown = handshake(opened.device);
        lockdownd_service_descriptor_t service = nullptr;
        if (!lockdown || lockdownd_start_service(lockdown.get(), HOUSE_ARREST_SERVICE_NAME,
                                                 &service) != LOCKDOWN_E_SUCCESS)
            return opened;
        house_arrest_client_t client = nullptr;
        house_arrest_client_new(opened.device.get(), service, &client);
        lockdownd_service_descriptor_free(service);
        opened.houseArrest.reset(client);
        plist_t answer = nullptr;
        if (client == nullptr ||
            house_arrest_send_command(client, command, bundleID) != HOUSE_ARREST_E_SUCCESS ||
            house_arrest_get_result(client, &answer) != HOUSE_ARREST_E_SUCCESS)
            return opened;
        if (plist_t error = plist_dict_get_item(answer, "Error"))
            opened.error = plist_get_string_ptr(error, nullptr);
        plist_free(answer);
        afc_client_t afc = nullptr;
        if (opened.error.empty())
            afc_client_new_from_house_arrest_client(client, &afc);
        opened.afc.reset(afc);
        return opened;
    }
    [[nodiscard]] static std::vector<std::string> list(const Container& container,
                                                       const char* path) {
        char** names = nullptr;
        std::vector<std::string> found;
        if (afc_read_directory(container.afc.get(), path, &names) != AFC_E_SUCCESS)
            return {"(failed)"};
        for (char** each = names; *each != nullptr; ++each)
            found.emplace_back(*each);
        afc_dictionary_free(names);
        return found;
    }

    TemporaryFolder folder_;
    std::unique_ptr<VirtualMux> mux_;
    std::unique_ptr<VirtualIPhone> phone_;
};

} // namespace tessary
