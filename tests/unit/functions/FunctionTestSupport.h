// Shared set-up for the function-object tests: a fresh simulator per test, the host flags back at
// their defaults afterwards, and the factory called the way the modules call it.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "functions/FunctionObjects.h"
#include "functions/FunctionState.h"
#include "functions/PanelDirectory.h"
#include "functions/RadioTargets.h"
#include "base/HostState.h"
#include "host/SimHost.h"

namespace drav::functiontest {

using Events = std::vector<std::string>;

class FunctionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    root_ = std::filesystem::temp_directory_path() /
            ("drav-functions-" + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
    host().Reset(root_);
  }

  void TearDown() override {
    host().Reset({});
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }

  static sim::SimHost& host() { return sim::SimHost::Current(); }

  static void SetValue(const std::string& path, double value) {
    ASSERT_TRUE(host().SetDatarefValue(path, -1, -1, value)) << path;
  }

  // A button or switch: the record cleared first, as the modules do, and no avionic slot.
  static SwitchFunction Build(FunctionId id, std::int32_t unit = -1, std::int32_t moduleKind = -1) {
    SwitchFunction record;
    ClearFunction(record);
    CreateFunction(id, nullptr, record, unit, moduleKind);
    return record;
  }

  // The simulator events of one execution.
  static Events Run(SwitchFunction& record, std::int32_t action, std::int32_t value = 0, std::int32_t forceOn = 0) {
    host().ClearEvents();
    ExecuteFunction(record, action, value, forceOn);
    return host().Events();
  }

 private:
  std::filesystem::path root_;
};

}  // namespace drav::functiontest
