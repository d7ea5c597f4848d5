#pragma once

#include <string>

namespace platform {

/// A shared library held open by this object.
class SharedLibrary {
public:
    SharedLibrary() = default;
    /// Loads the library by its name, with the system's search rules for a bare name. "\" in the name
    /// separates directories. A name of another platform, "Name.dll", is also looked for as this platform
    /// spells it, "libName.so". An object for which nothing was found is empty; nothing is reported.
    explicit SharedLibrary(const std::string& name);
    ~SharedLibrary();
    SharedLibrary(SharedLibrary&& other) noexcept;
    SharedLibrary& operator=(SharedLibrary&& other) noexcept;

    explicit operator bool() const { return handle_ != nullptr; }

    /// The address of an exported symbol, or null.
    void* symbol(const char* name) const;

    /// Gives up the library without unloading it: it stays to the end of the process.
    void keepLoaded();

private:
    void* handle_ = nullptr;
};

} // namespace platform
