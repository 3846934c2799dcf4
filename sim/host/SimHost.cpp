#include "host/SimHost.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

#include "host/SimHostImpl.h"

namespace sim {

SimHost::SimHost() : impl_(std::make_unique<SimHostImpl>(0)) {}

SimHost::~SimHost() = default;

SimHost& SimHost::Current() {
  static SimHost host;
  return host;
}

SimHostImpl& SimHost::Impl() { return *impl_; }

void SimHost::Reset(const std::filesystem::path& root) {
  const auto nextGeneration = static_cast<std::uint16_t>(impl_->generation + 1);
  impl_ = std::make_unique<SimHostImpl>(nextGeneration);
  impl_->root = root;
  if (!root.empty()) {
    std::error_code ignored;  // a folder that cannot be made shows up as missing files later
    std::filesystem::create_directories(PluginFolder(), ignored);
  }
}

const std::filesystem::path& SimHost::Root() const { return impl_->root; }

std::filesystem::path SimHost::PluginFolder() const {
  return impl_->root / "Resources" / "plugins" / "DRAV";
}

// ---- set-up ------------------------------------------------------------------------------------

void SimHost::SetXPlaneVersion(int version) { impl_->xplaneVersion = version; }

void SimHost::SetSystemSymbolsAvailable(bool available) { impl_->systemSymbolsAvailable = available; }

int SimHost::AddOtherPlugin(const std::string& signature) { return impl_->plugins.AddOther(signature); }

void SimHost::SetCommandKnown(const std::string& name, bool known) {
  impl_->commands.SetKnown(name, known);
}

// ---- datarefs ----------------------------------------------------------------------------------

bool SimHost::AddDataref(const DatarefDecl& decl) { return impl_->datarefs.Add(decl); }

void SimHost::RemoveDataref(const std::string& path) { impl_->datarefs.Remove(path); }

bool SimHost::HasDataref(const std::string& path) const { return impl_->datarefs.Has(path); }

std::optional<DatarefDecl> SimHost::DescribeDataref(const std::string& path) const {
  return impl_->datarefs.Describe(path);
}

bool SimHost::SetDatarefValue(const std::string& path, int first, int last, double value) {
  return impl_->datarefs.SetValue(path, first, last, value);
}

std::optional<double> SimHost::GetDatarefValue(const std::string& path, int index) const {
  return impl_->datarefs.GetValue(path, index);
}

bool SimHost::WriteDatarefAsOtherPlugin(const std::string& path, int index, double value) {
  return impl_->datarefs.WriteAsOtherPlugin(path, index, value);
}

// ---- the plug-in under test --------------------------------------------------------------------

void SimHost::LoadPlugin(const PluginEntryPoints& entryPoints) { impl_->plugins.Load(entryPoints); }

int SimHost::Start() { return impl_->plugins.Start(); }

int SimHost::Enable() { return impl_->plugins.Enable(); }

void SimHost::Disable() { impl_->plugins.Disable(); }

void SimHost::Stop() { impl_->plugins.Stop(); }

void SimHost::SendMessage(int from, int message, std::intptr_t param) {
  impl_->plugins.Deliver(from, message, reinterpret_cast<void*>(param));
}

const std::string& SimHost::PluginName() const { return impl_->plugins.Name(); }

const std::string& SimHost::PluginSignature() const { return impl_->plugins.Signature(); }

const std::string& SimHost::PluginDescription() const { return impl_->plugins.Description(); }

// ---- time --------------------------------------------------------------------------------------

void SimHost::RunFrames(int count) {
  for (int i = 0; i < count; ++i) {
    SimHostImpl& impl = *impl_;
    ++impl.frame;
    impl.commands.ContinueHeld();
    if (impl.plugins.IsActive()) impl.flightLoops.RunDue(impl.frame);
  }
}

void SimHost::RunSeconds(double seconds) {
  if (!(seconds > 0)) return;
  // The same tolerance as flight-loop intervals, so RunSeconds(0.1) is the 6 frames a 0.1 s loop
  // waits.
  const double frames = std::ceil(seconds * kFramesPerSecond - 1e-3);
  RunFrames(static_cast<int>(std::min(frames, 1e9)));
}

int SimHost::FrameNumber() const { return static_cast<int>(impl_->frame); }

double SimHost::ElapsedSeconds() const {
  return static_cast<double>(impl_->frame) / kFramesPerSecond;
}

int SimHost::ActiveFlightLoopCount() const { return impl_->flightLoops.ActiveCount(); }

// ---- menus -------------------------------------------------------------------------------------

bool SimHost::PickMenuItem(const std::string& itemName) { return impl_->menus.Pick(itemName); }

std::vector<std::string> SimHost::PluginMenuItems() const { return impl_->menus.PluginItems(); }

// ---- windows -----------------------------------------------------------------------------------

int SimHost::WindowCount() const { return impl_->windows.Count(); }

std::vector<std::string> SimHost::DrawWindows() { return impl_->windows.DrawAll(); }

int SimHost::ClickWindow(int x, int y, int mouseStatus) {
  return impl_->windows.Click(x, y, mouseStatus);
}

// ---- the event log -----------------------------------------------------------------------------

const std::vector<std::string>& SimHost::Events() const { return impl_->events.Events(); }

void SimHost::ClearEvents() { impl_->events.Clear(); }

void SimHost::RecordEvent(std::string text) { impl_->events.Record(std::move(text)); }

std::string FormatEventNumber(double value, bool isFloat) {
  char buffer[64];
  const std::to_chars_result result =
      isFloat ? std::to_chars(buffer, buffer + sizeof buffer, static_cast<float>(value))
              : std::to_chars(buffer, buffer + sizeof buffer, value);
  std::string text(buffer, result.ptr);
  if (text.size() > 2 && text.ends_with(".0")) text.resize(text.size() - 2);
  return text;
}

}  // namespace sim
