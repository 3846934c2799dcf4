#include "dravsim/DravPlugin.h"

#include "plugin/Plugin.h"

namespace dravsim {

sim::PluginEntryPoints DravPluginEntryPoints() {
  sim::PluginEntryPoints entry;
  entry.start = &drav::PluginStart;
  entry.stop = &drav::PluginStop;
  entry.enable = &drav::PluginEnable;
  entry.disable = &drav::PluginDisable;
  entry.receiveMessage = &drav::PluginReceiveMessage;
  return entry;
}

}  // namespace dravsim
