#pragma once

#include "app/texts/ErrorText.h"

#include <QFrame>
#include <QString>

#include <functional>
#include <vector>

class QHBoxLayout;
class QLabel;
class QToolButton;

namespace tessary {

class ErrorDetails;

/// One step that a banner offers.
struct BannerAction {
    QString title;
    std::function<void()> run;
};

struct BannerMessage {
    enum class Kind { information, warning, error };
    Kind kind = Kind::information;
    ErrorText words{};
    std::vector<BannerAction> actions{};
    bool canBeClosed = true;
    std::function<void()> closed{}; ///< by the user
};

/// A strip below the files that says what is wrong and what to do about it.
class StatusBanner : public QFrame {
    Q_OBJECT

public:
    explicit StatusBanner(QWidget* parent = nullptr);

    /// Shows a message in place of the one before.
    void show(const BannerMessage& message);
    void clear();

protected:
    void changeEvent(QEvent* event) override;

private:
    void close();
    void makeButtons();
    void applyColours();

    QLabel* icon_;
    QLabel* text_;
    QLabel* advice_;
    ErrorDetails* details_;
    QHBoxLayout* buttons_;
    QToolButton* close_;
    BannerMessage message_;
};

} // namespace tessary
