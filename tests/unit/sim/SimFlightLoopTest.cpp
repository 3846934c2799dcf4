// Flight loops on the virtual frame clock: when callbacks run, in which order, with which arguments.
#include <XPLMProcessing.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

#include "SimHostFixture.h"
#include "host/FlightLoopScheduler.h"

namespace sim::testing {
namespace {

// What every callback saw, in call order.
struct Call {
  std::string name;
  int frame;
  float sinceLastCall;
  float sinceLastLoop;
  int counter;
};

std::vector<Call> gCalls;

// A loop's behaviour, passed as its refcon.
struct LoopSpec {
  std::string name;
  float returnValue = -1.0f;
  void (*during)(LoopSpec*) = nullptr;  // extra work inside the callback
  XPLMFlightLoop_f other = nullptr;     // a loop that `during` acts on
  LoopSpec* otherSpec = nullptr;
};

float RecordingLoop(float sinceLastCall, float sinceLastLoop, int counter, void* refcon) {
  auto* spec = static_cast<LoopSpec*>(refcon);
  gCalls.push_back(Call{spec->name, XPLMGetCycleNumber(), sinceLastCall, sinceLastLoop, counter});
  if (spec->during != nullptr) spec->during(spec);
  return spec->returnValue;
}

// A second function so that two loops can share a refcon yet differ.
float OtherRecordingLoop(float a, float b, int c, void* refcon) { return RecordingLoop(a, b, c, refcon); }

std::vector<int> FramesOf(const std::string& name) {
  std::vector<int> frames;
  for (const Call& call : gCalls) {
    if (call.name == name) frames.push_back(call.frame);
  }
  return frames;
}

std::vector<std::string> NamesInFrame(int frame) {
  std::vector<std::string> names;
  for (const Call& call : gCalls) {
    if (call.frame == frame) names.push_back(call.name);
  }
  return names;
}

// The fake plug-in registers the two loops the real one has: an input loop every frame and an
// update loop every half second.
LoopSpec gInputLoop{"input"};
LoopSpec gUpdateLoop{"update", 0.5f};

int FakeStart(char* name, char* signature, char* description) {
  std::snprintf(name, 256, "Fake");
  std::snprintf(signature, 256, "test.fake");
  std::snprintf(description, 256, "A fake plug-in");
  return 1;
}
int FakeEnable() {
  XPLMRegisterFlightLoopCallback(RecordingLoop, -1.0f, &gInputLoop);
  XPLMRegisterFlightLoopCallback(RecordingLoop, 0.5f, &gUpdateLoop);
  return 1;
}
void FakeDisable() {}
void FakeStop() {}

class SimFlightLoops : public SimHostTest {
 protected:
  void SetUp() override {
    SimHostTest::SetUp();
    gCalls.clear();
  }
  void LoadAndEnable() {
    host().LoadPlugin(PluginEntryPoints{FakeStart, FakeStop, FakeEnable, FakeDisable, nullptr});
    ASSERT_EQ(host().Start(), 1);
    ASSERT_EQ(host().Enable(), 1);
  }
};

TEST(SimFlightLoopIntervals, SecondsRoundUpToWholeFramesDespiteFloatError) {
  EXPECT_EQ(FlightLoopScheduler::FramesUntilDue(0.1f), 6);
  EXPECT_EQ(FlightLoopScheduler::FramesUntilDue(0.5f), 30);
  EXPECT_EQ(FlightLoopScheduler::FramesUntilDue(1.0f / 60.0f), 1);
  EXPECT_EQ(FlightLoopScheduler::FramesUntilDue(2.0f), 120);
  EXPECT_EQ(FlightLoopScheduler::FramesUntilDue(0.02f), 2);    // 1.2 frames: the next whole one
  EXPECT_EQ(FlightLoopScheduler::FramesUntilDue(0.0001f), 1);  // never "this frame"
}

TEST(SimFlightLoopIntervals, NegativeCountsFramesAndZeroMeansNever) {
  EXPECT_EQ(FlightLoopScheduler::FramesUntilDue(-1.0f), 1);
  EXPECT_EQ(FlightLoopScheduler::FramesUntilDue(-5.0f), 5);
  EXPECT_EQ(FlightLoopScheduler::FramesUntilDue(0.0f), 0);
  EXPECT_EQ(FlightLoopScheduler::FramesUntilDue(std::numeric_limits<float>::quiet_NaN()), 0);
  EXPECT_GT(FlightLoopScheduler::FramesUntilDue(std::numeric_limits<float>::infinity()), 0);
}

TEST_F(SimFlightLoops, EnabledPluginsLoopsRunOnTheDocumentedFrames) {
  LoadAndEnable();
  EXPECT_EQ(host().ActiveFlightLoopCount(), 2);
  host().RunFrames(1);
  EXPECT_EQ(FramesOf("input"), std::vector<int>{1});
  EXPECT_TRUE(FramesOf("update").empty());

  host().RunSeconds(0.5);  // frames 2..31
  EXPECT_EQ(host().FrameNumber(), 31);
  EXPECT_EQ(FramesOf("update"), std::vector<int>{30});
  EXPECT_EQ(FramesOf("input").size(), 31u);
}

TEST_F(SimFlightLoops, CallbackArgumentsDescribeTheClock) {
  LoadAndEnable();
  host().RunFrames(60);
  std::vector<Call> updates;
  for (const Call& call : gCalls) {
    if (call.name == "update") updates.push_back(call);
  }
  ASSERT_EQ(updates.size(), 2u);
  EXPECT_FLOAT_EQ(updates[0].sinceLastCall, 0.5f);  // since registration at frame 0
  EXPECT_FLOAT_EQ(updates[1].sinceLastCall, 0.5f);
  EXPECT_FLOAT_EQ(updates[0].sinceLastLoop, 1.0f / 60.0f);
  EXPECT_EQ(updates[0].counter, 30);
  EXPECT_EQ(updates[1].counter, 60);
  EXPECT_FLOAT_EQ(XPLMGetElapsedTime(), 1.0f);
  EXPECT_EQ(XPLMGetCycleNumber(), 60);
  EXPECT_DOUBLE_EQ(host().ElapsedSeconds(), 1.0);
}

TEST_F(SimFlightLoops, ReturnValueSchedulesFromTheFrameItRanIn) {
  LoopSpec everyThird{"third", -3.0f};
  XPLMRegisterFlightLoopCallback(RecordingLoop, -1.0f, &everyThird);
  host().RunFrames(10);
  EXPECT_EQ(FramesOf("third"), (std::vector<int>{1, 4, 7, 10}));

  everyThird.returnValue = 0;  // stop
  host().RunFrames(3);
  EXPECT_EQ(FramesOf("third").back(), 13);
  EXPECT_EQ(host().ActiveFlightLoopCount(), 0);
  host().RunFrames(30);
  EXPECT_EQ(FramesOf("third").size(), 5u);
}

TEST_F(SimFlightLoops, ZeroIntervalRegistersAnInactiveLoop) {
  LoopSpec idle{"idle"};
  XPLMRegisterFlightLoopCallback(RecordingLoop, 0.0f, &idle);
  host().RunFrames(100);
  EXPECT_TRUE(gCalls.empty());
  EXPECT_EQ(host().ActiveFlightLoopCount(), 0);
  XPLMSetFlightLoopCallbackInterval(RecordingLoop, -2.0f, 1, &idle);
  host().RunFrames(2);
  EXPECT_EQ(FramesOf("idle"), std::vector<int>{102});
}

TEST_F(SimFlightLoops, LoopsDueInTheSameFrameRunInRegistrationOrder) {
  LoopSpec a{"a", 0.1f}, b{"b", -6.0f}, c{"c", -3.0f};
  XPLMRegisterFlightLoopCallback(RecordingLoop, 0.1f, &a);
  XPLMRegisterFlightLoopCallback(RecordingLoop, -6.0f, &b);
  XPLMRegisterFlightLoopCallback(RecordingLoop, -3.0f, &c);
  host().RunFrames(6);
  EXPECT_EQ(NamesInFrame(3), std::vector<std::string>{"c"});
  EXPECT_EQ(NamesInFrame(6), (std::vector<std::string>{"a", "b", "c"}));
}

TEST_F(SimFlightLoops, SameCallbackWithDifferentRefconsAreDifferentLoops) {
  LoopSpec first{"first"}, second{"second"};
  XPLMRegisterFlightLoopCallback(RecordingLoop, -1.0f, &first);
  XPLMRegisterFlightLoopCallback(RecordingLoop, -1.0f, &second);
  XPLMUnregisterFlightLoopCallback(RecordingLoop, &first);
  XPLMUnregisterFlightLoopCallback(OtherRecordingLoop, &second);  // not registered: no effect
  host().RunFrames(1);
  EXPECT_EQ(NamesInFrame(1), std::vector<std::string>{"second"});
}

void UnregisterOther(LoopSpec* spec) { XPLMUnregisterFlightLoopCallback(spec->other, spec->otherSpec); }

TEST_F(SimFlightLoops, UnregisteringALaterLoopInsideACallbackStopsItThisFrame) {
  LoopSpec victim{"victim"};
  LoopSpec killer{"killer", -1.0f, UnregisterOther, OtherRecordingLoop, &victim};
  XPLMRegisterFlightLoopCallback(RecordingLoop, -1.0f, &killer);
  XPLMRegisterFlightLoopCallback(OtherRecordingLoop, -1.0f, &victim);
  host().RunFrames(3);
  EXPECT_TRUE(FramesOf("victim").empty());
  EXPECT_EQ(FramesOf("killer"), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(host().ActiveFlightLoopCount(), 1);
}

void UnregisterSelf(LoopSpec* spec) { XPLMUnregisterFlightLoopCallback(RecordingLoop, spec); }

TEST_F(SimFlightLoops, ALoopThatUnregistersItselfIsNotRescheduledByItsReturnValue) {
  LoopSpec once{"once", -1.0f, UnregisterSelf};
  LoopSpec after{"after"};
  XPLMRegisterFlightLoopCallback(RecordingLoop, -1.0f, &once);
  XPLMRegisterFlightLoopCallback(OtherRecordingLoop, -1.0f, &after);
  host().RunFrames(3);
  EXPECT_EQ(FramesOf("once"), std::vector<int>{1});
  EXPECT_EQ(FramesOf("after"), (std::vector<int>{1, 2, 3}));  // the loop behind it still runs
}

void RegisterOther(LoopSpec* spec) {
  if (spec->otherSpec != nullptr) XPLMRegisterFlightLoopCallback(spec->other, -1.0f, spec->otherSpec);
  spec->otherSpec = nullptr;  // only once
}

TEST_F(SimFlightLoops, ALoopRegisteredInsideACallbackFirstRunsNextFrame) {
  LoopSpec child{"child"};
  LoopSpec parent{"parent", -1.0f, RegisterOther, OtherRecordingLoop, &child};
  XPLMRegisterFlightLoopCallback(RecordingLoop, -1.0f, &parent);
  host().RunFrames(3);
  EXPECT_EQ(FramesOf("child"), (std::vector<int>{2, 3}));
}

TEST_F(SimFlightLoops, SetIntervalCountsFromNowOrFromTheLastRun) {
  LoopSpec fromNow{"now", 0.0f}, fromLast{"last", 0.0f};
  XPLMRegisterFlightLoopCallback(RecordingLoop, -1.0f, &fromNow);
  XPLMRegisterFlightLoopCallback(OtherRecordingLoop, -1.0f, &fromLast);
  host().RunFrames(10);  // both ran at frame 1 and stopped
  XPLMSetFlightLoopCallbackInterval(RecordingLoop, -5.0f, 1, &fromNow);
  XPLMSetFlightLoopCallbackInterval(OtherRecordingLoop, -12.0f, 0, &fromLast);
  host().RunFrames(10);
  EXPECT_EQ(FramesOf("now"), (std::vector<int>{1, 15}));
  EXPECT_EQ(FramesOf("last"), (std::vector<int>{1, 13}));
}

TEST_F(SimFlightLoops, SetIntervalToAPastFrameRunsAtTheNextFrame) {
  LoopSpec stale{"stale", 0.0f};
  XPLMRegisterFlightLoopCallback(RecordingLoop, -1.0f, &stale);
  host().RunFrames(10);
  XPLMSetFlightLoopCallbackInterval(RecordingLoop, -2.0f, 0, &stale);  // due at frame 3: past
  host().RunFrames(1);
  EXPECT_EQ(FramesOf("stale"), (std::vector<int>{1, 11}));
  EXPECT_FLOAT_EQ(gCalls.back().sinceLastCall, 10.0f / 60.0f);
}

TEST_F(SimFlightLoops, ADisabledPluginsLoopsWaitButStayRegistered) {
  LoadAndEnable();
  host().RunFrames(2);
  host().Disable();
  host().RunFrames(40);
  EXPECT_EQ(FramesOf("input"), (std::vector<int>{1, 2}));
  EXPECT_TRUE(FramesOf("update").empty());
  EXPECT_EQ(host().ActiveFlightLoopCount(), 2);

  ASSERT_EQ(host().Enable(), 1);  // the fake registers its loops again on every enable
  gCalls.clear();
  host().RunFrames(1);
  // The overdue update loop runs at once; the old input loop and the new one both run.
  EXPECT_EQ(NamesInFrame(43), (std::vector<std::string>{"input", "update", "input"}));
}

}  // namespace
}  // namespace sim::testing
