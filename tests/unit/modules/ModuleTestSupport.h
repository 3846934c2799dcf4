// Module classes for the module tests: they count their calls, record what reaches them and decode
// a scripted record, so that the manager, the queue and the input callback can be watched.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "modules/GF_Abstract_Module.h"
#include "modules/InputEventQueue.h"

namespace drav_modules_test {

// The "input record" of the test modules: the decoder reports exactly this.
struct ScriptedRecord {
  std::int32_t control = -1;
  std::int32_t value = 0;
};

// Every walk of every test module appends "<what> <type>:<unit>" here.
inline std::vector<std::string>& WalkLog() {
  static std::vector<std::string> log;
  return log;
}

template <std::uint32_t Type>
class TestModule : public drav::GF_Abstract_Module {
 public:
  TestModule() { ++live; }
  ~TestModule() override { --live; }

  void SetDisplay() override {}
  std::int32_t GetButton(const void* record, std::int32_t* value) override {
    ++getButtonCalls;
    const auto* scripted = static_cast<const ScriptedRecord*>(record);
    if (scripted->control != -1) *value = scripted->value;
    return scripted->control;
  }
  void ClearDisplay() override {
    ++clearDisplayCalls;
    WalkLog().push_back("Clear " + Where());
  }
  void HandleInput(std::int32_t control, std::int32_t value) override {
    handled.push_back(drav::InputEvent{Type, unit, control, value});
  }
  void UpdateOutputs() override { WalkLog().push_back("Update " + Where()); }
  void AssignFunction(std::uint8_t, std::int32_t, std::int32_t, std::int32_t) override {}
  std::int32_t GetAssignedFunction(std::uint8_t) override { return 0; }

  std::string Where() const { return std::to_string(Type) + ":" + std::to_string(unit); }

  static inline int live = 0;  // objects of this type in existence
  int marker = 0;              // state that a resize must keep
  std::vector<drav::InputEvent> handled;
  int getButtonCalls = 0;
  int clearDisplayCalls = 0;
};

// A model with its own decoder, as the GF-DIO has: it reports the scripted control + 1000 so that
// the tests can tell which decoder ran.
class DecoderModule : public TestModule<19> {
 public:
  std::int32_t DecodeInput(const void* record, std::int32_t* value) {
    ++decodeInputCalls;
    const auto* scripted = static_cast<const ScriptedRecord*>(record);
    if (scripted->control == -1) return -1;
    *value = scripted->value;
    return scripted->control + 1000;
  }
  int decodeInputCalls = 0;
};

}  // namespace drav_modules_test
