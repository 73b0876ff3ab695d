// The statutory heads of a practice: the starter list, and what a file in the data folder adds to
// it or changes in it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include "ports/statutory_heads.h"

namespace quillet::suite {

// The starter list.
StatutoryHeadList starterHeads();

// Takes a practice's own list in. It has the columns of the starter list. A row with the number of
// a head changes it: what it leaves blank stays. Any other number is a new head, which is put
// behind those of its section. Rows that cannot be taken are refused one by one.
void extendHeads(StatutoryHeadList& list, std::string_view file, std::string text);

class PracticeHeads : public StatutoryHeads {
 public:
  // The file need not be there.
  explicit PracticeHeads(std::filesystem::path file) : file_(std::move(file)) {}
  StatutoryHeadList read() override;

 private:
  std::filesystem::path file_;
};

}  // namespace quillet::suite
