#pragma once

#include <QString>

namespace vellora {

// Full-width characters as their ASCII counterparts.
QString narrowed(QStringView text);

// The number formed by a text's leading digits, full-width ones too, with decimals if a point and
// digits follow; 0 when the text does not start with a digit. "3x" is 3, "x" is 0, "2.5级" is 2.5.
// Never infinite: more digits than a double holds give the largest one.
double numericValue(QStringView text);

// Shortest text that reads back as the same number: no thousands separators, no trailing zeros.
QString numberText(double number);

// Rounded to the nearest whole number, a half to the even neighbour.
double roundHalfEven(double number);

}  // namespace vellora
