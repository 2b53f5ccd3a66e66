#include "views/window/WindowSession.h"

#include "views/common/WindowStateStore.h"
#include "views/tabs/Tabs.h"
#include "views/window/MainWindow.h"
#include "views/window/Panes.h"

#include <QCoreApplication>
#include <QJsonObject>

#include <algorithm>

namespace tessary {

namespace {

using Field = QLatin1StringView;

QJsonObject written(MainWindow& window) {
    QJsonArray tabs;
    qsizetype shown = 0;
    for (const PhoneTab* tab : window.tabs().all()) {
        const auto place = tab->place();
        if (!place)
            continue;
        if (tab == &window.tab())
            shown = tabs.size();
        tabs.append(place->toJson());
    }
    QJsonObject json{{Field("tabs"), tabs}, {Field("shown"), shown}};
    if (const auto folder = window.panes().localFolder())
        json.insert(Field("beside"), *folder);
    return json;
}

std::vector<TabPlace> placesOf(const QJsonObject& window) {
    std::vector<TabPlace> places;
    for (const QJsonValue& tab : window.value(Field("tabs")).toArray())
        if (const auto place = TabPlace::fromJson(tab.toObject());
            place && places.size() < WindowSession::mostTabs)
            places.push_back(*place);
    return places;
}

void openTabs(MainWindow& window, const std::vector<TabPlace>& places, qsizetype shown) {
    // Each is opened beside the one that is shown: the last ones first.
    for (std::size_t i = places.size(); i-- > 1;)
        window.openTab(places[i], false);
    const auto& tabs = window.tabs().all();
    window.tabs().show(*tabs[static_cast<std::size_t>(
        std::clamp<qsizetype>(shown, 0, static_cast<qsizetype>(tabs.size()) - 1))]);
}

} // namespace

WindowSession::WindowSession(MainWindow& first, SettingsStore& defaults)
    : first_(first), defaults_(defaults) {
    connect(&first, &MainWindow::quitting, this, [this] { isOver_ = true; });
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { isOver_ = true; });
}

void WindowSession::reopen() {
    MainWindow* window = nullptr;
    qsizetype count = 0;
    if (!defaults_.value(WindowStateStore::isOffKey).toBool())
        for (const QJsonValue& each : defaults_.value(WindowStateStore::openTabsKey).toArray()) {
            const QJsonObject json = each.toObject();
            const std::vector<TabPlace> places = placesOf(json);
            const QJsonValue beside = json.value(Field("beside"));
            if ((places.empty() && !beside.isString()) || ++count > mostWindows)
                continue;
            const TabPlace front = places.empty() ? TabPlace() : places.front();
            if (window != nullptr)
                window = &window->openWindow(front);
            else
                first_.tab().open(front);
            window = window == nullptr ? &first_ : window;
            openTabs(*window, places, json.value(Field("shown")).toInteger());
            if (beside.isString())
                window->panes().split(beside.toString());
        }
    connect(&first_, &MainWindow::placesChanged, this, &WindowSession::keep);
}

/// The last window that closes is what comes back: without one there is nothing to keep.
void WindowSession::keep() {
    if (isOver_ || defaults_.value(WindowStateStore::isOffKey).toBool())
        return;
    QJsonArray now;
    for (MainWindow* window : first_.allWindows())
        if (window->isVisible())
            now.append(written(*window));
    if (now.isEmpty() || now == kept_)
        return;
    kept_ = now;
    defaults_.setValue(WindowStateStore::openTabsKey, now);
}

} // namespace tessary
