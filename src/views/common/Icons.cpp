#include "views/common/Icons.h"

#include <QGuiApplication>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

#include <array>
#include <utility>

/// Outside of any namespace, as the macro wants it.
static void useOwnPictures() {
    Q_INIT_RESOURCE(icons);
}

namespace tessary {

namespace {

/// A theme's drawing of one colour, in that of the text: the theme's own fits one ground only.
class LineIconEngine : public QIconEngine {
public:
    explicit LineIconEngine(QIcon drawing) : drawing_(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State state) override {
        const qreal ratio = painter->device()->devicePixelRatio();
        const QPixmap drawn = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
        QRectF place(QPointF(), QSizeF(drawn.size()) / ratio);
        place.moveCenter(QRectF(rect).center());
        painter->drawPixmap(place, drawn, drawn.rect());
    }
    [[nodiscard]] QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn = drawing_.pixmap(size, 1, QIcon::Normal, state);
        if (drawn.isNull())
            return drawn;
        const QPalette colours = QGuiApplication::palette();
        QPainter painter(&drawn);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(drawn.rect(),
                         mode == QIcon::Disabled
                             ? colours.color(QPalette::Disabled, QPalette::WindowText)
                             : colours.color(mode == QIcon::Selected ? QPalette::HighlightedText
                                                                     : QPalette::WindowText));
        return drawn;
    }
    [[nodiscard]] QIconEngine* clone() const override {
        return new LineIconEngine(*this);
    }

private:
    const QIcon drawing_;
};

} // namespace

QIcon icon(const QString& name) {
    return QIcon::fromTheme(name);
}

QIcon icon(const char* name) {
    return icon(QString::fromLatin1(name));
}

QIcon lineIcon(const QString& name) {
    const QString symbolic = name + QLatin1StringView("-symbolic");
    if (!QIcon::hasThemeIcon(symbolic))
        return icon(name);
    return QIcon(new LineIconEngine(QIcon::fromTheme(symbolic)));
}

QIcon fileIcon(const QString& name) {
    constexpr int smallest = 64;
    constexpr std::array sizes{smallest, 96, 256};
    static QHash<QString, QIcon> drawn;
    const QString key = name + QLatin1Char(' ') + QIcon::themeName();
    auto found = drawn.constFind(key);
    if (found == drawn.constEnd()) {
        QIcon all;
        for (const int size : sizes) {
            // Among thumbnails, which fill theirs, it has some room around it.
            const int side = size == smallest ? size : size * 2 / 3;
            const QPixmap drawing = icon(name).pixmap(side, side);
            const qreal ratio = drawing.devicePixelRatio();
            QPixmap picture(QSize(size, size) * ratio);
            picture.setDevicePixelRatio(ratio);
            picture.fill(Qt::transparent);
            const QSizeF room = QSizeF(size, size) - drawing.deviceIndependentSize();
            QPainter(&picture).drawPixmap(QPointF(room.width(), room.height()) / 2, drawing);
            all.addPixmap(picture);
            // On the ground of a selected row, in which it would vanish in its own colour or
            // tinted.
            QPainter lighter(&picture);
            lighter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
            lighter.fillRect(picture.rect(), QColor(255, 255, 255, 110));
            lighter.end();
            all.addPixmap(picture, QIcon::Selected);
        }
        found = drawn.insert(key, all);
    }
    return *found;
}

void setUpIconTheme() {
    const bool isDark = QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
    const QString fallback = isDark ? QStringLiteral("breeze-dark") : QStringLiteral("breeze");
    QIcon::setFallbackThemeName(fallback);
    useOwnPictures();
    QIcon::setFallbackSearchPaths(
        {isDark ? QStringLiteral(":/icons/dark") : QStringLiteral(":/icons/light")});
    // Without a desktop there is no theme at all, and the fall-back alone is not searched.
    const QString theme = QIcon::themeName();
    if (theme.isEmpty() || theme == QLatin1StringView("hicolor") ||
        theme.startsWith(QLatin1StringView("breeze")))
        QIcon::setThemeName(fallback);
}

} // namespace tessary
