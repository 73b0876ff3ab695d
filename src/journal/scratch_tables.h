// The scratch tables of the journal, Ledger_Temp1 and Ledger_Temp: rows are collected in the first
// and summed up into the second. What a failure left of them goes with this object.
#pragma once

#include <string>
#include <vector>

#include "host/ports.h"

namespace quillet {

class ScratchTables {
 public:
  explicit ScratchTables(ServiceObject& host) : host_(host) {}
  ~ScratchTables();
  ScratchTables(const ScratchTables&) = delete;
  ScratchTables& operator=(const ScratchTables&) = delete;

  static constexpr const char* collected = "Ledger_Temp1";
  static constexpr const char* summed = "Ledger_Temp";

  // " from {table} ... where {table}" with the names of the ledger and the group of its rows.
  static std::string named(const std::string& table);

  // Makes both, empty, with these columns: "(Part Varchar(100), Amt Double)".
  void create(const std::string& columns);
  void drop(const std::string& table);
  // Sends a statement and the flush that follows it.
  void execute(const std::string& sql);

 private:
  ServiceObject& host_;
  std::vector<std::string> standing_;
};

}  // namespace quillet
