#include "MatrixTestSupport.h"

#include "rights/Feature.h"
#include "rights/FeatureMatrix.h"

#include <gtest/gtest.h>

namespace {

using rightstest::CapturedLog;
using rightstest::makeMatrix;

TEST(FeatureGroup, TextsStartEmptyAndCopiesAreIndependent)
{
    ko::Feature feature(7);
    ko::UserGroup users(3);
    EXPECT_EQ(feature.feature(), 7);
    EXPECT_EQ(users.userGroup(), 3);
    EXPECT_TRUE(feature.description().isEmpty() && feature.tooltip().isEmpty());
    EXPECT_TRUE(users.description().isEmpty() && users.tooltip().isEmpty());
    users.setDescription(QStringLiteral("Operators"));
    users.setTooltip(QStringLiteral("Watch live video"));
    ko::UserGroup usersCopy(users);
    users.setDescription(QStringLiteral("changed"));
    EXPECT_EQ(usersCopy.userGroup(), 3);
    EXPECT_EQ(usersCopy.description(), QStringLiteral("Operators"));
    EXPECT_EQ(usersCopy.tooltip(), QStringLiteral("Watch live video"));

    auto* group = new ko::FeatureGroup(2);
    group->setDescription(QStringLiteral("Playback"));
    auto* first = new ko::Feature(10);
    first->setDescription(QStringLiteral("Seek"));
    group->addFeature(first);
    group->addFeature(new ko::Feature(11));
    group->addFeature(nullptr);
    EXPECT_TRUE(group->containsFeature(10));
    EXPECT_TRUE(group->containsFeature(11));
    EXPECT_FALSE(group->containsFeature(12));

    // A copy holds its own features: it survives the original.
    ko::FeatureGroup copy(*group);
    delete group;
    EXPECT_EQ(copy.featureGroup(), 2);
    EXPECT_EQ(copy.description(), QStringLiteral("Playback"));
    ASSERT_EQ(copy.features().keys(), (QList<int>{10, 11}));
    EXPECT_EQ(copy.features().value(10)->description(), QStringLiteral("Seek"));

    ko::FeatureGroup assigned(5);
    assigned.addFeature(new ko::Feature(99));
    assigned = copy;
    EXPECT_EQ(assigned.featureGroup(), 2);
    EXPECT_FALSE(assigned.containsFeature(99));
    EXPECT_TRUE(assigned.containsFeature(10));
    EXPECT_NE(assigned.features().value(10), copy.features().value(10));
    const ko::FeatureGroup& self = assigned;
    assigned = self;
    EXPECT_TRUE(assigned.containsFeature(11));
}

TEST(FeatureGroup, AddingAFeatureOfAnExistingIdReplacesIt)
{
    ko::FeatureGroup group(0);
    auto* earlier = new ko::Feature(4);
    auto* later = new ko::Feature(4);
    group.addFeature(earlier);
    group.addFeature(later);
    EXPECT_EQ(group.features().value(4), later);
    EXPECT_EQ(group.features().size(), 1);
    delete earlier; // replaced entries go back to the caller
}

TEST(FeatureMatrix, GroupsAreKeptByIdAndCountedAsRowsAndColumns)
{
    ko::FeatureMatrix matrix(5, 4);
    EXPECT_EQ(matrix.rows(), 0);
    EXPECT_EQ(matrix.columns(), 0);
    matrix.addFeatureGroup(new ko::FeatureGroup(1));
    matrix.addFeatureGroup(new ko::FeatureGroup(0));
    auto* replaced = new ko::FeatureGroup(1);
    matrix.addFeatureGroup(replaced);
    auto* replacement = new ko::FeatureGroup(1);
    matrix.addFeatureGroup(replacement);
    delete replaced;
    matrix.addFeatureGroup(nullptr);
    matrix.addUserGroup(new ko::UserGroup(0));
    matrix.addUserGroup(new ko::UserGroup(2));
    matrix.addUserGroup(nullptr);
    EXPECT_EQ(matrix.rows(), 2);
    EXPECT_EQ(matrix.columns(), 2);
    EXPECT_EQ(matrix.featureGroups().value(1), replacement);
    EXPECT_TRUE(matrix.containsFeatureGroup(0));
    EXPECT_FALSE(matrix.containsFeatureGroup(2));
    EXPECT_EQ(matrix.userGroups().keys(), (QList<int>{0, 2}));
}

TEST(FeatureMatrix, FeatureToAnUnknownGroupIsDroppedWithAWarning)
{
    CapturedLog log;
    auto matrix = makeMatrix(2, 2);
    matrix->addFeatureToGroup(new ko::Feature(5), 1);
    matrix->addFeatureToGroup(new ko::Feature(6), 9);
    matrix->addFeatureToGroup(nullptr, 1);
    EXPECT_TRUE(matrix->featureGroups().value(1)->containsFeature(5));
    EXPECT_FALSE(matrix->featureGroups().value(0)->containsFeature(6));
    EXPECT_FALSE(matrix->featureGroups().value(1)->containsFeature(6));
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_NE(log.lines[0].find("[ko::FeatureMatrix::addFeatureToGroup]"), std::string::npos);
}

TEST(FeatureMatrix, FeatureIsAllowedWhenAnyOfItsGroupsIs)
{
    // Feature 7 is in groups 0 and 2, feature 8 only in group 1.
    auto matrix = makeMatrix(3, 3);
    matrix->addFeatureToGroup(new ko::Feature(7), 0);
    matrix->addFeatureToGroup(new ko::Feature(7), 2);
    matrix->addFeatureToGroup(new ko::Feature(8), 1);
    matrix->setAllowed(0, 1, false);
    matrix->setAllowed(1, 2, false);

    struct Case { int feature; int column; bool allowed; };
    const Case before[] = {
        {7, 0, true}, {7, 1, true}, {7, 2, true},   // group 2 allows column 1
        {8, 0, true}, {8, 1, true}, {8, 2, false},
        {9, 0, false}, {9, 1, false},               // in no group
    };
    for (const Case& c : before)
        EXPECT_EQ(matrix->isFeatureAllowed(c.feature, c.column), c.allowed) << c.feature << "/" << c.column;

    matrix->setAllowed(2, 1, false);
    EXPECT_FALSE(matrix->isFeatureAllowed(7, 1));
    matrix->setAllowed(0, 1, true);
    EXPECT_TRUE(matrix->isFeatureAllowed(7, 1));
}

TEST(FeatureMatrix, LockedCellsAreListedWithDuplicatesAndKeepTheirValue)
{
    auto matrix = makeMatrix(2, 2);
    matrix->setAllowed(1, 0, false);
    matrix->disableAbilityToChange(1, 0);
    matrix->disableAbilityToChange(0, 1);
    matrix->disableAbilityToChange(1, 0);
    using Cell = QPair<int, int>;
    EXPECT_EQ(matrix->lockedCells(), (QList<Cell>{Cell(1, 0), Cell(0, 1), Cell(1, 0)}));
    EXPECT_TRUE(matrix->isChangeDisabled(0, 1));
    EXPECT_FALSE(matrix->isChangeDisabled(1, 1));
    EXPECT_FALSE(matrix->isAllowed(1, 0));
    EXPECT_TRUE(matrix->isAllowed(0, 1));
}

} // namespace
