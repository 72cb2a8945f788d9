// json::Variant, Object, List, VariantIterator and Path.

#include "testlib/DataTable.h"
#include "testlib/JsonScalar.h"
#include "testlib/TestFiles.h"
#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/JsonPrinter.h>
#include <CommonKit/support/json/Path.h>
#include <CommonKit/support/json/Variant.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

namespace {

using json::Variant;

TEST(JsonVariant, ScalarsKeepTypeAndConvertOnlyWhereTheValueFits)
{
    // The names of Variant::Type, in its order.
    const char* const types[] = {"Null", "Boolean", "Integer", "Real", "String", "Object", "List"};
    for (const cktest::DataRow& row : cktest::dataRows("support/json/scalar-conversions.tsv", 5)) {
        const Variant value = cktest::jsonScalar(row[0]);
        SCOPED_TRACE(row.where);
        EXPECT_STREQ(types[static_cast<int>(value.type())], row[1].c_str());
        bool ok[3] = {};
        const std::string int64 = std::to_string(value.toInt64(-99, &ok[0]));
        const std::string uint64 = std::to_string(value.toUInt64(99, &ok[1]));
        value.toDouble(0.0, &ok[2]);
        EXPECT_EQ(int64 + (ok[0] ? " 1" : " 0"), row[2]);
        EXPECT_EQ(uint64 + (ok[1] ? " 1" : " 0"), row[3]);
        EXPECT_EQ(ok[2] ? "1" : "0", row[4]);
        EXPECT_FALSE(value.isComposite());
        EXPECT_EQ(value.size(), 0u);
    }
    const std::uint64_t uint64Max = std::numeric_limits<std::uint64_t>::max();
    EXPECT_TRUE(Variant(uint64Max).isUnsigned());
    EXPECT_FALSE(Variant(7u).isUnsigned());
    EXPECT_EQ(Variant(1).toString("fallback"), "fallback");
    EXPECT_EQ(Variant("a\0b", 3).toString().size(), 3u);
}

TEST(JsonVariant, ObjectsKeepKeyOrderAndListsGrowWithNulls)
{
    Variant object;
    object.set("zeta", 1);
    object.set("alpha", 2);
    object.set("mid", 3);
    object.set("zeta", 4); // keeps its place
    EXPECT_EQ(object.keys(), (std::vector<std::string>{"zeta", "alpha", "mid"}));
    EXPECT_EQ(object.toJson(), R"({"zeta":4,"alpha":2,"mid":3})");
    EXPECT_TRUE(object.remove("alpha"));
    EXPECT_FALSE(object.remove("alpha"));
    EXPECT_EQ(object.toJson(), R"({"zeta":4,"mid":3})");
    EXPECT_TRUE(object.value("missing").isNull());
    EXPECT_TRUE(Variant(3).value("zeta").isNull());

    Variant list;
    list.append("a");
    list.setAt(3, true);
    EXPECT_EQ(list.toJson(), R"(["a",null,null,true])");
    EXPECT_TRUE(list.removeAt(1));
    EXPECT_FALSE(list.removeAt(3));
    list.resize(1);
    EXPECT_EQ(list.toJson(), R"(["a"])");
    EXPECT_TRUE(list.at(5).isNull());

    Variant text("s");
    EXPECT_THROW(text.set("k", 1), json::TypeError);
    EXPECT_THROW(text.append(1), json::TypeError);
    EXPECT_THROW(object.append(1), json::TypeError);
    EXPECT_THROW(list.set("k", 1), json::TypeError);
    EXPECT_EQ(text.toString(), "s");

    // Order of keys is part of the value.
    Variant ab, ba;
    ab.set("a", 1);
    ab.set("b", 2);
    ba.set("b", 2);
    ba.set("a", 1);
    EXPECT_NE(ab, ba);
    EXPECT_EQ(Variant(1), Variant(1.0));
    EXPECT_EQ(Variant(5u), Variant(5));

    // Object and List always have their type, whatever they are made from.
    EXPECT_EQ(json::Object(Variant(5)).toJson(), "{}");
    EXPECT_EQ(json::List(json::Object()).toJson(), "[]");
    EXPECT_EQ(json::Object(ab).toJson(), R"({"a":1,"b":2})");
}

TEST(JsonVariant, CopiesAndChildrenAreIndependentValues)
{
    Variant root;
    root.set("inner", json::Object());
    Variant inner = root.value("inner");
    inner.set("x", 1);
    root.set("y", 2);
    Variant copy = root;
    copy.set("y", 3);
    EXPECT_EQ(root.toJson(), R"({"inner":{},"y":2})");
    EXPECT_EQ(copy.toJson(), R"({"inner":{},"y":3})");
    EXPECT_EQ(inner.toJson(), R"({"x":1})");

    // A child read before the parent changes keeps the old value.
    Variant child = copy.value("inner");
    copy.set("inner", 5);
    EXPECT_TRUE(child.isObject());
    EXPECT_EQ(copy.value("inner").toInt64(), 5);

    // A value set into itself.
    Variant self;
    self.set("a", 1);
    self.set("me", self);
    EXPECT_EQ(self.toJson(), R"({"a":1,"me":{"a":1}})");
    Variant selfList;
    selfList.append(1);
    selfList.append(selfList);
    EXPECT_EQ(selfList.toJson(), "[1,[1]]");
}

TEST(JsonVariant, IteratorWalksMembersAndElementsOfASnapshot)
{
    Variant object;
    object.set("b", 1);
    object.set("a", "two");
    std::vector<std::string> seen;
    json::VariantIterator it(object);
    object.set("c", 3); // not seen by the iterator
    for (; !it.atEnd(); ++it)
        seen.push_back(std::to_string(it.index()) + ":" + it.key() + "=" + it.value().toJson());
    EXPECT_EQ(seen, (std::vector<std::string>{"0:b=1", "1:a=\"two\""}));
    EXPECT_TRUE(it.value().isNull());

    for (const Variant& scalar : {Variant(), Variant(1), Variant("text")})
        EXPECT_TRUE(json::VariantIterator(scalar).atEnd());
}

TEST(JsonPath, OneBasedAutoIndexBuildsSettingsArrays)
{
    json::Path path;
    path.setArrayBaseIndex(1);
    path.setAutoArrayIndex(true);
    Variant root;
    // Keys arrive sorted as text, so element 10 comes before element 2.
    for (const char* key : {"cams/1/name", "cams/10/name", "cams/2/name", "cams/2/port", "title"}) {
        path.setPath(key);
        EXPECT_TRUE(path.set(root, key)) << key;
    }
    EXPECT_EQ(root.value("cams").size(), 10u);
    EXPECT_EQ(root.value("cams").at(1).toJson(), R"({"name":"cams/2/name","port":"cams/2/port"})");
    EXPECT_TRUE(root.value("cams").at(4).isNull());
    path.setPath("cams/10/name");
    EXPECT_EQ(path.value(root).toString(), "cams/10/name");
    path.setPath("cams/0/name"); // below the base: a key, and lists have no keys
    EXPECT_FALSE(path.locate(root));
    EXPECT_FALSE(path.set(root, 1));

    path.setPath("cams/1");
    EXPECT_TRUE(path.remove(root));
    EXPECT_EQ(root.value("cams").size(), 9u);
    EXPECT_FALSE(json::Path("nothing/here").remove(root));
}

TEST(JsonPath, WithoutAutoIndexDecimalSegmentsMakeObjects)
{
    Variant root;
    json::Path path("a//1/", '/');
    EXPECT_EQ(path.toString('.'), "a.1");
    EXPECT_TRUE(path.set(root, "x"));
    EXPECT_EQ(root.toJson(), R"({"a":{"1":"x"}})");

    Variant list;
    list.append(0);
    list.append(1);
    EXPECT_TRUE(json::Path("1").set(list, "one"));
    EXPECT_FALSE(json::Path("2").set(list, "two")); // no growth
    EXPECT_EQ(list.toJson(), R"([0,"one"])");
    // The empty path is the root itself.
    EXPECT_TRUE(json::Path().set(list, 5));
    EXPECT_EQ(list, Variant(5));
}

// The examples of RFC 6901, section 5.
TEST(JsonPath, JsonPointersFollowTheRfcExamples)
{
    json::JsonParser parser;
    const QByteArray text = cktest::readFile(QStringLiteral(COMMONKIT_TEST_DATA "/support/json/rfc6901-document.json"));
    ASSERT_TRUE(parser.parse(text.toStdString())) << parser.lastError();
    const Variant document = parser.parseComplete();
    for (const cktest::DataRow& row : cktest::dataRows("support/json/rfc6901-pointers.tsv", 2)) {
        json::Path path;
        ASSERT_EQ(json::Path::fromJsonPointer(row[0], &path), !row[1].empty()) << row.where;
        if (row[1].empty())
            continue;
        EXPECT_EQ(path.value(document).toJson(), row[1]) << row.where;
        EXPECT_EQ(path.toJsonPointer(), row[0]);
        EXPECT_EQ(path.trail(document).size(), path.size() + 1) << row.where;
    }
    json::Path root;
    EXPECT_TRUE(json::Path::fromJsonPointer("", &root));
    EXPECT_EQ(root.trail(document).size(), 1u);
    EXPECT_EQ(json::Path("foo/7").trail(document).size(), 2u); // ends where the path leaves the value
}

} // namespace
