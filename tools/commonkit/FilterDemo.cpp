// Demo section: a filter saved as text, parsed over property sets and
// evaluated on rows, then the same language used on an action log through
// the filter model.

#include "Command.h"
#include "Demo.h"

#include <CommonKit/expressions/Expression.h>
#include <CommonKit/logging/ActionLog.h>
#include <CommonKit/logging/ActionLogContextSwitchEntry.h>
#include <CommonKit/logview/ActionLogFilterModel.h>
#include <CommonKit/logview/ActionLogModel.h>
#include <CommonKit/properties/Properties.h>
#include <CommonKit/properties/PropertySet.h>

#include <QStringList>

namespace cktool {
namespace {

struct Camera
{
    const char* name;
    int events;
    int zone;
    bool recording;
};

bool showSavedFilter(QTextStream& out)
{
    kogen::PropertySet row;
    row.add(new kogen::StringProperty(QStringLiteral("name")));
    row.add(new kogen::IntProperty(QStringLiteral("events")));
    row.add(new kogen::IntProperty(QStringLiteral("zone")));
    row.add(new kogen::BoolProperty(QStringLiteral("recording")));

    const QString saved = QStringLiteral("(events >= 10 AND zone IN (1, 3)) OR recording = 'true'");
    QString error;
    const kogen::ExpressionHandle filter = kogen::Expression::parse(saved, row, &error);
    out << cktool::tr("Saved filter: %1").arg(saved) << "\n";
    if (!error.isEmpty()) {
        out << "  " << error << "\n";
        return false;
    }
    QStringList bound;
    for (const QVariant& value : filter->collectPlaceholders())
        bound << value.toString();
    out << cktool::tr("  as SQL to bind: %1  with (%2)")
               .arg(filter->toString(kogen::Expression::PrintSql | kogen::Expression::PrintPlaceholders),
                    bound.join(QStringLiteral(", ")))
        << "\n";
    const Camera cameras[] = {{"Gate", 12, 3, false}, {"Hall", 4, 1, false}, {"Yard", 0, 2, true}};
    QStringList accepted;
    for (const Camera& camera : cameras) {
        row.setVariantValues({{QStringLiteral("name"), QString::fromLatin1(camera.name)},
                              {QStringLiteral("events"), camera.events},
                              {QStringLiteral("zone"), camera.zone},
                              {QStringLiteral("recording"), camera.recording}});
        const QVariant result = filter->evaluate(row, nullptr);
        out << "  " << camera.name << ": " << (result.toBool() ? "true" : "false") << "\n";
        if (result.toBool())
            accepted << QString::fromLatin1(camera.name);
    }
    return accepted == QStringList({QStringLiteral("Gate"), QStringLiteral("Yard")});
}

bool filterTheLog(DemoContext& context)
{
    QTextStream& out = context.out;
    ko::ActionLog log(context.path(QStringLiteral("views.kol")));
    log.mute(false);
    const char* moves[][2] = {{"/logs/a.kol", "/logs/b.kol"}, {"/logs/b.kol", "/share/c.kol"}, {"/share/c.kol", "/logs/a.kol"}};
    for (const auto& move : moves) {
        ko::ActionLogContextSwitchEntry entry(QString::fromLatin1(move[0]), QString::fromLatin1(move[1]));
        log.log(entry);
    }
    ko::ActionLogModel model(&log);
    ko::ActionLogFilterModel filtered;
    filtered.setSourceModel(&model);
    const QString text = QStringLiteral("type = 'ALog' AND newFile IN ('/logs/a.kol', '/logs/b.kol')");
    QString error;
    if (!filtered.setFilterText(text, &error)) {
        out << "  " << error << "\n";
        return false;
    }
    out << cktool::tr("Action log filter: %1").arg(text) << "\n";
    out << cktool::tr("  %1 of %2 entries shown:").arg(filtered.rowCount()).arg(model.rowCount()) << "\n";
    for (int row = 0; row < filtered.rowCount(); ++row)
        out << "    " << filtered.data(filtered.index(row, ko::ActionLogModel::DescriptionColumn)).toString() << "\n";
    return model.rowCount() == 3 && filtered.rowCount() == 2;
}

bool runFilterDemo(DemoContext& context)
{
    const bool saved = showSavedFilter(context.out);
    return filterTheLog(context) && saved;
}

const DemoRegistration registration({47, QT_TRANSLATE_NOOP("cktool", "Filters as text: saved, parsed and applied"),
                                     runFilterDemo});

} // namespace
} // namespace cktool
