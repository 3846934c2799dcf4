#include "host/PluginRegistry.h"

#include <cstring>

namespace sim {

namespace {

constexpr int kFirstOtherPluginId = 2;
// The plug-in's name, signature and description buffers, as X-Plane passes them.
constexpr std::size_t kInfoBufferSize = 256;
// Parameters below this are message numbers or indexes carried in the pointer value.
constexpr std::uintptr_t kSmallestPointer = 65536;
// x86-64 user space ends here; anything above is a negative number carried in the pointer value.
constexpr std::uintptr_t kLargestUserPointer = 0x00007FFFFFFFFFFFu;
// A message text longer than this is not a text the plug-in meant to send.
constexpr std::size_t kMaxMessageText = 4096;

std::string BoundedText(const char* buffer) {
  return std::string(buffer, strnlen(buffer, kInfoBufferSize - 1));
}

}  // namespace

std::string DescribeMessageParam(const void* param) {
  const auto value = reinterpret_cast<std::uintptr_t>(param);
  if (value >= kSmallestPointer && value <= kLargestUserPointer) {
    const auto* text = static_cast<const char*>(param);
    return std::string(text, strnlen(text, kMaxMessageText));
  }
  return std::to_string(static_cast<std::intptr_t>(value));
}

void PluginRegistry::Load(const PluginEntryPoints& entryPoints) {
  entryPoints_ = entryPoints;
  loaded_ = true;
  started_ = false;
  enabled_ = false;
  name_.clear();
  signature_.clear();
  description_.clear();
}

int PluginRegistry::Start() {
  if (!loaded_ || entryPoints_.start == nullptr) return 0;
  if (started_) return 1;
  char name[kInfoBufferSize] = {};
  char signature[kInfoBufferSize] = {};
  char description[kInfoBufferSize] = {};
  const int result = entryPoints_.start(name, signature, description);
  name_ = BoundedText(name);
  signature_ = BoundedText(signature);
  description_ = BoundedText(description);
  started_ = result != 0;
  return result;
}

int PluginRegistry::Enable() {
  if (!started_) return 0;
  if (enabled_) return 1;
  const int result = entryPoints_.enable != nullptr ? entryPoints_.enable() : 1;
  enabled_ = result != 0;
  return result;
}

void PluginRegistry::Disable() {
  if (!enabled_) return;
  enabled_ = false;
  if (entryPoints_.disable != nullptr) entryPoints_.disable();
}

void PluginRegistry::Stop() {
  if (!started_) return;
  Disable();
  started_ = false;
  if (entryPoints_.stop != nullptr) entryPoints_.stop();
}

void PluginRegistry::Deliver(int from, int message, void* param) {
  if (loaded_ && entryPoints_.receiveMessage != nullptr) entryPoints_.receiveMessage(from, message, param);
}

int PluginRegistry::AddOther(const std::string& signature) {
  otherSignatures_.push_back(signature);
  return kFirstOtherPluginId + static_cast<int>(otherSignatures_.size()) - 1;
}

XPLMPluginID PluginRegistry::FindBySignature(std::string_view signature) const {
  if (!signature_.empty() && signature == signature_) return kPluginUnderTestId;
  for (std::size_t i = 0; i < otherSignatures_.size(); ++i) {
    if (otherSignatures_[i] == signature) return kFirstOtherPluginId + static_cast<int>(i);
  }
  return XPLM_NO_PLUGIN_ID;
}

void PluginRegistry::RecordMessage(const std::string& signature, int message, void* param) {
  events_.Record("message-sent " + signature + " " + std::to_string(message) + " " +
                 DescribeMessageParam(param));
}

// A broadcast reaches every other plug-in but not its sender.
void PluginRegistry::Send(XPLMPluginID target, int message, void* param) {
  if (target == XPLM_NO_PLUGIN_ID) {
    for (const std::string& signature : otherSignatures_) RecordMessage(signature, message, param);
    return;
  }
  if (target == kPluginUnderTestId && loaded_) {
    RecordMessage(signature_, message, param);
    if (enabled_) Deliver(kPluginUnderTestId, message, param);
    return;
  }
  const int index = target - kFirstOtherPluginId;
  if (index >= 0 && index < static_cast<int>(otherSignatures_.size())) {
    RecordMessage(otherSignatures_[static_cast<std::size_t>(index)], message, param);
  }
}

}  // namespace sim
