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
  std::string sql;                  // the select the rows come from
  bool fetched = false;
  std::string table;                // the table the rows come from
  std::vector<std::string> fields;  // in select order
  std::vector<Row> rows;

  // Runs the select at the first look at the rows. The program often asks for
  // a fresh row set and replaces it before reading it (each opening of the
  // database makes one); fetching on first use spares those the cost.
  void Ensure(Connection& connection);

  // Writes the row's changed fields to the table and clears their marks.
  void WriteThrough(Connection& connection, Row& row);
};

// A row set's rows for a select, fetched on first use. A "select * from t ..."
// also fetches each row's id, which makes its rows updatable. The statement is
// checked at once, so a bad select fails where it is asked for.
std::shared_ptr<RowStore> FetchRows(Connection& connection, const std::string& sql);

}  // namespace corvalin
