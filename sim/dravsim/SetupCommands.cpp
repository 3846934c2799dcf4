// Commands that set up the simulator: its version, files, datarefs, commands, other plug-ins and
// the optional API.
#include <climits>
#include <filesystem>

#include "base/IniFile.h"
#include "dravsim/CommandArgs.h"
#include "dravsim/CommandHandlers.h"
#include "dravsim/DatarefSyntax.h"
#include "dravsim/PluginFiles.h"

namespace dravsim {
namespace {

void WriteBlockFile(ScenarioContext& ctx, const Invocation& call, std::string_view name) {
  std::string error;
  const auto path = PluginFilePath(ctx.host, name, error);
  if (!path) {
    CommandError(ctx, call, error);
    return;
  }
  if (!WriteLines(*path, call.block)) {
    CommandError(ctx, call, "cannot write " + path->string());
    return;
  }
  ctx.Note(std::to_string(call.block.size()) + " lines written to " + std::string(name));
}

void SetDataref(ScenarioContext& ctx, const Invocation& call, const DatarefTarget& target,
                double value) {
  if (!ctx.host.HasDataref(target.path)) {
    CommandError(ctx, call,
                 "unknown dataref " + target.path + " (add it with `dataref PATH TYPE = V`)");
    return;
  }
  if (!ctx.host.SetDatarefValue(target.path, target.first, target.last, value)) {
    CommandError(ctx, call,
                 "cannot set " + DescribeTarget(target) +
                     " (index out of range, or a plug-in's dataref: use write-dataref)");
  }
}

// `dataref PATH TYPE [= V]`: a new dataref, holding V (or zeros).
void AddDataref(ScenarioContext& ctx, const Invocation& call, const DatarefTarget& target) {
  const auto decl = ParseDatarefType(target.path, call.args[1].text);
  const bool valueFits = call.args.size() == 2 ||
                         (call.args.size() == 4 && IsKeyword(call.args[2], "="));
  if (!decl || call.args[1].quoted || target.HasIndex() || !valueFits) {
    UsageError(ctx, call);
    return;
  }
  std::optional<double> value = 0.0;
  if (call.args.size() == 4 && !(value = RealArg(ctx, call, 3))) return;
  if (!ctx.host.AddDataref(*decl)) {
    CommandError(ctx, call, "cannot add " + target.path);
    return;
  }
  if (*value != 0.0) ctx.host.SetDatarefValue(target.path, -1, -1, *value);
}

}  // namespace

void XPlaneVersionCommand(ScenarioContext& ctx, const Invocation& call) {
  const auto version = IntegerArg(ctx, call, 0, 1, INT_MAX);
  if (version) ctx.host.SetXPlaneVersion(static_cast<int>(*version));
}

void IniCommand(ScenarioContext& ctx, const Invocation& call) {
  WriteBlockFile(ctx, call, drav::kConfigFileName);
}

void FileCommand(ScenarioContext& ctx, const Invocation& call) {
  WriteBlockFile(ctx, call, call.args[0].text);
}

// `aircraft PATH`: the file X-Plane reports for the user's aircraft, inside the X-Plane folder.
void AircraftCommand(ScenarioContext& ctx, const Invocation& call) {
  const std::filesystem::path relative(call.args[0].text);
  bool climbs = false;
  for (const auto& part : relative) climbs = climbs || part == "..";
  if (!relative.has_parent_path() || relative.has_root_name() || relative.has_root_directory() || climbs) {
    CommandError(ctx, call, "the aircraft \"" + call.args[0].text + "\" must be a file in a folder of the X-Plane folder");
    return;
  }
  ctx.host.SetUserAircraft(relative);
}

// `aircraft-ini ... end`: the lines become DRAV.INI in the user's aircraft's folder.
void AircraftIniCommand(ScenarioContext& ctx, const Invocation& call) {
  const std::filesystem::path path = ctx.host.UserAircraftFile().parent_path() / drav::kConfigFileName;
  if (!WriteLines(path, call.block)) {
    CommandError(ctx, call, "cannot write " + path.string());
    return;
  }
  ctx.Note(std::to_string(call.block.size()) + " lines written to the aircraft's DRAV.INI");
}

namespace {

void PrintDataref(ScenarioContext& ctx, const DatarefTarget& target) {
  const auto decl = ctx.host.DescribeDataref(target.path);
  if (!decl) {
    ctx.Echo(target.path + " absent");
    return;
  }
  const bool isArray = decl->type == sim::DatarefType::IntArray || decl->type == sim::DatarefType::FloatArray;
  const int first = target.HasIndex() ? target.first : 0;
  const int last = target.HasIndex() ? target.last : (isArray ? decl->length - 1 : 0);
  std::string text = target.path + " =";
  for (int i = first; i <= last; ++i) {
    const auto value = ctx.host.GetDatarefValue(target.path, isArray ? i : -1);
    const bool isFloat = decl->type != sim::DatarefType::Int && decl->type != sim::DatarefType::IntArray;
    text += ' ';
    text += value ? sim::FormatEventNumber(*value, isFloat) : std::string("?");
  }
  ctx.Echo(text);
}

}  // namespace

void DatarefCommand(ScenarioContext& ctx, const Invocation& call) {
  std::string error;
  const auto target = ParseDatarefTarget(call.args[0].text, error);
  if (!target) {
    CommandError(ctx, call, error);
    return;
  }
  if (call.args.size() == 1) {
    PrintDataref(ctx, *target);  // for a person at the terminal: what the simulator holds now
  } else if (call.args.size() == 2 && IsKeyword(call.args[1], "absent")) {
    if (target->HasIndex()) {
      UsageError(ctx, call);
      return;
    }
    ctx.host.RemoveDataref(target->path);
  } else if (call.args.size() == 3 && IsKeyword(call.args[1], "=")) {
    if (const auto value = RealArg(ctx, call, 2)) SetDataref(ctx, call, *target, *value);
  } else {
    AddDataref(ctx, call, *target);
  }
}

void SimCommandCommand(ScenarioContext& ctx, const Invocation& call) {
  const Word& state = call.args[1];
  if (!IsKeyword(state, "present") && !IsKeyword(state, "absent")) {
    UsageError(ctx, call);
    return;
  }
  ctx.host.SetCommandKnown(call.args[0].text, state.text == "present");
}

void OtherPluginCommand(ScenarioContext& ctx, const Invocation& call) {
  const int id = ctx.host.AddOtherPlugin(call.args[0].text);
  ctx.Note("plug-in id " + std::to_string(id));
}

void NoSystemSymbolCommand(ScenarioContext& ctx, const Invocation& /*call*/) {
  ctx.host.SetSystemSymbolsAvailable(false);
}

}  // namespace dravsim
