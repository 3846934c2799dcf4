#include "dravsim/DatarefSyntax.h"

#include <array>
#include <limits>

#include "dravsim/ScenarioNumbers.h"

namespace dravsim {
namespace {

constexpr long long kMaxIndex = std::numeric_limits<int>::max();

struct TypeName {
  std::string_view name;
  sim::DatarefType type;
  bool isArray;
};

constexpr std::array<TypeName, 5> kTypeNames{{
    {"int", sim::DatarefType::Int, false},
    {"float", sim::DatarefType::Float, false},
    {"double", sim::DatarefType::Double, false},
    {"int", sim::DatarefType::IntArray, true},
    {"float", sim::DatarefType::FloatArray, true},
}};

// Splits "base[N]" into base and N; a text without brackets has no count.
bool SplitBracket(std::string_view text, std::string_view& base, std::string_view& inside) {
  const std::size_t open = text.find('[');
  if (open == std::string_view::npos) {
    base = text;
    inside = {};
    return true;
  }
  if (text.back() != ']') return false;
  base = text.substr(0, open);
  inside = text.substr(open + 1, text.size() - open - 2);
  return true;
}

}  // namespace

std::optional<DatarefTarget> ParseDatarefTarget(std::string_view text, std::string& error) {
  std::string_view path;
  std::string_view index;
  const bool hasIndex = text.find('[') != std::string_view::npos;
  if (!SplitBracket(text, path, index) || path.empty() || (hasIndex && index.empty())) {
    error = "bad dataref \"" + std::string(text) + "\" (PATH, PATH[i] or PATH[i..j])";
    return std::nullopt;
  }
  DatarefTarget target;
  target.path = std::string(path);
  if (!hasIndex) return target;

  const std::size_t dots = index.find("..");
  const std::string_view firstText = index.substr(0, dots);
  const std::string_view lastText =
      dots == std::string_view::npos ? firstText : index.substr(dots + 2);
  const auto first = ParseIntegerIn(firstText, 0, kMaxIndex);
  const auto last = ParseIntegerIn(lastText, 0, kMaxIndex);
  if (!first || !last || *last < *first) {
    error = "bad index in \"" + std::string(text) + "\" (i or i..j, 0 <= i <= j)";
    return std::nullopt;
  }
  target.first = static_cast<int>(*first);
  target.last = static_cast<int>(*last);
  return target;
}

std::optional<sim::DatarefDecl> ParseDatarefType(const std::string& path, std::string_view text) {
  std::string_view base;
  std::string_view count;
  if (!SplitBracket(text, base, count)) return std::nullopt;
  const bool isArray = text.find('[') != std::string_view::npos;
  for (const TypeName& entry : kTypeNames) {
    if (entry.name != base || entry.isArray != isArray) continue;
    sim::DatarefDecl decl;
    decl.path = path;
    decl.type = entry.type;
    if (isArray) {
      const auto length = ParseIntegerIn(count, 1, kMaxIndex);
      if (!length) return std::nullopt;
      decl.length = static_cast<int>(*length);
    }
    return decl;
  }
  return std::nullopt;
}

std::string DescribeTarget(const DatarefTarget& target) {
  if (!target.HasIndex()) return target.path;
  std::string text = target.path + "[" + std::to_string(target.first);
  if (target.IsRange()) text += ".." + std::to_string(target.last);
  return text + "]";
}

}  // namespace dravsim
