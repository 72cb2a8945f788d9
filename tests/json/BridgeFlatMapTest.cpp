// qVariantMapFlat and jsonVariantFlat: inverse to each other, and how the
// schema decides what stays one entry.

#include "testlib/TestFiles.h"
#include <CommonKit/json/VariantConversion.h>
#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/Schema.h>

#include <gtest/gtest.h>

#include <QBitArray>
#include <QColor>
#include <QDateTime>
#include <QJsonDocument>
#include <QRect>
#include <QSizeF>
#include <QRegularExpression>
#include <QUuid>

namespace {

json::Variant parsed(const std::string& text)
{
    json::JsonParser parser;
    EXPECT_TRUE(parser.parse(text)) << parser.lastError() << text;
    return parser.parseComplete();
}

// One document with every kind of member, nested in objects and in lists of
// objects (with gaps): flattened with its schema (in tests/data/json) and
// rebuilt, it comes back as it was, and the schema keeps typed members one
// entry. (Dates, times, points, sizes and rectangles at the top level go the
// same way in the settings format's test, against QJsonDocument.)
TEST(JsonBridgeFlatMap, FlatteningAndRebuildingAreInverse)
{
    const auto schema = json::Schema::fromVariant(
        parsed(cktest::readFile(QStringLiteral(COMMONKIT_TEST_DATA "/json/flat-map-schema.json")).toStdString()));
    ASSERT_TRUE(schema);
    json::Variant value = parsed(R"({"a": -5, "ax": 0.25, "b": "a/b/c", "bx": true, "c": null, "names": ["", "x"],
        "ports": [3, -9], "mixed": [1, "12", true, 0.5, "#qdata"], "none": [], "cams": [
        {"since": "2024-02-29", "e": "size", "sub": [{"day": "1900-01-01", "f": "line\nbreak"}, null, {"g": 1}]},
        null, {"sub": [], "area": {"left": 1, "top": -2, "width": 3, "height": 4}}]})");
    QBitArray bits(11);
    bits.setBit(3);
    const QVariant tagged[] = {QColor(1, 2, 3, 4), bits, QRegularExpression(QStringLiteral("x{2}"))};
    for (const QVariant& v : tagged)
        value.set(std::string("tag-") + v.typeName(), jsonVariant(v, true));
    value.attachSchema(schema);

    QMap<QString, QVariant> flat;
    qVariantMapFlat(flat, value, '/', QString());
    json::Variant rebuilt = jsonVariantFlat(flat, '/', schema, true);
    // Rebuilt members come in key order: compared as QJsonDocument reads them.
    const auto object = [](const json::Variant& v) {
        return QJsonDocument::fromJson(QByteArray::fromStdString(v.toJson()));
    };
    EXPECT_FALSE(object(value).isNull());
    EXPECT_EQ(object(rebuilt), object(value)) << rebuilt.toJson();
    rebuilt.attachSchema(schema);
    QMap<QString, QVariant> again;
    qVariantMapFlat(again, rebuilt, '/', QString());
    EXPECT_EQ(again, flat);

    // Without the schema these would have come back as strings, maps or
    // indexed keys; tagged objects stay whole by their tag.
    for (const QVariant& v : tagged)
        EXPECT_EQ(flat.value(QStringLiteral("tag-") + QString::fromLatin1(v.typeName())), v) << v.typeName();
    EXPECT_EQ(flat.value(QStringLiteral("names")), QStringList({QString(), QStringLiteral("x")}));
    EXPECT_EQ(flat.value(QStringLiteral("ports")), QVariantList({qlonglong(3), qlonglong(-9)}));
    EXPECT_EQ(flat.value(QStringLiteral("cams/1/since")), QDate(2024, 2, 29));
    EXPECT_EQ(flat.value(QStringLiteral("cams/1/sub/1/day")), QDate(1900, 1, 1));
    EXPECT_EQ(flat.value(QStringLiteral("cams/3/area")), QRect(1, -2, 3, 4));
    EXPECT_EQ(flat.value(QStringLiteral("mixed/5")), QStringLiteral("#qdata"));
    // Another separator, below a prefix.
    QMap<QString, QVariant> prefixed;
    qVariantMapFlat(prefixed, value["cams"], '.', QStringLiteral("top"));
    EXPECT_EQ(prefixed.firstKey(), QStringLiteral("top.1.e"));
    EXPECT_EQ(prefixed.value(QStringLiteral("top.size")), 3);
    EXPECT_EQ(prefixed.value(QStringLiteral("top.1.sub.1.f")), QStringLiteral("line\nbreak"));
}

// How the schema of one member "m" decides the flat entries of its value.
TEST(JsonBridgeFlatMap, SchemaDecidesWhatStaysWhole)
{
    const std::string types = std::string(k_dataTypesUrl);
    struct Row { std::string schema; const char* value; QMap<QString, QVariant> flat; };
    const Row rows[] = {
        {R"({"$ref": ")" + types + R"(#point"})", R"({"x": 1.0, "y": -2})", {{"m", QPoint(1, -2)}}},
        {R"({"$ref": ")" + types + R"(#point"})", R"({"x": 1.5, "y": 2})", {{"m/x", 1.5}, {"m/y", qlonglong(2)}}},
        {R"({"$ref": ")" + types + R"(#rectangle"})", R"({"top": 2, "left": 1, "height": 4, "width": 3})", {{"m", QRect(1, 2, 3, 4)}}},
        {R"({"$ref": "#/definitions/place"})", R"({"width": 2, "height": 0.5})", {{"m", QSizeF(2, 0.5)}}},
        {R"({"type": "string", "format": "date"})", R"("2024-13-01")", {{"m", QStringLiteral("2024-13-01")}}},
        {R"({"type": "string", "format": "time"})", R"("09:05:03")", {{"m", QTime(9, 5, 3)}}},
        {R"({"type": "string", "format": "time"})", R"("09:05::03")", {{"m", QTime(9, 5, 3)}}},
        {R"({"type": "string", "format": "date-time"})", R"("2024-01-02T03:04:05Z")",
         {{"m", QDateTime(QDate(2024, 1, 2), QTime(3, 4, 5), Qt::UTC)}}},
        {R"({"type": "string", "format": "uuid"})", R"("00000000-0000-0000-0000-000000000000")", {{"m", QUuid()}}},
        {R"({"type": "string", "format": "uuid"})", R"("not-a-uuid")", {{"m", QStringLiteral("not-a-uuid")}}},
        {R"({"type": "array", "items": {"type": "string"}})", R"("one")", {{"m", QStringLiteral("one")}}},
        {R"({"type": "array", "items": {"type": "boolean"}})", R"([true, false])", {{"m", QVariantList{true, false}}}},
        {R"({"type": "array", "items": {"type": "object"}})", R"([])", {{"m/size", 0}}},
        {R"({"type": "object"})", R"({"size": 0})", {{"m/size", qlonglong(0)}}},
        {R"({"type": "object"})", R"({"b/c": 1, "b": {"c": 2}, "a": 3})", {{"m/a", qlonglong(3)}, {"m/b/c", qlonglong(2)}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.schema + " " + row.value);
        const auto schema = json::Schema::fromVariant(parsed(R"({"properties": {"m": )" + row.schema
                                                             + R"j(}, "definitions": {"place": {"$ref": ")j" + types
                                                             + R"j(#dimension(number)"}}})j"));
        ASSERT_TRUE(schema);
        json::Variant value = json::Object();
        value.set("m", parsed(row.value));
        value.attachSchema(schema);
        QMap<QString, QVariant> flat;
        qVariantMapFlat(flat, value, '/', QString());
        EXPECT_EQ(flat, row.flat);
        for (auto it = flat.begin(); it != flat.end(); ++it)
            EXPECT_EQ(it.value().userType(), row.flat.value(it.key()).userType()) << it.key().toStdString();
        // Rebuilt with the schema, an empty object stays an object and an empty list a list.
        if (row.flat.firstKey() == QLatin1String("m/size")) {
            EXPECT_EQ(jsonVariantFlat(flat, '/', schema, true).toJson(), value.toJson());
        }
    }
    // Where the schema expects a list of strings, a single text becomes one.
    const auto stringList = json::Schema::fromVariant(parsed(R"({"properties": {"m": {"type": "array", "items": {"type": "string"}}}})"));
    EXPECT_EQ(jsonVariantFlat({{QStringLiteral("m"), QStringLiteral("one")}}, '/', stringList, true).toJson(), R"({"m":["one"]})");
    EXPECT_EQ(jsonVariantFlat({{QStringLiteral("m"), QVariantList{1, true}}}, '/', stringList, true).toJson(), R"({"m":["1","true"]})");
}

} // namespace
