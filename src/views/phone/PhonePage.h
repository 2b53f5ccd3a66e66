#pragma once

#include "browser/storage/StorageUses.h"
#include "devices/list/DeviceManager.h"
#include "sync/manager/SyncViewModel.h"
#include "views/sidebar/PlaceListModel.h"

#include <QScrollArea>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QAction;
class QBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace tessary {

class StatusBanner;
class SyncPairList;
class VolumeCard;

/// A phone itself: what it is, what fills it, what is kept in step with it, and what can be done
/// with it. What keeps it from being read stands here, too, with what to do about it.
class PhonePage : public QScrollArea {
    Q_OBJECT

public:
    /// What it shows; all must outlive it.
    struct Parts {
        DeviceManager& devices;
        SyncViewModel& sync;
        /// The files that tell what fills a phone.
        std::function<std::shared_ptr<PhoneFileSystem>(const DeviceInfo&)> open;
    };
    /// What the user asks for.
    struct Callbacks {
        std::function<void()> browseFiles;
        std::function<void(const QString& path)> openFolder;
        std::function<void()> showApps;  ///< of an iPhone
        QAction* importPhotos = nullptr; ///< never null
        std::function<void()> releaseDevice;
    };

    PhonePage(Parts parts, Callbacks callbacks);

    /// The phone as it is now; nothing changes without one.
    void showDevice(const std::optional<DeviceInfo>& device);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    [[nodiscard]] QLayout* makeHeader();
    [[nodiscard]] QLayout* makeCommands();
    void fitCommands();
    void focusFirst();
    void showTexts();
    void showTrouble();
    void showVolumes();
    void showUse();
    void showSync();
    void syncNow();
    void look();
    [[nodiscard]] std::vector<Place> volumes() const;

    const Parts parts_;
    const Callbacks callbacks_;
    StorageUses uses_;
    std::optional<DeviceInfo> device_;
    std::vector<Place> volumes_; ///< that have a card
    QLabel* picture_;
    QLabel* name_;
    QLabel* detail_;
    StatusBanner* trouble_;
    QPushButton* browse_;
    QPushButton* apps_;
    QPushButton* import_;
    QPushButton* sync_;
    QBoxLayout* commands_ = nullptr;
    QLabel* storageHeading_;
    QLabel* looking_;
    QVBoxLayout* cards_;
    std::vector<VolumeCard*> cardOf_; ///< as volumes_
    QLabel* syncHeading_;
    SyncPairList* pairs_;
};

} // namespace tessary
