#include "suite/sheets/stored_values.h"

#include <algorithm>
#include <array>
#include <vector>

#include "import/text_encoding.h"
#include "suite/sheets/zip_file.h"

namespace quillet::suite {
namespace {

using namespace std::string_literals;

constexpr std::array<std::string_view, 3> cellNames{"table-cell", "covered-table-cell", "Cell"};
constexpr std::array<std::string_view, 2> formulaNames{"formula", "Formula"};
constexpr std::array<std::string_view, 3> areaNames{"number-matrix-columns-spanned",
                                                    "number-matrix-rows-spanned", "ArrayRange"};
constexpr std::array<std::string_view, 7> errors{"#DIV/0!", "#N/A",  "#NAME?", "#NULL!",
                                                 "#NUM!",   "#REF!", "#VALUE!"};
constexpr std::string_view blanks = " \t\r\n";

template <std::size_t count>
bool isOne(std::string_view name, const std::array<std::string_view, count>& names) {
  const auto colon = name.find(':');
  const std::string_view local = colon == std::string_view::npos ? name : name.substr(colon + 1);
  return std::find(names.begin(), names.end(), local) != names.end();
}

// Up to the bracket that ends a tag; one in quotes does not.
std::size_t endOfTag(std::string_view xml, std::size_t at) {
  for (char quote = 0; at < xml.size(); ++at) {
    const char c = xml[at];
    if (quote == 0 && c == '>') return at + 1;
    if (c == '"' || c == '\'') quote = quote == 0 ? c : quote == c ? '\0' : quote;
  }
  return xml.size();
}

// ` table:formula="of:=1+1"` with the blank before it.
struct Attribute {
  std::string_view whole, name, value;
};

std::vector<Attribute> attributesOf(std::string_view tag) {
  std::vector<Attribute> all;
  for (std::size_t at = tag.find_first_of(blanks); at < tag.size();) {
    const auto name = tag.find_first_not_of(blanks, at);
    const auto equals = tag.find('=', at);
    const auto quote = tag.find_first_of("\"'", at);
    if (equals == tag.npos || quote == tag.npos || equals > quote || name > equals) break;
    const auto end = tag.find(tag[quote], quote + 1);
    if (end == tag.npos) break;
    const auto nameEnd = tag.find_first_of(" \t\r\n=", name);
    all.push_back({tag.substr(at, end + 1 - at), tag.substr(name, nameEnd - name),
                   tag.substr(quote + 1, end - quote - 1)});
    at = end + 1;
  }
  return all;
}

// The text between the tags, as it is shown.
std::string shownIn(std::string_view content) {
  std::string text;
  for (std::size_t at = 0; at < content.size();) {
    if (content[at] == '<') {
      at = endOfTag(content, at);
    } else {
      text += content[at++];
    }
  }
  const auto first = text.find_first_not_of(blanks);
  return first == text.npos ? "" : text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

bool isOfValue(const Attribute& attribute) {
  return attribute.name.ends_with("value") || attribute.name.ends_with("value-type");
}

// The error that the cell of a formula shows; "" when it has a value.
std::string errorOf(const std::vector<Attribute>& attributes, std::string_view content) {
  const std::string shown = shownIn(content);
  for (const std::string_view error : errors) {
    if (shown == error) return shown;
  }
  if (isOwnError(shown)) return shown;
  bool fails = false;
  // An empty text has a type alone.
  bool stored = !shown.empty() || content.find(":Type=") != content.npos;
  for (const Attribute& each : attributes) {
    const bool type = each.name.ends_with("value-type");
    fails = fails || (type && each.value == "error");
    stored = stored || (type && each.value == "string") || each.name.ends_with("value");
  }
  return fails || !stored ? "#N/A" : "";
}

// The tag of a cell without its formula, given what stands in the cell.
std::string withoutFormula(std::string_view tag, std::string_view content) {
  const std::vector<Attribute> attributes = attributesOf(tag);
  const std::string error = errorOf(attributes, content);
  const bool own = isOwnError(error);
  std::string result(tag);
  for (const Attribute& each : attributes) {
    const bool formula = isOne(each.name, formulaNames);
    if (!formula && !isOne(each.name, areaNames) && !(own && isOfValue(each))) continue;
    std::string kept;
    if (formula && own) {
      // No formula gives it: what is shown stays as a text.
      kept = " office:value-type=\"string\"";
    } else if (formula && !error.empty()) {
      // Which language it is in stands before it: "of:=1/0".
      const std::string language(each.value.substr(0, each.value.find('=')));
      kept = " "s.append(each.name).append("=\"").append(language).append("=").append(error) + '"';
    }
    result.replace(result.find(each.whole), each.whole.size(), kept);
  }
  return result;
}

std::string xmlWithStoredValues(std::string_view xml) {
  std::string result;
  result.reserve(xml.size());
  std::size_t done = 0;
  for (std::size_t at = xml.find('<'); at < xml.size(); at = xml.find('<', at)) {
    const std::size_t begin = at++;
    const std::string_view name = xml.substr(at, xml.find_first_of(" \t\r\n/>", at) - at);
    if (!isOne(name, cellNames)) continue;
    at = endOfTag(xml, at);
    const std::string_view tag = xml.substr(begin, at - begin);
    if (tag.find("ormula") == tag.npos) continue;
    const bool empty = tag.ends_with("/>");
    const auto end = empty ? at : xml.find("</"s.append(name), at);
    result += xml.substr(done, begin - done);
    result += withoutFormula(tag, xml.substr(at, end - at));
    done = at;
  }
  result += xml.substr(done);
  return result;
}

// Without the declaration of an encoding that it has no more.
std::string inUtf8(std::string_view bytes) {
  const std::string encoding = encodingOf(bytes);
  if (!encoding.starts_with("UTF-16")) return std::string(bytes);
  const std::string text = decoded(bytes, encoding);
  const auto end = text.starts_with("<?xml") ? text.find("?>") : text.npos;
  return end == text.npos ? text : text.substr(end + 2);
}

}  // namespace

bool isOwnError(std::string_view text) {
  constexpr std::string_view begin = "Err:";
  return text.starts_with(begin) && text.size() > begin.size() &&
         text.find_first_not_of("0123456789", begin.size()) == text.npos;
}

std::string withStoredValues(std::string_view bytes, ContentKind kind) {
  if (kind != ContentKind::openDocument) return xmlWithStoredValues(inUtf8(bytes));
  return ZipFile(bytes).with("content.xml", &xmlWithStoredValues);
}

}  // namespace quillet::suite
