#include "views/browser/SortMenu.h"

#include "app/LanguageManager.h"
#include "browser/model/FileBrowserViewModel.h"
#include "views/common/Icons.h"

#include <QAbstractItemModel>
#include <QActionGroup>

namespace tessary {

SortMenu::SortMenu(FileBrowserViewModel& browser, const QAbstractItemModel& columns,
                   QWidget* parent)
    : QMenu(parent), browser_(browser), columns_(columns) {
    setIcon(tessary::icon("view-sort"));
    const auto addChoice = [this](QActionGroup& group, auto chosen) {
        QAction* action = addAction(QString());
        action->setCheckable(true);
        group.addAction(action);
        connect(action, &QAction::triggered, this, chosen);
        return action;
    };
    auto* by = new QActionGroup(this);
    for (const FileField field :
         {FileField::name, FileField::size, FileField::modified, FileField::kind})
        fields_.push_back(addChoice(*by, [this, field] { choose({field, order().descending}); }));
    addSeparator();
    auto* directions = new QActionGroup(this);
    ascending_ = addChoice(*directions, [this] { choose({order().field, false}); });
    descending_ = addChoice(*directions, [this] { choose({order().field, true}); });
    connect(&browser, &FileBrowserViewModel::sortOrderChanged, this, &SortMenu::showOrder);
    keepTranslated(this, [this] {
        setTitle(tr("Sort By"));
        ascending_->setText(tr("Ascending"));
        descending_->setText(tr("Descending"));
        for (std::size_t i = 0; i < fields_.size(); ++i)
            fields_[i]->setText(
                columns_.headerData(static_cast<int>(i), Qt::Horizontal).toString());
    });
    showOrder();
}

FileComparator SortMenu::order() const {
    return browser_.sortOrder().empty() ? FileComparator() : browser_.sortOrder().front();
}

void SortMenu::choose(const FileComparator& order) {
    browser_.setSortOrder({order});
}

void SortMenu::showOrder() {
    const auto field = static_cast<std::size_t>(order().field);
    if (field < fields_.size())
        fields_[field]->setChecked(true);
    (order().descending ? descending_ : ascending_)->setChecked(true);
}

} // namespace tessary
