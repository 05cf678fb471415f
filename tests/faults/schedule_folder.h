#pragma once

#include <QMap>
#include <QString>

namespace vellora::test {

// What a schedule's folder holds; the schedule's own journals are none of its content.
struct FolderContent {
  QMap<QString, QString> rows;   // by date and block for plan entries, else by all that is in them
  QMap<QString, QString> files;  // a hash of each other file

  friend bool operator==(const FolderContent&, const FolderContent&) = default;
};

// Opens the schedule as the program does at its start, which undoes an unfinished save. Throws
// StoreError when it does not open, std::runtime_error when the engine finds it damaged.
FolderContent contentOf(const QString& folder);

// Copies the files of one folder over those of another and removes all others there.
void copyFolder(const QString& from, const QString& to);

// All rows as they were or all as they should become, and each file for itself. `byEntry`: so is
// each row for itself.
bool isOldOrNew(const FolderContent& now, const FolderContent& before, const FolderContent& after,
                bool byEntry);

}  // namespace vellora::test
