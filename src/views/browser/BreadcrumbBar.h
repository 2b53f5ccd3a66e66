#pragma once

#include <QString>
#include <QWidget>

#include <vector>

class QHBoxLayout;
class QLineEdit;
class QToolButton;

namespace tessary {

class EntryDrop;
class FileBrowserViewModel;

/// The path of the folder being shown, root first; each part leads there. When there is too little
/// room the parts after the root give way to a menu. A click beside the parts makes the path a
/// text to be edited.
class BreadcrumbBar : public QWidget {
    Q_OBJECT

public:
    /// `drops` makes the parts targets of drops. Both must outlive the bar.
    BreadcrumbBar(FileBrowserViewModel& browser, const EntryDrop& drops);

    /// Shows the path as a text with the focus in it.
    void startTyping();

Q_SIGNALS:
    /// The apps of an iPhone, where the path begins.
    void appsWanted();
    /// The user is done up here.
    void left();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Part {
        QString name;
        QString path; ///< empty for the apps

        bool operator==(const Part&) const = default;
    };

    void showPath();
    void choose(const QString& path);
    /// Shows the parts again.
    void stopTyping();
    void rebuild();
    void addPart(const Part& part, bool isLast, int mostWidth);
    void addOverflow(std::size_t first, std::size_t end);
    void addSeparator();
    void showTarget(QToolButton* part);
    [[nodiscard]] QToolButton* partAt(const QPoint& position) const;
    [[nodiscard]] int widthOf(const Part& part) const;

    FileBrowserViewModel& browser_;
    const EntryDrop& drops_;
    QHBoxLayout* layout_;
    std::vector<Part> path_;
    QToolButton* target_ = nullptr; ///< of the drag that is over it
    QLineEdit* edit_ = nullptr;     ///< while a path is being typed
};

} // namespace tessary
