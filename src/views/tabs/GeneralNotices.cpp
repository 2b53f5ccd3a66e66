#include "views/tabs/GeneralNotices.h"

#include "app/texts/SyncTexts.h"
#include "base/text/Printable.h"
#include "base/threads/Background.h"
#include "base/threads/MainThread.h"
#include "views/common/PlainText.h"
#include "views/import/ImportView.h"
#include "views/transfers/TransferListModel.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

namespace tessary {

namespace {

/// The context of the question's texts.
class ReleaseQuestion {
    Q_DECLARE_TR_FUNCTIONS(ReleaseQuestion)
};

/// Asks in `window` whether these programs may be ended for a phone's sake, and says what they may
/// lose. Returns at once, and calls `agreed` if it comes to that; nothing new is asked while the
/// question is open.
void askToEndPrograms(QWidget& window, const QStringList& names, std::function<void()> agreed) {
    const QString name = QStringLiteral("releaseQuestion");
    if (window.findChild<QMessageBox*>(name) != nullptr)
        return;
    auto* question =
        new QMessageBox(QMessageBox::Warning, ReleaseQuestion::tr("Release the Phone"),
                        ReleaseQuestion::tr("To release the phone, these programs are ended: %1")
                            .arg(printable(names.join(QStringLiteral(", ")))),
                        QMessageBox::NoButton, &window);
    question->setObjectName(name);
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setInformativeText(ReleaseQuestion::tr(
        "What they are copying breaks off, and the folders of phones that they show close. Changes "
        "to files on a phone that are not saved yet may be lost."));
    const QAbstractButton* end =
        question->addButton(ReleaseQuestion::tr("End Programs"), QMessageBox::DestructiveRole);
    question->setDefaultButton(question->addButton(QMessageBox::Cancel));
    makePlain(*question);
    QObject::connect(question, &QMessageBox::finished, question,
                     [question, end, agreed = std::move(agreed)] {
                         if (question->clickedButton() == end)
                             agreed();
                     });
    question->open();
}

} // namespace

GeneralNotices::GeneralNotices(TessaryApp& app, SyncViewModel& sync) : app_(app), sync_(sync) {
    connect(&sync, &SyncViewModel::troubleChanged, this, &GeneralNotices::changed);
    connect(&app.deviceManager(), &DeviceManager::hasUSBConflictChanged, this, [this] {
        isConflictClosed_ = false;
        Q_EMIT changed();
    });
    connect(&app.phoneMounts(), &PhoneMounts::failed, this, [this](const QString& name) {
        notMounted_ = name;
        Q_EMIT changed();
    });
    connect(&app.rememberedCopies(), &RememberedCopies::offeredChanged, this,
            &GeneralNotices::changed);
    app.defaults().whenTroubleChanges([self = QPointer(this)] {
        MainThread::post([self] {
            if (!self)
                return;
            if (!self->app_.defaults().trouble())
                self->closedTrouble_.reset(); // the next one is another
            Q_EMIT self->changed();
        });
    });
}

GeneralNotices::~GeneralNotices() {
    app_.defaults().whenTroubleChanges({});
}

void GeneralNotices::releaseDevice(QWidget& window) {
    CompetingPrograms& programs = app_.services().competingPrograms();
    const auto end = [this, &programs](const QStringList& names) {
        runInBackground(
            this, [&programs, names] { programs.end(names); },
            [this](BackgroundResult<void>) { app_.deviceManager().refreshDeviceList(true); });
    };
    runInBackground(
        this, [&programs] { return programs.running(); },
        [end, window = QPointer(&window)](BackgroundResult<QStringList> result) {
            const QStringList names = result.succeeded() ? result.take() : QStringList();
            if (names.isEmpty())
                end({}); // it may have let go by itself
            else if (window)
                askToEndPrograms(*window, names, [end, names] { end(names); });
        });
}

std::optional<BannerMessage> GeneralNotices::current(bool isPhoneReadable, QWidget& window) {
    if (const auto trouble = app_.defaults().trouble(); trouble && trouble != closedTrouble_)
        return ofSettings(*trouble);
    if (notMounted_)
        return ofMount(*notMounted_);
    if (removal_)
        return ofRemoval(*removal_);
    if (auto notice = ofSync())
        return notice;
    if (auto notice = ofCopies())
        return notice;
    if (app_.deviceManager().hasUSBConflict() && !isPhoneReadable && !isConflictClosed_)
        return ofConflict(window);
    return std::nullopt;
}

std::function<void()> GeneralNotices::closing(std::function<void()> forget) {
    return [this, forget = std::move(forget)] {
        forget();
        Q_EMIT changed();
    };
}

BannerMessage GeneralNotices::ofSettings(const SettingsTrouble& trouble) {
    BannerMessage message{.kind = BannerMessage::Kind::warning,
                          .closed = closing([this, trouble] { closedTrouble_ = trouble; })};
    if (trouble.kind == SettingsTrouble::Kind::damaged) {
        message.words = {tr("Your settings could not be read. Tessary goes on with its own."),
                         trouble.aside.isEmpty()
                             ? tr("The file is damaged: %1").arg(printable(trouble.file))
                             : tr("The damaged file was kept: %1").arg(printable(trouble.aside)),
                         {}};
    } else {
        message.words = {tr("Your settings could not be stored: %1").arg(printable(trouble.reason)),
                         tr("They hold until Tessary ends, and are tried again with each change."),
                         {}};
        message.actions = {{tr("Retry"), [this] { storeSettings(); }}};
    }
    return message;
}

/// Whether that was of use is told as any other change of the trouble.
void GeneralNotices::storeSettings() {
    constexpr std::chrono::seconds limit(10);
    runInBackground(
        this, [&defaults = app_.defaults(), limit] { (void)defaults.store(limit); },
        [this](BackgroundResult<void>) { Q_EMIT changed(); });
}

std::optional<BannerMessage> GeneralNotices::ofSync() {
    const auto& id = sync_.troubledPair();
    const SyncPair* pair = id ? sync_.manager().pair(*id) : nullptr;
    const SyncReport* report = id ? sync_.manager().lastReport(*id) : nullptr;
    if (pair == nullptr || report == nullptr)
        return std::nullopt;
    return BannerMessage{
        .kind = report->outcome == SyncReport::Outcome::failed ? BannerMessage::Kind::error
                                                               : BannerMessage::Kind::warning,
        .words = {troubleText(*pair, *report), reportText(*report), {}},
        .actions = {{tr("Show Report"), [this, id = *id] { sync_.requestReports(id); }}},
        .closed = [this] { sync_.dismissTrouble(); }};
}

std::optional<BannerMessage> GeneralNotices::ofCopies() {
    RememberedCopies& copies = app_.rememberedCopies();
    const std::vector<CopyRecord> offered = copies.offered();
    if (offered.empty())
        return std::nullopt;
    return BannerMessage{
        .words = {offered.size() == 1
                      ? tr("Copying “%1” broke off.").arg(transferTitle(offered.front().job))
                      : tr("%Ln copies broke off.", nullptr, static_cast<int>(offered.size())),
                  tr("The phone is back. What has arrived is not copied again."),
                  {}},
        .actions = {{tr("Continue Copying"), [&copies] { copies.goOnWithOffered(); }}},
        .closed = [&copies] { copies.declineOffered(); }};
}

void GeneralNotices::tellRemoval(const ImportRemoval& removal, bool isShown) {
    if (isShown)
        return;
    removal_ = removal;
    Q_EMIT changed();
}

BannerMessage GeneralNotices::ofRemoval(const ImportRemoval& removal) {
    const ErrorText words = ImportView::removalText(removal);
    return {.kind = words.advice.isEmpty() ? BannerMessage::Kind::information
                                           : BannerMessage::Kind::warning,
            .words = words,
            .closed = closing([this] { removal_.reset(); })};
}

BannerMessage GeneralNotices::ofMount(const QString& name) {
    return {.kind = BannerMessage::Kind::error,
            .words = {tr("“%1” could not be opened in the file manager.").arg(printable(name)),
                      tr("This computer mounts nothing for its users. FUSE may not be installed."),
                      {}},
            .closed = closing([this] { notMounted_.reset(); })};
}

BannerMessage GeneralNotices::ofConflict(QWidget& window) {
    return {.words = {tr("Another program on this computer opens phones, too."),
                      tr("If a phone does not show its files here, have that program release it."),
                      {}},
            .actions = {{tr("Release the Phone"), [this, &window] { releaseDevice(window); }}},
            .closed = closing([this] { isConflictClosed_ = true; })};
}

} // namespace tessary
