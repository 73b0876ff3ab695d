#include "suite/folder_format.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

#include "data/errors.h"
#include "suite/misc_values.h"

namespace quillet::suite::folder_format {
namespace {

constexpr const char* section = "Suite";
constexpr const char* name = "FolderFormat";
constexpr long noSuchTable = 1146;

long numberIn(const std::string& text) { return std::strtol(text.c_str(), nullptr, 10); }

// 0 when there is none.
long stored(Database& database) {
  UnitOfWork unit(database);
  try {
    return numberIn(misc_values::get(unit, section, name, ""));
  } catch (const RunTimeError& error) {
    if (error.number() != noSuchTable) throw;
    return 0;
  }
}

void refuse(long number, const std::filesystem::path& place) {
  if (number <= current) return;
  throw std::runtime_error(
      "The practice in " + place.string() + " was opened by a newer Quillet (its format is " +
      std::to_string(number) + ", this program knows " + std::to_string(current) +
      "). Nothing was changed. Open it with the newer program.");
}

}  // namespace

void refuseNewer(const Settings& settings, const std::filesystem::path& place) {
  refuse(numberIn(settings.get(section, name)), place);
}

void refuseNewer(Database& database, const DataFolder& folder) {
  refuse(stored(database), folder.root());
}

bool isOlder(Database& database) {
  return stored(database) < current &&
         database.query(
                     "select exists(select 1 from information_schema.tables"
                     " where table_schema=database())")
                 ->integer(0) == 1;
}

void write(Database& database, Settings& settings) {
  UnitOfWork unit(database);
  if (stored(database) != current) {
    misc_values::set(unit, section, name, std::to_string(current), "", "");
  }
  settings.set(section, name, std::to_string(current));
}

}  // namespace quillet::suite::folder_format
