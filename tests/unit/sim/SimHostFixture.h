// A fresh simulator in a temporary X-Plane folder for every test.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <system_error>

#include "host/SimHost.h"

namespace sim::testing {

class SimHostTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    root_ = std::filesystem::temp_directory_path() /
            ("drav-simhost-" + std::string(info->test_suite_name()) + "-" + info->name() + "-" +
             std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
    host().Reset(root_);
  }

  void TearDown() override {
    host().Reset({});
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }

  static SimHost& host() { return SimHost::Current(); }
  const std::filesystem::path& root() const { return root_; }

 private:
  std::filesystem::path root_;
};

}  // namespace sim::testing
