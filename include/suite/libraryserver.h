#pragma once

#include "suite/export.h"

#include <memory>
#include <string>
#include <vector>

/// The client of the library manager: what a central library holds, by partitions and by schemes. Texts are
/// UTF-8.

/// A central library, opened for reading.
class OVSUITE_API CLibServer {
public:
    /// @param libraryPath path of the library's index.
    explicit CLibServer(const std::string& libraryPath);
    ~CLibServer();
    CLibServer(const CLibServer&) = delete;
    CLibServer& operator=(const CLibServer&) = delete;

    /// @return false if there is no index at the path.
    bool Init();
    /// Reads the index. @param reserved 1. @return false, with an empty library, if it cannot be read.
    bool Load(const std::string& libraryPath, int reserved);

private:
    friend class CLibSchemePartition;

    struct Impl;
    std::unique_ptr<Impl> impl_;
};

/// The partitions of one type and the schemes that choose from them. The lists that it fills are appended to;
/// a library that is not loaded has nothing.
class OVSUITE_API CLibSchemePartition {
public:
    /// @param server must outlive this object.
    explicit CLibSchemePartition(const CLibServer& server) : server_(server) {}

    /// @param type 13 symbols, 7 part databases, 0 cells. @return false for another one.
    bool InitPartitionType(int type);
    /// Names and types of all schemes, in the order of the index. With another type than 0 the lists of a
    /// scheme may be edited in a design.
    bool GetSchemes(std::vector<std::string>& names, std::vector<int>& types) const;
    /// @param reserved 0.
    bool GetAllPartitions(std::vector<std::string>& names, int reserved) const;
    /// The partitions that a scheme lists, without those that the library does not have.
    /// @return false if there is no such scheme.
    bool GetSchemePartitionListByType(const std::string& scheme, std::vector<std::string>& names) const;
    /// Where a partition lies: a path from the root. @return false, with `fullName` as it was, if there is no
    /// such partition.
    bool GetFullPartitionName(const std::string& name, std::string& fullName) const;

private:
    const CLibServer& server_;
    int type_ = -1;
};
