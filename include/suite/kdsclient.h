#pragma once

#include "suite/export.h"

#include <exception>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Client of the design database of a project. A database is an SQLite file, which is only ever read here.
/// Texts are UTF-8.
namespace iKDS {

using String = std::string;

/// How an operation ended. True for success.
class Result {
public:
    Result() = default;
    static Result failure(String description) {
        Result result;
        result.ok_ = false;
        result.description_ = std::move(description);
        return result;
    }

    explicit operator bool() const { return ok_; }
    /// Why it failed, the path of the database included; empty on success.
    const String& GetDescription() const { return description_; }

private:
    bool ok_ = true;
    String description_;
};

/// Thrown by the operations below where a database turns out to be damaged, or would take too much: where it
/// computes what it holds, is larger than any design, or takes more than five seconds to answer.
class OVSUITE_API Exception : public std::exception {
public:
    explicit Exception(Result result) : result_(std::move(result)) {}
    ~Exception() override;

    const Result& GetResult() const { return result_; }
    const char* what() const noexcept override { return result_.GetDescription().c_str(); }

private:
    Result result_;
};

/// A list that an operation fills, in the order of the database.
template <typename T>
class ListT {
public:
    using Iterator = typename std::vector<T>::const_iterator;

    void Append(T item) { items_.push_back(std::move(item)); }
    void Clear() { items_.clear(); }
    std::size_t GetCount() const { return items_.size(); }
    Iterator begin() const { return items_.begin(); }
    Iterator end() const { return items_.end(); }

private:
    std::vector<T> items_;
};

/// Holds the object that an operation gives, and frees it.
template <typename T>
class ContainerT {
public:
    void Set(std::unique_ptr<T> object) { object_ = std::move(object); }
    explicit operator bool() const { return object_ != nullptr; }
    T* operator->() const { return object_.get(); }

private:
    std::unique_ptr<T> object_;
};

/// A block of a design.
struct BlockInfo {
    String name;
};

/// A state of the design that was kept under a name.
class ISnapshot {
public:
    virtual ~ISnapshot() = default;
    /// Appends the blocks, in their order in the snapshot. @throws Exception
    virtual Result GetListBlocks(ListT<BlockInfo>& blocks) = 0;
};

/// An attachment to one database.
class OVSUITE_API KDSPI {
public:
    KDSPI();
    ~KDSPI();
    KDSPI(const KDSPI&) = delete;
    KDSPI& operator=(const KDSPI&) = delete;

    /// Attaches to a database, after detaching from another one. Waits for at most a quarter of a second for
    /// a program that has it locked.
    /// @param client the name of the calling program, for the database's own messages.
    /// @param path   of the database file; separators of either kind.
    /// @return a failure if there is no such file, it is of another schema or stays locked.
    /// @throws Exception if it is no database, or a damaged one.
    Result AttachSubClient(const String& client, const String& path);
    /// @return a failure if no database is attached, or it has no tables or no such snapshot. @throws
    /// Exception
    Result GetSnapshotByName(const String& name, ContainerT<ISnapshot>& snapshot);
    /// Lets go of the database. Snapshots from it must not be used any more.
    void DetachSubClient();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace iKDS
