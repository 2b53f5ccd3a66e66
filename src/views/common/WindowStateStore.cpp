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

WindowStateStore::WindowStateStore(Parts parts, UserDefaults& defaults)
    : QObject(&parts.window), parts_(parts), defaults_(defaults) {
    setObjectName(QStringLiteral("windowStateStore"));
    restoreWindow();
    parts.window.installEventFilter(this);
    FileBrowserViewModel& browser = parts.browser;
    connect(&browser, &FileBrowserViewModel::connectionChanged, this,
            &WindowStateStore::showDevice);
    connect(&browser, &FileBrowserViewModel::viewModeChanged, this, &WindowStateStore::keepDevice);
    connect(&browser, &FileBrowserViewModel::sortOrderChanged, this, &WindowStateStore::keepDevice);
    connect(&parts.columns, &TableColumns::choicesChanged, this, &WindowStateStore::keepColumns);
    connect(&browser.dayGrouping(), &DayGrouping::choicesChanged, this,
            &WindowStateStore::keepDays);
}

bool WindowStateStore::isOn() const {
    return !defaults_.value(isOffKey).toBool();
}

void WindowStateStore::setOn(bool on) {
    defaults_.setValue(isOffKey, on ? QJsonValue(QJsonValue::Undefined) : QJsonValue(true));
    if (on) {
        keepWindow();
        keepDevice();
        keepColumns();
        keepDays();
        return;
    }
    for (const View key : {windowKey, columnsKey, daysKey, devicesKey})
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
    parts_.browser.setShowsHidden(kept.value(View("hidden")).toBool());
    if (const int side = kept.value(View("pictures")).toInt(); side > 0)
        parts_.browser.setPictureSide(side);
    if (kept.value(View("maximized")).toBool())
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
    if (const int sidebar = kept.value(View("sidebar")).toInt(); sidebar > 0) {
        const int inAll = window.width();
        const int bounded = std::min(sidebar, inAll / 2);
        parts_.split.setSizes({bounded, inAll - bounded});
    }
    parts_.columns.restore(defaults_.value(columnsKey).toObject());
    parts_.browser.dayGrouping().restore(defaults_.value(daysKey).toArray());
}

void WindowStateStore::keepColumns() {
    if (isOn())
        defaults_.setValue(columnsKey, parts_.columns.choices());
}

void WindowStateStore::keepDays() {
    if (isOn())
        defaults_.setValue(daysKey, parts_.browser.dayGrouping().choices());
}

void WindowStateStore::keepWindow() {
    if (!isOn())
        return;
    const QMainWindow& window = parts_.window;
    const bool isMaximized = window.isMaximized();
    const QSize size = isMaximized ? window.normalGeometry().size() : window.size();
    defaults_.setValue(windowKey, QJsonObject{{View("width"), size.width()},
                                              {View("height"), size.height()},
                                              {View("maximized"), isMaximized},
                                              {View("hidden"), parts_.browser.showsHidden()},
                                              {View("pictures"), parts_.browser.pictureSide()},
                                              {View("sidebar"), parts_.split.sizes().value(0)}});
}

void WindowStateStore::showDevice() {
    const auto& device = parts_.browser.activeDevice();
    if (!device || device->udid == udid_)
        return;
    udid_ = device->udid;
    const bool isInGrid = defaults_.value(newDevicesInGridKey).toBool();
    QJsonObject kept{{View("view"), isInGrid ? QJsonValue(QString(gridName)) : QJsonValue()}};
    for (const QJsonValue& entry : defaults_.value(devicesKey).toArray())
        if (isOn() && entry.toObject().value(View("device")).toString() == udid_)
            kept = entry.toObject();
    const QScopedValueRollback restoring(isRestoring_, true);
    const int column = std::clamp(kept.value(View("column")).toInt(), 0, fieldsInAll - 1);
    parts_.browser.setSortOrder(
        {{static_cast<FileField>(column), kept.value(View("descending")).toBool()}});
    parts_.browser.setViewMode(kept.value(View("view")).toString() == gridName ? ViewMode::grid
                                                                               : ViewMode::list);
}

void WindowStateStore::keepDevice() {
    if (isRestoring_ || udid_.isEmpty() || !isOn())
        return;
    QJsonArray devices{written(parts_.browser, udid_)};
    for (const QJsonValue& entry : defaults_.value(devicesKey).toArray())
        if (devices.size() < mostDevices && entry.isObject() &&
            entry.toObject().value(View("device")).toString() != udid_)
            devices.append(entry);
    defaults_.setValue(devicesKey, devices);
}

} // namespace tessary
