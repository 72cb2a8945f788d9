// Fills the process-wide registries when the library loads: the prototypes
// through which streams are read and the built-in functions.

#include <CommonKit/expressions/Expressions.h>

namespace kogen {
namespace {

using F = FunctionExpression;

struct BuiltInFunction
{
    const char* name;
    F::Function function;
    F::PrintFunction printFunction;
    int minArgs;
    int maxArgs;
};

const BuiltInFunction kBuiltIns[] = {
    {"currentDate", &F::currentDate, nullptr, 0, 0},
    {"currentTime", &F::currentTime, nullptr, 0, 0},
    {"currentDateTime", &F::currentDateTime, nullptr, 0, 0},
    {"abs", &F::abs, &F::printDefault, 1, 1},
    {"min", &F::min, &F::printDefault, 1, -1},
    {"max", &F::max, &F::printDefault, 1, -1},
    {"count", &F::count, &F::printDefault, 1, -1},
    {"group_concat", &F::group_concat, &F::printDefault, 1, -1},
    {"coalesce", &F::coalesce, &F::printDefault, 2, -1},
    {"ifnull", &F::ifnull, &F::printDefault, 2, 2},
    {"nullif", &F::nullif, &F::printDefault, 2, 2},
    {"hex", &F::hex, &F::printDefault, 1, 1},
    {"round", &F::round, &F::printDefault, 1, 1},
    {"random", &F::random, &F::printDefault, 0, 0},
    {"length", &F::length, &F::printDefault, 1, 1},
    {"lower", &F::lower, &F::printDefault, 1, 1},
    {"upper", &F::upper, &F::printDefault, 1, 1},
    {"quote", &F::quote, &F::printDefault, 1, 1},
    {"trim", &F::trim, &F::printDefault, 1, 1},
    {"like", &F::like, &F::printLike, 2, 3},
    {"regexp", &F::regexp, &F::printLike, 2, 2},
};

struct Registration
{
    bool classes = true;
    bool functions = true;

    Registration()
    {
        const ExpressionHandle constant = ConstExpression(QVariant(), false);
        classes = Expression::registerExpressionClass(ConstExpression(QVariant(), false)) && classes;
        classes = Expression::registerExpressionClass(ValueExpression(QString(), QString())) && classes;
        classes = Expression::registerExpressionClass(CastExpression(QVariant::Int, constant)) && classes;
        classes = Expression::registerExpressionClass(ExpressionList()) && classes;
        classes = Expression::registerExpressionClass(Comparator(constant, Comparator::Equal, constant)) && classes;
        classes = Expression::registerExpressionClass(ElementOf(constant)) && classes;
        classes = Expression::registerExpressionClass(BooleanOperator(constant, BooleanOperator::And, constant)) &&
                  classes;
        classes = Expression::registerExpressionClass(NotOperator(constant)) && classes;
        classes = Expression::registerExpressionClass(NumericOperator(constant, NumericOperator::Add, constant)) &&
                  classes;
        classes = Expression::registerExpressionClass(UnaryOperator(UnaryOperator::Negate, constant)) && classes;

        for (const BuiltInFunction& builtIn : kBuiltIns)
            functions = F::registerFunction(builtIn.name, builtIn.function, builtIn.printFunction, builtIn.minArgs,
                                            builtIn.maxArgs) &&
                        functions;

        classes = Expression::registerExpressionClass(FunctionExpression(QStringLiteral("currentDate"),
                                                                         ExpressionList(), false)) &&
                  classes;
    }
};

const Registration gRegistration;

} // namespace
} // namespace kogen
