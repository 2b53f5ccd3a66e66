#pragma once

#include <QObject>
#include <QTranslator>

namespace tessary {

/// Qt's own texts (the buttons of questions, the file chooser) in the language of the interface, as
/// far as the machine has them. Lives on the main thread, with an application.
class QtTexts : public QObject {
public:
    QtTexts();

private:
    void follow();

    QTranslator translator_;
};

} // namespace tessary
