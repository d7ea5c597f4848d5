#pragma once

#include "orv/bordersymbols.h"
#include "suite/export.h"

#include <memory>
#include <string>
#include <vector>

namespace NProjectTools {

/// A border symbols file of ini kind. Names of sizes and properties are compared without case in the file,
/// and with it in the table.
class OVSUITE_API CBorderSymbolsFile : public Orv::IBorderSymbols {
public:
    CBorderSymbolsFile();
    virtual ~CBorderSymbolsFile();
    CBorderSymbolsFile(const CBorderSymbolsFile&) = delete;
    CBorderSymbolsFile& operator=(const CBorderSymbolsFile&) = delete;

    /// Takes the content of another file. Where that cannot be read, the former content stays; an empty path
    /// means no file and no content.
    void Reload(const std::string& path) override;
    /// Makes the file if it is missing. In the file that the content was read from, only the entries that
    /// were changed since are written. A file that the last Reload could not read is refused, and
    /// so is one that has content but no section of this kind.
    void Save(const std::string& path) override;
    Table& GetTable() override;
    std::vector<Property>& GetProperties() override;
    std::vector<std::string> GetPropertyNames() override;
    std::string GetSaveError() override;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace NProjectTools
