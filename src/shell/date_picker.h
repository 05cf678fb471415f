#pragma once

class QDateEdit;
class QString;
class QWidget;

namespace vellora {

// A field for a date, typed as year-month-day or picked from a calendar, that is bounded so that
// the seven days from any date in it still have four-digit years.
QDateEdit* makeDatePicker(const QString& objectName, const QString& accessibleName,
                          QWidget* parent);

}  // namespace vellora
