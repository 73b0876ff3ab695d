#include "suite/statutory_heads.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <limits>
#include <stdexcept>
#include <system_error>

#include "data/names.h"
#include "data/text.h"
#include "suite/data_reader.h"

namespace quillet::suite {
namespace {

constexpr std::string_view headColumns[] = {"scheme",  "id",   "kind", "section",
                                            "heading", "name", "note", "role"};
constexpr std::pair<std::string_view, Scheme> schemeNames[] = {{"Schedule VI", Scheme::schedule6},
                                                               {"Income Tax", Scheme::incomeTax}};
constexpr std::pair<std::string_view, HeadKind> kindNames[] = {{"liability", HeadKind::liability},
                                                               {"asset", HeadKind::asset},
                                                               {"income", HeadKind::income},
                                                               {"expense", HeadKind::expense}};
constexpr std::pair<std::string_view, HeadRole> roleNames[] = {
    {"result", HeadRole::result},
    {"closing stock", HeadRole::closingStock},
    {"raw material stock", HeadRole::rawMaterialStock},
    {"work-in-progress stock", HeadRole::workInProgressStock}};

// What the table of mappings holds of a name.
constexpr std::size_t nameLength = 100;
// Far more than anybody writes; a larger file is another one.
constexpr std::uintmax_t mostBytes = 1'000'000;
constexpr std::size_t mostRefused = 20;

using Heads = std::vector<StatutoryHead>;

bool blank(const DataReader& row, std::string_view column) {
  return cleanedName(row.text(column)).empty();
}

long numberIn(const DataReader& row, std::string_view column) {
  const long number = row.number(column);
  if (number <= 0 || number > std::numeric_limits<int>::max()) row.refuse(column);
  return number;
}

// What the row says, over what the head was before.
void readInto(StatutoryHead& head, const DataReader& row) {
  if (!blank(row, "kind")) head.kind = row.choice("kind", kindNames);
  if (!blank(row, "section")) head.section = cleanedName(row.text("section"));
  if (!blank(row, "heading")) head.heading = cleanedName(row.text("heading"));
  if (!blank(row, "name")) head.name = cleanedName(row.text("name"));
  if (!blank(row, "note")) head.note = static_cast<int>(numberIn(row, "note"));
  if (!blank(row, "role")) head.role = row.choice("role", roleNames);
}

void check(const StatutoryHead& head, const Heads& heads, const DataReader& row) {
  if (head.name.empty() || head.section.empty()) row.fail("a new head needs a section and a name");
  if (head.kind == HeadKind::asset && head.role == HeadRole::result) {
    row.fail("the result of a year stands under a liability");
  }
  for (const std::string& text : {head.name, head.section, head.heading}) {
    if (lengthOf(text) > nameLength) row.fail("a name holds at most 100 characters");
  }
  for (const StatutoryHead& other : heads) {
    if (other.scheme == head.scheme && other.id != head.id && sameName(other.name, head.name)) {
      row.fail("the head " + std::to_string(other.id) + " has the name \"" + head.name + "\"");
    }
  }
}

// The head that the row changes; the end for a new one.
Heads::iterator find(Heads& heads, const StatutoryHead& head) {
  return std::find_if(heads.begin(), heads.end(), [&](const StatutoryHead& each) {
    return each.scheme == head.scheme && each.id == head.id;
  });
}

StatutoryHead headOf(const DataReader& row, Heads& heads) {
  StatutoryHead head;
  head.id = numberIn(row, "id");
  head.scheme = row.choice("scheme", schemeNames);
  const auto before = find(heads, head);
  if (before != heads.end()) {
    head = *before;
  } else if (blank(row, "kind")) {
    row.fail("a new head needs a kind");
  }
  readInto(head, row);
  check(head, heads, row);
  return head;
}

// How far two heads stand in the same part of the statements.
int nearness(const StatutoryHead& a, const StatutoryHead& b) {
  if (a.scheme != b.scheme) return 0;
  if (a.kind != b.kind) return 1;
  if (a.section != b.section) return 2;
  return a.heading != b.heading ? 3 : 4;
}

void put(Heads& heads, const StatutoryHead& head) {
  for (StatutoryHead& other : heads) {
    // There is one for each role, but several assets may be the same kind of stock.
    const bool beside = head.kind != HeadKind::asset && other.kind != HeadKind::asset &&
                        inBalanceSheet(other.kind) == inBalanceSheet(head.kind);
    if (other.scheme == head.scheme && other.role == head.role && beside) {
      other.role = HeadRole::none;
    }
  }
  const auto before = find(heads, head);
  if (before != heads.end() && nearness(*before, head) == 4) {
    *before = head;
    return;
  }
  if (before != heads.end()) heads.erase(before);
  auto place = heads.begin();
  int nearest = 0;
  for (auto other = heads.begin(); other != heads.end(); ++other) {
    if (nearness(*other, head) < nearest) continue;
    nearest = nearness(*other, head);
    place = std::next(other);
  }
  heads.insert(place, head);
}

// Without what an editor adds: the mark at the beginning, the other system's line ends, blank
// lines. Tabs at the end, which it takes away, are put back. Lines keep their numbers.
std::string plain(const std::string& text) {
  std::string lines;
  std::size_t at = text.starts_with("\xEF\xBB\xBF") ? 3 : 0;
  while (at < text.size()) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    std::string line = text.substr(at, end - at);
    at = end + 1;
    if (line.ends_with('\r')) line.pop_back();
    if (line.find_first_not_of("\t ") == std::string::npos) line = "#";
    const auto tabs = static_cast<std::size_t>(std::count(line.begin(), line.end(), '\t'));
    if (!line.starts_with('#') && tabs + 1 < std::size(headColumns)) {
      line.append(std::size(headColumns) - 1 - tabs, '\t');
    }
    lines += line + '\n';
  }
  return lines;
}

}  // namespace

StatutoryHeadList starterHeads() {
  StatutoryHeadList list;
  for (DataReader row("statutory_heads.tsv"); row.next();) {
    list.heads.push_back(headOf(row, list.heads));
  }
  return list;
}

void extendHeads(StatutoryHeadList& list, std::string_view file, std::string text) {
  const std::string name(file);
  if (!isUtf8(text)) {
    list.refused.push_back(name + " is not in UTF-8. Please save it as a text in UTF-8.");
    return;
  }
  text = plain(text);
  DataReader row(file, text);
  for (const std::string_view column : headColumns) {
    if (row.has(column)) continue;
    list.refused.push_back(name + ": its first row does not name the column \"" +
                           std::string(column) + "\".");
    return;
  }
  for (bool more = true; more && list.refused.size() < mostRefused;) {
    try {
      more = row.next();
      if (more) put(list.heads, headOf(row, list.heads));
    } catch (const std::runtime_error& error) {
      list.refused.emplace_back(error.what());
      list.refused.back() += '.';
    }
  }
}

StatutoryHeadList PracticeHeads::read() {
  StatutoryHeadList list = starterHeads();
  std::error_code error;
  if (!std::filesystem::exists(file_, error)) return list;
  const std::string name = file_.filename().string();
  std::ifstream in(file_, std::ios::binary);
  if (!std::filesystem::is_regular_file(file_, error) || !in) {
    list.refused.push_back(name + " cannot be read.");
  } else if (std::filesystem::file_size(file_, error) > mostBytes) {
    list.refused.push_back(name + " is too large for a list of heads.");
  } else {
    extendHeads(list, name, std::string(std::istreambuf_iterator<char>(in), {}));
  }
  return list;
}

}  // namespace quillet::suite
