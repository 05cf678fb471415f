#pragma once

#include <QString>

#include <span>

namespace vellora {

struct SchemaColumn {
  const char* name;
  const char* type;       // as declared, with its default
  const char16_t* shown;  // as the windows head it
};

struct SchemaTable {
  const char* name;
  std::span<const SchemaColumn> columns;
  const char16_t* shown;
};

// The six tables of a schedule: HD, SJ, JH, BW, MM, JM.
std::span<const SchemaTable> schemaTables();

// What the user knows a table or a column by; its own name where the planner does not show it.
QString shownTable(const QString& table);
QString shownColumn(const QString& table, const QString& column);

}  // namespace vellora
