#include "Story.h"

#include <algorithm>
#include <cstdio>

namespace tessary {

Story::Story(const QString& path) : file_(path) {
    clock_.start();
    if (!path.isEmpty() && !file_.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw std::runtime_error("cannot write " + path.toStdString());
}

void Story::tell(const char* kind, const QString& details) {
    add(kind, 1);
    const QByteArray line =
        QByteArray::number(static_cast<double>(clock_.elapsed()) / 1000, 'f', 3).rightJustified(9) +
        "  " + QByteArray(kind).leftJustified(10) + ' ' + details.toUtf8() + '\n';
    last_.push_back(line);
    if (last_.size() > remembered)
        last_.pop_front();
    if (file_.isOpen())
        file_.write(line);
}

void Story::add(const char* kind, qint64 number) {
    counts_[QString::fromUtf8(kind)] += number;
}

void Story::raise(const char* kind, qint64 number) {
    qint64& count = counts_[QString::fromUtf8(kind)];
    count = std::max(count, number);
}

void Story::printCounts() const {
    for (const auto& [kind, count] : counts_)
        std::printf("%-28s %lld\n", qUtf8Printable(kind), static_cast<long long>(count));
}

void Story::printLast() const {
    for (const QByteArray& line : last_)
        std::fputs(line.constData(), stderr);
}

} // namespace tessary
