// Build step: makes the pristine empty working database from the schema in
// the source tree. The program only ever copies the result.
#include <sqlite3.h>

#include <cstdio>
#include <fstream>
#include <sstream>

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: make_empty_tft schema.sql EmptyTFT.mdb\n");
    return 2;
  }
  std::ifstream in(argv[1]);
  std::stringstream schema;
  schema << in.rdbuf();
  std::remove(argv[2]);
  sqlite3* db = nullptr;
  if (sqlite3_open(argv[2], &db) != SQLITE_OK) {
    std::fprintf(stderr, "cannot create %s\n", argv[2]);
    return 1;
  }
  char* message = nullptr;
  const int rc = sqlite3_exec(db, schema.str().c_str(), nullptr, nullptr, &message);
  if (rc != SQLITE_OK) std::fprintf(stderr, "schema: %s\n", message ? message : "?");
  sqlite3_free(message);
  sqlite3_close(db);
  return rc == SQLITE_OK ? 0 : 1;
}
