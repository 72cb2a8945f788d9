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

namespace {

const QString k_suite = QStringLiteral(COMMONKIT_JSON_SCHEMA_SUITE);

json::Variant readJson(const QString& path)
{
    QFile file(path);
    json::JsonParser parser;
    const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    EXPECT_TRUE(!text.isEmpty() && parser.parse(text.constData(), static_cast<std::size_t>(text.size())))
        << path.toStdString();
    return parser.parseComplete();
}

TEST(SchemaSuite, Draft7)
{
    ASSERT_TRUE(QDir(k_suite).exists()) << "no JSON Schema Test Suite at " << k_suite.toStdString()
                                         << " (set COMMONKIT_JSON_SCHEMA_SUITE when configuring)";
    const QString remotes = k_suite + QStringLiteral("/remotes");
    QDirIterator it(remotes, {QStringLiteral("*.json")}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        json::Schema::registerSchema("http://localhost:1234/" + QDir(remotes).relativeFilePath(path).toStdString(),
                                     readJson(path));
    }

    int run = 0;
    const QDir folder(k_suite + QStringLiteral("/tests/draft7"));
    for (const QString& fileName : folder.entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name)) {
        const json::Variant groups = readJson(folder.filePath(fileName));
        for (std::size_t g = 0; g < groups.size(); ++g) {
            const json::Variant group = groups.at(g);
            const json::Schema::Ptr schema = json::Schema::fromVariant(group.value("schema"));
            const json::Variant tests = group.value("tests");
            for (std::size_t t = 0; t < tests.size(); ++t) {
                const json::Variant test = tests.at(t);
                const std::string description = fileName.toStdString() + ": " + group.value("description").toString()
                                                + ": " + test.value("description").toString();
                std::string error;
                ++run;
                const bool ok = schema && schema->validate(test.value("data"), &error) == test.value("valid").toBool();
                EXPECT_TRUE(ok) << description << "\n" << error;
            }
        }
    }
    EXPECT_GT(run, 900) << "the draft 7 files could not all be read";
}

} // namespace
