#pragma once

// Everything needed to build, evaluate, print and stream expression trees.
#include "expressions/Expression.h"
#include "expressions/FunctionExpression.h"
#include "expressions/Membership.h"
#include "expressions/Operators.h"
