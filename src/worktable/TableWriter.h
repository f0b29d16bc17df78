// The load's rows laid into the pages of tft on a thread of their own: while
// the program reads and cuts the next lines, the lines before them go into
// the table. A load takes about the time of the larger half (reading and
// cutting) instead of both.
//
// While a writer lives, the connection is its alone: nothing else may use
// the working database until Finish has come back (FinishWrites of
// Connection.h waits for it before any use).
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace corvalin {

struct Connection;
class TablePages;

class TableWriter {
 public:
  // The connection must outlive the writer: the load holds it while it
  // adds rows, and a connection it is handed to finishes it before it goes.
  // What holds the cells of the rows (the load's image of the table) is
  // kept alive as long as the writer may read them. Raises a database error
  // when tft is not the fresh table of the empty database (TablePages.h).
  TableWriter(Connection& connection, std::shared_ptr<const void> cellsOwner);
  // Stops the thread; the rows of a writer not finished are dropped, and
  // the table stays empty.
  ~TableWriter();
  TableWriter(const TableWriter&) = delete;
  TableWriter& operator=(const TableWriter&) = delete;

  // Line lineNumber cut into count cells, inserted as the table's row rowid
  // (a fresh table numbers its rows from 1 in the order they come); its
  // other columns are empty and it is not excluded. The cells are not
  // copied here: they lie back to back from stored, column n + 1 ending
  // ends[n] bytes after it (none longer than 255), and must stay there,
  // unchanged, until Drain or Finish has come back. A failure of an earlier
  // row is raised here.
  void Add(long long rowid, int16_t lineNumber, int count, const char* stored, const uint32_t* ends);
  // Waits until the writer has taken every row added out of where its
  // cells lie; raises the first failure. Rows may be added after it.
  void Drain();
  // Waits until every row added is in the table and the table is whole;
  // raises the first failure. No row may be added after it.
  void Finish();

 private:
  // Lines go over a block at a time: few hand-overs between the threads.
  static constexpr int kBlockRows = 256;
  // Blocks waiting at most, so that a fast reader does not run far ahead.
  static constexpr std::size_t kBlocksInFlight = 4;

  struct Row {
    const char* stored;  // column 1's text, the others after it
    long long rowid;
    int16_t lineNumber;
    int16_t count;
    uint32_t firstEnd;  // where the row's cell ends start in ends
  };
  struct Block {
    std::vector<Row> rows;
    std::vector<uint32_t> ends;  // per row, where each cell of the row ends
    void Clear();
  };

  void Hand(std::unique_ptr<Block> block);
  void Work();
  void Insert(const Block& block);

  std::unique_ptr<Block> filling_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::unique_ptr<Block>> waiting_;
  std::vector<std::unique_ptr<Block>> spare_;
  bool closing_ = false;
  bool busy_ = false;
  std::exception_ptr failure_;
  std::shared_ptr<const void> cellsOwner_;
  std::unique_ptr<TablePages> pages_;
  std::thread thread_;
};

}  // namespace corvalin
