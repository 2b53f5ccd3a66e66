#include "simulator/content/DemoContent.h"

#include "simulator/content/DemoMedia.h"

#include <QDir>
#include <QFile>

#include <array>

namespace tessary {

namespace {

using namespace Qt::StringLiterals;

struct TextRow {
    const char* path;
    const char* text;
};

constexpr std::array documents{
    TextRow{"Documents/Shopping.txt", "Milk\nBread\nCoffee\nLight bulbs (E27)\nBirthday card\n"},
    TextRow{"Documents/Recipes/Pancakes.txt",
            "250 g flour\n500 ml milk\n3 eggs\n1 pinch of salt\n\nRest for half an hour, then fry "
            "in butter.\n"},
    TextRow{"Documents/Recipes/Crème brûlée.txt",
            "400 ml cream\n100 ml milk\n5 yolks\n80 g sugar\n1 vanilla pod\n"},
    TextRow{"Documents/Travel/Packing list.md",
            "# Packing list\n\n- passport\n- charger\n- rain jacket\n- book\n"},
    TextRow{"Documents/Travel/Itinerary.html",
            "<!doctype html>\n<title>Itinerary</title>\n<h1>Three days by the sea</h1>\n"
            "<ol><li>Train north</li><li>Lighthouse</li><li>Back home</li></ol>\n"},
    TextRow{"Documents/Household/Budget.csv",
            "item,planned,spent\nrent,900,900\nfood,350,331\ntravel,120,164\nbooks,40,58\n"},
    TextRow{"Documents/日本語ノート.txt", "ひらがな、カタカナ、漢字。\n"},
    TextRow{"Download/notes.json", "{\n  \"title\": \"Notes\",\n  \"items\": [1, 2, 3]\n}\n"},
};

/// Writes files below one folder, dated backwards from one moment.
class Filler {
public:
    Filler(const QString& folder, std::stop_token stop)
        : folder_(folder), until_(DemoContent::newest()), stop_(std::move(stop)) {}

    void add(const QString& path, const QByteArray& content, const QDateTime& date) {
        const QString full = folder_.filePath(path);
        const qsizetype slash = full.lastIndexOf(u'/');
        if (const QString parent = full.left(slash); parent != parent_) {
            complete_ = QDir().mkpath(parent) && complete_;
            parent_ = parent;
        }
        QFile file(full);
        complete_ = file.open(QIODevice::WriteOnly) && file.write(content) == content.size() &&
                    file.flush() && file.setFileTime(date, QFileDevice::FileModificationTime) &&
                    complete_;
    }

    /// False from a stop on: what is there is not all then.
    [[nodiscard]] bool goesOn() {
        complete_ = complete_ && !stop_.stop_requested();
        return !stop_.stop_requested();
    }

    /// The moment at `part` (0 the oldest, 1 the newest) of the two years.
    [[nodiscard]] QDateTime dateAt(double part) const {
        constexpr double twoYears = 2 * 365.0 * 24 * 3600;
        const auto back = static_cast<qint64>((1 - part) * twoYears);
        return until_.addSecs(-back - back % 40'000);
    }

    void addPictures(const QString& folder, int count, std::uint32_t seed) {
        struct Size {
            int width, height;
        };
        constexpr std::array sizes{Size{640, 480}, Size{480, 640}, Size{800, 600}, Size{320, 320}};
        for (int i = 0; i < count && goesOn(); ++i) {
            const Size size = sizes[static_cast<std::size_t>(i) % sizes.size()];
            const QDateTime date = dateAt((i + 1.0) / count);
            add(u"%1/IMG_%2.png"_s.arg(folder, date.toString(u"yyyyMMdd_HHmmss"_s)),
                DemoMedia::picture(size.width, size.height,
                                   seed + static_cast<std::uint32_t>(i) * 37),
                date);
        }
    }

    /// Pictures as an iPhone names them, a few a day: the first of a day moves, the second was
    /// edited.
    void addCamera(const QString& folder, int count, std::uint32_t seed) {
        constexpr int aDay = 4;
        constexpr qint64 dayLength = 24 * 3600;
        for (int i = 0; i < count && goesOn(); ++i) {
            const QString number = u"%1"_s.arg(i + 1, 4, 10, QLatin1Char('0'));
            const QDateTime date =
                until_.addSecs(-((count - 1 - i) / aDay) * dayLength - (aDay - i % aDay) * 1200);
            const auto add = [&](const char* name, const QByteArray& content) {
                this->add(folder + u'/' + QString::fromLatin1(name).arg(number), content, date);
            };
            add("IMG_%1.PNG", DemoMedia::picture(800, 600, seed + static_cast<std::uint32_t>(i)));
            if (i % aDay == 0)
                add("IMG_%1.MOV", DemoMedia::film());
            if (i % aDay == 1) {
                add("IMG_%1.AAE",
                    "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict/></plist>\n");
                add("IMG_E%1.PNG",
                    DemoMedia::picture(800, 800, seed + 500 + static_cast<std::uint32_t>(i)));
            }
        }
    }

    void addMusic(const QString& folder, int count, std::uint32_t seed) {
        for (int i = 0; i < count && goesOn(); ++i)
            add(u"%1/%2 Melody.wav"_s.arg(folder).arg(i + 1, 2, 10, QLatin1Char('0')),
                DemoMedia::melody(20 + 5 * i, seed + static_cast<std::uint32_t>(i)),
                dateAt(0.3 + 0.05 * i));
    }

    void addDocuments() {
        double part = 0.1;
        for (const TextRow& row : documents) {
            add(QString::fromUtf8(row.path), row.text, dateAt(part));
            part += 0.1;
        }
    }

    void addArchive(const QString& folder, int count) {
        for (int i = 0; i < count && goesOn(); ++i)
            add(u"%1/record-%2.txt"_s.arg(folder).arg(i + 1, 4, 10, QLatin1Char('0')),
                "Record " + QByteArray::number(i + 1) + "\n" + QByteArray(i % 400, '.') + "\n",
                dateAt(static_cast<double>(i) / count));
    }

    [[nodiscard]] bool isComplete() const {
        return complete_;
    }

private:
    QDir folder_;
    const QDateTime until_;
    const std::stop_token stop_;
    QString parent_;
    bool complete_ = true;
};

} // namespace

QDateTime DemoContent::newest() {
    return QDateTime(QDate(2026, 10, 31), QTime(18, 30));
}

bool DemoContent::fillPhone(const QString& folder, const std::stop_token& stop) {
    Filler filler(folder, stop);
    filler.addPictures(u"DCIM/Camera"_s, 36, 1);
    filler.addPictures(u"Pictures/Screenshots"_s, 6, 1000);
    filler.addMusic(u"Music/First Songs"_s, 6, 3);
    filler.addDocuments();
    filler.addArchive(u"Download/Archive"_s, archiveFiles);
    return filler.isComplete();
}

bool DemoContent::fillCard(const QString& folder, const std::stop_token& stop) {
    Filler filler(folder, stop);
    filler.addPictures(u"DCIM/Card"_s, 8, 5000);
    filler.addMusic(u"Music"_s, 3, 40);
    return filler.isComplete();
}

bool DemoContent::fillNotes(const QString& folder, const std::stop_token& stop) {
    Filler filler(folder, stop);
    filler.addDocuments();
    filler.addArchive(u"Journal"_s, notesFiles);
    return filler.isComplete();
}

bool DemoContent::fillPictures(const QString& folder, const std::stop_token& stop) {
    Filler filler(folder, stop);
    filler.addPictures(u"Albums/Mountains"_s, 8, 9000);
    filler.addPictures(u"Albums/Sketches"_s, 4, 9500);
    return filler.isComplete();
}

bool DemoContent::fillCamera(const QString& folder, const std::stop_token& stop) {
    Filler filler(folder, stop);
    filler.addCamera(u"DCIM/100APPLE"_s, 26, 3000);
    return filler.isComplete();
}

bool DemoContent::fillMusic(const QString& folder, const std::stop_token& stop) {
    Filler filler(folder, stop);
    filler.addMusic(u"Recordings"_s, 5, 70);
    return filler.isComplete();
}

} // namespace tessary
