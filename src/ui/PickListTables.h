// The functions offered by the Assign Functions dialog's pick lists, in the order the pilot sees
// them. Each table is one run of a list; FunctionPickLists joins the runs. Items are catalogue
// functions, except three of the button and toggle lists that the catalogue lacks and that
// therefore load as no function: "PANEL_BRIGHT_DECR", "PANEL_BRIGHT_INCR" and "XPDR_TEST".
#pragma once

#include <span>

#include "functions/FunctionCatalogue.h"

namespace drav {

// One item of a list: a catalogue function by its id name, or a name the catalogue lacks.
struct PickItem {
  constexpr PickItem(FunctionName function) : id(function) {}
  constexpr explicit PickItem(const char* uncatalogued) : text(uncatalogued) {}

  // The text the list shows, which is what DRAV.INI stores when it is picked.
  const char* Name() const { return text != nullptr ? text : GetFunctionName(id); }

  FunctionId id = kNada;
  const char* text = nullptr;
};

using PickTable = std::span<const PickItem>;

// The modes of one radio model that a button can be aimed at: each item is the unit's section
// (unitFormat, "%d" the unit counted from 1) followed by the avionic function's INI suffix, as in
// "GF166_1_FUNC_COM1_DUAL".
struct RadioPickTable {
  const char* unitFormat;
  std::span<const FunctionId> modes;
};

// Push buttons: the engine and system switches, up to the x737 insertion point.
extern const PickTable kButtonLeadItems;
// Offered to buttons and toggles only while the x737 drives its own autopilot.
extern const PickTable kX737Items;
// Push buttons, after the x737 insertion point.
extern const PickTable kButtonTailItems;
// Two-position switches, up to the x737 insertion point.
extern const PickTable kToggleLeadItems;
// Two-position switches, after the x737 insertion point.
extern const PickTable kToggleTailItems;
// A button aimed at a mode of GF-166 unit N.
extern const RadioPickTable kGF166RadioModes;
// A button aimed at a mode of GF-45 unit N.
extern const RadioPickTable kGF45RadioModes;
// A button aimed at a mode of GF-46 unit N.
extern const RadioPickTable kGF46RadioModes;
// Display modes and encoders of the GF-45 and GF-46.
extern const PickTable kRadioAvionicItems;
// Display modes and encoders of the GF-166 (both displays at once).
extern const PickTable kGF166AvionicItems;
// Knobs of the GF-MCP, GF-MCPPro and GF-EFIS.
extern const PickTable kPanelAvionicItems;
// Knobs of the GF-RP48, with coarse and fine frequency steps.
extern const PickTable kRP48AvionicItems;
// Throttle-quadrant levers.
extern const PickTable kLeverItems;
// Annunciator buttons of the GF-WCP.
extern const PickTable kWcpItems;

}  // namespace drav
