#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <vector>

class QHBoxLayout;
class QToolButton;

namespace tessary {

class EntryDrop;
class PathEdit;

struct Breadcrumb {
    QString name;
    QString path;

    bool operator==(const Breadcrumb&) const = default;
};

/// The path of the folder being shown, root first; each part leads there. When there is too little
/// room the parts after the root give way to a menu. A click beside the parts makes the path a
/// text to be edited.
class BreadcrumbBar : public QWidget {
    Q_OBJECT

public:
    /// What typing a path asks of its surroundings.
    struct Typing {
        std::function<QString()> path; ///< to begin with
        std::function<QStringList(const QString& typed)> complete;
        std::function<void(const QString& typed)> enter;
        std::function<void()> changed; ///< what was entered before counts no more
        std::function<void()> ended;
    };

    explicit BreadcrumbBar(QWidget* parent = nullptr);

    void setPath(std::vector<Breadcrumb> path);
    /// Called with the path of a part that was chosen.
    void setOnChosen(std::function<void(const QString&)> onChosen) {
        onChosen_ = std::move(onChosen);
    }
    void setTyping(Typing typing) {
        typing_ = std::move(typing);
    }
    /// What makes the parts targets of drops; null for none. It must outlive the bar.
    void setDrops(const EntryDrop* drops) {
        drops_ = drops;
    }
    /// Shows the path as a text with the focus in it.
    void startTyping();
    /// Shows the parts again.
    void stopTyping();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void rebuild();
    void addPart(const Breadcrumb& part, bool isLast, int mostWidth);
    void addOverflow(std::size_t first, std::size_t end);
    void addSeparator();
    void showTarget(QToolButton* part);
    [[nodiscard]] QToolButton* partAt(const QPoint& position) const;
    [[nodiscard]] int widthOf(const Breadcrumb& part) const;

    QHBoxLayout* layout_;
    std::vector<Breadcrumb> path_;
    std::function<void(const QString&)> onChosen_;
    Typing typing_;
    const EntryDrop* drops_ = nullptr;
    QToolButton* target_ = nullptr; ///< of the drag that is over it
    PathEdit* edit_ = nullptr;      ///< while a path is being typed
};

} // namespace tessary
