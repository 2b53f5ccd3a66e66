#include "views/settings/FileSettings.h"

#include "app/LanguageManager.h"
#include "base/text/Printable.h"
#include "devices/list/DeviceManager.h"
#include "views/common/WindowStateStore.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>

#include <algorithm>

namespace tessary {

namespace {

enum FolderChoice { asks, isFixed, chooses };

} // namespace

FileClick fileClickOf(const SettingsStore& defaults) {
    return static_cast<FileClick>(
        std::clamp(defaults.value(fileClickKey).toInt(), 0, static_cast<int>(FileClick::copies)));
}

FileSettings::FileSettings(SettingsStore& defaults)
    : defaults_(defaults),
      form_(new QFormLayout(this)),
      folder_(addChoice("downloadFolder", 3)),
      click_(addChoice("fileClick", 3)),
      view_(addChoice("newPhonesView", 2)),
      turbo_(addChoice("automaticTurbo", 2)) {
    form_->setContentsMargins(0, 0, 0, 0);
    form_->setHorizontalSpacing(16);
    form_->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    click_->setCurrentIndex(static_cast<int>(fileClickOf(defaults)));
    view_->setCurrentIndex(defaults.value(WindowStateStore::newDevicesInGridKey).toBool() ? 1 : 0);
    turbo_->setCurrentIndex(defaults.value(DeviceManager::turboByChoiceKey).toBool() ? 1 : 0);
    connect(turbo_, &QComboBox::activated, this, [this](int choice) {
        defaults_.setValue(DeviceManager::turboByChoiceKey, choice == 1);
    });
    connect(folder_, &QComboBox::activated, this, &FileSettings::takeFolder);
    connect(click_, &QComboBox::activated, this,
            [this](int choice) { defaults_.setValue(fileClickKey, choice); });
    connect(view_, &QComboBox::activated, this, [this](int choice) {
        defaults_.setValue(WindowStateStore::newDevicesInGridKey, choice == 1);
    });
    keepTranslated(this, [this] { showTexts(); });
}

QComboBox* FileSettings::addChoice(const char* name, int count) {
    auto* box = new QComboBox;
    box->setObjectName(QString::fromLatin1(name));
    box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    for (int i = 0; i < count; ++i)
        box->addItem(QString());
    auto* label = new QLabel;
    label->setBuddy(box);
    form_->addRow(label, box);
    return box;
}

void FileSettings::showTexts() {
    const auto set = [this](QComboBox* box, const QString& name) {
        qobject_cast<QLabel*>(form_->labelForField(box))->setText(name);
        box->setAccessibleName(name);
    };
    set(folder_, tr("Copies from a phone go to"));
    set(click_, tr("A double click on a file"));
    set(view_, tr("A new phone's files are shown"));
    set(turbo_, tr("Turbo mode is used"));
    folder_->setItemText(asks, tr("A folder that is asked for"));
    folder_->setItemText(chooses, tr("Choose…"));
    click_->setItemText(static_cast<int>(FileClick::opens), tr("opens it"));
    click_->setItemText(static_cast<int>(FileClick::previews), tr("shows a preview"));
    click_->setItemText(static_cast<int>(FileClick::copies), tr("copies it to this computer"));
    view_->setItemText(0, tr("in a list"));
    view_->setItemText(1, tr("as pictures"));
    turbo_->setItemText(0, tr("with every phone that allows it"));
    turbo_->setItemText(1, tr("only where it was chosen"));
    showFolder();
}

void FileSettings::takeFolder(int choice) {
    if (choice == asks) {
        defaults_.setValue(downloadFolderKey, QJsonValue::Undefined);
    } else if (choice == chooses || defaults_.value(downloadFolderKey).toString().isEmpty()) {
        const QString folder = QFileDialog::getExistingDirectory(
            this, tr("Copies from a phone go to"), defaults_.value(downloadFolderKey).toString());
        if (!folder.isEmpty())
            defaults_.setValue(downloadFolderKey, folder);
    }
    showFolder();
}

void FileSettings::showFolder() {
    const QString folder = defaults_.value(downloadFolderKey).toString();
    folder_->setItemText(isFixed, folder.isEmpty() ? tr("Always the same folder")
                                                   : printable(QDir::toNativeSeparators(folder)));
    folder_->setCurrentIndex(folder.isEmpty() ? asks : isFixed);
}

} // namespace tessary
