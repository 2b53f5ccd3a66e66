#pragma once

#include "browser/model/WirelessViewModel.h"

#include <QDialog>

class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;

namespace tessary {

/// The phones with wireless debugging that are found on the network, while it is open.
class WirelessDialog : public QDialog {
    Q_OBJECT

public:
    WirelessDialog(std::shared_ptr<ServiceNetwork> network, ADBWays& ways,
                   QWidget* parent = nullptr);
    ~WirelessDialog() override;

    [[nodiscard]] const WirelessViewModel& phones() const {
        return phones_;
    }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void showPhones();
    void showButtons();
    [[nodiscard]] const WirelessViewModel::Phone* chosen() const;
    void connectOrPair();

    WirelessViewModel phones_;
    QListWidget* list_;
    QLabel* note_;
    QProgressBar* busy_;
    QPushButton* connect_;
};

} // namespace tessary
