// The record of every SDK call that changes the simulator, in call order, as texts that scenarios
// compare (see dravsim.md for the texts).
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace sim {

class EventLog {
 public:
  void Record(std::string text) { events_.push_back(std::move(text)); }
  void Clear() { events_.clear(); }
  const std::vector<std::string>& Events() const { return events_; }

 private:
  std::vector<std::string> events_;
};

}  // namespace sim
