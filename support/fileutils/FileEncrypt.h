#pragma once

#include <CommonKit/support/core/Export.h>

#include <QFile>

namespace ko {

/// The file device of the action log: a QFile that stores the text as it is
/// and checks, when it opens a non-empty file, that the content is an XML
/// document (it begins with "<?xml"). A file that does not is refused with
/// openError() == IncompatibleHeader, so that the caller can move it aside
/// instead of appending to it; any other failure is OpenFailed.
class COMMONKIT_EXPORT FileEncrypt : public QFile
{
    Q_OBJECT

public:
    /// Why open() failed.
    enum OpenError {
        NoError = 0,           ///< The last open() succeeded (or none was made).
        OpenFailed = 1,        ///< QFile::open() failed; see errorString().
        IncompatibleHeader = 2 ///< The file is not empty and does not begin with k_header.
    };

    /// A device without a file name; set one with setFileName().
    FileEncrypt();
    /// A device for the file name (not opened yet).
    explicit FileEncrypt(const QString& name);
    /// Closes the file if it is open.
    ~FileEncrypt() override;

    /// QFile::open() plus the header check. Truncating opens skip the check.
    bool open(OpenMode mode) override;

    /// Why the last open() failed; NoError after a successful one.
    OpenError openError() const { return m_openError; }
    /// Whether the last open() failed in QFile::open().
    bool isOpenError() const { return m_openError == OpenFailed; }
    /// Whether the last open() refused the file's content. A non-empty file
    /// that cannot be read to check (e.g. write-only access) counts as such.
    bool isHeaderError() const { return m_openError == IncompatibleHeader; }

    /// The text every file of this device begins with.
    static const QByteArray k_header;

private:
    bool hasCompatibleHeader();

    OpenError m_openError = NoError;
};

} // namespace ko
