// Where a scenario's lines come from: a text (a file or the built-in demo) or a stream (the
// terminal in interactive mode). Lines come without their line end, LF or CR LF.
#pragma once

#include <cstddef>
#include <istream>
#include <ostream>
#include <string>
#include <string_view>

namespace dravsim {

enum class LineKind { Command, BlockLine };

class LineSource {
 public:
  virtual ~LineSource() = default;
  // The next line; false at the end of the input. `kind` tells an interactive source which
  // prompt to show.
  virtual bool Next(std::string& line, LineKind kind) = 0;
  int LineNumber() const { return lineNumber_; }

 protected:
  int lineNumber_ = 0;
};

class TextLineSource : public LineSource {
 public:
  explicit TextLineSource(std::string_view text) : text_(text) {}
  bool Next(std::string& line, LineKind kind) override;

 private:
  std::string_view text_;
  std::size_t position_ = 0;
};

class StreamLineSource : public LineSource {
 public:
  // With a prompt stream, "> " is shown before each command and "... " before each block line.
  // `answers` (the output), when given, is flushed before each read, so that a program feeding
  // commands through a pipe sees what each one printed before it sends the next.
  StreamLineSource(std::istream& in, std::ostream* prompt, std::ostream* answers = nullptr)
      : in_(in), prompt_(prompt), answers_(answers) {}
  bool Next(std::string& line, LineKind kind) override;

 private:
  std::istream& in_;
  std::ostream* prompt_;
  std::ostream* answers_;
};

void StripLineEnd(std::string& line);

}  // namespace dravsim
