#pragma once

#include <QString>

#include <vector>

namespace vellora {

// Distinct texts, each kept once and counted, so that a cell needs two bytes for its text. A text
// goes when its last user releases it.
class TextPool {
 public:
  using Id = quint16;
  static constexpr Id kEmpty = 0;

  const QString& text(Id id) const { return entries_[id].text; }
  // Adds one use. At most 65,534 texts fit; callers hold far fewer (two for each row of a block).
  Id take(const QString& text);
  void release(Id id);

 private:
  struct Entry {
    QString text;
    quint32 uses = 0;
  };

  std::size_t slotOf(const QString& text) const;
  Id add(const QString& text);
  void rebuildSlots();

  std::vector<Entry> entries_ = std::vector<Entry>(1);
  std::vector<Id> free_;
  // Open addressing, a power of two, at most half full. A slot may be stale after a release; every
  // hit is compared with the text, so that this costs a probe and never a wrong answer.
  std::vector<Id> slots_;
  std::size_t filled_ = 0;
};

}  // namespace vellora
