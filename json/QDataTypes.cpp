// The Qt geometry types as application data types of the JSON library.

#include <CommonKit/json/VariantConversion.h>

#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/json/ApplicationDataType.h>
#include <CommonKit/support/json/JsonParser.h>

#include <QFile>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <QSizeF>

#include <memory>

const char* const k_dataTypesUrl = "https://schemas.commonkit.invalid/datatypes.json";

namespace {

template<typename T>
using Mapping = json::ObjectValueProperty<T>;

template<typename Point>
std::shared_ptr<Mapping<Point>> pointMapping()
{
    auto mapping = std::make_shared<Mapping<Point>>();
    mapping->add("x", &Point::x, &Point::setX).add("y", &Point::y, &Point::setY);
    return mapping;
}

template<typename Size>
std::shared_ptr<Mapping<Size>> sizeMapping()
{
    auto mapping = std::make_shared<Mapping<Size>>();
    mapping->add("width", &Size::width, &Size::setWidth).add("height", &Size::height, &Size::setHeight);
    return mapping;
}

// The setters run in this order: a rectangle keeps its right edge when its
// left edge moves, so the width is set after the left edge.
template<typename Rect>
std::shared_ptr<Mapping<Rect>> rectMapping()
{
    auto mapping = std::make_shared<Mapping<Rect>>();
    mapping->add("left", &Rect::left, &Rect::setLeft)
        .add("top", &Rect::top, &Rect::setTop)
        .add("width", &Rect::width, &Rect::setWidth)
        .add("height", &Rect::height, &Rect::setHeight);
    return mapping;
}

void registerType(QVariant::Type type, const char* fragment, std::shared_ptr<const json::ApplicationDataType> mapping)
{
    json::Schema::registerApplicationDataType(QVariant::typeToName(type), std::string(k_dataTypesUrl) + fragment,
                                              std::move(mapping));
}

} // namespace

// Outside any namespace: Q_INIT_RESOURCE declares the resource's function.
static void registerDataTypesDocument()
{
    // The library's resources register themselves when it loads, perhaps
    // only after this runs; registering twice does no harm.
    Q_INIT_RESOURCE(datatypes);
    QFile file(QStringLiteral(":/json/datatypes.json"));
    json::JsonParser parser;
    if (!file.open(QIODevice::ReadOnly) || !parser.parse(file.readAll().toStdString())) {
        ko::LogLine(ko::Log::Error, "registerQDataTypes") << "the geometry type schema is missing " << parser.lastError();
        return;
    }
    json::Schema::registerSchema(k_dataTypesUrl, parser.parseComplete());
}

bool registerQDataTypes()
{
    static const bool registered = [] {
        registerType(QVariant::Point, "#point", pointMapping<QPoint>());
        registerType(QVariant::PointF, "#point(number)", pointMapping<QPointF>());
        registerType(QVariant::Size, "#dimension", sizeMapping<QSize>());
        registerType(QVariant::SizeF, "#dimension(number)", sizeMapping<QSizeF>());
        registerType(QVariant::Rect, "#rectangle", rectMapping<QRect>());
        registerType(QVariant::RectF, "#rectangle(number)", rectMapping<QRectF>());
        registerDataTypesDocument();
        return true;
    }();
    return registered;
}

namespace {
// Register when the library loads.
[[maybe_unused]] const bool k_dataTypesAtLoad = registerQDataTypes();
} // namespace
