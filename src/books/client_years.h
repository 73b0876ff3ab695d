// The clients and years behind the codes and tables of the per-year data, each looked up once.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "books/registry.h"
#include "ports/ports.h"

namespace quillet {

class ClientYears {
 public:
  explicit ClientYears(ServiceObject& host) : host_(host) {}

  // A client that has left the list is told by its code.
  const std::string& client(const std::string& code);
  // Both keys are "" for a year that the registry does not have.
  const YearKeys& year(const std::string& code, const std::string& table);

 private:
  ServiceObject& host_;
  std::map<std::string, std::string> clients_;
  std::map<std::pair<std::string, std::string>, YearKeys> years_;
};

}  // namespace quillet
