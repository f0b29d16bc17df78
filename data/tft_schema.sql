-- The working table: one row per input line. LineNum is the input line
-- number; c1..c30 the cells as text (the empty string allowed); Excluded is
-- "N" or "Y".
--
-- Large pages: a load appends some ten megabytes of rows in one go, and each
-- page filled is one more round of the store's page bookkeeping and one more
-- write to the file.
PRAGMA page_size = 65536;
CREATE TABLE tft (
  LineNum INTEGER,
  c1 TEXT, c2 TEXT, c3 TEXT, c4 TEXT, c5 TEXT, c6 TEXT, c7 TEXT, c8 TEXT, c9 TEXT, c10 TEXT,
  c11 TEXT, c12 TEXT, c13 TEXT, c14 TEXT, c15 TEXT, c16 TEXT, c17 TEXT, c18 TEXT, c19 TEXT, c20 TEXT,
  c21 TEXT, c22 TEXT, c23 TEXT, c24 TEXT, c25 TEXT, c26 TEXT, c27 TEXT, c28 TEXT, c29 TEXT, c30 TEXT,
  Excluded TEXT
);
