// The load's inserts into the working table, run on a thread of their own:
// while the program reads and cuts the next lines, the lines before them go
// into tft. A load takes about the time of the larger half (the inserts,
// for a file of many columns) instead of both.
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
  // What holds the cells of the rows (the load's image of the table) is
  // kept alive as long as the writer may read them.
  TableWriter(Connection& connection, std::shared_ptr<const void> cellsOwner);
  // Stops the thread; rows not yet handed over by Finish are dropped.
  ~TableWriter();
  TableWriter(const TableWriter&) = delete;
  TableWriter& operator=(const TableWriter&) = delete;

  // Line lineNumber cut into count cells, inserted as the table's row rowid
  // (a fresh table numbers its rows from 1 in the order they come); its
  // other columns are empty and it is not excluded. The cells are not
  // copied: they lie back to back from stored, cells[n] giving the length of
  // column n + 1 (at most 255), and must stay there, unchanged, until Finish
  // has come back. A failure of an earlier insert is raised here.
  void Add(long long rowid, int16_t lineNumber, int count, const char* stored, const std::string_view* cells);
  // Waits until every row added is in the table; raises the first failure.
  void Finish();

 private:
  // Lines go over a block at a time, and one statement inserts a group of
  // them: few hand-overs between the threads, few statements to step.
  static constexpr int kGroupRows = 64;
  static constexpr int kBlockRows = 4 * kGroupRows;
  // Blocks waiting at most, so that a fast reader does not run far ahead.
  static constexpr std::size_t kBlocksInFlight = 4;

  struct Row {
    const char* stored;  // column 1's text, the others after it
    long long rowid;
    int16_t lineNumber;
    int16_t count;
    uint32_t firstLength;  // where the row's lengths start in lengths
  };
  struct Block {
    std::vector<Row> rows;
    std::vector<uint8_t> lengths;  // per row, per cell of the row
    void Clear();
  };

  void Hand(std::unique_ptr<Block> block);
  void Work();
  void Insert(const Block& block);
  void InsertGroup(const Block& block, std::size_t first, int rows, int width);
  class Statements;

  std::unique_ptr<Block> filling_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::unique_ptr<Block>> waiting_;
  std::vector<std::unique_ptr<Block>> spare_;
  bool closing_ = false;
  bool busy_ = false;
  std::exception_ptr failure_;
  std::shared_ptr<const void> cellsOwner_;
  std::unique_ptr<Statements> statements_;
  std::thread thread_;
};

}  // namespace corvalin
