#include "suite/kdsclient.h"

#include "platform/error.h"
#include "platform/paths.h"

#include <array>
#include <chrono>
#include <functional>
#include <new>
#include <sqlite3.h>

namespace iKDS {

namespace {

/// Kept in the database's user version.
constexpr int kSchema = 1;
constexpr int kLongestWait = 250; // milliseconds

// What a database may take. A small one can hold any number of rows, since its pages may be shared, and a
// value of any length, since it may be computed.
constexpr std::chrono::seconds kLongestOperation{5};
constexpr int kMostBlocks = 1'000'000;   ///< of a snapshot
constexpr int kLongestNames = 64 << 20;  ///< bytes of all of them
constexpr int kLongestValue = 1 << 20;   ///< bytes
constexpr int kStepsBetweenLooks = 1000; ///< at the clock

struct Limit {
    int id;
    int value;
};
constexpr std::array kLimits{
    Limit{SQLITE_LIMIT_LENGTH, kLongestValue},
    Limit{SQLITE_LIMIT_VDBE_OP, 10'000},
    Limit{SQLITE_LIMIT_ATTACHED, 0},
    Limit{SQLITE_LIMIT_WORKER_THREADS, 0},
};

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

Result failureWith(sqlite3& database, const std::string& cause) {
    const char* path = sqlite3_db_filename(&database, "main");
    return Result::failure(std::string(path ? path : "") + ": " + cause);
}

/// For what the user has to be told of.
[[noreturn]] void refuse(sqlite3& database, const std::string& cause) {
    throw Exception(failureWith(database, cause));
}

/// The failure of the last call on a database; thrown where it tells of damage, or of what takes too much.
Result failureOf(sqlite3& database, int code) {
    const int primary = code & 0xff;
    if (primary == SQLITE_INTERRUPT)
        refuse(database, "not read within " + std::to_string(kLongestOperation.count()) + " seconds");
    if (primary == SQLITE_TOOBIG)
        refuse(database, "a text is longer than " + platform::sizeText(kLongestValue));
    if (isDamage(code))
        refuse(database, sqlite3_errmsg(&database));
    return failureWith(database, sqlite3_errmsg(&database));
}

/// While it lives, what is asked of a database ends in time.
class Deadline {
public:
    explicit Deadline(sqlite3& database) : database_(database) {
        sqlite3_progress_handler(&database_, kStepsBetweenLooks, &isOver, this);
    }
    ~Deadline() { sqlite3_progress_handler(&database_, 0, nullptr, nullptr); }
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;

private:
    using Clock = std::chrono::steady_clock;

    static int isOver(void* deadline) {
        return Clock::now() > static_cast<Deadline*>(deadline)->end_ ? 1 : 0;
    }

    sqlite3& database_;
    Clock::time_point end_ = Clock::now() + kLongestOperation;
};

/// An operation on a database, which has its deadline, and fails where memory ends.
Result within(sqlite3& database, const std::function<Result()>& operation) {
    const Deadline deadline(database);
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        return failureWith(database, "out of memory");
    }
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

/// Tables alone, and within limits: a view could compute for ever, and a virtual table is somebody's program.
void restrict(sqlite3& database) {
    for (const int option :
         {SQLITE_DBCONFIG_ENABLE_VIEW, SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_TRUSTED_SCHEMA})
        sqlite3_db_config(&database, option, 0, nullptr);
    sqlite3_drop_modules(&database, nullptr);
    for (const Limit& limit : kLimits)
        sqlite3_limit(&database, limit.id, limit.value);
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

/// Refuses a table of which values would be computed.
Result checkTable(sqlite3& database, const std::string& name) {
    Statement columns;
    if (Result result = prepare(database, ("PRAGMA table_xinfo(" + name + ")").c_str(), columns); !result)
        return result;
    constexpr int kHidden = 6;
    bool isRow = true;
    while (isRow) {
        if (Result result = step(database, *columns, isRow); !result)
            return result;
        if (isRow && sqlite3_column_int(columns.get(), kHidden) != 0)
            refuse(database, "the table " + name + " has a computed column");
    }
    return {};
}

/// What the blocks of a snapshot take, added up while they are found. Once they are sorted, all of them have
/// been kept.
class Extent {
public:
    /// Asked of each name.
    static constexpr char kFunction[] = "isWithinLimits";

    explicit Extent(sqlite3& database) : database_(database) { setFunction(&add); }
    ~Extent() { setFunction(nullptr); }
    Extent(const Extent&) = delete;
    Extent& operator=(const Extent&) = delete;

    /// What was exceeded; empty for nothing.
    std::string excess() const {
        if (blocks_ > kMostBlocks)
            return "a snapshot has more than " + std::to_string(kMostBlocks) + " blocks";
        return bytes_ > kLongestNames
                   ? "the names of the blocks take more than " + platform::sizeText(kLongestNames)
                   : std::string();
    }

private:
    static void add(sqlite3_context* context, int, sqlite3_value** name) {
        Extent& extent = *static_cast<Extent*>(sqlite3_user_data(context));
        ++extent.blocks_;
        extent.bytes_ += sqlite3_value_bytes(*name);
        if (extent.blocks_ > kMostBlocks || extent.bytes_ > kLongestNames)
            sqlite3_result_error(context, "too many", -1);
        else
            sqlite3_result_int(context, 1);
    }

    void setFunction(void (*function)(sqlite3_context*, int, sqlite3_value**)) {
        sqlite3_create_function_v2(&database_, kFunction, 1, SQLITE_UTF8, this, function, nullptr, nullptr,
                                   nullptr);
    }

    sqlite3& database_;
    int blocks_ = 0;
    int bytes_ = 0;
};

class Snapshot final : public ISnapshot {
public:
    Snapshot(std::shared_ptr<sqlite3> database, sqlite3_int64 id) : database_(std::move(database)), id_(id) {}

    Result GetListBlocks(ListT<BlockInfo>& blocks) override {
        return within(*database_, [&] {
            const Result result = checkTable(*database_, "blocks");
            return result ? readBlocks(blocks) : result;
        });
    }

private:
    Result readBlocks(ListT<BlockInfo>& blocks) {
        Extent extent(*database_);
        Statement statement;
        static const std::string sql = std::string("SELECT name FROM blocks WHERE snapshot = ? AND ") +
                                       Extent::kFunction + "(name) ORDER BY position";
        if (Result result = prepare(*database_, sql.c_str(), statement); !result)
            return result;
        sqlite3_bind_int64(statement.get(), 1, id_);
        for (bool isRow = true; isRow;) {
            Result result = step(*database_, *statement, isRow);
            if (const std::string excess = extent.excess(); !excess.empty())
                refuse(*database_, excess);
            if (!result)
                return result;
            if (isRow)
                blocks.Append({textOf(*statement, 0)});
        }
        return {};
    }

    std::shared_ptr<sqlite3> database_;
    sqlite3_int64 id_;
};

Result findSnapshot(const std::shared_ptr<sqlite3>& shared, const String& name,
                    ContainerT<ISnapshot>& snapshot) {
    sqlite3& database = *shared;
    if (Result result = checkTable(database, "snapshots"); !result)
        return result;
    Statement statement;
    if (Result result = prepare(database, "SELECT id FROM snapshots WHERE name = ?", statement); !result)
        return result;
    sqlite3_bind_text(statement.get(), 1, name.data(), static_cast<int>(name.size()), SQLITE_TRANSIENT);
    bool isRow = false;
    if (Result result = step(database, *statement, isRow); !result)
        return result;
    if (!isRow)
        return failureWith(database, "no snapshot " + name);
    snapshot.Set(std::make_unique<Snapshot>(shared, sqlite3_column_int64(statement.get(), 0)));
    return {};
}

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
    // A pipe would make the caller wait.
    if (file.size() > platform::kLongestPath || !platform::isFile(file))
        return Result::failure(file.substr(0, platform::kLongestPath) + ": no design database for " + client);
    sqlite3* opened = nullptr;
    const int code =
        sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READONLY | SQLITE_OPEN_EXRESCODE, nullptr);
    Database database(opened);
    if (!database)
        return Result::failure(file + ": out of memory");
    if (code != SQLITE_OK)
        return failureOf(*database, code);
    sqlite3_busy_timeout(database.get(), kLongestWait);
    restrict(*database);
    if (Result result = within(*database, [&] { return checkSchema(*database); }); !result)
        return result;
    impl_->database = std::move(database);
    return {};
}

Result KDSPI::GetSnapshotByName(const String& name, ContainerT<ISnapshot>& snapshot) {
    if (!impl_->database)
        return Result::failure("no design database is attached");
    return within(*impl_->database, [&] { return findSnapshot(impl_->database, name, snapshot); });
}

void KDSPI::DetachSubClient() {
    impl_->database.reset();
}

} // namespace iKDS
