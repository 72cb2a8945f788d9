#pragma once

// Helpers of the rights tests: matrices of a given shape and an independent
// encoder of the "Matrix" text.

#include <CommonKit/rights/FeatureMatrix.h>

#include <QByteArray>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace rightstest {

// A matrix allocated rows x columns with feature groups 0 .. rows - 1 and
// user groups 0 .. columns - 1, cells set by allowed(row, column) if given.
inline std::unique_ptr<ko::FeatureMatrix> makeMatrix(int rows, int columns,
                                                     const std::function<bool(int, int)>& allowed = nullptr)
{
    auto matrix = std::make_unique<ko::FeatureMatrix>(rows, columns);
    for (int row = 0; row < rows; ++row)
        matrix->addFeatureGroup(new ko::FeatureGroup(row));
    for (int column = 0; column < columns; ++column)
        matrix->addUserGroup(new ko::UserGroup(column));
    for (int index = 0; allowed && index < rows * columns; ++index)
        matrix->setAllowed(index / columns, index % columns, allowed(index / columns, index % columns));
    return matrix;
}

// The "Matrix" text of a list of cells, computed as sums of powers of two.
inline QByteArray packedText(const std::vector<bool>& cells)
{
    std::string text;
    for (size_t first = 0; first < cells.size(); first += 32) {
        unsigned long long word = 0, power = 1;
        for (size_t i = first; i < cells.size() && i < first + 32; ++i, power *= 2)
            word += cells[i] ? power : 0;
        text += std::to_string(word) + "+";
    }
    return QByteArray::fromStdString(text);
}

} // namespace rightstest
