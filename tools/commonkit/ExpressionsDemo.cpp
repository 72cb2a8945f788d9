// Demo section: a filter over a property set, evaluated in memory, printed as
// SQL with bound values and sent through a data stream.

#include "Command.h"
#include "Demo.h"

#include <CommonKit/expressions/Expressions.h>
#include <CommonKit/properties/Properties.h>
#include <CommonKit/properties/PropertySet.h>

#include <QDataStream>
#include <QFile>

namespace cktool {
namespace {

struct Camera
{
    const char* name;
    int events;
    bool recording;
    int zone;
};

QString values(const QList<QVariant>& list)
{
    QStringList texts;
    for (const QVariant& value : list)
        texts << value.toString();
    return texts.join(QStringLiteral(", "));
}

bool runExpressionsDemo(DemoContext& context)
{
    QTextStream& out = context.out;
    bool ok = true;

    kogen::PropertySet record;
    auto* name = new kogen::StringProperty(QStringLiteral("name"));
    auto* events = new kogen::IntProperty(QStringLiteral("events"));
    auto* recording = new kogen::BoolProperty(QStringLiteral("recording"));
    auto* zone = new kogen::IntProperty(QStringLiteral("zone"));
    record.add(name);
    record.add(events);
    record.add(recording);
    record.add(zone);

    // Busy cameras of zones 1 and 3, or any camera that records.
    kogen::ElementOf zones(*zone);
    zones << 1 << 3;
    const kogen::ExpressionHandle filter =
        (*events >= QVariant(10) && zones) || *recording == QVariant(true);

    out << tr("Filter as code: %1").arg(filter->toString(kogen::Expression::PrintCode)) << "\n";
    const QString sql = filter->toString(kogen::Expression::PrintSql | kogen::Expression::PrintPlaceholders);
    const QList<QVariant> bound = filter->collectPlaceholders();
    out << tr("Filter as SQL: %1").arg(sql) << "\n"
        << tr("  bound values in order: %1").arg(values(bound)) << "\n";
    ok = ok && sql == QLatin1String("(events >= ? AND zone IN (?,?)) OR recording = ?") && bound.size() == 4;

    const Camera cameras[] = {
        {"Gate", 12, false, 1}, {"Lobby", 30, false, 2}, {"Yard", 2, true, 4}, {"Dock", 10, false, 3}, {"Roof", 0, false, 1},
    };
    const bool expected[] = {true, false, true, true, false};
    int index = 0;
    for (const Camera& camera : cameras) {
        name->setVariantValue(QString::fromLatin1(camera.name));
        events->setVariantValue(camera.events);
        recording->setVariantValue(camera.recording);
        zone->setVariantValue(camera.zone);
        const QVariant match = filter->evaluate(record, nullptr);
        out << tr("  %1 (events %2, zone %3, recording %4): %5")
                   .arg(QString::fromLatin1(camera.name))
                   .arg(camera.events)
                   .arg(camera.zone)
                   .arg(camera.recording ? tr("yes") : tr("no"))
                   .arg(match.toBool() ? tr("matches") : tr("no match"))
            << "\n";
        ok = ok && match.toBool() == expected[index++];
    }

    // A sort key and a function call.
    const kogen::ExpressionHandle order = kogen::ExpressionList(-*events, +*name);
    out << tr("Sort list: %1").arg(order->toString(kogen::Expression::PrintSql | kogen::Expression::PrintOrder)) << "\n";
    const kogen::ExpressionHandle upperName = kogen::upper(kogen::ValueExpression(*name));
    out << tr("Function: %1 gives \"%2\"").arg(upperName->toString(kogen::Expression::PrintSql),
                                               upperName->evaluate(record, nullptr).toString())
        << "\n";

    // Write the filter to a file and read it back.
    const QString path = context.path(QStringLiteral("filter.bin"));
    {
        QFile file(path);
        ok = ok && file.open(QIODevice::WriteOnly);
        QDataStream stream(&file);
        stream << filter;
    }
    QFile file(path);
    ok = ok && file.open(QIODevice::ReadOnly);
    QDataStream stream(&file);
    const kogen::ExpressionHandle back = kogen::Expression::readExpression(stream);
    const bool same = back.equals(filter) && stream.status() == QDataStream::Ok;
    out << tr("Stream: %1 bytes written, read back %2").arg(file.size()).arg(same ? tr("equal") : tr("different"))
        << "\n";
    ok = ok && same;
    return ok;
}

const DemoRegistration registration({20, QT_TRANSLATE_NOOP("cktool", "Expressions"), runExpressionsDemo});

} // namespace
} // namespace cktool
