#include "app/TransferNotice.h"
#include "app/InterfaceTexts.h"
#include "app/LanguageManager.h"
#include "support/Application.h"
#include "support/Gate.h"
#include "support/MemoryFileSystem.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

class Heard final : public Notifier {
public:
    void notify(const QString& title, const QString& text,
                std::function<void()> whenClicked) override {
        messages.append(title + u": "_s + text);
        click = std::move(whenClicked);
    }
    QStringList messages;
    std::function<void()> click;
};

class TransferNoticeTest : public Application, public testing::Test {};

TEST_F(TransferNoticeTest, onlyTheEndOfALongQueueBehindOtherWindowsIsTold) {
    using namespace std::chrono_literals;
    const struct {
        const char* name;
        std::chrono::seconds took;
        bool isActive;
        const char* items; ///< names; "!" before what fails, "x" before what is cancelled,
                           ///< "+" between those of one job
        const char* told;
    } rows[] = {
        {"short", 9s, false, "a", ""},
        {"in front", 99s, true, "a", ""},
        {"one", 11s, false, "a", "Copying has finished: “a” is copied."},
        {"two", 11s, false, "a b", "Copying has finished: 2 items are copied."},
        {"a failure", 11s, false, "!a", "Copying went wrong: “!a” was not copied."},
        {"some fail", 11s, false, "!a b xc", "Copying went wrong: 1 of 2 items was not copied."},
        {"a job lacks one", 11s, false, "a+b+!c",
         "Copying went wrong: 1 of 3 items was not copied."},
        {"cancelled", 11s, false, "xa", ""},
    };
    LanguageManager::shared().setSelectedLanguage(AppLanguage::en);
    const InterfaceTexts texts;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        CopyQueue queue;
        const auto heard = std::make_shared<Heard>();
        TransferNotice::Clock::time_point now;
        int shown = 0;
        const TransferNotice notice(queue, {heard, [&] { return row.isActive; },
                                            [&shown] { ++shown; }, [&] { return now; }});
        const auto from = std::make_shared<MemoryFileSystem>();
        const auto phone = std::make_shared<MemoryFileSystem>();
        phone->addFolder(u"/root"_s);
        ::tessary::Gate gate;
        from->beforeEachCall([&](const MemoryFileSystem::Request& request, const Call& call) {
            gate.pass(call.stop);
            if (request.path.contains(QLatin1Char('!')))
                throw Error(PhoneError::unreadable, {request.path});
        });
        for (const QString& name : QString::fromLatin1(row.items).split(QLatin1Char(' '))) {
            TreeCopyRequest request{.from = from, .to = phone, .folder = u"/root"_s};
            for (const QString& one : name.split(QLatin1Char('+'))) {
                from->addFile(u"/"_s + one, "content");
                request.items.push_back({from->item(u"/"_s + one), one});
            }
            queue.enqueue(std::move(request));
        }
        for (const CopyJob& job : std::vector(queue.jobs()))
            if (job.name.startsWith(QLatin1Char('x')))
                queue.cancel(job.id);
        now += row.took;
        gate.open();
        ASSERT_TRUE(eventually([&] { return queue.summary().isIdle(); }));
        EXPECT_EQ(heard->messages.join(QLatin1Char('|')), QString::fromUtf8(row.told));
        if (heard->click)
            heard->click();
        EXPECT_EQ(shown, heard->click ? 1 : 0);
    }
}

} // namespace
