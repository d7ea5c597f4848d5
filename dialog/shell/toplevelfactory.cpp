#include "dialog/shell/toplevelfactory.h"

#include "orv/projectconfiguration.h"
#include "orv/projectfiledata.h"
#include "ovsettings/propdialogtemplate.h"
#include "ovsettings/propertypagefactory.h"
#include "ovsettings/topleveldialogprovider.h"

#include <utility>

namespace ovsettings {

namespace {

/// A key that the factory knows although no category of the tree has it; there is no page for it.
constexpr char kGroupKey[] = "Top Levels";

} // namespace

class TopLevelFactory : public CFactoryEx {
public:
    explicit TopLevelFactory(const ITopLevelDialogProvider* provider) : provider_(provider) {}

    ~TopLevelFactory() override {
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

TopLevelFactories::TopLevelFactories() = default;

TopLevelFactories::~TopLevelFactories() = default;

std::vector<std::string> TopLevelFactories::fetchNames(const Orv::CProjectConfiguration* projectConfig) {
    names_.clear();
    if (projectConfig && projectConfig->projectFile)
        projectConfig->projectFile->GetDesignNames(names_);
    return names_;
}

CFactoryEx* TopLevelFactories::factoryOf(ITopLevelDialogProvider* provider) {
    if (!provider)
        provider = toplevelsettings::getTopLevelSettingsProvider();
    if (factory_ && factory_->provider() == provider)
        return factory_.get();
    factory_.reset();
    if (names_.empty())
        return nullptr;
    auto factory = std::make_unique<TopLevelFactory>(provider);
    factory->addStarter(kGroupKey, std::make_unique<CFactory::CDialogStarter>());
    for (const std::string& name : names_)
        factory->addDesign(name, provider->createDialog(nullptr, name));
    factory_ = std::move(factory);
    return factory_.get();
}

} // namespace ovsettings
