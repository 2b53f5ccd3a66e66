#include "Round.h"

#include "Story.h"
#include "base/threads/Background.h"

#include <QDir>

#include <algorithm>

namespace tessary {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString camera = u"/Camera"_s;
const QString inbox = u"/Inbox"_s;
const QString editFolder = u"/Edits"_s;

} // namespace

Round::Round(SoakBench& bench)
    : bench_(bench),
      program_(bench.program),
      dice_(bench.dice),
      story_(bench.story),
      outbox_(bench.folder + u"/Outbox"_s),
      downloads_(bench.folder + u"/Downloads"_s) {}

void Round::run() {
    for (int count = dice_.between(1, 2); count > 0; --count)
        phones_.push_back(dice_.oneOf(bench_.phones).get());
    story_.tell("round", phones_.front()->name() + u" and "_s + phones_.back()->name());
    bench_.content.fillUp(outbox_, 8);
    for (SoakPhone* phone : phones_)
        prepare(*phone);
    for (int steps = dice_.between(4, 14); steps > 0; --steps) {
        act(*dice_.oneOf(phones_));
        Program::turnFor(std::chrono::milliseconds(dice_.between(0, 250)));
    }
    settle();
    goesOn_.reset(); // what is prepared from now on would end in the next round
    if (!problem_.isEmpty())
        throw Broken(problem_);
    checkJobs();
    checkFolders();
    for (SoakPhone* phone : phones_)
        checkListing(*phone, dice_.oneOf(QStringList{camera, inbox, editFolder}));
    bench_.pairs.finish();
    tidy();
}

void Round::prepare(SoakPhone& phone) {
    phone.heal(dice_);
    phone.isDisturbed = false;
    bench_.content.fillUp(phone.folder() + camera, 10);
    bench_.content.fillUp(phone.folder() + editFolder, 8);
    QDir().mkpath(phone.folder() + inbox);
    edits_[&phone] = Content::read(phone.folder() + editFolder);
}

void Round::act(SoakPhone& phone) {
    const int kind = dice_.between(1, 100);
    if (kind <= 16)
        browse(phone);
    else if (kind <= 33)
        download(phone);
    else if (kind <= 50)
        upload(phone);
    else if (kind <= 63)
        edit(phone);
    else if (kind <= 69)
        look(phone);
    else if (kind <= 77)
        bench_.pairs.start(phone);
    else if (kind <= 85)
        cancelSomething();
    else
        disturb(phone);
}

/// Waits for the listing as a user would who wants to click into it; false when there is none.
bool Round::show(SoakPhone& phone, const QString& path) {
    if (!program_.show(phone, path))
        return false;
    const auto end = std::chrono::steady_clock::now() + 3s;
    Program::await(
        "a listing",
        [&] { return !program_.browser.isLoading() || std::chrono::steady_clock::now() > end; },
        60s);
    return !program_.browser.isLoading() && program_.browser.state() == BrowserState::ready;
}

QStringList Round::someIds(int most) {
    QStringList ids;
    const auto& items = program_.browser.items();
    for (int count = dice_.between(1, most); count > 0 && !items.empty(); --count)
        ids << dice_.oneOf(items).id();
    ids.removeDuplicates();
    return ids;
}

void Round::browse(SoakPhone& phone) {
    FileBrowserViewModel& browser = program_.browser;
    const QString path = dice_.oneOf(
        QStringList{u"/"_s, camera, camera + u"/d1"_s, inbox, editFolder, u"/Nowhere"_s});
    story_.tell("browse", phone.name() + u' ' + path);
    (void)program_.show(phone, path);
    for (int steps = dice_.between(0, 3); steps > 0; --steps) {
        Program::turnFor(std::chrono::milliseconds(dice_.between(0, 60)));
        switch (dice_.between(0, 6)) {
        case 0:
            browser.goBack();
            break;
        case 1:
            browser.goForward();
            break;
        case 2:
            browser.navigateUp();
            break;
        case 3:
            browser.reload();
            break;
        case 4:
            browser.setSearchText(dice_.happens(50) ? u"f1"_s : QString());
            break;
        case 5:
            browser.setSortOrder(
                {{dice_.happens(50) ? FileField::size : FileField::name, dice_.happens(50)}});
            break;
        case 6:
            if (const QStringList ids = someIds(1); !ids.isEmpty())
                browser.enterFolder(ids.front());
            break;
        }
    }
}

std::function<void(const PreparedCopy&)> Round::queuing(SoakPhone& phone) {
    return [this, &phone, goesOn = std::weak_ptr(goesOn_)](const PreparedCopy& prepared) {
        if (goesOn.lock())
            copy(phone, prepared);
    };
}

/// Queues a copy with answers at random to what it will meet.
void Round::copy(SoakPhone& phone, const PreparedCopy& prepared) {
    const auto answer =
        dice_.oneOf(std::vector{ClashAnswer::keepBoth, ClashAnswer::replace, ClashAnswer::skip});
    CopyAnswers answers;
    for (const PreparedCopy::Part& part : prepared.parts)
        for (const CheckedItem& item : part.check.items)
            answers.insert(item.item.item.id(), answer);
    const auto before = program_.copies.jobs().size();
    const bool isOnlyNew = dice_.happens(20);
    program_.browser.copies().start(prepared, answers, isOnlyNew);
    const auto& jobs = program_.copies.jobs();
    for (std::size_t n = before; n < jobs.size(); ++n) {
        const CopyJob& job = jobs[n];
        const bool isUpload = job.direction == CopyJob::Direction::toPhone;
        Copy& copy = copies_[job.id];
        copy.phone = &phone;
        if (answer != ClashAnswer::skip && !isOnlyNew &&
            jobs.size() - before == prepared.parts.size())
            for (const CopyItem& item : prepared.parts[n - before].request.items)
                copy.sources << (isUpload ? item.item.path : phone.onDisk(item.item.path));
        story_.tell(isUpload ? "upload" : "download",
                    phone.name() + u' ' + job.sourcePath + u" to "_s + job.targetFolder);
    }
}

void Round::download(SoakPhone& phone) {
    if (!show(phone, dice_.happens(70) ? camera : camera + u"/d2"_s))
        return;
    program_.browser.copies().prepareDownload(someIds(4), downloads_, queuing(phone));
}

void Round::upload(SoakPhone& phone) {
    if (!show(phone, inbox))
        return;
    QStringList sources;
    const QFileInfoList all =
        QDir(outbox_).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
    for (int count = dice_.between(1, 3); count > 0; --count)
        sources << dice_.oneOf(all).filePath();
    sources.removeDuplicates();
    program_.browser.copies().prepareUpload(sources, {}, queuing(phone));
}

void Round::edit(SoakPhone& phone) {
    if (!show(phone, editFolder) || program_.browser.items().empty())
        return;
    FileBrowserViewModel& browser = program_.browser;
    const QStringList ids = someIds(3);
    const FileItem first = *browser.itemWithId(ids.front());
    const int kind = dice_.between(1, 100);
    story_.tell("edit", u"%1 %2 %3"_s.arg(phone.name()).arg(kind).arg(first.path));
    if (kind <= 35) {
        browser.renameItem(first.id(), u"r%1 "_s.arg(dice_.between(1, 1000)) + first.name);
    } else if (kind <= 55) {
        browser.createFolder(dice_.happens(50) ? QString() : u"New %1"_s.arg(dice_.between(1, 50)));
    } else if (kind <= 80) {
        hasDeleted_ = true;
        browser.deleteItems(ids);
    } else {
        const auto& items = browser.items();
        const auto folder = std::find_if(items.begin(), items.end(), [&](const FileItem& item) {
            return item.isDirectory && !ids.contains(item.id());
        });
        if (folder != items.end())
            browser.changes().move(browser.itemsWithIds(ids), folder->path);
    }
}

/// A preview, or files that are about to be dragged out.
void Round::look(SoakPhone& phone) {
    if (!show(phone, camera) || program_.browser.items().empty())
        return;
    const QStringList ids = someIds(3);
    if (dice_.happens(60)) {
        story_.tell("preview", ids.front());
        preview(*program_.browser.itemWithId(ids.front()));
        return;
    }
    story_.tell("drag", ids.join(u' '));
    FileBrowserViewModel& browser = program_.browser;
    std::stop_source drag = prepareDrag(
        &browser, {browser.files(), browser.itemsWithIds(ids), nullptr, program_.staged},
        [](const DragFiles&) {});
    if (dice_.happens(30))
        drag.request_stop();
}

void Round::preview(const FileItem& item) {
    preview_.request_stop();
    preview_ = runInBackground(
        &program_.browser,
        [&copies = program_.staged, files = program_.browser.files(),
         item](const std::stop_token& stop) { return copies.fetch(*files, item, {}, stop); },
        [this, goesOn = std::weak_ptr(goesOn_)](BackgroundResult<QString> result) {
            if (goesOn.expired() || !result.succeeded())
                return;
            const QString localFile = result.take();
            story_.tell("previewed", localFile);
            try {
                (void)Content::seedOf(localFile);
            } catch (const Broken& broken) {
                problem_ = QString::fromUtf8(broken.what());
            }
        });
}

void Round::cancelSomething() {
    story_.tell("cancel");
    std::vector<QUuid> ids;
    for (const CopyJob& job : program_.copies.jobs())
        if (!job.isFinished())
            ids.push_back(job.id);
    switch (dice_.between(0, 5)) {
    case 0:
        program_.copies.cancelAll();
        break;
    case 1:
        program_.browser.cancelEdits();
        break;
    case 2:
        program_.browser.cancelLoading();
        preview_.request_stop();
        break;
    case 3:
        bench_.pairs.cancel();
        break;
    default:
        if (!ids.empty())
            program_.copies.cancel(dice_.oneOf(ids));
    }
}

void Round::disturb(SoakPhone& phone) {
    phone.isDisturbed = true;
    const int kind = dice_.between(1, 100);
    if (kind <= 45) {
        story_.tell("fault", phone.name() + u": "_s + phone.breakDown(dice_));
    } else if (kind <= 80 || !phone.isPlugged()) {
        story_.tell(phone.isPlugged() ? "unplug" : "replug", phone.name());
        if (phone.isPlugged())
            phone.unplug();
        else
            phone.plug();
    } else {
        story_.tell("jolt", phone.name());
        phone.unplug();
        phone.plug();
    }
}

} // namespace tessary
