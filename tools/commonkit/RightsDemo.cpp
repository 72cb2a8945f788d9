// Demo section: a rights matrix saved to a settings file and loaded back, and
// a settings file copied without its passwords.

#include "Command.h"
#include "Demo.h"

#include <CommonKit/rights/FeatureMatrix.h>
#include <CommonKit/storage/Settings.h>
#include <CommonKit/support/core/Log.h>

#include <QSettings>

#include <memory>
#include <string>
#include <vector>

namespace cktool {
namespace {

// Feature groups (rows) and user groups (columns) of a small client.
enum { LiveVideo, Playback, Export, FeatureGroupCount };
enum { Operators, Investigators, Administrators, UserGroupCount };
enum { WatchLive = 100, MoveCamera, SeekRecording, ExportClip };

std::unique_ptr<ko::FeatureMatrix> buildMatrix()
{
    auto matrix = std::make_unique<ko::FeatureMatrix>(FeatureGroupCount, UserGroupCount);
    const char* featureGroups[] = {QT_TRANSLATE_NOOP("cktool", "Live video"), QT_TRANSLATE_NOOP("cktool", "Playback"),
                                   QT_TRANSLATE_NOOP("cktool", "Export")};
    for (int id = 0; id < FeatureGroupCount; ++id) {
        auto* group = new ko::FeatureGroup(id);
        group->setDescription(tr(featureGroups[id]));
        matrix->addFeatureGroup(group);
    }
    const char* userGroups[] = {QT_TRANSLATE_NOOP("cktool", "Operators"), QT_TRANSLATE_NOOP("cktool", "Investigators"),
                                QT_TRANSLATE_NOOP("cktool", "Administrators")};
    for (int id = 0; id < UserGroupCount; ++id) {
        auto* group = new ko::UserGroup(id);
        group->setDescription(tr(userGroups[id]));
        matrix->addUserGroup(group);
    }
    matrix->addFeatureToGroup(new ko::Feature(WatchLive), LiveVideo);
    matrix->addFeatureToGroup(new ko::Feature(MoveCamera), LiveVideo);
    matrix->addFeatureToGroup(new ko::Feature(SeekRecording), Playback);
    matrix->addFeatureToGroup(new ko::Feature(ExportClip), Export);
    // Seeking is part of exporting too.
    matrix->addFeatureToGroup(new ko::Feature(SeekRecording), Export);
    return matrix;
}

void printGrid(DemoContext& context, const ko::FeatureMatrix& matrix)
{
    QTextStream& out = context.out;
    int labelWidth = 0;
    for (const ko::FeatureGroup* features : matrix.featureGroups())
        labelWidth = qMax(labelWidth, features->description().size());
    int cellWidth = qMax(tr("yes").size(), tr("no").size()) + 2;
    for (const ko::UserGroup* users : matrix.userGroups())
        cellWidth = qMax(cellWidth, users->description().size());

    QString header = QString(labelWidth + 2, QLatin1Char(' '));
    for (const ko::UserGroup* users : matrix.userGroups())
        header += QStringLiteral("  ") + users->description().leftJustified(cellWidth);
    out << header.trimmed().prepend(QString(labelWidth + 4, QLatin1Char(' '))) << "\n";
    for (const ko::FeatureGroup* features : matrix.featureGroups()) {
        QString line = QStringLiteral("  ") + features->description().leftJustified(labelWidth);
        for (const ko::UserGroup* users : matrix.userGroups()) {
            const bool allowed = matrix.isAllowed(features->featureGroup(), users->userGroup());
            QString cell = allowed ? tr("yes") : tr("no");
            if (matrix.isChangeDisabled(features->featureGroup(), users->userGroup()))
                cell += QStringLiteral(" *");
            line += QStringLiteral("  ") + cell.leftJustified(cellWidth);
        }
        out << line.trimmed().prepend(QStringLiteral("  ")) << "\n";
    }
}

bool sameGrid(const ko::FeatureMatrix& a, const ko::FeatureMatrix& b)
{
    if (a.rows() != b.rows() || a.columns() != b.columns())
        return false;
    for (int row = 0; row < a.rows(); ++row)
        for (int column = 0; column < a.columns(); ++column)
            if (a.isAllowed(row, column) != b.isAllowed(row, column))
                return false;
    return true;
}

bool runRightsDemo(DemoContext& context)
{
    QTextStream& out = context.out;
    bool ok = true;

    auto matrix = buildMatrix();
    out << tr("A new %1 x %2 matrix allows everything; dirty: %3")
               .arg(matrix->rows()).arg(matrix->columns()).arg(matrix->isDirty() ? tr("yes") : tr("no"))
        << "\n";
    ok = ok && !matrix->isDirty() && matrix->isFeatureAllowed(ExportClip, Operators);

    matrix->setAllowed(Playback, Operators, false);
    matrix->setAllowed(Playback, Investigators, false);
    matrix->setAllowed(Export, Operators, false);
    matrix->setAllowed(LiveVideo, Investigators, false);
    matrix->disableAbilityToChange(Export, Administrators);
    out << tr("After granting rights (* = locked in the user interface); dirty: %1")
               .arg(matrix->isDirty() ? tr("yes") : tr("no"))
        << "\n";
    printGrid(context, *matrix);
    ok = ok && matrix->isDirty();

    // A feature in two groups is allowed when either group is.
    const bool seekAllowed = matrix->isFeatureAllowed(SeekRecording, Investigators);
    out << tr("Investigators may seek recordings (Playback forbidden, Export allowed): %1")
               .arg(seekAllowed ? tr("yes") : tr("no"))
        << "\n";
    ok = ok && seekAllowed && !matrix->isFeatureAllowed(SeekRecording, Operators);

    const QString file = context.path(QStringLiteral("rights.ini"));
    {
        ko::Settings settings(file, QSettings::IniFormat);
        matrix->save(&settings);
        settings.sync();
    }
    const QSettings written(file, QSettings::IniFormat);
    out << tr("Saved to %1: Rows=%2, Columns=%3, Matrix=\"%4\"; dirty: %5")
               .arg(QStringLiteral("rights.ini"),
                    written.value(QStringLiteral("FeatureMatrix/Rows")).toString(),
                    written.value(QStringLiteral("FeatureMatrix/Columns")).toString(),
                    QString::fromLatin1(written.value(QStringLiteral("FeatureMatrix/Matrix")).toByteArray()),
                    matrix->isDirty() ? tr("yes") : tr("no"))
        << "\n";
    ok = ok && !matrix->isDirty() && written.status() == QSettings::NoError;

    auto loaded = buildMatrix();
    {
        ko::Settings settings(file, QSettings::IniFormat);
        loaded->load(&settings);
    }
    out << tr("Loaded into a fresh matrix (locks are not saved; the application sets them):") << "\n";
    printGrid(context, *loaded);
    const bool equal = sameGrid(*matrix, *loaded);
    out << tr("Equal to the saved one: %1; dirty: %2")
               .arg(equal ? tr("yes") : tr("no"), loaded->isDirty() ? tr("yes") : tr("no"))
        << "\n";
    ok = ok && equal && !loaded->isDirty();

    // A client's settings with the matrix in its own group and a password
    // beside it, copied to a backup that leaves out every key ending in
    // "Password".
    const QString clientFile = context.path(QStringLiteral("client.ini"));
    const QString backupFile = context.path(QStringLiteral("backup.ini"));
    {
        QSettings client(clientFile, QSettings::IniFormat);
        client.setValue(QStringLiteral("Client/Login/User"), QStringLiteral("operator"));
        client.setValue(QStringLiteral("Client/Login/Password"), QStringLiteral("secret"));
        ko::Settings settings(&client);
        settings.beginGroup(QStringLiteral("Client"));
        matrix->save(&settings);
        settings.endGroup();
        QSettings backup(backupFile, QSettings::IniFormat);
        backup.setValue(QStringLiteral("Stale"), 1);
        ok = assign(backup, client, {QStringLiteral("Password")}) && ok;
    }
    const QSettings backup(backupFile, QSettings::IniFormat);
    out << tr("Copied client.ini to backup.ini without the keys ending in \"Password\": %1")
               .arg(backup.allKeys().join(QStringLiteral(", ")))
        << "\n";
    auto restored = buildMatrix();
    {
        ko::Settings settings(backupFile, QSettings::IniFormat);
        settings.beginGroup(QStringLiteral("Client"));
        restored->load(&settings);
    }
    const bool restoredEqual = sameGrid(*matrix, *restored);
    out << tr("The matrix loaded from the backup's group Client equals the saved one: %1")
               .arg(restoredEqual ? tr("yes") : tr("no"))
        << "\n";
    ok = ok && restoredEqual && !backup.contains(QStringLiteral("Client/Login/Password"))
        && !backup.contains(QStringLiteral("Stale")) && backup.contains(QStringLiteral("Client/Login/User"));

    // A matrix with another number of user groups refuses the saved grid.
    ko::FeatureMatrix smaller(FeatureGroupCount, 2);
    for (int id = 0; id < FeatureGroupCount; ++id)
        smaller.addFeatureGroup(new ko::FeatureGroup(id));
    for (int id = 0; id < 2; ++id)
        smaller.addUserGroup(new ko::UserGroup(id));
    // Show the diagnostic line here instead of on standard error.
    std::vector<std::string> logged;
    const ko::Log::Sink previous =
        ko::Log::instance().setSink([&logged](int, const std::string& line) { logged.push_back(line); });
    {
        ko::Settings settings(file, QSettings::IniFormat);
        smaller.load(&settings);
    }
    ko::Log::instance().setSink(previous);
    out << tr("A 3 x 2 matrix refuses the 3 x 3 grid and keeps its cells: %1")
               .arg(smaller.isAllowed(Playback, Operators) ? tr("yes") : tr("no"))
        << "\n";
    for (const std::string& line : logged)
        out << "  " << QString::fromStdString(line) << "\n";
    ok = ok && smaller.isAllowed(Playback, Operators) && !smaller.isDirty();
    return ok;
}

const DemoRegistration registration({60, QT_TRANSLATE_NOOP("cktool", "Rights matrix"), runRightsDemo});

} // namespace
} // namespace cktool
