// The scratch tables of the journal, Ledger_Temp1 and Ledger_Temp: rows are collected in the first
// and summed up into the second. What a failure left of them goes with this object.
#pragma once

#include <vector>

#include "ports/ports.h"

namespace quillet {

class ScratchTables {
 public:
  explicit ScratchTables(ServiceObject& host) : host_(host) {}
  ~ScratchTables();
  ScratchTables(const ScratchTables&) = delete;
  ScratchTables& operator=(const ScratchTables&) = delete;

  static constexpr char collected[] = "Ledger_Temp1";
  static constexpr char summed[] = "Ledger_Temp";

  // " from {table} ... where {table}" with the names of the ledger and the group of its rows.
  static Sql named(const Sql& table);

  // Makes both, empty, with these columns: "(Part Varchar(100), Amt Double)".
  void create(const Sql& columns);
  void drop(const Sql& table);
  // Sends a statement and the flush that follows it.
  void execute(const Sql& sql);

 private:
  ServiceObject& host_;
  std::vector<Sql> existing_;
};

}  // namespace quillet
