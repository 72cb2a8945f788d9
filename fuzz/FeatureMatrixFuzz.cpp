// libFuzzer target: a settings file of arbitrary bytes from which a feature
// matrix loads its grid. The first byte chooses the file format (odd: the
// JSON settings form without a key, even: Qt's INI text); the rest is the
// file. The matrix takes the shape the file states (each side at most 64),
// so that the cell text is decoded for any shape. Nothing may crash, hang or
// allocate without bound.

#include "fuzz/FuzzSupport.h"
#include <CommonKit/rights/FeatureMatrix.h>
#include <CommonKit/storage/EncryptedSettings.h>
#include <CommonKit/storage/Settings.h>

#include <QTemporaryDir>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

struct Fixture
{
    Fixture() { fuzzsupport::setUp(); }
    QTemporaryDir directory;
};

int side(const ko::Settings& settings, const char* key)
{
    const int stored = settings.value(QStringLiteral("FeatureMatrix/") + QLatin1String(key), QVariant()).toInt();
    return std::min(std::max(stored, 0), 64);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Fixture fixture;
    if (size == 0)
        return 0;
    const bool json = data[0] & 1;
    const QString path = fixture.directory.path() + (json ? QStringLiteral("/rights.json") : QStringLiteral("/rights.ini"));
    if (!fuzzsupport::writeInput(path, reinterpret_cast<const char*>(data) + 1, size - 1))
        return 0;
    ko::EncryptedSettings::clearEncryptionKey();
    ko::Settings settings(path, json ? ko::EncryptedSettings::JsonFormat : QSettings::IniFormat);
    const int rows = side(settings, "Rows");
    const int columns = side(settings, "Columns");
    ko::FeatureMatrix matrix(rows, columns);
    for (int row = 0; row < rows; ++row)
        matrix.addFeatureGroup(new ko::FeatureGroup(row));
    for (int column = 0; column < columns; ++column)
        matrix.addUserGroup(new ko::UserGroup(column));
    matrix.load(&settings);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            matrix.isAllowed(row, column);
    }
    // Nothing is written back to the file.
    return 0;
}
