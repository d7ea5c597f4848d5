#pragma once

#include <string>

namespace platform {

/// A shared library held open by this object. Its code stays in the process to the end, even so: events,
/// deferred deletions and exceptions of its own may be under way when nobody holds it any more. Only one that
/// was opened to be looked at, and of which nothing was called, goes with its object.
class SharedLibrary {
public:
    enum class Lifetime { process, object };

    SharedLibrary() = default;
    /// Loads the library by its name, with the system's search rules for a bare name. "\" in the name
    /// separates directories. A name with directories begins at the root, or nothing is loaded; it is also
    /// found without regard to case. A name of another platform, "Name.dll", is also looked for as this
    /// platform spells it, "libName.so". An object for which nothing was found is empty; nothing is reported.
    explicit SharedLibrary(const std::string& name, Lifetime lifetime = Lifetime::process);
    ~SharedLibrary();
    SharedLibrary(SharedLibrary&& other) noexcept;
    SharedLibrary& operator=(SharedLibrary&& other) noexcept;

    /// From now on the code stays, as that of Lifetime::process.
    void keepInProcess() const;

    explicit operator bool() const { return handle_ != nullptr; }

    /// What the loader says of a library that is there, with all that it needs, and yet cannot be loaded: a
    /// symbol that it misses, for one. Empty if it was loaded, or there is none.
    const std::string& defect() const { return defect_; }

    /// The address of a symbol that the library itself exports, or null.
    void* symbol(const char* name) const;

private:
    void* handle_ = nullptr;
    std::string defect_;
};

} // namespace platform
