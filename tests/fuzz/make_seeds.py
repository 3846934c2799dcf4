#!/usr/bin/env python3
"""Writes the seed corpora of the fuzz targets, one folder a target: make_seeds.py OUT_DIR.

The seeds are made fresh for each fuzzing run (scripts/test-fuzz.sh) rather than kept as files, so
they always follow this script and the targets it describes.

The targets read their inputs with libFuzzer's FuzzedDataProvider, which takes strings and byte
runs from the front of the input and integers from its back. Seed writes both ends in the order
the target consumes them, so each seed is a meaningful case: a real section and key, a model's
report of the right length, a COM frequency's MHz field.
"""
import os
import struct
import sys

OUT = None  # the folder given on the command line


class Seed:
    def __init__(self):
        self.front = bytearray()
        self.back = bytearray()  # in consumption order; reversed at the end

    def string(self, text):  # ConsumeRandomLengthString: a backslash and one more byte end it
        self.front += text.encode("latin-1").replace(b"\\", b"\\\\") + b"\\ "
        return self

    def raw(self, data):  # ConsumeBytes / the remaining bytes
        self.front += bytes(data)
        return self

    def ranged(self, value, low, high):  # ConsumeIntegralInRange
        offset, span = value - low, high - low
        width = 0
        while width < 8 and (span >> (8 * width)) > 0:
            width += 1
        for shift in reversed(range(width)):
            self.back.append((offset >> (8 * shift)) & 0xFF)
        return self

    def u(self, value, bits):  # ConsumeIntegral of an unsigned type
        return self.ranged(value, 0, (1 << bits) - 1)

    def s(self, value, bits):  # ConsumeIntegral of a signed type
        return self.ranged(value, -(1 << (bits - 1)), (1 << (bits - 1)) - 1)

    def bytes(self):
        return bytes(self.front) + bytes(reversed(self.back))


def write(target, name, data):
    folder = os.path.join(OUT, target)
    os.makedirs(folder, exist_ok=True)
    with open(os.path.join(folder, name), "wb") as out:
        out.write(data)


def ini_seeds():
    cockpit = ("[DEBUG]\r\nDebugEnabled=0\r\n[CONFIG]\r\nGRP48ReverseFix=0\r\n"
               "[GFDIO_1]\r\nInputFunction01=LANDING_LTS\r\n; a comment\r\nInputFunction10=TAXI_LTS\r\n")
    write("fuzz_ini", "existing_key",
          Seed().string("GFDIO_1").string("InputFunction01").string("BEACON_LTS").raw(cockpit.encode()).bytes())
    write("fuzz_ini", "missing_section",
          Seed().string("GF46_2").string("Function1").string("COM1_ACTIVE").raw(cockpit.encode()).bytes())
    write("fuzz_ini", "remove_key",
          Seed().string("CONFIG").string("GRP48ReverseFix").string("").raw(cockpit.encode()).bytes())
    mixed = "[A]\nK=1\r[B]\n\rK=2\n;K=3\n[A]\r\nK=4"  # every line end, a second copy, no final end
    write("fuzz_ini", "mixed_line_ends", Seed().string("B").string("K").string("x y ").raw(mixed.encode()).bytes())
    long_line = "[S]\r\n" + "x" * 300 + "K=old\r\n"
    write("fuzz_ini", "long_line", Seed().string("S").string("K").string("new").raw(long_line.encode()).bytes())

    # The index target: the file first, then (section, key) questions of fuzzed text.
    def questions(file, pairs):
        seed = Seed().string(file).ranged(len(pairs), 1, 16)
        for section, key in pairs:
            seed.u(0, 8).string(section).u(0, 8).string(key)
        return seed.bytes()
    write("fuzz_ini_index", "cockpit", questions(cockpit, [("GFDIO_1", "InputFunction10"), ("CONFIG", "GRP48ReverseFix"),
                                                          ("GFDIO_1", "Function10"), ("GF46_2", "Function1")]))
    write("fuzz_ini_index", "mixed_line_ends", questions(mixed, [("A", "K"), ("B", "K"), ("[A", "K")]))
    write("fuzz_ini_index", "long_line", questions(long_line, [("S", "K"), ("S", "xK")]))


# (name, module type, input report length, reports)
PANELS = [
    ("gf45_encoders", 1, 3, [[0, 1, 0xFF]]),
    ("gfp8_switches", 2, 2, [[0, 0x81], [0, 0x00]]),
    ("gft8_switches", 3, 2, [[0, 0x0F]]),
    ("gflgt_wheel", 4, 3, [[0, 0x05, 0x20]]),
    ("gf166_buttons", 5, 4, [[0, 2, 0xFE, 0x10]]),
    ("gfmcp_encoders", 6, 8, [[0, 1, 2, 3, 4, 0xFB, 0x01, 0x80]]),
    ("gfrp48_encoders", 7, 6, [[0, 1, 0xFF, 2, 0xFE, 0x0F]]),
    ("gf46_mode", 8, 4, [[0, 3, 0, 0x01], [0, 0, 0, 0]]),
    ("gftq6_levers", 9, 8, [[0, 0, 64, 128, 192, 255, 10, 0x0F]]),
    ("gflgt2_values", 11, 5, [[0, 1, 0xFF, 3, 0x40]]),
    ("gfmcppro_nibbles", 12, 8, [[0, 0x1F, 0x2E, 0x3D, 0x80, 0, 0, 1]]),
    ("gfefis_selectors", 13, 8, [[0, 0, 0, 1, 0xFF, 0x12, 0x34, 0x56]]),
    ("gfsecm_rotary", 14, 4, [[0, 0x04, 0x01, 0x02], [0, 0x00, 0x03, 0x00]]),
    ("gfmesm_selectors", 17, 2, [[0, 0x35]]),
    ("gfwcp_switches", 18, 2, [[0, 0x3F]]),
    ("gfdio_inputs", 19, 8, [[0, 1, 2, 4, 8, 16, 32, 64]]),
    ("gfmcp_short_reports", 6, 3, [[0, 1, 2]]),  # fewer bytes than the model's format
]


def device_seeds():
    for name, model, input_length, reports in PANELS:
        seed = Seed().ranged(model, 1, 19).u(0x0100, 16).string("SERIAL1")
        seed.ranged(input_length, 0, 12).ranged(8, 0, 12).ranged(9 if model in (1, 8) else 8, 0, 12)
        feature = [1] + [0] * 7
        seed.u(1, 8).ranged(len(feature), 0, 12).raw(feature)
        for report in reports:
            seed.ranged(len(report), 1, input_length).raw(report)
        write("fuzz_device_input", name, seed.bytes())


def encoder_seeds():
    for name, display, text in [("radio_digits", 1, b"118.50"), ("mcp_altitude", 4, b"35000"),
                                ("sixteen_segment", 1, b"COM1"), ("no_such_display", 7, b"123")]:
        seed = Seed().ranged(9, 1, 24).ranged(display, -2, 8).u(3, 8).u(5, 8).u(15, 16)
        seed.u(0x80000001, 32).s(15, 32).ranged(8, 0, 40).raw(text)
        write("fuzz_encoders", name, seed.bytes())


def function_seeds():
    for name in ["NADA", "LANDING_LTS", "CARB_HEAT", "ADF1_ACTIVE", "GF45_FUNC_ADF1_ACTIVE_COARSE"]:
        write("fuzz_find_function", name.lower(), name.encode())


def custom_binding_seeds():
    for name, value in [
        ("command_pair", "cmd sim/lights/landing_lights_on sim/lights/landing_lights_off"),
        ("hold", "hold sim/starters/engage_starter_1"),
        ("set_element_lit", "set sim/cockpit2/switches/panel_brightness_ratio[2] 0.75 0.25 "
                            "lit sim/cockpit2/switches/panel_brightness_ratio[2] > 0.5"),
        ("toggle", "toggle sim/cockpit2/switches/beacon_on 1"),
        ("light_alone", "lit sim/cockpit2/annunciators/master_caution != 0"),
        ("step_wrap_show", "step sim/cockpit2/autopilot/heading_dial_deg_mag_pilot 1 0 359 wrap "
                           "show sim/cockpit2/autopilot/heading_dial_deg_mag_pilot %03d"),
        ("turn", "turn sim/autopilot/heading_up sim/autopilot/heading_down"),
        ("show_decimals", "show sim/cockpit2/engine/indicators/N1_percent[1] %05.1f"),
        ("malformed", "set a/b[12 1,5 lit"),
    ]:
        write("fuzz_custom_binding", name, value.encode())


def digit_field_seeds():
    cases = [  # name, value, position, width, min, max, wrap, steps, stepSize
        ("com_mhz_up", 11850, 2, 3, 118, 136, 1, 1, 1),
        ("com_khz_wrap_down", 11800, 0, 2, 0, 97, 1, -1, 3),
        ("squawk_digit", 7777, 3, 1, 0, 7, 1, 1, 1),
        ("vertical_speed_negative", -1200, 2, 2, -80, 60, 0, -5, 1),
        ("huge_steps", 2147483000, 0, 7, 0, 9999999, 0, 2147483647, 2147483647),
    ]
    for name, value, position, width, low, high, wrap, steps, step in cases:
        seed = Seed().s(value, 32).ranged(position, -2, 9).ranged(width, -2, 9)
        seed.s(low, 32).s(high, 32).u(wrap, 8).s(steps, 32).s(step, 32)
        write("fuzz_digit_field", name, seed.bytes())


def scenario_seeds():
    write("fuzz_scenario", "panel_and_expect", b"""# a short scenario
plug GF-46 as radio version 0x0200 serial "A 1"
ini
[GF46_1]
end
dataref sim/cockpit/radios/com1_freq_hz[0..2] = 11850
dataref sim/x737/mcp int[4] = 3
boot
turn radio 1 -3
report radio 00 ff 1A 0b
expect dataref sim/cockpit/radios/com1_freq_hz = 0x2E4A
expect display radio 2 "118.50"   # a comment with "quotes"
expect sent radio feature 06 0f
""")
    write("fuzz_scenario", "quoting", b'echo "a \\"quoted\\" word" \\\\ "unterminated\n'
          b"frame 0b101\nrun 0.5\nlever tq A 255 switch on\n")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit("usage: make_seeds.py OUT_DIR")
    OUT = sys.argv[1]
    ini_seeds()
    device_seeds()
    encoder_seeds()
    function_seeds()
    custom_binding_seeds()
    digit_field_seeds()
    scenario_seeds()
