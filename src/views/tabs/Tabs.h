#pragma once

#include <QStackedWidget>
#include <QTabBar>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <vector>

namespace tessary {

class PhoneTab;

/// The tabs of a window, of which there is always one. The bar is shown from two on; what is
/// dropped on a tab goes to the folder that it shows.
class Tabs : public QWidget {
    Q_OBJECT

public:
    using Make = std::function<PhoneTab*()>;

    explicit Tabs(Make make, QWidget* parent = nullptr);
    ~Tabs() override;

    [[nodiscard]] PhoneTab& current() const;
    [[nodiscard]] const std::vector<PhoneTab*>& all() const {
        return tabs_;
    }
    /// Adds a tab beside the current one, which stays.
    PhoneTab& add();
    void show(PhoneTab& tab);
    /// Shows the next one, or with -1 the one before; round and round.
    void step(int by);
    /// Ends a tab, whatever it does, unless it is the only one.
    void close(PhoneTab& tab);

Q_SIGNALS:
    void currentChanged();
    /// The user wants to be rid of a tab.
    void closeWanted(tessary::PhoneTab& tab);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    PhoneTab& insert(int index);
    void showTitle(const PhoneTab& tab);
    [[nodiscard]] PhoneTab& at(int index) const {
        return *tabs_[static_cast<std::size_t>(index)];
    }
    [[nodiscard]] int indexOf(const PhoneTab& tab) const;
    void handleDrag(QEvent& event);

    const Make make_;
    std::vector<PhoneTab*> tabs_; ///< in the order of the bar
    QTabBar* bar_;
    QStackedWidget* stack_;
    QTimer rest_;     ///< of something that is dragged, on a tab
    int rested_ = -1; ///< on which; -1: none
};

} // namespace tessary
