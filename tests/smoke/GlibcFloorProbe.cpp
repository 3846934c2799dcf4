// A module linked as the Linux plug-in is (its own C++ runtime, glibc calls wrapped to older
// versions), doing what the wrapped functions serve: threads, once-only calls, reader-writer locks,
// timed waits, file status, random numbers, and exceptions unwinding through it.
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <random>
#include <shared_mutex>
#include <stdexcept>
#include <string>
#include <system_error>
#include <thread>

namespace {

// Each check is one bit of the answer, so that a failure says which.
int Exceptions() {
  try {
    throw std::runtime_error("thrown");
  } catch (const std::exception& error) {
    return std::string(error.what()) == "thrown" ? 1 : 0;
  }
}

int ExceptionsOnAThread() {
  int caught = 0;
  std::thread thread([&caught] {
    try {
      throw 5;
    } catch (int value) {
      caught = value;
    }
  });
  thread.join();
  return caught == 5 ? 2 : 0;
}

int OnceAndLocks() {
  static std::once_flag once;
  int calls = 0;
  for (int i = 0; i < 2; ++i) std::call_once(once, [&calls] { ++calls; });
  std::shared_mutex lock;
  { std::shared_lock reading(lock); }
  { std::unique_lock writing(lock); }
  return calls == 1 ? 4 : 0;
}

int TimedWait() {
  std::mutex mutex;
  std::condition_variable condition;
  std::unique_lock hold(mutex);
  // A held mutex refuses another thread's try and takes one once it is free (the input gate tries
  // before it waits).
  std::mutex other;
  bool takenWhileHeld = true;
  {
    std::lock_guard held(other);
    std::thread([&] {
      takenWhileHeld = other.try_lock();
      if (takenWhileHeld) other.unlock();
    }).join();
  }
  const bool takenWhenFree = other.try_lock();
  if (takenWhenFree) other.unlock();
  const bool refused = !takenWhileHeld && takenWhenFree;
  const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(5);
  return condition.wait_until(hold, until) == std::cv_status::timeout && refused ? 8 : 0;
}

int FileStatus(const char* path) {
  std::error_code error;
  const bool exists = std::filesystem::exists(path, error);
  const bool regular = std::filesystem::symlink_status(path, error).type() == std::filesystem::file_type::regular;
  try {
    (void)std::filesystem::file_size(std::string(path) + ".missing/none");
  } catch (const std::filesystem::filesystem_error&) {
    return exists && regular ? 16 : 0;
  }
  return 0;
}

int RandomNumbers() {
  std::random_device device;
  unsigned differing = 0;
  const unsigned first = device();
  for (int i = 0; i < 8; ++i) differing += device() != first;
  return differing > 0 ? 32 : 0;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) int RunGlibcFloorProbe(const char* existingFile) {
  return Exceptions() | ExceptionsOnAThread() | OnceAndLocks() | TimedWait() | FileStatus(existingFile) |
         RandomNumbers();
}
