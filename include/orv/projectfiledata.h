#pragma once

#include "ovsettings/export.h"

#include <string>
#include <vector>

namespace Orv {

/// The open project file, as the settings pages see it. A value that is not set reads as an empty text;
/// operations report no failure. Texts are UTF-8. The order of the operations is part of the binary contract.
///
/// Operations with the argument `full` return the resolved full path of the file when it is 1. A `block` is
/// the name of a design.
class OVSETTINGS_API IProjectFileData {
public:
    /// Full path of the project file; empty means that no project is open.
    virtual std::string GetFilePath() = 0;
    /// Appends the names of the project's designs, in order.
    virtual void GetDesignNames(std::vector<std::string>& names) = 0;
    virtual std::string GetDatabasePath(int full) = 0;
    /// Remote server name; empty means that the remote server is off.
    virtual std::string GetServerName() = 0;
    virtual void SetServerName(const std::string& name) = 0;
    virtual std::string GetCentralLibraryPath(int full) = 0;
    virtual void SetCentralLibraryPath(const std::string& path) = 0;
    virtual std::string GetBorderSymbolsPath(int full) = 0;
    virtual std::string GetPinComponentsPath(int full) = 0;
    virtual std::string GetBusContentsPath(int full) = 0;
    /// Empty, "()" or "[]".
    virtual std::string GetNetNameDelimiter() = 0;
    virtual void SetNetNameDelimiter(const std::string& delimiter) = 0;
    virtual std::string GetTopBlock(const std::string& block) = 0;
    virtual void SetTopBlock(const std::string& text, const std::string& block) = 0;
    virtual std::string GetSearchScheme(const std::string& block) = 0;
    virtual void SetSearchScheme(const std::string& scheme, const std::string& block) = 0;
    virtual std::vector<std::string> GetSymbolPartitions(const std::string& block) = 0;
    virtual void SetSymbolPartitions(const std::vector<std::string>& list, const std::string& block) = 0;
    virtual std::vector<std::string> GetPdbSearchPath(const std::string& block) = 0;
    virtual void SetPdbSearchPath(const std::vector<std::string>& list, const std::string& block) = 0;
    virtual std::string GetLayoutTool() = 0;
    virtual void SetLayoutTool(const std::string& name) = 0;
    virtual std::string GetPcbConfigFile() = 0;
    virtual void SetPcbConfigFile(const std::string& name) = 0;
    virtual std::string GetConstraintsFile() = 0;
    virtual void SetConstraintsFile(const std::string& name) = 0;
    virtual bool GetBackAnnotationBlocked(const std::string& block) = 0;
    virtual void SetBackAnnotationBlocked(bool blocked, const std::string& block) = 0;
    virtual bool GetForwardAnnotationBlocked(const std::string& block) = 0;
    virtual void SetForwardAnnotationBlocked(bool blocked, const std::string& block) = 0;
    /// "FE" when the front end always wins, "BE" when the back end does.
    virtual std::string GetConflictWinner(const std::string& block) = 0;
    virtual void SetConflictWinner(const std::string& winner, const std::string& block) = 0;
    virtual std::vector<std::string> GetThirdPartitions(const std::string& block) = 0;
    virtual void SetThirdPartitions(const std::vector<std::string>& list, const std::string& block) = 0;
    /// Appends the names of the fixed functions.
    virtual void GetFixedFunctions(std::vector<std::string>& functions) = 0;
    virtual void SetFixedFunctions(const std::vector<std::string>& functions) = 0;
    virtual std::string GetValue(const std::string& section, const std::string& key) = 0;
    virtual void SetValue(const std::string& section, const std::string& key, const std::string& value) = 0;

protected:
    ~IProjectFileData() = default;
};

/// A host object that holds a parsed project file of one kind.
class OVSETTINGS_API IProjectFileConsumer {
public:
    /// Called after a page has stored a new file name. @param path full path of the file, UTF-8.
    virtual void Reload(const std::string& path) = 0;

protected:
    ~IProjectFileConsumer() = default;
};

} // namespace Orv
