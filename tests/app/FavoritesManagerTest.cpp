#include "app/favorites/FavoritesManager.h"
#include "platform/settings/MemorySettingsStore.h"
#include "support/QtPrinters.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QSignalSpy>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

const QString key = FavoritesManager::settingsKey;
const QString phone = u"PHONE"_s;
const QString other = u"OTHER"_s;
const QString app = u"com.example.notes"_s;

class FavoritesManagerTest : public testing::Test {
protected:
    void add(const QString& device, const QString& path) {
        favorites_.addFavorite(device, path.section(u'/', -1), path);
    }
    [[nodiscard]] static QString paths(const std::vector<DeviceFavorite>& list) {
        QStringList all;
        for (const DeviceFavorite& favorite : list)
            all.append(favorite.path);
        return all.join(u' ');
    }
    [[nodiscard]] std::vector<DeviceFavorite> stored() const {
        return FavoritesManager(store_).favorites(phone);
    }

    std::shared_ptr<SettingsStore> store_ = std::make_shared<MemorySettingsStore>();
    FavoritesManager favorites_{store_};
};

TEST_F(FavoritesManagerTest, storedSettingsOfAnyShapeStartWithAnEmptyList) {
    add(phone, u"/A"_s);
    const QJsonObject good = store_->value(key).toArray().at(0).toObject();
    const auto with = [&](const char* field, const QJsonValue& value) {
        QJsonObject changed = good;
        changed.insert(QString::fromLatin1(field), value);
        return QJsonValue(QJsonArray{good, changed});
    };
    const std::pair<const char*, QJsonValue> rows[] = {
        {"a text", u"[]"_s},
        {"a number in the list", QJsonArray{good, 1}},
        {"no device", with("deviceUDID", QJsonValue::Undefined)},
        {"a path that is a list", with("path", QJsonArray())},
        {"an id that is none", with("id", u"12"_s)},
        {"a date beyond all dates", with("createdAt", 1e300)},
    };
    QString aside = key + u".damaged"_s;
    int number = 1;
    for (const auto& [name, value] : rows) {
        store_->setValue(key, value);
        FavoritesManager manager(store_);
        EXPECT_TRUE(manager.favorites(phone).empty()) << name;
        manager.addFavorite(phone, QString(), u"/new"_s);
        EXPECT_EQ(paths(stored()), u"/new"_s) << name;
        EXPECT_EQ(store_->value(aside), value) << name << ": nothing of it is lost";
        aside = key + u".damaged-%1"_s.arg(++number);
    }
    store_->setValue(key, with("appName", QJsonValue::Null));
    EXPECT_EQ(stored().size(), 2u);
}

TEST_F(FavoritesManagerTest, aDeletedFolderTakesTheFavoritesBelowItAlong) {
    for (const char* path : {"/A/B", "/A/B/", "/A/B/C", "/A/BC", "/A", "/"})
        add(phone, QString::fromLatin1(path));
    add(other, u"/A/B"_s);
    favorites_.addFavorite(phone, QString(), u"/A/B"_s, app);
    const QSignalSpy changed(&favorites_, &FavoritesManager::favoritesChanged);
    favorites_.removeFavorites(u"/A/B"_s, phone, std::nullopt);
    EXPECT_EQ(paths(favorites_.favorites(phone)), u"/A/BC /A / /A/B"_s);
    EXPECT_EQ(favorites_.favorites(other).size(), 1u);
    EXPECT_EQ(changed.size(), 1);
    favorites_.removeFavorites(u"/none"_s, phone, std::nullopt);
    EXPECT_EQ(changed.size(), 1);
    favorites_.removeFavorites(u"/"_s, phone, std::nullopt);
    EXPECT_EQ(paths(favorites_.favorites(phone)), u"/A/B"_s);
    EXPECT_EQ(stored(), favorites_.favorites(phone));
}

} // namespace
