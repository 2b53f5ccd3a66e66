#pragma once

#include <QJsonObject>
#include <QObject>

#include <functional>
#include <vector>

class QAction;
class QHeaderView;
class QMenu;
class QTreeView;

namespace tessary {

/// A column beside the first one, which is always shown.
struct TableColumn {
    int column = 0;
    QLatin1StringView name;            ///< in the settings
    int width = 100;                   ///< pixels, until the user wants another
    int room = 0;                      ///< pixels of a table that shows it
    bool isChoosable = true;           ///< the menu has it
    std::function<bool()> isOffered{}; ///< empty: always
};

/// The columns of a table: which are shown, how wide and in what order. The first one takes the
/// room that the others leave. An edge between two moves, and nothing else: what one gets, the next
/// one gives; what the last one gives stays free. On the main thread.
class TableColumns : public QObject {
    Q_OBJECT

public:
    /// Of a view with its model; it must outlive this.
    TableColumns(QTreeView& view, std::vector<TableColumn> columns);

    /// The user's choice of columns; also the header's menu.
    [[nodiscard]] QMenu& menu() const {
        return *menu_;
    }
    /// The view has another width, or other columns are offered.
    void fit();

    /// What the user made of them, for his settings.
    [[nodiscard]] QJsonObject choices() const;
    /// Takes over what choices() gave; it may be anything.
    void restore(const QJsonObject& choices);

Q_SIGNALS:
    void choicesChanged();

private:
    struct Shown {
        TableColumn column;
        bool isWanted = true;
        QAction* choice = nullptr; ///< null for one that cannot be chosen
    };
    void makeMenu();
    void resized(int column);
    void fitFirst();
    [[nodiscard]] int nextTo(int column) const;
    [[nodiscard]] Shown* of(int column);

    QTreeView& view_;
    QHeaderView& header_;
    QMenu* menu_;
    std::vector<Shown> columns_;
    int free_ = 0; ///< pixels that stay empty after the last one where there is room
    bool isFitting_ = false;
};

} // namespace tessary
