// How the INI reader and writer see a file: a sequence of lines of at most kIniMaxLineLength
// characters, where any of LF, CR, CR LF and LF CR ends a line and a longer line is seen as several
// lines (chunks of 255 and a remainder); and the rules that make a line a section start, a comment
// or a key line. The reader, the writer and the read index all go through these, so what one finds
// is what the others find.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string_view>

#include "base/IniFile.h"

namespace drav::ini {

// Where the line reader takes its characters from: the file itself, or a copy of it in memory.
class FileCharacters {
 public:
  explicit FileCharacters(std::FILE* file) : file_(file) {}
  int Get() { return std::getc(file_); }
  void Unget(int c) { std::ungetc(c, file_); }
  bool Failed() const { return std::ferror(file_) != 0; }

 private:
  std::FILE* file_;
};

class MemoryCharacters {
 public:
  explicit MemoryCharacters(std::string_view bytes) : bytes_(bytes) {}
  int Get() { return next_ < bytes_.size() ? static_cast<unsigned char>(bytes_[next_++]) : EOF; }
  void Unget(int) { --next_; }  // only ever after a Get that returned a character
  bool Failed() const { return false; }
  std::size_t Offset() const { return next_; }

 private:
  std::string_view bytes_;
  std::size_t next_ = 0;
};

// Reads lines under the rules above. A read error ends the lines as the end of the file would;
// Failed() tells the two apart.
template <typename Characters>
class LineReader {
 public:
  explicit LineReader(Characters characters) : in_(characters) {}

  // The next line, without its line end. False when no line is left.
  bool Next(std::string_view& line) {
    std::size_t length = 0;
    int c;
    while ((c = in_.Get()) != EOF) {
      if (c == '\n' || c == '\r') {
        SkipPartnerOf(c);
        line = std::string_view(buffer_, length);
        return true;
      }
      buffer_[length++] = static_cast<char>(c);
      if (length == kIniMaxLineLength) {
        // A full chunk. A line end that follows at once belongs to it, so a line of exactly 255
        // characters stays one line instead of a line and an empty one.
        const int next = in_.Get();
        if (next == '\n' || next == '\r') {
          SkipPartnerOf(next);
        } else if (next != EOF) {
          in_.Unget(next);
        }
        line = std::string_view(buffer_, length);
        return true;
      }
    }
    if (length == 0) return false;
    line = std::string_view(buffer_, length);  // last line without a line end
    return true;
  }

  bool Failed() const { return in_.Failed(); }

 private:
  // CR LF and LF CR are one line end each; a second character of the same kind starts a new one.
  void SkipPartnerOf(int first) {
    const int partner = first == '\n' ? '\r' : '\n';
    const int next = in_.Get();
    if (next != partner && next != EOF) in_.Unget(next);
  }

  Characters in_;
  char buffer_[kIniMaxLineLength];
};

inline bool Contains(std::string_view line, std::string_view text) {
  return line.find(text) != std::string_view::npos;
}
inline bool StartsSection(std::string_view line) { return !line.empty() && line.front() == '['; }
inline bool IsComment(std::string_view line) { return !line.empty() && line.front() == ';'; }

// Where the key prefix ("Key=") stands in a key line (comments never are key lines), or npos.
inline std::size_t FindKeyPrefix(std::string_view line, std::string_view prefix) {
  if (IsComment(line)) return std::string_view::npos;
  return line.find(prefix);
}

// Scans the first copy of the section (the first line holding `tag`, "[NAME]", anywhere) for the
// first key line of `prefix`; only that copy counts. Yields the text after the prefix, which lives
// in the reader's buffer until its next line.
template <typename Characters>
bool ScanForValue(LineReader<Characters>& reader, std::string_view tag, std::string_view prefix,
                  std::string_view& value) {
  std::string_view line;
  bool inSection = false;
  while (reader.Next(line)) {
    if (!inSection) {
      inSection = Contains(line, tag);
      continue;
    }
    const std::size_t at = FindKeyPrefix(line, prefix);
    if (at != std::string_view::npos) {
      value = line.substr(at + prefix.size());
      return true;
    }
    if (StartsSection(line)) break;  // tested after the key, so "[T] Key=v" still yields v
  }
  return false;
}

}  // namespace drav::ini
