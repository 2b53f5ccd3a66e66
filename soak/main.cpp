// Hours of somebody's work with phones in minutes: virtual phones of all kinds are browsed, copied
// from and to, edited, synced, cancelled, broken and unplugged at random, through the layers that
// the window stands on. After each round nothing may hang, be cut off, left behind or lost.
//
// TessarySoak [--seconds N] [--seed N] [--story FILE] [--no-adb]

#include "Resources.h"
#include "Round.h"
#include "Story.h"
#include "support/TemporaryFolder.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>
#include <random>

using namespace tessary;
using namespace Qt::StringLiterals;

namespace {

/// Where adb's server of this run listens, and the phone that it reaches.
const QString adb = u"/usr/bin/adb"_s;

void soak(Story& story, Dice& dice, std::chrono::seconds time, bool withADB) {
    const TemporaryFolder disk;
    qputenv("XDG_CACHE_HOME", disk.path(u"cache"_s).toUtf8());
    qputenv("XDG_DATA_HOME", disk.path(u"data"_s).toUtf8()); // the trash
    LoggingMux mux(disk.path(u"mux"_s));
    mux.useInThisProcess();
    VirtualUSBBus bus;
    ADBServer server(disk.makeFolder(u"keys"_s));
    std::vector<std::unique_ptr<SoakPhone>> phones;
    for (const int number : {1, 2}) {
        phones.push_back(std::make_unique<SoakAndroid>(
            bus, number, disk.makeFolder(u"android%1"_s.arg(number))));
        phones.push_back(
            std::make_unique<SoakIPhone>(mux, number, disk.makeFolder(u"iphone%1"_s.arg(number))));
    }
    if (withADB) {
        server.start(adb);
        server.awaitStart();
        phones.push_back(std::make_unique<SoakADBPhone>(server, disk.makeFolder(u"adb"_s)));
    }
    for (const auto& phone : phones)
        phone->plug();

    Program program(bus, server.environment(), disk.path(), withADB);
    for (const auto& phone : phones)
        Program::await(
            "a phone in the list at the start", [&] { return program.device(*phone).has_value(); },
            std::chrono::seconds(60));
    (void)program.show(*phones.front(), u"/"_s); // the browser is never without a phone
    Content content(dice);
    SyncPairs pairs(program, content, dice, story);
    for (std::size_t n = 0; n < phones.size(); ++n)
        pairs.add(*phones[n], disk.path(u"mac/pairs%1"_s.arg(n)));
    SoakBench bench{program, phones, pairs, content, dice, story, disk.makeFolder(u"mac"_s)};
    disk.makeFolder(u"mac/Downloads"_s);
    Resources resources;
    QElapsedTimer clock;
    try {
        for (clock.start(); clock.elapsed() < std::chrono::milliseconds(time).count();) {
            Round(bench).run();
            resources.measure();
        }
        resources.check(story);
        program.end();
    } catch (const std::exception& error) {
        story.printLast();
        std::fprintf(stderr, "\nBroken: %s\n", error.what());
        std::_Exit(1); // what hangs uses what would go now
    }
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({{u"seconds"_s, u"How long to work."_s, u"N"_s, u"60"_s},
                       {u"seed"_s, u"Of the random choices."_s, u"N"_s},
                       {u"story"_s, u"Where to write down each action."_s, u"file"_s},
                       {u"no-adb"_s, u"Without the phone that adb reaches."_s}});
    parser.process(application);
    const quint64 seed =
        parser.isSet(u"seed"_s) ? parser.value(u"seed"_s).toULongLong() : std::random_device()();
    std::printf("seed %llu\n", static_cast<unsigned long long>(seed));
    std::fflush(stdout);
    Story story(parser.value(u"story"_s));
    Dice dice(seed);
    soak(story, dice, std::chrono::seconds(parser.value(u"seconds"_s).toInt()),
         !parser.isSet(u"no-adb"_s) && QFile::exists(adb));
    story.printCounts();
    return 0;
}
