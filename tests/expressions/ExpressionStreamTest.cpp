#include "ExpressionTestSupport.h"

#include <gtest/gtest.h>

#include <QDataStream>
#include <QDate>
#include <QRegExp>
#include <QUuid>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPolygon>
#include <QTemporaryDir>
#include <QTimeZone>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace kogen;
using cktest::Record;
using cktest::sql;

ExpressionHandle c(const QVariant& value, bool placeholder = false) { return ConstExpression(value, placeholder); }

QByteArray written(const ExpressionHandle& e)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << e;
    return bytes;
}

ExpressionHandle readBack(const QByteArray& bytes, QDataStream::Status* status = nullptr, qint64* consumed = nullptr)
{
    QDataStream in(bytes);
    const ExpressionHandle e = Expression::readExpression(in);
    if (status)
        *status = in.status();
    if (consumed)
        *consumed = in.device()->pos();
    return e;
}

// The layout of one record, built field by field with QDataStream itself.
struct Expected
{
    QByteArray bytes;
    QDataStream out{&bytes, QIODevice::WriteOnly};
    Expected& tag(const char* name) { out << name; return *this; }
    Expected& i32(qint32 v) { out << v; return *this; }
    Expected& text(const QString& v) { out << v; return *this; }
    Expected& flag(bool v) { out << v; return *this; }
    Expected& variant(const QVariant& v) { out << v; return *this; }
    // The header of a constant that is no placeholder; its variant follows.
    Expected& constant() { return tag("class kogen::ConstExpression").i32(1).flag(false); }
};

TEST(ExpressionStream, LayoutsByteByByte)
{
    Record r;
    Expected comparator, fn, cast;
    comparator.tag("class kogen::Comparator").i32(1).i32(Comparator::Equal).i32(1).i32(2);
    comparator.tag("class kogen::ValueExpression").i32(2).text(QStringLiteral("a")).text(QString());
    comparator.tag("class kogen::ConstExpression").i32(1).flag(true).variant(3);
    fn.tag("class kogen::FunctionExpression").i32(2).text(QStringLiteral("count")).flag(true).i32(1).i32(1);
    fn.tag("class kogen::ValueExpression").i32(2).text(QStringLiteral("x")).text(QStringLiteral("y"));
    cast.tag("class kogen::CastExpression").i32(1).i32(QVariant::Double);
    cast.tag("class kogen::ExpressionList").i32(1).i32(0);
    const struct { ExpressionHandle e; const Expected& expected; } rows[] = {
        {*r.a == QVariant(3), comparator},
        {count(ValueExpression(QStringLiteral("x"), QStringLiteral("y")), true), fn},
        {toDouble(ExpressionHandle()), cast},
    };
    for (const auto& row : rows)
        EXPECT_EQ(written(row.e).toHex().toStdString(), row.expected.bytes.toHex().toStdString()) << sql(row.e);
}

TEST(ExpressionStream, EveryReadableClassRoundTrips)
{
    Record r;
    const ExpressionHandle a = ValueExpression(*r.a);
    ElementOf in(a);
    in << 1 << QStringLiteral("two") << ExpressionHandle(ValueExpression(QStringLiteral("b"), QStringLiteral("bee")));
    // Several values under one key are all kept, as Qt's reader keeps them.
    QMultiMap<QString, QVariant> repeated;
    repeated.insert(QStringLiteral("k"), 1);
    repeated.insert(QStringLiteral("k"), 2);
    QMultiHash<QString, QVariant> repeatedHash;
    repeatedHash.insert(QStringLiteral("k"), 1);
    repeatedHash.insert(QStringLiteral("k"), 2);
    const QTimeZone berlin("Europe/Berlin");
    ASSERT_TRUE(berlin.isValid());
    // Most kinds of constant are read in every stream version further down.
    const std::vector<ExpressionHandle> trees = {
        c(QDateTime(QDate(2020, 1, 1), QTime(1, 0), berlin)), // zones by id and by offset: rewritten byte for byte
        c(QDateTime(QDate(2020, 1, 1), QTime(1, 0), QTimeZone(5400))),
        c(QJsonValue(3.5)),
        c(QJsonObject{{QStringLiteral("a"), QJsonArray{1, QStringLiteral("x")}}}),
        c(QJsonArray{true, QJsonValue()}),
        c(QJsonDocument(QJsonObject{{QStringLiteral("k"), 2}})),
        c(QVariantMap(repeated)),
        c(QVariantHash(repeatedHash)),
        ValueExpression(QStringLiteral("my field"), QStringLiteral("alias")),
        toInt(a),
        toDateTime(c(QStringLiteral("2024-01-01T00:00:00"))),
        ExpressionList(QList<QVariant>{1, 2}),
        ExpressionList(),
        in,
        (*r.a > QVariant(1) && *r.b <= QVariant(2)) || !(*r.s != QVariant(QStringLiteral("z"))),
        ((a + c(1)) * c(2)) / c(3) - (a % c(4)) + (a & c(5)) + (a | c(6)) + (a ^ c(7)),
        -a,
        ~a,
        ExpressionHandle(count(ValueExpression(*r.a), true)),
        like(a, QStringLiteral("a%"), QStringLiteral("!")),
        currentDate(),
        coalesce(ExpressionList(a, c(0))),
    };
    std::vector<ExpressionHandle> backs;
    for (const ExpressionHandle& e : trees) {
        const QByteArray bytes = written(e);
        QDataStream::Status status = QDataStream::Ok;
        qint64 consumed = 0;
        backs.push_back(readBack(bytes, &status, &consumed));
        EXPECT_EQ(status, QDataStream::Ok) << sql(e);
        EXPECT_EQ(consumed, bytes.size()) << sql(e);
        EXPECT_EQ(written(backs.back()), bytes) << sql(e);
    }
    // Every read made its own node: later reads left the earlier ones alone.
    for (size_t i = 0; i < trees.size(); ++i)
        EXPECT_TRUE(backs[i].equals(trees[i])) << sql(trees[i]);
    EXPECT_FALSE(Expression::registerExpressionClass(c(1))) << "a second prototype of a class is refused";
}

// Kinds outside their enum can only come from a stream. Such a node gives
// NULL, and its constness still follows the operands it evaluated; a unary
// operator of an unknown kind over a number keeps the 0 that negation and
// bitwise not start from, and counts as constant. Operands: c a constant,
// p the property a.
TEST(ExpressionStream, KindsOutsideTheirRangeEvaluateToNull)
{
    Record r;
    r.with(5, 3);
    struct Case { const char* tag; qint32 kind; const char* operands; QVariant expected; bool expectedConstant; };
    const Case cases[] = {
        {"class kogen::Comparator", 6, "cc", QVariant(), true},
        {"class kogen::Comparator", -1, "cp", QVariant(), false},
        {"class kogen::NumericOperator", 8, "cc", QVariant(), true},
        {"class kogen::NumericOperator", 8, "cp", QVariant(), false},
        {"class kogen::NumericOperator", -3, "cp", QVariant(), false},
        {"class kogen::UnaryOperator", 2, "p", 0, true},
    };
    for (const Case& t : cases) {
        Expected bytes;
        bytes.tag(t.tag).i32(1).i32(t.kind).i32(1).i32(static_cast<qint32>(qstrlen(t.operands)));
        for (const char* operand = t.operands; *operand; ++operand) {
            if (*operand == 'p')
                bytes.tag("class kogen::ValueExpression").i32(2).text(QStringLiteral("a")).text(QString());
            else
                bytes.constant().variant(2);
        }
        QDataStream::Status status = QDataStream::Ok;
        const ExpressionHandle e = readBack(bytes.bytes, &status);
        ASSERT_EQ(status, QDataStream::Ok) << t.tag << " " << t.kind;
        bool constant = !t.expectedConstant;
        EXPECT_EQ(r.eval(e, &constant), t.expected) << t.tag << " " << t.kind;
        EXPECT_EQ(constant, t.expectedConstant) << t.tag << " " << t.kind;
    }
}

TEST(ExpressionStream, UnknownTagsGiveTheEmptyListAndConsumeOnlyTheTag)
{
    Record r;
    SwitchCase sw(*r.a);
    sw.switchCase(c(1), c(2));
    const QByteArray switchBytes = written(sw);
    EXPECT_TRUE(switchBytes.startsWith(QByteArray("\0\0\0\x18" "class kogen::SwitchCase", 27)));
    QDataStream::Status status = QDataStream::Ok;
    qint64 consumed = 0;
    const ExpressionHandle back = readBack(switchBytes, &status, &consumed);
    EXPECT_EQ(back.constData(), ExpressionList::empty().constData());
    EXPECT_EQ(status, QDataStream::Ok);
    EXPECT_EQ(consumed, 4 + 24);

    // Long tags: the tag ends at its first zero byte, whatever the count
    // says, and an unknown one is consumed whole (and only it).
    struct LongTag { QByteArray bytes; bool known; };
    const QByteArray padding(3 * 1024 * 1024 + 17, 'x');
    const LongTag longTags[] = {
        {QByteArray("class kogen::ConstExpression", 29) + padding, true},
        {QByteArray("class kogen::ConstExpression") + padding, false},
        {padding, false},
    };
    for (const LongTag& t : longTags) {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out.writeBytes(t.bytes.constData(), static_cast<uint>(t.bytes.size()));
        const qint64 tagSize = bytes.size();
        out << qint32(1) << true << QVariant(4);
        const ExpressionHandle e = readBack(bytes, &status, &consumed);
        EXPECT_EQ(status, QDataStream::Ok);
        EXPECT_EQ(consumed, t.known ? bytes.size() : tagSize);
        EXPECT_EQ(e->evaluate(), t.known ? QVariant(4) : QVariant(QVariantList()));
        // Cut inside the tag: the stream ends early.
        readBack(bytes.left(static_cast<int>(tagSize) - 1), &status);
        EXPECT_EQ(status, QDataStream::ReadPastEnd);
    }
    EXPECT_TRUE(readBack(QByteArray("\0\0\0\0", 4), &status)->isEmpty());
    EXPECT_EQ(status, QDataStream::Ok);

    // Inside an operator the unknown child becomes an empty list, and the
    // reader goes on at the misaligned position.
    const QByteArray nested = written(ExpressionList(sw, c(5)));
    const ExpressionHandle list = readBack(nested, &status);
    ASSERT_NE(dynamic_cast<const ExpressionList*>(list.constData()), nullptr);
    EXPECT_TRUE(static_cast<const ExpressionList&>(*list).children().value(0)->isEmpty());
}

// Every prefix of valid streams: the reader must come back (under the
// sanitizers: without a fault) and a cut stream must never read as a
// complete tree. (Corrupted streams are the stream fuzz target's job.)
TEST(ExpressionStream, TruncatedAndCorruptedStreamsAreSafe)
{
    Record r;
    const std::vector<ExpressionHandle> trees = {
        (*r.a == QVariant(3)) && (ElementOf(*r.b) << 1 << 2 << 3),
        coalesce(ExpressionList(toInt(ValueExpression(*r.s)), c(QVariantList{1, QVariantMap{{QStringLiteral("k"), 2}}}))),
        -(*r.a + QVariant(QStringList{QStringLiteral("x")})) * c(QDateTime(QDate(2020, 1, 1), QTime(0, 0), Qt::UTC)),
    };
    for (const ExpressionHandle& e : trees) {
        const QByteArray bytes = written(e);
        for (int cut = 0; cut < bytes.size(); ++cut) {
            QDataStream::Status status = QDataStream::Ok;
            const ExpressionHandle back = readBack(bytes.left(cut), &status);
            EXPECT_NE(status, QDataStream::Ok) << "cut at " << cut;
            back->toString(Expression::PrintSql);
            back->evaluate(r.set, nullptr);
        }
    }
}

// Values in forms that Qt's writer does not produce but its reader takes:
// the constant must read as Qt itself reads it.
TEST(ExpressionStream, ConstantsReadAsQtReadsThem)
{
    const QVariant values[] = {QVariantList{1, QStringLiteral("x")}, QStringList{QStringLiteral("p")},
                               QVariantMap{{QStringLiteral("k"), 2.5}}, QStringLiteral("text"), 7};
    for (const QVariant& value : values) {
        Expected body; // the variant as Qt writes it, minus the type id and null flag
        body.out << value;
        Expected named;
        named.out << quint32(QMetaType::User) << qint8(0) << QByteArray(value.typeName());
        const QByteArray bytes = named.bytes + body.bytes.mid(5);

        QDataStream qtIn(bytes);
        QVariant expected;
        qtIn >> expected;
        ASSERT_TRUE(qtIn.status() == QDataStream::Ok && expected == value) << value.typeName();

        Expected stream;
        QDataStream::Status status = QDataStream::Ok;
        const ExpressionHandle e = readBack(stream.constant().bytes + bytes, &status);
        EXPECT_EQ(status, QDataStream::Ok) << value.typeName();
        EXPECT_EQ(e->evaluate(), expected) << value.typeName();
    }
}

// The stream version is the caller's; old versions number the QVariant
// types differently. Each value must read back as Qt's own reader reads
// the bytes that Qt's writer produced for that version.
TEST(ExpressionStream, OlderStreamVersionsReadAsQtReadsThem)
{
    const QVariant values[] = {
        QVariant(), 7, QVariant(QVariant::Int), QStringLiteral("it's"), QByteArray("\x01\x02"), 2.5,
        QVariant(qlonglong(1) << 40), QDate(2024, 2, 29),
        QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3, 4), Qt::UTC),
        QRegExp(QStringLiteral("a+b")),
        QUuid(QStringLiteral("{67c8770b-44f1-410a-ab9a-f9b5446f13ee}")),
        QVariantList{1, QStringLiteral("x"), QVariantList{2.5}},
        QStringList{QStringLiteral("p"), QStringLiteral("q")},
        QVariantMap{{QStringLiteral("k"), 1}, {QStringLiteral("l"), QVariantList{true}}},
        QVariantHash{{QStringLiteral("h"), 3}},
        QVariant::fromValue(QByteArrayList{"u", "v"}),
        QPolygon(QVector<QPoint>{QPoint(1, 2)}),
        QPolygonF(QVector<QPointF>{QPointF(1.5, 2)}),
        QJsonArray{1, QStringLiteral("x")},
    };
    const int versions[] = {QDataStream::Qt_1_0, QDataStream::Qt_3_3, QDataStream::Qt_4_0, QDataStream::Qt_4_2,
                            QDataStream::Qt_4_8, QDataStream::Qt_5_0, QDataStream::Qt_5_15};
    for (int version : versions) {
        for (const QVariant& value : values) {
            QByteArray bytes;
            QDataStream out(&bytes, QIODevice::WriteOnly);
            out.setVersion(version);
            out << ExpressionHandle(c(value, true));

            // The tag, version and flag before the variant are laid out alike in every version.
            QDataStream qtIn(bytes.mid(Expected().constant().bytes.size()));
            qtIn.setVersion(version);
            QVariant expected;
            qtIn >> expected;
            ASSERT_EQ(qtIn.status(), QDataStream::Ok) << version << value.typeName();

            QDataStream in(bytes);
            in.setVersion(version);
            const QVariant read = Expression::readExpression(in)->evaluate();
            EXPECT_TRUE(in.status() == QDataStream::Ok && in.atEnd()) << version << " " << value.typeName();
            EXPECT_TRUE(read == expected && read.type() == expected.type() && read.isNull() == expected.isNull())
                << version << " " << value.typeName() << ": " << read.toString().toStdString();
        }
        // A list claiming two billion elements costs nothing in any version.
        QByteArray hostile;
        QDataStream out(&hostile, QIODevice::WriteOnly);
        out.setVersion(version);
        out << ExpressionHandle(c(QVariantList{1}));
        hostile.chop(out.version() >= QDataStream::Qt_4_2 ? 4 + 5 + 4 : 4 + 4 + 4); // count and element
        QDataStream append(&hostile, QIODevice::Append);
        append << quint32(0x7fffffff);
        QDataStream in(hostile);
        in.setVersion(version);
        Expression::readExpression(in);
        EXPECT_NE(in.status(), QDataStream::Ok) << version;
    }
}

#if defined(Q_OS_UNIX)
// Qt looks a time zone id up as a file below its zone directory. An id that
// climbs out of it could name a pipe, and opening a pipe waits for a writer:
// the reader must refuse such ids before Qt opens anything.
TEST(ExpressionStream, TimeZoneIdsOutsideTheZoneDatabaseAreRefused)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QByteArray fifo = QFile::encodeName(dir.filePath(QStringLiteral("zone")));
    ASSERT_EQ(::mkfifo(fifo.constData(), 0600), 0);
    // A watcher that notices a reader blocked on the pipe (a non-blocking
    // open for writing succeeds only then) and releases it.
    std::atomic<bool> done{false};
    std::atomic<bool> opened{false};
    std::thread watcher([&] {
        while (!done) {
            const int fd = ::open(fifo.constData(), O_WRONLY | O_NONBLOCK);
            if (fd >= 0) {
                opened = true;
                ::close(fd);
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    });

    const QString climbing = QStringLiteral("../../../../../../..") + QFile::decodeName(fifo);
    const QString ids[] = {climbing, QFile::decodeName(fifo), QStringLiteral("Europe/../../../../../..") + QFile::decodeName(fifo)};
    for (const QString& id : ids) {
        for (bool byOffset : {false, true}) {
            Expected zone;
            zone.constant().out << quint32(QMetaType::QDateTime) << qint8(0) << QDate(2020, 1, 1) << QTime(1, 0)
                                << qint8(Qt::TimeZone);
            if (byOffset)
                zone.out << QStringLiteral("OffsetFromUtc") << id << qint32(3600) << QString() << QString() << qint32(0)
                         << QString();
            else
                zone.out << id;
            QDataStream::Status status = QDataStream::Ok;
            readBack(zone.bytes, &status);
            EXPECT_EQ(status, QDataStream::ReadCorruptData) << id.toStdString();
        }
    }
    done = true;
    watcher.join();
    EXPECT_FALSE(opened) << "the reader opened the pipe";
    // Real zones still read: see the round trip.
}
#endif

TEST(ExpressionStream, HostileCountsAndDepthsAreBounded)
{
    // A list claiming two billion children, then nothing.
    Expected huge;
    huge.tag("class kogen::ExpressionList").i32(1).i32(0x7fffffff);
    QDataStream::Status status = QDataStream::Ok;
    EXPECT_TRUE(readBack(huge.bytes, &status)->isEmpty());
    EXPECT_EQ(status, QDataStream::ReadPastEnd);

    // Polygons claiming two billion points.
    for (quint32 type : {quint32(QMetaType::QPolygon), quint32(QMetaType::QPolygonF)}) {
        Expected polygon;
        polygon.constant().out << type << qint8(0) << quint32(0x7fffffff) << QPoint(1, 2);
        readBack(polygon.bytes, &status);
        EXPECT_NE(status, QDataStream::Ok) << type;
    }

    // Qt compiles a QRegExp as it reads it; a pattern whose counted
    // repetitions nest into millions of states is refused unread, in the
    // regular-expression syntaxes. Wildcards and fixed strings have no counts.
    struct Pattern { QString pattern; quint8 syntax; bool refused; };
    const Pattern patterns[] = {
        {QStringLiteral("((a{100}){100}){100}"), QRegExp::RegExp, true},
        {QStringLiteral("((a{100}){100}){100}"), QRegExp::RegExp2, true},
        {QStringLiteral("((a{100}){100}){100}"), 9, true}, // Qt compiles an unknown syntax as a regular expression
        {QStringLiteral("((a{100}){100}){100}"), QRegExp::Wildcard, false},
        {QStringLiteral("((a{100}){100}){100}"), QRegExp::FixedString, false},
        {QStringLiteral("(a{10}){10}"), QRegExp::RegExp, false},
    };
    for (const Pattern& t : patterns) {
        Expected regExp;
        regExp.constant().out << quint32(QMetaType::QRegExp) << qint8(0) << t.pattern << quint8(Qt::CaseSensitive)
                              << t.syntax << quint8(0);
        const ExpressionHandle e = readBack(regExp.bytes, &status);
        EXPECT_EQ(status, t.refused ? QDataStream::ReadCorruptData : QDataStream::Ok) << t.pattern.toStdString();
        EXPECT_TRUE(t.refused || e->evaluate().toRegExp().pattern() == t.pattern) << t.pattern.toStdString();
    }

    // The same list, named as a type after the user type id: Qt's reader
    // accepts built-in types by name, and so must the bounded reader.
    for (const char* name : {"QVariantList", "QStringList", "QVariantMap", "QByteArrayList"}) {
        Expected named;
        named.constant().out << quint32(QMetaType::User) << qint8(0) << QByteArray(name) << quint32(0x7fffffff);
        readBack(named.bytes, &status);
        EXPECT_NE(status, QDataStream::Ok) << name;
    }

    // Nesting deeper than the reader allows is refused; just within the
    // limit it reads (999 negations of true).
    for (const int depth : {Expression::maxReadDepth() + 1, Expression::maxReadDepth() - 1}) {
        Expected nested;
        for (int i = 0; i < depth; ++i)
            nested.tag("class kogen::NotOperator").i32(1).i32(1);
        nested.constant().variant(true);
        const ExpressionHandle e = readBack(nested.bytes, &status);
        const bool allowed = depth < Expression::maxReadDepth();
        EXPECT_EQ(status, allowed ? QDataStream::Ok : QDataStream::ReadCorruptData) << depth;
        EXPECT_TRUE(!allowed || e->evaluate() == QVariant(false)) << depth;
    }
}

} // namespace
