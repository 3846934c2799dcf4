#include "host/BuiltinDatarefDefaults.h"

namespace sim {

namespace {

constexpr BuiltinDatarefDefault kBuiltinDatarefDefaults[] = {
    {"sim/cockpit/electrical/battery_on", 1},
    {"sim/cockpit/electrical/avionics_on", 1},
    {"sim/flightmodel/engine/ENGN_bat_volt", 24.0},
    {"sim/aircraft/engine/acf_num_engines", 1},
    {"sim/cockpit/misc/barometer_setting", 29.92},
    {"sim/aircraft/gear/acf_gear_retract", 1},
    {"sim/flightmodel/failures/onground_any", 1},
    {"sim/cockpit/switches/gear_handle_status", 1},
    {"sim/aircraft/parts/acf_gear_deploy", 1.0},
    {"sim/cockpit/radios/com1_freq_hz", 11850},
    {"sim/cockpit/radios/com1_stdby_freq_hz", 12150},
    {"sim/cockpit/radios/com2_freq_hz", 12475},
    {"sim/cockpit/radios/com2_stdby_freq_hz", 11910},
    {"sim/cockpit/radios/nav1_freq_hz", 11030},
    {"sim/cockpit/radios/nav1_stdby_freq_hz", 10850},
    {"sim/cockpit/radios/nav2_freq_hz", 11420},
    {"sim/cockpit/radios/nav2_stdby_freq_hz", 10920},
    {"sim/cockpit/radios/adf1_freq_hz", 362},
    {"sim/cockpit/radios/adf1_stdby_freq_hz", 245},
    {"sim/cockpit/radios/transponder_code", 1200},
};

}  // namespace

std::span<const BuiltinDatarefDefault> BuiltinDatarefDefaults() { return kBuiltinDatarefDefaults; }

}  // namespace sim
