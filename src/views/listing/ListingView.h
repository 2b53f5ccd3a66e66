#pragma once

#include "browser/model/FileBrowserViewModel.h"
#include "views/listing/FileViews.h"
#include "views/listing/RubberBand.h"

#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

namespace tessary {

/// What the files' table and grid do alike, on the view of Qt's that each of them is: drags, frames
/// that select, and letters that lead to a name.
template <typename View>
class ListingView : public View {
public:
    void keyboardSearch(const QString& search) override {
        browser_.selection().type(search);
    }

protected:
    /// `browser` outlives the view.
    ListingView(FileBrowserViewModel& browser, RubberBand::Touched touched, QWidget* parent)
        : View(parent), browser_(browser), band_(*this, std::move(touched)) {}

    /// Whether a press there takes hold of an entry; elsewhere a frame begins.
    [[nodiscard]] virtual bool isHold(const QPoint& place) const = 0;

    /// Behind what goes, the keyboard is on the entry that comes next; Qt would go back by one.
    void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) override {
        const QModelIndex current = this->currentIndex();
        if (current.row() >= first && current.row() <= last && last + 1 < this->model()->rowCount())
            this->selectionModel()->setCurrentIndex(current.siblingAtRow(last + 1),
                                                    QItemSelectionModel::NoUpdate);
        View::rowsAboutToBeRemoved(parent, first, last);
    }
    /// Where nothing is selected, the first arrow takes the entry that has the frame; Qt would pass
    /// it by.
    void keyPressEvent(QKeyEvent* event) override {
        const QModelIndex current = this->currentIndex();
        const bool isArrow = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
        const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
        if (isArrow && isPlain && current.isValid() && !this->selectionModel()->hasSelection())
            this->setCurrentIndex(current);
        else
            View::keyPressEvent(event);
    }
    void mousePressEvent(QMouseEvent* event) override {
        dropSelectionBeside(*this, *event);
        if (event->button() == Qt::LeftButton && !isHold(event->position().toPoint()))
            band_.press(*event);
        View::mousePressEvent(event);
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        if (!band_.move(*event))
            View::mouseMoveEvent(event);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (!band_.release())
            View::mouseReleaseEvent(event);
    }
    void startDrag(Qt::DropActions) override {
        dragSelected(*this, browser_);
    }

    FileBrowserViewModel& browser_;
    RubberBand band_;
};

} // namespace tessary
