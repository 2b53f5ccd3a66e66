#include "app/LanguageManager.h"
#include "tour/Tour.h"
#include "views/dialogs/WirelessDialog.h"
#include "views/settings/SettingsWindow.h"

#include <QApplication>
#include <QListWidget>
#include <QPalette>
#include <QTabWidget>

namespace tessary {

using namespace Qt::StringLiterals;

namespace {

/// As a desktop with a dark scheme sets it.
QPalette darkPalette() {
    const QColor window(42, 46, 50);
    const QColor base(27, 30, 32);
    const QColor text(252, 252, 252);
    QPalette dark(text, window, window.lighter(150), base, window.lighter(120), text, text, base,
                  window);
    dark.setColor(QPalette::AlternateBase, QColor(35, 38, 41));
    dark.setColor(QPalette::ToolTipBase, window);
    dark.setColor(QPalette::ToolTipText, text);
    dark.setColor(QPalette::PlaceholderText, QColor(161, 169, 177));
    dark.setColor(QPalette::Highlight, QColor(34, 110, 160));
    dark.setColor(QPalette::HighlightedText, text);
    dark.setColor(QPalette::Link, QColor(29, 153, 243));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, QColor(111, 115, 119));
    return dark;
}

} // namespace

void tourSettings(TourStage& stage) {
    MainWindow& window = stage.window();
    window.showSettings();
    auto* settings = window.findChild<SettingsWindow*>();
    for (const char* name : {"general", "sync", "updates", "about"}) {
        stage.shoot(u"settings-"_s + QString::fromLatin1(name));
        settings->tabs().setCurrentIndex(settings->tabs().currentIndex() + 1);
    }
    settings->tabs().setCurrentIndex(0);
    settings->hide();
}

void tourWireless(TourStage& stage) {
    MainWindow& window = stage.window();
    window.showWireless();
    auto* dialog = window.findChild<WirelessDialog*>();
    stage.waitFor("the phones on the network",
                  [&] { return dialog->phones().phones().size() == 2; });
    dialog->findChild<QListWidget*>()->setCurrentRow(0);
    stage.shoot(u"wireless-devices"_s);
    dialog->hide();
}

void tourLanguages(TourStage& stage) {
    MainWindow& window = stage.window();
    LanguageManager& languages = LanguageManager::shared();
    stage.open(u"/sdcard"_s);
    for (const AppLanguage language : {AppLanguage::de, AppLanguage::ja}) {
        languages.setSelectedLanguage(language);
        stage.shoot(u"language-"_s + rawValue(language));
        window.showSettings();
        stage.shoot(u"settings-"_s + rawValue(language));
        window.findChild<SettingsWindow*>()->hide();
    }
    languages.setSelectedLanguage(AppLanguage::system);
}

void tourDark(TourStage& stage) {
    MainWindow& window = stage.window();
    QApplication::setPalette(darkPalette());
    stage.selectNamed({u"Documents"_s});
    stage.shoot(u"dark-list"_s);
    window.choice().showPhone();
    stage.shoot(u"dark-phone"_s);
    stage.browser().goBack();
    stage.open(u"/sdcard/DCIM/Camera"_s);
    stage.browser().setViewMode(ViewMode::grid);
    stage.shoot(u"dark-grid"_s);
    stage.browser().setViewMode(ViewMode::list);
    window.showSettings();
    stage.shoot(u"dark-settings"_s);
    window.findChild<SettingsWindow*>()->hide();
    QApplication::setPalette(QPalette());
}

} // namespace tessary
