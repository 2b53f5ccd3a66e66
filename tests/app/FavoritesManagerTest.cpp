#include "app/favorites/FavoritesManager.h"
#include "platform/settings/MemoryUserDefaults.h"
#include "support/QtPrinters.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QSignalSpy>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tessary;
using Result = FavoritesManager::AddFavoriteResult;

namespace {

const QString key = FavoritesManager::userDefaultsKey;
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
        return FavoritesManager(store_).favorites();
    }

    std::shared_ptr<UserDefaults> store_ = std::make_shared<MemoryUserDefaults>();
    FavoritesManager favorites_{store_};
};

TEST_F(FavoritesManagerTest, aFolderIsAddedOncePerDeviceAndApp) {
    const QString path = u"/DCIM"_s;
    EXPECT_EQ(favorites_.addFavorite(phone, u"DCIM"_s, path), Result::added);
    EXPECT_EQ(favorites_.addFavorite(phone, u"Again"_s, path), Result::duplicate);
    EXPECT_EQ(favorites_.addFavorite(phone, u"DCIM"_s, path, app), Result::added);
    EXPECT_EQ(favorites_.addFavorite(other, u"DCIM"_s, path), Result::added);
    EXPECT_EQ(favorites_.favorites(phone).size(), 2u);
    EXPECT_FALSE(favorites_.isFavorite(other, path, app));

    EXPECT_EQ(favorites_.toggleFavorite(phone, QString(), path), std::nullopt);
    EXPECT_TRUE(favorites_.isFavorite(phone, path, app));
    EXPECT_EQ(favorites_.toggleFavorite(phone, u"DCIM"_s, path), Result::added);
    EXPECT_EQ(stored(), favorites_.favorites());
}

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
        EXPECT_TRUE(manager.favorites().empty()) << name;
        manager.addFavorite(phone, QString(), u"/new"_s);
        EXPECT_EQ(paths(stored()), u"/new"_s) << name;
        EXPECT_EQ(store_->value(aside), value) << name << ": nothing of it is lost";
        aside = key + u".damaged-%1"_s.arg(++number);
    }
    store_->setValue(key, with("appName", QJsonValue::Null));
    EXPECT_EQ(stored().size(), 2u);
}

TEST_F(FavoritesManagerTest, draggingReordersOneDeviceAndLeavesTheOthers) {
    const std::tuple<const char*, std::set<int>, int, const char*> rows[] = {
        // name, from, to, after
        {"down", {0}, 2, "/b /a /c /d"},       {"to the end", {0}, 4, "/b /c /d /a"},
        {"around", {0, 3}, 2, "/b /a /d /c"},  {"onto itself", {1}, 1, "/a /b /c /d"},
        {"beyond", {0, 9}, 99, "/b /c /d /a"}, {"before", {1, -4}, -1, "/b /a /c /d"},
    };
    for (const auto& [name, from, to, after] : rows) {
        SCOPED_TRACE(name);
        store_->setValue(key, QJsonValue::Undefined);
        FavoritesManager manager(store_);
        for (const char* path : {"/a", "/b", "/c", "/d"}) {
            manager.addFavorite(phone, QString(), QString::fromLatin1(path));
            manager.addFavorite(other, QString(), QString::fromLatin1(path));
        }
        manager.moveFavorites(phone, from, to);
        EXPECT_EQ(paths(manager.favorites(phone)), QString::fromLatin1(after));
        EXPECT_EQ(paths(manager.favorites(other)), u"/a /b /c /d"_s);
        EXPECT_EQ(stored(), manager.favorites());
    }
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
    EXPECT_EQ(stored(), favorites_.favorites());
}

} // namespace
