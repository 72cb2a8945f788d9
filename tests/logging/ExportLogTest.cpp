// Export records: the tables, the six entry kinds and what send() logs.
// Expected texts are written out here; times are formatted by QLocale.

#include "ActionLogSupport.h"
#include "testlib/DataTable.h"
#include <CommonKit/logging/ActionLog.h>
#include <CommonKit/logging/ExportActionLog.h>
#include <CommonKit/logging/ExportEntries.h>
#include <CommonKit/logging/LogEntryFactory.h>
#include <CommonKit/resources/Translations.h>

#include <gtest/gtest.h>

#include <QLocale>
#include <QMap>
#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace {

using ko::ExportActionLog;

TEST(ExportActionLog, TablesClampToTheirLastRow)
{
    for (const cktest::DataRow& row : cktest::dataRows("logging/export-tables.tsv", 4)) {
        const auto& formatRow = ExportActionLog::formatsData(std::stoi(row[1]));
        const auto& stateRow = ExportActionLog::stateData(std::stoi(row[1]));
        const bool format = row[0] == "format";
        EXPECT_EQ(format ? formatRow.name : stateRow.name, row[2]) << row.where;
        EXPECT_EQ(format ? int(formatRow.value) : stateRow.value, std::stoi(row[3])) << row.where;
    }
}

TEST(ExportEntries, KindsAreRegisteredWithTheirValuesInOrder)
{
    const QStringList names = ko::logEntryFactory().entryNames();
    for (const cktest::DataRow& kind : cktest::dataRows("logging/export-kinds.tsv", 4)) {
        SCOPED_TRACE(kind.where);
        const QString title = QString::fromStdString(kind[1]);
        const std::unique_ptr<ko::LogEntry> entry(ko::logEntryFactory().create(kind[0].c_str()));
        ASSERT_TRUE(entry);
        EXPECT_EQ(entry->type().toString().toStdString(), kind[0]);
        EXPECT_EQ(entry->title(), title);
        EXPECT_TRUE(names.contains(title));
        EXPECT_EQ(entry->category().id, ko::CategoryExport);
        EXPECT_EQ(entry->format(), QStringLiteral("%1"));
        QStringList ids, valueNames;
        for (const ko::LogValue* value : entry->values()) {
            ids << value->idToString();
            valueNames << value->name();
        }
        EXPECT_EQ(ids.join(QLatin1Char(',')).toStdString(), kind[2]);
        EXPECT_EQ(valueNames.join(QLatin1Char(',')).toStdString(), kind[3]);
    }
}

// Each case runs with a fresh log under a temporary state folder.
class ExportSendTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        ko::ActionLog::deleteActionLog();
        s_state = std::make_unique<QTemporaryDir>();
        qputenv("XDG_STATE_HOME", s_state->path().toUtf8());
        ko::ActionLog::getInstance()->mute(false);
    }
    static void TearDownTestSuite()
    {
        ko::ActionLog::deleteActionLog();
        s_state.reset();
    }

    // What one call logged: null if it logged nothing.
    static const ko::LogEntry* logged(const std::function<void()>& call)
    {
        ko::ActionLog* log = ko::ActionLog::getInstance();
        const int before = log->count();
        call();
        EXPECT_LE(log->count(), before + 1);
        return log->count() > before ? log->entry(log->count() - 1) : nullptr;
    }

    // The attributes of the last entry in the log file, read with QDomDocument.
    static QMap<QString, QString> lastWritten()
    {
        const auto entries = cktest::fileEntries(ko::ActionLog::getInstance()->fileInfo().absoluteFilePath());
        return entries.isEmpty() ? QMap<QString, QString>() : entries.last();
    }

    static std::unique_ptr<QTemporaryDir> s_state;
};

std::unique_ptr<QTemporaryDir> ExportSendTest::s_state;

QString describe(const ko::LogEntry* entry)
{
    return std::unique_ptr<ko::LogEntry>(entry->clone())->description();
}

QString shortText(qint64 seconds)
{
    return QLocale::system().toString(QDateTime::fromSecsSinceEpoch(seconds), QLocale::ShortFormat);
}

TEST_F(ExportSendTest, StartAndWrittenFillTheTemplateThatFitsTheirTimes)
{
    for (const cktest::DataRow& row : cktest::dataRows("logging/export-start.tsv", 7)) {
        SCOPED_TRACE(row.where);
        const QString target = QString::fromStdString(row[1]);
        const unsigned long long from = std::stoull(row[2]);
        const unsigned long long to = std::stoull(row[3]);
        const auto* entry = static_cast<const ko::ExportRangeEntry*>(logged([&] {
            ExportActionLog::send(static_cast<ExportActionLog::EFormat>(std::stoi(row[0])), "cam 1", target, from, to,
                                  static_cast<ExportActionLog::EState>(std::stoi(row[4])));
        }));
        ASSERT_TRUE(entry);
        EXPECT_EQ(entry->type().toString().toStdString(), row[5]);
        EXPECT_EQ(describe(entry), QString::fromStdString(row[6])
                                       .replace(QStringLiteral("{from}"), shortText(qint64(from / 1000000)))
                                       .replace(QStringLiteral("{to}"), shortText(qint64(to / 1000000))));
        EXPECT_EQ(entry->from(), from ? QDateTime::fromSecsSinceEpoch(qint64(from / 1000000)) : QDateTime());

        const QMap<QString, QString> written = lastWritten();
        EXPECT_EQ(written.value("ID").toStdString(), row[5]);
        EXPECT_EQ(written.value("Form"), entry->exportFormat());
        EXPECT_EQ(written.value("dstP"), target);
        EXPECT_EQ(written.contains("from"), from != 0);
        EXPECT_EQ(written.contains("to"), to != 0);
    }

    for (auto state : {ExportActionLog::StateAbort, ExportActionLog::StateError, ExportActionLog::StateNone})
        EXPECT_FALSE(logged([&] { ExportActionLog::send(ExportActionLog::FormatAVI, "s", "t", 1, 2, state); }));
}

TEST_F(ExportSendTest, EndsRenamesAndMuting)
{
    struct Case
    {
        std::function<void()> call;
        const char* type; // null: nothing logged
        QString description;
    };
    const Case cases[] = {
        {[] { ExportActionLog::send("Done: 3 files", ExportActionLog::StateFinished); }, "ExpD", "Done: 3 files"},
        {[] { ExportActionLog::send("Stopped", ExportActionLog::StateAbort); }, "ExpA", "Stopped"},
        {[] { ExportActionLog::send("Disk full", ExportActionLog::StateError); }, "ExpE", "Disk full"},
        {[] { ExportActionLog::send("x", ExportActionLog::StateStart); }, nullptr, ""},
        {[] { ExportActionLog::send("x", ExportActionLog::StateNone); }, nullptr, ""},
        {[] { ExportActionLog::send("/p/", "a.mp4", "b.mp4"); }, "ExpR", "'/p/a.mp4' to '/p/b.mp4'."},
        {[] {
             ko::ActionLog::getInstance()->mute(true);
             ExportActionLog::send("/p/", "a.mp4", "b.mp4");
             ExportActionLog::send("Disk full", ExportActionLog::StateError);
             ko::ActionLog::getInstance()->mute(false);
         },
         nullptr, ""},
    };
    for (const Case& c : cases) {
        const ko::LogEntry* entry = logged(c.call);
        if (!c.type) {
            EXPECT_FALSE(entry) << entry->type().toString().toStdString();
            continue;
        }
        ASSERT_TRUE(entry) << c.type;
        EXPECT_EQ(entry->type().toString(), QLatin1String(c.type));
        EXPECT_EQ(describe(entry), c.description);
        EXPECT_EQ(lastWritten().value("ID"), QLatin1String(c.type));
    }
    EXPECT_EQ(lastWritten().value("src"), QStringLiteral("a.mp4"));
}

TEST_F(ExportSendTest, TextsAreTranslatedFormatNamesInTheEntryAreNot)
{
    ASSERT_TRUE(ko::installTranslations(QLocale(QLocale::German)));
    const ko::LogEntry* rename = logged([] { ExportActionLog::send("/p/", "a.mp4", "b.mp4"); });
    const ko::LogEntry* start = logged([] {
        ExportActionLog::send(ExportActionLog::FormatFileServerStorage, "cam", "", 0, 0, ExportActionLog::StateStart);
    });
    const QString names[] = {ExportActionLog::formatDisplayName(9), ExportActionLog::stateDisplayName(3)};
    ko::removeTranslations();
    ASSERT_TRUE(rename && start);
    EXPECT_EQ(describe(rename), QStringLiteral("'/p/a.mp4' umbenannt in '/p/b.mp4'."));
    EXPECT_EQ(describe(start), QStringLiteral("Format='KORVANE file server storage'; Quelle='cam'."));
    EXPECT_EQ(names[0], QStringLiteral("Drucker"));
    EXPECT_EQ(names[1], QStringLiteral("Fehler"));
}

} // namespace
