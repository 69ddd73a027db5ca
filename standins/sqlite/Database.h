// The one way the stand-ins use SQLite: a connection and its statements, owned, with errors thrown.
#pragma once

#include <filesystem>
#include <map>
#include <sqlite3.h>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/Automation.h"

namespace kestrune::standins {

/// A path as it is shown.
Text PathText(const std::filesystem::path& path);

/// Thrown when a file is locked by another program, cannot be read or written, or has no room to grow;
/// the description names the file and says what to do.
struct FileBlocked : AutomationError {
  using AutomationError::AutomationError;
};

/// A prepared statement, ready to step. When it goes, it is reset and kept by its database for the
/// next Prepare of the same SQL; it must not outlive the database. All failures are
/// AutomationErrors with SQLite's message.
class Statement {
 public:
  Statement(Statement&& other) noexcept;
  Statement& operator=(Statement&&) = delete;
  ~Statement();

  /// Binds parameters 1, 2, ... to texts, numbers, Booleans (true is 1), nullptr or Variants (Empty becomes
  /// NULL; objects and arrays are refused). Texts are copied.
  template <typename... Values>
  void Bind(const Values&... values) {
    int index = 0;
    (BindAt(++index, values), ...);
  }

  /// One parameter, counted from 1.
  template <typename Value>
  void BindAt(int index, const Value& value) {
    if constexpr (std::is_null_pointer_v<Value>)
      Check(sqlite3_bind_null(handle_, index));
    else if constexpr (std::is_convertible_v<const Value&, TextView>)
      BindText(index, value);
    else if constexpr (std::is_same_v<Value, Variant>)
      BindVariant(index, value);
    else if constexpr (std::is_floating_point_v<Value>)
      Check(sqlite3_bind_double(handle_, index, value));
    else
      Check(sqlite3_bind_int64(handle_, index, value));
  }
  /// Goes to the next row; false when there is none.
  bool Step();
  /// Runs a statement that answers no rows.
  void Run();
  /// Makes the statement ready for new Binds and another run.
  void Reset();

  int ColumnCount() const { return sqlite3_column_count(handle_); }
  Text ColumnName(int column) const;
  bool IsNull(int column) const { return sqlite3_column_type(handle_, column) == SQLITE_NULL; }
  std::int32_t Int(int column) const { return sqlite3_column_int(handle_, column); }
  std::int64_t Int64(int column) const { return sqlite3_column_int64(handle_, column); }
  double Double(int column) const { return sqlite3_column_double(handle_, column); }
  /// The value as text, "" for NULL; the view lives until the next Step.
  TextView View(int column) const;
  Text GetText(int column) const { return Text(View(column)); }

  /// True when running the statement does not change the database.
  bool IsReadOnly() const { return sqlite3_stmt_readonly(handle_) != 0; }

 private:
  friend class Database;
  using Idle = std::vector<sqlite3_stmt*>;
  Statement(sqlite3_stmt* handle, Idle* idle) : handle_(handle), idle_(idle) {}

  void BindText(int index, TextView value);
  void BindUnits(int index, TextView value);
  void BindVariant(int index, const Variant& value);
  void Check(int result) const;

  sqlite3_stmt* handle_;
  Idle* idle_;  // where the handle goes back to; nullptr for a statement that nobody will ask for again
};

/// A connection to one database file, or to a database in memory when the path is ":memory:".
///
/// Databases made here store UTF-16, so that every text, even one with a lone surrogate, comes back as it
/// went in. SQLite then compares texts for equality only: their ORDER BY is by bytes and means nothing.
class Database {
 public:
  /// Makes a new file; an existing one is refused.
  static Database Create(const std::filesystem::path& path);
  /// Opens an existing file. Whether it is a database at all shows at the first statement.
  static Database Open(const std::filesystem::path& path);
  static Database OpenReadOnly(const std::filesystem::path& path);

  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database();

  /// Throws FileBlocked when the file may only be read. To be asked before the first statement, which may leave files
  /// beside it that are no more writable than it is, and are in the way when it is made so.
  void RequireWritable() const;

  /// Trades safety against a failing machine, not against a failing program, for the speed
  /// of many small writes.
  void FavourSpeed();

  /// Runs statements, separated by ";", that need no parameters and answer nothing.
  void Exec(const char* sql);

  /// A statement for one SQL text, parameters 1, 2, ... bound to `values`; compiled once, then kept.
  template <typename... Values>
  Statement Prepare(std::string_view sql, const Values&... values) {
    Statement statement = PrepareKept(sql);
    statement.Bind(values...);
    return statement;
  }
  /// A statement that is not kept: for SQL made by others or with values in it.
  Statement PrepareOnce(std::string_view sql);

  /// The rows that the last writing statement touched, and the key that the last insertion gave.
  int Changes() const { return sqlite3_changes(handle_); }
  std::int64_t LastInsertId() const { return sqlite3_last_insert_rowid(handle_); }

 private:
  Database(const std::filesystem::path& path, int flags);
  Statement PrepareKept(std::string_view sql);
  sqlite3_stmt* Compile(std::string_view sql);

  sqlite3* handle_ = nullptr;
  std::map<std::string, Statement::Idle, std::less<>> idle_;
};

/// What happens in its life is undone unless Commit was called. They do not nest.
class Transaction {
 public:
  explicit Transaction(Database& database);
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();

  void Commit();

 private:
  Database& database_;
  bool open_ = true;
};

}  // namespace kestrune::standins
