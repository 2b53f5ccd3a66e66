#pragma once

#include "browser/listing/FileSortOrder.h"
#include "phone/records/FileItem.h"

#include <QHash>
#include <QLocale>
#include <QString>

#include <limits>
#include <memory>
#include <vector>

namespace tessary {

/// In what order the entries of a folder are shown.
struct RowOrder {
    FileSortOrder columns{{FileField::name, false}};
    /// Those of one day stand together, the last day first unless the order is by ascending dates.
    bool byDay = false;

    bool operator==(const RowOrder&) const = default;
};

/// Which of them.
struct RowFilter {
    QString text{}; ///< what names contain; blanks around it do not count, nor does case
    bool withHidden = false;
};

/// The entries of one folder with everything worked out that filtering, sorting and looking up
/// need, so that each is quick even for a hundred thousand. Immutable; made in the background,
/// then used from any thread.
class FileListing {
public:
    /// Takes a listing as it came. Entries that came twice are dropped; different ones that share
    /// an id get an id of their own. `locale` decides order and case.
    [[nodiscard]] static std::shared_ptr<const FileListing> make(std::vector<FileItem> items,
                                                                 const QLocale& locale);

    [[nodiscard]] const std::vector<FileItem>& items() const {
        return items_;
    }
    [[nodiscard]] const FileItem& item(int index) const {
        return items_[static_cast<std::size_t>(index)];
    }
    [[nodiscard]] int size() const {
        return static_cast<int>(items_.size());
    }
    [[nodiscard]] const QString& id(int index) const {
        return keys_[static_cast<std::size_t>(index)].id;
    }
    [[nodiscard]] bool isFolder(int index) const {
        return isFolder_[static_cast<std::size_t>(index)];
    }
    /// Whether its name begins with a dot. Names that no honest phone gives ("..") are shown.
    [[nodiscard]] bool isHidden(int index) const {
        const QString& name = item(index).name;
        return name.startsWith(QLatin1Char('.')) && name != QLatin1StringView(".") &&
               name != QLatin1StringView("..");
    }
    [[nodiscard]] int hiddenCount() const {
        return hiddenCount_;
    }
    /// -1 for an id that is not in the listing.
    [[nodiscard]] int indexOf(const QString& id) const {
        return indexes_.value(id, -1);
    }
    /// Null when there is none.
    [[nodiscard]] const FileItem* itemWithId(const QString& id) const {
        const int index = indexOf(id);
        return index < 0 ? nullptr : &item(index);
    }
    /// The day that a file was modified on here, as QDate counts them; noDay for folders and for
    /// what has no date.
    [[nodiscard]] qint64 day(int index) const {
        return days_[static_cast<std::size_t>(index)];
    }
    static constexpr qint64 noDay = std::numeric_limits<qint64>::min();
    /// Whether most of its files are pictures or films, and so many of a day, as in the folders of
    /// a camera, that to group them by days makes sense.
    [[nodiscard]] bool isAlbum() const {
        return isAlbum_;
    }
    /// A text in the form in which names are compared without regard to case.
    [[nodiscard]] QString folded(const QString& text) const;
    [[nodiscard]] const QString& foldedName(int index) const {
        return keys_[static_cast<std::size_t>(index)].foldedName;
    }

    /// The indexes of all entries, in order.
    [[nodiscard]] std::vector<int> ordered(const RowOrder& order) const;
    /// Those of some indexes that are wanted, in the order in which they came.
    [[nodiscard]] std::vector<int> chosen(const std::vector<int>& from,
                                          const RowFilter& filter) const;

private:
    struct Key {
        QString id;
        QString foldedName;
    };

    FileListing(std::vector<FileItem> items, const QLocale& locale);
    void giveIds();
    void orderNames();
    void findDays();
    /// What each entry counts for in an order by `field`, at its index.
    [[nodiscard]] std::vector<qint64> valuesOf(FileField field) const;

    std::vector<FileItem> items_;
    std::vector<Key> keys_;      ///< of the entry at the same index
    std::vector<bool> isFolder_; ///< whether the entry at the same index is one
    std::vector<qint64> days_;   ///< see day()
    std::vector<int> byName_;    ///< indexes in order of name
    QHash<QString, int> indexes_;
    int hiddenCount_ = 0;
    bool isAlbum_ = false;
    QLocale locale_;
};

} // namespace tessary
