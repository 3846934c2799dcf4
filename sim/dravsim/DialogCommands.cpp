#include "dravsim/DialogCommands.h"

#include <XPStandardWidgets.h>

#include <optional>
#include <string>
#include <vector>

#include "dravsim/CommandArgs.h"
#include "dravsim/DialogPopup.h"

namespace dravsim {
namespace {

DialogWidgetSource gSource = nullptr;

std::optional<drav::AssignDialogWidgets> OpenDialog() {
  drav::AssignDialogWidgets widgets;
  const DialogWidgetSource source = gSource != nullptr ? gSource : drav::GetAssignDialogWidgets;
  if (!source(widgets)) return std::nullopt;
  return widgets;
}

// A sub-command: the words after "dialog" or "expect dialog", the first naming it.
struct SubCommand {
  std::string_view word;
  std::size_t argCount;  // words after `word`
  void (*run)(ScenarioContext& ctx, const Invocation& call, const drav::AssignDialogWidgets& dialog);
};

template <std::size_t N>
const SubCommand* FindSubCommand(const SubCommand (&table)[N], const Invocation& call) {
  if (call.args.empty() || call.args[0].quoted) return nullptr;
  for (const SubCommand& row : table) {
    if (row.word == call.args[0].text && row.argCount + 1 == call.args.size()) return &row;
  }
  return nullptr;
}

std::optional<std::size_t> RowArg(ScenarioContext& ctx, const Invocation& call, std::size_t index,
                                  int rows) {
  const auto row = IntegerArg(ctx, call, index, 0, rows - 1);
  if (!row) return std::nullopt;
  return static_cast<std::size_t>(*row);
}

// What a pilot reads on a widget: nothing when it is hidden.
std::string ShownText(const sim::SimHost& host, void* widget) {
  const auto snapshot = host.DescribeWidget(widget);
  return snapshot && snapshot->visible ? snapshot->descriptor : std::string();
}

// ---- dialog ... ---------------------------------------------------------------------------------

void PickIn(ScenarioContext& ctx, const Invocation& call, void* popup, std::size_t index) {
  if (const auto problem = PickPopupItem(ctx.host, popup, index)) CommandError(ctx, call, *problem);
}

// Finds ITEM in the pop-up's list; a disabled item is found too, and refused when picked.
void PickNamed(ScenarioContext& ctx, const Invocation& call, void* popup, const std::string& item) {
  const auto snapshot = ctx.host.DescribeWidget(popup);
  if (!snapshot || !snapshot->visible) {
    CommandError(ctx, call, "row " + call.args[1].text + " is hidden");
    return;
  }
  const std::vector<PopupItem> items = SplitPopupItems(snapshot->descriptor);
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (items[i].text == item) {
      PickIn(ctx, call, popup, i);
      return;
    }
  }
  CommandError(ctx, call, "no item " + Quoted(item) + " in row " + call.args[1].text + "'s list");
}

void DeviceAction(ScenarioContext& ctx, const Invocation& call, const drav::AssignDialogWidgets& d) {
  const auto index = IntegerArg(ctx, call, 1, 0, 1'000'000);
  if (index) PickIn(ctx, call, d.devicePopup, static_cast<std::size_t>(*index));
}

void PickAction(ScenarioContext& ctx, const Invocation& call, const drav::AssignDialogWidgets& d) {
  if (const auto row = RowArg(ctx, call, 1, drav::kDialogFunctionRows)) {
    PickNamed(ctx, call, d.functionPopup[*row], call.args[2].text);
  }
}

void ColourAction(ScenarioContext& ctx, const Invocation& call, const drav::AssignDialogWidgets& d) {
  if (const auto row = RowArg(ctx, call, 1, drav::kDialogColourRows)) {
    PickNamed(ctx, call, d.colourPopup[*row], call.args[2].text);
  }
}

void SliderAction(ScenarioContext& ctx, const Invocation& call, const drav::AssignDialogWidgets& d) {
  const auto row = RowArg(ctx, call, 1, drav::kDialogSliderRows);
  const auto value = row ? IntegerArg(ctx, call, 2, -1'000'000, 1'000'000) : std::nullopt;
  if (!value) return;
  void* slider = d.sliders[*row].slider;
  const auto before = ctx.host.DescribeWidget(slider);
  if (!before || !before->visible) {
    CommandError(ctx, call, "slider row " + call.args[1].text + " is hidden");
    return;
  }
  ctx.host.DragSlider(slider, static_cast<int>(*value));
  const auto after = ctx.host.DescribeWidget(slider);
  const std::intptr_t position = after ? after->Property(xpProperty_ScrollBarSliderPosition) : 0;
  if (position != *value) {
    CommandError(ctx, call, "the slider stopped at " + std::to_string(position) + " (its range is " +
                                std::to_string(after ? after->Property(xpProperty_ScrollBarMin) : 0) + " to " +
                                std::to_string(after ? after->Property(xpProperty_ScrollBarMax) : 0) + ")");
  }
}

// `dialog save "ITEM"`: where the next picks are saved.
void SaveAction(ScenarioContext& ctx, const Invocation& call, const drav::AssignDialogWidgets& d) {
  PickNamed(ctx, call, d.savePopup, call.args[1].text);
}

void CloseAction(ScenarioContext& ctx, const Invocation& call, const drav::AssignDialogWidgets& d) {
  if (!ctx.host.ClickCloseBox(d.mainWindow)) CommandError(ctx, call, "the window has no close box");
}

constexpr SubCommand kActions[] = {
    {"device", 1, DeviceAction}, {"pick", 2, PickAction},   {"colour", 2, ColourAction},
    {"slider", 2, SliderAction}, {"close", 0, CloseAction},  {"save", 1, SaveAction},
};

// ---- expect dialog ... --------------------------------------------------------------------------

void Compare(ScenarioContext& ctx, const std::string& what, const std::string& expected,
             const std::string& found) {
  if (expected == found) {
    ctx.Pass();
  } else {
    ctx.Fail(what + " " + Quoted(expected), Quoted(found));
  }
}

void ExpectTitle(ScenarioContext& ctx, const Invocation& call, const drav::AssignDialogWidgets& d) {
  Compare(ctx, "dialog title", call.args[1].text, ShownText(ctx.host, d.mainWindow));
}

// The list as the dialog gives it to the pop-up, less the ";" that ends every item, so that
// "GF-46 Unit 1;GF-P8 Unit 1" is written as a reader would list it. A list without items
// ("(No devices found.)") reads as it is.
void ExpectDevices(ScenarioContext& ctx, const Invocation& call, const drav::AssignDialogWidgets& d) {
  std::string list = ShownText(ctx.host, d.devicePopup);
  if (list.ends_with(';')) list.pop_back();
  Compare(ctx, "dialog devices", call.args[1].text, list);
}

void ExpectRows(ScenarioContext& ctx, const Invocation& call, const drav::AssignDialogWidgets& d) {
  const auto expected = IntegerArg(ctx, call, 1, 0, drav::kDialogFunctionRows);
  if (!expected) return;
  int visible = 0;
  for (void* popup : d.functionPopup) {
    const auto snapshot = ctx.host.DescribeWidget(popup);
    visible += snapshot && snapshot->visible ? 1 : 0;
  }
  if (visible == *expected) {
    ctx.Pass();
  } else {
    ctx.Fail("dialog rows " + std::to_string(*expected), std::to_string(visible) + " visible rows");
  }
}

void ExpectRow(ScenarioContext& ctx, const Invocation& call, const drav::AssignDialogWidgets& d) {
  const auto row = RowArg(ctx, call, 1, drav::kDialogFunctionRows);
  if (!row) return;
  const auto popup = ctx.host.DescribeWidget(d.functionPopup[*row]);
  const std::string what = "dialog row " + call.args[1].text + " " + Quoted(call.args[2].text) +
                           " " + Quoted(call.args[3].text);
  if (!popup || !popup->visible) {
    ctx.Fail(what, "row " + call.args[1].text + " is hidden");
    return;
  }
  const std::string caption = ShownText(ctx.host, d.functionCaption[*row]);
  const std::string selected = ShownPopupItem(*popup);
  if (caption == call.args[2].text && selected == call.args[3].text) {
    ctx.Pass();
  } else {
    ctx.Fail(what, Quoted(caption) + " " + Quoted(selected));
  }
}

void ExpectSlider(ScenarioContext& ctx, const Invocation& call, const drav::AssignDialogWidgets& d) {
  const auto row = RowArg(ctx, call, 1, drav::kDialogSliderRows);
  if (!row) return;
  const drav::AssignDialogSliderWidgets& slider = d.sliders[*row];
  const std::vector<std::string> found = {
      ShownText(ctx.host, slider.caption), ShownText(ctx.host, slider.minimumLabel),
      ShownText(ctx.host, slider.valueLabel), ShownText(ctx.host, slider.maximumLabel)};
  const std::vector<std::string> expected = {call.args[2].text, call.args[3].text,
                                             call.args[4].text, call.args[5].text};
  if (found == expected) {
    ctx.Pass();
  } else {
    ctx.Fail("dialog slider " + call.args[1].text + " " + QuotedList(expected), QuotedList(found));
  }
}

// `expect dialog profile "FROM" "SAVE"`: where the unit's assignments come from and where a pick
// goes, as shown (both empty while hidden).
void ExpectProfile(ScenarioContext& ctx, const Invocation& call, const drav::AssignDialogWidgets& d) {
  const auto popup = ctx.host.DescribeWidget(d.savePopup);
  const std::vector<std::string> found = {ShownText(ctx.host, d.profileCaption),
                                          popup && popup->visible ? ShownPopupItem(*popup) : std::string()};
  const std::vector<std::string> expected = {call.args[1].text, call.args[2].text};
  if (found == expected) {
    ctx.Pass();
  } else {
    ctx.Fail("dialog profile " + QuotedList(expected), QuotedList(found));
  }
}

constexpr SubCommand kChecks[] = {
    {"title", 1, ExpectTitle}, {"devices", 1, ExpectDevices}, {"rows", 1, ExpectRows},
    {"row", 3, ExpectRow},     {"slider", 5, ExpectSlider}, {"profile", 2, ExpectProfile},
};

void ExpectOpenOrClosed(ScenarioContext& ctx, bool wantOpen) {
  const bool open = OpenDialog().has_value();
  if (open == wantOpen) {
    ctx.Pass();
  } else {
    ctx.Fail(wantOpen ? "dialog open" : "dialog closed", open ? "it is open" : "it is closed");
  }
}

}  // namespace

void SetDialogWidgetSource(DialogWidgetSource source) { gSource = source; }

void DialogCommand(ScenarioContext& ctx, const Invocation& call) {
  const SubCommand* action = FindSubCommand(kActions, call);
  if (action == nullptr) {
    UsageError(ctx, call);
    return;
  }
  const auto dialog = OpenDialog();
  if (!dialog) {
    CommandError(ctx, call, "the dialog is not open");
    return;
  }
  action->run(ctx, call, *dialog);
}

void ExpectDialogCommand(ScenarioContext& ctx, const Invocation& call) {
  if (call.args.size() == 1 && (IsKeyword(call.args[0], "open") || IsKeyword(call.args[0], "closed"))) {
    ExpectOpenOrClosed(ctx, IsKeyword(call.args[0], "open"));
    return;
  }
  const SubCommand* check = FindSubCommand(kChecks, call);
  if (check == nullptr) {
    UsageError(ctx, call);
    return;
  }
  const auto dialog = OpenDialog();
  if (!dialog) {
    ctx.Fail("dialog " + call.args[0].text, "the dialog is closed");
    return;
  }
  check->run(ctx, call, *dialog);
}

}  // namespace dravsim
