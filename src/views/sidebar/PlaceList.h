#pragma once

#include <QListView>

class QLabel;
class QRubberBand;

namespace tessary {

class EntryDrop;
class PlaceListModel;

/// Says a text in the language of the interface.
using Words = QString (*)();

/// One section of the sidebar: a heading, and rows that take no more room than they need. Without
/// rows it is gone, unless it has a hint to show in their place.
class PlaceList : public QWidget {
    Q_OBJECT

public:
    /// `model` must outlive it.
    PlaceList(Words heading, PlaceListModel& model, Words hint = nullptr);

    [[nodiscard]] QListView& view() const {
        return *view_;
    }
    /// What makes the rows targets of drops; beside them its model takes what it can. It must
    /// outlive this.
    void setDrops(const EntryDrop& drops);
    /// Marks a row, or none.
    void mark(const QModelIndex& index);

Q_SIGNALS:
    /// By a click or a key.
    void chosen(const QModelIndex& index);
    /// `where` is on the screen; the row may be invalid.
    void menuRequested(const QModelIndex& index, const QPoint& where);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void fit();
    [[nodiscard]] QModelIndex targetAt(const QPoint& position) const;
    [[nodiscard]] bool handleDrag(QEvent& event);

    PlaceListModel& model_;
    QListView* view_;
    QLabel* hint_;
    const bool hasHint_;
    const EntryDrop* drops_ = nullptr;
    QRubberBand* dropMark_;
};

/// The small heading above a section.
[[nodiscard]] QWidget* makeSectionHeading(Words text);

} // namespace tessary
