#pragma once

// Helpers shared by the feature matrix tests: an in-memory destination that
// records the calls it gets, log capture, and matrices of a given shape.

#include "rights/FeatureMatrix.h"
#include "storage/IPersistDestination.h"
#include "support/core/Log.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QMap>
#include <QStringList>
#include <QVariant>

#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace rightstest {

// Keys are full paths ("Group/Key"); calls lists every operation with its
// first argument, e.g. "beginGroup FeatureMatrix", "setValue Rows".
class MapDestination : public ko::IPersistDestination
{
public:
    QMap<QString, QVariant> values;
    QStringList calls;

    void* getInterface(const char* name) override
    {
        return name && std::strcmp(name, "ko::IPersistDestination") == 0 ? this : nullptr;
    }
    const void* getInterface(const char* name) const override
    {
        return name && std::strcmp(name, "ko::IPersistDestination") == 0 ? this : nullptr;
    }
    void beginGroup(const QString& prefix) override
    {
        calls << QStringLiteral("beginGroup ") + prefix;
        m_groups << prefix;
    }
    void endGroup() override
    {
        calls << QStringLiteral("endGroup");
        if (!m_groups.isEmpty())
            m_groups.removeLast();
    }
    void beginWriteArray(const QString& prefix, int size) override
    {
        calls << QStringLiteral("beginWriteArray ") + prefix;
        values.insert(path(prefix + QStringLiteral("/size")), size);
        m_groups << prefix;
    }
    int beginReadArray(const QString& prefix) override
    {
        calls << QStringLiteral("beginReadArray ") + prefix;
        const int size = values.value(path(prefix + QStringLiteral("/size"))).toInt();
        m_groups << prefix;
        return size;
    }
    void endArray() override
    {
        calls << QStringLiteral("endArray");
        if (m_index >= 0)
            m_groups.removeLast();
        m_index = -1;
        if (!m_groups.isEmpty())
            m_groups.removeLast();
    }
    void setArrayIndex(int i) override
    {
        calls << QStringLiteral("setArrayIndex");
        if (m_index >= 0)
            m_groups.removeLast();
        m_index = i;
        m_groups << QString::number(i + 1);
    }
    void setValue(const QString& key, const QVariant& value) override
    {
        calls << QStringLiteral("setValue ") + key;
        values.insert(path(key), value);
    }
    QVariant value(const QString& key, const QVariant& defaultValue) const override
    {
        return values.value(path(key), defaultValue);
    }
    void remove(const QString& key) override
    {
        calls << QStringLiteral("remove ") + key;
        values.remove(path(key));
    }
    bool contains(const QString& key) const override { return values.contains(path(key)); }
    void sync() override { calls << QStringLiteral("sync"); }

private:
    QString path(const QString& key) const
    {
        return m_groups.isEmpty() ? key : m_groups.join(QLatin1Char('/')) + QLatin1Char('/') + key;
    }
    QStringList m_groups;
    int m_index = -1;
};

class CapturedLog
{
public:
    CapturedLog() : m_previousThreshold(ko::Log::instance().threshold())
    {
        ko::Log::instance().setThreshold(ko::Log::Warning);
        m_previous = ko::Log::instance().setSink([this](int level, const std::string& line) {
            levels.push_back(level);
            lines.push_back(line);
        });
    }
    ~CapturedLog()
    {
        ko::Log::instance().setSink(m_previous);
        ko::Log::instance().setThreshold(m_previousThreshold);
    }
    std::vector<int> levels;
    std::vector<std::string> lines;

private:
    ko::Log::Sink m_previous;
    int m_previousThreshold;
};

// A matrix allocated rows x columns with feature groups 0 .. rows - 1 and
// user groups 0 .. columns - 1.
inline std::unique_ptr<ko::FeatureMatrix> makeMatrix(int rows, int columns)
{
    auto matrix = std::make_unique<ko::FeatureMatrix>(rows, columns);
    for (int row = 0; row < rows; ++row)
        matrix->addFeatureGroup(new ko::FeatureGroup(row));
    for (int column = 0; column < columns; ++column)
        matrix->addUserGroup(new ko::UserGroup(column));
    return matrix;
}

// Sets every cell from a predicate (row, column) -> allowed.
inline void fill(ko::FeatureMatrix& matrix, const std::function<bool(int, int)>& allowed)
{
    for (int row = 0; row < matrix.rows(); ++row)
        for (int column = 0; column < matrix.columns(); ++column)
            matrix.setAllowed(row, column, allowed(row, column));
}

// Splits a "Matrix" text into its numbers; fails the calling test on a piece
// that is not an unsigned 32-bit decimal or on text after the last "+".
inline std::vector<unsigned long long> words(const QByteArray& text)
{
    std::vector<unsigned long long> result;
    QList<QByteArray> pieces = text.split('+');
    const QByteArray rest = pieces.takeLast();
    if (!rest.isEmpty())
        ADD_FAILURE() << "text after the last '+': " << rest.constData();
    for (const QByteArray& piece : qAsConst(pieces)) {
        const std::string digits = piece.toStdString();
        if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos) {
            ADD_FAILURE() << "not a number: '" << digits << "'";
            continue;
        }
        const unsigned long long value = std::stoull(digits);
        if (value > 0xFFFFFFFFull)
            ADD_FAILURE() << "more than 32 bits: " << digits;
        result.push_back(value);
    }
    return result;
}

} // namespace rightstest
