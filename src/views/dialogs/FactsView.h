#pragma once

#include "phone/records/FileItem.h"

#include <QDateTime>
#include <QLocale>
#include <QWidget>

#include <functional>
#include <optional>

class QLabel;
class QProgressBar;
class QPushButton;

namespace tessary {

/// An entry by its icon, name, kind, size and date, with a word on why there is no more to see, or
/// with the progress of what is being fetched.
class FactsView : public QWidget {
    Q_OBJECT

public:
    explicit FactsView(QWidget* parent = nullptr);

    void setItem(const FileItem& item);
    /// `note` may be empty.
    void showNote(const QString& note);
    /// Shows that the entry is being fetched: `done` of `total` bytes, or no figure with a total
    /// of 0.
    void showProgress(qint64 done, qint64 total);
    /// What the button beside the progress does.
    void setOnCancel(std::function<void()> cancel);

private:
    QLabel* icon_;
    QLabel* name_;
    QLabel* facts_;
    QLabel* note_;
    QProgressBar* progress_;
    QPushButton* cancel_;
};

/// "Image  ·  1.2 MB  ·  5/1/26  14:03".
[[nodiscard]] QString factsLine(const FileItem& item);

/// Date and time as people write them, without seconds; "--" for an unknown one.
[[nodiscard]] QString dateText(const std::optional<QDateTime>& date,
                               QLocale::FormatType days = QLocale::LongFormat,
                               const QLocale& locale = QLocale());

} // namespace tessary
