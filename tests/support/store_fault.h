#pragma once

#include "store/store_error.h"

#include <optional>

namespace vellora::test {

// The fault with which an operation of the store fails; none when it succeeds.
template <typename Operation>
std::optional<StoreFault> faultOf(Operation operation) {
  try {
    operation();
  } catch (const StoreError& error) {
    return error.fault();
  }
  return {};
}

// The description that a user would read; empty when the operation succeeds.
template <typename Operation>
QString descriptionOf(Operation operation) {
  try {
    operation();
  } catch (const StoreError& error) {
    return error.description();
  }
  return {};
}

}  // namespace vellora::test
