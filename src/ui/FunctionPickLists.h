// The pop-up lists of the Assign Functions dialog: for each kind of control, the function names that
// suit it, as one text of items each followed by ";", beginning with "No Selection". Lists are built
// afresh whenever the dialog shows a unit and grow with their content (nothing is ever cut).
#pragma once

#include <cstdint>
#include <string>

namespace drav {

inline constexpr const char* kNoSelectionItem = "No Selection";
inline constexpr char kItemSeparator = ';';
inline constexpr const char* kColourList = "BLACK;WHITE;RED;GREEN;BLUE;MAGENTA;YELLOW;CYAN;";

// What the lists depend on besides their fixed tables: the x737 items and the connected radio units
// whose modes a button can be aimed at.
struct PickListContext {
  bool x737Mode = false;
  std::int32_t gf166Units = 0;
  std::int32_t gf45Units = 0;
  std::int32_t gf46Units = 0;
};

// The context of the running plug-in: X737Mode and the module manager's unit counts.
PickListContext CurrentPickListContext();

std::string GetButtonFunctionList(const PickListContext& context);
std::string GetToggleFunctionList(const PickListContext& context);
// The encoder and display-mode names of one model; just "No Selection;" for models without any.
std::string GetAvionicFunctionList(std::uint32_t moduleType);
std::string GetLeverFunctionList();
std::string GetWCPFunctionList();

// The same with the running plug-in's context.
std::string GetButtonFunctionList();
std::string GetToggleFunctionList();

}  // namespace drav
