#pragma once

#include <QWidget>

#include <functional>

namespace tessary {

/// What is shown while no phone is attached: how to attach one, and a way to try the program.
class WelcomeView : public QWidget {
    Q_OBJECT

public:
    /// `startDemo` starts the program again with virtual phones.
    explicit WelcomeView(std::function<void()> startDemo, QWidget* parent = nullptr);
};

} // namespace tessary
