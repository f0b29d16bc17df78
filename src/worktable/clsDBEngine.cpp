#include "worktable/clsDBEngine.h"

#include <sqlite3.h>

#include <sys/stat.h>

#include <filesystem>

#include "shell/Error.h"
#include "shell/RunState.h"
#include "shell/Text.h"
#include "worktable/Connection.h"
#include "worktable/TableWriter.h"
#include "worktable/RowStore.h"
#include "worktable/WorkingDatabase.h"

namespace corvalin {

namespace {

void ExecPlain(Connection& connection, const char* sql, const char* source) {
  FinishWrites(connection);
  // Any statement may change a table: rows fetched before it are not reused.
  ++connection.generation;
  char* message = nullptr;
  if (sqlite3_exec(connection.db, sql, nullptr, nullptr, &message) != SQLITE_OK) {
    const std::string text = message != nullptr ? message : "?";
    sqlite3_free(message);
    throw RuntimeError(err::DatabaseError, source, text);
  }
}

}  // namespace

std::string ResolveFileNameCase(const std::string& path) {
  namespace fs = std::filesystem;
  const fs::path p(path);
  std::error_code ec;
  if (fs::exists(p, ec)) return path;
  const fs::path folder = p.has_parent_path() ? p.parent_path() : fs::path(".");
  const std::string name = p.filename().string();
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    if (EqualsNoCase(it->path().filename().string(), name)) return (folder / it->path().filename()).string();
  }
  return path;
}

// ---- PreparedStatement ----

PreparedStatement::PreparedStatement(std::shared_ptr<Connection> connection, const std::string& sql)
    : connection_(std::move(connection)) {
  if (sqlite3_prepare_v2(connection_->db, sql.c_str(), -1, &statement_, nullptr) != SQLITE_OK)
    RaiseDatabaseError(connection_->db, "clsDBEngine.Prepare");
}

PreparedStatement::~PreparedStatement() { sqlite3_finalize(statement_); }

void PreparedStatement::BindInt(int index, long long value) { sqlite3_bind_int64(statement_, index, value); }

void PreparedStatement::BindText(int index, std::string_view text) {
  sqlite3_bind_text(statement_, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void PreparedStatement::Run() {
  const int rc = sqlite3_step(statement_);
  sqlite3_reset(statement_);
  ++connection_->generation;
  if (rc != SQLITE_DONE) RaiseDatabaseError(connection_->db, "clsDBEngine.Execute");
}

// ---- clsDBEngine ----

clsDBEngine::clsDBEngine() = default;
clsDBEngine::~clsDBEngine() = default;

namespace {

bool Identify(const std::string& path, unsigned long long& device, unsigned long long& inode) {
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) return false;
  device = static_cast<unsigned long long>(info.st_dev);
  inode = static_cast<unsigned long long>(info.st_ino);
  return true;
}

// The closed connection may be taken up again: the same file, not replaced,
// and not changed by another connection since it was closed.
bool StillTheSameFile(Connection& connection, const std::string& path) {
  unsigned long long device = 0;
  unsigned long long inode = 0;
  if (connection.path != path || !Identify(path, device, inode)) return false;
  if (device != connection.device || inode != connection.inode) return false;
  // While the load's inserts go, nobody else can have written the file.
  if (connection.writer) return true;
  return DataVersion(connection) == connection.dataVersion;
}

}  // namespace

std::any clsDBEngine::OpenDB() {
  // Opening an open connection is harmless: the connection stays as it was.
  if (connection_) return {};
  const std::string path = ResolveFileNameCase(pathToDB_);
  if (closed_ && StillTheSameFile(*closed_, path)) {
    connection_ = std::move(closed_);
    return {};
  }
  closed_.reset();
  auto connection = std::make_shared<Connection>();
  // Read and write, never create: a missing working database is a failure.
  // One thread uses it, so SQLite need not lock around every call.
  if (sqlite3_open_v2(path.c_str(), &connection->db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK) {
    const std::string message = connection->db != nullptr ? sqlite3_errmsg(connection->db) : "cannot open";
    throw RuntimeError(err::DatabaseError, "clsDBEngine.OpenDB", message + ": " + path);
  }
  // The working table is scratch: no journal on the disk, no waiting for it.
  ExecPlain(*connection, "PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;", "clsDBEngine.OpenDB");
  // A file that is not a database fails here rather than at the first select.
  ExecPlain(*connection, "SELECT count(*) FROM sqlite_master;", "clsDBEngine.OpenDB");
  connection->path = path;
  Identify(path, connection->device, connection->inode);
  connection_ = std::move(connection);
  return {};
}

void clsDBEngine::CloseDB() {
  // Closing a closed connection is harmless too. Row sets still holding the
  // file let it go when they are released.
  if (!connection_) return;
  // A connection whose load is still going takes its count when the load is
  // done (FinishWrites).
  if (!connection_->writer) connection_->dataVersion = DataVersion(*connection_);
  closed_ = std::move(connection_);
}

void clsDBEngine::ReleaseDB() {
  connection_.reset();
  closed_.reset();
}

std::shared_ptr<Connection> clsDBEngine::RequireOpen() const {
  if (!connection_) Raise(err::ObjectClosed, "clsDBEngine");
  return connection_;
}

std::shared_ptr<Recordset> clsDBEngine::RetreiveRecords() {
  auto connection = RequireOpen();
  return std::make_shared<Recordset>(connection, FetchRows(*connection, sqlString_));
}

void clsDBEngine::Execute(int32_t& recordsAffected) {
  auto connection = RequireOpen();
  ExecPlain(*connection, sqlString_.c_str(), "clsDBEngine.Execute");
  recordsAffected = static_cast<int32_t>(sqlite3_changes(connection->db));
}

void clsDBEngine::StartTrans() { ExecPlain(*RequireOpen(), "BEGIN", "clsDBEngine.StartTrans"); }
void clsDBEngine::RollbckTrans() { ExecPlain(*RequireOpen(), "ROLLBACK", "clsDBEngine.RollbckTrans"); }
void clsDBEngine::CommtTrans() { ExecPlain(*RequireOpen(), "COMMIT", "clsDBEngine.CommtTrans"); }

void clsDBEngine::AdoptRows(std::shared_ptr<RowStore> rows) { AdoptImage(*RequireOpen(), std::move(rows)); }

std::unique_ptr<PreparedStatement> clsDBEngine::Prepare(const std::string& sql) {
  auto connection = RequireOpen();
  corvalin::FinishWrites(*connection);
  return std::make_unique<PreparedStatement>(std::move(connection), sql);
}

std::shared_ptr<Connection> clsDBEngine::Current() const { return RequireOpen(); }

void clsDBEngine::FinishLater(const std::shared_ptr<Connection>& connection, std::unique_ptr<TableWriter> writer) {
  corvalin::FinishWrites(*connection);
  connection->writer = std::move(writer);
}

void clsDBEngine::FinishWrites() {
  if (connection_) corvalin::FinishWrites(*connection_);
  if (closed_) corvalin::FinishWrites(*closed_);
}

// ---- the process-wide door ----

clsDBEngine& DatabaseEngine() {
  static clsDBEngine engine;
  return engine;
}

std::shared_ptr<Recordset>& TftRecords() {
  static std::shared_ptr<Recordset> records;
  return records;
}

void OpenDatabase() {
  clsDBEngine& engine = DatabaseEngine();
  engine.PathToDB(WorkingDatabasePath("tft.mdb"));
  engine.OpenDB();
  engine.SQLString("Select * from tft");
  TftRecords() = engine.RetreiveRecords();
}

void CloseDatabase() { DatabaseEngine().CloseDB(); }

void ReleaseDatabase() { DatabaseEngine().ReleaseDB(); }

void FinishDatabaseWrites() { DatabaseEngine().FinishWrites(); }

void AdoptLoadedRows(std::shared_ptr<RowStore> rows) {
  clsDBEngine& engine = DatabaseEngine();
  engine.AdoptRows(std::move(rows));
}

}  // namespace corvalin
