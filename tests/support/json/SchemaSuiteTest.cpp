// json::Schema against the JSON Schema Test Suite (draft 7): every case of
// the files directly under tests/draft7 (the optional ones are left out).
// The suite is read from the folder given at build time (by default the copy
// in tests/data); a missing folder fails the test. Its remote documents
// (http://localhost:1234/...) are registered in memory under their URLs, so
// nothing goes to the network.

#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/Schema.h>

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <iostream>
#include <string>
#include <vector>

namespace {

const QString k_suite = QStringLiteral(COMMONKIT_JSON_SCHEMA_SUITE);

struct Case
{
    std::string name; // file, group and test, as a test name
    std::string description;
    json::Variant schema;
    json::Variant data;
    bool valid;
};

void PrintTo(const Case& testCase, std::ostream* out)
{
    *out << testCase.description;
}

json::Variant readJson(const QString& path, bool* ok)
{
    QFile file(path);
    json::JsonParser parser;
    const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    *ok = !text.isEmpty() && parser.parse(text.constData(), static_cast<std::size_t>(text.size()));
    return parser.parseComplete();
}

// Letters and digits of text, other runs as one '_'.
std::string identifier(const std::string& text)
{
    std::string result;
    for (const char c : text.substr(0, 60)) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        if (plain)
            result += c;
        else if (!result.empty() && result.back() != '_')
            result += '_';
    }
    return result;
}

std::vector<Case> loadCases()
{
    std::vector<Case> cases;
    const QDir folder(k_suite + QStringLiteral("/tests/draft7"));
    for (const QString& fileName : folder.entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name)) {
        bool ok = false;
        const json::Variant groups = readJson(folder.filePath(fileName), &ok);
        const std::string file = identifier(QFileInfo(fileName).completeBaseName().toStdString());
        for (std::size_t g = 0; ok && g < groups.size(); ++g) {
            const json::Variant group = groups.at(g);
            const json::Variant tests = group.value("tests");
            for (std::size_t t = 0; t < tests.size(); ++t) {
                const json::Variant test = tests.at(t);
                const std::string groupText = group.value("description").toString();
                const std::string testText = test.value("description").toString();
                cases.push_back({file + "_" + std::to_string(g) + "_" + std::to_string(t) + "_" + identifier(groupText)
                                     + "_" + identifier(testText),
                                 fileName.toStdString() + ": " + groupText + ": " + testText, group.value("schema"),
                                 test.value("data"), test.value("valid").toBool()});
            }
        }
    }
    return cases;
}

const std::vector<Case>& cases()
{
    static const std::vector<Case> all = loadCases();
    return all;
}

struct Tally : ::testing::Environment
{
    int passed = 0;
    int run = 0;
    void TearDown() override
    {
        if (run > 0)
            std::cout << "JSON Schema Test Suite (draft 7): " << passed << " of " << run << " cases passed\n";
    }
};

Tally* const g_tally = static_cast<Tally*>(::testing::AddGlobalTestEnvironment(new Tally));

class SchemaSuite : public ::testing::TestWithParam<Case>
{
protected:
    static void SetUpTestSuite()
    {
        const QString remotes = k_suite + QStringLiteral("/remotes");
        QDirIterator it(remotes, {QStringLiteral("*.json")}, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString path = it.next();
            bool ok = false;
            const json::Variant document = readJson(path, &ok);
            ASSERT_TRUE(ok) << path.toStdString();
            json::Schema::registerSchema("http://localhost:1234/" + QDir(remotes).relativeFilePath(path).toStdString(),
                                         document);
        }
    }
};

TEST_P(SchemaSuite, Draft7)
{
    const Case& testCase = GetParam();
    const json::Schema::Ptr schema = json::Schema::fromVariant(testCase.schema);
    ASSERT_TRUE(schema) << testCase.description;
    std::string error;
    ++g_tally->run;
    EXPECT_EQ(schema->validate(testCase.data, &error), testCase.valid) << testCase.description << "\n" << error;
    if (!HasFailure())
        ++g_tally->passed;
}

INSTANTIATE_TEST_SUITE_P(Suite, SchemaSuite, ::testing::ValuesIn(cases()),
                         [](const ::testing::TestParamInfo<Case>& param) { return param.param.name; });
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(SchemaSuite);

TEST(SchemaSuiteFolder, IsReadable)
{
    ASSERT_TRUE(QDir(k_suite).exists()) << "no JSON Schema Test Suite at " << k_suite.toStdString()
                                         << " (set COMMONKIT_JSON_SCHEMA_SUITE when configuring)";
    EXPECT_GT(cases().size(), 900u) << "the draft 7 files could not all be read";
}

} // namespace
