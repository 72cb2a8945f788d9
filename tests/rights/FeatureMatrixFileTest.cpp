// The feature matrix saved to and loaded from real QSettings files.

#include "MatrixTestSupport.h"

#include "storage/Settings.h"

#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>

#include <cstdint>

namespace {

using rightstest::makeMatrix;

struct Shape { int rows; int columns; };

// Cell counts below, at and above multiples of 32, and a few larger grids.
const Shape kShapes[] = {
    {0, 0}, {1, 1}, {2, 3}, {1, 31}, {1, 32}, {2, 16}, {4, 8}, {3, 11}, {7, 9}, {8, 8},
    {5, 13}, {13, 5}, {10, 10}, {1, 33}, {33, 1}, {16, 6}, {31, 31}, {32, 32}, {3, 100},
};

// A reproducible pattern per shape and seed; seed 0 is all allowed, seed 1
// all forbidden.
bool patternCell(int seed, int row, int column)
{
    if (seed < 2)
        return seed == 0;
    std::uint32_t x = static_cast<std::uint32_t>(seed * 2654435761u) ^ static_cast<std::uint32_t>(row * 40503 + column * 9973);
    x ^= x >> 13;
    x *= 0x5bd1e995u;
    x ^= x >> 15;
    return (x & 3u) != 0;
}

class FeatureMatrixFile : public ::testing::TestWithParam<QSettings::Format>
{
protected:
    QTemporaryDir m_dir;
};

TEST_P(FeatureMatrixFile, RoundTripsGridsOfManyShapes)
{
    const QSettings::Format format = GetParam();
    int fileNumber = 0;
    for (const Shape& shape : kShapes) {
        for (int seed = 0; seed < 5; ++seed) {
            const std::string label = std::to_string(shape.rows) + "x" + std::to_string(shape.columns) + " seed " +
                                      std::to_string(seed);
            const int cells = shape.rows * shape.columns;
            const QString file = m_dir.filePath(QStringLiteral("matrix%1.ini").arg(fileNumber++));

            auto source = makeMatrix(shape.rows, shape.columns);
            rightstest::fill(*source, [seed](int row, int column) { return patternCell(seed, row, column); });
            bool anyForbidden = false;
            for (int index = 0; index < cells; ++index)
                anyForbidden = anyForbidden || !patternCell(seed, index / shape.columns, index % shape.columns);
            {
                ko::Settings settings(file, format);
                source->save(&settings);
                settings.sync();
            }
            EXPECT_FALSE(source->isDirty()) << label;

            // What another reader of the file sees.
            QSettings raw(file, format);
            EXPECT_EQ(raw.status(), QSettings::NoError) << label;
            EXPECT_EQ(raw.value(QStringLiteral("FeatureMatrix/Rows")).toInt(), shape.rows) << label;
            EXPECT_EQ(raw.value(QStringLiteral("FeatureMatrix/Columns")).toInt(), shape.columns) << label;
            const QByteArray text = raw.value(QStringLiteral("FeatureMatrix/Matrix")).toByteArray();
            const std::vector<unsigned long long> words = rightstest::words(text);
            ASSERT_EQ(words.size(), static_cast<size_t>((cells + 31) / 32)) << label << ": " << text.constData();
            for (int index = 0; index < cells; ++index) {
                const bool bit = (words[static_cast<size_t>(index / 32)] >> (index % 32)) & 1u;
                ASSERT_EQ(bit, patternCell(seed, index / shape.columns, index % shape.columns))
                    << label << " cell " << index;
            }
            if (cells % 32 != 0) {
                EXPECT_EQ(words.back() >> (cells % 32), 0u) << label << ": unused bits are clear";
            }

            // Loaded into a fresh matrix (all allowed) and into one holding the
            // opposite of every cell.
            for (const bool opposite : {false, true}) {
                auto target = makeMatrix(shape.rows, shape.columns);
                if (opposite)
                    rightstest::fill(*target, [seed](int row, int column) { return !patternCell(seed, row, column); });
                {
                    ko::Settings settings(file, format);
                    target->load(&settings);
                }
                for (int row = 0; row < shape.rows; ++row)
                    for (int column = 0; column < shape.columns; ++column)
                        ASSERT_EQ(target->isAllowed(row, column), source->isAllowed(row, column))
                            << label << " cell " << row << "," << column;
                // A complete read clears the flag; a multiple of 32 cells ends
                // early and keeps it set when a cell changed.
                const bool changed = opposite ? cells > 0 : anyForbidden;
                const bool expectDirty = cells > 0 && cells % 32 == 0 && changed;
                EXPECT_EQ(target->isDirty(), expectDirty) << label << (opposite ? " into opposite" : " into fresh");
            }
        }
    }
}

TEST_P(FeatureMatrixFile, LivesBesideOtherSettingsAndInsideAnOuterGroup)
{
    const QString file = m_dir.filePath(QStringLiteral("app.ini"));
    auto source = makeMatrix(3, 5);
    source->setAllowed(2, 4, false);
    source->setAllowed(0, 0, false);
    {
        QSettings store(file, GetParam());
        store.setValue(QStringLiteral("General/Language"), QStringLiteral("de"));
        ko::Settings settings(&store);
        settings.beginGroup(QStringLiteral("Client"));
        source->save(&settings);
        settings.endGroup();
    }
    QSettings raw(file, GetParam());
    EXPECT_EQ(raw.allKeys(), (QStringList{QStringLiteral("Client/FeatureMatrix/Columns"),
                                          QStringLiteral("Client/FeatureMatrix/Matrix"),
                                          QStringLiteral("Client/FeatureMatrix/Rows"),
                                          QStringLiteral("General/Language")}));
    // 15 cells, cells 0 and 14 forbidden: 0x3FFE.
    EXPECT_EQ(raw.value(QStringLiteral("Client/FeatureMatrix/Matrix")).toByteArray(), QByteArray("16382+"));

    auto target = makeMatrix(3, 5);
    ko::Settings settings(&raw);
    settings.beginGroup(QStringLiteral("Client"));
    target->load(&settings);
    settings.endGroup();
    EXPECT_FALSE(target->isAllowed(0, 0));
    EXPECT_FALSE(target->isAllowed(2, 4));
    EXPECT_TRUE(target->isAllowed(1, 2));
    EXPECT_FALSE(target->isDirty());
}

INSTANTIATE_TEST_SUITE_P(Formats, FeatureMatrixFile, ::testing::Values(QSettings::IniFormat, QSettings::NativeFormat),
                         [](const ::testing::TestParamInfo<QSettings::Format>& format) {
                             return format.param == QSettings::IniFormat ? "Ini" : "Native";
                         });

} // namespace
