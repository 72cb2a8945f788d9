#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/util/FourChars.h>

#include <QDateTime>
#include <QString>

class QTextStream;

namespace ko {

/// One named value of a log entry. The id's four letters are the attribute name
/// in the XML file; the name is the readable label of the prose writer.
class COMMONKIT_EXPORT LogValue
{
public:
    /// A value with the attribute code id and the readable label name.
    LogValue(const FourChars& id, const QString& name);
    virtual ~LogValue();

    /// Whether the value carries anything; the XML writer leaves out values
    /// that are not set.
    virtual bool isSet() const = 0;
    /// Parses the text form.
    virtual void fromString(const QString& text) = 0;
    /// Copies the value of another value of the same concrete type; a value of
    /// another type leaves this one unchanged.
    virtual void assign(const LogValue& other) = 0;
    /// Writes the text form.
    virtual QTextStream& write(QTextStream& stream) const = 0;

    /// The four-character code, the attribute name in XML files.
    FourChars id() const { return m_id; }
    /// The code's four letters as text.
    QString idToString() const { return m_id.toString(); }
    /// The readable label given at construction (not translated).
    QString name() const { return m_name; }
    /// The text form, as write() produces it.
    QString toString() const;

protected:
    /// Copies id and name; for subclasses, whose copies are values too.
    LogValue(const LogValue&) = default;
    /// Assigns id and name; for subclasses.
    LogValue& operator=(const LogValue&) = default;

private:
    FourChars m_id;
    QString m_name;
};

/// A log value holding one T. The library provides int, QString and QDateTime:
///  - int: set when not 0; text in decimal, unparsable text reads as 0;
///  - QString: set when not empty; the text as it is;
///  - QDateTime: set when not null; text in the operating system locale's
///    short date-time format, both ways. That format usually drops seconds and
///    milliseconds and may use two-digit years, so a written and re-read time
///    can differ from the original; the files depend on this format.
template<typename T>
class COMMONKIT_EXPORT TLogValue : public LogValue
{
public:
    /// A value with the code id, the label name and the value initial.
    TLogValue(const FourChars& id, const QString& name, const T& initial = T())
        : LogValue(id, name), value(initial)
    {
    }
    /// Copies code, label and value.
    TLogValue(const TLogValue&) = default;
    /// Assigns code, label and value.
    TLogValue& operator=(const TLogValue&) = default;

    bool isSet() const override;
    void fromString(const QString& text) override;
    void assign(const LogValue& other) override;
    QTextStream& write(QTextStream& stream) const override;

    /// The value itself; read and written directly.
    T value;
};

template<> bool TLogValue<int>::isSet() const;
template<> void TLogValue<int>::fromString(const QString& text);
template<> QTextStream& TLogValue<int>::write(QTextStream& stream) const;
template<> bool TLogValue<QString>::isSet() const;
template<> void TLogValue<QString>::fromString(const QString& text);
template<> QTextStream& TLogValue<QString>::write(QTextStream& stream) const;
template<> bool TLogValue<QDateTime>::isSet() const;
template<> void TLogValue<QDateTime>::fromString(const QString& text);
template<> QTextStream& TLogValue<QDateTime>::write(QTextStream& stream) const;

extern template class TLogValue<int>;
extern template class TLogValue<QString>;
extern template class TLogValue<QDateTime>;

} // namespace ko
