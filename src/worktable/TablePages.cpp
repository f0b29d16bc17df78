#include "worktable/TablePages.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "input/ColumnFormat.h"
#include "shell/Error.h"
#include "shell/Failure.h"

namespace corvalin {

namespace {

constexpr const char* kSource = "CreateColumnsTable";

// Where the file and its pages keep what the load needs (all numbers big-endian).
constexpr std::size_t kChangeCounter = 24;
constexpr std::size_t kPageCount = 28;
constexpr std::size_t kFreelistTrunk = 32;
constexpr std::size_t kFreelistCount = 36;
constexpr std::size_t kLargestRootPage = 52;
constexpr std::size_t kTextEncoding = 56;
constexpr std::size_t kVersionValidFor = 92;
constexpr std::size_t kWriterVersion = 96;
constexpr uint8_t kLeafTablePage = 0x0D;
constexpr uint8_t kInteriorTablePage = 0x05;
constexpr uint32_t kLeafHeader = 8;
constexpr uint32_t kInteriorHeader = 12;

// The record of a row: a byte for the size of its header, a serial type for
// LineNum, at most two bytes for each cell's, one for Excluded's.
constexpr int kLongestRecordHeader = 1 + 1 + 2 * kMaxColumns + 1;
// The longest row: LineNum in two bytes, every cell 255 bytes, "N". A row
// must fit whole in a leaf (SQLite keeps at most the usable size less 35
// bytes of a row in its page); the smallest page that takes it is 8 KB.
constexpr uint32_t kLongestRecord = kLongestRecordHeader + 2 + kMaxColumns * 255 + 1;
constexpr uint32_t kSmallestPage = 8192;
static_assert(kLongestRecord + 35 <= kSmallestPage);
// An interior cell: its pointer, the child's page and its last rowid.
constexpr uint32_t kLongestInteriorCell = 2 + 4 + 9;

// The names and declared types of tft's columns, as the empty database makes them.
std::string ExpectedColumns() {
  std::string columns = "LineNum INTEGER";
  for (int n = 1; n <= kMaxColumns; ++n) columns += ",c" + std::to_string(n) + " TEXT";
  return columns + ",Excluded TEXT";
}

uint32_t Get32(const uint8_t* p) {
  return (uint32_t{p[0]} << 24) | (uint32_t{p[1]} << 16) | (uint32_t{p[2]} << 8) | uint32_t{p[3]};
}
uint32_t Get16(const uint8_t* p) { return (uint32_t{p[0]} << 8) | uint32_t{p[1]}; }
void Put32(uint8_t* p, uint32_t v) {
  p[0] = static_cast<uint8_t>(v >> 24);
  p[1] = static_cast<uint8_t>(v >> 16);
  p[2] = static_cast<uint8_t>(v >> 8);
  p[3] = static_cast<uint8_t>(v);
}
// A two-byte offset in a page; the end of a 64 KB page is written 0.
void Put16(uint8_t* p, uint32_t v) {
  p[0] = static_cast<uint8_t>(v >> 8);
  p[1] = static_cast<uint8_t>(v);
}

// SQLite's variable-length integers: seven bits a byte, the high bit set on
// every byte but the last, and a ninth byte of eight bits.
int VarintLength(uint64_t v) {
  int length = 1;
  while (v > 0x7f && length < 9) {
    v >>= 7;
    ++length;
  }
  return length;
}

int PutVarint(uint8_t* p, uint64_t v) {
  if (v <= 0x7f) {
    p[0] = static_cast<uint8_t>(v);
    return 1;
  }
  if (v <= 0x3fff) {
    p[0] = static_cast<uint8_t>(0x80 | (v >> 7));
    p[1] = static_cast<uint8_t>(v & 0x7f);
    return 2;
  }
  if ((v >> 56) != 0) {
    p[8] = static_cast<uint8_t>(v);
    v >>= 8;
    for (int i = 7; i >= 0; --i) {
      p[i] = static_cast<uint8_t>((v & 0x7f) | 0x80);
      v >>= 7;
    }
    return 9;
  }
  uint8_t reversed[9];
  int n = 0;
  do {
    reversed[n++] = static_cast<uint8_t>((v & 0x7f) | 0x80);
    v >>= 7;
  } while (v != 0);
  reversed[0] &= 0x7f;
  for (int i = 0; i < n; ++i) p[i] = reversed[n - 1 - i];
  return n;
}

// A failure of SQLite's file methods, as the store's error.
void Check(int rc) {
  if (rc != SQLITE_OK) throw RuntimeError(err::DatabaseError, kSource, sqlite3_errstr(rc));
}

[[noreturn]] void NotFresh(const std::string& what) {
  throw RuntimeError(err::DatabaseError, kSource, "tft is not the fresh table of the empty working database: " + what);
}

// The one text or number a statement gives, or what a statement that gives
// nothing leaves.
std::string Single(sqlite3* db, const char* sql) {
  sqlite3_stmt* statement = nullptr;
  std::string value;
  if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) == SQLITE_OK && sqlite3_step(statement) == SQLITE_ROW) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
    if (text != nullptr) value = text;
  }
  sqlite3_finalize(statement);
  return value;
}

std::string DeclaredColumns(sqlite3* db) {
  sqlite3_stmt* statement = nullptr;
  std::string columns;
  if (sqlite3_prepare_v2(db, "PRAGMA table_info(tft)", -1, &statement, nullptr) == SQLITE_OK) {
    while (sqlite3_step(statement) == SQLITE_ROW) {
      if (!columns.empty()) columns += ",";
      columns += reinterpret_cast<const char*>(sqlite3_column_text(statement, 1));
      columns += " ";
      columns += reinterpret_cast<const char*>(sqlite3_column_text(statement, 2));
    }
  }
  sqlite3_finalize(statement);
  return columns;
}

// What the schema says: tft alone in the file, rooted on the second page,
// with the columns the load fills. An index or a trigger would have to be
// kept up by the load as well.
void CheckSchema(sqlite3* db) {
  if (Single(db, "SELECT count(*) FROM sqlite_master") != "1" ||
      Single(db, "SELECT rootpage FROM sqlite_master WHERE type='table' AND name='tft'") != "2")
    NotFresh("the file holds more than tft, rooted on its second page");
  if (DeclaredColumns(db) != ExpectedColumns()) NotFresh("its columns are not LineNum, c1 to c30 and Excluded");
}

}  // namespace

TablePages::TablePages(sqlite3* db) {
  CheckSchema(db);
  if (sqlite3_file_control(db, "main", SQLITE_FCNTL_FILE_POINTER, &file_) != SQLITE_OK || file_ == nullptr ||
      file_->pMethods == nullptr)
    NotFresh("the file is not open");
  try {
    LockAndCheckFile();
  } catch (...) {
    Unlock();
    throw;
  }
  page_.resize(pageSize_);
  StartLeaf();
}

// The lock every connection takes to read, then the one to write: nobody
// reads the table while it is built, nor writes the file under it. What the
// file's header and the table's root page say is read under the first.
void TablePages::LockAndCheckFile() {
  Check(file_->pMethods->xLock(file_, SQLITE_LOCK_SHARED));
  locked_ = true;
  Check(file_->pMethods->xRead(file_, header_, sizeof header_, 0));
  const uint32_t size = Get16(header_ + 16);
  pageSize_ = size == 1 ? 65536 : size;
  if (std::memcmp(header_, "SQLite format 3", 16) != 0 || header_[18] != 1 || header_[19] != 1)
    NotFresh("the file is not a database of rollback journals");
  if (header_[20] != 0) NotFresh("its pages reserve bytes at their end");
  if (pageSize_ < kSmallestPage) NotFresh("its pages of " + std::to_string(pageSize_) + " bytes cannot hold the longest row");
  if (Get32(header_ + kPageCount) != 2 || Get32(header_ + kChangeCounter) != Get32(header_ + kVersionValidFor))
    NotFresh("the file is not two pages long");
  if (Get32(header_ + kFreelistTrunk) != 0 || Get32(header_ + kFreelistCount) != 0 ||
      Get32(header_ + kLargestRootPage) != 0 || Get32(header_ + kTextEncoding) != 1)
    NotFresh("the file has free pages, keeps pages for vacuuming or stores text other than UTF-8");
  uint8_t root[kLeafHeader] = {};
  Check(file_->pMethods->xRead(file_, root, sizeof root, pageSize_));
  if (root[0] != kLeafTablePage || Get16(root + 3) != 0) NotFresh("it is not empty");
  Check(file_->pMethods->xLock(file_, SQLITE_LOCK_RESERVED));
  Check(file_->pMethods->xLock(file_, SQLITE_LOCK_EXCLUSIVE));
}

TablePages::~TablePages() { Unlock(); }

void TablePages::Unlock() {
  if (locked_) file_->pMethods->xUnlock(file_, SQLITE_LOCK_NONE);
  locked_ = false;
}

void TablePages::Write(uint32_t page, const uint8_t* bytes, std::size_t size) {
  Check(file_->pMethods->xWrite(file_, bytes, static_cast<int>(size), static_cast<sqlite3_int64>(page - 1) * pageSize_));
}

void TablePages::StartLeaf() {
  cells_ = 0;
  contentStart_ = pageSize_;
}

void TablePages::Append(long long rowid, int16_t lineNumber, int count, const char* text, const uint32_t* ends) {
  Assert(!complete_ && count >= 0 && count <= kMaxColumns);
  if (rowid != lastRowid_ + 1)
    throw RuntimeError(err::DatabaseError, kSource,
                       "row " + std::to_string(lastRowid_ + 1) + " of tft was expected as row " + std::to_string(rowid));
  // The record's header: its own size, then each column's serial type. A
  // number in one byte is type 1, in two type 2; a text of n bytes 2n + 13.
  uint8_t header[kLongestRecordHeader];
  int used = 1;
  const bool oneByte = lineNumber >= -128 && lineNumber <= 127;
  header[used++] = oneByte ? 1 : 2;
  uint32_t textBytes = 0;
  for (int n = 0; n < count; ++n) {
    const uint32_t length = ends[n] - textBytes;
    // A cell of the table holds at most 255 bytes: the record's header and
    // the page have room for 30 of them.
    Assert(length <= UINT8_MAX);
    used += PutVarint(header + used, 2 * uint64_t{length} + 13);
    textBytes = ends[n];
  }
  std::memset(header + used, 13, static_cast<std::size_t>(kMaxColumns - count));
  used += kMaxColumns - count;
  header[used++] = 15;
  header[0] = static_cast<uint8_t>(used);
  const uint32_t payload = static_cast<uint32_t>(used) + (oneByte ? 1 : 2) + textBytes + 1;
  const uint32_t cell =
      static_cast<uint32_t>(VarintLength(payload) + VarintLength(static_cast<uint64_t>(rowid))) + payload;

  if (contentStart_ < kLeafHeader + 2 * (cells_ + 1) + cell) {
    WriteLeaf(nextPage_++);
    StartLeaf();
  }
  contentStart_ -= cell;
  uint8_t* p = page_.data() + contentStart_;
  p += PutVarint(p, payload);
  p += PutVarint(p, static_cast<uint64_t>(rowid));
  std::memcpy(p, header, static_cast<std::size_t>(used));
  p += used;
  const auto number = static_cast<uint16_t>(lineNumber);
  if (!oneByte) *p++ = static_cast<uint8_t>(number >> 8);
  *p++ = static_cast<uint8_t>(number);
  std::memcpy(p, text, textBytes);
  p[textBytes] = 'N';
  Put16(page_.data() + kLeafHeader + 2 * cells_, contentStart_);
  ++cells_;
  lastRowid_ = rowid;
}

// The leaf filled so far, as page number.
void TablePages::WriteLeaf(uint32_t number) {
  uint8_t* page = page_.data();
  const uint32_t pointersEnd = kLeafHeader + 2 * cells_;
  page[0] = kLeafTablePage;
  Put16(page + 1, 0);
  Put16(page + 3, cells_);
  Put16(page + 5, contentStart_);
  page[7] = 0;
  std::memset(page + pointersEnd, 0, contentStart_ - pointersEnd);
  Write(number, page, pageSize_);
  leaves_.push_back(Child{number, lastRowid_});
}

void TablePages::WriteInterior(uint32_t number, const Child* children, std::size_t count) {
  uint8_t* page = page_.data();
  const auto cells = static_cast<uint32_t>(count - 1);
  uint32_t content = pageSize_;
  for (uint32_t i = 0; i < cells; ++i) {
    content -= 4 + static_cast<uint32_t>(VarintLength(static_cast<uint64_t>(children[i].lastRowid)));
    Put32(page + content, children[i].page);
    PutVarint(page + content + 4, static_cast<uint64_t>(children[i].lastRowid));
    Put16(page + kInteriorHeader + 2 * i, content);
  }
  page[0] = kInteriorTablePage;
  Put16(page + 1, 0);
  Put16(page + 3, cells);
  Put16(page + 5, content);
  page[7] = 0;
  Put32(page + 8, children[count - 1].page);
  const uint32_t pointersEnd = kInteriorHeader + 2 * cells;
  std::memset(page + pointersEnd, 0, content - pointersEnd);
  Write(number, page, pageSize_);
}

void TablePages::Complete() {
  if (complete_) return;
  if (lastRowid_ == 0) {
    // No row: the table stays as it was.
    complete_ = true;
    Unlock();
    return;
  }
  // A single leaf is the table's root; more leaves hang under interior pages,
  // the last of them the root. Each interior page takes as many children as
  // the longest cells leave room for, the children shared evenly between the
  // pages of a level.
  const bool onlyLeaf = leaves_.empty();
  complete_ = true;
  WriteLeaf(onlyLeaf ? 2 : nextPage_++);
  if (!onlyLeaf) {
    const std::size_t perPage = (pageSize_ - kInteriorHeader) / kLongestInteriorCell + 1;
    std::vector<Child> level = leaves_;
    while (level.size() > perPage) {
      const std::size_t pages = (level.size() + perPage - 1) / perPage;
      std::vector<Child> above;
      for (std::size_t k = 0; k < pages; ++k) {
        const std::size_t begin = level.size() * k / pages;
        const std::size_t end = level.size() * (k + 1) / pages;
        WriteInterior(nextPage_, level.data() + begin, end - begin);
        above.push_back(Child{nextPage_++, level[end - 1].lastRowid});
      }
      level = std::move(above);
    }
    WriteInterior(2, level.data(), level.size());
  }
  // The header last: its page count and its change counter make the pages
  // the table's, and tell every connection that its cached pages are stale.
  const uint32_t changes = Get32(header_ + kChangeCounter) + 1;
  Put32(header_ + kChangeCounter, changes);
  Put32(header_ + kPageCount, onlyLeaf ? 2 : nextPage_ - 1);
  Put32(header_ + kVersionValidFor, changes);
  Put32(header_ + kWriterVersion, static_cast<uint32_t>(sqlite3_libversion_number()));
  Write(1, header_, sizeof header_);
  Unlock();
}

}  // namespace corvalin
