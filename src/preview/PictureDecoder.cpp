#include "preview/PictureDecoder.h"

#include "base/threads/CancellationError.h"
#include "platform/process/QtProcessRunner.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace tessary {

namespace {

constexpr qint64 longestOutput = qint64{4} * maxPictureSide * maxPictureSide + 1024;

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
    ProcessRequest child;
    child.program = program_;
    child.arguments = {request.file, QString::number(request.maxSide),
                       QString::number(request.page)};
    child.limit = limit_;
    child.stop = stop;
    child.outputLimit = longestOutput;
    QtProcessRunner runner;
    const ProcessResult result = runner.follow(child);
    throwIfStopped(stop);
    if (result.outcome == ProcessResult::Outcome::timedOut)
        throw PictureTimeoutError("the picture was not decoded in time");
    if (!result.succeeded())
        throw PictureError("the picture cannot be decoded");
    auto picture = decodePicture(result.standardOutput);
    if (!picture)
        throw PictureError("the decoded picture makes no sense");
    return *std::move(picture);
}

} // namespace tessary
