// Examines the books of a whole practice, and mends what can be mended without a doubt: no amount
// is lost by it, and none is made up.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "suite/check/finding.h"
#include "suite/standalone_environment.h"

namespace quillet::suite::check {

// Told the steps done of all; false stops.
using Steps = std::function<bool(long done, long total)>;

struct Examination {
  std::vector<Finding> findings;  // by client and year, what is shared first
  std::size_t clients = 0;
  std::size_t years = 0;
  bool complete = true;  // false: it was stopped before its end

  bool clean() const { return complete && findings.empty(); }
  std::size_t mendable() const;
};

// Changes nothing. Throws RunTimeError when the tables cannot be read.
Examination examineBooks(Practice& practice, const Steps& steps = {});

struct Mending {
  std::string backup;  // the file that holds the books of before
  std::size_t mended = 0;
  bool complete = true;
  std::vector<std::string> failed;  // a sentence each: what stayed as it was, and why
};

// Makes a backup first, which returns its file; what that throws goes on, with nothing mended. Then
// everything is examined anew and mended, the tables of each number in a transaction of their own
// that is taken back when the sums are not what they were before. Forms that show the books are to
// be closed.
Mending mendBooks(Practice& practice, const std::function<std::string()>& backup,
                  const Steps& steps = {});

}  // namespace quillet::suite::check
