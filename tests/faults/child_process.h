#pragma once

#include <chrono>
#include <functional>
#include <iosfwd>
#include <optional>

namespace vellora::test {

// How a child came to its end.
struct ChildEnd {
  int code = -1;   // it returned; -1 when it did not
  int signal = 0;  // it was ended by; SIGALRM when it hung

  friend bool operator==(const ChildEnd&, const ChildEnd&) = default;
};
std::ostream& operator<<(std::ostream& out, const ChildEnd& end);

// A copy of this process that does one thing and ends with its result, 0 to 255, running no
// destructor of what it copied. One that hangs is ended after two minutes.
class ChildProcess {
 public:
  explicit ChildProcess(const std::function<int()>& work);
  // Kills it when it was not waited for.
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  void kill() const;
  ChildEnd wait();

 private:
  int id_;
};

inline ChildEnd endOf(const std::function<int()>& work) {
  return ChildProcess(work).wait();
}

}  // namespace vellora::test
