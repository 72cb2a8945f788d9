#pragma once

#include <CommonKit/support/core/Export.h>

#include <QList>
#include <QString>
#include <QStringList>

namespace ko {

namespace detail {
/// The four letters packed into 32 bits, first letter in the most
/// significant byte, as ko::FourChars packs them.
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
/// byte), so ko::FourChars(CategoryAccess).toString() is "Aces". Each value
/// below is shown with its letters and its untranslated name.
enum ELogCategory : unsigned int {
    CategoryNone = detail::categoryCode("    "), ///< "    ": None
    CategoryAccess = detail::categoryCode("Aces"), ///< "Aces": Access
    CategoryLogon = detail::categoryCode("Logn"), ///< "Logn": Logon & Logoff
    CategoryUserGroups = detail::categoryCode("UsGr"), ///< "UsGr": User & Groups
    CategoryAuthorize = detail::categoryCode("Auth"), ///< "Auth": Authorize
    CategorySoftwareUpdates = detail::categoryCode("SoUp"), ///< "SoUp": Software updates
    CategoryCameraSettings = detail::categoryCode("cSet"), ///< "cSet": Camera Settings
    CategoryWebBrowser = detail::categoryCode("cWeB"), ///< "cWeB": Web browser
    CategoryNetworkMessages = detail::categoryCode("NMsg"), ///< "NMsg": Network messages
    CategorySoftbuttons = detail::categoryCode("SofB"), ///< "SofB": Softbuttons
    CategoryFormatting = detail::categoryCode("Form"), ///< "Form": Formatting
    CategoryAppConfiguration = detail::categoryCode("appC"), ///< "appC": Daxil configuration
    CategoryQuit = detail::categoryCode("aQit"), ///< "aQit": Quit
    CategoryLayoutManager = detail::categoryCode("lMgr"), ///< "lMgr": Layout Manager
    CategoryDisplayScaling = detail::categoryCode("DspS"), ///< "DspS": Display scaling
    CategoryContextMenus = detail::categoryCode("cMen"), ///< "cMen": Context menus
    CategoryUploadAssistant = detail::categoryCode("uAss"), ///< "uAss": Upload Assistant
    CategoryActionLog = detail::categoryCode("aLog"), ///< "aLog": Action log
    CategoryEventSearch = detail::categoryCode("Srch"), ///< "Srch": Event Search
    CategoryExport = detail::categoryCode("Expt"), ///< "Expt": Export
    CategoryLocalArchive = detail::categoryCode("LoAr"), ///< "LoAr": Local archive
    CategoryVideoSearch = detail::categoryCode("SrVi"), ///< "SrVi": Video search
    CategoryPlay = detail::categoryCode("Play"), ///< "Play": Play
    CategoryViewing = detail::categoryCode("View"), ///< "View": Viewing
    CategoryAlarm = detail::categoryCode("Alrm"), ///< "Alrm": Alarm
    CategorySequencer = detail::categoryCode("Sequ"), ///< "Sequ": Sequencer
    CategoryLayout = detail::categoryCode("Layo"), ///< "Layo": Layout
    CategoryAudio = detail::categoryCode("Audi"), ///< "Audi": Audio
    CategoryPtz = detail::categoryCode("lPTZ"), ///< "lPTZ": PTZ
    CategoryPtzPost = detail::categoryCode("pPTZ"), ///< "pPTZ": PTZ post
    CategoryPtzConfig = detail::categoryCode("lPtC"), ///< "lPtC": PTZ config
    CategoryPtzPostConfig = detail::categoryCode("pPtC"), ///< "pPtC": PTZ post config
    CategorySignalOuts = detail::categoryCode("cSgO"), ///< "cSgO": Signal outs
    CategoryError = detail::categoryCode("Eror"), ///< "Eror": Error
    CategoryRemoteControl = detail::categoryCode("Cont"), ///< "Cont": Remote control
    CategoryDevices = detail::categoryCode("Devi"), ///< "Devi": Devices
    CategorySystem = detail::categoryCode("Syst") ///< "Syst": System
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
