#include "random_user/tables.h"

#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>

namespace vellora::test {
namespace {

constexpr const char* kTables[]{"HD", "SJ", "JH", "BW", "MM", "JM"};

}  // namespace

TableReader::TableReader(const QString& path)
    : database_(path.toStdString(), SQLite::OPEN_READONLY) {
  readChanges();
}

bool TableReader::readChanges() {
  try {
    const int version = database_.execAndGet("PRAGMA data_version").getInt();
    if (version == version_) return false;
    Tables read;
    for (const char* table : kTables) {
      const QString name = QString::fromLatin1(table);
      read[name] = rowsOf(name);
    }
    version_ = version;
    tables_ = read;
    return true;
  } catch (const SQLite::Exception&) {
    return false;  // locked: what is written meanwhile is seen afterwards
  }
}

Rows TableReader::rowsOf(const QString& table) {
  Rows rows;
  SQLite::Statement all(database_, "SELECT * FROM " + table.toStdString() + " ORDER BY rowid");
  while (all.executeStep()) {
    Row row;
    for (int col = 0; col < all.getColumnCount(); ++col) {
      row << QString::fromStdString(all.getColumn(col).getString());
    }
    rows << row;
  }
  return rows;
}

Rows missingFrom(const Rows& list, const Rows& other) {
  std::map<Row, int> left;
  for (const Row& row : other) ++left[row];
  Rows missing;
  for (const Row& row : list) {
    if (left[row]-- <= 0) missing << row;
  }
  return missing;
}

}  // namespace vellora::test
