#include "tour/TourStage.h"
#include "support/ShownItems.h"
#include "views/listing/ThumbnailStore.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPainter>
#include <QTest>
#include <QTimer>

#include <stdexcept>

namespace tessary {

namespace {

constexpr int stepLimit = 20'000; // ms that a step may take

/// What stands in front of the window; null when nothing does.
QWidget* openDialog(const QWidget& window) {
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    for (auto* dialog : window.findChildren<QDialog*>())
        if (dialog->isVisible())
            return dialog;
    return nullptr;
}

} // namespace

TourStage::TourStage(MainWindow& window, TourPhones& phones, const QString& folder)
    : window_(window), phones_(phones), folder_(folder) {
    if (!QDir().mkpath(folder_))
        throw std::runtime_error("the folder for the screenshots cannot be made");
    watch_.emplace();
}

void TourStage::waitFor(const char* what, const std::function<bool()>& condition) {
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > stepLimit)
            throw std::runtime_error(std::string("waited in vain for ") + what);
        QApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
        QEventLoop pause;
        QTimer::singleShot(10, &pause, &QEventLoop::quit);
        pause.exec();
    }
}

void TourStage::settle() {
    QEventLoop pause;
    QTimer::singleShot(settleTime, &pause, &QEventLoop::quit);
    pause.exec();
}

void TourStage::shootWhenOpen(const QString& name) {
    awaited_ = name;
    QTimer::singleShot(2 * settleTime, &window_, [this, name] {
        QWidget* front = QApplication::activePopupWidget() != nullptr
                             ? QApplication::activePopupWidget()
                             : QApplication::activeModalWidget();
        if (front == nullptr)
            return;
        awaited_.clear();
        shoot(name);
        front->close();
    });
}

void TourStage::shoot(const QString& name, QWidget& window) {
    if (!awaited_.isEmpty())
        throw std::runtime_error("nothing opened for " + awaited_.toStdString());
    settle();
    const QString file = QStringLiteral("%1/%2-%3.png")
                             .arg(folder_)
                             .arg(++number_, 2, 10, QLatin1Char('0'))
                             .arg(name);
    // A dialog stands in front of the window: both are in the picture.
    QPixmap picture = window.grab();
    if (QWidget* popup = QApplication::activePopupWidget()) {
        QPainter painter(&picture);
        painter.drawPixmap(window.mapFromGlobal(popup->pos()), popup->grab());
    } else if (QWidget* dialog = openDialog(window)) {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(picture.rect(), QColor(0, 0, 0, 70));
        const QPixmap front = dialog->grab();
        painter.drawPixmap((window.width() - dialog->width()) / 2,
                           (window.height() - dialog->height()) / 2, front);
    }
    if (!picture.save(file))
        throw std::runtime_error("cannot write " + file.toStdString());
    watch_->restart();
}

void TourStage::shootSmall(const QString& name) {
    const QSize size = window_.size();
    window_.resize(800, 500);
    shoot(name);
    window_.resize(size);
}

void TourStage::shootPictures(const QString& name, QAbstractItemView& view, const QWidget& page) {
    view.viewport()->repaint(); // what is painted is asked for
    waitFor("the thumbnails",
            [store = page.findChild<ThumbnailStore*>()] { return store->isIdle(); });
    shoot(name);
}

void TourStage::waitForFolder() {
    waitFor("a folder", [this] { return !browser().isLoading(); });
}

void TourStage::waitForCopy() {
    waitFor("a running copy", [this] {
        const auto& jobs = window_.copyQueue().jobs();
        return !jobs.empty() && jobs.back().fractionDone() > 0.25;
    });
}

void TourStage::endCopies() {
    phones_.setSpeed(0);
    waitFor("the end of the copies", [this] { return window_.copyQueue().summary().isIdle(); });
}

void TourStage::open(const QString& path) {
    browser().navigateTo(path);
    waitForFolder();
}

void TourStage::press(Qt::Key key, Qt::KeyboardModifiers keys) {
    waitFor("the keyboard", [this] { // there is no window manager that would give it back
        window_.activateWindow();
        return QApplication::activeWindow() == &window_;
    });
    listing().setFocus();
    QTest::keyClick(&listing(), key, keys);
}

void TourStage::selectNamed(const QStringList& names) {
    QSet<QString> ids;
    QString last;
    for (const FileItem& item : shownItems(browser()))
        if (names.contains(item.name))
            ids.insert(last = item.id());
    browser().selection().set(ids, last);
}

void TourStage::write(const QString& path, const QByteArray& content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        throw std::runtime_error("cannot write a file");
}

QString TourStage::writeSample(const QString& path, qint64 size) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !file.resize(size))
        throw std::runtime_error("cannot write a sample file");
    return path;
}

} // namespace tessary
