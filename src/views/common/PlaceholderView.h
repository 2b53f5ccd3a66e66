#pragma once

#include <QWidget>

#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;

namespace tessary {

class ErrorDetails;

/// A picture and a few words where there are no files to show, with a step or two to take.
class PlaceholderView : public QWidget {
public:
    explicit PlaceholderView(QWidget* parent = nullptr);

    /// Without an `action` there is no button; `isBusy` shows that something is under way.
    void show(const QString& iconName, const QString& title, const QString& detail,
              const QString& actionTitle = {}, const std::function<void()>& action = {},
              bool isBusy = false);
    /// Until the next show(): ErrorText::details of what is said.
    void setDetails(const QString& details);
    /// Until the next show(): another step, after the first.
    void addChoice(const QString& title, const std::function<void()>& action);

private:
    QLabel* picture_;
    QLabel* title_;
    QLabel* detail_;
    ErrorDetails* details_;
    QPushButton* button_;
    QPushButton* other_;
    QProgressBar* busy_;
};

} // namespace tessary
