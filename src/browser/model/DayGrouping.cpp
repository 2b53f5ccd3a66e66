#include "browser/model/DayGrouping.h"

#include "browser/model/FileBrowserViewModel.h"

namespace tessary {

DayGrouping::DayGrouping(FileBrowserViewModel& browser, FileRows& rows)
    : browser_(browser), rows_(rows) {
    rows.setDayRule([this](const FileListing& listing) { return isGrouped(listing); });
    connect(&browser, &FileBrowserViewModel::viewModeChanged, this, &DayGrouping::follow);
    connect(&browser, &FileBrowserViewModel::searchedNameChanged, this, &DayGrouping::changed);
    connect(&browser, &FileBrowserViewModel::pathChanged, this, &DayGrouping::changed);
    connect(&browser, &FileBrowserViewModel::stateChanged, this, &DayGrouping::changed);
}

void DayGrouping::follow() {
    rows_.dayRuleChanged();
    Q_EMIT changed();
}

bool DayGrouping::isOffered() const {
    return browser_.viewMode() == ViewMode::grid && browser_.searchedName().isEmpty() &&
           browser_.files() != nullptr;
}

bool DayGrouping::isOn() const {
    return rows_.groupsByDay();
}

bool DayGrouping::isGrouped(const FileListing& listing) const {
    return isOffered() && chosen().value_or(listing.isAlbum());
}

/// The same folder over whichever way it is reached.
QString DayGrouping::folder() const {
    const auto& device = browser_.activeDevice();
    const QString place = device ? device->udid : browser_.files()->identity();
    const bool isInApp = device && device->platform == DevicePlatform::iOS;
    return QStringList{place, isInApp ? browser_.appName() : QString(), browser_.currentPath()}
        .join(QLatin1Char('\n'));
}

std::optional<bool> DayGrouping::chosen() const {
    const QString wanted = folder();
    for (const QJsonValue& choice : choices_)
        if (choice[0].toString() == wanted)
            return choice[1].toBool();
    return std::nullopt;
}

void DayGrouping::setOn(bool on) {
    if (!isOffered() || isOn() == on)
        return;
    const QString wanted = folder();
    QJsonArray choices{QJsonArray{wanted, on}};
    for (const QJsonValue& choice : std::as_const(choices_))
        if (choices.size() < mostChoices && choice[0].toString() != wanted)
            choices.append(choice);
    choices_ = choices;
    follow();
    Q_EMIT choicesChanged();
}

void DayGrouping::restore(const QJsonArray& choices) {
    choices_ = {};
    for (const QJsonValue& choice : choices)
        if (choices_.size() < mostChoices && choice[0].isString() && choice[1].isBool())
            choices_.append(choice);
    follow();
}

} // namespace tessary
