#pragma once

#include "transfer/copy/ContentCount.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <stop_token>
#include <vector>

class QFormLayout;
class QLabel;
class QProgressBar;
class QPushButton;
class QVBoxLayout;

namespace tessary {

/// The facts of one entry of a device, or of several together. The content of folders is counted
/// in the background; closing the dialog, or its button, stops that.
class PropertiesDialog : public QDialog {
    Q_OBJECT

public:
    /// `items` are not empty. The dialog deletes itself when it is closed.
    PropertiesDialog(std::shared_ptr<PhoneFileSystem> files, std::vector<FileItem> items,
                     QWidget* parent = nullptr);
    ~PropertiesDialog() override;

    [[nodiscard]] bool isCounting() const {
        return isCounting_;
    }

private:
    void makeHeading(QVBoxLayout& column);
    /// `text`: the value that follows the language alone; empty for one that changes otherwise.
    QLabel* addRow(const char* title, const char* objectName, std::function<QString()> text = {});
    void startCount();
    void stopCount();
    void showCount();

    const std::shared_ptr<PhoneFileSystem> files_;
    const std::vector<FileItem> items_;
    ContentCount count_;
    bool isCounting_ = false;
    bool wasStopped_ = false;
    std::stop_source stop_{std::nostopstate};

    QFormLayout* form_;
    QLabel* size_;
    QLabel* content_ = nullptr; ///< null where no folder is among the entries
    QLabel* note_;
    QProgressBar* busy_;
    QPushButton* stopButton_;
};

/// "1.2 MB (1,234,567 bytes)".
[[nodiscard]] QString exactSizeText(qint64 bytes);

} // namespace tessary
