#include "engine/embedded/sqlite_database.h"

#include <sqlite3.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <system_error>

#include "engine/contract/engine_errors.h"

namespace kxc::engine {

Statement::Statement(Statement&& other) noexcept : stmt_(other.stmt_), db_(other.db_) {
  other.stmt_ = nullptr;
}

Statement& Statement::operator=(Statement&& other) noexcept {
  if (this != &other) {
    sqlite3_finalize(stmt_);
    stmt_ = other.stmt_;
    db_ = other.db_;
    other.stmt_ = nullptr;
  }
  return *this;
}

Statement::~Statement() { sqlite3_finalize(stmt_); }

void Statement::check(int rc) const {
  if (rc != SQLITE_OK) throw databaseError(sqlite3_errmsg(db_));
}

Statement& Statement::bind(int index, int64_t value) {
  check(sqlite3_bind_int64(stmt_, index, value));
  return *this;
}

Statement& Statement::bind(int index, double value) {
  if (std::isnan(value)) return bindNull(index);
  check(sqlite3_bind_double(stmt_, index, value));
  return *this;
}

Statement& Statement::bind(int index, std::string_view text) {
  check(sqlite3_bind_text64(stmt_, index, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
  return *this;
}

Statement& Statement::bindNull(int index) {
  check(sqlite3_bind_null(stmt_, index));
  return *this;
}

bool Statement::step() {
  int rc = sqlite3_step(stmt_);
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  std::string message = sqlite3_errmsg(db_);
  sqlite3_reset(stmt_);
  throw databaseError(message);
}

void Statement::run() {
  while (step()) {
  }
  reset();
}

void Statement::reset() { sqlite3_reset(stmt_); }

bool Statement::isNull(int column) const {
  return sqlite3_column_type(stmt_, column) == SQLITE_NULL;
}

int64_t Statement::int64At(int column) const { return sqlite3_column_int64(stmt_, column); }

double Statement::doubleAt(int column) const {
  if (isNull(column)) return std::numeric_limits<double>::quiet_NaN();
  return sqlite3_column_double(stmt_, column);
}

std::string_view Statement::textAt(int column) const {
  const unsigned char* p = sqlite3_column_text(stmt_, column);
  if (!p) return {};
  return {reinterpret_cast<const char*>(p),
          static_cast<size_t>(sqlite3_column_bytes(stmt_, column))};
}

Database::Database(const std::string& path) : path_(path) {
  std::filesystem::path p(path);
  if (p.has_parent_path()) {
    std::error_code ec;
    std::filesystem::create_directories(p.parent_path(), ec);
    if (ec) throw databaseError("cannot create the folder of " + path + ": " + ec.message());
  }
  int rc =
      sqlite3_open_v2(path.c_str(), &db_,
                      SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
  if (rc != SQLITE_OK) {
    std::string message = db_ ? sqlite3_errmsg(db_) : "out of memory";
    sqlite3_close(db_);
    db_ = nullptr;
    throw databaseError("cannot open " + path + ": " + message);
  }
  sqlite3_busy_timeout(db_, 5000);
  try {
    exec("PRAGMA foreign_keys = ON; PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL;");
  } catch (...) {
    sqlite3_close(db_);
    db_ = nullptr;
    throw;
  }
}

Database::~Database() { sqlite3_close_v2(db_); }

void Database::exec(std::string_view sql) {
  std::string text(sql);
  char* message = nullptr;
  if (sqlite3_exec(db_, text.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
    std::string detail = message ? message : sqlite3_errmsg(db_);
    sqlite3_free(message);
    throw databaseError(detail);
  }
}

Statement Database::prepare(std::string_view sql) {
  sqlite3_stmt* stmt = nullptr;
  int rc = sqlite3_prepare_v2(db_, sql.data(), static_cast<int>(sql.size()), &stmt, nullptr);
  if (rc != SQLITE_OK) throw databaseError(sqlite3_errmsg(db_));
  return Statement(stmt, db_);
}

int64_t Database::lastInsertId() const { return sqlite3_last_insert_rowid(db_); }

Transaction::Transaction(Database& db) : db_(db) { db_.exec("BEGIN IMMEDIATE"); }

Transaction::~Transaction() {
  if (!done_) {
    try {
      db_.exec("ROLLBACK");
    } catch (...) {
      // Nothing more can be done while unwinding; SQLite rolls back on close anyway.
    }
  }
}

void Transaction::commit() {
  db_.exec("COMMIT");
  done_ = true;
}

}  // namespace kxc::engine
