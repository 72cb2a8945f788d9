// The prose and XML writers. Well-formedness is checked with QDomDocument,
// an XML parser independent of the library's reader (awkward values are
// checked in XMLLogReaderTest, with both).

#include "TestEntries.h"

#include <CommonKit/logging/LogEntryFactory.h>
#include <CommonKit/logging/ProsaLogWriter.h>
#include <CommonKit/logging/XMLLogReader.h>
#include <CommonKit/logging/XMLLogWriter.h>

#include <gtest/gtest.h>

#include <QDomDocument>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <memory>
#include <vector>

namespace {

using cktest::TextEntry;
using cktest::writeDocument;

const QByteArray k_header = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                            "<Entries Version=\"v0.1\" LogFile=\"test.kol\" Date=\"2014-05-06T07:08:09\">";

// Parses with QDomDocument; fails the test with the parser's message.
QDomDocument parse(const QByteArray& bytes)
{
    QDomDocument document;
    QString message;
    int line = 0;
    int column = 0;
    EXPECT_TRUE(document.setContent(bytes, &message, &line, &column))
        << message.toStdString() << " at " << line << ":" << column << " in " << bytes.toStdString();
    return document;
}

QString timeText(const QDateTime& time)
{
    ko::TLogValue<QDateTime> value("Time", QStringLiteral("Time"), time);
    return value.toString();
}

// The header through a device is checked with every writeDocument() below;
// here through a string stream, with the optional attributes, escaping and the
// stream's own text kept in order.
TEST(XMLLogWriter, HeaderIsOneLineWithItsAttributesInOrder)
{
    EXPECT_EQ(writeDocument({}, true), k_header + "</Entries>") << "closed, still one line, no final line feed";

    QString text;
    QTextStream stream(&text);
    ko::XMLLogWriter writer(&stream, QStringLiteral("ignored"), QDateTime(QDate(2014, 5, 6), QTime(7, 8, 9, 500)));
    writer.setStartDocumentName(QStringLiteral("a&b.kol"));
    writer.setAppVersion(QStringLiteral("2.1"));
    writer.setLngVersion(QStringLiteral("de"));
    stream << "<!-- before -->";
    writer.writeStartDocument();
    TextEntry entry(QStringLiteral("ü"), 0);
    entry.setTime(QDateTime());
    entry.writeTo(writer);
    stream << "<!-- after -->";
    writer.writeEndDocument();
    stream.flush();
    EXPECT_EQ(text, QStringLiteral("<!-- before --><?xml version=\"1.0\" encoding=\"UTF-8\"?><Entries Version=\"v0.1\" "
                                   "LogFile=\"a&amp;b.kol\" Date=\"2014-05-06T07:08:09\" ApplicationVersion=\"2.1\" "
                                   "LanguageVersion=\"de\"><Entry ID=\"TstE\" Text=\"ü\"/><!-- after --></Entries>"));
    EXPECT_EQ(writer.getInterface("ko::ILogWriter"), static_cast<ko::ILogWriter*>(&writer));
    EXPECT_EQ(writer.getInterface("ko::Nothing"), nullptr);
}

TEST(XMLLogWriter, EntriesAreEmptyElementsWithOnlyTheirSetValues)
{
    TextEntry onlyTime;
    const QByteArray live = writeDocument({&onlyTime}, false);
    EXPECT_EQ(live, k_header + "<Entry ID=\"TstE\" Time=\"" + timeText(onlyTime.time()).toUtf8() + "\"/>");

    // Characters XML cannot carry become replacement characters.
    const QString r(QChar::ReplacementCharacter);
    TextEntry full(QStringLiteral("bell\x07 nul") + QChar(0) + QStringLiteral(" lone") + QChar(0xD800) + QChar(0xFFFF),
                   -3);
    full.setUser(QStringLiteral("anna"));
    full.when.value = QDateTime(QDate(2001, 2, 3), QTime(4, 5, 6));
    const QDomDocument document = parse(writeDocument({&onlyTime, &full}, true));
    const QDomNodeList entries = document.documentElement().elementsByTagName(QStringLiteral("Entry"));
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries.at(0).attributes().size(), 2) << "only ID and Time";
    ASSERT_EQ(entries.at(1).attributes().size(), 6);
    const QDomElement second = entries.at(1).toElement();
    const std::pair<QString, QString> expected[] = {{"ID", "TstE"}, {"User", "anna"}, {"Numb", "-3"},
        {"Text", "bell" + r + " nul" + r + " lone" + r + r}, {"When", timeText(full.when.value)}};
    for (const auto& [name, value] : expected)
        EXPECT_EQ(second.attribute(name), value) << name.toStdString();
}

// Ids with trailing blanks, ids that cannot be attribute names, and one made
// of Latin-1 letters beyond ASCII.
struct IdsEntry : TextEntry
{
    IdsEntry()
    {
        for (ko::TLogValue<QString>* value : {&to, &src, &accented, &inner, &middle, &digit, &blanks})
            append(value);
    }
    ko::FourChars type() const override { return ko::FourChars("TstI"); }
    ko::TLogValue<QString> to{"to  ", QStringLiteral("to"), QStringLiteral("a&\"b")};
    ko::TLogValue<QString> src{"src ", QStringLiteral("source"), QStringLiteral("<c>")};
    ko::TLogValue<QString> accented{"\xC4nd\xE9", QStringLiteral("accented"), QStringLiteral("w")};
    ko::TLogValue<QString> inner{"v2.-", QStringLiteral("inner"), QStringLiteral("y")}; // allowed after the first
    ko::TLogValue<QString> middle{"a b ", QStringLiteral("middle"), QStringLiteral("x")};
    // Like '-' and '.', a digit cannot start a name.
    ko::TLogValue<QString> digit{"1x  ", QStringLiteral("digit"), QStringLiteral("x")};
    ko::TLogValue<QString> blanks{"    ", QStringLiteral("blanks"), QStringLiteral("x")};
};

ko::LogEntry* createIdsEntry()
{
    auto* entry = new IdsEntry;
    for (ko::TLogValue<QString>* value : {&entry->to, &entry->src, &entry->accented, &entry->inner, &entry->middle})
        value->value.clear();
    return entry;
}

TEST(XMLLogWriter, IdsWithTrailingBlanksAreWrittenAsTheyStandAndReadBack)
{
    const IdsEntry entry;
    const QByteArray bytes = writeDocument({&entry}, true);
    EXPECT_TRUE(bytes.contains(" to  =\"a&amp;&quot;b\" src =\"&lt;c&gt;\" ")) << bytes.toStdString();

    // An independent parser sees the names without their blanks and only the
    // writable ids.
    const QDomElement element = parse(bytes).documentElement().firstChildElement();
    const QStringList expected = {"ID", "Time", "to", "src", "\u00C4nd\u00E9", "v2.-"};
    EXPECT_EQ(element.attributes().size(), expected.size());
    for (const QString& name : expected)
        EXPECT_TRUE(element.hasAttribute(name)) << name.toStdString();

    // The library's reader pads the names back to the ids.
    ko::logEntryFactory().registerCreator("TstI", createIdsEntry, "Ids");
    QTemporaryDir dir;
    QFile file(dir.filePath("ids.kol"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write(bytes);
    file.seek(0);
    ko::XMLLogReader reader(&file);
    const std::unique_ptr<ko::LogEntry> read(reader.readNextLogEntry());
    ASSERT_TRUE(read);
    const auto& back = static_cast<const IdsEntry&>(*read);
    EXPECT_EQ(back.to.value, entry.to.value);
    EXPECT_EQ(back.src.value, entry.src.value);
    EXPECT_EQ(back.accented.value, entry.accented.value);
    EXPECT_EQ(back.inner.value, entry.inner.value);
}

TEST(ProsaLogWriter, OneLinePerEntryWithTheSeparatorAfterEveryValue)
{
    QString text;
    QTextStream stream(&text);
    ko::ProsaLogWriter writer(stream, ',');
    cktest::UnregisteredEntry bare;
    bare.setUser(QStringLiteral("bob"));
    writer.writeStartDocument();
    bare.writeTo(writer);
    TextEntry entry(QStringLiteral("hi"), 0);
    entry.setUser(QStringLiteral("eve"));
    entry.writeTo(writer);
    writer.writeEndDocument();
    const QString time1 = timeText(bare.time());
    const QString time2 = timeText(entry.time());
    EXPECT_EQ(text, "Time: " + time1 + ",User: bob,Unregistered\n" + "Time: " + time2
                        + ",User: eve,text: hi,number: 0,when: ,Test entry\n")
        << "the prose writer shows unset values too";
}

} // namespace
