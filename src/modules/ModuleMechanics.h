// The mechanics that every model class shares: finding the one change to report in an input
// record, and sending light masks and display texts only when they change (or blanking them while
// the panel has no power). Allocation-free: the device calls are passed as callables and inlined.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace drav {

// ---- input decoding (input thread) -------------------------------------------------------------

// One bank of on/off inputs: `width` bits (1..32) of `state`, compared with *prev. Bit i is the
// control baseControl + i.
struct InputBank {
  std::uint32_t state = 0;
  std::uint32_t* prev = nullptr;
  std::int32_t width = 8;
  std::int32_t baseControl = 0;
};

// One encoder's movement since the last report; zero means it did not move.
struct EncoderMove {
  std::int32_t count = 0;
  std::int32_t control = 0;
};

// Finds the lowest bit of the bank that differs from *prev, records only that bit in *prev and
// returns its control id with *value 1 (now set) or 0 (now clear). The other changed bits stay
// different and are reported from later records. -1 when nothing differs.
std::int32_t DetectBankChange(const InputBank& bank, std::int32_t* value);

// The first encoder, in the order given, whose count is not 0: its control id with *value the
// count. -1 when none moved.
std::int32_t FirstEncoderMove(std::span<const EncoderMove> encoders, std::int32_t* value);

// The usual decoding order of a model: encoders first, then the banks in order. Returns the one
// change of the record, or -1.
std::int32_t DecodeFirstChange(std::span<const EncoderMove> encoders, std::span<const InputBank> banks,
                               std::int32_t* value);

// ---- outputs (main thread) ---------------------------------------------------------------------

// Writes the "... - Indicators" bit dump when DebugSetDisplayFunction is on.
void LogSentLightMask(const char* label, std::uint32_t mask);
bool DisplayLoggingEnabled();

// Remembers the light mask last sent to a unit. The device call's result is ignored on purpose:
// a failed send (unit unplugged) still counts as sent, so nothing is resent until the mask changes.
class LightMaskSender {
 public:
  // Unpowered: sends 0 on every call, so a unit plugged in while dark goes dark too. Powered:
  // sends mask when it differs from the last one sent.
  template <class Send>
  void Update(bool powered, std::uint32_t mask, Send&& send, const char* debugLabel) {
    if (!powered) {
      send(std::uint32_t{0});
      lastSent_ = 0;
      return;
    }
    if (mask == lastSent_) return;
    send(mask);
    lastSent_ = mask;
    LogSentLightMask(debugLabel, mask);
  }

  // ClearDisplay: all lights off, and that is what was last sent.
  template <class Send>
  void Clear(Send&& send) {
    send(std::uint32_t{0});
    lastSent_ = 0;
  }

  std::uint32_t LastSent() const { return lastSent_; }

 private:
  std::uint32_t lastSent_ = 0;
};

// Remembers the text last sent to one display. The longest display shows six digits; texts are
// compared over at most kCapacity - 1 characters.
class DisplayTextCache {
 public:
  static constexpr std::size_t kCapacity = 32;

  // Powered: sends text and remembers it only when it differs from the last text sent, then calls
  // log(text) when DebugSetDisplayFunction is on. Unpowered: sends blankText on every call and
  // forgets the last text, so that the first powered call sends again.
  template <class Send, class Log>
  void Update(bool powered, const char* text, const char* blankText, Send&& send, Log&& log) {
    if (!powered) {
      send(blankText != nullptr ? blankText : "");
      Forget();
      return;
    }
    if (text == nullptr) text = "";
    if (Matches(text)) return;
    send(text);
    Remember(text);
    if (DisplayLoggingEnabled()) log(text);
  }

  // Forgets the last text: it becomes the empty text, as at construction. A display whose text is
  // empty is not resent after a blank, since the unit shows nothing either way.
  void Forget() { last_[0] = '\0'; }

  const char* LastText() const { return last_; }

 private:
  bool Matches(const char* text) const;
  void Remember(const char* text);

  char last_[kCapacity] = {};
};

}  // namespace drav
