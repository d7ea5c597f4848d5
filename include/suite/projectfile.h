#pragma once

#include "orv/projectfiledata.h"
#include "suite/export.h"

#include <functional>
#include <memory>
#include <string>

namespace NProjectTools {

/// A project file on disk, read and written through IProjectFileData. Each change replaces the file as a
/// whole before the operation returns; what it does not concern stays byte by byte, comments and unknown
/// sections included. A change that cannot be written is told to the error handler, and the file keeps what
/// it had.
class OVSUITE_API CProjectFile : public Orv::IProjectFileData {
public:
    CProjectFile();
    virtual ~CProjectFile();
    CProjectFile(const CProjectFile&) = delete;
    CProjectFile& operator=(const CProjectFile&) = delete;

    /// Opens a file that exists. @return true on success; otherwise no project is open.
    bool openProjectFile(const std::string& path);
    void closeProjectFile();
    /// Why the last openProjectFile failed, path included; empty after success.
    const std::string& lastError() const;

    /// As IOvConfigurationManager::SetErrorHandler, whose handler this is: the one of the two that was set
    /// last is told.
    using ErrorHandler = std::function<void(const std::string& message)>;
    static void SetErrorHandler(ErrorHandler handler);

    std::string GetFilePath() override;
    void GetDesignNames(std::vector<std::string>& names) override;
    std::string GetDatabasePath(int full) override;
    std::string GetServerName() override;
    void SetServerName(const std::string& name) override;
    std::string GetCentralLibraryPath(int full) override;
    void SetCentralLibraryPath(const std::string& path) override;
    std::string GetBorderSymbolsPath(int full) override;
    std::string GetPinComponentsPath(int full) override;
    std::string GetBusContentsPath(int full) override;
    std::string GetNetNameDelimiter() override;
    void SetNetNameDelimiter(const std::string& delimiter) override;
    std::string GetTopBlock(const std::string& block) override;
    void SetTopBlock(const std::string& text, const std::string& block) override;
    std::string GetSearchScheme(const std::string& block) override;
    void SetSearchScheme(const std::string& scheme, const std::string& block) override;
    std::vector<std::string> GetSymbolPartitions(const std::string& block) override;
    void SetSymbolPartitions(const std::vector<std::string>& list, const std::string& block) override;
    std::vector<std::string> GetPdbSearchPath(const std::string& block) override;
    void SetPdbSearchPath(const std::vector<std::string>& list, const std::string& block) override;
    std::string GetLayoutTool() override;
    void SetLayoutTool(const std::string& name) override;
    std::string GetPcbConfigFile() override;
    void SetPcbConfigFile(const std::string& name) override;
    std::string GetConstraintsFile() override;
    void SetConstraintsFile(const std::string& name) override;
    bool GetBackAnnotationBlocked(const std::string& block) override;
    void SetBackAnnotationBlocked(bool blocked, const std::string& block) override;
    bool GetForwardAnnotationBlocked(const std::string& block) override;
    void SetForwardAnnotationBlocked(bool blocked, const std::string& block) override;
    std::string GetConflictWinner(const std::string& block) override;
    void SetConflictWinner(const std::string& winner, const std::string& block) override;
    std::vector<std::string> GetThirdPartitions(const std::string& block) override;
    void SetThirdPartitions(const std::vector<std::string>& list, const std::string& block) override;
    void GetFixedFunctions(std::vector<std::string>& functions) override;
    void SetFixedFunctions(const std::vector<std::string>& functions) override;
    std::string GetValue(const std::string& section, const std::string& key) override;
    void SetValue(const std::string& section, const std::string& key, const std::string& value) override;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

/// A project file that is opened to read another project.
class OVSUITE_API CProjectFileUtilitiesLight : public CProjectFile {
public:
    /// @param path null, or a project to open.
    explicit CProjectFileUtilitiesLight(const char* path);
    ~CProjectFileUtilitiesLight() override;
};

} // namespace NProjectTools
