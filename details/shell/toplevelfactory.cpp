#include "details/shell/toplevelfactory.h"

#include "orv/projectconfiguration.h"
#include "orv/projectfiledata.h"
#include "ovsettings/propdialogtemplate.h"
#include "ovsettings/propertypagefactory.h"
#include "ovsettings/topleveldialogprovider.h"

#include <memory>

namespace ovsettings {

namespace {

/// Known to the factory and not in the tree; its page is none.
constexpr char kGroupKey[] = "Top Levels";

class CTopLevelFactory : public CFactoryEx {
public:
    explicit CTopLevelFactory(const ITopLevelDialogProvider* provider) : provider_(provider) {}

    ~CTopLevelFactory() override {
        for (const QPointer<CPropDialogTemplate>& page : pages_) {
            if (page && !page->parentWidget())
                delete page;
        }
    }

    const ITopLevelDialogProvider* provider() const { return provider_; }

    void addDesign(const std::string& name, CPropDialogTemplate* page) {
        pages_.emplace_back(page);
        auto starter = std::make_unique<CDialogStarter>();
        starter->page = page;
        addStarter(name, std::move(starter));
    }

private:
    const ITopLevelDialogProvider* provider_;
    std::vector<QPointer<CPropDialogTemplate>> pages_;
};

std::unique_ptr<CTopLevelFactory> theFactory;
std::vector<std::string> designNames;

std::unique_ptr<CTopLevelFactory> build(ITopLevelDialogProvider& provider) {
    if (designNames.empty())
        return nullptr;
    auto factory = std::make_unique<CTopLevelFactory>(&provider);
    factory->addStarter(kGroupKey, std::make_unique<CFactory::CDialogStarter>());
    for (const std::string& name : designNames)
        factory->addDesign(name, provider.createDialog(nullptr, name));
    return factory;
}

} // namespace

std::vector<std::string> fetchDesignNames(const Orv::CProjectConfiguration* projectConfig) {
    designNames.clear();
    if (projectConfig && projectConfig->projectFile)
        projectConfig->projectFile->GetDesignNames(designNames);
    return designNames;
}

CFactoryEx* topLevelFactory(ITopLevelDialogProvider* provider) {
    if (!provider)
        provider = toplevelsettings::getTopLevelSettingsProvider();
    if (theFactory && theFactory->provider() == provider)
        return theFactory.get();
    destroyTopLevelFactory();
    theFactory = build(*provider);
    return theFactory.get();
}

void destroyTopLevelFactory() {
    theFactory.reset();
}

} // namespace ovsettings
