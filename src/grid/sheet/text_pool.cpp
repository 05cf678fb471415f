#include "grid/sheet/text_pool.h"

#include <QHash>

#include <bit>

namespace vellora {

TextPool::Id TextPool::take(const QString& text) {
  if (text.isEmpty()) return kEmpty;
  if (filled_ * 2 >= slots_.size()) rebuildSlots();
  const auto hash = static_cast<quint32>(qHash(QStringView(text)));
  const std::size_t slot = slotOf(text, hash);
  if (slots_[slot] == kEmpty) {
    slots_[slot] = add(text, hash);
    ++filled_;
  }
  ++entries_[slots_[slot]].uses;
  return slots_[slot];
}

void TextPool::release(Id id) {
  if (id == kEmpty || --entries_[id].uses > 0) return;
  entries_[id].text = QString();
  free_.push_back(id);
}

// The slot that holds the text, or the free one where it belongs.
std::size_t TextPool::slotOf(const QString& text, quint32 hash) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = hash & mask;
  while (slots_[slot] != kEmpty) {
    const Entry& entry = entries_[slots_[slot]];
    if (entry.hash == hash && entry.text == text) break;
    slot = (slot + 1) & mask;
  }
  return slot;
}

TextPool::Id TextPool::add(const QString& text, quint32 hash) {
  if (free_.empty()) {
    entries_.push_back({text, hash, 0});
    return static_cast<Id>(entries_.size() - 1);
  }
  const Id id = free_.back();
  free_.pop_back();
  entries_[id] = {text, hash, 0};
  return id;
}

void TextPool::rebuildSlots() {
  const std::size_t live = entries_.size() - free_.size();
  slots_.assign(std::bit_ceil(live * 3 + 4), kEmpty);
  filled_ = live - 1;
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t id = 1; id < entries_.size(); ++id) {
    if (entries_[id].uses == 0) continue;
    std::size_t slot = entries_[id].hash & mask;
    while (slots_[slot] != kEmpty) slot = (slot + 1) & mask;
    slots_[slot] = static_cast<Id>(id);
  }
}

}  // namespace vellora
