#include "ActionLogSupport.h"

#include <QDomDocument>
#include <QFile>

namespace cktest {

SignalRecorder::SignalRecorder(ko::ActionLog& log)
{
    using ko::ActionLog;
    auto record = [this](const char* name) {
        return [this, name](int first, int last) { lines << QStringLiteral("%1(%2,%3)").arg(QLatin1String(name)).arg(first).arg(last); };
    };
    QObject::connect(&log, &ActionLog::addingLogEntries, record("adding"));
    QObject::connect(&log, &ActionLog::logEntriesAdded, record("added"));
    QObject::connect(&log, &ActionLog::removingLogEntries, record("removing"));
    QObject::connect(&log, &ActionLog::logEntriesRemoved, record("removed"));
    QObject::connect(&log, &ActionLog::errorLogon, [this](const QString& user, int code) {
        lines << QStringLiteral("errorLogon(%1,%2)").arg(user).arg(code);
    });
    QObject::connect(&log, &ActionLog::errorFile, [this](const QString& file, int type) {
        lines << QStringLiteral("errorFile(%1,%2)").arg(file).arg(type);
    });
    QObject::connect(&log, &ActionLog::errorXml, [this](const QString&, int line, int column) {
        lines << QStringLiteral("errorXml(%1,%2)").arg(line).arg(column);
    });
    QObject::connect(&log, &ActionLog::switchedFileHandle,
                     [this](const QString& name) { lines << QStringLiteral("switched(%1)").arg(name); });
}

QList<QMap<QString, QString>> fileEntries(const QString& path, bool* ok)
{
    QList<QMap<QString, QString>> result;
    QFile file(path);
    QByteArray bytes;
    if (file.open(QIODevice::ReadOnly))
        bytes = file.readAll();
    if (!bytes.trimmed().endsWith("</Entries>"))
        bytes += "</Entries>";
    QDomDocument document;
    const bool parsed = document.setContent(bytes);
    if (ok)
        *ok = parsed;
    if (!parsed)
        return result;
    const QDomNodeList nodes = document.documentElement().elementsByTagName(QStringLiteral("Entry"));
    for (int i = 0; i < nodes.size(); ++i) {
        const QDomNamedNodeMap attributes = nodes.at(i).attributes();
        QMap<QString, QString> values;
        for (int a = 0; a < attributes.size(); ++a)
            values.insert(attributes.item(a).nodeName(), attributes.item(a).nodeValue());
        result << values;
    }
    return result;
}

} // namespace cktest
