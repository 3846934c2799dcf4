#include "dravsim/CommandTable.h"

#include <array>

#include "dravsim/CommandHandlers.h"
#include "dravsim/DialogCommands.h"
#include "dravsim/PanelCommands.h"
#include "dravsim/Screenshot.h"

namespace dravsim {
namespace {

constexpr int kAny = -1;

// name, usage, min and max argument words, opens a block, handler. Commands that let the plug-in
// run end only when every report it queued for the panels has been sent.
constexpr std::array kCommands = std::to_array<CommandRow>({
    // Setting up the simulator
    {"xplane-version", "xplane-version N", 1, 1, false, XPlaneVersionCommand},
    {"ini", "ini ... end", 0, 0, true, IniCommand},
    {"file", "file NAME ... end", 1, 1, true, FileCommand},
    {"aircraft", "aircraft PATH", 1, 1, false, AircraftCommand},
    {"aircraft-ini", "aircraft-ini ... end", 0, 0, true, AircraftIniCommand},
    {"dataref", "dataref PATH = V | PATH[i] = V | PATH[i..j] = V | PATH absent | PATH TYPE = V | PATH",
     1, 4, false, DatarefCommand},
    {"command", "command NAME present|absent", 2, 2, false, SimCommandCommand},
    {"plugin", "plugin SIGNATURE", 1, 1, false, OtherPluginCommand},
    {"no-system-symbol", "no-system-symbol", 0, 0, false, NoSystemSymbolCommand},
    {"plug", "plug MODEL as NAME [version V] [serial TEXT] [port P] [at UNIT]", 3, 11, false,
     PlugCommand},
    {"hid-device", "hid-device VID PID as NAME [serial TEXT] [port P] [at UNIT]", 4, 10, false, HidDeviceCommand},
    {"unplug", "unplug NAME", 1, 1, false, UnplugCommand},
    {"replug", "replug NAME [port P]", 1, 3, false, ReplugCommand},
    {"feature", "feature NAME ID = HEX", 4, kAny, false, FeatureCommand},
    {"fail", "fail NAME open|read|write|feature|block|feature-block on|off", 3, 3, false, FailCommand},

    // Running the plug-in
    {"start", "start", 0, 0, false, ThenWaitForPanelOutput<StartCommand>},
    {"enable", "enable", 0, 0, false, ThenWaitForPanelOutput<EnableCommand>},
    {"disable", "disable", 0, 0, false, ThenWaitForPanelOutput<DisableCommand>},
    {"stop", "stop", 0, 0, false, ThenWaitForPanelOutput<StopCommand>},
    {"boot", "boot", 0, 0, false, ThenWaitForPanelOutput<BootCommand>},
    {"frame", "frame [N]", 0, 1, false, ThenWaitForPanelOutput<FrameCommand>},
    {"run", "run SECONDS", 1, 1, false, ThenWaitForPanelOutput<RunCommand>},
    {"repeat", "repeat COUNT ... end", 1, 1, true, RepeatCommand},
    {"message", "message FROM ID PARAM", 3, 3, false, ThenWaitForPanelOutput<MessageCommand>},
    {"plane-loaded", "plane-loaded", 0, 0, false, ThenWaitForPanelOutput<PlaneLoadedCommand>},
    {"menu", "menu \"ITEM\"", 1, 1, false, ThenWaitForPanelOutput<MenuCommand>},
    {"run-command", "run-command NAME [begin|end]", 1, 2, false,
     ThenWaitForPanelOutput<RunSimCommandCommand>},
    {"write-dataref", "write-dataref PATH = V | PATH[i] = V", 3, 3, false,
     ThenWaitForPanelOutput<WriteDatarefCommand>},

    // Acting on a panel
    {"report", "report NAME HEX", 2, kAny, false, ReportCommand},
    {"press", "press NAME B", 2, 2, false, PressCommand},
    {"release", "release NAME B", 2, 2, false, ReleaseCommand},
    {"tap", "tap NAME B", 2, 2, false, TapCommand},
    {"switch", "switch NAME S on|off", 3, 3, false, SwitchCommand},
    {"turn", "turn NAME ENCODER STEPS", 3, 3, false, TurnCommand},
    {"lever", "lever NAME L RAW [switch on|off]", 3, 5, false, LeverCommand},
    {"selector", "selector NAME S POSITION", 3, 3, false, SelectorCommand},

    // Checking
    {"expect dataref", "expect dataref PATH = V | PATH[i] = V | PATH absent", 2, 3, false,
     ExpectDatarefCommand},
    {"expect event", "expect event \"TEXT\"", 1, 1, false, ExpectEventCommand},
    {"expect no-event", "expect no-event \"TEXT\"", 1, 1, false, ExpectNoEventCommand},
    {"expect event-count", "expect event-count [\"TEXT\"] N", 1, 2, false, ExpectEventCountCommand},
    {"expect events", "expect events ... end", 0, 0, true, ExpectEventsCommand},
    {"expect ini", "expect ini SECTION KEY = VALUE | SECTION KEY absent", 3, 4, false,
     ExpectIniCommand},
    {"expect file", "expect file NAME ... end", 1, 1, true, ExpectFileCommand},
    {"expect aircraft-ini", "expect aircraft-ini SECTION KEY = VALUE | SECTION KEY absent | absent", 1, 4, false,
     ExpectAircraftIniCommand},
    {"expect aircraft-file", "expect aircraft-file ... end", 0, 0, true, ExpectAircraftFileCommand},
    {"expect log", "expect log \"LINE\"", 1, 1, false, ExpectLogCommand},
    {"expect no-log", "expect no-log \"LINE\"", 1, 1, false, ExpectNoLogCommand},
    {"expect xplane-log", "expect xplane-log \"TEXT\"", 1, 1, false, ExpectXPlaneLogCommand},
    {"expect no-xplane-log", "expect no-xplane-log \"TEXT\"", 1, 1, false, ExpectNoXPlaneLogCommand},
    {"expect xplane-log-lines", "expect xplane-log-lines N", 1, 1, false, ExpectXPlaneLogLinesCommand},
    {"expect window", "expect window \"TEXT\"", 1, 1, false, ExpectWindowCommand},
    {"expect no-window", "expect no-window", 0, 0, false, ExpectNoWindowCommand},
    {"expect screen", "expect screen \"TEXT\"", 1, 1, false, ExpectScreenCommand},
    {"expect sent", "expect sent NAME feature|output HEX", 3, kAny, false,
     ExpectSentCommand},
    {"expect sent-count", "expect sent-count NAME N", 2, 2, false, ExpectSentCountCommand},
    {"expect no-sent", "expect no-sent NAME", 1, 1, false, ExpectNoSentCommand},
    {"expect display", "expect display NAME D \"TEXT\"", 3, 3, false,
     ExpectDisplayCommand},
    {"expect leds", "expect leds NAME MASK", 2, 2, false, ExpectLedsCommand},
    {"expect colour", "expect colour NAME LIGHT R G B", 5, 5, false,
     ExpectColourCommand},
    {"expect brightness", "expect brightness NAME V", 2, 2, false,
     ExpectBrightnessCommand},
    {"expect units", "expect units MODEL N", 2, 2, false, ExpectUnitsCommand},
    {"expect dialog",
     "expect dialog open|closed | title \"TEXT\" | devices \"TEXT\" | rows N | "
     "row ROW \"CAPTION\" \"SELECTED\" | slider ROW \"CAPTION\" \"MIN\" \"VALUE\" \"MAX\" | "
     "profile \"FROM\" \"SAVE\"",
     1, 6, false, ExpectDialogCommand},
    {"clear", "clear", 0, 0, false, PanelClearCommand},

    // The Assign Functions dialog
    {"dialog",
     "dialog device N | pick ROW \"ITEM\" | colour ROW \"ITEM\" | slider ROW VALUE | save \"ITEM\" | close", 1, 3,
     false, ThenWaitForPanelOutput<DialogCommand>},

    // Showing
    {"show", "show [NAME]", 0, 1, false, ShowCommand},
    {"screenshot", "screenshot FILE.svg", 1, 1, false, ScreenshotCommand},
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
