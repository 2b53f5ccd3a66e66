#pragma once

#include <QObject>
#include <QTranslator>

namespace tessary {

/// Puts the texts of LanguageManager::shared()'s language into the application, and those of each
/// language that is chosen later: our own, which are built in, and Qt's (the file chooser, the menu
/// of a text field), as far as the machine has them. Without one, texts are the English ones of the
/// sources. Lives on the main thread, within the application's life.
class InterfaceTexts : public QObject {
public:
    InterfaceTexts();

private:
    void follow();

    QTranslator own_;
    QTranslator qt_;
};

} // namespace tessary
