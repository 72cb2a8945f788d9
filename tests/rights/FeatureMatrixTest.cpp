// Groups, the grid, its dirty flag, the "Matrix" text and the load rules.

#include "MatrixTestSupport.h"
#include "testlib/DataTable.h"
#include "testlib/LogCapture.h"

#include <CommonKit/storage/Settings.h>

#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>

#include <utility>
#include <vector>

namespace {

using rightstest::makeMatrix;

using Cell = std::pair<int, int>;

TEST(FeatureMatrix, OwnsGroupsAndFeaturesReplacesEntriesByIdAndAllowsByAnyGroup)
{
    cktest::LogCapture log(ko::Log::Warning);
    ko::FeatureMatrix matrix(5, 4);
    auto* replaced = new ko::FeatureGroup(0);
    matrix.addFeatureGroup(replaced);
    matrix.addFeatureGroup(new ko::FeatureGroup(0));
    delete replaced; // a replaced entry goes back to the caller
    matrix.addFeatureGroup(new ko::FeatureGroup(1));
    matrix.addUserGroup(new ko::UserGroup(2));
    matrix.addUserGroup(nullptr);
    EXPECT_EQ(matrix.rows(), 2); // groups added, not the allocated 5 x 4
    EXPECT_EQ(matrix.columns(), 1);

    auto* seek = new ko::Feature(10);
    seek->setDescription(QStringLiteral("Seek"));
    matrix.addFeatureToGroup(seek, 1);
    matrix.addFeatureToGroup(new ko::Feature(6), 9); // no such group: dropped with a warning
    EXPECT_TRUE(matrix.featureGroups().value(1)->containsFeature(10));
    EXPECT_FALSE(matrix.containsFeatureGroup(9));
    EXPECT_EQ(log.lines.size(), 1u);

    // Copies of a feature group take its id and texts and hold their own
    // features.
    matrix.featureGroups().value(1)->setTooltip(QStringLiteral("Recorded video"));
    ko::FeatureGroup copy(*matrix.featureGroups().value(1));
    ko::FeatureGroup assigned(5);
    assigned.addFeature(new ko::Feature(99));
    assigned = copy;
    EXPECT_EQ(assigned.featureGroup(), 1);
    EXPECT_EQ(assigned.tooltip(), QStringLiteral("Recorded video"));
    EXPECT_EQ(assigned.features().keys(), QList<int>{10});
    EXPECT_EQ(assigned.features().value(10)->description(), QStringLiteral("Seek"));
    EXPECT_NE(assigned.features().value(10), seek);

    // A feature is allowed when any of its groups is. Feature 7 is in groups
    // 0 and 2, feature 8 only in group 1.
    auto grid = makeMatrix(3, 3);
    grid->addFeatureToGroup(new ko::Feature(7), 0);
    grid->addFeatureToGroup(new ko::Feature(7), 2);
    grid->addFeatureToGroup(new ko::Feature(8), 1);
    grid->setAllowed(0, 1, false);
    grid->setAllowed(1, 2, false);
    struct Case { int feature; int column; bool allowed; };
    const Case cases[] = {{7, 0, true}, {7, 1, true}, {8, 1, true}, {8, 2, false}, {9, 0, false}};
    for (const Case& c : cases)
        EXPECT_EQ(grid->isFeatureAllowed(c.feature, c.column), c.allowed) << c.feature << "/" << c.column;
    grid->setAllowed(2, 1, false);
    EXPECT_FALSE(grid->isFeatureAllowed(7, 1));
}

TEST(FeatureMatrix, CellsStartAllowedAndOnlyChangesMakeItDirty)
{
    // (That cells start allowed, the load tests show.)
    auto matrix = makeMatrix(3, 4);
    for (const Cell& outside : {Cell(3, 0), Cell(0, 4), Cell(-1, 0)})
        EXPECT_FALSE(matrix->isAllowed(outside.first, outside.second));
    EXPECT_FALSE(matrix->isDirty());

    struct Step { int row; int column; bool allowed; bool dirtyAfter; };
    const Step steps[] = {{0, 0, true, false}, {3, 0, false, false}, {1, 2, false, true}, {1, 2, true, true}};
    cktest::LogCapture log(ko::Log::Warning); // the cell outside the grid is refused with a warning
    for (const Step& step : steps) {
        matrix->setAllowed(step.row, step.column, step.allowed);
        EXPECT_EQ(matrix->isAllowed(step.row, step.column), step.allowed && step.row < 3);
        EXPECT_EQ(matrix->isDirty(), step.dirtyAfter);
    }
    EXPECT_EQ(log.lines.size(), 1u);

    // Locking a cell only lists it.
    matrix->disableAbilityToChange(1, 0);
    matrix->disableAbilityToChange(1, 0);
    EXPECT_EQ(matrix->lockedCells(), (QList<QPair<int, int>>{qMakePair(1, 0), qMakePair(1, 0)}));
    EXPECT_TRUE(matrix->isChangeDisabled(1, 0));
    EXPECT_TRUE(matrix->isAllowed(1, 0));
}

class FeatureMatrixStore : public ::testing::Test
{
protected:
    FeatureMatrixStore() : store(dir.filePath(QStringLiteral("m.ini")), QSettings::IniFormat), settings(&store) {}
    void write(int rows, int columns, const QByteArray& text)
    {
        store.clear();
        store.setValue(QStringLiteral("FeatureMatrix/Rows"), rows);
        store.setValue(QStringLiteral("FeatureMatrix/Columns"), columns);
        store.setValue(QStringLiteral("FeatureMatrix/Matrix"), text);
    }
    QTemporaryDir dir;
    QSettings store;
    ko::Settings settings;
};

TEST_F(FeatureMatrixStore, LoadStopsAtTheFirstMissingWord)
{
    for (const cktest::DataRow& row : cktest::dataRows("rights/partial-loads.tsv", 4)) {
        auto matrix = makeMatrix(3, 16);
        write(3, 16, row[0].c_str());
        matrix->load(&settings);
        for (int index = 0; index < 48; ++index) {
            const bool forbidden = index >= std::stoi(row[1]) && index < std::stoi(row[2]);
            EXPECT_EQ(matrix->isAllowed(index / 16, index % 16), !forbidden) << row.where << " cell " << index;
        }
        EXPECT_EQ(matrix->isDirty(), row[3] == "1") << row.where;
    }

    // 32 cells: the read always ends by looking for a further word (without
    // one the dirty flag stays as it was, see the file test); with a further
    // word present that look succeeds and the read completes.
    write(2, 16, "0+12345+");
    auto changed = makeMatrix(2, 16);
    changed->load(&settings);
    EXPECT_FALSE(changed->isAllowed(0, 0));
    EXPECT_FALSE(changed->isDirty());
}

TEST_F(FeatureMatrixStore, IncompatibleStoredDimensionsAreLoggedAndChangeNothing)
{
    // Another number of user groups, of feature groups, and nothing saved.
    const Cell stored[] = {{2, 4}, {3, 3}, {-1, -1}};
    for (const Cell& dimensions : stored) {
        cktest::LogCapture log(ko::Log::Warning);
        if (dimensions.first < 0)
            store.clear();
        else
            write(dimensions.first, dimensions.second, "0+");
        auto matrix = makeMatrix(2, 3);
        matrix->setAllowed(0, 1, false);
        matrix->load(&settings);
        ASSERT_EQ(log.lines.size(), 1u);
        EXPECT_TRUE(log.contains(" E [ko::FeatureMatrix::load] Saved matrix not compatible with current matrix."));
        for (int index = 0; index < 6; ++index)
            EXPECT_EQ(matrix->isAllowed(index / 3, index % 3), index != 1);
        EXPECT_TRUE(matrix->isDirty());
    }
    cktest::LogCapture log(ko::Log::Warning);
    ko::FeatureMatrix empty(0, 0);
    empty.load(&settings);
    EXPECT_TRUE(log.lines.empty());
}

} // namespace
