#include <CommonKit/rights/FeatureMatrix.h>

#include <CommonKit/storage/IPersistDestination.h>
#include <CommonKit/support/core/Log.h>

#include <QByteArray>
#include <QString>
#include <QVariant>

namespace ko {

namespace {

const char kGroup[] = "FeatureMatrix";
const char kRows[] = "Rows";
const char kColumns[] = "Columns";
const char kMatrix[] = "Matrix";
const int kBitsPerWord = 32;

// Takes the next word of a "Matrix" text: the text from position up to the
// next "+", read as an unsigned decimal number (0 when it is none). Returns
// false when no "+" follows.
bool takeWord(const QByteArray& text, int& position, quint32& word)
{
    const int plus = text.indexOf('+', position);
    if (plus < 0)
        return false;
    bool ok = false;
    word = text.mid(position, plus - position).toUInt(&ok, 10);
    if (!ok)
        word = 0;
    position = plus + 1;
    return true;
}

} // namespace

FeatureMatrix::FeatureMatrix(int rows, int columns)
    : m_gridRows(rows > 0 ? rows : 0),
      m_gridColumns(columns > 0 ? columns : 0),
      m_grid(static_cast<size_t>(m_gridRows), std::vector<bool>(static_cast<size_t>(m_gridColumns), true)),
      m_dirty(false)
{
}

FeatureMatrix::~FeatureMatrix()
{
    for (FeatureGroup* group : qAsConst(m_featureGroups))
        delete group;
    for (UserGroup* group : qAsConst(m_userGroups))
        delete group;
}

void FeatureMatrix::addFeatureGroup(FeatureGroup* group)
{
    if (group)
        m_featureGroups.insert(group->featureGroup(), group);
}

void FeatureMatrix::addUserGroup(UserGroup* group)
{
    if (group)
        m_userGroups.insert(group->userGroup(), group);
}

void FeatureMatrix::addFeatureToGroup(Feature* feature, int groupId)
{
    if (!feature)
        return;
    FeatureGroup* group = m_featureGroups.value(groupId, nullptr);
    if (!group) {
        LogLine(Log::Warning, "ko::FeatureMatrix::addFeatureToGroup")
            << "No feature group " << groupId << "; feature " << feature->feature() << " dropped.";
        delete feature;
        return;
    }
    group->addFeature(feature);
}

bool FeatureMatrix::inGrid(int row, int column) const
{
    return row >= 0 && row < m_gridRows && column >= 0 && column < m_gridColumns;
}

bool FeatureMatrix::isAllowed(int row, int column) const
{
    return inGrid(row, column) && m_grid[static_cast<size_t>(row)][static_cast<size_t>(column)];
}

void FeatureMatrix::setAllowed(int row, int column, bool allowed)
{
    if (!inGrid(row, column)) {
        LogLine(Log::Warning, "ko::FeatureMatrix::setAllowed")
            << "Cell (" << row << ", " << column << ") is outside the " << m_gridRows << " x " << m_gridColumns
            << " grid; ignored.";
        return;
    }
    std::vector<bool>::reference cell = m_grid[static_cast<size_t>(row)][static_cast<size_t>(column)];
    if (cell != allowed) {
        cell = allowed;
        m_dirty = true;
    }
}

bool FeatureMatrix::isFeatureAllowed(int featureId, int column) const
{
    for (auto it = m_featureGroups.cbegin(); it != m_featureGroups.cend(); ++it) {
        if (it.value()->containsFeature(featureId) && isAllowed(it.key(), column))
            return true;
    }
    return false;
}

void FeatureMatrix::disableAbilityToChange(int row, int column)
{
    m_lockedCells.append(qMakePair(row, column));
}

bool FeatureMatrix::isChangeDisabled(int row, int column) const
{
    return m_lockedCells.contains(qMakePair(row, column));
}

void FeatureMatrix::save(IPersistDestination* destination) const
{
    if (!destination) {
        LogLine(Log::Warning, "ko::FeatureMatrix::save") << "No destination; nothing saved.";
        return;
    }
    const int rowCount = rows();
    const int columnCount = columns();
    QByteArray text;
    quint32 word = 0;
    int bit = 0;
    for (int row = 0; row < rowCount; ++row) {
        for (int column = 0; column < columnCount; ++column) {
            if (isAllowed(row, column))
                word |= quint32(1) << bit;
            if (++bit == kBitsPerWord) {
                text += QByteArray::number(word);
                text += '+';
                word = 0;
                bit = 0;
            }
        }
    }
    if (bit > 0) {
        text += QByteArray::number(word);
        text += '+';
    }

    destination->beginGroup(QLatin1String(kGroup));
    destination->setValue(QLatin1String(kRows), rowCount);
    destination->setValue(QLatin1String(kColumns), columnCount);
    destination->setValue(QLatin1String(kMatrix), text);
    destination->endGroup();
    m_dirty = false;
}

void FeatureMatrix::load(IPersistDestination* destination)
{
    if (!destination) {
        LogLine(Log::Warning, "ko::FeatureMatrix::load") << "No destination; nothing loaded.";
        return;
    }
    destination->beginGroup(QLatin1String(kGroup));
    const int storedRows = destination->value(QLatin1String(kRows), QVariant()).toInt();
    const int storedColumns = destination->value(QLatin1String(kColumns), QVariant()).toInt();
    const QByteArray text = destination->value(QLatin1String(kMatrix), QVariant()).toByteArray();
    destination->endGroup();

    const int rowCount = rows();
    const int columnCount = columns();
    if (storedRows != rowCount || storedColumns != columnCount) {
        Log::log(Log::Error, "ko::FeatureMatrix::load", "Saved matrix not compatible with current matrix.");
        return;
    }

    int position = 0;
    quint32 word = 0;
    if (!takeWord(text, position, word))
        return;
    int bit = 0;
    for (int row = 0; row < rowCount; ++row) {
        for (int column = 0; column < columnCount; ++column) {
            const bool allowed = (word >> bit) & 1u;
            if (inGrid(row, column)) {
                std::vector<bool>::reference cell = m_grid[static_cast<size_t>(row)][static_cast<size_t>(column)];
                if (cell != allowed) {
                    cell = allowed;
                    m_dirty = true;
                }
            }
            // As soon as a word is used up the next one is taken, even after
            // the last cell: a cell count that is a multiple of 32 therefore
            // ends here and leaves the dirty flag as it is.
            if (++bit == kBitsPerWord) {
                if (!takeWord(text, position, word))
                    return;
                bit = 0;
            }
        }
    }
    m_dirty = false;
}

} // namespace ko
