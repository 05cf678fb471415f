#pragma once

#include <QMap>
#include <QStringList>

namespace vellora::test {

// What a schedule's folder holds: the rows of every table in a fixed order, and the bytes of every
// other file. The schedule's own journals are none of its content.
struct FolderContent {
  QStringList rows;
  QMap<QString, QByteArray> files;

  friend bool operator==(const FolderContent&, const FolderContent&) = default;
};

// Opens the schedule as the program does at its start, which undoes an unfinished save. Throws
// StoreError when it does not open, std::runtime_error when the engine finds it damaged.
FolderContent contentOf(const QString& folder);

// Copies the files of one folder over those of another and removes all others there.
void copyFolder(const QString& from, const QString& to);

// All rows as they were or all as they should become, and so each file for itself. `byEntry`: each
// plan entry may be either for itself; none is missing that both have.
bool isOldOrNew(const FolderContent& now, const FolderContent& before, const FolderContent& after,
                bool byEntry);

}  // namespace vellora::test
