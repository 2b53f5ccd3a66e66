#include "views/common/WindowStateStore.h"

#include "views/common/TableColumns.h"

#include <QEvent>
#include <QJsonArray>
#include <QJsonObject>
#include <QMainWindow>
#include <QScopedValueRollback>
#include <QScreen>
#include <QSplitter>

#include <algorithm>

namespace tessary {

namespace {

using View = QLatin1StringView;

constexpr int fieldsInAll = 4; // of FileField
constexpr View gridName("grid");
constexpr View listName("list");

QJsonObject written(const FileBrowserViewModel& browser, const QString& udid) {
    QJsonObject entry{{View("device"), udid},
                      {View("view"), browser.viewMode() == ViewMode::grid ? gridName : listName}};
    if (!browser.sortOrder().empty()) {
        entry.insert(View("column"), static_cast<int>(browser.sortOrder().front().field));
        entry.insert(View("descending"), browser.sortOrder().front().descending);
    }
    return entry;
}

} // namespace

WindowStateStore::WindowStateStore(Parts parts, SettingsStore& defaults)
    : QObject(&parts.window), parts_(std::move(parts)), defaults_(defaults) {
    setObjectName(QStringLiteral("windowStateStore"));
    restoreWindow();
    follow(parts_.shown());
    parts_.window.installEventFilter(this);
}

void WindowStateStore::addTab(Shown tab) {
    const Shown before = parts_.shown();
    tab.browser.setShowsHidden(before.browser.showsHidden());
    tab.browser.setPictureSide(before.browser.pictureSide());
    tab.columns.restore(before.columns.choices());
    tab.browser.dayGrouping().restore(before.browser.dayGrouping().choices());
    follow(tab);
}

void WindowStateStore::follow(Shown tab) {
    FileBrowserViewModel& browser = tab.browser;
    connect(&browser, &FileBrowserViewModel::connectionChanged, this,
            [this, &browser, udid = QString()]() mutable { showDevice(browser, udid); });
    for (auto signal :
         {&FileBrowserViewModel::viewModeChanged, &FileBrowserViewModel::sortOrderChanged})
        connect(&browser, signal, this, [this, &browser] { keepDevice(browser); });
    followColumns(tab.columns, columnsKey);
    connect(&browser.dayGrouping(), &DayGrouping::choicesChanged, this,
            [this, &browser] { keepDays(browser); });
}

void WindowStateStore::followColumns(TableColumns& columns, QLatin1StringView key) {
    connect(&columns, &TableColumns::choicesChanged, this, [this, &columns, key] {
        if (isOn())
            defaults_.setValue(key, columns.choices());
    });
}

void WindowStateStore::addLocal(TableColumns& columns) {
    if (isOn())
        columns.restore(defaults_.value(localColumnsKey).toObject());
    followColumns(columns, localColumnsKey);
}

bool WindowStateStore::isOn() const {
    return !defaults_.value(isOffKey).toBool();
}

void WindowStateStore::setOn(bool on) {
    defaults_.setValue(isOffKey, on ? QJsonValue(QJsonValue::Undefined) : QJsonValue(true));
    if (on) {
        const Shown tab = parts_.shown();
        keepWindow();
        keepDevice(tab.browser);
        defaults_.setValue(columnsKey, tab.columns.choices());
        keepDays(tab.browser);
        return;
    }
    for (const View key :
         {windowKey, columnsKey, localColumnsKey, daysKey, devicesKey, openTabsKey})
        defaults_.setValue(key, QJsonValue::Undefined);
}

bool WindowStateStore::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide && !event->spontaneous())
        keepWindow();
    return QObject::eventFilter(watched, event);
}

void WindowStateStore::restoreWindow() {
    if (!isOn())
        return;
    const QJsonObject kept = defaults_.value(windowKey).toObject();
    QMainWindow& window = parts_.window;
    const QSize room = window.screen()->availableSize();
    const QSize size(kept.value(View("width")).toInt(), kept.value(View("height")).toInt());
    if (!size.isEmpty())
        window.resize(size.boundedTo(room).expandedTo(window.minimumSize()));
    const Shown tab = parts_.shown();
    tab.browser.setShowsHidden(kept.value(View("hidden")).toBool());
    if (const int side = kept.value(View("pictures")).toInt(); side > 0)
        tab.browser.setPictureSide(side);
    if (kept.value(View("maximized")).toBool())
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
    if (const int sidebar = kept.value(View("sidebar")).toInt(); sidebar > 0) {
        const int inAll = window.width();
        const int bounded = std::min(sidebar, inAll / 2);
        parts_.split.setSizes({bounded, inAll - bounded});
    }
    tab.columns.restore(defaults_.value(columnsKey).toObject());
    tab.browser.dayGrouping().restore(defaults_.value(daysKey).toArray());
}

void WindowStateStore::keepDays(FileBrowserViewModel& browser) {
    if (isOn())
        defaults_.setValue(daysKey, browser.dayGrouping().choices());
}

void WindowStateStore::keepWindow() {
    if (!isOn())
        return;
    const Shown tab = parts_.shown();
    const QMainWindow& window = parts_.window;
    const bool isMaximized = window.isMaximized();
    const QSize size = isMaximized ? window.normalGeometry().size() : window.size();
    defaults_.setValue(windowKey, QJsonObject{{View("width"), size.width()},
                                              {View("height"), size.height()},
                                              {View("maximized"), isMaximized},
                                              {View("hidden"), tab.browser.showsHidden()},
                                              {View("pictures"), tab.browser.pictureSide()},
                                              {View("sidebar"), parts_.split.sizes().value(0)}});
}

/// `udid` is of the device that was shown last.
void WindowStateStore::showDevice(FileBrowserViewModel& browser, QString& udid) {
    const auto& device = browser.activeDevice();
    if (!device || device->udid == udid)
        return;
    udid = device->udid;
    const bool isInGrid = defaults_.value(newDevicesInGridKey).toBool();
    QJsonObject kept{{View("view"), isInGrid ? QJsonValue(QString(gridName)) : QJsonValue()}};
    for (const QJsonValue& entry : defaults_.value(devicesKey).toArray())
        if (isOn() && entry.toObject().value(View("device")).toString() == udid)
            kept = entry.toObject();
    const QScopedValueRollback restoring(isRestoring_, true);
    const int column = std::clamp(kept.value(View("column")).toInt(), 0, fieldsInAll - 1);
    browser.setSortOrder(
        {{static_cast<FileField>(column), kept.value(View("descending")).toBool()}});
    browser.setViewMode(kept.value(View("view")).toString() == gridName ? ViewMode::grid
                                                                        : ViewMode::list);
}

void WindowStateStore::keepDevice(const FileBrowserViewModel& browser) {
    const auto& device = browser.activeDevice();
    if (isRestoring_ || !device || !isOn())
        return;
    QJsonArray devices{written(browser, device->udid)};
    for (const QJsonValue& entry : defaults_.value(devicesKey).toArray())
        if (devices.size() < mostDevices && entry.isObject() &&
            entry.toObject().value(View("device")).toString() != device->udid)
            devices.append(entry);
    defaults_.setValue(devicesKey, devices);
}

} // namespace tessary
