// The rows of a select, held in memory and shared by a row set and its
// clones; each row keeps its table row id, so an edit can be written back.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvalin {

struct Connection;

struct Row {
  long long rowid = 0;
  std::vector<std::string> cells;
  std::vector<bool> isNull;
  std::vector<bool> dirty;
};

struct RowStore {
  std::string table;                // the table the rows come from
  std::vector<std::string> fields;  // in select order
  std::vector<Row> rows;

  // Writes the row's changed fields to the table and clears their marks.
  void WriteThrough(Connection& connection, Row& row);
};

// Runs a select and holds all its rows. A "select * from t ..." also fetches
// each row's id, which makes its rows updatable.
std::shared_ptr<RowStore> FetchRows(Connection& connection, const std::string& sql);

}  // namespace corvalin
