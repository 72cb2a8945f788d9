#include <CommonKit/resources/Translations.h>

#include <QCoreApplication>
#include <QFile>
#include <QMutex>
#include <QMutexLocker>
#include <QTranslator>

namespace ko {

namespace {

QMutex g_mutex;
QTranslator* g_translator = nullptr;

QString catalogue(const QString& language)
{
    return QStringLiteral(":/CommonKit_%1.qm").arg(language);
}

void removeLocked()
{
    if (!g_translator)
        return;
    QCoreApplication::removeTranslator(g_translator);
    delete g_translator;
    g_translator = nullptr;
}

} // namespace

bool installTranslations(const QLocale& locale)
{
    QMutexLocker lock(&g_mutex);
    removeLocked();
    const QString language = locale.name().section(QLatin1Char('_'), 0, 0);
    if (!QFile::exists(catalogue(language)))
        return false;
    auto* translator = new QTranslator;
    if (!translator->load(catalogue(language))) {
        delete translator;
        return false;
    }
    QCoreApplication::installTranslator(translator);
    g_translator = translator;
    return true;
}

void removeTranslations()
{
    QMutexLocker lock(&g_mutex);
    removeLocked();
}

QStringList availableTranslations()
{
    return {QStringLiteral("de"), QStringLiteral("fr")};
}

} // namespace ko
