#pragma once

#include <QHash>
#include <QObject>
#include <QString>

#include <optional>

namespace tessary {

/// What the desktop calls files by their names ("PDF document"), in the language of the interface.
/// Its list is read in the background once. Lives on the main thread.
class FileKinds : public QObject {
    Q_OBJECT

public:
    explicit FileKinds(QObject* parent = nullptr);

    /// No value while the list is read, and for what it does not know.
    [[nodiscard]] std::optional<QString> kindOf(const QString& fileName);

Q_SIGNALS:
    void changed(); ///< they are known now, or in another language

private:
    bool isRead_ = false;
    QHash<QString, QString> byEnding_; ///< empty texts for what is not known
};

} // namespace tessary
