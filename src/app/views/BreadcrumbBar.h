#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

class QHBoxLayout;

namespace tessary {

struct Breadcrumb {
    QString name;
    QString path;
};

/// The path of the folder being shown, root first; each part leads there. When there is too little
/// room the parts after the root give way to a menu.
class BreadcrumbBar : public QWidget {
public:
    explicit BreadcrumbBar(QWidget* parent = nullptr);

    void setPath(std::vector<Breadcrumb> path);
    /// Called with the path of a part that was chosen.
    void setOnChosen(std::function<void(const QString&)> onChosen) {
        onChosen_ = std::move(onChosen);
    }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void rebuild();
    void addPart(const Breadcrumb& part, bool isLast);
    void addOverflow(std::size_t first, std::size_t end);
    void addSeparator();
    [[nodiscard]] int widthOf(const Breadcrumb& part) const;

    QHBoxLayout* layout_;
    std::vector<Breadcrumb> path_;
    std::function<void(const QString&)> onChosen_;
};

} // namespace tessary
