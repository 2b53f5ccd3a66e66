// tessary-adbkey COMMAND: answers one question about this computer's key for phones, as
// adb/protocol/ADBKeyCommands.h says. Not for people.

#include "adb/keys/ADBAuthManager.h"
#include "adb/protocol/ADBKeyCommands.h"

#include <QCoreApplication>

#include <cstdio>

using namespace tessary;

namespace {

constexpr int usage = 2;

Bytes answer(const QStringList& question) {
    ADBAuthManager keys;
    if (question.size() == 1)
        return keys.getPhonePublicKeyPayload({});
    const QByteArray token = QByteArray::fromHex(question[1].toLatin1());
    return keys.sign(std::as_bytes(std::span(token.constData(), std::size_t(token.size()))), {});
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    const QStringList question = QCoreApplication::arguments().mid(1);
    const bool isKnown = (question.size() == 1 && question[0] == adb_key::phonePublicKey) ||
                         (question.size() == 2 && question[0] == adb_key::sign);
    if (!isKnown) {
        std::fputs("usage: tessary-adbkey sign TOKEN | phone-public-key\n", stderr);
        return usage;
    }
    try {
        const Bytes bytes = answer(question);
        const bool isWritten = std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size();
        return isWritten && std::fflush(stdout) == 0 ? 0 : usage;
    } catch (const Error& error) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error.arguments().value(0).toString()));
        for (const adb_key::Failure& failure : adb_key::failures)
            if (error.is(failure.error))
                return failure.exitStatus;
    }
    return usage;
}
