#include "dialog/shell/internalpages.h"

#include "dialog/pages/advanced/generaldialog.h"
#include "dialog/pages/borders/bordersdialog.h"
#include "dialog/pages/components/specialcomponentsdialog.h"
#include "dialog/pages/display/colordialog.h"
#include "dialog/pages/display/displaydialog.h"
#include "dialog/pages/display/fontdialog.h"
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

namespace ovsettings {

namespace {

enum class Registered { always, projectOpen };

struct InternalPage {
    const char* key;
    void (*add)(CFactoryEx& factory, const char* key);
    Registered registered;
};

template <typename Page>
void add(CFactoryEx& factory, const char* key) {
    factory.addPage<Page>(key);
}

constexpr InternalPage kInternalPages[] = {
    {"Pan and Zoom", add<CPanAndZoomDialog>, Registered::always},
    {"Advanced", add<CGeneralDialog>, Registered::always},
    {"Metrics", add<CMetricsDialog>, Registered::always},
    {"Grid", add<CGridDialog>, Registered::always},
    {"Nets", add<CNetsDialog>, Registered::always},
    {"PCB", add<CPCBDialog>, Registered::always},
    {"Color Schemes", add<CColorDialog>, Registered::always},
    {"Font Mappings", add<CFontDialog>, Registered::always},
    {"New Sheet", add<CNewSheetDialog>, Registered::always},
    {"Global Nets", add<CGlobalNetsDialog>, Registered::always},
    {"Run on Startup", add<CRunOnStartupDialog>, Registered::always},
    {"New Object", add<CNewObjectDialog>, Registered::always},
    {"Empty", add<CEmptyDialog>, Registered::always},
    {"Special Components", add<CSpecialComponentsDialog>, Registered::projectOpen},
    {"Central Library", add<CCentralLibraryDialog>, Registered::projectOpen},
    {"Netlist Project", add<CProjectDialog>, Registered::projectOpen},
    {"Borders", add<CBordersDialog>, Registered::projectOpen},
    {"Symbol Libraries", add<CLibrariesDialog>, Registered::projectOpen},
    {"NetNameDelimiter", add<CNetNameDelimiter>, Registered::projectOpen},
    {"Fixed Functions", add<CFixedFunctionsDialog>, Registered::projectOpen},
    {"PartBookDialog", add<CPartBookDialog>, Registered::projectOpen},
    {"Display", add<CDisplayDialog>, Registered::always},
    {"Objects", add<CObjectColorDialog>, Registered::always},
};

/// True if the record names a project file.
bool isProjectOpen(const Orv::CProjectConfiguration* projectConfig) {
    return projectConfig && projectConfig->projectFile && !projectConfig->projectFile->GetFilePath().empty();
}

} // namespace

void registerInternalPages(CFactoryEx& factory, const Orv::CProjectConfiguration* projectConfig) {
    const bool projectOpen = isProjectOpen(projectConfig);
    for (const InternalPage& page : kInternalPages) {
        if (page.registered == Registered::always || projectOpen)
            page.add(factory, page.key);
    }
}

} // namespace ovsettings
