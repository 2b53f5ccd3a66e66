#pragma once

#include <QColor>
#include <QString>
#include <QWidget>

#include <vector>

namespace tessary {

/// A storage as a bar: what fills it, piece by piece, and below it what each piece is.
class UseBar : public QWidget {
    Q_OBJECT

public:
    struct Piece {
        QString name;
        qint64 bytes = 0;
        QColor colour; ///< not valid: the ground shows, as for what is free

        bool operator==(const Piece&) const = default;
    };

    UseBar();

    /// Pieces of no bytes are not shown.
    void setPieces(std::vector<Piece> pieces);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override {
        return true;
    }
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] static QString textOf(const Piece& piece);
    [[nodiscard]] std::vector<QRect> legend(int width) const;

    std::vector<Piece> pieces_;
};

} // namespace tessary
