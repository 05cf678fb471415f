#include "random_user/last_words.h"

#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <execinfo.h>
#include <thread>
#include <unistd.h>

namespace vellora::test {
namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr auto kStall = std::chrono::seconds(60);
#else
constexpr auto kStall = std::chrono::seconds(10);
#endif

std::atomic<int> beats = 0;
pthread_t user;

// One line for each function that the program was in, after a word for what happened.
void tellWhere(int signal) {
  std::array<void*, 60> places{};
  const int count = backtrace(places.data(), static_cast<int>(places.size()));
  const char* word = signal == SIGUSR1 ? "STALL\n" : "CRASH\n";
  if (write(STDOUT_FILENO, word, 6) == 6) backtrace_symbols_fd(places.data(), count, STDOUT_FILENO);
  std::signal(SIGABRT, SIG_DFL);
  std::signal(signal, SIG_DFL);
  signal == SIGUSR1 ? _exit(3) : void(raise(signal));
}

[[noreturn]] void watch() {
  int last = 0;
  auto since = std::chrono::steady_clock::now();
  while (true) {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    const auto now = std::chrono::steady_clock::now();
    if (beats != last) {
      last = beats;
      since = now;
    } else if (now - since > kStall) {
      pthread_kill(user, SIGUSR1);
      since = now;
    }
  }
}

}  // namespace

void tellLastWords() {
  user = pthread_self();
  std::signal(SIGUSR1, tellWhere);
#ifndef __SANITIZE_ADDRESS__
  for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS, SIGILL})
    std::signal(signal, tellWhere);
#endif
  std::thread(watch).detach();
}

void beat() {
  ++beats;
}

}  // namespace vellora::test
