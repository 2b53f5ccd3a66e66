#include "app/previews/PictureDecoder.h"

#include "core/CancellationError.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>

namespace tessary {

namespace {

constexpr int look = 20;             // ms between two looks at the stop token
constexpr int endedChildTime = 5000; // ms; a killed child is gone long before
constexpr qint64 longestOutput = qint64{4} * maxPictureSide * maxPictureSide + 1024;

/// Ends the child with the call, however that ends.
class Child {
public:
    Child(const QString& program, const QStringList& arguments) {
        process.setStandardInputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(program, arguments);
    }
    ~Child() {
        if (process.state() == QProcess::NotRunning)
            return;
        process.kill();
        process.waitForFinished(endedChildTime);
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    QProcess process;
};

} // namespace

PictureDecoder::PictureDecoder(QString program, std::chrono::milliseconds limit)
    : program_(std::move(program)), limit_(limit) {}

QString PictureDecoder::installedProgram() {
    // Beside this program, where packages put helpers, and where a build puts its programs.
    for (const char* folder : {".", "../libexec/tessary", "../../bin"}) {
        const QFileInfo file(
            QStringLiteral("%1/%2/tessary-decode")
                .arg(QCoreApplication::applicationDirPath(), QString::fromLatin1(folder)));
        if (file.isFile() && file.isExecutable())
            return file.canonicalFilePath();
    }
    return {};
}

Picture PictureDecoder::decode(const PictureRequest& request, const std::stop_token& stop) const {
    throwIfStopped(stop);
    if (program_.isEmpty())
        throw PictureError("the program that decodes pictures is missing");
    QElapsedTimer clock;
    clock.start();
    Child child(program_,
                {request.file, QString::number(request.maxSide), QString::number(request.page)});
    QProcess& process = child.process;
    if (!process.waitForStarted(static_cast<int>(limit_.count())))
        throw PictureError("the program that decodes pictures cannot be started");
    while (process.state() != QProcess::NotRunning && !process.waitForFinished(look)) {
        throwIfStopped(stop);
        if (clock.elapsed() > limit_.count())
            throw PictureError("decoding took too long");
        if (process.bytesAvailable() > longestOutput)
            throw PictureError("the decoded picture is too large");
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        throw PictureError("the picture cannot be decoded");
    auto picture = decodePicture(process.readAllStandardOutput());
    if (!picture)
        throw PictureError("the decoded picture makes no sense");
    return *std::move(picture);
}

} // namespace tessary
