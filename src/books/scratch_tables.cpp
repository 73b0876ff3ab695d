#include "books/scratch_tables.h"

#include <exception>

namespace quillet {

ScratchTables::~ScratchTables() {
  for (const Sql& table : std::vector(existing_)) {
    try {
      drop(table);
    } catch (const std::exception&) {
      // The failure that brought us here is the one to be logged; the next run drops the table.
    }
  }
}

Sql ScratchTables::named(const Sql& table) {
  return " from " + table + " LEFT JOIN mast_part ON " + table +
         ".partid=mast_part.partid LEFT JOIN mast_allgrp on " + table +
         ".allid=mast_allgrp.allid where " + table;
}

void ScratchTables::create(const Sql& columns) {
  existing_ = {collected, summed};
  for (const Sql& table : std::vector(existing_)) {
    execute("Drop Table If Exists " + table);
    execute("Create Table If Not Exists " + table + " " + columns);
    execute("Delete from " + table);
  }
}

void ScratchTables::drop(const Sql& table) {
  execute("Drop Table If Exists " + table);
  std::erase_if(existing_, [&](const Sql& each) { return each.text() == table.text(); });
}

void ScratchTables::execute(const Sql& sql) {
  host_.ConQuery(sql);
  host_.ConQuery("Flush Tables");
}

}  // namespace quillet
