#pragma once

#include "ovsettings/export.h"
#include "ovsettings/interfaceversion.h"

#include <cstdint>
#include <stdexcept>
#include <string>

namespace ovsettings {

/// What every component answers: which interfaces it has. The order of the operations is part of the binary
/// contract.
class OVSETTINGS_API IComponent {
public:
    /// @param interfaceId in registry form, with braces; upper case.
    /// @return the interface, which lives as long as the component, or null if it has none of that id.
    virtual void* QueryInterface(const char* interfaceId) = 0;

protected:
    ~IComponent() = default;
};

/// The interface of a component that gives pages to the settings dialog.
class OVSETTINGS_API ISettingsPageComponent {
public:
    static constexpr const char* kInterfaceId = "{C9BFAFD6-37B5-4B82-8A0A-05833398EEAA}";

    /// Stores the address of the component's CPropertyPageFactory, which the component keeps owning and which
    /// stays valid to the end of the process.
    /// @return a negative number if it failed; the dialog then does not open, and the host gets a
    ///         ComponentError.
    virtual long GetPageFactory(std::uintptr_t* address) = 0;

protected:
    ~ISettingsPageComponent() = default;
};

/// A component that is there, but could not give its page factory. Leaves through showSettingsDialog.
class OVSETTINGS_API ComponentError : public std::runtime_error {
public:
    ComponentError(const std::string& classId, long result);
    ~ComponentError() override;

    /// What the component returned.
    long result() const { return result_; }

private:
    long result_;
};

} // namespace ovsettings

// A component is a shared library that exports
//
//     extern "C" ovsettings::IComponent* createComponent(const char* classId);
//
// which returns the component of that class id (registry form, upper case), or null if it has none. The
// component stays to the end of the process. A catalogue names it by its class id in brackets,
// "[{01234567-89AB-CDEF-0123-456789ABCDEF}]"; the installation finds the library by the file
// `standard/components/{01234567-89AB-CDEF-0123-456789ABCDEF}.ini`.
