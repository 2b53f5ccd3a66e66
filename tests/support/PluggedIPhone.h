#pragma once

#include "ios/PairingQuestions.h"
#include "simulator/faults/FaultyIPhone.h"
#include "support/TemporaryFolder.h"

#include <memory>

namespace tessary {

/// A multiplexer that this process finds, with one virtual iPhone plugged in. Its app "notes"
/// shares the folder that path() and the rest are relative to. One at a time in a process.
class PluggedIPhone {
public:
    explicit PluggedIPhone(const VirtualIPhoneConfig& wishes = {})
        : mux(socketFolder().path(QStringLiteral("mux"))), phone(config(wishes)) {
        mux.useInThisProcess();
        PairingQuestions::shared().forget(udid()); // what an earlier test's phone was asked
        phone.plugInto(mux);
    }

    [[nodiscard]] QString udid() const {
        return phone.config().udid;
    }
    /// What lies in the app's documents on the phone's disk.
    [[nodiscard]] QString inDocuments(const QString& relative) const {
        return QStringLiteral("notes/Documents/") + relative;
    }
    void write(const QString& relative, const QByteArray& content) const {
        disk.write(inDocuments(relative), content);
    }
    [[nodiscard]] QByteArray read(const QString& relative) const {
        return disk.read(inDocuments(relative));
    }
    [[nodiscard]] bool has(const QString& relative) const {
        return disk.has(inDocuments(relative));
    }
    template <typename Change>
    void faults(Change change) {
        phone.faults().update(change);
    }
    /// Answers a request with this status, once or from now on.
    void refuse(const char* request, std::uint64_t status, bool always = false) {
        faults([&](VirtualIPhoneFaults& faults) {
            faults.statuses[QString::fromLatin1(request)] = {status, always};
        });
    }
    [[nodiscard]] std::size_t count(const char* request) {
        return phone.requestCount(QString::fromLatin1(request));
    }

    static inline const QString bundleId = QStringLiteral("com.example.notes");

    TemporaryFolder disk;
    LoggingMux mux;
    FaultyIPhone phone;

private:
    /// The same in every test: the environment does not change while threads read it.
    static TemporaryFolder& socketFolder() {
        static TemporaryFolder folder;
        return folder;
    }
    VirtualIPhoneConfig config(VirtualIPhoneConfig wishes) const {
        VirtualIPhoneApp notes;
        notes.bundleID = bundleId;
        notes.displayName = QStringLiteral("Notes");
        notes.name = notes.displayName;
        notes.folder = disk.path(QStringLiteral("notes"));
        wishes.apps.insert(wishes.apps.begin(), notes);
        return wishes;
    }
};

} // namespace tessary
