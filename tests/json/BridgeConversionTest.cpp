// QVariant <-> json::Variant: the conversion tables, tagged meta types,
// flat keys that cannot be placed and object models. (The flat layout is
// checked against QSettings' own in the settings format's test.)

#include "testlib/DataTable.h"
#include "testlib/LogCapture.h"
#include <CommonKit/json/VariantConversion.h>
#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/ObjectModel.h>

#include <gtest/gtest.h>

#include <QBitArray>
#include <QColor>
#include <QDataStream>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QVersionNumber>


namespace {

using cktest::LogCapture;

json::Variant parse(const std::string& text)
{
    json::JsonParser parser;
    EXPECT_TRUE(parser.parse(text)) << parser.lastError();
    return parser.parseComplete();
}

std::string qtStreamBytes(const QVariant& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes.toStdString();
}

QVariant nested(const QVariant& inner)
{
    return QVariant(QMetaType::QVariant, &inner);
}

// (Dates, times, points, rectangles and string lists are checked as the
// settings format writes them, with QJsonDocument.)
// Scalars both ways, from tests/data/json/scalar-conversions.tsv.
TEST(JsonBridge, ScalarsConvertByTheDataTable)
{
    for (const cktest::DataRow& row : cktest::dataRows("json/scalar-conversions.tsv", 3)) {
        const QVariant value = cktest::variantOf(row[0]);
        EXPECT_EQ(jsonVariant(value, false).toJson(), row[1]) << row.where;
        const QVariant back = qVariant(parse(row[1]));
        EXPECT_EQ(back.userType() == value.userType() && back == value, row[2] == "1") << row.where;
    }
}

// A value that is no number, text or known type gives 0 and one warning.
TEST(JsonBridge, QtValuesConvertByTheTable)
{
    LogCapture log;
    int target = 0;
    struct Row { QVariant value; const char* json; };
    const Row rows[] = {
        {QVariant::fromValue<short>(-3), "-3"},
        {QVariant::fromValue<char>('a'), "97"},
        {QVariant::fromValue<uchar>(200), "200"},
        {QVariant::fromValue<ushort>(65535), "65535"},
        {QPointF(0.5, 2), R"({"x":0.5,"y":2.0})"},
        {QSizeF(1.5, 2.5), R"({"width":1.5,"height":2.5})"},
        {QVariantList{1, QStringLiteral("x"), QVariantList{true}}, R"([1,"x",[true]])"},
        {QVariantMap{{QStringLiteral("b"), 1}, {QStringLiteral("a"), QVariantMap{{QStringLiteral("c"), QVariant()}}}},
         R"({"a":{"c":null},"b":1})"},
        {QVariantHash{{QStringLiteral("k"), 2.5}, {QStringLiteral("j"), QPoint(1, 1)}}, R"({"j":{"x":1,"y":1},"k":2.5})"},
        {QJsonValue(QJsonValue::Undefined), "null"},
        {QJsonValue(3), "3.0"},
        {QJsonValue(QStringLiteral("s")), "\"s\""},
        {QJsonObject{{QStringLiteral("n"), 1}, {QStringLiteral("l"), QJsonArray{true, QJsonValue()}}},
         R"({"l":[true,null],"n":1.0})"},
        {QJsonArray{QStringLiteral("a"), QJsonObject()}, R"(["a",{}])"},
        {QJsonDocument(), "null"},
        {QJsonDocument(QJsonArray{1}), "[1.0]"},
        {QJsonDocument(QJsonObject{{QStringLiteral("a"), false}}), R"({"a":false})"},
        {makeQVariant(parse(R"({"z":[1,"q"]})")), R"({"z":[1,"q"]})"},
        {QColor(1, 2, 3), "\"#010203\""},                       // a Qt type without meta types: its text
        {QVariant::fromValue(QVersionNumber(1, 2)), "\"\""},     // which is often empty
        {nested(QStringLiteral("inner")), "\"inner\""},
        {QVariant::fromValue(static_cast<void*>(&target)), "0"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.json);
        EXPECT_EQ(jsonVariant(row.value, false).toJson(), row.json);
    }
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_TRUE(log.contains("[jsonVariant] numeric overflow at: ")) << log.text();
}

TEST(JsonBridge, JsonValuesConvertByTheTable)
{
    struct Row { const char* json; QVariant expected; };
    const Row rows[] = {
        {R"([1,"a",null])", QVariantList{qlonglong(1), QStringLiteral("a"), QVariant()}},
        {R"({"b":{"c":[]},"a":1.0})",
         QVariantMap{{QStringLiteral("a"), 1.0}, {QStringLiteral("b"), QVariantMap{{QStringLiteral("c"), QVariantList()}}}}},
        {R"({"x":1,"y":2})", QVariantMap{{QStringLiteral("x"), qlonglong(1)}, {QStringLiteral("y"), qlonglong(2)}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.json);
        const QVariant converted = qVariant(parse(row.json));
        EXPECT_EQ(converted.userType(), row.expected.userType());
        EXPECT_EQ(converted, row.expected);
    }
    EXPECT_EQ(qStringList(json::List(parse(R"(["a",2,true,[1]])"))),
              (QStringList{QStringLiteral("a"), QStringLiteral("2"), QStringLiteral("true"), QString()}));
}

TEST(JsonBridge, TypesJsonCannotExpressTravelAsTheirQtStreamImage)
{
    QBitArray bits(11);
    bits.setBit(3);
    const QVariant values[] = {QColor(1, 2, 3, 4), bits, QRegularExpression(QStringLiteral("a+b"), QRegularExpression::CaseInsensitiveOption),
                               QLocale(QLocale::German, QLocale::Austria)};
    for (const QVariant& value : values) {
        SCOPED_TRACE(value.typeName());
        const json::Variant tagged = jsonVariant(value, true);
        EXPECT_EQ(tagged.keys(), (std::vector<std::string>{"#qtype", "#alt-type-name", "#qdata"}));
        EXPECT_EQ(tagged["#qtype"].toInt64(), static_cast<int>(value.type()));
        EXPECT_EQ(tagged["#alt-type-name"].toString(), value.typeName());
        EXPECT_EQ(tagged["#qdata"].toString(), qtStreamBytes(value));
        // Only "#qdata" is read; other members are ignored.
        json::Variant decorated = tagged;
        decorated.set("#qtype", "nonsense");
        decorated.set("extra", 1);
        EXPECT_EQ(qVariant(decorated), value);
        // A variant inside a variant is tagged whatever the caller asked for.
        EXPECT_EQ(jsonVariant(nested(value), false), tagged);
    }
    json::Variant broken = json::Object();
    // Empty, cut short, an unknown type name, a list claiming 2^31 elements.
    for (const std::string& data : {std::string(), std::string("\0\0\0\x43", 4), std::string("\xff\xff\xff\xff\0garbage", 12),
                                    std::string("\0\0\0\x09\0\x7f\xff\xff\xff", 9)}) {
        broken.set("#qdata", data);
        EXPECT_FALSE(qVariant(broken).isValid());
    }
}

TEST(JsonBridge, FlatMapKeysThatCannotBePlacedAreSkippedWithAWarning)
{
    LogCapture log;
    const std::vector<std::string>& lines = log.lines;
    const QMap<QString, QVariant> flat{{QStringLiteral("a"), 1},
                                       {QStringLiteral("a/b"), 2},
                                       {QStringLiteral("font/size"), 12},
                                       {QStringLiteral("list/1"), QStringLiteral("x")},
                                       {QStringLiteral("list/size"), QStringLiteral("many")},
                                       {QStringLiteral("list/9999999"), 1}};
    const json::Variant value = jsonVariantFlat(flat, '/', nullptr, true);
    EXPECT_EQ(value.toJson(), R"({"a":1,"font":{"size":12},"list":["x"]})");
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_NE(lines[0].find("[jsonVariantFlat] Json - could not locate a/b"), std::string::npos) << lines[0];
    EXPECT_NE(lines[1].find("could not locate list/9999999"), std::string::npos) << lines[1];
    EXPECT_NE(lines[2].find("could not locate list/size"), std::string::npos) << lines[2];
}

class PointModel : public json::CObjectModel
{
public:
    PointModel() : CObjectModel("QPoint", "point") {}
    json::Variant variantFromCObject(const void* object) override { return jsonVariant(*static_cast<const QPoint*>(object), false); }
    void* objectPtrFromVariant(const json::Variant&) override { return nullptr; }
};

TEST(JsonObjectModel, ModelsAreFoundByEitherName)
{
    json::CObjectModel::registerModel(std::make_shared<PointModel>());
    const auto model = json::CObjectModel::find("point");
    ASSERT_TRUE(model);
    EXPECT_EQ(json::CObjectModel::find("QPoint"), model);
    EXPECT_FALSE(json::CObjectModel::find("QSize"));
    const QPoint point(4, 5);
    EXPECT_EQ(model->toVariant(&point).toJson(), R"({"x":4,"y":5})");
    EXPECT_TRUE(model->toVariant(nullptr).isNull());
}

} // namespace
