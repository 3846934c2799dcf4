// The plug-ins the simulator has loaded: the one under test, with its lifecycle as X-Plane's plug-in
// manager drives it, and other plug-ins known only by signature. Also routes inter-plug-in messages.
#pragma once

#include <XPLMPlugin.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/EventLog.h"
#include "host/SimHost.h"

namespace sim {

class PluginRegistry {
 public:
  explicit PluginRegistry(EventLog& events) : events_(events) {}

  // ---- the plug-in under test ----------------------------------------------------------------
  // Like X-Plane's plug-in manager, each step runs only from the state before it: Enable needs a
  // successful Start, Stop disables first, and repeating a step does not call the plug-in again.
  void Load(const PluginEntryPoints& entryPoints);
  int Start();
  int Enable();
  void Disable();
  void Stop();
  // Calls XPluginReceiveMessage as asked, whatever the plug-in's state: scenarios decide.
  void Deliver(int from, int message, void* param);

  // X-Plane does not run a disabled plug-in's flight loops. Code that calls the SDK without having
  // been loaded (unit tests of the core) counts as enabled.
  bool IsActive() const { return !loaded_ || enabled_; }

  const std::string& Name() const { return name_; }
  const std::string& Signature() const { return signature_; }
  const std::string& Description() const { return description_; }

  // ---- other plug-ins and messages -----------------------------------------------------------
  int AddOther(const std::string& signature);  // ids from 2 upward
  XPLMPluginID FindBySignature(std::string_view signature) const;
  // XPLMSendMessageToPlugin from the plug-in under test: records "message-sent SIGNATURE ID TEXT"
  // for each plug-in addressed (XPLM_NO_PLUGIN_ID: every other plug-in) and calls the plug-in
  // under test when it addresses itself while enabled.
  void Send(XPLMPluginID target, int message, void* param);

 private:
  void RecordMessage(const std::string& signature, int message, void* param);

  EventLog& events_;
  PluginEntryPoints entryPoints_;
  bool loaded_ = false;
  bool started_ = false;
  bool enabled_ = false;
  std::string name_;
  std::string signature_;
  std::string description_;
  std::vector<std::string> otherSignatures_;  // plug-in id 2 + index
};

// The text of a message parameter: the string it points to, or the number it carries in the
// pointer value (small values, and values no user-space pointer can have).
std::string DescribeMessageParam(const void* param);

}  // namespace sim
