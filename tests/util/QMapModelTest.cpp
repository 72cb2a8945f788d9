#include <CommonKit/util/QMapModel.h>

#include <CommonKit/support/json/JsonPrinter.h>

#include <gtest/gtest.h>

namespace {

TEST(QMapModel, ConvertsMapsBothWaysIntoOneWorkingMap)
{
    QMapModel model;
    EXPECT_EQ(model.cTypeName(), "QVariantMap");
    EXPECT_EQ(model.jsonTypeName(), "QVariantMap");

    const QVariantMap first{{QStringLiteral("name"), QStringLiteral("Gate")},
                            {QStringLiteral("ptz"), QVariantMap{{QStringLiteral("speed"), 3}}},
                            {QStringLiteral("hosts"), QVariantList{QStringLiteral("a"), 2.5}}};
    const json::Variant value = model.variantFromCObject(&first);
    EXPECT_EQ(json::JsonPrinter::toString(value, ""), R"({"hosts":["a",2.5],"name":"Gate","ptz":{"speed":3}})");

    const QVariantMap second{{QStringLiteral("other"), true}};
    void* firstPointer = model.objectPtrFromVariant(value);
    EXPECT_EQ(*static_cast<QVariantMap*>(firstPointer), first);
    void* secondPointer = model.objectPtrFromVariant(model.variantFromCObject(&second));
    EXPECT_EQ(secondPointer, firstPointer);
    EXPECT_EQ(*static_cast<QVariantMap*>(firstPointer), second);

    // A value that is no object gives an empty map.
    EXPECT_TRUE(static_cast<QVariantMap*>(model.objectPtrFromVariant(json::Variant(5)))->isEmpty());
}

} // namespace
