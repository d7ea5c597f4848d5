#include "details/shell/internalpages.h"

#include "details/pages/advanced/generaldialog.h"
#include "details/pages/editor/globalnetsdialog.h"
#include "details/pages/editor/griddialog.h"
#include "details/pages/editor/metricsdialog.h"
#include "details/pages/editor/netsdialog.h"
#include "details/pages/editor/newobjectdialog.h"
#include "details/pages/editor/panandzoomdialog.h"
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
    {"Global Nets", add<CGlobalNetsDialog>, Registered::always},
    {"Run on Startup", add<CRunOnStartupDialog>, Registered::always},
    {"New Object", add<CNewObjectDialog>, Registered::always},
    {"Empty", add<CEmptyDialog>, Registered::always},
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
