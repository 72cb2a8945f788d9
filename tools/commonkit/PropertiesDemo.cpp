// Demo section: a property set filled from a variant map, validated and dumped.

#include "Command.h"
#include "Demo.h"

#include <CommonKit/properties/Properties.h>
#include <CommonKit/properties/PropertySet.h>
#include <CommonKit/properties/PropertyValidator.h>

#include <boost/make_shared.hpp>

namespace cktool {
namespace {

bool runPropertiesDemo(DemoContext& context)
{
    QTextStream& out = context.out;
    bool ok = true;

    // A camera's export options: the properties with their types, then the
    // values from a map as a client would receive them.
    kogen::PropertySet options;
    options.add(new kogen::StringProperty(QStringLiteral("camera")));
    options.add(new kogen::IntProperty(QStringLiteral("fps")));
    options.add(new kogen::DoubleProperty(QStringLiteral("quality")));
    options.add(new kogen::StringListProperty(QStringLiteral("tracks")));
    options.add(new kogen::DateProperty(QStringLiteral("day")));
    options.add(new kogen::RectProperty(QStringLiteral("area")));
    options[QStringLiteral("fps")].setDescription(tr("frames per second, 1 to 60"));
    options[QStringLiteral("quality")].setDescription(tr("compression quality, 0 to 1"));

    const QVariantMap values{
        {QStringLiteral("camera"), QStringLiteral("Entrance 2")},
        {QStringLiteral("fps"), QStringLiteral("75")},
        {QStringLiteral("quality"), 0.8},
        {QStringLiteral("tracks"), QByteArray("video,audio,,metadata")},
        {QStringLiteral("day"), QStringLiteral("2024-05-06")},
        {QStringLiteral("area"), QRect(10, 20, 640, 480)},
    };
    const bool allSet = options.setVariantValues(values);
    out << tr("Filled %1 properties from a map: %2").arg(options.count()).arg(allSet ? tr("all accepted") : tr("refused"))
        << "\n";
    ok = ok && allSet && options.count() == 6;

    // An unknown name is refused and leaves an empty entry behind.
    const bool unknownSet = options.setVariantValues({{QStringLiteral("zoom"), 2}});
    out << tr("Setting the unknown name \"zoom\": %1, the set now counts %2 names")
               .arg(unknownSet ? tr("accepted") : tr("refused")).arg(options.count())
        << "\n";
    ok = ok && !unknownSet && options.contains(QStringLiteral("zoom"));
    options.remove(QStringLiteral("zoom"));

    options[QStringLiteral("fps")].setValidator(boost::make_shared<kogen::DefaultIntValidator>(1, 60));
    options[QStringLiteral("quality")].setValidator(boost::make_shared<kogen::DefaultDoubleValidator>(0.0, 1.0));
    options.validate();
    for (const QString& name : options.allPropertyNames()) {
        const kogen::BaseProperty& property = options[name];
        if (property.validator() && !property.isValid()) {
            out << tr("Validation of \"%1\" = %2 failed: %3")
                       .arg(name, property.variantValue().toString(), property.validationMessage())
                << "\n";
        }
    }
    ok = ok && !options[QStringLiteral("fps")].isValid() && options[QStringLiteral("quality")].isValid();

    kogen::IntProperty::setValue(options[QStringLiteral("fps")], 25);
    options.validate();
    out << tr("After setting fps to 25 it is %1").arg(options[QStringLiteral("fps")].isValid() ? tr("valid") : tr("invalid"))
        << "\n";
    ok = ok && options[QStringLiteral("fps")].isValid();

    // Copies share their properties.
    kogen::PropertySet copy = options;
    kogen::StringProperty::setValue(copy[QStringLiteral("camera")], QStringLiteral("Entrance 3"));
    out << tr("A copy changed the camera; the original now reads \"%1\"")
               .arg(kogen::StringProperty::getValue(options[QStringLiteral("camera")], QString()))
        << "\n";
    ok = ok && copy == options;

    out << tr("The set as text:") << "\n";
    options.dump(out) << "\n";
    return ok;
}

const DemoRegistration registration({10, QT_TRANSLATE_NOOP("cktool", "Properties"), runPropertiesDemo});

} // namespace
} // namespace cktool
