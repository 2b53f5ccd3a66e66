#pragma once

#include "phone/StorageUse.h"
#include "views/sidebar/PlaceListModel.h"

#include <QWidget>

#include <functional>
#include <optional>

class QLabel;
class QToolButton;

namespace tessary {

class UseBar;

/// A storage of a phone: its name, which opens it, how much is free, and what fills it.
class VolumeCard : public QWidget {
    Q_OBJECT

public:
    /// Without `open` the name is a name only.
    VolumeCard(const Place& place, std::function<void()> open);

    /// `use` is what is known of what fills it.
    void show(const StorageVolume& storage, const std::optional<StorageUse>& use);
    [[nodiscard]] QToolButton& heading() const {
        return *heading_;
    }

private:
    QToolButton* heading_;
    QLabel* free_;
    UseBar* bar_;
};

} // namespace tessary
