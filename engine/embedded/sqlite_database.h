// A thin RAII layer over one SQLite connection: prepared statements with bound parameters and
// scoped transactions. Every failure raises the engine's database error (30007).
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace kxc::engine {

class Database;

// One prepared statement. Parameters are bound by 1-based position; texts are copied into
// SQLite, so the caller's strings need not outlive the call. Not copyable; movable.
class Statement {
 public:
  Statement() = default;
  Statement(Statement&& other) noexcept;
  Statement& operator=(Statement&& other) noexcept;
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  ~Statement();

  Statement& bind(int index, int64_t value);
  Statement& bind(int index, int value) { return bind(index, static_cast<int64_t>(value)); }
  Statement& bind(int index, double value);  // NaN is stored as NULL
  Statement& bind(int index, std::string_view text);
  Statement& bindNull(int index);

  // Advances to the next row: true when a row is there, false when done.
  bool step();
  // Runs a statement that returns no rows, then resets it for the next use.
  void run();
  // Makes the statement ready to run again; bindings are kept until rebound.
  void reset();

  bool isNull(int column) const;
  int64_t int64At(int column) const;
  double doubleAt(int column) const;          // NULL reads as NaN
  std::string_view textAt(int column) const;  // valid until the next step or reset

 private:
  friend class Database;
  Statement(sqlite3_stmt* stmt, sqlite3* db) : stmt_(stmt), db_(db) {}
  void check(int rc) const;
  sqlite3_stmt* stmt_ = nullptr;
  sqlite3* db_ = nullptr;
};

// One connection to a database file, opened (and created, with its folders) on construction.
// Single-threaded: use it from one thread at a time.
class Database {
 public:
  explicit Database(const std::string& path);
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database();

  // Runs one or more statements without parameters (schema text only, never user text).
  void exec(std::string_view sql);
  Statement prepare(std::string_view sql);
  int64_t lastInsertId() const;
  const std::string& path() const { return path_; }

 private:
  sqlite3* db_ = nullptr;
  std::string path_;
};

// Begins an immediate transaction; commit() makes it durable, destruction without commit()
// rolls it back, so an exception leaves nothing half-written.
class Transaction {
 public:
  explicit Transaction(Database& db);
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();
  void commit();

 private:
  Database& db_;
  bool done_ = false;
};

}  // namespace kxc::engine
