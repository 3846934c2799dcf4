// A fresh simulator with the plug-in's own datarefs published, and short ways to reach them.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../sim/SimHostFixture.h"
#include "functions/CustomDatarefs.h"

namespace drav::testing {

inline constexpr const char* kStateWord = "sim/cockpit/autopilot/autopilot_state";

class CustomDatarefsTest : public sim::testing::SimHostTest {
 protected:
  // Most tests publish in the simulator as it starts; those that remove a simulator dataref first
  // call Publish themselves, since the lookups are made once, at publication.
  void Publish() { PublishCustomDatarefs(); }

  static void Set(const std::string& path, double value) {
    ASSERT_TRUE(host().SetDatarefValue(path, -1, -1, value)) << path;
  }
  static void Remove(const std::string& path) { host().RemoveDataref(path); }
  static double Get(const std::string& path) { return host().GetDatarefValue(path).value_or(-999.0); }
  // Another plug-in writes the dataref, so the published setter runs.
  static void Write(const std::string& path, double value) {
    ASSERT_TRUE(host().WriteDatarefAsOtherPlugin(path, -1, value)) << path;
  }
  static const std::vector<std::string>& Events() { return host().Events(); }
  static void ClearEvents() { host().ClearEvents(); }
  static std::string DatarefWrite(const std::string& path, const std::string& value) {
    return "dataref-write " + path + " " + value;
  }
  static std::string KeyStroke(int key) { return "keystroke " + std::to_string(key); }
};

}  // namespace drav::testing
