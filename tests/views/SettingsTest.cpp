#include "WindowFixture.h"
#include "app/LanguageManager.h"
#include "support/TranslationFile.h"
#include "views/settings/FileSettings.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// Every text of a window that can be seen or heard.
QStringList textsOf(const QWidget& window) {
    QStringList texts{window.windowTitle()};
    for (const QAction* action : window.findChildren<QAction*>())
        texts << action->text() << action->toolTip();
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (const auto* menu = qobject_cast<const QMenu*>(widget))
            texts << menu->title();
        if (!widget->isVisible())
            continue;
        texts << widget->accessibleName() << widget->toolTip();
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            texts << label->text();
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            texts << button->text();
        if (const auto* line = qobject_cast<const QLineEdit*>(widget))
            texts << line->placeholderText();
        if (const auto* tabs = qobject_cast<const QTabWidget*>(widget))
            for (int i = 0; i < tabs->count(); ++i)
                texts << tabs->tabText(i);
        if (const auto* header = qobject_cast<const QHeaderView*>(widget))
            for (int i = 0; i < header->count(); ++i)
                texts << header->model()->headerData(i, Qt::Horizontal).toString();
        if (const auto* view = qobject_cast<const QAbstractItemView*>(widget);
            view != nullptr && view->model() != nullptr)
            for (int row = 0; row < view->model()->rowCount(); ++row)
                for (int column = 0; column < view->model()->columnCount(); ++column)
                    texts << view->model()->index(row, column).data().toString();
    }
    return texts;
}

/// Which of these texts are English although the language has others for them.
QStringList leftInEnglish(const QStringList& texts, AppLanguage language) {
    QSet<QString> fine;
    QSet<QString> wrong;
    for (const TranslatedText& text : translationsOf(language)) {
        for (const QString& form : text.forms)
            fine.insert(form);
        wrong.insert(text.source);
    }
    QStringList left;
    for (const QString& text : texts)
        if (wrong.contains(text) && !fine.contains(text))
            left.append(text);
    return left;
}

class SettingsTest : public WindowFixture {
protected:
    [[nodiscard]] QWidget* settings() const {
        return window_->findChild<QWidget*>(u"settingsWindow"_s);
    }
    void openSettings() {
        press(Qt::Key_Comma, Qt::ControlModifier);
        ASSERT_TRUE(wait([this] { return settings() != nullptr && settings()->isVisible(); }));
        settings()->activateWindow();
        ASSERT_TRUE(wait([this] { return QApplication::activeWindow() == settings(); }));
    }
    void addPair() {
        SyncPair pair;
        pair.deviceUDID = phone_.info.udid;
        pair.deviceName = pair.appName = u"Phone"_s;
        pair.localFolderPath = local_.path();
        app_->syncManager().addSyncPair(pair);
    }
    [[nodiscard]] QTabWidget& tabs() const {
        return *settings()->findChild<QTabWidget*>();
    }
};

TEST_F(SettingsTest, everyLanguageReachesEveryTextOfTheOpenWindows) {
    openFolder();
    press(Qt::Key_A, Qt::ControlModifier);
    openSettings();
    QSet<QString> titles;
    auto& box = *settings()->findChild<QComboBox*>(u"language"_s);
    for (int choice = 0; choice < box.count(); ++choice) {
        box.setCurrentIndex(choice);
        const AppLanguage language = LanguageManager::shared().selectedLanguage();
        if (language == AppLanguage::system)
            continue;
        SCOPED_TRACE(rawValue(language).toStdString());
        titles.insert(settings()->windowTitle());
        if (language == AppLanguage::en)
            continue;
        EXPECT_THAT(leftInEnglish(textsOf(*window_), language), testing::IsEmpty());
        for (int i = 0; i < tabs().count(); ++i) {
            tabs().setCurrentIndex(i);
            EXPECT_THAT(leftInEnglish(textsOf(*settings()), language), testing::IsEmpty());
        }
    }
    EXPECT_EQ(titles.size(), 8); // Spanish and Portuguese have one word, as have ja and zh-Hant
}

TEST_F(SettingsTest, whatBecomesOfFilesIsTheUsersChoice) {
    openSettings();
    const auto choose = [this](const char* name, int choice) {
        auto* box = settings()->findChild<QComboBox*>(QString::fromLatin1(name));
        box->setCurrentIndex(choice);
        Q_EMIT box->activated(choice);
    };
    choose("fileClick", static_cast<int>(FileClick::copies));
    choose("newPhonesView", 1);
    defaults_->setValue(downloadFolderKey, local_.path(u"kept"_s));
    (void)QDir().mkpath(local_.path(u"kept"_s));
    settings()->close();
    activate();
    openFolder();
    doubleClick(u"alpha.txt"_s);
    EXPECT_TRUE(wait([this] { return local_.read(u"kept/alpha.txt"_s) == "a"; })) << "unasked";
    EXPECT_TRUE(opened_.isEmpty());
    PluggedPhone other(bus_, phoneConfig("OTHER", "1-2"));
    other.write(u"here.txt"_s, "here");
    chooseOtherPhone();
    EXPECT_TRUE(wait([this] { return window_->browser().viewMode() == ViewMode::grid; }));
    for (const QJsonValue& nonsense : {QJsonValue(-4), QJsonValue(u"x"_s)}) {
        defaults_->setValue(fileClickKey, nonsense);
        EXPECT_EQ(fileClickOf(*defaults_), FileClick::opens);
    }
    close();
}

/// Controls without a name for those who do not see them.
QStringList namelessIn(const QWidget& window) {
    QStringList nameless;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const bool isControl = widget->focusPolicy() != Qt::NoFocus ||
                               qobject_cast<QAbstractButton*>(widget) != nullptr ||
                               qobject_cast<QProgressBar*>(widget) != nullptr ||
                               qobject_cast<QComboBox*>(widget) != nullptr;
        if (!widget->isVisible() || !isControl || widget->window() != &window)
            continue;
        const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
        if (spoken == nullptr || spoken->text(QAccessible::Name).isEmpty())
            nameless.append(u"%1 \"%2\" in %3"_s.arg(
                QString::fromLatin1(widget->metaObject()->className()), widget->objectName(),
                widget->parentWidget()->objectName()));
    }
    return nameless;
}

/// What the Tab key does not reach in a window, of what takes keys.
QStringList notReachedIn(QWidget& window) {
    QSet<const QWidget*> reached;
    QWidget* first = QApplication::focusWidget();
    for (QWidget* focus = first; focus != nullptr && !reached.contains(focus);
         focus = QApplication::focusWidget()) {
        reached.insert(focus);
        QTest::keyClick(focus, Qt::Key_Tab,
                        qobject_cast<QPlainTextEdit*>(focus) != nullptr ? Qt::ControlModifier
                                                                        : Qt::NoModifier);
    }
    QStringList left;
    for (const QWidget* widget : window.findChildren<QWidget*>())
        if (widget->isVisible() && widget->isEnabled() && widget->window() == &window &&
            (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->focusProxy() == nullptr &&
            !reached.contains(widget))
            left.append(u"%1 \"%2\""_s.arg(QString::fromLatin1(widget->metaObject()->className()),
                                           widget->objectName()));
    return left;
}

/// Buttons that take no keys are commands of a menu, which has them for who uses the keyboard.
QStringList buttonsForTheMouseAlone(const MainWindow& window) {
    QList<QAction*> inMenus;
    for (const QMenu* menu : window.menuBar()->findChildren<QMenu*>())
        inMenus += menu->actions();
    QStringList left;
    for (const QToolButton* button : window.findChildren<QToolButton*>())
        if (button->isVisible() && button->isEnabled() && button->focusPolicy() == Qt::NoFocus &&
            button->defaultAction() != nullptr && !inMenus.contains(button->defaultAction()))
            left.append(button->accessibleName());
    return left;
}

TEST_F(SettingsTest, nothingIsReachedByTheMouseAlone) {
    openFolder();
    press(Qt::Key_F3);
    ASSERT_TRUE(wait([this] { return window_->findChild<QWidget*>(u"localPane"_s) != nullptr; }));
    table().setFocus();
    EXPECT_THAT(notReachedIn(*window_), testing::IsEmpty());
    EXPECT_THAT(buttonsForTheMouseAlone(*window_), testing::IsEmpty());
    EXPECT_THAT(namelessIn(*window_), testing::IsEmpty());
    press(Qt::Key_F3);
    press(Qt::Key_T, Qt::ControlModifier); // and with it the bar of tabs
    addPair();
    window_->choice().showPhone();
    EXPECT_THAT(notReachedIn(*window_), testing::IsEmpty());
    EXPECT_THAT(namelessIn(*window_), testing::IsEmpty());
    window_->choice().openImport();
    ASSERT_TRUE(
        wait([this] { return window_->import().state() != ImportViewModel::State::looking; }));
    EXPECT_THAT(notReachedIn(*window_), testing::IsEmpty());
    EXPECT_THAT(namelessIn(*window_), testing::IsEmpty());
    openSettings();
    for (int i = 0; i < tabs().count(); ++i) {
        tabs().setCurrentIndex(i);
        tabs().tabBar()->setFocus();
        EXPECT_THAT(notReachedIn(*settings()), testing::IsEmpty()) << "tab " << i;
        EXPECT_THAT(namelessIn(*settings()), testing::IsEmpty()) << "tab " << i;
    }
    settings()->close();
    const std::function<void()> dialogs[] = {[this] { window_->showCopyHistory(); },
                                             [this] { window_->showWireless(); },
                                             [this] { press(Qt::Key_F1); }};
    for (const auto& open : dialogs) {
        activate();
        open();
        QWidget* dialog = nullptr;
        ASSERT_TRUE(wait([&] {
            for (QDialog* each : window_->findChildren<QDialog*>())
                if (each->isVisible())
                    dialog = each;
            if (dialog != nullptr)
                dialog->activateWindow();
            return dialog != nullptr && QApplication::focusWidget() != nullptr &&
                   QApplication::focusWidget()->window() == dialog;
        }));
        EXPECT_THAT(namelessIn(*dialog), testing::IsEmpty());
        EXPECT_THAT(notReachedIn(*dialog), testing::IsEmpty())
            << dialog->objectName().toStdString();
        dialog->close();
    }
}

TEST_F(SettingsTest, everyControlHasAnAccessibleName) {
    app_->favoritesManager().toggleFavorite(phone_.info.udid, u"Camera"_s, u"/sdcard/DCIM"_s);
    openFolder();
    window_->browser().setSearchText(u"alpha"_s); // shows the field's button
    click(u"alpha.txt"_s);
    press(Qt::Key_D, Qt::ControlModifier);
    ASSERT_TRUE(wait([this] { return !window_->copyQueue().jobs().empty(); }));
    EXPECT_THAT(namelessIn(*window_), testing::IsEmpty());
    press(Qt::Key_2, Qt::ControlModifier);
    window_->browser().setSearchText(u"no such name"_s);
    EXPECT_THAT(namelessIn(*window_), testing::IsEmpty());
    phone_.android.unplug();
    ASSERT_TRUE(
        wait([this] { return window_->findChild<QWidget*>(u"welcomeView"_s)->isVisible(); }));
    EXPECT_THAT(namelessIn(*window_), testing::IsEmpty());
}

} // namespace
} // namespace tessary
