// The load's inserts into the working table, run on a thread of their own:
// while the program reads and cuts the next lines, the lines before them go
// into tft. The two halves cost about the same, so a load takes about the
// time of the larger one instead of both.
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

class TableWriter {
 public:
  // The connection must outlive the writer: the load holds it while it
  // adds rows, and a connection it is handed to finishes it before it goes.
  explicit TableWriter(Connection& connection);
  // Stops the thread; rows not yet handed over by Finish are dropped.
  ~TableWriter();
  TableWriter(const TableWriter&) = delete;
  TableWriter& operator=(const TableWriter&) = delete;

  // Line lineNumber cut into count cells (cells[0] is column 1), inserted as
  // the table's row rowid (a fresh table numbers its rows from 1 in the order
  // they come); its other columns are empty and it is not excluded. The cells
  // are copied: the caller's may change at once. A failure of an earlier
  // insert is raised here.
  void Add(long long rowid, int16_t lineNumber, int count, const std::string_view* cells);
  // Waits until every row added is in the table; raises the first failure.
  void Finish();

 private:
  // Lines go over a block at a time: one statement inserts a whole block.
  static constexpr int kBlockRows = 64;
  // Blocks waiting at most, so that a fast reader does not run far ahead.
  static constexpr std::size_t kBlocksInFlight = 8;

  struct Block {
    std::string cells;               // every cell of the block, back to back
    std::vector<uint32_t> ends;      // per row, per cell of the row: its end in cells
    std::vector<long long> rowids;
    std::vector<int16_t> lineNumbers;
    std::vector<int16_t> counts;
    int widest = 0;                  // the most columns a line of the block has
    void Clear();
  };

  void Hand(std::unique_ptr<Block> block);
  void Work();
  void Insert(const Block& block);
  class Statements;

  std::unique_ptr<Block> filling_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::unique_ptr<Block>> waiting_;
  std::vector<std::unique_ptr<Block>> spare_;
  bool closing_ = false;
  bool busy_ = false;
  std::exception_ptr failure_;
  std::unique_ptr<Statements> statements_;
  std::thread thread_;
};

}  // namespace corvalin
