// The grid, its dirty flag and the "Matrix" text, against an in-memory store.

#include "MatrixTestSupport.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

using rightstest::CapturedLog;
using rightstest::makeMatrix;
using rightstest::MapDestination;

using Cell = std::pair<int, int>;

TEST(FeatureMatrix, NewMatrixAllowsEveryCellAndIsClean)
{
    auto matrix = makeMatrix(3, 4);
    EXPECT_EQ(matrix->rows(), 3);
    EXPECT_EQ(matrix->columns(), 4);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_TRUE(matrix->isAllowed(row, column)) << row << "," << column;
    EXPECT_FALSE(matrix->isDirty());
    // Outside the allocated grid there is nothing to allow.
    for (const Cell& outside : {Cell(3, 0), Cell(0, 4), Cell(-1, 0), Cell(0, -1)})
        EXPECT_FALSE(matrix->isAllowed(outside.first, outside.second));
}

TEST(FeatureMatrix, OnlyChangingACellMakesTheMatrixDirty)
{
    struct Step { int row; int column; bool allowed; bool dirtyAfter; };
    const Step steps[] = {
        {0, 0, true, false},  // already allowed
        {2, 3, true, false},
        {1, 2, false, true},  // a change
        {1, 2, false, true},
        {1, 2, true, true},   // changing back stays dirty
    };
    auto matrix = makeMatrix(3, 4);
    for (const Step& step : steps) {
        matrix->setAllowed(step.row, step.column, step.allowed);
        EXPECT_EQ(matrix->isAllowed(step.row, step.column), step.allowed);
        EXPECT_EQ(matrix->isDirty(), step.dirtyAfter) << step.row << "," << step.column;
    }
    MapDestination store;
    matrix->save(&store);
    EXPECT_FALSE(matrix->isDirty());

    // Cells outside the grid are refused with a warning and change nothing.
    CapturedLog log;
    matrix->setAllowed(3, 0, false);
    matrix->setAllowed(0, -1, false);
    EXPECT_FALSE(matrix->isDirty());
    EXPECT_EQ(log.lines.size(), 2u);
}

TEST(FeatureMatrix, SaveWritesRowsColumnsAndThePackedText)
{
    struct Case { int rows; int columns; std::vector<Cell> forbidden; const char* text; };
    const Case cases[] = {
        {2, 3, {{1, 2}}, "31+"},
        {2, 16, {}, "4294967295+"},                        // 32 cells: one word, nothing after
        {5, 7, {{0, 0}}, "4294967294+7+"},                 // 35 cells: a full and a partial word
        {4, 8, {{3, 7}}, "2147483647+"},                   // the last cell is bit 31
        {3, 11, {{2, 10}}, "4294967295+0+"},               // cell 32 starts the second word
        {1, 1, {{0, 0}}, "0+"},
        {3, 1, {{0, 0}, {2, 0}}, "2+"},                    // packing runs on across row ends
        {2, 40, {{0, 39}, {1, 0}}, "4294967295+4294966911+65535+"},
        {0, 0, {}, ""},
        {0, 5, {}, ""},
    };
    for (const Case& c : cases) {
        auto matrix = makeMatrix(c.rows, c.columns);
        for (const Cell& cell : c.forbidden)
            matrix->setAllowed(cell.first, cell.second, false);
        MapDestination store;
        matrix->save(&store);
        const QString shape = QStringLiteral("%1x%2").arg(c.rows).arg(c.columns);
        EXPECT_EQ(store.values.value(QStringLiteral("FeatureMatrix/Rows")), QVariant(c.rows)) << shape.toStdString();
        EXPECT_EQ(store.values.value(QStringLiteral("FeatureMatrix/Columns")), QVariant(c.columns));
        EXPECT_EQ(store.values.value(QStringLiteral("FeatureMatrix/Matrix")), QVariant(QByteArray(c.text)))
            << shape.toStdString();
        EXPECT_EQ(store.calls, (QStringList{QStringLiteral("beginGroup FeatureMatrix"), QStringLiteral("setValue Rows"),
                                            QStringLiteral("setValue Columns"), QStringLiteral("setValue Matrix"),
                                            QStringLiteral("endGroup")}));
    }
}

// Writes a stored matrix of the given shape and text.
MapDestination stored(int rows, int columns, const QByteArray& text)
{
    MapDestination store;
    store.values.insert(QStringLiteral("FeatureMatrix/Rows"), rows);
    store.values.insert(QStringLiteral("FeatureMatrix/Columns"), columns);
    store.values.insert(QStringLiteral("FeatureMatrix/Matrix"), text);
    return store;
}

TEST(FeatureMatrix, LoadReadsTheGroupAndStopsAtTheFirstMissingWord)
{
    // A 3 x 16 grid has 48 cells: a full word and 16 bits of a second one.
    // Cells forbiddenFrom .. forbiddenTo - 1 (in packing order) read as
    // forbidden, the rest stay allowed.
    struct Case { const char* text; int forbiddenFrom; int forbiddenTo; bool dirty; };
    const Case cases[] = {
        {"", 0, 0, false},                              // no "+": nothing read
        {"12345", 0, 0, false},
        {"0+", 0, 32, true},                            // second word missing: early return
        {"abc+", 0, 32, true},                          // not a number: 0
        {"-1+", 0, 32, true},
        {"4294967296+", 0, 32, true},                   // more than 32 bits: 0
        {"4294967295+0+", 32, 48, false},               // complete
        {"4294967295+65535+", 0, 0, false},             // complete, nothing changes
        {"4294967295+65535+junk+99+", 0, 0, false},     // trailing words are ignored
        {"4294967294+4294901759+", 0, 1, false},        // bit 16 of word two is beyond the grid
    };
    for (const Case& c : cases) {
        auto matrix = makeMatrix(3, 16);
        MapDestination store = stored(3, 16, c.text);
        matrix->load(&store);
        EXPECT_EQ(store.calls, (QStringList{QStringLiteral("beginGroup FeatureMatrix"), QStringLiteral("endGroup")}));
        for (int index = 0; index < 48; ++index) {
            const bool forbidden = index >= c.forbiddenFrom && index < c.forbiddenTo;
            EXPECT_EQ(matrix->isAllowed(index / 16, index % 16), !forbidden) << c.text << " cell " << index;
        }
        EXPECT_EQ(matrix->isDirty(), c.dirty) << c.text;
    }
}

TEST(FeatureMatrix, LoadOverwritesAllowedAndForbiddenCellsAlike)
{
    // Stored: a chessboard 5 x 5; loaded into a matrix holding the opposite.
    auto source = makeMatrix(5, 5);
    rightstest::fill(*source, [](int row, int column) { return (row + column) % 2 == 0; });
    MapDestination store;
    source->save(&store);

    auto target = makeMatrix(5, 5);
    rightstest::fill(*target, [](int row, int column) { return (row + column) % 2 == 1; });
    ASSERT_TRUE(target->isDirty());
    target->load(&store);
    for (int row = 0; row < 5; ++row)
        for (int column = 0; column < 5; ++column)
            EXPECT_EQ(target->isAllowed(row, column), (row + column) % 2 == 0);
    EXPECT_FALSE(target->isDirty()); // 25 cells: a complete read
}

TEST(FeatureMatrix, AGridOfAMultipleOf32CellsEndsEarlyAndStaysDirty)
{
    MapDestination store = stored(2, 16, "4294967295+");

    auto clean = makeMatrix(2, 16);
    clean->load(&store);
    EXPECT_FALSE(clean->isDirty());

    auto changed = makeMatrix(2, 16);
    changed->setAllowed(1, 15, false);
    MapDestination empty;
    changed->save(&empty); // clean again, with one forbidden cell
    ASSERT_FALSE(changed->isDirty());
    changed->load(&store);
    EXPECT_TRUE(changed->isAllowed(1, 15));
    EXPECT_TRUE(changed->isDirty());
}

TEST(FeatureMatrix, IncompatibleStoredDimensionsAreLoggedAndChangeNothing)
{
    struct Case { int rows; int columns; bool haveKeys; };
    const Case cases[] = {
        {2, 4, true},   // another number of user groups
        {3, 3, true},   // another number of feature groups
        {0, 0, false},  // nothing saved: missing keys read as 0
    };
    for (const Case& c : cases) {
        CapturedLog log;
        auto matrix = makeMatrix(2, 3);
        matrix->setAllowed(0, 1, false);
        MapDestination store = c.haveKeys ? stored(c.rows, c.columns, "0+0+") : MapDestination();
        matrix->load(&store);
        ASSERT_EQ(log.lines.size(), 1u);
        EXPECT_EQ(log.levels[0], ko::Log::Error);
        const std::string expected = " E [ko::FeatureMatrix::load] Saved matrix not compatible with current matrix.";
        ASSERT_GE(log.lines[0].size(), expected.size());
        EXPECT_EQ(log.lines[0].substr(log.lines[0].size() - expected.size()), expected);
        for (int row = 0; row < 2; ++row)
            for (int column = 0; column < 3; ++column)
                EXPECT_EQ(matrix->isAllowed(row, column), !(row == 0 && column == 1));
        EXPECT_TRUE(matrix->isDirty());
    }

    // An empty matrix is compatible with an empty store.
    CapturedLog log;
    ko::FeatureMatrix empty(0, 0);
    MapDestination nothing;
    empty.load(&nothing);
    EXPECT_TRUE(log.lines.empty());
}

TEST(FeatureMatrix, SavedCountsAreTheGroupsAddedNotTheAllocation)
{
    // Allocated 4 x 4 but only 2 feature groups and 3 user groups added: the
    // text covers 6 cells.
    ko::FeatureMatrix matrix(4, 4);
    matrix.addFeatureGroup(new ko::FeatureGroup(0));
    matrix.addFeatureGroup(new ko::FeatureGroup(1));
    for (int column = 0; column < 3; ++column)
        matrix.addUserGroup(new ko::UserGroup(column));
    matrix.setAllowed(1, 0, false);
    matrix.setAllowed(3, 3, false); // allocated, but beyond the groups
    MapDestination store;
    matrix.save(&store);
    EXPECT_EQ(store.values.value(QStringLiteral("FeatureMatrix/Rows")).toInt(), 2);
    EXPECT_EQ(store.values.value(QStringLiteral("FeatureMatrix/Columns")).toInt(), 3);
    EXPECT_EQ(store.values.value(QStringLiteral("FeatureMatrix/Matrix")).toByteArray(), QByteArray("55+"));
}

TEST(FeatureMatrix, NullDestinationIsRefusedWithAWarning)
{
    CapturedLog log;
    auto matrix = makeMatrix(1, 1);
    matrix->setAllowed(0, 0, false);
    matrix->save(nullptr);
    matrix->load(nullptr);
    EXPECT_TRUE(matrix->isDirty());
    EXPECT_FALSE(matrix->isAllowed(0, 0));
    EXPECT_EQ(log.lines.size(), 2u);
}

} // namespace
