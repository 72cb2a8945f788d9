#include <CommonKit/logging/LogCategory.h>

#include <CommonKit/logging/LogEntry.h>

#include <algorithm>
#include <iterator>

namespace ko {
namespace {

struct CategoryRow
{
    ELogCategory id;
    const char* name;
};

// The order of this table is part of the interface (categoryIds()).
const CategoryRow k_categories[] = {
    {CategoryNone, QT_TRANSLATE_NOOP("ActionLog", "None")},
    {CategoryAccess, QT_TRANSLATE_NOOP("ActionLog", "Access")},
    {CategoryLogon, QT_TRANSLATE_NOOP("ActionLog", "Logon & Logoff")},
    {CategoryUserGroups, QT_TRANSLATE_NOOP("ActionLog", "User & Groups")},
    {CategoryAuthorize, QT_TRANSLATE_NOOP("ActionLog", "Authorize")},
    {CategorySoftwareUpdates, QT_TRANSLATE_NOOP("ActionLog", "Software updates")},
    {CategoryCameraSettings, QT_TRANSLATE_NOOP("ActionLog", "Camera Settings")},
    {CategoryWebBrowser, QT_TRANSLATE_NOOP("ActionLog", "Web browser")},
    {CategoryNetworkMessages, QT_TRANSLATE_NOOP("ActionLog", "Network messages")},
    {CategorySoftbuttons, QT_TRANSLATE_NOOP("ActionLog", "Softbuttons")},
    {CategoryFormatting, QT_TRANSLATE_NOOP("ActionLog", "Formatting")},
    {CategoryAppConfiguration, QT_TRANSLATE_NOOP("ActionLog", "Daxil configuration")},
    {CategoryQuit, QT_TRANSLATE_NOOP("ActionLog", "Quit")},
    {CategoryLayoutManager, QT_TRANSLATE_NOOP("ActionLog", "Layout Manager")},
    {CategoryDisplayScaling, QT_TRANSLATE_NOOP("ActionLog", "Display scaling")},
    {CategoryContextMenus, QT_TRANSLATE_NOOP("ActionLog", "Context menus")},
    {CategoryUploadAssistant, QT_TRANSLATE_NOOP("ActionLog", "Upload Assistant")},
    {CategoryActionLog, QT_TRANSLATE_NOOP("ActionLog", "Action log")},
    {CategoryEventSearch, QT_TRANSLATE_NOOP("ActionLog", "Event Search")},
    {CategoryExport, QT_TRANSLATE_NOOP("ActionLog", "Export")},
    {CategoryLocalArchive, QT_TRANSLATE_NOOP("ActionLog", "Local archive")},
    {CategoryVideoSearch, QT_TRANSLATE_NOOP("ActionLog", "Video search")},
    {CategoryPlay, QT_TRANSLATE_NOOP("ActionLog", "Play")},
    {CategoryViewing, QT_TRANSLATE_NOOP("ActionLog", "Viewing")},
    {CategoryAlarm, QT_TRANSLATE_NOOP("ActionLog", "Alarm")},
    {CategorySequencer, QT_TRANSLATE_NOOP("ActionLog", "Sequencer")},
    {CategoryLayout, QT_TRANSLATE_NOOP("ActionLog", "Layout")},
    {CategoryAudio, QT_TRANSLATE_NOOP("ActionLog", "Audio")},
    {CategoryPtz, QT_TRANSLATE_NOOP("ActionLog", "PTZ")},
    {CategoryPtzPost, QT_TRANSLATE_NOOP("ActionLog", "PTZ post")},
    {CategoryPtzConfig, QT_TRANSLATE_NOOP("ActionLog", "PTZ config")},
    {CategoryPtzPostConfig, QT_TRANSLATE_NOOP("ActionLog", "PTZ post config")},
    {CategorySignalOuts, QT_TRANSLATE_NOOP("ActionLog", "Signal outs")},
    {CategoryError, QT_TRANSLATE_NOOP("ActionLog", "Error")},
    {CategoryRemoteControl, QT_TRANSLATE_NOOP("ActionLog", "Remote control")},
    {CategoryDevices, QT_TRANSLATE_NOOP("ActionLog", "Devices")},
    {CategorySystem, QT_TRANSLATE_NOOP("ActionLog", "System")},
};

const CategoryRow* findRow(ELogCategory id)
{
    const auto end = std::end(k_categories);
    const auto row = std::find_if(std::begin(k_categories), end, [id](const CategoryRow& r) { return r.id == id; });
    return row == end ? nullptr : row;
}

} // namespace

LogCategory::LogCategory(ELogCategory categoryId) : id(CategoryNone)
{
    const CategoryRow* row = findRow(categoryId);
    if (!row)
        row = &k_categories[0];
    id = row->id;
    name = LogEntry::tr(row->name);
}

QStringList LogCategory::categoryNames()
{
    QStringList names;
    for (const CategoryRow& row : k_categories)
        names.append(LogEntry::tr(row.name));
    std::sort(names.begin(), names.end());
    return names;
}

QList<ELogCategory> LogCategory::categoryIds()
{
    QList<ELogCategory> ids;
    for (const CategoryRow& row : k_categories)
        ids.append(row.id);
    return ids;
}

const char* LogCategory::untranslatedName(ELogCategory categoryId)
{
    const CategoryRow* row = findRow(categoryId);
    return row ? row->name : nullptr;
}

} // namespace ko
