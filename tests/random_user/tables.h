#pragma once

#include <QStringList>

#include <SQLiteCpp/Database.h>
#include <map>

namespace vellora::test {

// The columns of one stored row as texts.
using Row = QStringList;
using Rows = QList<Row>;
// By table name, each in the order of its rows.
using Tables = std::map<QString, Rows>;

// Reads a schedule past the program, on a connection of its own.
class TableReader {
 public:
  explicit TableReader(const QString& path);

  const Tables& tables() const { return tables_; }
  // Reads again; true when anything was written since the last time. Does nothing while another
  // program keeps the file locked.
  bool readChanges();

 private:
  Rows rowsOf(const QString& table);

  SQLite::Database database_;
  int version_ = -1;
  Tables tables_;
};

// The rows of one list that are not in the other one, each as often as it is missing.
Rows missingFrom(const Rows& list, const Rows& other);

}  // namespace vellora::test
