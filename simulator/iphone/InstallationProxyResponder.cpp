#include "simulator/iphone/InstallationProxyResponder.h"

#include <QDir>

#include <algorithm>

namespace tessary {

using namespace Qt::StringLiterals;

namespace {

QVariantMap attributesOf(const VirtualIPhoneApp& app) {
    const QString executable = app.bundleID.section(u'.', -1);
    QVariantMap attributes{
        {u"ApplicationType"_s, app.isSystem ? u"System"_s : u"User"_s},
        {u"CFBundleIdentifier"_s, app.bundleID},
        {u"CFBundleExecutable"_s, executable},
        {u"CFBundleVersion"_s, u"42"_s},
        {u"CFBundleShortVersionString"_s, u"1.4"_s},
        {u"Container"_s, u"/private/var/mobile/Containers/Data/Application/"_s + executable},
        {u"Path"_s, u"/private/var/containers/Bundle/Application/"_s + executable + u".app"_s},
        {u"SignerIdentity"_s, app.isDebuggable ? u"Apple Development: Virtual"_s
                                               : u"Apple iPhone OS Application Signing"_s},
    };
    if (!app.displayName.isNull())
        attributes.insert(u"CFBundleDisplayName"_s, app.displayName);
    if (!app.name.isNull())
        attributes.insert(u"CFBundleName"_s, app.name);
    if (app.sharesFiles)
        attributes.insert(u"UIFileSharingEnabled"_s, true);
    return attributes;
}

} // namespace

InstallationProxyResponder::InstallationProxyResponder(VirtualIPhone& phone, PhoneStream& stream)
    : phone_(phone), stream_(stream) {}

void InstallationProxyResponder::createContainer(const VirtualIPhoneApp& app) {
    for (const QString& folder : {u"Documents"_s, u"Library/Preferences"_s, u"tmp"_s})
        QDir().mkpath(app.folder + u'/' + folder);
}

void InstallationProxyResponder::run() {
    for (;;) {
        const auto request = stream_.readMessage();
        if (!request)
            return;
        const QString command = (*request)[u"Command"_s].toString();
        const QString logged = u"installationProxy."_s + command;
        const QVariantMap options = (*request)[u"ClientOptions"_s].toMap();
        if (!phone_.begin(stream_, logged, options[u"ApplicationType"_s].toString()))
            return;
        bool goesOn = false;
        if (command == u"Browse"_s)
            goesOn = browse(logged, options);
        else if (command == u"Lookup"_s)
            goesOn = lookUp(logged, options);
        else
            goesOn = answer(logged, {{u"Error"_s, u"UnknownCommand"_s}});
        if (!goesOn)
            return;
    }
}

bool InstallationProxyResponder::answer(const QString& logged, const QVariantMap& message) {
    return phone_.answering(stream_, logged) && stream_.writeMessage(message, PlistForm::binary);
}

QVariantList InstallationProxyResponder::apps(const QVariantMap& options) const {
    const QString type = options[u"ApplicationType"_s].toString();
    const QStringList wanted = options[u"ReturnAttributes"_s].toStringList();
    const QStringList identifiers = options[u"BundleIDs"_s].toStringList();
    QVariantList found;
    for (const VirtualIPhoneApp& app : phone_.config().apps) {
        const bool isAsked =
            type.isEmpty() || type == u"Any"_s || type == (app.isSystem ? u"System"_s : u"User"_s);
        if (!isAsked || (!identifiers.isEmpty() && !identifiers.contains(app.bundleID)))
            continue;
        QVariantMap attributes = attributesOf(app);
        if (!wanted.isEmpty())
            attributes.removeIf([&](auto entry) { return !wanted.contains(entry.key()); });
        found.append(attributes);
    }
    return found;
}

bool InstallationProxyResponder::browse(const QString& logged, const QVariantMap& options) {
    const QVariantList all = apps(options);
    const qsizetype step = std::max(1, phone_.config().appsPerAnswer);
    for (qsizetype at = 0; at < all.size(); at += step) {
        const QVariantList piece = all.mid(at, step);
        if (!answer(logged, {{u"CurrentIndex"_s, static_cast<quint64>(at)},
                             {u"CurrentAmount"_s, static_cast<quint64>(piece.size())},
                             {u"CurrentList"_s, piece},
                             {u"Total"_s, static_cast<quint64>(all.size())},
                             {u"Status"_s, u"BrowsingApplications"_s}}))
            return false;
    }
    return answer(logged, {{u"Status"_s, u"Complete"_s}});
}

bool InstallationProxyResponder::lookUp(const QString& logged, const QVariantMap& options) {
    QVariantMap found;
    QVariantMap all = options;
    if (const auto wanted = all.find(u"ReturnAttributes"_s); wanted != all.end())
        wanted.value() = wanted.value().toStringList() << u"CFBundleIdentifier"_s;
    for (const QVariant& app : apps(all))
        found.insert(app.toMap()[u"CFBundleIdentifier"_s].toString(), app);
    return answer(logged, {{u"LookupResult"_s, found}, {u"Status"_s, u"Complete"_s}});
}

} // namespace tessary
