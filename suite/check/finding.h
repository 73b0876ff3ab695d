// What an examination of the books finds, and what would mend it.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "books/registry.h"

namespace quillet::suite::check {

// Where it stands: a client's year, or a table that all clients share.
struct Place {
  std::string client;  // "" for what is shared
  YearKeys year;
  std::string table;
  bool operator==(const Place&) const = default;
};

struct Finding {
  Place place;
  std::string rule;    // a short name of the rule that is broken, for programs
  std::string what;    // a sentence: what is wrong, and where
  std::string remedy;  // a sentence: what mending does, or what a person can do
  bool mendable = false;
};

struct Examined {
  std::vector<Finding> findings;
  std::vector<std::string> changes;  // the statements that mend what is mendable

  void add(const Place& place, std::string rule, std::string what, std::string remedy) {
    findings.push_back({place, std::move(rule), std::move(what), std::move(remedy)});
  }
  void addMendable(const Place& place, std::string rule, std::string what, std::string remedy) {
    findings.push_back({place, std::move(rule), std::move(what), std::move(remedy), true});
  }
};

}  // namespace quillet::suite::check
