// Inputs on which a fuzz target once crashed, ran out of memory or time, or
// broke one of its checks. Each row runs its committed file through the
// library function the target calls and checks the documented outcome.

#include "testlib/LogCapture.h"
#include <CommonKit/expressions/Expressions.h>
#include <CommonKit/json/JsonSettings.h>
#include <CommonKit/json/VariantConversion.h>
#include <CommonKit/storage/EncryptedSettings.h>
#include <CommonKit/properties/Properties.h>
#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/Schema.h>

#include <gtest/gtest.h>

#include <QBuffer>
#include <QDataStream>
#include <QFile>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using cktest::LogCapture;

QByteArray input(const std::string& target, const std::string& name)
{
    QFile file(QStringLiteral(COMMONKIT_FUZZ_DATA "/%1/%2").arg(QString::fromStdString(target), QString::fromStdString(name)));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
    return file.readAll();
}

// A file name as a test name.
std::string rowName(std::string name)
{
    for (char& c : name)
        c = c == '-' ? '_' : c;
    return name;
}

// variantmetatype_fuzz: the bytes as "#qdata" of a tagged object. Qt's own
// reader reserved room for a list of ~2^31 elements, constructed a QBitmap
// (which aborts without a GUI application) or took over a second; each image
// is refused with the documented warning. (A QFont carries such a list of
// families too.)
struct MetaTypeRow { const char* file; };

class TaggedImage : public ::testing::TestWithParam<MetaTypeRow>
{
};

TEST_P(TaggedImage, IsRefusedWithAWarning)
{
    const QByteArray bytes = input("variantmetatype", GetParam().file);
    json::Variant tagged = json::Object();
    tagged.set("#qtype", 127);
    tagged.set("#alt-type-name", "fuzz");
    tagged.set("#qdata", json::Variant(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    LogCapture log;
    EXPECT_FALSE(qVariant(tagged).isValid());
    EXPECT_NE(log.text().find("\"#qdata\" holds no readable value of type fuzz"), std::string::npos) << log.text();
}

INSTANTIATE_TEST_SUITE_P(Fuzz, TaggedImage,
                         ::testing::Values(MetaTypeRow{"stringlist-count"}, MetaTypeRow{"variantlist-count"},
                                           MetaTypeRow{"bitmap-without-gui"}, MetaTypeRow{"timeout-list-image"},
                                           MetaTypeRow{"font-families-count"}),
                         [](const ::testing::TestParamInfo<MetaTypeRow>& row) { return rowName(row.param.file); });

// encryptedsettings_fuzz: plain binary maps (selector bits 0 and 1 clear)
// with which Qt's reader asked for 2^64 - 1 bytes: a map count, and a font
// whose list of families claims billions of entries. The read fails: empty
// digest, the caller's map untouched.
class BinaryMap : public ::testing::TestWithParam<const char*>
{
};

TEST_P(BinaryMap, FailsToReadAndLeavesTheMap)
{
    const QByteArray bytes = input("encryptedsettings", GetParam());
    ASSERT_EQ(bytes.at(0) & 3, 0);
    QByteArray file = bytes.mid(1);
    QBuffer device(&file);
    device.open(QIODevice::ReadOnly);
    QMap<QString, QVariant> map{{QStringLiteral("kept"), 1}};
    EXPECT_TRUE(ko::EncryptedSettings::readIni(device, map, ko::crypto::secure_string()).empty());
    EXPECT_EQ(map, (QMap<QString, QVariant>{{QStringLiteral("kept"), 1}}));
}

INSTANTIATE_TEST_SUITE_P(Fuzz, BinaryMap, ::testing::Values("map-count", "font-in-map"),
                         [](const ::testing::TestParamInfo<const char*>& row) { return rowName(row.param); });

// jsonsettings_fuzz: a settings file with a nameless member at the top
// (selector byte 0: no schema). It used to be read as the empty key, which
// the writer took for the whole document: the file became a bare string
// that no longer read as settings. Now the member is skipped and the rest
// survives writing and reading again.
TEST(FuzzInputs, NamelessTopMemberIsSkippedAndTheRestWritesBack)
{
    QByteArray file = input("jsonsettings", "nameless-member").mid(1);
    QBuffer device(&file);
    device.open(QIODevice::ReadOnly);
    QMap<QString, QVariant> map;
    LogCapture log;
    ASSERT_TRUE(readJsonQSettings(device, map, nullptr));
    EXPECT_NE(log.text().find("a member without a name at the top has no key; skipped"), std::string::npos);
    EXPECT_FALSE(map.contains(QString()));
    const QStringList expected = {QStringLiteral("888888888888880000011662322688380341817window/ar[a/height"),
                                  QStringLiteral("888888888888880000011662322688380341817window/ar[a/left"),
                                  QStringLiteral("888888888888880000011662322688380341817window/ar[a/top"),
                                  QStringLiteral("888888888888880000011662322688380341817window/ar[a/width"),
                                  QStringLiteral("888888888888880000011662322688380341817window/pos/x"),
                                  QStringLiteral("888888888888880000011662322688380341817window/pos/y"),
                                  QStringLiteral("day"), QStringLiteral("id"), QStringLiteral("n#ames/1"),
                                  QStringLiteral("n#ames/2"), QStringLiteral("n#ames/size")};
    EXPECT_EQ(map.keys(), expected);

    QByteArray written;
    QBuffer out(&written);
    out.open(QIODevice::WriteOnly);
    ASSERT_TRUE(writeJsonQSettings(out, map, nullptr));
    out.close();
    QBuffer in(&written);
    in.open(QIODevice::ReadOnly);
    QMap<QString, QVariant> again;
    ASSERT_TRUE(readJsonQSettings(in, again, nullptr)) << written.toStdString();
    EXPECT_EQ(again.keys(), expected);
}

// jsonsettings_fuzz: a member name "888880000/..." reads as the key of an
// element of a list at index 888880000 (the separator nests it). Writing
// the map back grew a list of that length (14 GB) where a fresh path began;
// now the key is skipped like any index past 1048575, and the rest writes.
TEST(FuzzInputs, HugeListIndexIsSkippedWhenWriting)
{
    QByteArray file = input("jsonsettings", "huge-list-index").mid(1);
    QBuffer device(&file);
    device.open(QIODevice::ReadOnly);
    QMap<QString, QVariant> map;
    ASSERT_TRUE(readJsonQSettings(device, map, nullptr));
    const auto huge = std::find_if(map.keyBegin(), map.keyEnd(), [](const QString& key) { return key.startsWith(QLatin1String("888880000/")); });
    ASSERT_NE(huge, map.keyEnd());
    const QString hugeKey = *huge;

    LogCapture log;
    QByteArray written;
    QBuffer out(&written);
    out.open(QIODevice::WriteOnly);
    ASSERT_TRUE(writeJsonQSettings(out, map, nullptr));
    EXPECT_NE(log.text().find("could not locate 888880000/"), std::string::npos) << log.text();
    EXPECT_LT(written.size(), 2 * file.size());
    out.close();
    QBuffer in(&written);
    in.open(QIODevice::ReadOnly);
    QMap<QString, QVariant> again;
    ASSERT_TRUE(readJsonQSettings(in, again, nullptr));
    map.remove(hugeKey);
    EXPECT_EQ(again, map);
}

// filterparser_fuzz: a filter text against the target's schema; it must
// parse, and its printed SQL must parse and print the same again. The
// negation of a number that fits only an unsigned integer once became a
// negative double, whose printed form read back differently.
class FilterText : public ::testing::TestWithParam<const char*>
{
};

TEST_P(FilterText, PrintsAndReadsBackAlike)
{
    kogen::PropertySet schema;
    for (const char* name : {"a", "b"})
        schema.add(new kogen::IntProperty(QString::fromLatin1(name)));
    schema.add(new kogen::StringProperty(QStringLiteral("s")));
    schema.add(new kogen::DoubleProperty(QStringLiteral("d")));
    kogen::FilterParser parser(schema);
    const kogen::ExpressionHandle tree = parser.parse(QString::fromUtf8(input("filterparser", GetParam())));
    ASSERT_TRUE(tree.constData()) << parser.errorString().toStdString();
    const QString printed = tree->toString(kogen::Expression::PrintSql);
    const kogen::ExpressionHandle again = parser.parse(printed);
    ASSERT_TRUE(again.constData()) << printed.toStdString() << ": " << parser.errorString().toStdString();
    EXPECT_EQ(again->toString(kogen::Expression::PrintSql), printed);
}

INSTANTIATE_TEST_SUITE_P(Fuzz, FilterText, ::testing::Values("negated-unsigned-integer"),
                         [](const ::testing::TestParamInfo<const char*>& row) { return rowName(row.param); });

// schema_fuzz: "schema NUL value". A schema that applies itself to the same
// value overflowed the stack; validation now ends with an error.
class SelfApplyingSchema : public ::testing::TestWithParam<const char*>
{
};

TEST_P(SelfApplyingSchema, FailsWithAnError)
{
    const QList<QByteArray> parts = input("schema", GetParam()).split('\0');
    ASSERT_EQ(parts.size(), 2);
    json::Variant documents[2];
    for (int i = 0; i < 2; ++i) {
        json::JsonParser parser;
        parser.parse(parts[i].constData(), static_cast<std::size_t>(parts[i].size()));
        documents[i] = parser.parseComplete();
        ASSERT_FALSE(parser.hasError()) << i;
    }
    const json::Schema::Ptr schema = json::Schema::fromVariant(documents[0], "https://fuzz.invalid/schema.json");
    ASSERT_TRUE(schema);
    std::string error;
    EXPECT_FALSE(schema->validate(documents[1], &error));
    EXPECT_NE(error.find("levels deep"), std::string::npos) << error;
}

INSTANTIATE_TEST_SUITE_P(Fuzz, SelfApplyingSchema, ::testing::Values("self-applying-allof", "self-applying-anyof-not"),
                         [](const ::testing::TestParamInfo<const char*>& row) { return rowName(row.param); });

// expressionstream_fuzz: a constant date-time in a time zone that does not
// exist. Qt could not write such a value again; the reader refuses it.
class ExpressionStreamInput : public ::testing::TestWithParam<const char*>
{
};

TEST_P(ExpressionStreamInput, IsRefusedAsCorrupt)
{
    const QByteArray bytes = input("expressionstream", GetParam());
    QDataStream in(bytes);
    const kogen::ExpressionHandle tree = kogen::Expression::readExpression(in);
    EXPECT_EQ(in.status(), QDataStream::ReadCorruptData);
    QByteArray again;
    QDataStream out(&again, QIODevice::WriteOnly);
    out << tree;
    EXPECT_FALSE(again.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Fuzz, ExpressionStreamInput, ::testing::Values("unknown-time-zone"),
                         [](const ::testing::TestParamInfo<const char*>& row) { return rowName(row.param); });

} // namespace
