// The load's rows written straight into the pages of tft, in SQLite's own
// file format, instead of through one insert statement per group of rows.
// Binding and inserting cost SQLite some two hundred instructions per cell;
// laying a row out in its page costs a copy of its cells. The table stays a
// plain SQLite table: once the load is done, SQLite reads and changes it as
// any other, and the grid edits it with statements as before.
//
// The table must be the fresh one of a copy of the empty working database:
// its root page the file's second page, empty, the file's last page, and no
// index or trigger on it. The rows go in rowid order, each one past the last,
// as a fresh table numbers them; full leaf pages are written as they fill,
// the pages above them when the load is complete. Until then the file's
// header still says the table is empty, and the file's write lock is held, so
// that no connection reads a table half built.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <vector>

namespace corvalin {

class TablePages {
 public:
  // Checks that tft of db is fresh and takes the file's write lock. Raises a
  // database error that says what is wrong when it is not, or when the file
  // is locked. db must run no statement until Complete has come back.
  explicit TablePages(sqlite3* db);
  // Lets go of the lock. A table not completed stays empty.
  ~TablePages();
  TablePages(const TablePages&) = delete;
  TablePages& operator=(const TablePages&) = delete;

  // The next row: LineNum, then count cells of c1.. laid back to back from
  // text, column n + 1 ending ends[n] bytes after it (none longer than 255
  // bytes), the other cells empty, and Excluded "N". rowid is one past the
  // last row's (1 for the first).
  void Append(long long rowid, int16_t lineNumber, int count, const char* text, const uint32_t* ends);
  // Writes what is not yet in the file and the header that makes the rows
  // the table's; lets go of the lock. Raises the store's failure to write.
  void Complete();

 private:
  struct Child {
    uint32_t page;
    int64_t lastRowid;
  };

  void LockAndCheckFile();
  void Write(uint32_t page, const uint8_t* bytes, std::size_t size);
  void StartLeaf();
  void WriteLeaf(uint32_t number);
  void WriteInterior(uint32_t page, const Child* children, std::size_t count);
  void Unlock();

  sqlite3_file* file_ = nullptr;
  bool locked_ = false;
  bool complete_ = false;
  uint32_t pageSize_ = 0;
  uint8_t header_[100] = {};
  // The leaf being filled: its cells grow down from the page's end, their
  // pointers up from its header.
  std::vector<uint8_t> page_;
  uint32_t cells_ = 0;
  uint32_t contentStart_ = 0;
  long long lastRowid_ = 0;
  // The leaves written, in rowid order, and the page the next one takes.
  std::vector<Child> leaves_;
  uint32_t nextPage_ = 3;
};

}  // namespace corvalin
