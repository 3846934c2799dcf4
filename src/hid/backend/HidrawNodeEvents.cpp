#include "hid/backend/HidrawNodeEvents.h"

#include <algorithm>

#include "hid/backend/HidrawIdentity.h"

namespace drav {

HidrawNodeEvents::HidrawNodeEvents(std::string folder, std::chrono::milliseconds patience)
    : folder_(std::move(folder)), patience_(patience) {}

void HidrawNodeEvents::Created(const std::string& nodeName, Clock::time_point now) {
  if (!HidrawNodeNumber(nodeName)) return;
  const std::string path = folder_ + "/" + nodeName;
  const bool known = std::any_of(waiting_.begin(), waiting_.end(),
                                 [&](const WaitingNode& node) { return node.path == path; });
  if (!known) waiting_.push_back({path, now + patience_});
}

void HidrawNodeEvents::Deleted(const std::string& nodeName, std::vector<HidDeviceChange>& out) {
  if (!HidrawNodeNumber(nodeName)) return;
  const std::string path = folder_ + "/" + nodeName;
  const auto before = waiting_.size();
  std::erase_if(waiting_, [&](const WaitingNode& node) { return node.path == path; });
  std::erase(announcedUnusable_, path);
  if (waiting_.size() == before) out.push_back({HidDeviceChange::Kind::Removal, path});
}

void HidrawNodeEvents::Settle(Clock::time_point now, const UsableCheck& usable,
                              std::vector<HidDeviceChange>& out) {
  std::vector<WaitingNode> stillWaiting;
  for (WaitingNode& node : waiting_) {
    const bool canUse = usable(node.path);
    if (now < node.deadline && !canUse) {
      stillWaiting.push_back(std::move(node));
      continue;
    }
    if (!canUse) announcedUnusable_.push_back(node.path);
    out.push_back({HidDeviceChange::Kind::Arrival, std::move(node.path)});
  }
  waiting_ = std::move(stillWaiting);
}

void HidrawNodeEvents::AttributesChanged(const std::string& nodeName, const UsableCheck& usable,
                                         std::vector<HidDeviceChange>& out) {
  if (!HidrawNodeNumber(nodeName)) return;
  const std::string path = folder_ + "/" + nodeName;
  const auto unusable = std::find(announcedUnusable_.begin(), announcedUnusable_.end(), path);
  if (unusable == announcedUnusable_.end() || !usable(path)) return;
  announcedUnusable_.erase(unusable);
  out.push_back({HidDeviceChange::Kind::Arrival, path});
}

}  // namespace drav
