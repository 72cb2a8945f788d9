// The feature matrix saved to and loaded from real INI files.

#include "MatrixTestSupport.h"
#include "testlib/TestFiles.h"

#include <CommonKit/storage/Settings.h>

#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdint>

namespace {

using rightstest::makeMatrix;

struct Shape { int rows; int columns; };

// Cell counts below, at and above multiples of 32, and some larger grids.
const Shape kShapes[] = {{0, 0}, {1, 1}, {2, 3}, {1, 31}, {2, 16}, {7, 9},
                         {1, 33}, {33, 1}, {31, 31}, {32, 32}, {3, 100}};

// A reproducible pattern; seed 0 is all allowed, seed 1 all forbidden.
bool patternCell(int seed, int row, int column)
{
    if (seed < 2)
        return seed == 0;
    std::uint32_t x = static_cast<std::uint32_t>(seed) * 2654435761u ^ static_cast<std::uint32_t>(row * 40503 + column * 9973);
    x ^= x >> 13;
    x *= 0x5bd1e995u;
    x ^= x >> 15;
    return (x & 3u) != 0;
}

class FeatureMatrixFile : public ::testing::Test
{
protected:
    QTemporaryDir m_dir;
};

TEST_F(FeatureMatrixFile, RoundTripsGridsOfManyShapes)
{
    int fileNumber = 0;
    for (const Shape& shape : kShapes) {
        for (int seed = 0; seed < 5; ++seed) {
            const std::string label = std::to_string(shape.rows) + "x" + std::to_string(shape.columns) + "/" +
                                      std::to_string(seed);
            const int cells = shape.rows * shape.columns;
            const QString file = m_dir.filePath(QStringLiteral("matrix%1.ini").arg(fileNumber++));
            const auto pattern = [seed](int row, int column) { return patternCell(seed, row, column); };
            std::vector<bool> expected;
            for (int index = 0; index < cells; ++index)
                expected.push_back(pattern(index / shape.columns, index % shape.columns));

            auto source = makeMatrix(shape.rows, shape.columns, pattern);
            {
                ko::Settings settings(file, QSettings::IniFormat);
                source->save(&settings);
            }
            EXPECT_FALSE(source->isDirty()) << label;
            // The file itself (QSettings' in-process cache would also answer
            // for a store that was never written).
            EXPECT_EQ(cktest::readFile(file), "[FeatureMatrix]\nColumns=" + QByteArray::number(shape.columns)
                                                  + "\nMatrix=@ByteArray(" + rightstest::packedText(expected)
                                                  + ")\nRows=" + QByteArray::number(shape.rows) + "\n")
                << label;

            // Loaded into a fresh matrix (all allowed) and into one holding the
            // opposite of every cell.
            for (const bool opposite : {false, true}) {
                auto target = opposite ? makeMatrix(shape.rows, shape.columns,
                                                    [&](int row, int column) { return !pattern(row, column); })
                                       : makeMatrix(shape.rows, shape.columns);
                ko::Settings settings(file, QSettings::IniFormat);
                target->load(&settings);
                for (int index = 0; index < cells; ++index)
                    ASSERT_EQ(target->isAllowed(index / shape.columns, index % shape.columns), expected[index])
                        << label << " cell " << index;
                // A complete read clears the flag; a multiple of 32 cells ends
                // early and keeps it set when a cell changed.
                const bool changed = opposite ? cells > 0 : std::find(expected.begin(), expected.end(), false) != expected.end();
                EXPECT_EQ(target->isDirty(), cells % 32 == 0 && changed) << label << (opposite ? " opposite" : " fresh");
            }
        }
    }
}

TEST_F(FeatureMatrixFile, LoadsFilesWrittenByOtherMeans)
{
    // 3 x 3, row by row: 1 0 1 / 0 0 1 / 0 1 1, which packs to 421.
    const bool expected[] = {true, false, true, false, false, true, false, true, true};
    struct Case { const char* content; const char* outerGroup; };
    const Case cases[] = {
        {"[General]\nLanguage=de\n\n[FeatureMatrix]\nRows=3\nColumns=3\nMatrix=421+\n", nullptr}, // a plain string
        {"[Client]\nFeatureMatrix\\Rows=3\nFeatureMatrix\\Columns=3\nFeatureMatrix\\Matrix=@ByteArray(421+)\n", "Client"},
    };
    int fileNumber = 0;
    for (const Case& c : cases) {
        const QString file = m_dir.filePath(QStringLiteral("written%1.ini").arg(fileNumber++));
        cktest::writeFile(file, c.content);
        auto matrix = makeMatrix(3, 3);
        ko::Settings settings(file, QSettings::IniFormat);
        if (c.outerGroup)
            settings.beginGroup(QString::fromLatin1(c.outerGroup));
        matrix->load(&settings);
        for (int index = 0; index < 9; ++index)
            EXPECT_EQ(matrix->isAllowed(index / 3, index % 3), expected[index]) << c.content << " cell " << index;
        EXPECT_FALSE(matrix->isDirty()) << c.content;
    }
}

} // namespace
