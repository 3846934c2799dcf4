#include "dravsim/CommandTable.h"

#include <array>

#include "dravsim/CommandHandlers.h"

namespace dravsim {
namespace {

constexpr int kAny = -1;

// name, usage, min and max argument words, opens a block, handler
constexpr std::array kCommands = std::to_array<CommandRow>({
    // Setting up the simulator
    {"xplane-version", "xplane-version N", 1, 1, false, XPlaneVersionCommand},
    {"ini", "ini ... end", 0, 0, true, IniCommand},
    {"file", "file NAME ... end", 1, 1, true, FileCommand},
    {"dataref", "dataref PATH = V | PATH[i] = V | PATH[i..j] = V | PATH absent | PATH TYPE = V",
     2, 4, false, DatarefCommand},
    {"command", "command NAME present|absent", 2, 2, false, SimCommandCommand},
    {"plugin", "plugin SIGNATURE", 1, 1, false, OtherPluginCommand},
    {"no-system-symbol", "no-system-symbol", 0, 0, false, NoSystemSymbolCommand},
    {"plug", "plug MODEL as NAME [version V] [serial TEXT]", 0, kAny, false,
     NotYetAvailableCommand},
    {"hid-device", "hid-device VID PID as NAME", 0, kAny, false, NotYetAvailableCommand},
    {"unplug", "unplug NAME", 0, kAny, false, NotYetAvailableCommand},
    {"replug", "replug NAME", 0, kAny, false, NotYetAvailableCommand},
    {"feature", "feature NAME ID = HEX", 0, kAny, false, NotYetAvailableCommand},
    {"fail", "fail NAME open|read|write|feature on|off", 0, kAny, false, NotYetAvailableCommand},

    // Running the plug-in
    {"start", "start", 0, 0, false, StartCommand},
    {"enable", "enable", 0, 0, false, EnableCommand},
    {"disable", "disable", 0, 0, false, DisableCommand},
    {"stop", "stop", 0, 0, false, StopCommand},
    {"boot", "boot", 0, 0, false, BootCommand},
    {"frame", "frame [N]", 0, 1, false, FrameCommand},
    {"run", "run SECONDS", 1, 1, false, RunCommand},
    {"message", "message FROM ID PARAM", 3, 3, false, MessageCommand},
    {"plane-loaded", "plane-loaded", 0, 0, false, PlaneLoadedCommand},
    {"menu", "menu \"ITEM\"", 1, 1, false, MenuCommand},
    {"write-dataref", "write-dataref PATH = V | PATH[i] = V", 3, 3, false, WriteDatarefCommand},

    // Acting on a panel
    {"report", "report NAME HEX", 0, kAny, false, NotYetAvailableCommand},
    {"press", "press NAME B", 0, kAny, false, NotYetAvailableCommand},
    {"release", "release NAME B", 0, kAny, false, NotYetAvailableCommand},
    {"switch", "switch NAME S on|off", 0, kAny, false, NotYetAvailableCommand},
    {"turn", "turn NAME ENCODER STEPS", 0, kAny, false, NotYetAvailableCommand},
    {"lever", "lever NAME L RAW [switch on|off]", 0, kAny, false, NotYetAvailableCommand},
    {"selector", "selector NAME S POSITION", 0, kAny, false, NotYetAvailableCommand},

    // Checking
    {"expect dataref", "expect dataref PATH = V | PATH[i] = V | PATH absent", 2, 3, false,
     ExpectDatarefCommand},
    {"expect event", "expect event \"TEXT\"", 1, 1, false, ExpectEventCommand},
    {"expect no-event", "expect no-event \"TEXT\"", 1, 1, false, ExpectNoEventCommand},
    {"expect events", "expect events ... end", 0, 0, true, ExpectEventsCommand},
    {"expect ini", "expect ini SECTION KEY = VALUE | SECTION KEY absent", 3, 4, false,
     ExpectIniCommand},
    {"expect file", "expect file NAME ... end", 1, 1, true, ExpectFileCommand},
    {"expect log", "expect log \"LINE\"", 1, 1, false, ExpectLogCommand},
    {"expect no-log", "expect no-log \"LINE\"", 1, 1, false, ExpectNoLogCommand},
    {"expect window", "expect window \"TEXT\"", 1, 1, false, ExpectWindowCommand},
    {"expect no-window", "expect no-window", 0, 0, false, ExpectNoWindowCommand},
    {"expect sent", "expect sent NAME feature|output HEX", 0, kAny, false, NotYetAvailableCommand},
    {"expect sent-count", "expect sent-count NAME N", 0, kAny, false, NotYetAvailableCommand},
    {"expect no-sent", "expect no-sent NAME", 0, kAny, false, NotYetAvailableCommand},
    {"expect display", "expect display NAME D \"TEXT\"", 0, kAny, false, NotYetAvailableCommand},
    {"expect leds", "expect leds NAME MASK", 0, kAny, false, NotYetAvailableCommand},
    {"expect colour", "expect colour NAME LIGHT R G B", 0, kAny, false, NotYetAvailableCommand},
    {"expect brightness", "expect brightness NAME V", 0, kAny, false, NotYetAvailableCommand},
    {"expect units", "expect units MODEL N", 0, kAny, false, NotYetAvailableCommand},
    {"expect dialog", "expect dialog ...", 0, kAny, false, NotYetAvailableCommand},
    {"clear", "clear", 0, 0, false, ClearCommand},

    // The Assign Functions dialog
    {"dialog", "dialog ...", 0, kAny, false, NotYetAvailableCommand},

    // Showing
    {"show", "show [NAME]", 0, kAny, false, NotYetAvailableCommand},
    {"screenshot", "screenshot FILE.svg", 0, kAny, false, NotYetAvailableCommand},
    {"echo", "echo TEXT", 0, kAny, false, EchoCommand},
    {"sleep-ms", "sleep-ms N", 1, 1, false, SleepMsCommand},
});

constexpr std::string_view kExpect = "expect";

const CommandRow* FindRow(std::string_view name) {
  for (const CommandRow& row : kCommands) {
    if (row.name == name) return &row;
  }
  return nullptr;
}

}  // namespace

const CommandRow* FindCommand(std::span<const Word> words, std::size_t& nameWords) {
  if (words.empty() || words[0].quoted) return nullptr;
  if (words[0].text != kExpect) {
    nameWords = 1;
    return FindRow(words[0].text);
  }
  if (words.size() < 2 || words[1].quoted) return nullptr;
  nameWords = 2;
  return FindRow(std::string(kExpect) + " " + words[1].text);
}

std::span<const CommandRow> AllCommands() { return kCommands; }

}  // namespace dravsim
