#include "dialog/shell/internalpages.h"

#include "dialog/pages/advanced/generaldialog.h"
#include "dialog/pages/advanced/generalgrid.h"
#include "dialog/pages/borders/bordersdialog.h"
#include "dialog/pages/components/specialcomponentsdialog.h"
#include "dialog/pages/display/colordialog.h"
#include "dialog/pages/display/displaydialog.h"
#include "dialog/pages/display/fontdialog.h"
#include "dialog/pages/display/fontsgrid.h"
#include "dialog/pages/display/objectcolordialog.h"
#include "dialog/pages/editor/globalnetsdialog.h"
#include "dialog/pages/editor/griddialog.h"
#include "dialog/pages/editor/metricsdialog.h"
#include "dialog/pages/editor/netsdialog.h"
#include "dialog/pages/editor/newobjectdialog.h"
#include "dialog/pages/editor/newsheetdialog.h"
#include "dialog/pages/editor/panandzoomdialog.h"
#include "dialog/pages/libraries/centrallibrarydialog.h"
#include "dialog/pages/libraries/librariesdialog.h"
#include "dialog/pages/project/fixedfunctionsdialog.h"
#include "dialog/pages/project/netnamedelimiter.h"
#include "dialog/pages/project/partbookdialog.h"
#include "dialog/pages/project/pcbdialog.h"
#include "dialog/pages/project/projectdialog.h"
#include "dialog/pages/startup/runonstartupdialog.h"
#include "dialog/shell/emptydialog.h"
#include "orv/projectconfiguration.h"
#include "orv/projectfiledata.h"
#include "ovsettings/propertypagefactory.h"
#include "ovsettings/updatehost.h"

#include <algorithm>

namespace ovsettings {

namespace {

template <typename Page>
void add(CFactoryEx& factory, const char* key) {
    factory.addPage<Page>(key);
}

/// Hosts know the pages by this name.
consteval const char* reportName(std::string_view key) {
    return std::ranges::find(kPageReports, key,
                             [](const PageReport& page) { return std::string_view(page.pageKey); })
        ->name;
}

constexpr const char* kProjectTopic = "OV_SETUP_SETTINGS_PROJECT";

constexpr const char* kPanAndZoomKeys[] = {"LORVIK_ZOOM", "SARN_ZOOM", "DEFAULT_ZOOM", "STROKES",
                                           "MIDSTROKE"};
constexpr const char* kUnitKeys[] = {"UNIT"};
constexpr const char* kGridKeys[] = {"GRIDON", "GRID_HIGHLIGHT_MARKS", "GRID_HR"};
constexpr const char* kNetKeys[] = {"SNAPTOPIN", "ADISTANCE_HR", "ROUTE", "ATTR_ON_SPLIT", "LABEL_ON_SPLIT"};
constexpr const char* kFontKeys[] = {"SCALEFACTOR"};
constexpr const char* kNewSheetKeys[] = {"Z_SIZE_HR", "SHEETSIZE", "ORIENTATION",
                                         "DEFSHEET",  "DEFMETHOD", "DEF_USESHEET1"};
constexpr const char* kNewObjectKeys[] = {"TEXTORIGIN", "TEXTSIZE_HR"};
constexpr const char* kDisplayKeys[] = {
    "ATTRIBUTE", "PNUMSON",  "RNUMSON",      "LABEL",        "COMPTEXTON",
    "TEXT",      "BORDERON", "NET_TOOLTIPS", "PIN_TOOLTIPS", "COMPONENT_TOOLTIPS"};

constexpr PageRow kPages[] = {
    {.key = "Pan and Zoom",
     .name = reportName("Pan and Zoom"),
     .templateId = 129,
     .helpTopic = "OV_SETUP_SETTINGS_SCH_ED_PAN_ZOOM",
     .form = ":/ovsettings/dialogs/panandzoomdialog.ui",
     .writes = kPanAndZoomKeys,
     .add = add<CPanAndZoomDialog>},
    {.key = "Advanced",
     .name = reportName("Advanced"),
     .templateId = 135,
     .helpTopic = "OV_SETUP_SETTINGS_ADVANCED",
     .form = ":/ovsettings/dialogs/generaldialog.ui",
     .gridSettings = generalSettings,
     .add = add<CGeneralDialog>},
    {.key = "Metrics",
     .name = reportName("Metrics"),
     .templateId = 171,
     .helpTopic = "OV_SETUP_SETTINGS_SCH_ED_UNITS",
     .form = ":/ovsettings/dialogs/metricsdialog.ui",
     .writes = kUnitKeys,
     .add = add<CMetricsDialog>},
    {.key = "Grid",
     .name = reportName("Grid"),
     .templateId = 132,
     .helpTopic = "OV_SETUP_SETTINGS_SCH_ED_GRID",
     .form = ":/ovsettings/dialogs/griddialog.ui",
     .writes = kGridKeys,
     .add = add<CGridDialog>},
    {.key = "Nets",
     .name = reportName("Nets"),
     .templateId = 131,
     .helpTopic = "OV_SETUP_SETTINGS_SCH_ED_NETS",
     .form = ":/ovsettings/dialogs/netsdialog.ui",
     .writes = kNetKeys,
     .add = add<CNetsDialog>},
    {.key = "PCB",
     .name = reportName("PCB"),
     .templateId = 133,
     .form = ":/ovsettings/dialogs/pcbdialog.ui",
     .add = add<CPCBDialog>},
    {.key = "Color Schemes",
     .name = reportName("Color Schemes"),
     .templateId = 137,
     .form = ":/ovsettings/dialogs/colordialog.ui",
     .gridSettings = paletteSettings,
     .add = add<CColorDialog>},
    {.key = "Font Mappings",
     .name = reportName("Font Mappings"),
     .templateId = 138,
     .helpTopic = "OV_SETUP_SETTINGS_DISPLAY_FONT_MAP",
     .form = ":/ovsettings/dialogs/fontdialog.ui",
     .writes = kFontKeys,
     .gridSettings = fontSettings,
     .add = add<CFontDialog>},
    {.key = "New Sheet",
     .name = reportName("New Sheet"),
     .templateId = 139,
     .helpTopic = "OV_SETUP_SETTINGS_SCH_ED_NEW_SHEETS",
     .form = ":/ovsettings/dialogs/newsheetdialog.ui",
     .writes = kNewSheetKeys,
     .add = add<CNewSheetDialog>},
    {.key = "Global Nets",
     .name = reportName("Global Nets"),
     .templateId = 141,
     .form = ":/ovsettings/dialogs/globalnetsdialog.ui",
     .add = add<CGlobalNetsDialog>},
    {.key = "Run on Startup",
     .name = reportName("Run on Startup"),
     .templateId = 140,
     .helpTopic = "OV_SETUP_SETTINGS_RUN_ON_STARTUP",
     .form = ":/ovsettings/dialogs/runonstartupdialog.ui",
     .add = add<CRunOnStartupDialog>},
    {.key = "New Object",
     .name = reportName("New Object"),
     .templateId = 136,
     .helpTopic = "OV_SETUP_SETTINGS_SCH_ED_NEW_OBJECTS",
     .form = ":/ovsettings/dialogs/newobjectdialog.ui",
     .writes = kNewObjectKeys,
     .add = add<CNewObjectDialog>},
    {.key = "Empty",
     .name = reportName("Empty"),
     .templateId = 1174,
     .form = ":/ovsettings/dialogs/emptydialog.ui",
     .add = add<CEmptyDialog>},
    {.key = "Special Components",
     .name = reportName("Special Components"),
     .templateId = 142,
     .condition = PageCondition::projectOpen,
     .helpTopic = kProjectTopic,
     .form = ":/ovsettings/dialogs/specialcomponentsdialog.ui",
     .add = add<CSpecialComponentsDialog>},
    {.key = "Central Library",
     .name = reportName("Central Library"),
     .templateId = 134,
     .condition = PageCondition::projectOpen,
     .helpTopic = kProjectTopic,
     .form = ":/ovsettings/dialogs/centrallibrarydialog.ui",
     .add = add<CCentralLibraryDialog>},
    {.key = "Netlist Project",
     .name = reportName("Netlist Project"),
     .templateId = 167,
     .condition = PageCondition::projectOpen,
     .helpTopic = kProjectTopic,
     .form = ":/ovsettings/dialogs/projectdialog.ui",
     .add = add<CProjectDialog>},
    {.key = "Borders",
     .name = reportName("Borders"),
     .templateId = 145,
     .condition = PageCondition::projectOpen,
     .helpTopic = kProjectTopic,
     .form = ":/ovsettings/dialogs/bordersdialog.ui",
     .add = add<CBordersDialog>},
    {.key = "Symbol Libraries",
     .name = reportName("Symbol Libraries"),
     .templateId = 146,
     .condition = PageCondition::projectOpen,
     .helpTopic = kProjectTopic,
     .form = ":/ovsettings/dialogs/librariesdialog.ui",
     .add = add<CLibrariesDialog>},
    {.key = "NetNameDelimiter",
     .name = reportName("NetNameDelimiter"),
     .templateId = 176,
     .condition = PageCondition::projectOpen,
     .helpTopic = kProjectTopic,
     .form = ":/ovsettings/dialogs/netnamedelimiter.ui",
     .add = add<CNetNameDelimiter>},
    {.key = "Fixed Functions",
     .name = reportName("Fixed Functions"),
     .templateId = 169,
     .condition = PageCondition::projectOpen,
     .helpTopic = kProjectTopic,
     .form = ":/ovsettings/dialogs/fixedfunctionsdialog.ui",
     .add = add<CFixedFunctionsDialog>},
    {.key = "PartBookDialog",
     .name = reportName("PartBookDialog"),
     .templateId = 177,
     .condition = PageCondition::projectOpen,
     .helpTopic = kProjectTopic,
     .form = ":/ovsettings/dialogs/partbookdialog.ui",
     .add = add<CPartBookDialog>},
    {.key = "Display",
     .name = reportName("Display"),
     .templateId = 147,
     .helpTopic = "OV_SETUP_SETTINGS_DISPLAY_TOP",
     .form = ":/ovsettings/dialogs/displaydialog.ui",
     .writes = kDisplayKeys,
     .add = add<CDisplayDialog>},
    {.key = "Objects",
     .name = reportName("Objects"),
     .templateId = 148,
     .helpTopic = "OV_SETUP_SETTINGS_DISPLAY_OBJECTS",
     .form = ":/ovsettings/dialogs/objectcolordialog.ui",
     .gridSettings = objectSettings,
     .add = add<CObjectColorDialog>},
};

/// True if the record names a project file.
bool isProjectOpen(const Orv::CProjectConfiguration* projectConfig) {
    return projectConfig && projectConfig->projectFile && !projectConfig->projectFile->GetFilePath().empty();
}

} // namespace

std::span<const PageRow> internalPages() {
    return kPages;
}

const PageRow& internalPage(std::string_view key) {
    return *std::ranges::find(kPages, key, [](const PageRow& page) { return std::string_view(page.key); });
}

void registerInternalPages(CFactoryEx& factory, const Orv::CProjectConfiguration* projectConfig) {
    const bool projectOpen = isProjectOpen(projectConfig);
    for (const PageRow& page : kPages) {
        if (page.condition == PageCondition::always || projectOpen)
            page.add(factory, page.key);
    }
}

} // namespace ovsettings
