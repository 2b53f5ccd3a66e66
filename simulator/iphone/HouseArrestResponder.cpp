#include "simulator/iphone/HouseArrestResponder.h"

#include "simulator/iphone/AFCResponder.h"

#include <algorithm>

namespace tessary {

using namespace Qt::StringLiterals;

HouseArrestResponder::HouseArrestResponder(VirtualIPhone& phone, PhoneStream& stream)
    : phone_(phone), stream_(stream) {}

void HouseArrestResponder::run() {
    const auto request = stream_.readMessage();
    if (!request)
        return;
    const QString command = (*request)[u"Command"_s].toString();
    const QString bundleID = (*request)[u"Identifier"_s].toString();
    const QString logged = u"houseArrest."_s + command;
    if (!phone_.begin(stream_, logged, bundleID))
        return;

    const auto& apps = phone_.config().apps;
    const auto app = std::find_if(apps.begin(), apps.end(),
                                  [&](const auto& each) { return each.bundleID == bundleID; });
    QString error;
    const bool documents = command == u"VendDocuments"_s;
    if (!documents && command != u"VendContainer"_s)
        error = u"UnknownCommand"_s;
    else if (app == apps.end())
        error = u"ApplicationLookupFailed"_s;
    else if (documents ? !app->sharesFiles : !app->isDebuggable)
        error = u"InstallationLookupFailed"_s;
    const QVariantMap answer = error.isEmpty() ? QVariantMap{{u"Status"_s, u"Complete"_s}}
                                               : QVariantMap{{u"Error"_s, error}};
    if (!phone_.answering(stream_, logged) || !stream_.writeMessage(answer) || !error.isEmpty())
        return;
    const bool asRoot = documents && phone_.config().documentsAreRoot;
    const QString folder = asRoot ? app->folder + u"/Documents"_s : app->folder;
    AFCResponder(phone_, stream_, PhoneContainer(phone_, folder, {documents && !asRoot, {}})).run();
}

} // namespace tessary
