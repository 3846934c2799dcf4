// Where a floor of the plug-in finds its part of the plug-in's state.
//
// The state lives in one context (plugin/PluginContext.h), made when the simulator starts the
// plug-in and destroyed when it stops it, so a restart is a destruction and a construction and a
// test makes a context of its own. A floor cannot include the context, which sits above it, so the
// context installs each floor's part in that part's slot while it lives, and the floor's code reads
// it from there. The slot's pointer is the only mutable global a floor has. It changes on the main
// thread only, while no panel thread runs (threads are started after a context is installed and
// joined before it goes), so the threads see one value for as long as they live.
#pragma once

#include <cassert>
#include <utility>

namespace drav {

template <typename State>
class ContextSlot {
 public:
  static State& Current() {
    assert(current_ != nullptr && "no plug-in context is installed");
    return *current_;
  }
  static bool Installed() { return current_ != nullptr; }

  // Installs a state for as long as the scope lives and puts back the one it replaced, so that a
  // context made inside another (a test starting the plug-in) hands the outer one back at its end.
  class Scope {
   public:
    explicit Scope(State& state) : previous_(std::exchange(current_, &state)) {}
    ~Scope() { current_ = previous_; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    State* previous_;
  };

 private:
  static inline State* current_ = nullptr;
};

}  // namespace drav
