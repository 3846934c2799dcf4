// Loads the installed DRAV.xpl with dlopen into the simulator host, as X-Plane loads it, and runs
// its lifecycle: start, enable, a few seconds of frames, disable, stop.
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "host/SimHost.h"

namespace {

int gFailures = 0;

void Check(bool ok, const char* what) {
  std::printf("%s: %s\n", ok ? "ok" : "FAIL", what);
  if (!ok) ++gFailures;
}

template <typename Fn>
Fn Symbol(void* library, const char* name) {
  return reinterpret_cast<Fn>(dlsym(library, name));
}

bool LogHolds(const std::filesystem::path& log, const std::string& line) {
  std::ifstream in(log);
  for (std::string text; std::getline(in, text);) {
    if (text == line) return true;
  }
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: xpl_smoke PATH/TO/DRAV.xpl\n");
    return 2;
  }
  void* library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    std::fprintf(stderr, "FAIL: dlopen: %s\n", dlerror());
    return 1;
  }
  sim::PluginEntryPoints plugin;
  plugin.start = Symbol<decltype(plugin.start)>(library, "XPluginStart");
  plugin.stop = Symbol<decltype(plugin.stop)>(library, "XPluginStop");
  plugin.enable = Symbol<decltype(plugin.enable)>(library, "XPluginEnable");
  plugin.disable = Symbol<decltype(plugin.disable)>(library, "XPluginDisable");
  plugin.receiveMessage = Symbol<decltype(plugin.receiveMessage)>(library, "XPluginReceiveMessage");
  Check(plugin.start && plugin.stop && plugin.enable && plugin.disable && plugin.receiveMessage,
        "the five entry points are exported");
  if (gFailures != 0) return 1;

  const auto root = std::filesystem::temp_directory_path() / ("drav-smoke-" + std::to_string(getpid()));
  std::filesystem::remove_all(root);
  sim::SimHost& host = sim::SimHost::Current();
  host.Reset(root);
  {
    std::ofstream ini(host.PluginFolder() / "DRAV.INI");
    ini << "[DEBUG]\nDebugEnabled=1\n";
  }
  host.LoadPlugin(plugin);

  Check(host.Start() == 1, "XPluginStart returns 1");
  Check(host.PluginSignature() == "merrow.projects.drav", "signature merrow.projects.drav");
  Check(host.WindowCount() == 1, "the splash window is up");
  Check(host.HasDataref("merrow/drav/efis_disabled"), "take-over datarefs registered");
  Check(host.Enable() == 1, "XPluginEnable returns 1");
  host.RunSeconds(4.0);
  Check(host.WindowCount() == 0, "the splash window is gone after seven ticks");
  host.SendMessage(0, 102, 0);
  host.RunFrames(31);
  host.Disable();
  Check(host.ActiveFlightLoopCount() == 0, "no flight loop left after disable");
  host.Stop();
  Check(!host.HasDataref("merrow/drav/efis_disabled"), "take-over datarefs unregistered at stop");
  const auto log = host.PluginFolder() / "DRAVLog.txt";
  Check(LogHolds(log, "+++ LOGGING STARTED +++") && LogHolds(log, "--- LOGGING STOPPED ---"),
        "the log shows start and stop");

  // Unloading is part of the test: whatever the plug-in leaves allocated shows up as a leak under
  // ASan. DRAV_SMOKE_KEEP_LOADED keeps it loaded so that such a leak's stack can be symbolised.
  if (std::getenv("DRAV_SMOKE_KEEP_LOADED") == nullptr) dlclose(library);
  std::filesystem::remove_all(root);
  std::printf("%s\n", gFailures == 0 ? "smoke test passed" : "smoke test FAILED");
  return gFailures == 0 ? 0 : 1;
}
