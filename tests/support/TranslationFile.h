#pragma once

#include "app/AppLanguage.h"

#include <QFile>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

#include <vector>

namespace tessary {

/// One text of a translators' file.
struct TranslatedText {
    QString context;
    QString source;
    QStringList forms; ///< one, or a plural form each
    bool dependsOnNumber = false;
    bool isFinished = true;
};

/// The name of a language's file in i18n/.
inline QString translationFileName(AppLanguage language) {
    return QStringLiteral("tessary_%1.ts").arg(rawValue(language));
}

inline std::vector<TranslatedText> readTranslations(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    QXmlStreamReader xml(&file);
    std::vector<TranslatedText> texts;
    QString context;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1StringView("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QLatin1StringView("message")) {
            TranslatedText text;
            text.context = context;
            text.dependsOnNumber = xml.attributes().hasAttribute(QStringLiteral("numerus"));
            texts.push_back(text);
        } else if (xml.name() == QLatin1StringView("source")) {
            texts.back().source = xml.readElementText();
        } else if (xml.name() == QLatin1StringView("translation")) {
            texts.back().isFinished = !xml.attributes().hasAttribute(QStringLiteral("type"));
            if (!texts.back().dependsOnNumber)
                texts.back().forms.append(xml.readElementText());
        } else if (xml.name() == QLatin1StringView("numerusform")) {
            texts.back().forms.append(xml.readElementText());
        }
    }
    EXPECT_FALSE(xml.hasError()) << path.toStdString() << ": " << xml.errorString().toStdString();
    return texts;
}

inline std::vector<TranslatedText> translationsOf(AppLanguage language) {
    return readTranslations(QStringLiteral(TESSARY_TRANSLATIONS "/") +
                            translationFileName(language));
}

} // namespace tessary
