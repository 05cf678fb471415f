#pragma once

#include <QString>

#include <deque>
#include <vector>

namespace vellora {

// Distinct texts, each kept once and counted, so that a cell needs four bytes for its text. A text
// goes when its last user releases it. A sheet and its copies share one pool, so they belong to one
// thread; only reading may happen elsewhere, while nobody writes.
class TextPool {
 public:
  using Id = quint32;
  static constexpr Id kEmpty = 0;

  const QString& text(Id id) const { return entries_[id].text; }
  // Each adds one use.
  Id take(const QString& text);
  void retain(Id id) { ++entries_[id].uses; }
  void release(Id id);

 private:
  struct Entry {
    QString text;
    quint32 hash = 0;
    quint32 uses = 0;
  };

  std::size_t slotOf(const QString& text, quint32 hash) const;
  Id add(const QString& text, quint32 hash);
  void rebuildSlots();

  std::deque<Entry> entries_ = std::deque<Entry>(1);
  std::vector<Id> free_;
  // Open addressing, a power of two, at most half full. A slot may be stale after a release; every
  // hit is compared with the text, so that this costs a probe and never a wrong answer.
  std::vector<Id> slots_;
  std::size_t filled_ = 0;
};

}  // namespace vellora
