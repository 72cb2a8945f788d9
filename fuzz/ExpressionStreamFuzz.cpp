// Feeds arbitrary bytes to the expression stream reader. The reader must
// neither crash nor hang nor allocate without bound; whatever it returns is
// printed, asked for its placeholders, compared and written again.

#include <CommonKit/expressions/Expressions.h>

#include <QByteArray>
#include <QDataStream>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size > (1u << 20))
        return 0;
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QDataStream in(bytes);
    // The first byte picks the stream version, so the QVariant layouts of
    // every generation (type ids, null flag, invalid values) are exercised.
    static const int kVersions[] = {QDataStream::Qt_DefaultCompiledVersion, QDataStream::Qt_5_6, QDataStream::Qt_4_8,
                                    QDataStream::Qt_4_0, QDataStream::Qt_3_3, QDataStream::Qt_5_0,
                                    QDataStream::Qt_4_2, QDataStream::Qt_1_0};
    if (size > 0)
        in.setVersion(kVersions[data[0] & 7]);
    const kogen::ExpressionHandle tree = kogen::Expression::readExpression(in);

    tree->toString(kogen::Expression::PrintSql | kogen::Expression::PrintPlaceholders);
    tree->toString(kogen::Expression::PrintCode);
    tree->toString(kogen::Expression::PrintSql | kogen::Expression::PrintOrder);
    tree->collectPlaceholders();
    tree->isEmpty();
    (void)tree.equals(tree);

    QByteArray again;
    {
        QDataStream out(&again, QIODevice::WriteOnly);
        out.setVersion(in.version());
        out << tree;
    }
    QDataStream reread(again);
    reread.setVersion(in.version());
    const kogen::ExpressionHandle copy = kogen::Expression::readExpression(reread);
    (void)copy.equals(tree);
    return 0;
}
