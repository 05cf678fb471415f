#pragma once

#include <QString>

#include <functional>

namespace vellora::test {

// What a child tells of its work as its result.
enum Told { kDone, kRefused, kRefusedWithoutAReason, kOther, kDoneDespiteAnError };

// Whether it is a sentence for the user.
bool isChinese(const QString& description);

// What becomes of work that may throw the errors that windows show.
Told toldBy(const std::function<void()>& work);

}  // namespace vellora::test
