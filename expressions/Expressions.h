#pragma once

// Everything needed to build, evaluate, print, stream and parse expression
// trees.
#include "expressions/Expression.h"
#include "expressions/FilterParser.h"
#include "expressions/FunctionExpression.h"
#include "expressions/Membership.h"
#include "expressions/Operators.h"
