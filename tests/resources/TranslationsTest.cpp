#include <CommonKit/resources/Translations.h>
#include "testlib/TestFiles.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QXmlStreamReader>

namespace {

struct Message { QString context; QString source; QString translation; bool unfinished; };

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

// Every message translated with the placeholders of its source, and the
// German and French catalogues holding the same texts.
TEST(Translations, EveryCatalogueIsCompleteAndKeepsItsPlaceholders)
{
    const QDir dir(QStringLiteral(COMMONKIT_TRANSLATIONS_DIR));
    const QStringList files = dir.entryList({QStringLiteral("*.ts")}, QDir::Files, QDir::Name);
    ASSERT_FALSE(files.isEmpty());
    QMap<QString, QSet<QString>> keysOfLanguage;
    for (const QString& name : files) {
        const QList<Message> messages = readCatalogue(dir.filePath(name));
        EXPECT_FALSE(messages.isEmpty()) << name.toStdString();
        for (const Message& message : messages) {
            const std::string where = name.toStdString() + " [" + message.context.toStdString() + "] "
                + message.source.toStdString();
            EXPECT_FALSE(message.unfinished) << where;
            EXPECT_FALSE(message.translation.trimmed().isEmpty()) << where;
            EXPECT_EQ(placeholders(message.source), placeholders(message.translation)) << where;
            keysOfLanguage[name.section('_', -1)].insert(message.context + '|' + message.source);
        }
    }
    EXPECT_EQ(keysOfLanguage.keys(), (QStringList{QStringLiteral("de.ts"), QStringLiteral("fr.ts")}));
    EXPECT_EQ(keysOfLanguage.value(QStringLiteral("de.ts")), keysOfLanguage.value(QStringLiteral("fr.ts")));
}

// The C++ sources of the library and the tool: everything but tests,
// benchmarks, fuzzers and build trees.
QStringList sourceFiles()
{
    const QDir root(QStringLiteral(COMMONKIT_SOURCE_DIR));
    const QStringList skipped = {"tests", "bench", "fuzz"};
    QStringList files;
    QDirIterator it(root.path(), {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString relative = root.relativeFilePath(it.next());
        const QString top = relative.section(QLatin1Char('/'), 0, 0);
        if (relative.contains(QLatin1Char('/')) && !skipped.contains(top) && !top.startsWith(QLatin1String("build"))
            && !top.startsWith(QLatin1Char('.')))
            files.append(root.filePath(relative));
    }
    return files;
}

TEST(Translations, EveryTranslatableTextOfTheSourcesIsInBothLanguages)
{
    // lupdate finds the texts as a translator's tools would: tr() of classes
    // and namespaces, translate() and QT_TRANSLATE_NOOP.
    QTemporaryDir dir;
    const QStringList files = sourceFiles();
    ASSERT_GT(files.size(), 50);
    const QString list = dir.filePath("sources.lst"), found = dir.filePath("found.ts");
    cktest::writeFile(list, files.join('\n').toUtf8());
    QProcess lupdate;
    lupdate.setProcessChannelMode(QProcess::MergedChannels);
    lupdate.start(COMMONKIT_LUPDATE, {"-no-obsolete", "-locations", "none", "-I", COMMONKIT_SOURCE_DIR, "-I",
                                      COMMONKIT_INCLUDE_DIR, '@' + list, "-ts", found});
    ASSERT_TRUE(lupdate.waitForFinished(120000));
    const QString report = QString::fromUtf8(lupdate.readAll());
    ASSERT_EQ(lupdate.exitCode(), 0) << report.toStdString();
    // A tr() lupdate cannot place in a context would be missed by translators.
    EXPECT_FALSE(report.contains(QStringLiteral("cannot be called without context"))) << report.toStdString();

    const QList<Message> texts = readCatalogue(found);
    EXPECT_GT(texts.size(), 100);
    const QDir translations(QStringLiteral(COMMONKIT_TRANSLATIONS_DIR));
    for (const char* language : {"de", "fr"}) {
        QSet<QString> translated;
        const QString pattern = QStringLiteral("*_%1.ts").arg(QLatin1String(language));
        for (const QString& name : translations.entryList({pattern}, QDir::Files)) {
            for (const Message& m : readCatalogue(translations.filePath(name)))
                translated.insert(m.context + QLatin1Char('|') + m.source);
        }
        for (const Message& text : texts)
            EXPECT_TRUE(translated.contains(text.context + QLatin1Char('|') + text.source))
                << language << " lacks [" << text.context.toStdString() << "] " << text.source.toStdString();
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
