#include "views/settings/SettingsWindow.h"

#include "app/LanguageManager.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/common/WindowStateStore.h"
#include "views/settings/FileSettings.h"
#include "views/sync/SyncPairList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tessary {

namespace {

enum Tab { generalTab, syncTab, updatesTab, aboutTab };

constexpr int margin = 22; // pixels around a page

/// A page, and its only column.
std::pair<QWidget*, QVBoxLayout*> makePage() {
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(12);
    return {page, column};
}

} // namespace

SettingsWindow::SettingsWindow(TessaryApp& app, SyncViewModel& sync, WindowStateStore& memory,
                               QWidget* parent)
    : QDialog(parent),
      app_(app),
      memory_(memory),
      tabs_(new QTabWidget),
      languageLabel_(new QLabel),
      language_(new QComboBox),
      languageNote_(makeNote()),
      remember_(new QCheckBox),
      compare_(new QCheckBox),
      compareNote_(makeNote()),
      autoCheck_(new QCheckBox),
      check_(new QPushButton),
      version_(new QLabel),
      aboutVersion_(new QLabel),
      aboutWords_(makeNote()),
      homepage_(new QPushButton) {
    setObjectName(QStringLiteral("settingsWindow"));
    setMinimumSize(560, 400);
    auto [syncPage, syncColumn] = makePage();
    syncColumn->addWidget(new SyncPairList(sync), 1);
    tabs_->addTab(makeGeneral(), icon("configure"), QString());
    tabs_->addTab(syncPage, icon("folder-sync"), QString());
    tabs_->addTab(makeUpdates(), icon("view-refresh"), QString());
    tabs_->addTab(makeAbout(), icon("help-about"), QString());
    auto* column = new QVBoxLayout(this);
    column->addWidget(tabs_);

    connect(&app.updateChecker(), &UpdateCheckerService::stateChanged, this,
            &SettingsWindow::showState);
    connect(&LanguageManager::shared(), &LanguageManager::selectedLanguageChanged, this,
            &SettingsWindow::showState);
    tabs_->setTabVisible(updatesTab, app.updateChecker().canCheck());
    homepage_->setVisible(app.updateChecker().hasHomepage());
    for (QPushButton* button : {check_, homepage_})
        button->setAutoDefault(false); // Return belongs to the control that has the focus
    tabs_->tabBar()->setFocus();
    keepTranslated(this, [this] { showTexts(); });
}

QWidget* SettingsWindow::makeGeneral() {
    for (const AppLanguage language : allAppLanguages)
        language_->addItem(displayName(language), static_cast<int>(language));
    language_->setObjectName(QStringLiteral("language"));
    language_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    languageLabel_->setBuddy(language_);
    connect(language_, &QComboBox::currentIndexChanged, this, [this] {
        LanguageManager::shared().setSelectedLanguage(
            static_cast<AppLanguage>(language_->currentData().toInt()));
    });
    connect(remember_, &QCheckBox::clicked, this, [this](bool on) { memory_.setOn(on); });
    compare_->setObjectName(QStringLiteral("compareCopies"));
    connect(compare_, &QCheckBox::clicked, this,
            [this](bool on) { app_.defaults().setValue(BrowserCopies::comparesKey, on); });

    auto [page, column] = makePage();
    auto* form = new QFormLayout;
    form->setHorizontalSpacing(16);
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    form->addRow(languageLabel_, language_);
    column->addLayout(form);
    column->addWidget(languageNote_);
    column->addSpacing(8);
    column->addWidget(new FileSettings(app_.defaults()));
    column->addSpacing(8);
    column->addWidget(remember_);
    column->addSpacing(8);
    column->addWidget(compare_);
    column->addWidget(compareNote_);
    column->addStretch(1);
    return page;
}

QWidget* SettingsWindow::makeUpdates() {
    UpdateCheckerService& checker = app_.updateChecker();
    connect(autoCheck_, &QCheckBox::clicked, this,
            [&checker](bool on) { checker.setChecksAutomatically(on); });
    connect(check_, &QPushButton::clicked, this, [&checker] { checker.checkForUpdates(true); });
    auto [page, column] = makePage();
    column->addWidget(version_);
    column->addWidget(autoCheck_);
    column->addSpacing(4);
    column->addWidget(check_, 0, Qt::AlignLeft);
    column->addStretch(1);
    return page;
}

QWidget* SettingsWindow::makeAbout() {
    constexpr int pictureSide = 72;
    auto* picture = new QLabel;
    picture->setPixmap(icon("tessaryPicture").pixmap(pictureSide, pictureSide));
    auto* name = new QLabel(QStringLiteral("Tessary"));
    name->setFont(demiBold(scaled(name->font(), 1.8)));
    connect(homepage_, &QPushButton::clicked, this,
            [this] { app_.updateChecker().openHomepage(); });
    auto [page, column] = makePage();
    column->addStretch(1);
    for (QLabel* label : {picture, name, aboutVersion_, aboutWords_}) {
        label->setAlignment(Qt::AlignCenter);
        column->addWidget(label);
    }
    column->addSpacing(8);
    column->addWidget(homepage_, 0, Qt::AlignHCenter);
    column->addStretch(2);
    return page;
}

void SettingsWindow::showTexts() {
    setLocale(QLocale());
    setWindowTitle(tr("Settings"));
    tabs_->setAccessibleName(tr("Settings"));
    tabs_->tabBar()->setAccessibleName(tr("Settings"));
    tabs_->setTabText(generalTab, tr("General"));
    tabs_->setTabText(syncTab, tr("Sync"));
    tabs_->setTabText(updatesTab, tr("Updates"));
    tabs_->setTabText(aboutTab, tr("About"));
    languageLabel_->setText(tr("Language"));
    language_->setAccessibleName(tr("Language"));
    language_->setItemText(0, tr("System Default"));
    languageNote_->setText(
        tr("Choose your preferred display language. Changes apply immediately."));
    remember_->setText(tr("Open the window as it was left"));
    compare_->setText(tr("Compare each copy with its original"));
    compareNote_->setText(
        tr("A copy counts only once it was read again and found to be the same. This takes "
           "longer."));
    autoCheck_->setText(tr("Automatically check for updates"));
    check_->setText(tr("Check for Updates…"));
    const QString version =
        QStringLiteral("%1 %2").arg(tr("Version"), app_.updateChecker().currentVersion());
    version_->setText(version);
    aboutVersion_->setText(version);
    aboutWords_->setText(tr("Browse phones and copy files to and from them."));
    homepage_->setText(tr("Website"));
    showState();
}

void SettingsWindow::showState() {
    language_->setCurrentIndex(
        language_->findData(static_cast<int>(LanguageManager::shared().selectedLanguage())));
    remember_->setChecked(memory_.isOn());
    compare_->setChecked(app_.defaults().value(BrowserCopies::comparesKey).toBool());
    autoCheck_->setChecked(app_.updateChecker().checksAutomatically());
    check_->setEnabled(!app_.updateChecker().isChecking());
}

} // namespace tessary
