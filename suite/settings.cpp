#include "suite/settings.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <string_view>
#include <utility>

#include "suite/atomic_file.h"

namespace quillet::suite {
namespace {

constexpr const char* companyNameKey = "CompanyName";

std::string folded(const std::string& text) {
  std::string result = text;
  std::transform(result.begin(), result.end(), result.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return result;
}

std::string entryName(const std::string& section, const std::string& key) {
  return folded(section) + '\0' + folded(key);
}

// Puts a backslash before every character that has a meaning in the file.
std::string escaped(const std::string& text, std::string_view special) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const bool atEdge = i == 0 || i + 1 == text.size();
    if (c == '\n') {
      result += "\\n";
    } else if (c == '\r') {
      result += "\\r";
    } else if (c == '\\' || special.find(c) != std::string_view::npos ||
               (atEdge && (c == ' ' || c == '\t')) || (i == 0 && (c == ';' || c == '['))) {
      result += '\\';
      result += c;
    } else {
      result += c;
    }
  }
  return result;
}

std::string unescaped(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      result += text[i];
      continue;
    }
    const char c = text[++i];
    result += c == 'n' ? '\n' : c == 'r' ? '\r' : c;
  }
  return result;
}

// The position of the character without a backslash before it.
std::size_t findBare(std::string_view text, char wanted) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\') {
      ++i;
    } else if (text[i] == wanted) {
      return i;
    }
  }
  return std::string_view::npos;
}

// Without blanks around it; escaped ones stay.
std::string_view stripped(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r')) {
    if (text.size() > 1 && text[text.size() - 2] == '\\') break;
    text.remove_suffix(1);
  }
  return text;
}

}  // namespace

Settings::Settings(std::filesystem::path file) : file_(std::move(file)) { read(); }

void Settings::read() {
  std::ifstream file(file_, std::ios::binary);
  std::string section;
  for (std::string whole; std::getline(file, whole);) {
    const std::string_view line = stripped(whole);
    if (line.empty() || line.front() == ';') continue;
    if (line.front() == '[') {
      section = unescaped(line.substr(1, findBare(line, ']') - 1));
      continue;
    }
    const std::size_t equals = findBare(line, '=');
    if (equals == std::string_view::npos) continue;
    const std::string key = unescaped(stripped(line.substr(0, equals)));
    entries_[entryName(section, key)] = {section, key,
                                         unescaped(stripped(line.substr(equals + 1)))};
  }
}

Settings::State Settings::stateOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) {
    std::error_code error;
    const bool isThere =
        std::filesystem::status(file, error).type() != std::filesystem::file_type::not_found;
    return isThere ? State::unreadable : State::missing;
  }
  std::string line;
  if (!std::getline(stream, line)) return State::empty;
  if (stripped(line) != firstLine) return State::foreign;
  while (std::getline(stream, line)) {
    if (stripped(line) == lastLine) return State::whole;
  }
  return State::cut;
}

std::string Settings::text() const {
  std::string text = std::string(firstLine) + '\n';
  const std::string* section = nullptr;
  for (const auto& [name, entry] : entries_) {
    if (section == nullptr || folded(*section) != folded(entry.section)) {
      text += "\n[" + escaped(entry.section, "]") + "]\n";
      section = &entry.section;
    }
    text += escaped(entry.key, "=") + '=' + escaped(entry.value, "") + '\n';
  }
  return text + '\n' + lastLine + '\n';
}

std::string Settings::get(const std::string& section, const std::string& key,
                          const std::string& fallback) const {
  const auto found = entries_.find(entryName(section, key));
  return found == entries_.end() ? fallback : found->second.value;
}

void Settings::set(const std::string& section, const std::string& key, const std::string& value) {
  const std::string name = entryName(section, key);
  const auto found = entries_.find(name);
  if (found != entries_.end() && found->second.value == value) return;
  const std::map<std::string, Entry> before = entries_;
  if (found == entries_.end()) {
    entries_[name] = {section, key, value};
  } else {
    found->second.value = value;
  }
  try {
    writeAtomically(file_, text());
  } catch (...) {
    entries_ = before;
    throw;
  }
}

bool Settings::areUnused() const {
  return stateOf(file_) == State::whole && std::ranges::all_of(entries_, [](const auto& entry) {
           return entry.first == entryName("Suite", "TableCount");
         });
}

std::optional<long> Settings::tableCount() const {
  const long wanted = std::strtol(get("Suite", "TableCount").c_str(), nullptr, 10);
  return wanted == 0 ? std::nullopt : std::optional(wanted);
}

void Settings::setCompanyName(const std::string& name) { set("Suite", companyNameKey, name); }

std::string Settings::companyName() const { return get("Suite", companyNameKey); }

}  // namespace quillet::suite
