// json::Schema: loading, references, the converter's questions, validation.

#include "testlib/DataTable.h"
#include "testlib/TestFiles.h"
#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/Schema.h>

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

namespace {

using json::Schema;

json::Variant parse(const std::string& text)
{
    json::JsonParser parser;
    EXPECT_TRUE(parser.parse(text)) << parser.lastError();
    return parser.parseComplete();
}

// A schema (a document name or a schema text), a value, and whether the value
// is valid.
struct Row { const char* schema; std::string value; bool valid; };

void expectValidation(const Schema::Ptr& schema, const Row& row)
{
    ASSERT_TRUE(schema) << row.schema;
    std::string error;
    EXPECT_EQ(schema->validate(parse(row.value), &error), row.valid)
        << row.schema << " " << row.value.substr(0, 40) << "\n" << error.substr(0, 200);
}

// The rows of named-schemas.tsv for one test, resolved against base.
void expectNamedSchemas(const std::string& test, const std::string& base)
{
    int rows = 0;
    for (const cktest::DataRow& row : cktest::dataRows("support/json/named-schemas.tsv", 4))
        if (row[0] == test && ++rows)
            expectValidation(Schema::resolve(row[1], base), {row[1].c_str(), row[2], row[3] == "1"});
    EXPECT_GT(rows, 0) << "no rows for " << test;
}

// A schema document under tests/data/support/json.
json::Variant parseFile(const char* name)
{
    const QString path = QStringLiteral(COMMONKIT_TEST_DATA "/support/json/") + QLatin1String(name);
    return parse(cktest::readFile(path).toStdString());
}

class SchemaTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Schema::registerSchema("https://schemas.example.invalid/types.json", parseFile("types.schema.json"));
        Schema::registerSchema("https://schemas.example.invalid/settings.json", parseFile("settings.schema.json"));
    }
};

TEST_F(SchemaTest, AnswersTheConvertersQuestions)
{
    const Schema::Ptr root = Schema::resolve("https://schemas.example.invalid/settings.json");
    ASSERT_TRUE(root);
    EXPECT_EQ(root->type(), "object");
    // The questions, by the letters settings-questions.tsv names them with.
    const std::pair<char, bool (Schema::*)() const> questions[] = {
        {'S', &Schema::isStringList}, {'F', &Schema::isFlatList}, {'D', &Schema::isDate}, {'T', &Schema::isTime},
        {'M', &Schema::isDateTime},   {'U', &Schema::isUuid},     {'B', &Schema::isBinary}};
    for (const cktest::DataRow& row : cktest::dataRows("support/json/settings-questions.tsv", 3)) {
        const Schema::Ptr member = root->member(row[0]);
        ASSERT_TRUE(member) << row.where;
        for (const auto& question : questions)
            EXPECT_EQ(((*member).*question.second)(), row[1].find(question.first) != std::string::npos)
                << row.where << " " << question.first;
        EXPECT_EQ(member->type(), row[2]) << row.where;
    }
    // References are followed to their targets, across documents.
    const Schema::Ptr origin = root->member("origin");
    EXPECT_EQ(origin->documentUrl(), "https://schemas.example.invalid/types.json");
    EXPECT_EQ(origin->pointer(), "/definitions/point");
    EXPECT_EQ(origin->member("x")->type(), "integer");
    EXPECT_EQ(root->member("cams")->items()->member("name")->type(), "string");
    EXPECT_EQ(Schema::resolve("settings.json#/properties/a~0b~1c", "https://schemas.example.invalid/x")->type(),
              "boolean");
    // The unresolved node still tells which type URI it names.
    const Schema::Ptr originNode = Schema::resolve("https://schemas.example.invalid/settings.json#/properties/origin");
    ASSERT_TRUE(originNode);
    EXPECT_EQ(originNode->ref(), "https://schemas.example.invalid/types.json#point");
    EXPECT_FALSE(root->member("names")->member("x"));
}

TEST_F(SchemaTest, ValidatesWithReferencesAndFormats)
{
    const Schema::Ptr root = Schema::resolve("https://schemas.example.invalid/settings.json");
    ASSERT_TRUE(root);
    for (const cktest::DataRow& row : cktest::dataRows("support/json/settings-values.tsv", 3)) {
        const bool valid = row[2] == "1";
        std::string error;
        EXPECT_EQ(root->validate(parse(row[0]), &error), valid) << row.where << "\n" << error;
        EXPECT_EQ(error.empty(), valid) << row.where;
        EXPECT_EQ(root->errorString().isEmpty(), valid) << row.where;
        EXPECT_TRUE(root->errorString().contains(QString::fromStdString(row[1]))) << root->errorString().toStdString();
    }
    // A part of a document validates on its own.
    const Schema::Ptr origin = root->member("origin");
    EXPECT_TRUE(origin->validate(parse(R"({"x": 1, "y": 2})")));
    EXPECT_FALSE(origin->validate(parse(R"({"x": "1", "y": 2})")));
}

// A schema that is a "$ref" to a "$ref": every step into a document must
// reuse the document fetched for the first (the address sanitizer run reports
// each copy that is dropped instead).
TEST_F(SchemaTest, ValidatesThroughChainsOfReferencesAtTheTop)
{
    Schema::registerSchema("https://schemas.example.invalid/chain.json", parseFile("chain.schema.json"));
    Schema::registerSchema("https://schemas.example.invalid/types.json", parseFile("chain-types.schema.json"));
    expectNamedSchemas("chain", "https://schemas.example.invalid/");
}

// Documents named without "://" ("mem:", short URNs) are found like any
// other, and a "$ref" to such a name that is not registered fails cleanly
// instead of being taken for a path into the document that holds it.
TEST_F(SchemaTest, ValidatesDocumentsWhoseNamesHaveNoSlashes)
{
    Schema::registerSchema("mem:numbers", parse(R"({"definitions": {"small": {"type": "integer", "maximum": 9}},
                                                    "type": "string"})"));
    Schema::registerSchema("urn:x", parse(R"({"$ref": "mem:numbers#/definitions/small"})"));
    Schema::fromVariant(parse(R"({"type": "array", "items": {"$ref": "urn:x"}})"), "mem:list");
    expectNamedSchemas("names", "");

    // Each of the first three once overflowed the stack.
    for (const char* text : {R"({"$ref": "b:c"})", R"({"$ref": "b:c#"})", R"({"items": {"$ref": "mem:nothing#/a"}})",
                             R"({"$ref": "https://nowhere.example.invalid/x.json"})"}) {
        const Schema::Ptr dangling = Schema::fromVariant(parse(text));
        ASSERT_TRUE(dangling) << text;
        std::string error;
        EXPECT_FALSE(dangling->validate(parse("[1]"), &error)) << text;
        EXPECT_NE(error.find("names no schema"), std::string::npos) << text << ": " << error;
        EXPECT_TRUE(dangling->errorString().contains(QLatin1String("cannot be used: \"$ref\""))) << text;
    }
}

// The converter's questions resolve a "$ref" against the base URI an "$id"
// above sets, into the registered documents.
TEST_F(SchemaTest, ResolvesReferencesAgainstTheirBaseUri)
{
    const Schema::Ptr nested = Schema::fromVariant(parse(R"({"$id": "https://schemas.example.invalid/sub/",
                                                             "properties": {"p": {"$ref": "../types.json#point"}}})"));
    ASSERT_TRUE(nested && nested->member("p"));
    EXPECT_EQ(nested->member("p")->pointer(), "/definitions/point");
    EXPECT_EQ(Schema::resolve(nested->documentUrl() + "#/properties/p")->ref(),
              "https://schemas.example.invalid/types.json#point");
}

// Numbers compared by value, patterns, formats and pointers decoded once (the
// comments of the table tell more).
TEST_F(SchemaTest, ValidatesAsTheTableSays)
{
    for (const cktest::DataRow& row : cktest::dataRows("support/json/schema-values.tsv", 3))
        expectValidation(Schema::fromVariant(parse(row[0])), {row.where.c_str(), row[1], row[2] == "1"});
}

// Regular expressions meet long values and names without overflowing the
// stack or backtracking for ever, and accept what they always did.
TEST_F(SchemaTest, PatternsAndFormatsCopeWithLongStrings)
{
    const std::string longWord(200000, 'a');
    const std::string longDigits(200000, '1');
    const Row rows[] = {
        {R"({"pattern": "^[a-z]+$"})", '"' + longWord + '"', true},
        {R"({"pattern": "^[a-z]+$"})", '"' + longWord + "1\"", false},
        {R"({"pattern": "^(a|aa)+$"})", '"' + std::string(80, 'a') + "b\"", false},
        {R"({"format": "date"})", '"' + longDigits + "-05-06\"", true},
        {R"({"format": "date"})", '"' + longDigits + "-02-30\"", false},
        {R"({"format": "time"})", "\"07:08:09." + longDigits + "Z\"", true},
        {R"({"format": "time"})", "\"07:08:09." + longDigits + "\"", false},
        {R"({"format": "date-time"})", "\"2024-05-06T07:08:09." + longDigits + "+02:00\"", true},
        {R"({"patternProperties": {"^a+$": {"type": "integer"}}})", "{\"" + longWord + "\": 1}", true},
        {R"({"patternProperties": {"^a+$": {"type": "integer"}}})", "{\"" + longWord + "\": \"1\"}", false},
        {R"({"propertyNames": {"pattern": "^a+$"}})", "{\"" + longWord + "\": 1}", true},
        {R"({"propertyNames": {"pattern": "^a+$"}})", "{\"" + longWord + "b\": 1}", false},
        {R"({"propertyNames": {"format": "date"}})", "{\"" + longDigits + "-05-06\": 1}", true},
    };
    for (const Row& row : rows)
        expectValidation(Schema::fromVariant(parse(row.schema)), row);
}

// A divisor of zero or below is no schema: validation says so instead of
// dividing by it (the first two once stopped the process).
TEST_F(SchemaTest, MultipleOfNeedsAPositiveDivisor)
{
    const std::pair<const char*, const char*> rows[] = {
        {R"({"multipleOf": 0})", "5"}, {R"({"multipleOf": -1})", "-9223372036854775808"},
        {R"({"anyOf": [{"type": "string"}, {"multipleOf": 0}]})", "2"},
        {R"({"multipleOf": 0.0})", "2.5"}, {R"({"multipleOf": -2})", "4"},
    };
    for (const auto& row : rows) {
        const Schema::Ptr schema = Schema::fromVariant(parse(row.first));
        ASSERT_TRUE(schema) << row.first;
        std::string error;
        EXPECT_FALSE(schema->validate(parse(row.second), &error)) << row.first;
        EXPECT_NE(error.find("\"multipleOf\" must be greater than 0"), std::string::npos) << row.first << ": " << error;
        EXPECT_TRUE(schema->errorString().startsWith(QLatin1String("The schema urn:"))) << row.first;
    }
}

TEST_F(SchemaTest, LoadsFilesAndResourcesAndFailsCleanly)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("limits.json"));
    cktest::writeFile(path, R"({"type": "integer", "maximum": 10, "definitions": {"n": {"$ref": "#"}}})");
    const std::string url = QUrl::fromLocalFile(path).toString().toStdString();
    for (const std::string& name : {url, path.toStdString()}) {
        const Schema::Ptr limits = Schema::resolve(name);
        ASSERT_TRUE(limits) << name;
        EXPECT_TRUE(limits->validate(json::Variant(7)));
        EXPECT_FALSE(limits->validate(json::Variant(11)));
    }
    // Cached: a changed file is not read again.
    QFile::remove(path);
    EXPECT_TRUE(Schema::resolve(url));
    EXPECT_EQ(Schema::resolve("limits.json#/definitions/n", url)->type(), "integer");

    const std::string broken = dir.filePath(QStringLiteral("broken.json")).toStdString();
    cktest::writeFile(QString::fromStdString(broken), "{\"type\": ");
    EXPECT_FALSE(Schema::resolve(broken));
    EXPECT_FALSE(Schema::resolve(dir.filePath(QStringLiteral("missing.json")).toStdString()));
    EXPECT_FALSE(Schema::resolve("qrc:/no/such/schema.json"));
    EXPECT_FALSE(Schema::resolve("https://nowhere.example.invalid/unregistered.json"));
    EXPECT_FALSE(Schema::resolve("https://schemas.example.invalid/types.json#nosuchanchor"));
    EXPECT_FALSE(Schema::resolve("https://schemas.example.invalid/types.json#/definitions/none"));

    // A reference loop ends instead of hanging.
    const Schema::Ptr loop = Schema::fromVariant(parse(R"({"definitions": {"a": {"$ref": "#/definitions/b"},
                                                            "b": {"$ref": "#/definitions/a"}},
                                                           "properties": {"x": {"$ref": "#/definitions/a"}}})"),
                                                 "https://schemas.example.invalid/loop.json");
    ASSERT_TRUE(loop);
    EXPECT_FALSE(loop->member("x"));
    std::string loopError;
    EXPECT_FALSE(loop->validate(json::Variant(1), &loopError));
    EXPECT_NE(loopError.find("circle"), std::string::npos) << loopError;
    std::string error;
    // Deep recursion along a value is fine.
    const Schema::Ptr nested =
        Schema::fromVariant(parse(R"({"anyOf": [{"type": "integer"}, {"type": "array", "items": {"$ref": "#"}}]})"));
    EXPECT_TRUE(nested->validate(parse(std::string(500, '[') + "1" + std::string(500, ']')), &error)) << error;
    EXPECT_FALSE(nested->validate(parse(std::string(500, '[') + "null" + std::string(500, ']'))));
}

} // namespace
