#pragma once

namespace vellora {

// What a column holds, told by its declared type: BOOLEAN, SMALLINT, INTEGER, DATETIME,
// VARCHAR(255), LONGTEXT, and anything else.
enum class ColumnKind { YesNo, Int16, Int32, DateTime, Text, LongText, Other };

}  // namespace vellora
