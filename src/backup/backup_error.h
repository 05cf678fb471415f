#pragma once

#include <QString>

#include <stdexcept>

namespace vellora {

// Why a backup or a restore was refused; the numbers are shown to the user and stand apart from
// those of StoreFault.
class BackupError : public std::runtime_error {
 public:
  enum Number { kFile = 101, kNotABackup, kWrongColumns, kTextMissing, kUnfitValue, kDiffers };

  BackupError(Number number, const QString& description)
      : std::runtime_error(description.toStdString()), number_(number) {}

  int number() const { return number_; }
  QString description() const { return QString::fromUtf8(what()); }

 private:
  Number number_;
};

}  // namespace vellora
