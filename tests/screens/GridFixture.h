// The working table of TableFixture with the grid screen loaded over it.
#pragma once

#include "TableFixture.h"
#include "screens/Application.h"
#include "screens/frmHeaders.h"
#include "screens/frmTemplate.h"

namespace corvalin::testing {

class GridFixture : public TableFixture {
 protected:
  using TableFixture::BookmarkOfLine;

  // The bookmark of a line's row in the grid's row set.
  static Recordset::Bookmark BookmarkOfLine(frmHeaders& headers, int line) {
    return BookmarkOfLine(headers.Adodc1.Recordset, line);
  }

  // Loads frmHeaders over the table (its load steps only). The first screen
  // is loaded before it, as in the program, whose own load would otherwise
  // unload the grid screen while it loads.
  static frmHeaders& LoadHeaders() {
    App().Template();
    return App().Headers();
  }
};

}  // namespace corvalin::testing
