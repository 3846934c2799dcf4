// Every test runs in a plug-in context of its own, made before the test and destroyed after it, as
// the simulator makes one at XPluginStart and destroys it at XPluginStop: no test sees what an
// earlier one left behind. A test that starts the plug-in gets the plug-in's context inside this one
// until it stops the plug-in.
#include <gtest/gtest.h>

#include <memory>

#include "plugin/PluginContext.h"

namespace {

class ContextPerTest : public testing::EmptyTestEventListener {
 public:
  void OnTestStart(const testing::TestInfo&) override { context_ = std::make_unique<drav::PluginContext>(); }
  void OnTestEnd(const testing::TestInfo&) override { context_.reset(); }

 private:
  std::unique_ptr<drav::PluginContext> context_;
};

// Appended before main runs, so that it is in place for the first test.
const bool kContextPerTestInstalled = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new ContextPerTest);
  return true;
}();

}  // namespace
