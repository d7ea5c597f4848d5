#include "suite/kdsclient.h"

#include "details/platform/paths.h"

#include <filesystem>
#include <sqlite3.h>
#include <system_error>

namespace iKDS {

namespace {

/// Kept in the database's user version.
constexpr int kSchema = 1;
constexpr int kLongestWait = 250; // milliseconds

struct CloseDatabase {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;

struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

bool isDamage(int code) {
    const int primary = code & 0xff;
    return primary == SQLITE_CORRUPT || primary == SQLITE_NOTADB;
}

/// The failure of the last call on a database; thrown where it tells of damage.
Result failureOf(sqlite3& database, int code) {
    const char* path = sqlite3_db_filename(&database, "main");
    Result failure = Result::failure(std::string(path ? path : "") + ": " + sqlite3_errmsg(&database));
    if (isDamage(code))
        throw Exception(std::move(failure));
    return failure;
}

Result prepare(sqlite3& database, const char* sql, Statement& statement) {
    sqlite3_stmt* prepared = nullptr;
    const int code = sqlite3_prepare_v2(&database, sql, -1, &prepared, nullptr);
    statement.reset(prepared);
    return code == SQLITE_OK ? Result() : failureOf(database, code);
}

std::string textOf(sqlite3_stmt& row, int column) {
    const unsigned char* text = sqlite3_column_text(&row, column);
    return text ? std::string(reinterpret_cast<const char*>(text),
                              static_cast<std::size_t>(sqlite3_column_bytes(&row, column)))
                : std::string();
}

/// Steps a statement once. @param isRow receives whether there was a row.
Result step(sqlite3& database, sqlite3_stmt& statement, bool& isRow) {
    const int code = sqlite3_step(&statement);
    isRow = code == SQLITE_ROW;
    return code == SQLITE_ROW || code == SQLITE_DONE ? Result() : failureOf(database, code);
}

Result checkSchema(sqlite3& database) {
    Statement statement;
    if (Result result = prepare(database, "PRAGMA user_version", statement); !result)
        return result;
    bool isRow = false;
    if (Result result = step(database, *statement, isRow); !result)
        return result;
    const int schema = isRow ? sqlite3_column_int(statement.get(), 0) : 0;
    if (schema == kSchema)
        return {};
    return Result::failure(std::string(sqlite3_db_filename(&database, "main")) + ": schema " +
                           std::to_string(schema) + " instead of " + std::to_string(kSchema));
}

class Snapshot final : public ISnapshot {
public:
    Snapshot(std::shared_ptr<sqlite3> database, sqlite3_int64 id) : database_(std::move(database)), id_(id) {}

    Result GetListBlocks(ListT<BlockInfo>& blocks) override {
        Statement statement;
        constexpr char kSql[] = "SELECT name FROM blocks WHERE snapshot = ? ORDER BY position";
        if (Result result = prepare(*database_, kSql, statement); !result)
            return result;
        sqlite3_bind_int64(statement.get(), 1, id_);
        for (bool isRow = true; isRow;) {
            if (Result result = step(*database_, *statement, isRow); !result)
                return result;
            if (isRow)
                blocks.Append({textOf(*statement, 0)});
        }
        return {};
    }

private:
    std::shared_ptr<sqlite3> database_;
    sqlite3_int64 id_;
};

} // namespace

struct KDSPI::Impl {
    std::shared_ptr<sqlite3> database;
};

Exception::~Exception() = default;

KDSPI::KDSPI() : impl_(std::make_unique<Impl>()) {
}

KDSPI::~KDSPI() = default;

Result KDSPI::AttachSubClient(const String& client, const String& path) {
    DetachSubClient();
    const std::string file = platform::fullPath(path);
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) // a pipe would make the caller wait
        return Result::failure(file + ": no design database for " + client);
    sqlite3* opened = nullptr;
    const int code =
        sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READONLY | SQLITE_OPEN_EXRESCODE, nullptr);
    Database database(opened);
    if (!database)
        return Result::failure(file + ": out of memory");
    if (code != SQLITE_OK)
        return failureOf(*database, code);
    sqlite3_busy_timeout(database.get(), kLongestWait);
    // Tables alone: a view could compute for ever.
    for (const int option :
         {SQLITE_DBCONFIG_ENABLE_VIEW, SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_TRUSTED_SCHEMA})
        sqlite3_db_config(database.get(), option, 0, nullptr);
    if (Result result = checkSchema(*database); !result)
        return result;
    impl_->database = std::move(database);
    return {};
}

Result KDSPI::GetSnapshotByName(const String& name, ContainerT<ISnapshot>& snapshot) {
    if (!impl_->database)
        return Result::failure("no design database is attached");
    sqlite3& database = *impl_->database;
    Statement statement;
    if (Result result = prepare(database, "SELECT id FROM snapshots WHERE name = ?", statement); !result)
        return result;
    sqlite3_bind_text(statement.get(), 1, name.data(), static_cast<int>(name.size()), SQLITE_TRANSIENT);
    bool isRow = false;
    if (Result result = step(database, *statement, isRow); !result)
        return result;
    if (!isRow)
        return Result::failure(std::string(sqlite3_db_filename(&database, "main")) + ": no snapshot " + name);
    snapshot.Set(std::make_unique<Snapshot>(impl_->database, sqlite3_column_int64(statement.get(), 0)));
    return {};
}

void KDSPI::DetachSubClient() {
    impl_->database.reset();
}

} // namespace iKDS
