#pragma once

#include "grid/files/file_error.h"

namespace vellora::test {

// What the user is told when the action fails; "" when it does not.
template <typename Action>
QString messageOf(Action action) {
  try {
    action();
  } catch (const FileError& error) {
    return error.description();
  }
  return {};
}

}  // namespace vellora::test
