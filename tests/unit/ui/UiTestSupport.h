// A fresh simulator for every user-interface test (its own context looks the menu colours up anew),
// the dialog closed afterwards, and the helpers that read what the simulator's screen shows.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "base/HostState.h"
#include "base/OptionalXplmApi.h"
#include "host/SimHost.h"
#include "ui/AssignDialog.h"
#include "ui/MenuColours.h"

namespace drav::uitest {

class UiTest : public ::testing::Test {
 protected:
  void SetUp() override {
    root_ = std::filesystem::temp_directory_path() /
            ("drav-ui-" + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
    host().Reset(root_);
    // The plug-in reads the version at start; these tests run its parts without starting it.
    CurrentSimulatorVersions().xplaneVersion = 12000;
    ASSERT_TRUE(LoadOptionalXplmApi());
  }

  void TearDown() override {
    CloseAssignDialog();
    CurrentSimulatorVersions() = SimulatorVersions{};
    host().Reset({});
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }

  static sim::SimHost& host() { return sim::SimHost::Current(); }

  // What the screen shows for one widget or window; null when it is not drawn.
  static const sim::DisplayItem* Find(const sim::DisplayList& screen, void* handle) {
    for (const sim::DisplayItem& item : screen.items) {
      if (item.handle == handle) return &item;
    }
    return nullptr;
  }

  // The front-most plug-in window: the pick menu while one is open.
  static const sim::DisplayItem* FrontWindow(const sim::DisplayList& screen) {
    for (auto it = screen.items.rbegin(); it != screen.items.rend(); ++it) {
      if (it->kind == sim::DisplayItemKind::Window) return &*it;
    }
    return nullptr;
  }

 private:
  std::filesystem::path root_;
};

}  // namespace drav::uitest
