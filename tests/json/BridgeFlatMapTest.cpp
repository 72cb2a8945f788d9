// qVariantMapFlat and jsonVariantFlat are inverse to each other: seeded
// random nested values with the schema that describes them.

#include <CommonKit/json/VariantConversion.h>
#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/Schema.h>

#include <gtest/gtest.h>

#include <QBitArray>
#include <QColor>
#include <QDateTime>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <QSizeF>
#include <QRegularExpression>
#include <QUuid>

#include <random>
#include <set>

namespace {

enum class Kind { Integer, Real, Text, Boolean, Null, Date, Time, DateTime, Uuid, StringList, IntegerList, ScalarList, Geometry, Tagged, Object, ObjectList };

struct Shape
{
    Kind kind;
    int choice = 0; // which geometry or tagged type
    std::vector<std::pair<std::string, Shape>> members; // of an object, or of each element of an object list
};

class Generator
{
public:
    explicit Generator(unsigned seed) : m_random(seed) {}

    Shape object(int depth)
    {
        std::set<std::string> names; // sorted, as the flat keys will be
        const int count = uniform(1, 4);
        while (static_cast<int>(names.size()) < count)
            names.insert(std::string(1, static_cast<char>('a' + uniform(0, 5))) + (uniform(0, 1) ? "x" : ""));
        Shape shape{Kind::Object, 0, {}};
        for (const std::string& name : names)
            shape.members.emplace_back(name, member(depth));
        return shape;
    }

    json::Variant schema(const Shape& shape) const
    {
        switch (shape.kind) {
        case Kind::Integer:
            return parse(R"({"type":"integer"})");
        case Kind::Date:
        case Kind::Time:
        case Kind::DateTime:
        case Kind::Uuid: {
            static const char* const formats[] = {"date", "time", "date-time", "uuid"};
            json::Variant result = parse(R"({"type":"string"})");
            result.set("format", formats[static_cast<int>(shape.kind) - static_cast<int>(Kind::Date)]);
            return result;
        }
        case Kind::StringList:
            return parse(R"({"type":"array","items":{"type":"string"}})");
        case Kind::IntegerList:
            return parse(R"({"type":"array","items":{"type":"integer"}})");
        case Kind::Geometry: {
            static const char* const fragments[] = {"#point", "#point(number)", "#dimension", "#dimension(number)", "#rectangle", "#rectangle(number)"};
            json::Variant result = json::Object();
            result.set("$ref", std::string(k_dataTypesUrl) + fragments[shape.choice]);
            return result;
        }
        case Kind::Object: {
            json::Variant properties = json::Object();
            for (const auto& member : shape.members) {
                const json::Variant memberSchema = schema(member.second);
                if (!memberSchema.isNull())
                    properties.set(member.first, memberSchema);
            }
            json::Variant result = parse(R"({"type":"object"})");
            result.set("properties", properties);
            return result;
        }
        case Kind::ObjectList: {
            json::Variant result = parse(R"({"type":"array"})");
            result.set("items", schema(Shape{Kind::Object, 0, shape.members}));
            return result;
        }
        default:
            return json::Variant();
        }
    }

    json::Variant value(const Shape& shape)
    {
        switch (shape.kind) {
        case Kind::Integer:
            return json::Variant(static_cast<long long>(m_random()) - (1LL << 31));
        case Kind::Real:
            return json::Variant(std::uniform_real_distribution<double>(-1e6, 1e6)(m_random));
        case Kind::Text:
            return text();
        case Kind::Boolean:
            return json::Variant(uniform(0, 1) == 1);
        case Kind::Null:
            return json::Variant();
        case Kind::Date:
            return jsonVariant(date(), false);
        case Kind::Time:
            return jsonVariant(time(), false);
        case Kind::DateTime:
            return jsonVariant(QDateTime(date(), time()), false);
        case Kind::Uuid: {
            const quint64 high = m_random();
            return jsonVariant(QUuid(static_cast<uint>(m_random()), 1, 2, 3, 4, 5, 6, 7, 8, static_cast<uchar>(high), 9), false);
        }
        case Kind::StringList:
        case Kind::IntegerList:
        case Kind::ScalarList: {
            json::Variant result = json::List();
            for (int i = uniform(0, 3); i > 0; --i)
                result.append(shape.kind == Kind::StringList ? text() : shape.kind == Kind::IntegerList ? json::Variant(uniform(-9, 9)) : scalar());
            return result;
        }
        case Kind::Geometry:
            return jsonVariant(geometry(shape.choice), false);
        case Kind::Tagged:
            return jsonVariant(tagged(shape.choice), true);
        case Kind::Object: {
            json::Variant result = json::Object();
            for (const auto& member : shape.members)
                result.set(member.first, value(member.second));
            return result;
        }
        case Kind::ObjectList: {
            json::Variant result = json::List();
            for (int i = uniform(0, 3); i > 0; --i)
                result.append(uniform(0, 9) == 0 ? json::Variant() : value(Shape{Kind::Object, 0, shape.members}));
            return result;
        }
        }
        return json::Variant();
    }

private:
    static json::Variant parse(const char* text)
    {
        json::JsonParser parser;
        parser.parse(text);
        return parser.parseComplete();
    }

    int uniform(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }

    Shape member(int depth)
    {
        const int last = depth < 3 ? static_cast<int>(Kind::ObjectList) : static_cast<int>(Kind::Tagged);
        Shape shape{static_cast<Kind>(uniform(0, last)), 0, {}};
        if (shape.kind == Kind::Geometry)
            shape.choice = uniform(0, 5);
        else if (shape.kind == Kind::Tagged)
            shape.choice = uniform(0, 2);
        else if (shape.kind == Kind::Object || shape.kind == Kind::ObjectList)
            shape.members = object(depth + 1).members;
        return shape;
    }

    json::Variant text()
    {
        static const char* const texts[] = {"", "plain", "a/b/c", "size", "12", "Grüße €", "\xF0\x9D\x84\x9E clef", "#qdata", "line\nbreak"};
        return json::Variant(texts[uniform(0, 8)]);
    }

    json::Variant scalar()
    {
        const json::Variant choices[] = {uniform(-1000, 1000), uniform(0, 1000) / 8.0, text(), uniform(0, 1) == 1};
        return choices[uniform(0, 3)];
    }

    QDate date() { return QDate(uniform(1900, 2100), uniform(1, 12), uniform(1, 28)); }
    QTime time() { return QTime(uniform(0, 23), uniform(0, 59), uniform(0, 59), uniform(0, 999)); }

    QVariant geometry(int choice)
    {
        const int a = uniform(-500, 500), b = uniform(-500, 500), c = uniform(0, 900), d = uniform(0, 900);
        const QVariant choices[] = {QPoint(a, b), QPointF(a / 4.0, b / 3.0), QSize(c, d), QSizeF(c / 8.0, d), QRect(a, b, c, d), QRectF(a / 2.0, b, c / 5.0, d)};
        return choices[choice];
    }

    QVariant tagged(int choice)
    {
        const QVariant choices[] = {QColor(uniform(0, 255), uniform(0, 255), uniform(0, 255), uniform(0, 255)),
                                    QBitArray(uniform(0, 40), uniform(0, 1) == 1), QRegularExpression(QStringLiteral("x{%1}").arg(uniform(0, 9)))};
        return choices[choice];
    }

    std::mt19937 m_random;
};

TEST(JsonBridgeFlatMap, FlatteningAndRebuildingAreInverse)
{
    std::set<int> typesSeen;
    for (unsigned seed = 1; seed <= 3000; ++seed) {
        Generator generator(seed);
        const Shape shape = generator.object(0);
        const auto schema = json::Schema::fromVariant(generator.schema(shape), "https://tests.commonkit.invalid/generated.json");
        ASSERT_TRUE(schema);
        json::Variant value = generator.value(shape);
        value.attachSchema(schema);

        QMap<QString, QVariant> flat;
        qVariantMapFlat(flat, value, '/', QString());
        json::Variant rebuilt = jsonVariantFlat(flat, '/', schema, true);
        ASSERT_EQ(rebuilt.toJson(), value.toJson()) << "seed " << seed;

        rebuilt.attachSchema(schema);
        QMap<QString, QVariant> again;
        qVariantMapFlat(again, rebuilt, '/', QString());
        ASSERT_EQ(again, flat) << "seed " << seed;
        for (const QVariant& entry : flat)
            typesSeen.insert(entry.userType());
    }
    // The schema kept these whole (or, for tagged objects, the tag did);
    // without it they would have come back as strings, maps or indexed keys.
    for (const int type : {int(QMetaType::QDate), int(QMetaType::QTime), int(QMetaType::QDateTime), int(QMetaType::QUuid),
                           int(QMetaType::QStringList), int(QMetaType::QVariantList), int(QMetaType::QPoint), int(QMetaType::QPointF),
                           int(QMetaType::QSize), int(QMetaType::QSizeF), int(QMetaType::QRect), int(QMetaType::QRectF),
                           int(QMetaType::QColor), int(QMetaType::QBitArray), int(QMetaType::QRegularExpression)})
        EXPECT_EQ(typesSeen.count(type), 1u) << QMetaType::typeName(type);
}

json::Variant parsed(const std::string& text)
{
    json::JsonParser parser;
    EXPECT_TRUE(parser.parse(text)) << parser.lastError() << text;
    return parser.parseComplete();
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
