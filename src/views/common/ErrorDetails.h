#pragma once

#include <QString>
#include <QWidget>

class QLabel;
class QToolButton;

namespace tessary {

/// The protocol's numbers behind a failure, for whoever asks for help: folded until the user wants
/// to see them, and then to be copied. Not there at all where there are none.
class ErrorDetails : public QWidget {
    Q_OBJECT

public:
    /// `alignment` is that of the words above: to the left, or in the middle.
    explicit ErrorDetails(Qt::Alignment alignment, QWidget* parent = nullptr);

    /// ErrorText::details; what is new begins folded.
    void setText(const QString& details);

private:
    void unfold(bool isOpen);

    QToolButton* fold_;
    QWidget* page_;
    QLabel* text_;
};

} // namespace tessary
