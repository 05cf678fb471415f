#pragma once

#include <QDate>
#include <QString>

namespace vellora {

QString backupFileName(QDate day);  // 日程表备份2007-03-05.KTZ

// Folder and name as one path, with one separator between them also at a drive's root.
QString joinedPath(const QString& folder, const QString& name);

// The system's path that the user's text means: one that begins with `/` as it stands, any other as
// shell/drives.h tells. Throws FileError for a text that does not say where the file lies and for a
// drive that there cannot be.
QString systemPath(const QString& text, const QString& homeFolder);

}  // namespace vellora
