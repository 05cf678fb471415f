#include "editors/item_states.h"

#include <gtest/gtest.h>

namespace vellora {
namespace {

constexpr auto kBrowsing = ItemMode::Browsing;
constexpr auto kAdding = ItemMode::Adding;
constexpr auto kEditing = ItemMode::Editing;

}  // namespace

TEST(ItemStates, FollowTheTableOfEvents) {
  struct Transition {
    ItemMode from;
    ItemEvent event;
    bool emptyCatalogue;
    ItemMode to;
  };
  constexpr Transition kTable[]{
      {kBrowsing, ItemEvent::FieldsChanged, false, kEditing},
      {kEditing, ItemEvent::FieldsChanged, false, kEditing},
      {kAdding, ItemEvent::FieldsChanged, false, kAdding},
      {kBrowsing, ItemEvent::FieldsChanged, true, kBrowsing},
      {kEditing, ItemEvent::FieldsChanged, true, kBrowsing},
      {kAdding, ItemEvent::FieldsChanged, true, kAdding},
      {kBrowsing, ItemEvent::NewStarted, false, kAdding},
      {kBrowsing, ItemEvent::NewStarted, true, kAdding},
      {kAdding, ItemEvent::EditEnded, true, kBrowsing},
      {kEditing, ItemEvent::EditEnded, false, kBrowsing},
      {kBrowsing, ItemEvent::EditEnded, false, kBrowsing},
  };
  for (const auto& [from, event, empty, to] : kTable) {
    EXPECT_EQ(nextMode(from, event, empty), to)
        << static_cast<int>(from) << ", " << static_cast<int>(event) << ", " << empty;
  }
}

TEST(ItemStates, AllowDeletingOnlyAnItemThatIsNotBeingEdited) {
  EXPECT_EQ(buttonsIn(kBrowsing, true), (ItemButtons{false, true, true}));
  EXPECT_EQ(buttonsIn(kBrowsing, false), (ItemButtons{false, true, false}));
  EXPECT_EQ(buttonsIn(kEditing, true), (ItemButtons{true, false, false}));
  EXPECT_EQ(buttonsIn(kAdding, false), (ItemButtons{true, false, false}));
}

TEST(ItemStates, DecideWhatStoringDoesWithTheFields) {
  const Item whole{u"001"_qs, u"晨读"_qs, u"2-学习"_qs};
  const Item noName{u"001"_qs, QString(), u"2-学习"_qs};
  const Item noCode{QString(), u"晨读"_qs, u"2-学习"_qs};
  const Item noCategory{u"001"_qs, u"晨读"_qs, u"学习"_qs};
  struct Case {
    const Item& item;
    bool adding;
    bool rowIsNew;
    bool found;
    StoreStep step;
  };
  const Case cases[]{
      {whole, true, true, false, StoreStep::Add},
      {whole, true, true, true, StoreStep::CodeTaken},
      {whole, false, false, true, StoreStep::Change},
      {whole, false, false, false, StoreStep::CodeUnknown},
      // A row that was left empty by a cancelled edit.
      {whole, false, true, false, StoreStep::CodeUnknown},
      {whole, false, true, true, StoreStep::CodeTaken},
      {noName, true, true, true, StoreStep::Incomplete},
      {noCode, true, true, false, StoreStep::Incomplete},
      {noCategory, true, true, false, StoreStep::NoCategory},
      {noCategory, true, true, true, StoreStep::CodeTaken},
      {noCategory, false, false, true, StoreStep::NoCategory},
  };
  for (const auto& [item, adding, rowIsNew, found, step] : cases) {
    EXPECT_EQ(storeStep(item, adding, rowIsNew, found), step)
        << item.code.toStdString() << adding << rowIsNew << found;
  }
}

}  // namespace vellora
