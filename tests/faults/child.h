#pragma once

#include <QString>

#include <functional>
#include <stdexcept>

namespace vellora::test {

// Whether the long runs are wanted: the same questions, asked more often.
bool isThorough();

// What a save reports that tells its failure instead of throwing it.
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// What becomes of work that may throw the errors that windows show.
enum Told { kDone, kRefused, kRefusedWithoutAReason, kOther, kDoneDespiteAnError };
Told toldBy(const std::function<void()>& work);

// Whether it is a sentence for the user.
bool isChinese(const QString& description);

// A copy of this process that does one thing and ends with its result, 0 to 127, running no
// destructor of what it copied. One that hangs is ended after two minutes.
int startChild(const std::function<int()>& work);
// Waits for the child's end: its result, or the negative signal that ended it.
int endOf(int child);

}  // namespace vellora::test
