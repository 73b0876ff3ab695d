#include "suite/schema_state.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

#include "data/errors.h"
#include "suite/misc_values.h"

namespace quillet::suite::schema_state {
namespace {

namespace fs = std::filesystem;

constexpr const char* stateSection = "Suite";
constexpr const char* stateName = "SchemaState";

// FNV-1a: the same on every machine and at every start.
std::uint64_t digest(std::string_view text) {
  std::uint64_t value = 14695981039346656037U;
  for (const char c : text) {
    value ^= static_cast<unsigned char>(c);
    value *= 1099511628211U;
  }
  return value;
}

std::string definitionFiles(const fs::path& folder) {
  std::vector<std::string> lines;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() != ".frm") continue;
    lines.push_back(entry.path().filename().string() + ' ' + std::to_string(entry.file_size()) +
                    ' ' + std::to_string(entry.last_write_time().time_since_epoch().count()));
  }
  std::sort(lines.begin(), lines.end());
  std::string all;
  for (const std::string& line : lines) all += line + '\n';
  return all;
}

std::string tableNames(Database& database) {
  const RecordsetPtr names = database.query(
      "select table_name from information_schema.tables where table_schema=database()"
      " order by table_name");
  std::string all;
  for (; !names->EOF_(); names->MoveNext()) all += names->text(0) + '\n';
  return all;
}

}  // namespace

std::string current(Database& database, const std::string& wanted) {
  const fs::path folder = database.schemaFolder();
  return std::to_string(digest(wanted)) + ' ' +
         std::to_string(digest(folder.empty() ? tableNames(database) : definitionFiles(folder)));
}

std::string stored(Database& database) {
  try {
    UnitOfWork unit(database);
    return misc_values::get(unit, stateSection, stateName, "");
  } catch (const RunTimeError&) {
    return {};  // its table is among those to be made
  }
}

void store(Database& database, const std::string& state) {
  UnitOfWork unit(database);
  misc_values::set(unit, stateSection, stateName, state, "", "");
}

}  // namespace quillet::suite::schema_state
