// The live action log model and its filter model: Qt's model tester while
// another thread logs (with rollovers, which remove rows), and the filter
// model against the rows each filter must show, worked out by hand.

#include <CommonKit/logging/ActionLog.h>
#include <CommonKit/logging/ActionLogContextSwitchEntry.h>
#include <CommonKit/logview/ActionLogFilterModel.h>
#include <CommonKit/logview/ActionLogModel.h>
#include <CommonKit/resources/Translations.h>
#include "testlib/DataTable.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <atomic>
#include <thread>

namespace {

void logNumbered(ko::ActionLog& log, int count)
{
    for (int i = 0; i < count; ++i) {
        ko::ActionLogContextSwitchEntry entry(QStringLiteral("n%1").arg(i), QString::number(i % 7));
        log.log(entry);
    }
}

// Numbers in column description of the rows of a model, in row order.
QStringList newFiles(const QAbstractItemModel& model)
{
    QStringList values;
    for (int row = 0; row < model.rowCount(); ++row)
        values << model.data(model.index(row, 0), ko::ActionLogModel::FieldsRole).toMap().value("newFile").toString();
    return values;
}

TEST(ActionLogModel, StaysConsistentWhileAnotherThreadLogsAndRollsOver)
{
    QTemporaryDir dir;
    ko::ActionLog log(dir.filePath(QStringLiteral("live.kol")));
    log.setSplitPolicy(ko::ActionLog::BySize, 8 * 1024);
    log.mute(false);
    logNumbered(log, 5); // rows the model finds when it is made

    ko::ActionLogModel model(&log);
    ko::ActionLogFilterModel filtered;
    filtered.setSourceModel(&model);
    QString error;
    ASSERT_TRUE(filtered.setFilterText(QStringLiteral("newFile IN ('0', '3') AND type = 'ALog'"), &error))
        << error.toStdString();
    QAbstractItemModelTester modelTester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    QAbstractItemModelTester filterTester(&filtered, QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(model.rowCount(), 5);

    std::atomic<bool> done{false};
    std::thread writer([&] {
        logNumbered(log, 600);
        done = true;
    });
    while (!done)
        QCoreApplication::processEvents();
    writer.join();
    QCoreApplication::processEvents();

    ASSERT_EQ(model.rowCount(), log.count());
    QStringList inLog;
    for (int i = 0; i < log.count(); ++i)
        inLog << static_cast<const ko::ActionLogContextSwitchEntry*>(log.entry(i))->newFile();
    EXPECT_EQ(newFiles(model), inLog);
    QStringList expected = inLog.filter(QRegularExpression(QStringLiteral("^[03]$")));
    EXPECT_EQ(newFiles(filtered), expected);
    EXPECT_LT(log.count(), 605); // rollovers removed rows on the way

    // The headers are translated.
    EXPECT_EQ(model.columnCount(), 5);
    ASSERT_TRUE(ko::installTranslations(QLocale(QLocale::German)));
    EXPECT_EQ(model.headerData(4, Qt::Horizontal).toString(), QStringLiteral("Beschreibung"));
    ko::removeTranslations();
}

TEST(ActionLogFilterModel, ShowsTheRowsTheFilterSelects)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("same.kol"));
    {
        ko::ActionLog log(path);
        log.setSplitPolicy(ko::ActionLog::NoSplit, 0);
        log.mute(false);
        logNumbered(log, 40);
    }
    ko::ActionLog log(path);
    log.readLog();
    ko::ActionLogModel model(&log);
    ko::ActionLogFilterModel filtered;
    filtered.setSourceModel(&model);
    for (const cktest::DataRow& row : cktest::dataRows("logview/filters.tsv", 2)) {
        SCOPED_TRACE(row.where);
        QString error;
        ASSERT_TRUE(filtered.setFilterText(QString::fromStdString(row[0]), &error)) << error.toStdString();
        const QString expected = row[1] == "-" ? QString() : QString::fromStdString(row[1]);
        EXPECT_EQ(newFiles(filtered), expected.split(QLatin1Char(','), Qt::SkipEmptyParts));
    }
    QString error;
    EXPECT_FALSE(filtered.setFilterText(QStringLiteral("nosuchfield = 1"), &error));
    EXPECT_TRUE(error.contains(QStringLiteral("nosuchfield"))) << error.toStdString();
}

} // namespace
