// Turns what happens to the hidraw nodes in /dev into arrival and removal notices. The kernel makes
// a node before udev has given it its owner and mode, so a node that appeared is announced only once
// it can be opened for reading and writing, or when a patience time ran out (then the layer tries,
// fails and ignores it, as it does any device it cannot open). Such a node is looked at again
// whenever its attributes change, and announced once more when it has become usable, so that a
// udev rule put right later works without a replug. Pure bookkeeping: the caller supplies the
// clock and the check, so it is tested without devices.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "hid/backend/HidBackend.h"

namespace drav {

class HidrawNodeEvents {
 public:
  using Clock = std::chrono::steady_clock;
  using UsableCheck = std::function<bool(const std::string& path)>;

  // `folder` is where the nodes live ("/dev"); notices carry folder + "/" + node name.
  explicit HidrawNodeEvents(std::string folder = "/dev",
                            std::chrono::milliseconds patience = std::chrono::milliseconds(2000));

  // A node of that name appeared in the folder (other names are ignored).
  void Created(const std::string& nodeName, Clock::time_point now);
  // A node was deleted: a removal notice, unless its arrival was never announced (then neither is).
  void Deleted(const std::string& nodeName, std::vector<HidDeviceChange>& out);
  // Announces, in the order they appeared, the waiting nodes that are usable or waited long enough.
  void Settle(Clock::time_point now, const UsableCheck& usable, std::vector<HidDeviceChange>& out);
  // A node's owner, group or mode changed: one announced while it could not be used is announced
  // again (once) when it now can be.
  void AttributesChanged(const std::string& nodeName, const UsableCheck& usable, std::vector<HidDeviceChange>& out);
  // True while some node waits: the caller should come back soon even if nothing happens.
  bool Waiting() const { return !waiting_.empty(); }

 private:
  struct WaitingNode {
    std::string path;
    Clock::time_point deadline;
  };

  std::string folder_;
  std::chrono::milliseconds patience_;
  std::vector<WaitingNode> waiting_;
  std::vector<std::string> announcedUnusable_;  // paths
};

}  // namespace drav
