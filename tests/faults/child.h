#pragma once

#include <QString>

#include <functional>

namespace vellora::test {

// Whether the long runs are wanted: the same questions, asked more often.
bool isThorough();

// How work ends that may throw the errors that windows show. What says nothing to the user, in
// Chinese, is unexpected.
enum Outcome { kDone, kRefused, kCancelled, kUnexpected };
Outcome outcomeOf(const std::function<void()>& work);

// Whether it is a sentence for the user.
bool isChinese(const QString& description);

// A copy of this process that does one thing and ends with its result, 0 to 127, running no
// destructor of what it copied. One that hangs is ended after two minutes.
int startChild(const std::function<int()>& work);
// Waits for the child's end: its result, or the negative signal that ended it.
int endOf(int child);

}  // namespace vellora::test
