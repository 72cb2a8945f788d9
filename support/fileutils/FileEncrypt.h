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
    enum OpenError { NoError = 0, OpenFailed = 1, IncompatibleHeader = 2 };

    FileEncrypt();
    explicit FileEncrypt(const QString& name);
    ~FileEncrypt() override;

    /// QFile::open() plus the header check. Truncating opens skip the check.
    bool open(OpenMode mode) override;

    /// Why the last open() failed; NoError after a successful one.
    OpenError openError() const { return m_openError; }
    bool isOpenError() const { return m_openError == OpenFailed; }
    bool isHeaderError() const { return m_openError == IncompatibleHeader; }

    /// The text every file of this device begins with.
    static const QByteArray k_header;

private:
    bool hasCompatibleHeader();

    OpenError m_openError = NoError;
};

} // namespace ko
