#pragma once

#include "ovsettings/propertypagefactory.h"
#include "platform/sharedlibrary.h"

#include <memory>
#include <string>
#include <vector>

namespace ovsettings {

class TopLevelFactories;
class ITopLevelDialogProvider;

/// Says where the page factory of a catalogue entry is.
class CPropertyPageSupplier {
public:
    virtual ~CPropertyPageSupplier() = default;

    /// @return the factory, or null, which drops the category.
    virtual CPropertyPageFactory* getFactory() = 0;
};

/// The pages of this library.
class CPropertyPageSupplierInternal : public CPropertyPageSupplier {
public:
    CPropertyPageSupplierInternal(Orv::iAppConfiguration* appConfig,
                                  Orv::CProjectConfiguration* projectConfig);

    CPropertyPageFactory* getFactory() override;

private:
    CFactoryEx factory_;
};

/// The pages of an add-in's shared library.
class CPropertyPageSupplierDLL : public CPropertyPageSupplier {
public:
    explicit CPropertyPageSupplierDLL(std::string fileName);

    CPropertyPageFactory* getFactory() override;

private:
    std::string fileName_;
    platform::SharedLibrary library_;
    bool refused_ = false; ///< it cannot be used, which was told
};

/// The pages of a component, which is loaded and asked at construction.
class CPropertyPageSupplierCom : public CPropertyPageSupplier {
public:
    /// @param localization the whole text of the catalogue, "[{CLASSID}]".
    /// @throws ComponentError if the component cannot give its factory.
    explicit CPropertyPageSupplierCom(std::string localization);

    CPropertyPageFactory* getFactory() override { return factory_; }

private:
    std::string localization_;
    CPropertyPageFactory* factory_ = nullptr;
};

/// The pages of the designs of the open project. Their factory ends with it.
class CPropertyPageSupplierProjects : public CPropertyPageSupplier {
public:
    CPropertyPageSupplierProjects();
    ~CPropertyPageSupplierProjects() override;

    /// The factory of the default provider.
    CPropertyPageFactory* getFactory() override;
    virtual CFactoryEx* getFactory(ITopLevelDialogProvider* provider);
    /// The names of the designs; call it before getFactory, which makes a page for each of them.
    void fetchNames(const Orv::CProjectConfiguration* projectConfig, std::vector<std::string>& names);

private:
    std::unique_ptr<TopLevelFactories> factories_;
};

/// The supplier that a catalogue's `localization` text asks for, or null if it names none.
/// @param catalogueDirectory where the relative path of a library begins.
std::unique_ptr<CPropertyPageSupplier> makeSupplier(const std::string& localization,
                                                    const std::string& catalogueDirectory,
                                                    Orv::iAppConfiguration* appConfig,
                                                    Orv::CProjectConfiguration* projectConfig);

} // namespace ovsettings
