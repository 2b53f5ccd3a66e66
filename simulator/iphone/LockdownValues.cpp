#include "simulator/iphone/LockdownValues.h"

#include "simulator/wire/PhoneIdentity.h"

#include <QDateTime>
#include <QTimeZone>

#include <algorithm>
#include <array>

namespace tessary {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array publicKeys{
    "BasebandStatus", "BuildVersion",    "CPUArchitecture", "DeviceClass",      "DeviceColor",
    "DeviceName",     "DevicePublicKey", "HardwareModel",   "HardwarePlatform", "ProductName",
    "ProductType",    "ProductVersion",  "ProtocolVersion", "UniqueDeviceID",   "WiFiAddress",
};

bool isPublicKey(const QString& key) {
    return std::any_of(publicKeys.begin(), publicKeys.end(),
                       [&key](const char* each) { return key == QLatin1String(each); });
}

} // namespace

bool LockdownValues::isPublic(const QString& domain, const QString& key) {
    return domain.isEmpty() && (key.isEmpty() || isPublicKey(key));
}

std::optional<QVariantMap> LockdownValues::domain(const QString& name, bool inSession) const {
    if (name == u"com.apple.disk_usage"_s)
        return diskUsage();
    if (name == u"com.apple.mobile.battery"_s)
        return battery();
    if (name == u"com.apple.international"_s)
        return QVariantMap{{u"Language"_s, u"en"_s}, {u"Locale"_s, u"en_US"_s}};
    if (name == u"com.apple.mobile.wireless_lockdown"_s)
        return QVariantMap{{u"EnableWifiConnections"_s, !phone_.config().wifiAddress.isEmpty()}};
    if (!name.isEmpty())
        return QVariantMap();
    QVariantMap values = general();
    if (!inSession)
        values.removeIf([](auto entry) { return !isPublicKey(entry.key()); });
    return values;
}

QVariantMap LockdownValues::general() const {
    const VirtualIPhoneConfig& config = phone_.config();
    const VirtualIPhone::State state = phone_.state();
    const QDateTime now = QDateTime::currentDateTime();
    const bool isTablet = config.productType.startsWith(u"iPad"_s);
    return {
        {u"ActivationState"_s, u"Activated"_s},
        {u"BasebandStatus"_s, u"BBInfoAvailable"_s},
        {u"BluetoothAddress"_s, u"02:00:00:00:00:02"_s},
        {u"BuildVersion"_s, config.buildVersion},
        {u"CPUArchitecture"_s, u"arm64e"_s},
        {u"DeviceClass"_s, isTablet ? u"iPad"_s : u"iPhone"_s},
        {u"DeviceColor"_s, u"1"_s},
        {u"DeviceName"_s, state.name},
        {u"DevicePublicKey"_s, PhoneIdentity::devicePublicKey()},
        {u"HardwareModel"_s, u"D53gAP"_s},
        {u"HardwarePlatform"_s, u"t8101"_s},
        {u"HostAttached"_s, true},
        {u"ModelNumber"_s, u"MGJ93"_s},
        {u"PasswordProtected"_s, state.locked},
        {u"ProductName"_s, u"iPhone OS"_s},
        {u"ProductType"_s, config.productType},
        {u"ProductVersion"_s, config.productVersion},
        {u"ProtocolVersion"_s, u"2"_s},
        {u"RegionInfo"_s, u"LL/A"_s},
        {u"SerialNumber"_s, u"F17VIRTUAL01"_s},
        {u"SupportedDeviceFamilies"_s, QVariantList{1U}},
        {u"TelephonyCapability"_s, true},
        {u"TimeIntervalSince1970"_s, static_cast<double>(now.toMSecsSinceEpoch()) / 1000},
        {u"TimeZone"_s, QString::fromLatin1(QTimeZone::systemTimeZoneId())},
        {u"TrustedHostAttached"_s, true},
        {u"UniqueChipID"_s, quint64{0x000A1B2C3D4E001E}},
        {u"UniqueDeviceID"_s, config.udid},
        {u"Uses24HourClock"_s, true},
        {u"WiFiAddress"_s, u"02:00:00:00:00:01"_s},
    };
}

QVariantMap LockdownValues::diskUsage() const {
    constexpr quint64 system = 12'000'000'000;
    const auto total = static_cast<quint64>(phone_.config().capacity);
    const auto data = total > system ? total - system : total;
    const auto free = static_cast<quint64>(phone_.freeBytes());
    return {{u"AmountDataAvailable"_s, free},
            {u"AmountDataReserved"_s, quint64{209'715'200}},
            {u"AmountRestoreAvailable"_s, free},
            {u"TotalDataAvailable"_s, free + quint64{209'715'200}},
            {u"TotalDataCapacity"_s, data},
            {u"TotalDiskCapacity"_s, total},
            {u"TotalSystemAvailable"_s, quint64{0}},
            {u"TotalSystemCapacity"_s, total - data}};
}

QVariantMap LockdownValues::battery() const {
    const int percent = phone_.state().battery;
    return {{u"BatteryCurrentCapacity"_s, percent},
            {u"BatteryIsCharging"_s, percent < 100},
            {u"ExternalChargeCapable"_s, true},
            {u"ExternalConnected"_s, true},
            {u"FullyCharged"_s, percent == 100},
            {u"GasGaugeCapability"_s, true},
            {u"HasBattery"_s, true}};
}

} // namespace tessary
