// The display and light encoders on any text, number and buffer size: each must write only inside
// the buffer it is given (a heap buffer of exactly that size), answer a length that fits it, and
// answer 0 for what names no report.
#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "FuzzCheck.h"
#include "hid/ReportEncoders.h"

namespace {

using namespace drav;

// A buffer of exactly `size` bytes on the heap, so that one byte past it is a reported overflow.
class ExactBuffer {
 public:
  explicit ExactBuffer(std::size_t size) : bytes_(std::make_unique<std::uint8_t[]>(size)), size_(size) {}
  std::span<std::uint8_t> Span() { return {bytes_.get(), size_}; }
  std::size_t Size() const { return size_; }

 private:
  std::unique_ptr<std::uint8_t[]> bytes_;
  std::size_t size_;
};

void CheckFits(std::size_t written, const ExactBuffer& buffer) { DRAV_FUZZ_CHECK(written <= buffer.Size()); }

// A display encoder's answer: 0, or 1 + digits (report id first) that fits the buffer.
void CheckDisplay(std::size_t written, ExactBuffer& buffer, std::uint8_t firstReportId) {
  CheckFits(written, buffer);
  if (written != 0) DRAV_FUZZ_CHECK(buffer.Span()[0] >= firstReportId);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  ExactBuffer buffer(input.ConsumeIntegralInRange<std::size_t>(1, 24));
  const int display = input.ConsumeIntegralInRange<int>(-2, 8);
  const auto small = input.ConsumeIntegral<std::uint8_t>();
  const auto second = input.ConsumeIntegral<std::uint8_t>();
  const auto word = input.ConsumeIntegral<std::uint16_t>();
  const auto mask = input.ConsumeIntegral<std::uint32_t>();
  const auto level = input.ConsumeIntegral<std::int32_t>();
  const auto outputLength = input.ConsumeIntegralInRange<std::size_t>(0, 40);
  const std::string text = input.ConsumeRemainingBytesAsString();  // ends at its first NUL
  const char* shown = small == 0 ? nullptr : text.c_str();          // a null text is blank

  std::span<std::uint8_t> out = buffer.Span();
  CheckFits(EncodeBrightness(out, small, level), buffer);
  CheckFits(EncodeIndicatorByte(out, small, second), buffer);
  CheckFits(EncodeGFLGTIndicators(out, second), buffer);
  CheckFits(EncodeGFMCPProIndicators(out, mask), buffer);
  CheckFits(EncodeGF166EncoderType(out, small, second), buffer);

  CheckDisplay(EncodeSixteenSegmentDisplay(out, shown), buffer, 3);
  CheckDisplay(EncodeGF45Display2(out, shown), buffer, 5);
  CheckDisplay(EncodeGF46Display2(out, shown), buffer, 5);
  CheckDisplay(EncodeGF166Display(out, display, shown), buffer, 3);
  CheckDisplay(EncodeGFMCPDisplay(out, display, shown), buffer, 3);
  CheckDisplay(EncodeGFMCPProDisplay(out, display, shown), buffer, 3);

  // Padding works in place on whatever the buffer holds after the encoders above.
  const std::size_t padded = PadGFMCPProOutputReport(out, small % 12);
  DRAV_FUZZ_CHECK(padded == 0 || padded == kGFMCPProOutputReportLength);
  if (padded == 0) DRAV_FUZZ_CHECK(buffer.Size() < kGFMCPProOutputReportLength);

  const std::size_t colour = EncodeGFWCPColour(out, small, second, word);
  CheckFits(colour, buffer);
  if (!IsGFWCPIndicator(small) || second >= kGFWCPColourCount) DRAV_FUZZ_CHECK(colour == 0);
  GFWCPIntensity(word);

  const std::size_t outputs = EncodeGFDIOOutputs(out, outputLength, {small, second, 1, 2});
  DRAV_FUZZ_CHECK(outputs == 0 || outputs == outputLength);
  CheckFits(outputs, buffer);
  return 0;
}
