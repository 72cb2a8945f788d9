#include "resources/Translations.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>

namespace {

struct Message
{
    QString context;
    QString source;
    QString translation;
    bool unfinished;
};

QList<Message> readCatalogue(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    QXmlStreamReader xml(&file);
    QList<Message> messages;
    QString context;
    Message current;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QLatin1String("message")) {
            current = Message{context, QString(), QString(), false};
        } else if (xml.name() == QLatin1String("source")) {
            current.source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            current.unfinished = xml.attributes().value(QLatin1String("type")) == QLatin1String("unfinished");
            current.translation = xml.readElementText();
            messages.append(current);
        }
    }
    EXPECT_FALSE(xml.hasError()) << path.toStdString() << ": " << xml.errorString().toStdString();
    return messages;
}

QSet<QString> placeholders(const QString& text)
{
    QSet<QString> found;
    const QRegularExpression pattern(QStringLiteral("%[0-9]+"));
    for (auto it = pattern.globalMatch(text); it.hasNext();)
        found.insert(it.next().captured());
    return found;
}

TEST(Translations, EveryCatalogueIsCompleteAndKeepsItsPlaceholders)
{
    const QDir dir(QStringLiteral(COMMONKIT_TRANSLATIONS_DIR));
    const QStringList files = dir.entryList({QStringLiteral("*.ts")}, QDir::Files, QDir::Name);
    ASSERT_FALSE(files.isEmpty());
    for (const QString& name : files) {
        const QList<Message> messages = readCatalogue(dir.filePath(name));
        EXPECT_FALSE(messages.isEmpty()) << name.toStdString();
        for (const Message& message : messages) {
            const std::string where = name.toStdString() + " [" + message.context.toStdString() + "] "
                + message.source.toStdString();
            EXPECT_FALSE(message.unfinished) << where;
            EXPECT_FALSE(message.translation.trimmed().isEmpty()) << where;
            EXPECT_EQ(placeholders(message.source), placeholders(message.translation)) << where;
        }
    }
}

TEST(Translations, GermanAndFrenchCataloguesCoverTheSameTexts)
{
    const QDir dir(QStringLiteral(COMMONKIT_TRANSLATIONS_DIR));
    for (const QString& german : dir.entryList({QStringLiteral("*_de.ts")}, QDir::Files)) {
        QString french = german;
        french.replace(QStringLiteral("_de.ts"), QStringLiteral("_fr.ts"));
        ASSERT_TRUE(dir.exists(french)) << french.toStdString();
        QSet<QString> germanKeys, frenchKeys;
        for (const Message& m : readCatalogue(dir.filePath(german)))
            germanKeys.insert(m.context + QLatin1Char('|') + m.source);
        for (const Message& m : readCatalogue(dir.filePath(french)))
            frenchKeys.insert(m.context + QLatin1Char('|') + m.source);
        EXPECT_EQ(germanKeys, frenchKeys) << german.toStdString();
    }
}

TEST(Translations, InstallSwitchesAndRemovesTheLibraryCatalogue)
{
    const char* source = "Commands:";
    ASSERT_TRUE(ko::installTranslations(QLocale(QLocale::German, QLocale::Germany)));
    EXPECT_EQ(QCoreApplication::translate("cktool", source), QStringLiteral("Befehle:"));
    ASSERT_TRUE(ko::installTranslations(QLocale(QLocale::French)));
    EXPECT_EQ(QCoreApplication::translate("cktool", source), QStringLiteral("Commandes :"));
    // A language without a catalogue removes the previous one and reports false.
    EXPECT_FALSE(ko::installTranslations(QLocale(QLocale::Japanese)));
    EXPECT_EQ(QCoreApplication::translate("cktool", source), QLatin1String(source));
    ASSERT_TRUE(ko::installTranslations(QLocale(QLocale::German)));
    ko::removeTranslations();
    EXPECT_EQ(QCoreApplication::translate("cktool", source), QLatin1String(source));
    EXPECT_EQ(ko::availableTranslations(), (QStringList{QStringLiteral("de"), QStringLiteral("fr")}));
}

} // namespace
