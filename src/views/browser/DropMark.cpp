#include "views/browser/DropMark.h"

#include "base/text/PathNames.h"
#include "browser/model/FileListModel.h"

#include <QAbstractItemView>
#include <QDropEvent>
#include <QStackedWidget>
#include <QTreeView>

#include <utility>

namespace tessary {

DropMark::DropMark(FileBrowserViewModel& browser, const EntryDrop& drops,
                   std::function<QAbstractItemView*()> listing, QStackedWidget& pages)
    : QRubberBand(QRubberBand::Rectangle, &pages),
      browser_(browser),
      drops_(drops),
      listing_(std::move(listing)),
      pages_(pages) {}

bool DropMark::follow(QDropEvent& event) {
    const DropFolder folder = folderUnder(event.position().toPoint());
    if (!drops_.consider(event, folder)) {
        hide();
        return false;
    }
    const FileItem* entry = browser_.itemWithId(folder.id);
    QRect place = pages_.rect();
    if (entry != nullptr) {
        const QAbstractItemView& view = *listing_();
        const auto& model = *static_cast<const FileListModel*>(view.model());
        place = view.visualRect(model.indexOf(folder.id));
        if (qobject_cast<const QTreeView*>(&view) != nullptr)
            place.setWidth(view.viewport()->width());
        place.moveTopLeft(view.viewport()->mapTo(&pages_, place.topLeft()));
    }
    setGeometry(place);
    show();
    raise();
    targetName_ = entry != nullptr ? entry->name : lastComponent(browser_.currentPath());
    return true;
}

DropFolder DropMark::folderUnder(const QPoint& position) const {
    if (!pages_.geometry().contains(position))
        return {};
    const QAbstractItemView& view = *listing_();
    if (pages_.currentWidget() == &view) {
        const QPoint spot = view.viewport()->mapFrom(pages_.parentWidget(), position);
        const QModelIndex index = view.indexAt(spot).siblingAtColumn(FileListModel::nameColumn);
        const FileItem* entry = browser_.itemWithId(index.data(FileListModel::idRole).toString());
        if (entry != nullptr && entry->isDirectory)
            return {entry->path, entry->id()};
    }
    return {browser_.currentPath(), {}};
}

} // namespace tessary
