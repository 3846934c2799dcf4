#include "dravsim/LineSource.h"

namespace dravsim {

void StripLineEnd(std::string& line) {
  if (!line.empty() && line.back() == '\r') line.pop_back();
}

bool TextLineSource::Next(std::string& line, LineKind /*kind*/) {
  if (position_ >= text_.size()) return false;
  const std::size_t end = text_.find('\n', position_);
  const std::size_t stop = end == std::string_view::npos ? text_.size() : end;
  line.assign(text_.substr(position_, stop - position_));
  position_ = end == std::string_view::npos ? text_.size() : end + 1;
  StripLineEnd(line);
  ++lineNumber_;
  return true;
}

bool StreamLineSource::Next(std::string& line, LineKind kind) {
  if (prompt_ != nullptr) *prompt_ << (kind == LineKind::Command ? "> " : "... ") << std::flush;
  if (answers_ != nullptr) answers_->flush();
  if (!std::getline(in_, line)) {
    if (prompt_ != nullptr) *prompt_ << '\n' << std::flush;
    return false;
  }
  StripLineEnd(line);
  ++lineNumber_;
  return true;
}

}  // namespace dravsim
