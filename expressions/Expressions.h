#pragma once

// Everything needed to build, evaluate, print, stream and parse expression
// trees.
#include <CommonKit/expressions/Expression.h>
#include <CommonKit/expressions/FilterParser.h>
#include <CommonKit/expressions/FunctionExpression.h>
#include <CommonKit/expressions/Membership.h>
#include <CommonKit/expressions/Operators.h>
