#pragma once

#include <QString>

#include <vector>

namespace vellora {

// What a save would do, compared with what was read.
struct Changes {
  struct Row {
    int row;
    QString why;          // what keeps a save from storing the row; empty when one stores it
    bool isTyped = true;  // false for a row that only tells something
  };
  std::vector<Row> rows;  // of the grid, in ascending order
  int missing = 0;        // saved entries that are shown no more
  QString other;          // a change that is told in words of its own
  QString note;           // something to know that is no change

  // Whether closing would lose something.
  bool any() const;
  // All of it in one line for the user; empty when there is nothing to tell.
  QString text() const;
};

}  // namespace vellora
