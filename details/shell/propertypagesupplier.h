#pragma once

#include "details/platform/sharedlibrary.h"
#include "ovsettings/propertypagefactory.h"

#include <memory>
#include <string>

namespace ovsettings {

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
};

/// The supplier that a catalogue's `localization` text asks for, or null if it names none.
std::unique_ptr<CPropertyPageSupplier> makeSupplier(const std::string& localization,
                                                    Orv::iAppConfiguration* appConfig,
                                                    Orv::CProjectConfiguration* projectConfig);

} // namespace ovsettings
