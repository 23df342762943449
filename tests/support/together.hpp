/// @file together.hpp
/// Lets several threads go at the same moment. What orders them is a mutex, so that every checker of threads understands it.
#ifndef QUELMCL_TESTS_SUPPORT_TOGETHER_HPP
#define QUELMCL_TESTS_SUPPORT_TOGETHER_HPP

#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace quelmcl_test {

/// Opens when as many threads as were announced have come to it.
class StartingGate {
public:
  explicit StartingGate(unsigned announced) : missing(announced) {}

  void pass()
  {
    std::unique_lock<std::mutex> lock(mutex);
    if (--missing == 0)
      opened.notify_all();
    opened.wait(lock, [this] { return missing == 0; });
  }

private:
  std::mutex mutex;
  std::condition_variable opened;
  unsigned missing;
};

/// Each of `count` threads does `action(number)`, with numbers from 0; returns when all have ended.
template <class Action>
void together(unsigned count, Action action)
{
  StartingGate gate(count);
  std::vector<std::thread> threads;
  for (unsigned number = 0; number < count; ++number)
    threads.emplace_back([&gate, action, number] {
      gate.pass();
      action(number);
    });
  for (std::thread& thread : threads)
    thread.join();
}

}  // namespace quelmcl_test

#endif
