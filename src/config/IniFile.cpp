// The plug-in's INI reader and writer.
//
// The file is seen as a sequence of lines of at most kIniMaxLineLength characters: any of LF, CR,
// CR LF and LF CR ends a line, and a longer line is seen as several lines (chunks of 255 and a
// remainder). Both the reader and the writer walk the file through the same line reader, so what
// one finds is what the other rewrites.
#include "config/IniFile.h"

#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "XPLMUtilities.h"
#include "host/Log.h"
#include "host/Settings.h"

#ifdef _WIN32
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#endif

namespace drav {
namespace {

constexpr std::string_view kWrittenLineEnd = "\r\n";

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

 private:
  std::string_view bytes_;
  std::size_t next_ = 0;
};

// Reads lines under the rules above. A read error ends the lines as the end of the file would;
// Failed() tells the two apart.
template <typename Characters>
class IniLineReader {
 public:
  explicit IniLineReader(Characters characters) : in_(characters) {}

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

// The copy of one file that reads use while an IniReadSnapshot lives (main thread only, like every
// caller of the reader).
struct Snapshot {
  int depth = 0;
  bool taken = false;  // false: the file could not be copied; reads go to the file
  std::string path;
  std::optional<std::string> bytes;  // empty: there is no such file
};
Snapshot gSnapshot;

// A configuration file is a few kilobytes; one beyond this is read from disk rather than copied.
constexpr std::uintmax_t kLargestSnapshot = 16u << 20;

void TakeSnapshot() {
  gSnapshot.taken = false;
  gSnapshot.bytes.reset();
  std::FILE* file = std::fopen(gSnapshot.path.c_str(), "rb");
  if (!file) {
    gSnapshot.taken = errno == ENOENT;  // a missing file is something a copy can stand for
    return;
  }
  std::string bytes;
  char chunk[4096];
  std::size_t got = 0;
  bool tooLarge = false;
  while ((got = std::fread(chunk, 1, sizeof chunk, file)) > 0) {
    bytes.append(chunk, got);
    if (bytes.size() > kLargestSnapshot) {
      tooLarge = true;
      break;
    }
  }
  const bool failed = std::ferror(file) != 0;
  std::fclose(file);
  if (tooLarge || failed) return;
  gSnapshot.bytes = std::move(bytes);
  gSnapshot.taken = true;
}

bool SnapshotCovers(const std::string& path) { return gSnapshot.depth > 0 && gSnapshot.taken && gSnapshot.path == path; }

std::string SectionTag(const char* section) { return std::string("[") + section + "]"; }
std::string KeyPrefix(const char* key) { return std::string(key) + "="; }

bool Contains(std::string_view line, std::string_view text) {
  return line.find(text) != std::string_view::npos;
}
bool StartsSection(std::string_view line) { return !line.empty() && line.front() == '['; }
bool IsComment(std::string_view line) { return !line.empty() && line.front() == ';'; }

// Where the key prefix stands in a key line (comments never are key lines), or npos.
std::size_t FindKeyPrefix(std::string_view line, std::string_view prefix) {
  if (IsComment(line)) return std::string_view::npos;
  return line.find(prefix);
}

// Copies at most kIniValueSize - 1 characters and always terminates.
void CopyValue(char* out, std::string_view text) {
  const std::size_t length = text.size() < kIniValueSize - 1 ? text.size() : kIniValueSize - 1;
  if (length != 0) std::memcpy(out, text.data(), length);  // an empty view may hold a null pointer
  out[length] = '\0';
}
// A null text reads as "".
std::string_view ViewOf(const char* text) {
  return text ? std::string_view(text) : std::string_view();
}

// Scans the first copy of the section for the key; only that copy counts.
template <typename Characters>
bool ScanForValue(IniLineReader<Characters>& reader, std::string_view tag, std::string_view prefix, char* out) {
  std::string_view line;
  bool inSection = false;
  while (reader.Next(line)) {
    if (!inSection) {
      inSection = Contains(line, tag);
      continue;
    }
    const std::size_t at = FindKeyPrefix(line, prefix);
    if (at != std::string_view::npos) {
      CopyValue(out, line.substr(at + prefix.size()));
      return true;
    }
    if (StartsSection(line)) break;  // tested after the key, so "[T] Key=v" still yields v
  }
  return false;
}

bool FindValue(const std::string& path, std::string_view tag, std::string_view prefix, char* out) {
  if (SnapshotCovers(path)) {
    if (!gSnapshot.bytes) return false;
    IniLineReader reader{MemoryCharacters(*gSnapshot.bytes)};
    return ScanForValue(reader, tag, prefix, out);
  }
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (!file) return false;
  IniLineReader reader{FileCharacters(file)};
  const bool found = ScanForValue(reader, tag, prefix, out);
  std::fclose(file);
  return found;
}

// Streams the lines of the old file into the new one, changing the one key on the way.
class KeyRewriter {
 public:
  KeyRewriter(std::FILE* out, std::string_view tag, std::string_view prefix, std::string_view value)
      : out_(out), tag_(tag), prefix_(prefix), value_(value) {}

  void Line(std::string_view line) {
    if (inSection_) {
      if (!StartsSection(line)) {
        InSectionLine(line);
        return;
      }
      // The section ends here, even when this line also holds the key (the reader would take it
      // as the key line): rewriting or dropping it would damage the next section's line. A key
      // the section lacked goes in before it.
      inSection_ = false;
      if (!keyWritten_) WriteNewKeyLine();
    }
    Write(line);
    if (Contains(line, tag_)) {
      inSection_ = true;
      sectionFound_ = true;
    }
  }

  // Adds what the file lacked once every line is copied.
  void Finish() {
    if (!sectionFound_) Write(tag_);
    if (!keyWritten_) WriteNewKeyLine();
  }

 private:
  void InSectionLine(std::string_view line) {
    const std::size_t at = FindKeyPrefix(line, prefix_);
    if (at == std::string_view::npos) {
      Write(line);
      return;
    }
    if (keyWritten_) return;  // a later duplicate, in this or a later copy of the section
    keyWritten_ = true;
    if (value_.empty()) return;  // an empty value removes the key
    Write(line.substr(0, at + prefix_.size()), value_);
  }

  // Stored also for an empty value: a key the section lacked is kept as the bare prefix.
  void WriteNewKeyLine() {
    Write(prefix_, value_);
    keyWritten_ = true;
  }

  void Write(std::string_view text, std::string_view more = {}) {
    Put(text);
    Put(more);
    Put(kWrittenLineEnd);
  }

  // An empty view may carry a null pointer, which fwrite must not be given.
  void Put(std::string_view text) {
    if (!text.empty()) std::fwrite(text.data(), 1, text.size(), out_);
  }

  std::FILE* out_;
  std::string_view tag_;
  std::string_view prefix_;
  std::string_view value_;
  bool inSection_ = false;
  bool sectionFound_ = false;
  bool keyWritten_ = false;
};

// Copies `in` (null: no old file) into `out` with the key changed. True when every read and write
// succeeded; `out` is closed either way.
bool WriteRewrittenFile(std::FILE* in, std::FILE* out, std::string_view tag,
                        std::string_view prefix, std::string_view value) {
  KeyRewriter rewriter(out, tag, prefix, value);
  bool readFailed = false;
  if (in) {
    IniLineReader reader{FileCharacters(in)};
    std::string_view line;
    while (reader.Next(line)) rewriter.Line(line);
    readFailed = reader.Failed();
  }
  rewriter.Finish();
  const bool flushed = std::fflush(out) == 0 && std::ferror(out) == 0;
  const bool closed = std::fclose(out) == 0;
  return !readFailed && flushed && closed;
}

// Puts the new file in the old one's place in one step.
bool MoveOver(const std::string& from, const std::string& to) {
#ifdef _WIN32
  return MoveFileExA(from.c_str(), to.c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
#else
  return std::rename(from.c_str(), to.c_str()) == 0;
#endif
}

// A value is one line: anything from a line end on would turn into lines of its own.
std::string_view OneLine(const char* value) {
  const std::string_view text(value);
  return text.substr(0, text.find_first_of("\r\n"));
}

// Skips the blanks atoi and atof skip, and a '+' (from_chars takes only '-').
const char* SkipToNumber(const char* text) {
  while (*text == ' ' || (*text >= '\t' && *text <= '\r')) ++text;
  if (*text == '+' && text[1] != '-') ++text;
  return text;
}
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

std::string PluginFilePath(const char* fileName) {
  char systemPath[512] = {};
  XPLMGetSystemPath(systemPath);
  systemPath[sizeof systemPath - 1] = '\0';
  const char* separators = XPLMGetDirectorySeparator();
  const char separator = separators && separators[0] ? separators[0] : '/';
  const char* name = fileName ? fileName : "";
  const char* format = "%sResources%cplugins%cDRAV%c%s";
  const int length =
      std::snprintf(nullptr, 0, format, systemPath, separator, separator, separator, name);
  if (length <= 0) return std::string();
  std::string path(static_cast<std::size_t>(length) + 1, '\0');
  std::snprintf(path.data(), path.size(), format, systemPath, separator, separator, separator,
                name);
  path.resize(static_cast<std::size_t>(length));
  return path;
}

bool ReadIniValueAtPath(const std::string& path, const char* section, const char* key,
                        char* outValue, const char* defaultValue) {
  if (!outValue) return false;
  const bool found =
      section && key && FindValue(path, SectionTag(section), KeyPrefix(key), outValue);
  if (!found) CopyValue(outValue, ViewOf(defaultValue));
  return found;
}

void ReadIniValue(const char* fileName, const char* section, const char* key, char* outValue,
                  const char* defaultValue) {
  if (!outValue) return;
  const bool found =
      ReadIniValueAtPath(PluginFilePath(fileName), section, key, outValue, defaultValue);
  // The DEBUG switches are read before the log is set up and never trace.
  const bool traced = gDebug.DebugEnabled == 1 && gDebug.DebugFunctionAssignments == 1 && section &&
                      std::strcmp(section, "DEBUG") != 0;
  if (!traced) return;
  LogFormat("file: %s, found: %d, section: %s, key: %s, value: %s, default: %s",
            fileName ? fileName : "", found ? 1 : 0, SectionTag(section).c_str(), key ? key : "",
            outValue, defaultValue ? defaultValue : "");
}

std::string ReadIniString(const char* fileName, const char* section, const char* key,
                          const char* defaultValue) {
  char value[kIniValueSize];
  ReadIniValue(fileName, section, key, value, defaultValue);
  return value;
}

bool WriteIniValueAtPath(const std::string& path, const char* section, const char* key,
                         const char* value) {
  if (!section || !key || !value) return false;
  std::FILE* in = std::fopen(path.c_str(), "rb");
  // A missing file is written as if it were empty; one that exists but cannot be read is left
  // alone.
  if (!in && errno != ENOENT) return false;
  const std::string tempPath = path + "_TMP";
  std::FILE* out = std::fopen(tempPath.c_str(), "wb");
  if (!out) {
    if (in) std::fclose(in);
    return false;
  }
  const bool written =
      WriteRewrittenFile(in, out, SectionTag(section), KeyPrefix(key), OneLine(value));
  if (in) std::fclose(in);
  const bool replaced = written && MoveOver(tempPath, path);
  if (!replaced) std::remove(tempPath.c_str());
  if (replaced && SnapshotCovers(path)) TakeSnapshot();  // later reads see what was written
  return replaced;
}

IniReadSnapshot::IniReadSnapshot(const char* fileName) {
  const std::string path = PluginFilePath(fileName);
  if (gSnapshot.depth++ > 0) return;  // the outermost one decides which file is copied
  gSnapshot.path = path;
  TakeSnapshot();
}

IniReadSnapshot::~IniReadSnapshot() {
  if (--gSnapshot.depth > 0) return;
  gSnapshot = Snapshot{};
}

void WriteIniValue(const char* fileName, const char* section, const char* key, const char* value) {
  WriteIniValueAtPath(PluginFilePath(fileName), section, key, value);
}

int ParseIniInt(const char* value) {
  if (!value) return 0;
  const char* text = SkipToNumber(value);
  const char* end = text + std::strlen(text);
  int result = 0;
  // atoi leaves overflow undefined; here it saturates.
  const std::errc error = std::from_chars(text, end, result).ec;
  if (error == std::errc::result_out_of_range) return *text == '-' ? INT_MIN : INT_MAX;
  return error == std::errc() ? result : 0;
}

float ParseIniReal(const char* value) {
  if (!value) return 0.0f;
  const char* text = SkipToNumber(value);
  // Decimal text only: "inf", "nan" and the like are not numbers of this file.
  const char* digits = *text == '-' ? text + 1 : text;
  if (!IsDigit(digits[0]) && !(digits[0] == '.' && IsDigit(digits[1]))) return 0.0f;
  const char* end = text + std::strlen(text);
  float result = 0.0f;
  // from_chars, unlike atof, ignores the process locale (the simulator may set a decimal comma).
  const std::errc error = std::from_chars(text, end, result, std::chars_format::general).ec;
  return error == std::errc() ? result : 0.0f;
}

}  // namespace drav
