#include "host/BuiltinCommands.h"

namespace sim {

namespace {

constexpr const char* kBuiltinCommands[] = {
    "sim/annunciator/clear_master_accept",
    "sim/annunciator/clear_master_caution",
    "sim/annunciator/clear_master_warning",
    "sim/annunciator/test_all_annunciators",
    "sim/autopilot/gpss",
    "sim/autopilot/hsi_select_nav_1",
    "sim/autopilot/hsi_select_nav_2",
    "sim/engines/mixture_max",
    "sim/engines/mixture_min",
    "sim/flight_controls/gyro_rotor_trim_down",
    "sim/flight_controls/gyro_rotor_trim_up",
    "sim/igniters/igniter_arm_off_1",
    "sim/igniters/igniter_arm_off_2",
    "sim/igniters/igniter_arm_on_1",
    "sim/igniters/igniter_arm_on_2",
    "sim/igniters/igniter_contin_off_1",
    "sim/igniters/igniter_contin_off_2",
    "sim/igniters/igniter_contin_on_1",
    "sim/igniters/igniter_contin_on_2",
    "sim/magnetos/magnetos_both_1",
    "sim/magnetos/magnetos_both_2",
    "sim/magnetos/magnetos_left_1",
    "sim/magnetos/magnetos_left_2",
    "sim/magnetos/magnetos_right_1",
    "sim/magnetos/magnetos_right_2",
    "sim/starters/engage_starter_1",
    "sim/starters/engage_starter_2",
};

}  // namespace

std::span<const char* const> BuiltinCommands() { return kBuiltinCommands; }

}  // namespace sim
