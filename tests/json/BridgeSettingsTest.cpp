// QSettings in JSON files: what the format writes is checked with
// QJsonDocument, what it reads with QSettings itself.

#include "testlib/LogCapture.h"
#include "testlib/TestFiles.h"
#include <CommonKit/json/JsonSettings.h>
#include <CommonKit/support/json/JsonParser.h>

#include <gtest/gtest.h>

#include <QBuffer>
#include <QColor>
#include <QDataStream>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRectF>
#include <QPolygon>
#include <QTemporaryDir>
#include <QUuid>

namespace {

using cktest::LogCapture;

const char* const k_schemaUrl = "https://tests.commonkit.invalid/settings.json";

// Names the types of some members (tests/data/json/settings-schema.json).
const char* const k_schemaFile = COMMONKIT_TEST_DATA "/json/settings-schema.json";

class JsonSettings : public ::testing::Test
{
protected:
    void SetUp() override
    {
        json::JsonParser parser;
        ASSERT_TRUE(parser.parse(cktest::readFile(QString::fromLatin1(k_schemaFile)).toStdString()));
        json::Schema::registerSchema(k_schemaUrl, parser.parseComplete());
        m_format = registerJsonQSettingsFormat(QStringLiteral("cktest"), QUrl(QString::fromLatin1(k_schemaUrl)));
        ASSERT_NE(m_format, QSettings::InvalidFormat);
    }

    QString path(const QString& name) const { return m_dir.filePath(name); }

    QSettings::Format m_format = QSettings::InvalidFormat;
    QTemporaryDir m_dir;
};

TEST_F(JsonSettings, EveryValueTypeIsWrittenAsJsonAndReadBackByQSettings)
{
    const QMap<QString, QVariant> values{
        {QStringLiteral("flag"), true},
        {QStringLiteral("count"), 42},
        {QStringLiteral("big"), qlonglong(1) << 60},
        {QStringLiteral("ratio"), 0.1 + 0.2},
        {QStringLiteral("third"), 1.0 / 3},
        {QStringLiteral("name"), QStringLiteral("Grüße / \u2211")},
        {QStringLiteral("names"), QStringList{QStringLiteral("a"), QStringLiteral("b c")}},
        {QStringLiteral("ports"), QVariantList{80, 443}},
        {QStringLiteral("day"), QDate(2024, 2, 29)},
        {QStringLiteral("at"), QTime(9, 5, 3, 700)},
        {QStringLiteral("changed"), QDateTime(QDate(2023, 12, 31), QTime(23, 59, 1, 5))},
        {QStringLiteral("id"), QUuid(QStringLiteral("{0f1e2d3c-4b5a-6978-8796-a5b4c3d2e1f0}"))},
        {QStringLiteral("blob"), QByteArray("bin\x01\x02 text")},
        {QStringLiteral("window/pos"), QPoint(-3, 7)},
        {QStringLiteral("window/size"), QSize(800, 600)},
        {QStringLiteral("window/area"), QRectF(0.5, 1, 2.25, 3)},
        {QStringLiteral("window/at"), QPointF(1.5, -2)},
        {QStringLiteral("window/max"), QSizeF(1e20, 0.125)},
        {QStringLiteral("window/frame"), QRect(-1, -2, 3, 4)},
        {QStringLiteral("url"), QUrl(QStringLiteral("file:///a%20b"))},
        {QStringLiteral("letter"), QChar(u'\u00e9')},
        {QStringLiteral("small"), 2.5f},
        {QStringLiteral("color"), QColor(10, 20, 30, 40)},
    };
    {
        QSettings settings(path(QStringLiteral("app.cktest")), m_format);
        for (auto it = values.begin(); it != values.end(); ++it)
            settings.setValue(it.key(), it.value());
        settings.beginWriteArray(QStringLiteral("cams"));
        for (int i = 0; i < 2; ++i) {
            settings.setArrayIndex(i);
            settings.setValue(QStringLiteral("name"), QStringLiteral("cam %1").arg(i + 1));
            settings.setValue(QStringLiteral("since"), QDate(2020 + i, 1, 2));
            settings.setValue(QStringLiteral("grp/deep"), i);
            settings.beginWriteArray(QStringLiteral("ports"), 1);
            settings.setArrayIndex(0);
            settings.setValue(QStringLiteral("n"), 80 + i);
            settings.endArray();
        }
        settings.endArray();
        settings.beginWriteArray(QStringLiteral("none"), 0);
        settings.endArray();
        // Maps and polygons become groups and arrays of their own.
        settings.setValue(QStringLiteral("map"), QVariantMap{{QStringLiteral("a"), 1}, {QStringLiteral("b"), QStringList()}});
        settings.setValue(QStringLiteral("poly"), QPolygon(QVector<QPoint>{QPoint(1, 2), QPoint(3, 4)}));
        settings.sync();
        ASSERT_EQ(settings.status(), QSettings::NoError);
    }

    const QByteArray text = cktest::readFile(path(QStringLiteral("app.cktest")));
    // What QJsonDocument reads is what tests/data/json/every-value.json
    // holds, but for the tagged color: its stream image is read by Qt itself.
    QJsonObject root = QJsonDocument::fromJson(text).object();
    const QJsonObject color = root.take(QStringLiteral("color")).toObject();
    EXPECT_EQ(root, QJsonDocument::fromJson(cktest::readFile(QStringLiteral(COMMONKIT_TEST_DATA "/json/every-value.json")))
                        .object()) << text.constData();
    EXPECT_EQ(color.value(QStringLiteral("#qtype")), QJsonValue(int(QMetaType::QColor)));
    QDataStream stream(QByteArray::fromBase64(color.value(QStringLiteral("#qdata")).toString().toLatin1()));
    QVariant colorBack;
    stream >> colorBack;
    EXPECT_EQ(colorBack, values[QStringLiteral("color")]);

    // QSettings keeps what it read or wrote per file name; a copy is read afresh.
    ASSERT_TRUE(QFile::copy(path(QStringLiteral("app.cktest")), path(QStringLiteral("copy.cktest"))));
    QSettings reread(path(QStringLiteral("copy.cktest")), m_format);
    ASSERT_EQ(reread.status(), QSettings::NoError);
    for (auto it = values.begin(); it != values.end(); ++it) {
        SCOPED_TRACE(it.key().toStdString());
        const QVariant back = reread.value(it.key());
        // Binary data is text in memory (as QVariant::toString gave it).
        // Text types come back as QString (binary data as QVariant::toString
        // gave it), integers as qlonglong, floats as double.
        const int type = it.value().userType();
        const bool asText = type == QMetaType::QByteArray || type == QMetaType::QUrl || type == QMetaType::QChar;
        EXPECT_EQ(back, asText ? QVariant(it.value().toString()) : it.value());
        const int expectedType = asText ? int(QMetaType::QString)
            : type == QMetaType::Int  ? int(QMetaType::LongLong)
            : type == QMetaType::Float ? int(QMetaType::Double)
                                       : type;
        EXPECT_EQ(back.userType(), expectedType);
    }
    EXPECT_EQ(reread.beginReadArray(QStringLiteral("cams")), 2);
    reread.setArrayIndex(1);
    EXPECT_EQ(reread.value(QStringLiteral("since")), QDate(2021, 1, 2));
    EXPECT_EQ(reread.value(QStringLiteral("grp/deep")), 1);
    EXPECT_EQ(reread.value(QStringLiteral("ports/1/n")), 81);
    reread.endArray();
    // (Empty lists, maps and polygons read back as the flat-map test shows.)
    EXPECT_EQ(reread.value(QStringLiteral("poly/2/y")), 4);
}

TEST_F(JsonSettings, PrintedFormIsIndentedWithFifteenDigitsAndNoFinalNewline)
{
    const QMap<QString, QVariant> map{{QStringLiteral("a"), 1},
                                      {QStringLiteral("b/c"), 0.1 + 0.2},
                                      {QStringLiteral("b/d"), QStringList{QStringLiteral("x")}},
                                      {QStringLiteral("e/1/f"), 2.0 / 3},
                                      {QStringLiteral("e/size"), 1},
                                      {QStringLiteral("g"), QVariantList()}};
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    ASSERT_TRUE(writeJsonQSettings(buffer, map, nullptr));
    // The exact bytes are in tests/data/json/printed-form.json, which ends
    // without a line feed too.
    EXPECT_EQ(buffer.data().toStdString(),
              cktest::readFile(QStringLiteral(COMMONKIT_TEST_DATA "/json/printed-form.json")).toStdString());
}

TEST_F(JsonSettings, EdgeCasesAndFailuresOfReadingAndWriting)
{
    // Nothing to read is no settings, not an error (QSettings itself never
    // passes an empty file on).
    QBuffer nothing;
    nothing.open(QIODevice::ReadOnly);
    QMap<QString, QVariant> none;
    EXPECT_TRUE(readJsonQSettings(nothing, none, nullptr));
    EXPECT_TRUE(none.isEmpty());

    // A never registered extension: no schema, so no base64.
    QFile plain(path(QStringLiteral("plain.unregistered")));
    ASSERT_TRUE(plain.open(QIODevice::WriteOnly));
    EXPECT_TRUE(writeJsonQSettings(plain, {{QStringLiteral("blob"), QByteArray("raw")}}));
    plain.close();
    EXPECT_EQ(cktest::readFile(path(QStringLiteral("plain.unregistered"))), QByteArray("{\n    \"blob\": \"raw\"\n}"));

    // An empty map writes nothing; devices that are no files are refused.
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    QMap<QString, QVariant> map{{QStringLiteral("kept"), 1}};
    EXPECT_FALSE(writeJsonQSettings(buffer, QMap<QString, QVariant>(), jsonFileSchema(QStringLiteral("cktest"))));
    EXPECT_EQ(buffer.size(), 0);
    EXPECT_FALSE(writeJsonQSettings(buffer, map));
    EXPECT_FALSE(readJsonQSettings(buffer, map));
    EXPECT_EQ(map.size(), 1);

    // Qt has 16 format slots; registering an extension again takes none.
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(registerJsonQSettingsFormat(QStringLiteral("cktest"), QUrl(QString::fromLatin1(k_schemaUrl))), m_format);
    EXPECT_TRUE(jsonFileSchema(QFileInfo(QStringLiteral("/x/y.cktest"))));
    EXPECT_FALSE(jsonFileSchema(QStringLiteral("unregistered")));

    // Unparsable text fails; settings the schema finds invalid only warn.
    LogCapture log;
    QBuffer broken;
    broken.setData("{\"a\": [1, 2");
    broken.open(QIODevice::ReadOnly);
    map.clear();
    EXPECT_FALSE(readJsonQSettings(broken, map, nullptr));
    EXPECT_TRUE(map.isEmpty());
    EXPECT_TRUE(log.contains("[readJsonQSettings] Error: parsing failed, {\"a\": [1, 2"));

    const auto schema = jsonFileSchema(QStringLiteral("cktest"));
    QBuffer out;
    out.open(QIODevice::WriteOnly);
    EXPECT_TRUE(writeJsonQSettings(out, {{QStringLiteral("day"), QStringLiteral("no date")}, {QStringLiteral("count"), 3}}, schema));
    EXPECT_TRUE(log.contains("[makeJsonSettings] Warning: schema validation failed!"));
    out.close();
    out.open(QIODevice::ReadOnly);
    EXPECT_TRUE(readJsonQSettings(out, map, schema));
    EXPECT_TRUE(log.contains("[readJsonQSettings] Warning: schema validation failed!"));
    EXPECT_EQ(map, (QMap<QString, QVariant>{{QStringLiteral("count"), qlonglong(3)}, {QStringLiteral("day"), QStringLiteral("no date")}}));
}

} // namespace
