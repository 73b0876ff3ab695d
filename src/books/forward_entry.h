// The act of bringing a client's year forward: what is read for it, and what is written, all of it
// or nothing. A year that is not there yet is registered under a number of its own.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "books/line_import.h"
#include "books/opening_changes.h"
#include "books/registry.h"

namespace quillet {

struct ForwardBooks {
  RegisteredYear last;
  YearKeys nextKeys;
  std::optional<RegisteredYear> next{};  // nothing while the client has no such year
  ClosingBalances closing{};
  NewYear year{};
  OpeningChoices choices{};  // those of the last time, completed by the usual ones
};

// What earlier failures left unposted has to be posted before.
ForwardBooks readForwardBooks(ServiceObject& host, const RegisteredYear& last);

enum class ForwardEnd {
  done,
  stopped,     // by a person
  booksOther,  // other lines stand by now, in the old year or in the new one
  yearGone,
  noTable,  // there is no number for another year
};

class ForwardEntry {
 public:
  ForwardEntry(ServiceObject& host, const ForwardBooks& seen) : host_(host), seen_(seen) {}

  struct Taken {
    OpeningChange change;
    bool taken = false;
  };
  // Writes what is taken and remembers what was brought forward, at `when`. Nothing is stored
  // unless it ends with `done`; it throws when a statement fails or the year does not hold
  // afterwards what it was to hold.
  ForwardEnd run(std::vector<Taken> lines, OpeningChoices choices, const std::string& when);

  // The year that was written into.
  const RegisteredYear& year() const { return year_; }

 private:
  std::optional<ForwardEnd> refusal();
  bool provideYear();
  void nameLedgers(std::vector<Taken>& lines, OpeningChoices& choices);
  void remember(const std::vector<Taken>& lines, OpeningChoices choices, const std::string& when);

  ServiceObject& host_;
  const ForwardBooks& seen_;
  RegisteredYear year_;
};

}  // namespace quillet
