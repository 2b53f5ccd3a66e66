#pragma once

#include <QImage>
#include <QWidget>

namespace tessary {

/// A picture in the middle of its room, made to fit and never larger than it is.
class PictureView : public QWidget {
    Q_OBJECT

public:
    explicit PictureView(QWidget* parent = nullptr);

    /// A null image for none.
    void setImage(const QImage& image);
    [[nodiscard]] const QImage& image() const {
        return image_;
    }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QImage image_;
    QPixmap shown_; ///< of the size that fits now; null until it is painted
};

} // namespace tessary
