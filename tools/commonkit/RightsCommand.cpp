// commonkit rights show: the feature matrix saved in a settings file.

#include "Command.h"
#include "CommandLine.h"

#include <CommonKit/rights/FeatureMatrix.h>
#include <CommonKit/storage/Settings.h>

#include <QFileInfo>
#include <QSettings>
#include <QTextStream>

namespace cktool {
namespace {

// Larger grids are refused rather than printed.
const int kMaxGroups = 65536;

int readCount(const QSettings& store, const QString& key, const QString& where)
{
    const QVariant value = store.value(key);
    bool ok = false;
    const int count = value.toInt(&ok);
    if (!ok || count < 0 || count > kMaxGroups)
        throw CommandError(tr("rights: %1/%2 is not a count from 0 to %3: '%4'")
                               .arg(where, key).arg(kMaxGroups).arg(value.toString()));
    return count;
}

// Checks the "Matrix" text: every word an unsigned 32-bit decimal followed by
// "+", and enough words for the cells. Returns the number of words.
qint64 checkWords(const QByteArray& text, qint64 cells, const QString& where)
{
    QList<QByteArray> pieces = text.split('+');
    const QByteArray rest = pieces.takeLast();
    qint64 index = 0;
    for (const QByteArray& piece : qAsConst(pieces)) {
        ++index;
        bool ok = !piece.isEmpty() && piece.at(0) >= '0' && piece.at(0) <= '9';
        if (ok)
            piece.toUInt(&ok, 10);
        if (!ok)
            throw CommandError(tr("rights: word %1 of %2/Matrix is not an unsigned 32-bit number: '%3'")
                                   .arg(index).arg(where, QString::fromLatin1(piece.left(40))));
    }
    const qint64 needed = (cells + 31) / 32;
    if (pieces.size() < needed)
        throw CommandError(tr("rights: %1/Matrix is truncated: %2 words for %3 cells, which need %4")
                               .arg(where).arg(pieces.size()).arg(cells).arg(needed));
    if (!rest.isEmpty())
        QTextStream(stderr) << tr("note: text after the last '+' is ignored") << "\n";
    if (pieces.size() > needed)
        QTextStream(stderr) << tr("note: %1 word(s) beyond the grid are ignored").arg(pieces.size() - needed) << "\n";
    return pieces.size();
}

void printGrid(QTextStream& out, const ko::FeatureMatrix& matrix)
{
    const int rows = matrix.rows();
    const int columns = matrix.columns();
    const int cellWidth = QString::number(qMax(columns - 1, 0)).size();
    const QString rowLabel = tr("row %1:");
    const int labelWidth = rowLabel.arg(qMax(rows - 1, 0)).size();

    QString header = QString(labelWidth, QLatin1Char(' '));
    for (int column = 0; column < columns; ++column)
        header += QLatin1Char(' ') + QString::number(column).rightJustified(cellWidth);
    out << header << "\n";
    qint64 allowed = 0;
    for (int row = 0; row < rows; ++row) {
        QString line = rowLabel.arg(row).leftJustified(labelWidth);
        for (int column = 0; column < columns; ++column) {
            const bool cell = matrix.isAllowed(row, column);
            allowed += cell ? 1 : 0;
            line += QLatin1Char(' ') + QString(cell ? QLatin1Char('1') : QLatin1Char('0')).rightJustified(cellWidth);
        }
        out << line << "\n";
    }
    out << tr("%1 of %2 cells allowed").arg(allowed).arg(qint64(rows) * columns) << "\n";
}

int runShow(const QString& fileName, const QString& outerGroup)
{
    const QFileInfo info(fileName);
    if (!info.exists())
        throw CommandError(tr("rights: %1 does not exist").arg(fileName));
    if (!info.isFile() || !info.isReadable())
        throw CommandError(tr("rights: cannot read %1").arg(fileName));

    QSettings store(fileName, QSettings::IniFormat);
    if (store.status() != QSettings::NoError)
        throw CommandError(tr("rights: %1 is not a readable settings file").arg(fileName));

    const QString group = outerGroup.isEmpty() ? QStringLiteral("FeatureMatrix")
                                               : outerGroup + QStringLiteral("/FeatureMatrix");
    store.beginGroup(group);
    for (const char* key : {"Rows", "Columns", "Matrix"}) {
        if (!store.contains(QLatin1String(key)))
            throw CommandError(tr("rights: %1 has no saved feature matrix (%2/%3 is missing)")
                                   .arg(fileName, group, QLatin1String(key)));
    }
    const int rows = readCount(store, QStringLiteral("Rows"), group);
    const int columns = readCount(store, QStringLiteral("Columns"), group);
    const QByteArray text = store.value(QStringLiteral("Matrix")).toByteArray();
    const qint64 cells = qint64(rows) * columns;
    checkWords(text, cells, group);
    store.endGroup();

    // The file holds no names: rows and columns stand for themselves.
    ko::FeatureMatrix matrix(rows, columns);
    for (int row = 0; row < rows; ++row)
        matrix.addFeatureGroup(new ko::FeatureGroup(row));
    for (int column = 0; column < columns; ++column)
        matrix.addUserGroup(new ko::UserGroup(column));
    ko::Settings settings(&store);
    if (!outerGroup.isEmpty())
        settings.beginGroup(outerGroup);
    matrix.load(&settings);

    QTextStream out(stdout);
    out << tr("%1: %2 rows (feature groups) x %3 columns (user groups), 1 = allowed, 0 = forbidden")
               .arg(fileName).arg(rows).arg(columns)
        << "\n";
    printGrid(out, matrix);
    return 0;
}

int runRights(const QStringList& arguments)
{
    CommandLine commandLine(
        QStringLiteral("rights"),
        tr("Shows the rights matrix saved in a settings file (INI format): the grid of feature groups "
           "(rows) against user groups (columns), read from the group FeatureMatrix. The file stores "
           "only the grid, not the names of the groups, so rows are shown by feature-group id and "
           "columns by user-group number, each cell as 1 (allowed) or 0 (forbidden)."));
    commandLine.addPositional(QStringLiteral("show"), tr("The action; only \"show\" exists."));
    commandLine.addPositional(QStringLiteral("file"), tr("The settings file, such as rights.ini."));
    const QCommandLineOption groupOption(QStringLiteral("group"),
                                         tr("The settings group that holds FeatureMatrix, if not the top level."),
                                         QStringLiteral("group"));
    commandLine.addOption(groupOption);
    if (!commandLine.parse(arguments, 2, 2))
        return 0;
    const QStringList positional = commandLine.positional();
    if (positional.at(0) != QLatin1String("show"))
        throw CommandError(tr("rights: unknown action '%1' (use show)").arg(positional.at(0)), 2);
    QString group = commandLine.value(QStringLiteral("group"));
    while (group.endsWith(QLatin1Char('/')))
        group.chop(1);
    return runShow(positional.at(1), group);
}

const CommandRegistration registration(
    {"rights", QT_TRANSLATE_NOOP("cktool", "Show the rights matrix saved in a settings file"), runRights});

} // namespace
} // namespace cktool
