#include "simulator/iphone/LockdownResponder.h"

#include "simulator/iphone/AFCResponder.h"
#include "simulator/iphone/HouseArrestResponder.h"
#include "simulator/iphone/InstallationProxyResponder.h"
#include "simulator/iphone/LockdownValues.h"
#include "simulator/iphone/NotificationProxyResponder.h"
#include "simulator/wire/PhoneIdentity.h"

#include <QUuid>

#include <algorithm>
#include <array>
#include <utility>

namespace tessary {

using namespace Qt::StringLiterals;

namespace {

QVariantMap error(const QString& code) {
    return {{u"Error"_s, code}};
}

/// The host that a pairing request is about.
QVariantMap recordIn(const QVariantMap& request) {
    return request[u"PairRecord"_s].toMap();
}

} // namespace

LockdownResponder::LockdownResponder(VirtualIPhone& phone, PhoneStream& stream)
    : phone_(phone), stream_(stream) {}

void LockdownResponder::run() {
    while (!ends_) {
        const auto request = stream_.readMessage();
        if (!request)
            return;
        const QString name = (*request)[u"Request"_s].toString();
        const QString logged = u"lockdown."_s + name;
        QString detail;
        for (const QString& key : {u"Service"_s, u"Domain"_s, u"Key"_s, u"HostID"_s}) {
            if (const QString part = (*request)[key].toString(); !part.isEmpty())
                detail += detail.isEmpty() ? part : u" "_s + part;
        }
        if (!phone_.begin(stream_, logged, detail))
            return;
        QVariantMap answer = handle(name, *request);
        if (answer.isEmpty() && ends_)
            return;
        answer.insert(u"Request"_s, name);
        if (!phone_.answering(stream_, logged) || !stream_.writeMessage(answer) || !switchTls())
            return;
    }
}

bool LockdownResponder::switchTls() {
    const bool wanted = !sessionID_.isEmpty() && phone_.config().sessionTls;
    if (wanted == hasTls_)
        return true;
    hasTls_ = wanted;
    if (!wanted) {
        stream_.endTls();
        return true;
    }
    const TlsContext context = PhoneIdentity::tlsContext(host_);
    return stream_.startTls(context.get());
}

QVariantMap LockdownResponder::handle(const QString& name, const QVariantMap& request) {
    using Handler = QVariantMap (LockdownResponder::*)(const QVariantMap&);
    using Named = std::pair<QLatin1StringView, Handler>;
    // Needs no end of its own: connections may still be served when the program ends.
    static constexpr std::array handlers{
        Named{"QueryType"_L1, &LockdownResponder::queryType},
        Named{"GetValue"_L1, &LockdownResponder::getValue},
        Named{"SetValue"_L1, &LockdownResponder::setValue},
        Named{"Pair"_L1, &LockdownResponder::pair},
        Named{"ValidatePair"_L1, &LockdownResponder::validatePair},
        Named{"Unpair"_L1, &LockdownResponder::unpair},
        Named{"StartSession"_L1, &LockdownResponder::startSession},
        Named{"StopSession"_L1, &LockdownResponder::stopSession},
        Named{"StartService"_L1, &LockdownResponder::startService},
        Named{"Goodbye"_L1, &LockdownResponder::goodbye},
    };
    const auto found = std::ranges::find_if(
        handlers, [&name](const Named& handler) { return handler.first == name; });
    return found != handlers.end() ? (this->*found->second)(request) : error(u"InvalidRequest"_s);
}

QVariantMap LockdownResponder::queryType(const QVariantMap&) {
    return {{u"Type"_s, u"com.apple.mobile.lockdown"_s}};
}

QVariantMap LockdownResponder::goodbye(const QVariantMap&) {
    ends_ = true;
    return {{u"Result"_s, u"Success"_s}};
}

QVariantMap LockdownResponder::getValue(const QVariantMap& request) {
    const QString domain = request[u"Domain"_s].toString();
    const QString key = request[u"Key"_s].toString();
    QVariantMap answer;
    if (!domain.isEmpty())
        answer.insert(u"Domain"_s, domain);
    if (!key.isEmpty())
        answer.insert(u"Key"_s, key);
    const bool isPublic = LockdownValues::isPublic(domain, key);
    if (sessionID_.isEmpty() && !isPublic) {
        answer.insert(u"Error"_s, u"GetProhibited"_s);
        return answer;
    }
    const auto values = LockdownValues(phone_).domain(domain, !sessionID_.isEmpty());
    if (!values)
        answer.insert(u"Error"_s, u"GetProhibited"_s);
    else if (key.isEmpty())
        answer.insert(u"Value"_s, *values);
    else if (values->contains(key))
        answer.insert(u"Value"_s, values->value(key));
    else
        answer.insert(u"Error"_s, u"MissingValue"_s);
    return answer;
}

QVariantMap LockdownResponder::setValue(const QVariantMap& request) {
    if (sessionID_.isEmpty())
        return error(u"SetProhibited"_s);
    const QString key = request[u"Key"_s].toString();
    const QVariant value = request[u"Value"_s];
    if (!request.contains(u"Domain"_s) && key == u"DeviceName"_s &&
        value.typeId() == QMetaType::QString)
        phone_.setName(value.toString());
    else
        return error(u"SetProhibited"_s);
    return {{u"Key"_s, key}, {u"Value"_s, value}};
}

QVariantMap LockdownResponder::pair(const QVariantMap& request) {
    const QVariantMap record = recordIn(request);
    if (record[u"HostID"_s].toString().isEmpty() || !PhoneIdentity::tlsContext(record))
        return error(u"InvalidPairRecord"_s);
    const VirtualIPhone::State state = phone_.state();
    if (state.locked)
        return error(u"PasswordProtected"_s);
    if (state.trust == VirtualTrust::asking)
        return error(u"PairingDialogResponsePending"_s);
    if (state.trust == VirtualTrust::denied)
        return error(u"UserDeniedPairing"_s);
    phone_.addHost(record);
    return {{u"EscrowBag"_s, QByteArray(32, 'e')}};
}

QVariantMap LockdownResponder::validatePair(const QVariantMap& request) {
    if (phone_.state().locked)
        return error(u"PasswordProtected"_s);
    const bool isKnown = !phone_.knownHost(recordIn(request)[u"HostID"_s].toString()).isEmpty();
    return isKnown ? QVariantMap() : error(u"InvalidHostID"_s);
}

QVariantMap LockdownResponder::unpair(const QVariantMap& request) {
    const QString hostID = recordIn(request)[u"HostID"_s].toString();
    if (phone_.knownHost(hostID).isEmpty())
        return error(u"InvalidHostID"_s);
    phone_.removeHost(hostID);
    return {};
}

QVariantMap LockdownResponder::startSession(const QVariantMap& request) {
    const auto refusal = phone_.hooks().handshakeError();
    ends_ = refusal && refusal->isEmpty();
    if (refusal)
        return ends_ ? QVariantMap() : error(*refusal);
    if (!sessionID_.isEmpty())
        return error(u"SessionActive"_s);
    const QString hostID = request[u"HostID"_s].toString();
    if (hostID.isEmpty())
        return error(u"MissingHostID"_s);
    if (phone_.state().locked)
        return error(u"PasswordProtected"_s);
    host_ = phone_.knownHost(hostID);
    if (host_.isEmpty())
        return error(u"InvalidHostID"_s);
    sessionID_ = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    return {{u"SessionID"_s, sessionID_}, {u"EnableSessionSSL"_s, phone_.config().sessionTls}};
}

QVariantMap LockdownResponder::stopSession(const QVariantMap& request) {
    if (sessionID_.isEmpty())
        return error(u"SessionInactive"_s);
    if (request[u"SessionID"_s].toString() != sessionID_)
        return error(u"InvalidSessionID"_s);
    sessionID_.clear();
    return {};
}

QVariantMap LockdownResponder::startService(const QVariantMap& request) {
    const QString service = request[u"Service"_s].toString();
    if (service.isEmpty())
        return error(u"MissingService"_s);
    if (sessionID_.isEmpty())
        return error(u"SessionInactive"_s);
    if (phone_.state().locked)
        return error(u"PasswordProtected"_s);
    const std::array known{HouseArrestResponder::service, InstallationProxyResponder::service,
                           NotificationProxyResponder::service};
    const bool isMedia =
        service == AFCResponder::mediaService && !phone_.config().mediaFolder.isEmpty();
    if (!isMedia && std::find(known.begin(), known.end(), service) == known.end())
        return error(u"InvalidService"_s);
    QVariantMap answer{{u"Service"_s, service},
                       {u"Port"_s, phone_.offerService(service, host_[u"HostID"_s].toString())}};
    if (phone_.config().serviceTls)
        answer.insert(u"EnableServiceSSL"_s, true);
    return answer;
}

} // namespace tessary
