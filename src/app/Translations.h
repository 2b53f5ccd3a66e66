#pragma once

#include "app/AppLanguage.h"

#include <QHash>
#include <QString>

#include <map>

namespace tessary {

/// The built-in texts of the interface. Keys are dotted identifiers ("browser.retry") or the
/// English text itself. The tables stand in translations/window/ and translations/messages/, one
/// file a language; a new key is added to each file of its folder.
class Translations {
public:
    using Texts = QHash<QString, QString>;

    /// By language, `system` excepted. Made on first use; thread-safe.
    [[nodiscard]] static const std::map<AppLanguage, Texts>& dictionary();
};

/// The text for a key in the language of the interface, in English where that language has none,
/// and the key itself where there is none at all. For the main thread.
[[nodiscard]] QString tr(const QString& key);

/// The same for a literal key.
[[nodiscard]] QString tr(const char* key);

/// The words of a lower layer in the language of the interface. These hold names and details:
/// "Cannot read /a/b: no such file", "The phone is busy. (0x2019)". What is not known stays as it
/// is. For the main thread.
[[nodiscard]] QString trMessage(const QString& message);

} // namespace tessary
