// Custom widget functions that record the messages they get, for the widget library's tests.
#pragma once

#include <XPStandardWidgets.h>
#include <XPWidgets.h>

#include <cstdint>
#include <vector>

#include "SimHostFixture.h"

namespace sim::testing {

struct WidgetMessage {
  char handler;  // which recording function saw it: 'A', 'B', 'C' or 'W' (the widget's own)
  int message;
  XPWidgetID widget;
  intptr_t param1;
  intptr_t param2;

  bool operator==(const WidgetMessage&) const = default;
};

inline std::vector<WidgetMessage> gWidgetMessages;
// The messages each recorder takes (returns 1 for); every other message is passed on.
inline std::vector<int> gTakenByA, gTakenByB, gTakenByW;

template <char Name>
int Recorder(XPWidgetMessage message, XPWidgetID widget, intptr_t param1, intptr_t param2) {
  gWidgetMessages.push_back(WidgetMessage{Name, message, widget, param1, param2});
  const std::vector<int>& taken = Name == 'A' ? gTakenByA : Name == 'B' ? gTakenByB : gTakenByW;
  for (int m : taken) {
    if (m == message) return 1;
  }
  return 0;
}

// The messages of one kind, in order.
inline std::vector<WidgetMessage> MessagesOf(int message) {
  std::vector<WidgetMessage> found;
  for (const WidgetMessage& m : gWidgetMessages) {
    if (m.message == message) found.push_back(m);
  }
  return found;
}

class WidgetTest : public SimHostTest {
 protected:
  void SetUp() override {
    SimHostTest::SetUp();
    gWidgetMessages.clear();
    gTakenByA.clear();
    gTakenByB.clear();
    gTakenByW.clear();
  }

  static XPWidgetID Custom(int left, int top, int right, int bottom, XPWidgetID container,
                           bool isRoot = false, const char* descriptor = "") {
    return XPCreateCustomWidget(left, top, right, bottom, 1, descriptor, isRoot ? 1 : 0, container,
                                Recorder<'W'>);
  }
};

}  // namespace sim::testing
