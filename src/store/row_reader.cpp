#include "store/row_reader.h"

#include "store/connection.h"
#include "store/store_error.h"

namespace vellora {
namespace {

bool isSelect(QStringView text) {
  return text.size() > 6 && isSameName(text.first(6), u"SELECT") && !text[6].isLetterOrNumber();
}

Query selectOf(const Query& tableOrSelect) {
  if (isSelect(tableOrSelect.text())) return tableOrSelect;
  return QString(u"SELECT * FROM [" + QStringView(tableOrSelect.text()).trimmed() + u']');
}

}  // namespace

Cell RowReader::cellNamed(QStringView name) {
  return cell(columnNamed(name));
}

Cell RowReader::cellAt(int position) {
  columnAt(columns(), position);
  return cell(position);
}

QVariant RowReader::value(QStringView name) {
  return value(columnNamed(name));
}

QVariant RowReader::value(int position) {
  return cellValue(cellAt(position), columnKind(position));
}

QString RowReader::text(QStringView name) {
  return cellText(cellNamed(name));
}

QString RowReader::text(int position) {
  return cellText(cellAt(position));
}

QDate RowReader::date(QStringView name) {
  return cellDate(cellNamed(name));
}

QDate RowReader::date(int position) {
  return cellDate(cellAt(position));
}

QTime RowReader::time(QStringView name) {
  return cellTime(cellNamed(name));
}

qint64 RowReader::number(QStringView name) {
  return cellNumber(cellNamed(name));
}

qint64 RowReader::number(int position) {
  return cellNumber(cellAt(position));
}

int RowReader::columnCount() const {
  return static_cast<int>(columns().size());
}

QString RowReader::columnName(int position) const {
  return columnAt(columns(), position).name;
}

QString RowReader::shownName(int position) const {
  return columnAt(columns(), position).shownName;
}

ColumnKind RowReader::columnKind(int position) const {
  return columnAt(columns(), position).kind;
}

int RowReader::columnNamed(QStringView name) const {
  return static_cast<int>(columnPosition(columns(), name));
}

bool RowReader::canHold(int position, const QString& text) const {
  return vellora::canHold(columnAt(columns(), position), text);
}

OpenedSet::OpenedSet(Connection& database, const Query& tableOrSelect)
    : connection_(database),
      select_(selectOf(tableOrSelect)),
      set_(database.statements().translated(select_.text())) {
  set_->requireValues(select_);
}

PreparedStatement& OpenedSet::start() {
  if (set_->statement.isRunning()) set_ = connection_.statements().translated(select_.text());
  set_->bind(select_);
  return set_->statement;
}

Cell OpenedSet::cell(qsizetype column) const {
  return set_->statement.cell(set_->firstColumn() + static_cast<int>(column));
}

StoredRow OpenedSet::row() const {
  StoredRow row;
  if (!set_->table.isEmpty()) row.rowId = set_->statement.cell(0).integer;
  row.cells.reserve(set_->columns.size());
  for (qsizetype i = 0; i < set_->columns.size(); ++i) row.cells.append(owned(cell(i)));
  return row;
}

void OpenedSet::requireSameColumns() const {
  if (set_->statement.columnCount() == set_->firstColumn() + set_->columns.size()) return;
  throw StoreError(StoreFault::Other, u"日程文件的表结构已被另一个程序改变，请重新启动。"_qs);
}

struct RowCursor::State {
  enum class Place { BeforeFirst, OnRow, Over };

  State(Connection& database, const Query& tableOrSelect) : opened(database, tableOrSelect) {}
  ~State() { end(); }
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  void end() {
    if (statement != nullptr) statement->reset();
    statement = nullptr;
    place = Place::Over;
  }

  OpenedSet opened;
  PreparedStatement* statement = nullptr;  // while it runs
  Place place = Place::BeforeFirst;
};

RowCursor::RowCursor(Connection& database, const Query& tableOrSelect)
    : state_(std::make_unique<State>(database, tableOrSelect)) {}

RowCursor::RowCursor(RowCursor&&) noexcept = default;
RowCursor& RowCursor::operator=(RowCursor&&) noexcept = default;
RowCursor::~RowCursor() = default;

bool RowCursor::next() {
  if (state_->place == State::Place::Over) return false;
  if (state_->statement == nullptr) state_->statement = &state_->opened.start();
  state_->place = State::Place::Over;  // also when the step fails: the engine would start again
  if (!state_->statement->step()) {
    state_->end();
    return false;
  }
  state_->opened.requireSameColumns();
  state_->place = State::Place::OnRow;
  return true;
}

const QList<Column>& RowCursor::columns() const {
  return state_->opened.set().columns;
}

Cell RowCursor::cell(qsizetype column) {
  if (state_->place == State::Place::OnRow) return state_->opened.cell(column);
  throw StoreError(StoreFault::NoCurrentRow, u"没有当前记录。"_qs);
}

}  // namespace vellora
