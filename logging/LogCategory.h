#pragma once

#include <CommonKit/support/core/Export.h>

#include <QList>
#include <QString>
#include <QStringList>

namespace ko {

namespace detail {
constexpr unsigned int categoryCode(const char (&letters)[5])
{
    return (static_cast<unsigned int>(static_cast<unsigned char>(letters[0])) << 24)
           | (static_cast<unsigned int>(static_cast<unsigned char>(letters[1])) << 16)
           | (static_cast<unsigned int>(static_cast<unsigned char>(letters[2])) << 8)
           | static_cast<unsigned int>(static_cast<unsigned char>(letters[3]));
}
} // namespace detail

/// The categories of action log entries. Each value is the 32-bit
/// four-character code of its letters (first letter in the most significant
/// byte), so ko::FourChars(CategoryAccess).toString() is "Aces".
enum ELogCategory : unsigned int {
    CategoryNone = detail::categoryCode("    "),
    CategoryAccess = detail::categoryCode("Aces"),
    CategoryLogon = detail::categoryCode("Logn"),
    CategoryUserGroups = detail::categoryCode("UsGr"),
    CategoryAuthorize = detail::categoryCode("Auth"),
    CategorySoftwareUpdates = detail::categoryCode("SoUp"),
    CategoryCameraSettings = detail::categoryCode("cSet"),
    CategoryWebBrowser = detail::categoryCode("cWeB"),
    CategoryNetworkMessages = detail::categoryCode("NMsg"),
    CategorySoftbuttons = detail::categoryCode("SofB"),
    CategoryFormatting = detail::categoryCode("Form"),
    CategoryAppConfiguration = detail::categoryCode("appC"),
    CategoryQuit = detail::categoryCode("aQit"),
    CategoryLayoutManager = detail::categoryCode("lMgr"),
    CategoryDisplayScaling = detail::categoryCode("DspS"),
    CategoryContextMenus = detail::categoryCode("cMen"),
    CategoryUploadAssistant = detail::categoryCode("uAss"),
    CategoryActionLog = detail::categoryCode("aLog"),
    CategoryEventSearch = detail::categoryCode("Srch"),
    CategoryExport = detail::categoryCode("Expt"),
    CategoryLocalArchive = detail::categoryCode("LoAr"),
    CategoryVideoSearch = detail::categoryCode("SrVi"),
    CategoryPlay = detail::categoryCode("Play"),
    CategoryViewing = detail::categoryCode("View"),
    CategoryAlarm = detail::categoryCode("Alrm"),
    CategorySequencer = detail::categoryCode("Sequ"),
    CategoryLayout = detail::categoryCode("Layo"),
    CategoryAudio = detail::categoryCode("Audi"),
    CategoryPtz = detail::categoryCode("lPTZ"),
    CategoryPtzPost = detail::categoryCode("pPTZ"),
    CategoryPtzConfig = detail::categoryCode("lPtC"),
    CategoryPtzPostConfig = detail::categoryCode("pPtC"),
    CategorySignalOuts = detail::categoryCode("cSgO"),
    CategoryError = detail::categoryCode("Eror"),
    CategoryRemoteControl = detail::categoryCode("Cont"),
    CategoryDevices = detail::categoryCode("Devi"),
    CategorySystem = detail::categoryCode("Syst")
};

/// The category of a log entry: its code and its translated name.
struct COMMONKIT_EXPORT LogCategory
{
    /// Looks the id up in the category table; an id that is not in the table
    /// becomes CategoryNone with the name "None". The name is translated
    /// (context "ActionLog") with the translator installed at this moment.
    LogCategory(ELogCategory id = CategoryNone); // NOLINT: implicit by design

    /// The translated names of all categories, "None" included, sorted
    /// case-sensitively.
    static QStringList categoryNames();
    /// The ids of the category table in table order, CategoryNone first.
    static QList<ELogCategory> categoryIds();
    /// The untranslated name of a table id, or null for an id not in the table.
    static const char* untranslatedName(ELogCategory id);

    ELogCategory id; ///< The category's code, one of the table's ids.
    QString name;    ///< The translated name, as looked up at construction.
};

} // namespace ko
