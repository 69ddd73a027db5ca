#include "standins/sqlite/Database.h"

#include <utility>

namespace kestrune::standins {

namespace {

constexpr int kPatienceMs = 5000;  // how long a statement waits for another connection's lock

[[noreturn]] void Throw(const std::string& message) {
  throw AutomationError(error::kFileFailure, u"Database", FromUtf8(message));
}

constexpr const char* kNotWritable =
    "the file cannot be written; make it and its folder writable, then try again";

[[noreturn]] void ThrowBlocked(sqlite3* handle, const char* why) {
  const char* path = sqlite3_db_filename(handle, "main");
  throw FileBlocked(error::kFileFailure, u"Database", FromUtf8(path ? path : "") + u": " + FromUtf8(why));
}

/// The last failure of a connection. Where the file is in somebody else's hands, it says which file,
/// and what to do.
[[noreturn]] void ThrowLast(sqlite3* handle) {
  const auto refuse = [&](const char* why) { ThrowBlocked(handle, why); };
  const int primary = sqlite3_errcode(handle) & 0xFF;
  if (primary == SQLITE_BUSY || primary == SQLITE_LOCKED)
    refuse("another program is writing to the file; wait for it or close it, then try again");
  if (primary == SQLITE_READONLY || primary == SQLITE_PERM) refuse(kNotWritable);
  if (primary == SQLITE_FULL) refuse("the disk is full; make room, then try again");
  if (primary == SQLITE_IOERR)
    refuse("the file cannot be read or written; see that its disk has room and is in order, then try again");
  Throw(sqlite3_errmsg(handle));
}

std::string Utf8Path(const std::filesystem::path& path) {
  const auto utf8 = path.u8string();
  return {utf8.begin(), utf8.end()};
}

}  // namespace

Text PathText(const std::filesystem::path& path) {
  return FromUtf8(Utf8Path(path));
}

Statement::Statement(Statement&& other) noexcept
    : handle_(std::exchange(other.handle_, nullptr)), idle_(other.idle_) {}

Statement::~Statement() {
  if (!handle_) return;
  if (!idle_) {
    sqlite3_finalize(handle_);
    return;
  }
  sqlite3_reset(handle_);
  sqlite3_clear_bindings(handle_);
  idle_->push_back(handle_);
}

bool Statement::Step() {
  const int result = sqlite3_step(handle_);
  if (result == SQLITE_ROW) return true;
  if (result == SQLITE_DONE) return false;
  ThrowLast(sqlite3_db_handle(handle_));
}

void Statement::Run() {
  while (Step()) {
  }
}

void Statement::Reset() {
  sqlite3_reset(handle_);
  sqlite3_clear_bindings(handle_);
}

Text Statement::ColumnName(int column) const {
  return FromUtf8(sqlite3_column_name(handle_, column));
}

TextView Statement::View(int column) const {
  const void* text = sqlite3_column_text16(handle_, column);
  if (!text) return {};
  const auto bytes = static_cast<std::size_t>(sqlite3_column_bytes16(handle_, column));
  return {static_cast<const char16_t*>(text), bytes / sizeof(char16_t)};
}

// SQLite takes a byte order mark at the front for its own and drops it: a text that begins with one is given another.
void Statement::BindText(int index, TextView value) {
  if (value.starts_with(u'\uFEFF') || value.starts_with(u'\uFFFE'))
    return BindUnits(index, Text(u"\uFEFF").append(value));
  BindUnits(index, value);
}

void Statement::BindUnits(int index, TextView value) {
  const char16_t* data = value.data() ? value.data() : u"";  // a null pointer would bind NULL
  Check(sqlite3_bind_text64(handle_, index, reinterpret_cast<const char*>(data),
                            value.size() * sizeof(char16_t), SQLITE_TRANSIENT, SQLITE_UTF16));
}

void Statement::BindVariant(int index, const Variant& value) {
  if (value.IsEmpty()) return BindAt(index, nullptr);
  if (value.IsBool()) return BindAt(index, value.ToBool());
  if (value.IsInt()) return BindAt(index, value.ToInt());
  if (value.IsDouble()) return BindAt(index, value.ToDouble());
  BindText(index, value.ToText());
}

void Statement::Check(int result) const {
  if (result != SQLITE_OK) ThrowLast(sqlite3_db_handle(handle_));
}

Database Database::Create(const std::filesystem::path& path) {
  if (path != ":memory:" && std::filesystem::exists(path))
    Throw(Utf8Path(path) + ": the file exists already");
  return Database(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
}

Database Database::Open(const std::filesystem::path& path) {
  return Database(path, SQLITE_OPEN_READWRITE);
}

Database Database::OpenReadOnly(const std::filesystem::path& path) {
  return Database(path, SQLITE_OPEN_READONLY);
}

Database::Database(const std::filesystem::path& path, int flags) {
  const std::string utf8 = Utf8Path(path);
  if (sqlite3_open_v2(utf8.c_str(), &handle_, flags | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK) {
    const std::string message = utf8 + ": " + (handle_ ? sqlite3_errmsg(handle_) : "out of memory");
    sqlite3_close(handle_);
    Throw(message);
  }
  sqlite3_busy_timeout(handle_, kPatienceMs);
  // Only a database without a table yet takes this on; every other keeps its encoding.
  if (flags & SQLITE_OPEN_CREATE)
    sqlite3_exec(handle_, "PRAGMA encoding = 'UTF-16'", nullptr, nullptr, nullptr);
}

Database::~Database() {
  for (const auto& [sql, handles] : idle_)
    for (sqlite3_stmt* handle : handles) sqlite3_finalize(handle);
  sqlite3_close(handle_);
}

void Database::RequireWritable() const {
  if (sqlite3_db_readonly(handle_, "main") == 1) ThrowBlocked(handle_, kNotWritable);
}

void Database::FavourSpeed() {
  Exec("PRAGMA journal_mode = WAL");
  Exec("PRAGMA synchronous = OFF");
}

void Database::Exec(const char* sql) {
  if (sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) ThrowLast(handle_);
}

Statement Database::PrepareOnce(std::string_view sql) {
  return Statement(Compile(sql), nullptr);
}

Statement Database::PrepareKept(std::string_view sql) {
  auto found = idle_.find(sql);
  if (found == idle_.end()) found = idle_.emplace(sql, Statement::Idle()).first;
  Statement::Idle& idle = found->second;
  if (idle.empty()) return Statement(Compile(sql), &idle);
  sqlite3_stmt* handle = idle.back();
  idle.pop_back();
  return Statement(handle, &idle);
}

sqlite3_stmt* Database::Compile(std::string_view sql) {
  sqlite3_stmt* handle = nullptr;
  const char* tail = nullptr;
  const auto size = static_cast<int>(sql.size());
  if (sqlite3_prepare_v2(handle_, sql.data(), size, &handle, &tail) != SQLITE_OK) ThrowLast(handle_);
  if (!handle) Throw("no SQL statement");
  const std::string_view rest = sql.substr(static_cast<std::size_t>(tail - sql.data()));
  if (rest.find_first_not_of(" \t\r\n") == std::string_view::npos) return handle;
  sqlite3_finalize(handle);
  Throw("more than one SQL statement");
}

Transaction::Transaction(Database& database) : database_(database) {
  database_.Exec("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
  if (!open_) return;
  try {
    database_.Exec("ROLLBACK");
  } catch (const AutomationError&) {
    // The failure that led here has already ended the transaction.
  }
}

void Transaction::Commit() {
  database_.Prepare("COMMIT").Run();
  open_ = false;
}

}  // namespace kestrune::standins
