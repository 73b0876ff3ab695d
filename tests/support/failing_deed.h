// A deed of a person, tried with each of its statements failing once, and what may be done next.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quillet::support {

// What is done after the failure. Its result must be the one of the same books without a failure:
// of the deed itself (so it is with a repetition), or of `instead` where that is given.
struct Continuation {
  std::string what;
  std::function<void()> act;
  std::function<void()> instead = {};  // after `arrange`: the way without a failure
  std::function<void()> check = {};    // what has to hold besides; in place of the comparison where
                                       // the deed has no result
};

struct FailingDeed {
  std::string what;
  std::function<void()> arrange = {};  // the books anew, and everything up to the last key or click
  std::function<void()> act = {};      // that key or click
  // What has to be right in the end: tables, the screen.
  std::function<std::vector<std::vector<std::string>>()> result = {};
  std::vector<Continuation> next = {};
  std::string place = {};  // in the line of the error log: form, or form, tab and procedure
  bool stops = true;       // the failing statement is the last that is sent
  std::size_t behind = 0;  // statements at the end that are not the deed's own
  std::function<void()> check = {};  // what has to hold right after the failure
};

}  // namespace quillet::support
