// Reading action log files back: round trips (checked against QDomDocument as
// well), cut-off live files, malformed files and the attribute rules.

#include "TestEntries.h"
#include "testlib/DataTable.h"
#include "testlib/TestFiles.h"

#include <CommonKit/logging/XMLLogReader.h>

#include <gtest/gtest.h>

#include <QDomDocument>
#include <QFile>
#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace {

using cktest::TextEntry;
using cktest::writeDocument;

struct ReadResult
{
    std::vector<std::unique_ptr<ko::LogEntry>> entries; // including error entries
    int nulls = 0;                                      // null answers before the end
    bool fault = false;
    QXmlStreamReader::Error error = QXmlStreamReader::NoError;
};

class XMLLogReaderTest : public ::testing::Test
{
protected:
    QString store(const QByteArray& bytes, const QString& name = QStringLiteral("log.kol"))
    {
        cktest::writeFile(m_dir.filePath(name), bytes);
        return m_dir.filePath(name);
    }

    // Reads the way the action log does: until the end or an error.
    ReadResult read(const QString& path)
    {
        ReadResult result;
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Text));
        ko::XMLLogReader reader(&file);
        for (int guard = 0; !reader.atEnd() && !reader.hasError() && guard < 100000; ++guard) {
            std::unique_ptr<ko::LogEntry> entry(reader.readNextLogEntry());
            if (entry)
                result.entries.push_back(std::move(entry));
            else if (!reader.atEnd())
                ++result.nulls;
        }
        result.fault = reader.hasFault();
        result.error = reader.error();
        return result;
    }

    ReadResult readBytes(const QByteArray& bytes) { return read(store(bytes)); }

    QTemporaryDir m_dir;
};

// Awkward values stay on the one line of a live file, and come back the same
// through QDomDocument (independent of the library) and through the reader,
// which reads the file closed as a live log is finalised. An error entry at
// the end reads back as one too.
TEST_F(XMLLogReaderTest, AwkwardValuesStayOneLineAndSurviveAWriteAndARead)
{
    const QString texts[] = {
        QStringLiteral("a & b < c > d"), QStringLiteral("<tag attr=\"v\"> it's"), QStringLiteral("Grüße, ½ € ✓ 日本"),
        QString::fromUtf8("emoji \xF0\x9F\x98\x80"), QStringLiteral("line\nbreak\r\tand tab"),
        QStringLiteral("]]> and &amp;"),
    };
    std::vector<std::unique_ptr<TextEntry>> written;
    std::vector<const ko::LogEntry*> pointers;
    for (const QString& text : texts) {
        written.push_back(std::make_unique<TextEntry>(text, -1000 * static_cast<int>(written.size()) + 7));
        written.back()->setUser(text + QStringLiteral(" user"));
        written.back()->when.value = QDateTime(QDate(2023, 12, 31), QTime(23, 59, 59));
        pointers.push_back(written.back().get());
    }
    const ko::ParseXMLLogEntry error(texts[0], QStringLiteral("/var/log/a.kol"), 3, 14);
    pointers.push_back(&error);
    const QByteArray live = writeDocument(pointers, false);
    EXPECT_FALSE(live.contains('\n')) << "line breaks in values are escaped";
    QDomDocument document;
    ASSERT_TRUE(document.setContent(live + "\n</Entries>\n"));
    const QDomNodeList elements = document.documentElement().elementsByTagName(QStringLiteral("Entry"));
    const ReadResult result = readBytes(live + "\n</Entries>\n");
    EXPECT_FALSE(result.fault);
    EXPECT_EQ(result.error, QXmlStreamReader::NoError);
    ASSERT_EQ(elements.size(), static_cast<int>(pointers.size()));
    ASSERT_EQ(result.entries.size(), pointers.size());
    for (size_t i = 0; i < written.size(); ++i) {
        EXPECT_EQ(elements.at(static_cast<int>(i)).toElement().attribute(QStringLiteral("Text")), texts[i]) << i;
        const auto* entry = dynamic_cast<const TextEntry*>(result.entries[i].get());
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(entry->text.value, texts[i]) << i;
        EXPECT_EQ(entry->user(), written[i]->user()) << i;
        EXPECT_EQ(entry->number.value, written[i]->number.value) << i;
        EXPECT_EQ(entry->time(), cktest::afterRoundTrip(written[i]->time())) << i;
        EXPECT_EQ(entry->when.value, cktest::afterRoundTrip(written[i]->when.value)) << i;
    }
    const auto& read = dynamic_cast<const ko::ParseXMLLogEntry&>(*result.entries.back());
    EXPECT_EQ(read.errorText(), texts[0]);
    EXPECT_EQ(read.fileName(), QStringLiteral("/var/log/a.kol"));
    EXPECT_EQ(read.line(), 3);
    EXPECT_EQ(read.column(), 14);
    EXPECT_EQ(read.values().at(2)->name(), QStringLiteral("source"));
    EXPECT_EQ(read.values().at(5)->name(), QStringLiteral("colunm"));
}

TEST_F(XMLLogReaderTest, ALiveFileCutAnywhereInItsLastEntryReadsTheEntriesBefore)
{
    TextEntry first(QStringLiteral("first & one"), 1);
    TextEntry second(QStringLiteral("zweite Ü"), 2);
    TextEntry last(QStringLiteral("letzte \"€\" <x>"), 3);
    last.setUser(QStringLiteral("Jürgen"));
    const QByteArray before = writeDocument({&first, &second}, false);
    const QByteArray full = writeDocument({&first, &second, &last}, false);
    ASSERT_TRUE(full.startsWith(before));

    for (int cut = before.size(); cut <= full.size(); ++cut) {
        const ReadResult result = readBytes(full.left(cut));
        const size_t expected = cut == full.size() ? 3 : 2;
        ASSERT_EQ(result.entries.size(), expected) << "cut at byte " << cut;
        EXPECT_FALSE(result.fault) << "no error entry, cut at byte " << cut;
        EXPECT_EQ(result.error, QXmlStreamReader::PrematureEndOfDocumentError) << cut;
    }
}

TEST_F(XMLLogReaderTest, MalformedTextGivesOneErrorEntryWithLineAndColumn)
{
    TextEntry entry(QStringLiteral("ok"), 1);
    const QByteArray good = writeDocument({&entry, &entry}, false);
    for (const cktest::DataRow& row : cktest::dataRows("logging/malformed-logs.tsv", 4)) {
        SCOPED_TRACE(row.where);
        const QString path = store(QByteArray::fromStdString(row[0]) + good + QByteArray::fromStdString(row[1]));
        const ReadResult result = read(path);
        EXPECT_TRUE(result.fault);
        ASSERT_FALSE(result.entries.empty());
        auto* error = dynamic_cast<ko::ParseXMLLogEntry*>(result.entries.back().get());
        ASSERT_NE(error, nullptr);
        const int line = std::stoi(row[2]);
        EXPECT_EQ(result.entries.size(), line == 1 ? 1u : 3u) << "entries before the fault, then the error";
        EXPECT_EQ(error->line(), line);
        EXPECT_EQ(error->column(), static_cast<int>(row[3].size()));
        EXPECT_FALSE(error->errorText().isEmpty());
        EXPECT_EQ(error->fileName(), path);
        EXPECT_EQ(error->user(), QStringLiteral("Unknown"));
        EXPECT_EQ(error->category().id, ko::CategoryError);
    }
}

// A time before the ID is lost (the entry keeps its own); an unknown
// attribute ends the element; otherwise the order does not matter.
TEST_F(XMLLogReaderTest, AttributeOrderDecidesWhatIsKept)
{
    const QDateTime fileTime(QDate(2001, 2, 3), QTime(4, 5));
    const QString time = ko::TLogValue<QDateTime>("Time", QStringLiteral("Time"), fileTime).toString();
    for (const cktest::DataRow& row : cktest::dataRows("logging/attribute-order.tsv", 5)) {
        SCOPED_TRACE(row.where);
        const QString attributes = QString::fromStdString(row[0]).replace(QStringLiteral("{time}"), time);
        const ReadResult result = readBytes("<Entries><Entry " + attributes.toUtf8() + "/></Entries>");
        ASSERT_EQ(result.entries.size(), 1u);
        const auto& read = dynamic_cast<const TextEntry&>(*result.entries[0]);
        EXPECT_EQ(read.time() == cktest::afterRoundTrip(fileTime), row[1] == "yes");
        EXPECT_EQ(read.user().toStdString(), row[2]);
        EXPECT_EQ(read.text.value.toStdString(), row[3]);
        EXPECT_EQ(read.number.value, std::stoi(row[4]));
    }
}

TEST_F(XMLLogReaderTest, UnknownKindsEmptyFilesAndMissingInput)
{
    // Unknown kinds are skipped and reading goes on.
    const QByteArray text =
        "<?xml version=\"1.0\"?><Entries><Entry ID=\"Nope\" Text=\"lost\"/><Entry/><Other ID=\"TstE\"/>"
        "<Entry ID=\"TstE\" Text=\"kept\"/></Entries>";
    const ReadResult result = readBytes(text);
    EXPECT_EQ(result.nulls, 2) << "the unknown kind and the element without ID";
    ASSERT_EQ(result.entries.size(), 1u);
    EXPECT_EQ(dynamic_cast<const TextEntry&>(*result.entries[0]).text.value, QStringLiteral("kept"));

    const ReadResult empty = readBytes(QByteArray());
    EXPECT_TRUE(empty.entries.empty());
    EXPECT_FALSE(empty.fault);

    ko::XMLLogReader noFile(nullptr);
    EXPECT_EQ(noFile.readNextLogEntry(), nullptr);
    EXPECT_FALSE(noFile.hasFault());

    // Deep nesting and a huge attribute do not hurt.
    QByteArray deep = "<?xml version=\"1.0\"?><Entries>";
    for (int i = 0; i < 2000; ++i)
        deep += "<a>";
    deep += "<Entry ID=\"TstE\" Text=\"" + QByteArray(1 << 20, 'x') + "\"/>";
    const ReadResult nested = readBytes(deep);
    ASSERT_EQ(nested.entries.size(), 1u);
    EXPECT_EQ(dynamic_cast<const TextEntry&>(*nested.entries[0]).text.value.size(), 1 << 20);
}

} // namespace
