#pragma once

#include "app/TessaryApp.h"
#include "sync/manager/SyncViewModel.h"
#include "transfer/import/ImportRemoval.h"
#include "views/common/StatusBanner.h"

#include <QObject>

#include <optional>

namespace tessary {

/// What the window says when it has nothing to say about the phone: settings that could not be read
/// or stored, photos that went from a phone meanwhile, a sync that did not do all it should, copies
/// that broke off and can go on, and programs that may keep phones from it. What the user has
/// closed stays closed until there is other news. On the main thread.
class GeneralNotices : public QObject {
    Q_OBJECT

public:
    /// Both must outlive it.
    GeneralNotices(TessaryApp& app, SyncViewModel& sync);
    ~GeneralNotices() override;

    /// `isPhoneReadable`: then nobody has to be told of programs that may be in the way. Its
    /// actions ask their questions in `window`.
    [[nodiscard]] std::optional<BannerMessage> current(bool isPhoneReadable, QWidget& window);

    /// Tells how a removal from a phone ended, unless its page shows it.
    void tellRemoval(const ImportRemoval& removal, bool isShown);

    /// Ends the programs that hold phones, once the user has agreed to it in `window`, and looks
    /// for phones again.
    void releaseDevice(QWidget& window);

Q_SIGNALS:
    void changed();

private:
    /// For a notice's end by the user: forgets what it was about, and shows what comes next.
    [[nodiscard]] std::function<void()> closing(std::function<void()> forget);
    [[nodiscard]] BannerMessage ofSettings(const SettingsTrouble& trouble);
    void storeSettings();
    [[nodiscard]] std::optional<BannerMessage> ofSync();
    [[nodiscard]] std::optional<BannerMessage> ofCopies();
    [[nodiscard]] BannerMessage ofRemoval(const ImportRemoval& removal);
    [[nodiscard]] BannerMessage ofMount(const QString& name);
    [[nodiscard]] BannerMessage ofConflict(QWidget& window);

    TessaryApp& app_;
    SyncViewModel& sync_;
    std::optional<SettingsTrouble> closedTrouble_;
    std::optional<ImportRemoval> removal_;
    std::optional<QString> notMounted_; ///< a phone that the file manager could not be given
    bool isConflictClosed_ = false;
};

} // namespace tessary
