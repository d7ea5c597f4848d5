#pragma once

#include "suite/export.h"

#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <string>

namespace Orv {
class IProjectFileData;
}

namespace NProjectTools {

/// One library of a project. The order of the operations is part of the binary contract; texts are UTF-8.
class OVSUITE_API ISymbolLibrary {
public:
    /// The library's full path.
    virtual std::string GetFullPath() const = 0;
    /// The location as it is stored, which may hold a soft name.
    virtual std::string GetLocation() const = 0;
    virtual std::string GetAlias() const = 0;
    virtual int GetType() const = 0;

protected:
    ~ISymbolLibrary() = default;
};

/// The library list of a project, in the order of search. Changes stay in memory: whoever owns the list
/// writes it.
class OVSUITE_API CSymbolLibs {
public:
    /// The libraries, valid until the list changes. The first of the virtual operations.
    virtual std::list<ISymbolLibrary*> GetLibList();

    CSymbolLibs();
    virtual ~CSymbolLibs();
    CSymbolLibs(const CSymbolLibs&) = delete;
    CSymbolLibs& operator=(const CSymbolLibs&) = delete;

    /// Replaces the list by that of a project. @return false, with the list as it was, if the project has no
    /// file that can be read.
    bool Load(Orv::IProjectFileData* project);
    /// Replaces the list by that of a file of ini kind. @return false, with the list as it was, if the file
    /// cannot be read.
    bool Load(const std::string& path);
    void Clear();
    /// Appends a library.
    void AddLibrary(const std::string& alias, const std::string& location, const std::string& fullPath,
                    int type);

    /// Told, before each library of a list is read, how many are. @return false to give the load up.
    using Progress = std::function<bool(std::size_t read, std::size_t count)>;
    /// As the operations without progress; a load that was given up returns false, with the list as it was.
    virtual bool Load(Orv::IProjectFileData* project, const Progress& progress);
    virtual bool Load(const std::string& path, const Progress& progress);

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace NProjectTools
