#include "simulator/iphone/MuxSession.h"

#include <QtEndian>

#include <array>

namespace tessary {

using namespace Qt::StringLiterals;

MuxSession::MuxSession(VirtualMux& mux, VirtualMux::Connection& connection, PhoneStream& stream)
    : mux_(mux), connection_(connection), stream_(stream) {}

void MuxSession::run() {
    for (;;) {
        std::array<std::byte, MuxHeader::size> head{};
        if (!stream_.read(head))
            return;
        const auto header = MuxHeader::decode(head);
        if (!header || header->length - MuxHeader::size > PlistCodec::longest)
            return;
        if (header->version != MuxHeader::plistVersion ||
            header->message != MuxHeader::plistMessage) {
            (void)answer(VirtualMux::Result::badVersion, header->tag);
            return;
        }
        Bytes body(header->length - MuxHeader::size);
        if (!stream_.read(body))
            return;
        const auto request = PlistCodec::decode(body);
        if (!request || !handle(*request, header->tag))
            return;
    }
}

bool MuxSession::handle(const QVariantMap& request, std::uint32_t tag) {
    const QString type = request[u"MessageType"_s].toString();
    const QString record = request[u"PairRecordID"_s].toString();
    if (mux_.whenAsked_)
        mux_.whenAsked_(u"mux."_s + type, record, request[u"DeviceID"_s].toULongLong());

    if (type == u"Connect"_s)
        return connect(request, tag);
    if (type == u"ListDevices"_s)
        return answer({{u"DeviceList"_s, mux_.deviceList()}}, tag);
    if (type == u"ReadBUID"_s)
        return answer({{u"BUID"_s, QString::fromLatin1(VirtualMux::systemBUID)}}, tag);
    if (type == u"ReadPairRecord"_s) {
        const QByteArray found = mux_.pairRecord(record);
        return found.isEmpty() ? answer(VirtualMux::Result::badDevice, tag)
                               : answer({{u"PairRecordData"_s, found}}, tag);
    }
    if (type == u"SavePairRecord"_s)
        return savePairRecord(request, tag);
    if (type == u"DeletePairRecord"_s)
        return answer(mux_.deletePairRecord(record) ? VirtualMux::Result::ok
                                                    : VirtualMux::Result::badDevice,
                      tag);
    if (type == u"Listen"_s) {
        mux_.listen(connection_, tag);
        // A listener has nothing more to say; what it says ends the connection, as its end does.
        std::array<std::byte, 1> anything{};
        return stream_.read(anything) && false;
    }
    return answer(VirtualMux::Result::badCommand, tag);
}

bool MuxSession::connect(const QVariantMap& request, std::uint32_t tag) {
    // In network order, within a number that is not.
    const auto port =
        qFromBigEndian(static_cast<quint16>(request[u"PortNumber"_s].toULongLong() & 0xFFFF));
    VirtualMux::Result result = VirtualMux::Result::ok;
    const auto device = static_cast<std::uint32_t>(request[u"DeviceID"_s].toULongLong());
    VirtualIPhone* phone = mux_.connectTo(connection_, device, port, result);
    if (phone == nullptr)
        return answer(result, tag);
    if (answer(VirtualMux::Result::ok, tag))
        phone->serve(port, stream_);
    return false;
}

bool MuxSession::savePairRecord(const QVariantMap& request, std::uint32_t tag) {
    const QByteArray record = request[u"PairRecordData"_s].toByteArray();
    const QString udid = request[u"PairRecordID"_s].toString();
    if (record.isEmpty() || udid.isEmpty())
        return answer(VirtualMux::Result::badCommand, tag);
    mux_.savePairRecord(udid, record);
    return answer(VirtualMux::Result::ok, tag);
}

bool MuxSession::answer(const QVariantMap& body, std::uint32_t tag) {
    return stream_.write(encodeMuxPacket(body, tag));
}

bool MuxSession::answer(VirtualMux::Result result, std::uint32_t tag) {
    return answer({{u"MessageType"_s, u"Result"_s}, {u"Number"_s, static_cast<uint>(result)}}, tag);
}

} // namespace tessary
