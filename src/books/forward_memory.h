// What was brought forward into a client's years, kept by the host, so that later changes of the
// old year can be told from what the new year changed by itself.
#pragma once

#include <optional>
#include <string>

#include "books/opening_changes.h"

namespace quillet {

class ForwardMemory {
 public:
  // Of the year into which lines were brought.
  ForwardMemory(ServiceObject& host, std::string client, const YearKeys& year)
      : host_(host), client_(std::move(client)), year_(year.first) {}

  // Nothing when none was. Ledgers and groups that are gone from the masters are left out; what
  // was merged or replaced counts for what it went into.
  std::optional<BroughtForward> read() const;
  void keep(const BroughtForward& brought);
  // The lines of the year are gone.
  void forget();

 private:
  std::string keyOf(const std::string& what) const;

  ServiceObject& host_;
  std::string client_;
  std::string year_;
};

}  // namespace quillet
