#include "journal/scratch_tables.h"

#include <exception>

namespace quillet {

ScratchTables::~ScratchTables() {
  for (const std::string& table : std::vector(standing_)) {
    try {
      drop(table);
    } catch (const std::exception&) {
      // The failure that brought us here is the one to be logged; the next run drops the table.
    }
  }
}

std::string ScratchTables::named(const std::string& table) {
  return " from " + table + " LEFT JOIN mast_part ON " + table +
         ".partid=mast_part.partid LEFT JOIN mast_allgrp on " + table +
         ".allid=mast_allgrp.allid where " + table;
}

void ScratchTables::create(const std::string& columns) {
  standing_ = {collected, summed};
  for (const std::string& table : std::vector(standing_)) {
    execute("Drop Table If Exists " + table);
    execute("Create Table If Not Exists " + table + " " + columns);
    execute("Delete from " + table);
  }
}

void ScratchTables::drop(const std::string& table) {
  execute("Drop Table If Exists " + table);
  std::erase(standing_, table);
}

void ScratchTables::execute(const std::string& sql) {
  host_.ConQuery(sql);
  host_.ConQuery("Flush Tables");
}

}  // namespace quillet
