#include "functions/AvionicAdjust.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>

#include "functions/AvionicDisplay.h"
#include "functions/CustomBindings.h"
#include "functions/DatarefBinding.h"
#include "functions/DigitField.h"
#include "functions/FunctionObjects.h"
#include "base/HostState.h"
#include "base/OptionalXplmApi.h"
#include "base/Settings.h"
#include "hid/ModuleTypes.h"

namespace drav {
namespace {

enum class Knob : std::uint8_t { None, Inner, Outer };

// How the simulator's value becomes the integer that the digit fields turn, and back.
enum class Scale : std::uint8_t {
  Whole,              // the value truncated
  ComKilohertz,       // units of 10 kHz taken as kHz, the 25 kHz channels restored; written back / 10
  TransponderPairs,   // the code as two octal digit pairs
  RoundedHundredths,  // f x 100 + 0.5, truncated; written back / 100 (Mach, inches of mercury)
  TruncatedPercent,   // f x 100, truncated; written back / 100 (brightness ratios)
};

enum class Action : std::uint8_t { None, Digits, Trim, DisplayBrightness };

struct KnobTurn {
  Knob knob = Knob::None;
  DigitField field{};
};

struct AdjustPlan {
  Action action = Action::None;
  Scale scale = Scale::Whole;
  KnobTurn turns[2] = {};  // applied in this order
  float trimIncrement = 0.0f;
};

// Which modules turn a single-knob selector with their outer knob instead of the inner one.
enum class OuterKnobOn : std::uint8_t { NoModule, RadioModules, GF46 };

using PlanMaker = AdjustPlan (*)(AvionicFunction& function, std::uint32_t moduleType);

// One adjustable id: a fixed plan, or a maker for plans that depend on the module or the simulator.
struct AdjustRow {
  FunctionId id;
  AdjustPlan plan;
  PlanMaker variant = nullptr;
  OuterKnobOn outerKnobOn = OuterKnobOn::NoModule;
};

// ---- the digit fields --------------------------------------------------------------------------

constexpr DigitField kComKilohertz{0, 3, 0, 975, 25, true};
constexpr DigitField kComMegahertz{3, 3, 118, 136, 1, true};
constexpr DigitField kNavTensOfKilohertz{0, 2, 0, 95, 5, true};
constexpr DigitField kNavMegahertz{2, 3, 108, 117, 1, true};
constexpr DigitField kAdfTensAndUnits{0, 2, 0, 99, 1, true};
// One digit only: the hundreds of a 1000-kHz-and-up frequency turn without touching its thousands.
constexpr DigitField kAdfHundreds{2, 1, 2, 9, 1, true};
constexpr DigitField kTransponderLowPair{0, 2, 0, 63, 1, true};
constexpr DigitField kTransponderHighPair{2, 2, 0, 63, 1, true};
constexpr DigitField kDegreesFine{0, 3, 1, 360, 1, true};
constexpr DigitField kDegreesCoarse{0, 3, 1, 360, 100, false};
constexpr DigitField kMachHundredths{0, 5, 0, 300, 1, false};
constexpr DigitField kKnots{0, 5, 0, 995, 1, false};
constexpr DigitField kAltimeterHundredths{0, 4, 2400, 3400, 1, false};
constexpr DigitField kDecisionHeightFeet{0, 4, 0, 9999, 10, false};
constexpr DigitField kDecisionHeightTensAndUnits{0, 2, 0, 99, 1, true};
constexpr DigitField kDecisionHeightHundreds{2, 2, 0, 99, 1, false};
constexpr DigitField kBrightnessPercent{0, 3, 10, 100, 5, false};
constexpr DigitField kDisplayBrightnessLevel{0, 2, 1, 15, 1, false};

constexpr DigitField TransponderDigit(std::int32_t position) { return {position, 1, 0, 7, 1, true}; }
constexpr DigitField AltitudeFeet(std::int32_t step) { return {0, 5, 0, 99990, step, false}; }
constexpr DigitField VerticalSpeed(std::int32_t step) { return {0, 4, -9900, 9900, step, false}; }
constexpr DigitField Selector(std::int32_t lastPosition) { return {0, 2, 0, lastPosition, 1, false}; }

// ---- the plans ---------------------------------------------------------------------------------

constexpr KnobTurn Inner(DigitField field) { return {Knob::Inner, field}; }
constexpr KnobTurn Outer(DigitField field) { return {Knob::Outer, field}; }

constexpr AdjustPlan Digits(Scale scale, KnobTurn first, KnobTurn second = {}) {
  return {Action::Digits, scale, {first, second}, 0.0f};
}
constexpr AdjustPlan Whole(KnobTurn first, KnobTurn second = {}) { return Digits(Scale::Whole, first, second); }

constexpr AdjustPlan kComDual = Digits(Scale::ComKilohertz, Inner(kComKilohertz), Outer(kComMegahertz));
constexpr AdjustPlan kComCoarse = Digits(Scale::ComKilohertz, Inner(kComMegahertz));
constexpr AdjustPlan kComFine = Digits(Scale::ComKilohertz, Inner(kComKilohertz));
constexpr AdjustPlan kNavDual = Whole(Inner(kNavTensOfKilohertz), Outer(kNavMegahertz));
constexpr AdjustPlan kNavCoarse = Whole(Inner(kNavMegahertz));
constexpr AdjustPlan kNavFine = Whole(Inner(kNavTensOfKilohertz));
constexpr AdjustPlan kAdfDual = Whole(Inner(kAdfTensAndUnits), Outer(kAdfHundreds));
constexpr AdjustPlan kAdfCoarse = Whole(Inner(kAdfHundreds));
constexpr AdjustPlan kAdfFine = Whole(Inner(kAdfTensAndUnits));
constexpr AdjustPlan kTransponder =
    Digits(Scale::TransponderPairs, Inner(kTransponderLowPair), Outer(kTransponderHighPair));
constexpr AdjustPlan kAltimeter = Digits(Scale::RoundedHundredths, Inner(kAltimeterHundredths));
constexpr AdjustPlan kBrightness = Digits(Scale::TruncatedPercent, Inner(kBrightnessPercent));
constexpr AdjustPlan kDisplayBrightness = {
    Action::DisplayBrightness, Scale::Whole, {Inner(kDisplayBrightnessLevel)}, 0.0f};

constexpr AdjustPlan TransponderDigitPlan(std::int32_t position) { return Whole(Inner(TransponderDigit(position))); }
constexpr AdjustPlan SelectorPlan(std::int32_t lastPosition) { return Whole(Inner(Selector(lastPosition))); }

bool IsOneOf(std::uint32_t moduleType, std::initializer_list<ModuleType> types) {
  return std::find(types.begin(), types.end(), moduleType) != types.end();
}

// The GF-46 and GF-166 set courses with the outer knob in single degrees (applied first) and the
// inner in hundreds; the GF-45 the other way round; every other panel has one knob of single degrees.
AdjustPlan CoursePlan(AvionicFunction&, std::uint32_t moduleType) {
  if (IsOneOf(moduleType, {kModuleGF46, kModuleGF166})) return Whole(Outer(kDegreesFine), Inner(kDegreesCoarse));
  if (moduleType == kModuleGF45) return Whole(Inner(kDegreesFine), Outer(kDegreesCoarse));
  return Whole(Inner(kDegreesFine));
}

AdjustPlan SpeedPlan(AvionicFunction& function, std::uint32_t) {
  if (ReadBinding(function.auxBinding) == 1) return Digits(Scale::RoundedHundredths, Inner(kMachHundredths));
  return Whole(Inner(kKnots));
}

// The altitude-knob flag selects fine steps of 10 feet.
AdjustPlan AltitudePlan(AvionicFunction& function, std::uint32_t) {
  return Whole(Inner(AltitudeFeet(ReadBinding(function.auxBinding) == 1 ? 10 : 100)));
}

AdjustPlan VerticalSpeedPlan(AvionicFunction&, std::uint32_t) {
  return Whole(Inner(VerticalSpeed(CurrentHostFlags().x737Mode ? 50 : 100)));
}

// The RP48 and EFIS turn the whole height in tens of feet; every other panel turns the units
// (wrapping) and the hundreds (clamped) as two fields.
AdjustPlan DecisionHeightPlan(AvionicFunction&, std::uint32_t moduleType) {
  if (IsOneOf(moduleType, {kModuleGFRP48, kModuleGFEFIS})) return Whole(Inner(kDecisionHeightFeet));
  return Whole(Inner(kDecisionHeightTensAndUnits), Outer(kDecisionHeightHundreds));
}

// The increment is read per call: the settings are process-wide values, not part of the plan.
template <float GlobalSettings::*Increment>
AdjustPlan TrimPlan(AvionicFunction&, std::uint32_t) {
  return {Action::Trim, Scale::Whole, {}, CurrentSettings().*Increment};
}

constexpr AdjustRow Varies(FunctionId id, PlanMaker maker) {
  return AdjustRow{id, AdjustPlan{}, maker, OuterKnobOn::NoModule};
}

// Every adjustable id; any other id leaves its value alone.
constexpr std::array kAdjustRows = {
    // ADF1, ADF2 active, standby, dual; coarse and fine
    AdjustRow{kFnADF1_ACTIVE, kAdfDual}, AdjustRow{kFnADF1_STANDBY, kAdfDual}, AdjustRow{kFnADF1_DUAL, kAdfDual},
    AdjustRow{kFnADF2_ACTIVE, kAdfDual}, AdjustRow{kFnADF2_STANDBY, kAdfDual}, AdjustRow{kFnADF2_DUAL, kAdfDual},
    AdjustRow{kFnADF1_ACTIVE_COARSE, kAdfCoarse}, AdjustRow{kFnADF1_STANDBY_COARSE, kAdfCoarse},
    AdjustRow{kFnADF2_ACTIVE_COARSE, kAdfCoarse}, AdjustRow{kFnADF2_STANDBY_COARSE, kAdfCoarse},
    AdjustRow{kFnADF1_ACTIVE_FINE, kAdfFine}, AdjustRow{kFnADF1_STANDBY_FINE, kAdfFine},
    AdjustRow{kFnADF2_ACTIVE_FINE, kAdfFine}, AdjustRow{kFnADF2_STANDBY_FINE, kAdfFine},
    // COM1, COM2 active, standby, dual; coarse and fine
    AdjustRow{kFnCOM1_ACTIVE, kComDual}, AdjustRow{kFnCOM1_STANDBY, kComDual}, AdjustRow{kFnCOM1_DUAL, kComDual},
    AdjustRow{kFnCOM2_ACTIVE, kComDual}, AdjustRow{kFnCOM2_STANDBY, kComDual}, AdjustRow{kFnCOM2_DUAL, kComDual},
    AdjustRow{kFnCOM1_ACTIVE_COARSE, kComCoarse}, AdjustRow{kFnCOM1_STANDBY_COARSE, kComCoarse},
    AdjustRow{kFnCOM2_ACTIVE_COARSE, kComCoarse}, AdjustRow{kFnCOM2_STANDBY_COARSE, kComCoarse},
    AdjustRow{kFnCOM1_ACTIVE_FINE, kComFine}, AdjustRow{kFnCOM1_STANDBY_FINE, kComFine},
    AdjustRow{kFnCOM2_ACTIVE_FINE, kComFine}, AdjustRow{kFnCOM2_STANDBY_FINE, kComFine},
    // DME, NAV1, NAV2 active, standby, dual; coarse and fine
    AdjustRow{kFnDME_ACTIVE, kNavDual}, AdjustRow{kFnDME_STANDBY, kNavDual}, AdjustRow{kFnDME_DUAL, kNavDual},
    AdjustRow{kFnNAV1_ACTIVE, kNavDual}, AdjustRow{kFnNAV1_STANDBY, kNavDual}, AdjustRow{kFnNAV1_DUAL, kNavDual},
    AdjustRow{kFnNAV2_ACTIVE, kNavDual}, AdjustRow{kFnNAV2_STANDBY, kNavDual}, AdjustRow{kFnNAV2_DUAL, kNavDual},
    AdjustRow{kFnDME_ACTIVE_COARSE, kNavCoarse}, AdjustRow{kFnDME_STANDBY_COARSE, kNavCoarse},
    AdjustRow{kFnNAV1_ACTIVE_COARSE, kNavCoarse}, AdjustRow{kFnNAV1_STANDBY_COARSE, kNavCoarse},
    AdjustRow{kFnNAV2_ACTIVE_COARSE, kNavCoarse}, AdjustRow{kFnNAV2_STANDBY_COARSE, kNavCoarse},
    AdjustRow{kFnDME_ACTIVE_FINE, kNavFine}, AdjustRow{kFnDME_STANDBY_FINE, kNavFine},
    AdjustRow{kFnNAV1_ACTIVE_FINE, kNavFine}, AdjustRow{kFnNAV1_STANDBY_FINE, kNavFine},
    AdjustRow{kFnNAV2_ACTIVE_FINE, kNavFine}, AdjustRow{kFnNAV2_STANDBY_FINE, kNavFine},
    // transponder: the whole code by pairs, or one digit each (digit 1 is the leftmost)
    AdjustRow{kFnXPDR, kTransponder}, AdjustRow{kFnXPDR_DIGIT_1, TransponderDigitPlan(3)},
    AdjustRow{kFnXPDR_DIGIT_2, TransponderDigitPlan(2)}, AdjustRow{kFnXPDR_DIGIT_3, TransponderDigitPlan(1)},
    AdjustRow{kFnXPDR_DIGIT_4, TransponderDigitPlan(0)},
    // ADF cards, OBS, heading and course
    Varies(kFnADF1_CARD, CoursePlan), Varies(kFnADF2_CARD, CoursePlan), Varies(kFnOBS1, CoursePlan),
    Varies(kFnOBS2, CoursePlan), Varies(kFnAP_HEADING_ADJ, CoursePlan), Varies(kFnAP_NAV_COURSE_ADJ, CoursePlan),
    // autopilot targets, altimeter, decision height
    Varies(kFnAP_SPEED_ADJ, SpeedPlan), Varies(kFnAP_ALTITUDE_ADJ, AltitudePlan),
    Varies(kFnAP_VERT_SPEED_ADJ, VerticalSpeedPlan), AdjustRow{kFnALTIMETER, kAltimeter},
    Varies(kFnDECISION_HEIGHT, DecisionHeightPlan),
    // brightness
    AdjustRow{kFnCOCKPIT_LTS, kBrightness}, AdjustRow{kFnHUD_BRIGHTNESS, kBrightness},
    AdjustRow{kFnINST_BRIGHTNESS, kBrightness}, AdjustRow{kFnINSTRUMENT_BRIGHTNESS_LEVEL, kBrightness},
    AdjustRow{kFnPANEL_BRIGHTNESS_LEVEL, kBrightness}, AdjustRow{kFnDISP_BRIGHTNESS, kDisplayBrightness},
    // selectors
    AdjustRow{kFnEFIS_ND_MODE_SEL, SelectorPlan(1), nullptr, OuterKnobOn::RadioModules},
    AdjustRow{kFnEFIS_ND_SUB_MODE_SEL, SelectorPlan(4), nullptr, OuterKnobOn::RadioModules},
    AdjustRow{kFnEFIS_ND_RANGE_SEL, SelectorPlan(6), nullptr, OuterKnobOn::RadioModules},
    AdjustRow{kFnAPU_SWITCH, SelectorPlan(2), nullptr, OuterKnobOn::GF46},
    AdjustRow{kFnHSI_SELECTOR, SelectorPlan(2), nullptr, OuterKnobOn::GF46},
    AdjustRow{kFnBLEED_AIR_MODE, SelectorPlan(4), nullptr, OuterKnobOn::GF46},
    AdjustRow{kFnTRANSPONDER_MODE, SelectorPlan(4), nullptr, OuterKnobOn::GF46},
    AdjustRow{kFnNAV_COM_ADF_MODE, SelectorPlan(5), nullptr, OuterKnobOn::GF46},
    AdjustRow{kFnAUTO_BRAKE, SelectorPlan(5)}, AdjustRow{kFnFUEL_FEED, SelectorPlan(4)},
    AdjustRow{kFnFUEL_TRANSFER_FROM, SelectorPlan(3)}, AdjustRow{kFnFUEL_TRANSFER_TO, SelectorPlan(3)},
    // trims
    Varies(kFnELEV_TRIM, TrimPlan<&GlobalSettings::ElevatorTrimIncrement>),
    Varies(kFnAILERON_TRIM, TrimPlan<&GlobalSettings::AileronTrimIncrement>),
    Varies(kFnRUDDER_TRIM, TrimPlan<&GlobalSettings::RudderTrimIncrement>),
    Varies(kFnROTOR_TRIM, TrimPlan<&GlobalSettings::RotorTrimIncrement>),
};

const AdjustRow* FindAdjustRow(FunctionId id) {
  const auto* row =
      std::find_if(kAdjustRows.begin(), kAdjustRows.end(), [id](const AdjustRow& r) { return r.id == id; });
  return row == kAdjustRows.end() ? nullptr : row;
}

bool TurnsWithOuterKnob(OuterKnobOn rule, std::uint32_t moduleType) {
  switch (rule) {
    case OuterKnobOn::RadioModules: return IsOneOf(moduleType, {kModuleGF45, kModuleGF46, kModuleGF166});
    case OuterKnobOn::GF46: return moduleType == kModuleGF46;
    case OuterKnobOn::NoModule: break;
  }
  return false;
}

AdjustPlan PlanFor(const AdjustRow& row, AvionicFunction& function, std::uint32_t moduleType) {
  AdjustPlan plan = row.variant != nullptr ? row.variant(function, moduleType) : row.plan;
  if (TurnsWithOuterKnob(row.outerKnobOn, moduleType)) {
    for (KnobTurn& turn : plan.turns) {
      if (turn.knob == Knob::Inner) turn.knob = Knob::Outer;
    }
  }
  return plan;
}

// ---- applying a plan ---------------------------------------------------------------------------

// The simulator stores the 25 kHz channels .x25 and .x75 as .x2 and .x7 (units of 10 kHz).
std::int32_t ComKilohertzFrom(std::int32_t tensOfKilohertz) {
  std::int64_t kilohertz = std::int64_t{tensOfKilohertz} * 10;
  const std::int64_t channel = kilohertz % 100;
  if (channel == 20 || channel == 70) kilohertz += 5;
  return SaturateToInt32(kilohertz);
}

// The products are float products, as the values were always scaled: 0.70f x 100 is 70, not 69.
std::int32_t ScaledValue(Scale scale, float value) {
  switch (scale) {
    case Scale::ComKilohertz: return ComKilohertzFrom(TruncateToInt32(value));
    case Scale::TransponderPairs: return TransponderToPairs(TruncateToInt32(value));
    case Scale::RoundedHundredths: return TruncateToInt32(value * 100.0f + 0.5f);
    case Scale::TruncatedPercent: return TruncateToInt32(value * 100.0f);
    case Scale::Whole: break;
  }
  return TruncateToInt32(value);
}

float SimulatorValue(Scale scale, std::int32_t value) {
  switch (scale) {
    case Scale::ComKilohertz: return static_cast<float>(value / 10);  // 118525 is stored as 11852
    case Scale::TransponderPairs: return static_cast<float>(PairsToTransponder(value));
    case Scale::RoundedHundredths:
    case Scale::TruncatedPercent: return static_cast<float>(value) / 100.0f;
    case Scale::Whole: break;
  }
  return static_cast<float>(value);
}

std::int32_t StepsOf(Knob knob, std::int32_t outerSteps, std::int32_t innerSteps) {
  return knob == Knob::Outer ? outerSteps : innerSteps;
}

std::int32_t TurnKnobs(const AdjustPlan& plan, std::int32_t value, std::int32_t outerSteps, std::int32_t innerSteps) {
  for (const KnobTurn& turn : plan.turns) {
    if (turn.knob == Knob::None) continue;
    value = AdjustField(value, turn.field, StepsOf(turn.knob, outerSteps, innerSteps));
  }
  return value;
}

void AdjustDigits(AvionicFunction& function, const AdjustPlan& plan, std::int32_t outerSteps,
                  std::int32_t innerSteps) {
  const std::int32_t value = ScaledValue(plan.scale, GetAvionicValue(function));
  SetAvionicValue(function, SimulatorValue(plan.scale, TurnKnobs(plan, value, outerSteps, innerSteps)));
}

// X-Plane 10 and later hold trims as -1..1; older versions as -0.5..0.5.
float TrimLimit() { return CurrentSimulatorVersions().xplaneVersion >= 10000 ? 1.0f : 0.5f; }

// Without a value to set, each step of the knob trims once through the simulator's own command. A
// fast turn is capped so that one report cannot queue an absurd number of commands.
void StepTrimByCommand(const AvionicFunction& function, std::int32_t innerSteps) {
  constexpr std::int32_t kMaxCommandSteps = 64;
  const XPLMCommandRef command = innerSteps > 0 ? function.stepUp : function.stepDown;
  const std::int32_t capped = std::clamp(innerSteps, -kMaxCommandSteps, kMaxCommandSteps);
  const std::int32_t steps = capped < 0 ? -capped : capped;
  for (std::int32_t step = 0; step < steps; ++step) RunCommandOnce(command);
}

void AdjustTrim(AvionicFunction& function, float increment, std::int32_t innerSteps) {
  if (function.dataref == nullptr) {
    StepTrimByCommand(function, innerSteps);
    return;
  }
  const float limit = TrimLimit();
  const float trim = GetAvionicValue(function) + static_cast<float>(innerSteps) * increment;
  if (std::isnan(trim)) return;  // a NaN increment from the settings file must not reach the simulator
  SetAvionicValue(function, std::clamp(trim, -limit, limit));
}

// The value is the panels' shared brightness level: read it from a panel, turn it, send it to all.
void AdjustDisplayBrightness(AvionicFunction& function, const AdjustPlan& plan, std::int32_t outerSteps,
                             std::int32_t innerSteps) {
  FormatAvionicDisplay(function);
  SetDisplayBrightnessLevel(TurnKnobs(plan, GetDisplayBrightnessLevel(), outerSteps, innerSteps));
  ApplyAvionicDisplay(function);
}

}  // namespace

std::int32_t TransponderToPairs(std::int32_t code) {
  const std::int64_t c = code;
  const std::int64_t high = (c / 1000) * 8 + (c / 100) % 10;
  const std::int64_t low = ((c / 10) % 10) * 8 + c % 10;
  return SaturateToInt32(high * 100 + low);
}

std::int32_t PairsToTransponder(std::int32_t pairs) {
  const std::int64_t high = pairs / 100;
  const std::int64_t low = pairs % 100;
  return SaturateToInt32((high / 8) * 1000 + (high % 8) * 100 + (low / 8) * 10 + low % 8);
}

void AdjustAvionicFunction(AvionicFunction* function, std::int32_t outerSteps, std::int32_t innerSteps,
                           std::uint32_t moduleType) {
  if (function == nullptr) return;
  if (function->custom != nullptr) {
    AdjustCustomValue(*function, outerSteps, innerSteps);
    return;
  }
  const AdjustRow* row = FindAdjustRow(function->functionId);
  if (row == nullptr) return;

  const AdjustPlan plan = PlanFor(*row, *function, moduleType);
  switch (plan.action) {
    case Action::DisplayBrightness:
      AdjustDisplayBrightness(*function, plan, outerSteps, innerSteps);
      return;  // its text is the panels' level, which the next refresh reads back from a panel
    case Action::Trim: AdjustTrim(*function, plan.trimIncrement, innerSteps); break;
    case Action::Digits: AdjustDigits(*function, plan, outerSteps, innerSteps); break;
    case Action::None: return;
  }
  FormatAvionicDisplay(*function);
}

}  // namespace drav
