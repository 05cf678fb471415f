#pragma once

#include <QHash>
#include <QString>

#include <deque>

namespace vellora {

// Distinct texts, each kept once, so that a cell needs four bytes for its text. They stay as long
// as the pool: a sheet begins a new one when its last row goes. A sheet and its copies share one
// pool, so they belong to one thread; only reading may happen elsewhere, while nobody writes.
class TextPool {
 public:
  using Id = quint32;  // 0: no text

  const QString& text(Id id) const { return texts_[id]; }
  Id idOf(const QString& text) {
    if (text.isEmpty()) return 0;
    Id& id = ids_[text];
    if (id == 0) {
      id = static_cast<Id>(texts_.size());
      texts_.push_back(text);
    }
    return id;
  }

 private:
  std::deque<QString> texts_ = std::deque<QString>(1);  // does not move what text() refers to
  QHash<QString, Id> ids_;
};

}  // namespace vellora
