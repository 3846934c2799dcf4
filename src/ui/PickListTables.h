// The names offered by the Assign Functions dialog's pick lists, in the order the pilot sees them.
// Each table is one run of a list; FunctionPickLists joins the runs. Names are the catalogue's,
// except four that the catalogue lacks and that therefore load as no function: "PANEL_BRIGHT_DECR",
// "PANEL_BRIGHT_INCR" and "XPDR_TEST" (buttons and toggles) and "WATER_RUDDER" (the GF-LGT lever).
#pragma once

#include <span>

namespace drav {

using NameTable = std::span<const char* const>;

// Push buttons: the engine and system switches, up to the x737 insertion point.
extern const NameTable kButtonLeadNames;
// Offered to buttons and toggles only while the x737 drives its own autopilot.
extern const NameTable kX737Names;
// Push buttons, after the x737 insertion point.
extern const NameTable kButtonTailNames;
// Two-position switches, up to the x737 insertion point.
extern const NameTable kToggleLeadNames;
// Two-position switches, after the x737 insertion point.
extern const NameTable kToggleTailNames;
// A button aimed at a mode of GF-166 unit N ("%d" is N, counted from 1).
extern const NameTable kGF166RadioFormats;
// A button aimed at a mode of GF-45 unit N.
extern const NameTable kGF45RadioFormats;
// A button aimed at a mode of GF-46 unit N.
extern const NameTable kGF46RadioFormats;
// Display modes and encoders of the GF-45 and GF-46.
extern const NameTable kRadioAvionicNames;
// Display modes and encoders of the GF-166 (both displays at once).
extern const NameTable kGF166AvionicNames;
// Knobs of the GF-MCP, GF-MCPPro and GF-EFIS.
extern const NameTable kPanelAvionicNames;
// Knobs of the GF-RP48, with coarse and fine frequency steps.
extern const NameTable kRP48AvionicNames;
// Throttle-quadrant levers.
extern const NameTable kLeverNames;
// Annunciator buttons of the GF-WCP.
extern const NameTable kWcpNames;

}  // namespace drav
