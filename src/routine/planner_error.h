#pragma once

#include <QString>

#include <stdexcept>

namespace vellora {

// Why something failed, as the user is told: one plain Chinese sentence, and a number where a
// window shows one. Every failure that a window reports derives from it.
class PlannerError : public std::runtime_error {
 public:
  PlannerError(int number, const QString& description)
      : std::runtime_error(description.toStdString()), number_(number) {}

  int number() const { return number_; }
  QString description() const { return QString::fromUtf8(what()); }

 private:
  int number_;
};

}  // namespace vellora
