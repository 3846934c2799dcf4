// The turn that input callbacks take, one at a time: a process-local gate everywhere, and on Windows
// also the system-wide named mutex that every copy of the device layer shares.
#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>

#ifdef _WIN32
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#endif

namespace drav {

// One callback runs at a time, and a read thread waits at most a second for its turn before it
// drops the record. Built on a mutex and a condition variable rather than std::timed_mutex, whose
// timed wait the thread sanitizer cannot follow (it then reports every unlock as an unlock of an
// unlocked mutex).
class LocalGate {
 public:
  bool TryEnterFor(std::chrono::milliseconds timeout) {
    std::unique_lock<std::mutex> lock(mutex_);
    if (!freed_.wait_for(lock, timeout, [&] { return !held_; })) return false;
    held_ = true;
    return true;
  }
  void Enter() {
    std::unique_lock<std::mutex> lock(mutex_);
    freed_.wait(lock, [&] { return !held_; });
    held_ = true;
  }
  void Leave() {
    {
      std::lock_guard<std::mutex> lock(mutex_);
      held_ = false;
    }
    freed_.notify_one();
  }

 private:
  std::mutex mutex_;
  std::condition_variable freed_;
  bool held_ = false;
};

#ifdef _WIN32
// On Windows the turn is also the system-wide named mutex "GFDev_MtxInputCallback", so that every
// copy of the layer in the simulator's process (and any other program that takes the same name)
// shares it. The process's own gate is always taken first: the input queue has one producer at a
// time whatever became of the name (held by an object of another type, or by a process whose rights
// deny access, the name yields no mutex). Another process may hold the named mutex for as long as
// it likes, so it is never waited for without a limit: past the limit a caller that must get in
// goes on with the process's own gate only.
class InputCallbackGate {
 public:
  // The name is the layer's own but for tests, which take names no one else uses.
  explicit InputCallbackGate(const char* name = kName) : named_(CreateMutexA(nullptr, FALSE, name)) {
    if (named_ == nullptr) named_ = OpenMutexA(SYNCHRONIZE | MUTEX_MODIFY_STATE, FALSE, name);
  }
  ~InputCallbackGate() {
    if (named_ != nullptr) CloseHandle(named_);
  }
  InputCallbackGate(const InputCallbackGate&) = delete;
  InputCallbackGate& operator=(const InputCallbackGate&) = delete;

  bool TryEnterFor(std::chrono::milliseconds timeout) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    if (!local_.TryEnterFor(timeout)) return false;
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    if (!TakeNamed(std::max(left, std::chrono::milliseconds(0)))) {
      local_.Leave();
      return false;
    }
    return true;
  }
  // The main thread's turn (registering or clearing the callback): the process's own gate, and
  // the named mutex when it comes within the callback wait.
  void Enter() {
    local_.Enter();
    TakeNamed(kNamedWait);
  }
  void Leave() {
    if (namedHeld_) ReleaseMutex(named_);
    namedHeld_ = false;
    local_.Leave();
  }

  static constexpr const char* kName = "GFDev_MtxInputCallback";
  static constexpr std::chrono::milliseconds kNamedWait{1000};
  // False when the name gave no mutex: the process's own gate is then the whole turn.
  bool HasNamedMutex() const { return named_ != nullptr; }

 private:

  // Caller holds the local gate. True when the named mutex was taken or there is none.
  bool TakeNamed(std::chrono::milliseconds timeout) {
    if (named_ == nullptr) return true;
    const DWORD result = WaitForSingleObject(named_, static_cast<DWORD>(timeout.count()));
    // An abandoned mutex (its holder's thread ended) is ours now, as a taken one is.
    namedHeld_ = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
    return namedHeld_;
  }

  LocalGate local_;
  HANDLE named_;
  bool namedHeld_ = false;  // guarded by the local gate
};
#else
// Stands in for the named mutex "GFDev_MtxInputCallback" of Windows.
using InputCallbackGate = LocalGate;
#endif

}  // namespace drav
