#include "details/shell/internalpages.h"

#include "details/pages/advanced/generaldialog.h"
#include "details/pages/display/colordialog.h"
#include "details/pages/display/displaydialog.h"
#include "details/pages/display/fontdialog.h"
#include "details/pages/display/objectcolordialog.h"
#include "details/pages/editor/globalnetsdialog.h"
#include "details/pages/editor/griddialog.h"
#include "details/pages/editor/metricsdialog.h"
#include "details/pages/editor/netsdialog.h"
#include "details/pages/editor/newobjectdialog.h"
#include "details/pages/editor/newsheetdialog.h"
#include "details/pages/editor/panandzoomdialog.h"
#include "details/pages/project/bordersdialog.h"
#include "details/pages/project/centrallibrarydialog.h"
#include "details/pages/project/fixedfunctionsdialog.h"
#include "details/pages/project/librariesdialog.h"
#include "details/pages/project/netnamedelimiter.h"
#include "details/pages/project/partbookdialog.h"
#include "details/pages/project/pcbdialog.h"
#include "details/pages/project/projectdialog.h"
#include "details/pages/project/specialcomponentsdialog.h"
#include "details/pages/startup/runonstartupdialog.h"
#include "details/shell/emptydialog.h"
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

} // namespace

bool isProjectOpen(const Orv::CProjectConfiguration* projectConfig) {
    return projectConfig && projectConfig->projectFile && !projectConfig->projectFile->GetFilePath().empty();
}

void registerInternalPages(CFactoryEx& factory, const Orv::CProjectConfiguration* projectConfig) {
    const bool projectOpen = isProjectOpen(projectConfig);
    for (const InternalPage& page : kInternalPages) {
        if (page.registered == Registered::always || projectOpen)
            page.add(factory, page.key);
    }
}

} // namespace ovsettings
