#pragma once

#include <CommonKit/logging/LogCategory.h>
#include <CommonKit/logging/LogValue.h>
#include <CommonKit/support/core/Export.h>
#include <CommonKit/util/FourChars.h>

#include <QDateTime>
#include <QList>
#include <QString>

namespace ko {

class ILogWriter;

/// One record of the action log: a kind (four-character type code), a
/// category and a list of values. The first two values are always the time
/// stamp ("Time", set to the current date-time at construction) and the user
/// ("User", empty); a subclass append()s its own values after them, usually
/// pointers to its own members, which the list does not own.
///
/// A kind that is read back from files must be registered in the
/// logEntryFactory(); clone() also creates through it.
class COMMONKIT_EXPORT LogEntry
{
public:
    /// An entry stamped with the current local date-time and an empty user.
    LogEntry();
    /// Destroys the entry; appended values are not owned and not deleted.
    virtual ~LogEntry();
    LogEntry(const LogEntry&) = delete;
    LogEntry& operator=(const LogEntry&) = delete;

    /// The kind's type code, e.g. "XmlP".
    virtual FourChars type() const = 0;
    /// The category the kind belongs to.
    virtual LogCategory category() const = 0;
    /// The translated message template with %1, %2... for the values from
    /// index 2 on; may be empty.
    virtual QString format() const = 0;
    /// The translated short name of the kind.
    virtual QString title() const = 0;
    /// The template with its placeholders filled from the values after time
    /// and user. Without a template: "name: text " for each of those values.
    /// Filling stops, leaving the remaining placeholders as they are, before
    /// the text could grow past 2^20 characters plus eight times the length
    /// of the template and the values together; only values that are
    /// themselves made of placeholders get there, as they multiply the length.
    virtual QString description();

    /// When the action happened (the "Time" value).
    QDateTime time() const { return m_time.value; }
    /// Sets the "Time" value; the action log stamps it when it logs the entry.
    void setTime(const QDateTime& time) { m_time.value = time; }
    /// Who acted (the "User" value); empty until set.
    QString user() const { return m_user.value; }
    /// Sets the "User" value; the action log stamps it when it logs the entry.
    void setUser(const QString& user) { m_user.value = user; }

    /// All values in order: time, user, then the kind's own.
    const QList<LogValue*>& values() const { return m_values; }
    /// Adds a value (not owned) at the end of values(); a null pointer is
    /// ignored.
    void append(LogValue* value);
    /// The first value with this id, or null.
    LogValue* logValue(FourChars id) const;

    /// Start element, one attribute per value (time and user included), end
    /// element. The end element is written even when writing an attribute
    /// throws; the exception then leaves this function.
    void writeTo(ILogWriter& writer) const;

    /// A new entry of the same kind (created through logEntryFactory()) with
    /// copies of all values; the caller owns it. Null only when the kind is not
    /// registered, which is a programming error.
    LogEntry* clone() const;

    /// Equal time, type, category and user; the other values are not compared.
    bool operator==(const LogEntry& other) const;
    /// The negation of operator==().
    bool operator!=(const LogEntry& other) const { return !(*this == other); }

    /// Translation in the context "ActionLog".
    static QString tr(const char* sourceText, const char* disambiguation = nullptr, int n = -1);

protected:
    /// Copies the values of other by index; both must be of the same kind.
    void copyFrom(const LogEntry& other);

private:
    QList<LogValue*> m_values;
    TLogValue<QDateTime> m_time;
    TLogValue<QString> m_user;
};

} // namespace ko
