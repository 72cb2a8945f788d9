#pragma once

#include <CommonKit/expressions/Expressions.h>
#include <CommonKit/properties/Properties.h>
#include <CommonKit/properties/PropertySet.h>
#include <CommonKit/properties/TypeTool.h>

#include <QVariant>

#include <string>

namespace cktest {

inline std::string sql(const kogen::ExpressionHandle& e)
{
    return e->toString(kogen::Expression::PrintSql).toStdString();
}

inline std::string bound(const kogen::ExpressionHandle& e)
{
    return e->toString(kogen::Expression::PrintSql | kogen::Expression::PrintPlaceholders).toStdString();
}

inline std::string code(const kogen::ExpressionHandle& e)
{
    return e->toString(kogen::Expression::PrintCode).toStdString();
}

// A set with one property of each kind the tests use; the values are set
// per test through variantValue/setVariantValue.
struct Record
{
    kogen::PropertySet set;
    kogen::IntProperty* a = new kogen::IntProperty(QStringLiteral("a"));
    kogen::IntProperty* b = new kogen::IntProperty(QStringLiteral("b"));
    kogen::StringProperty* s = new kogen::StringProperty(QStringLiteral("s"));
    kogen::VariantProperty* v = new kogen::VariantProperty(QStringLiteral("v"));

    Record()
    {
        set.add(a);
        set.add(b);
        set.add(s);
        set.add(v);
    }

    Record& with(int aValue, int bValue, const QString& sValue = QString(), const QVariant& vValue = QVariant())
    {
        a->setVariantValue(aValue);
        b->setVariantValue(bValue);
        s->setVariantValue(sValue);
        v->setVariantValue(vValue);
        return *this;
    }

    QVariant eval(const kogen::ExpressionHandle& e, bool* isConstant = nullptr) const
    {
        return e->evaluate(set, isConstant);
    }
};

} // namespace cktest
