// Letters typed into a list of choices look for an item together: "sel" finds "SELLING EXPENSES".
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "controls/key.h"

namespace quillet {

class LetterSearch {
 public:
  // What is looked through: so many texts, each asked for by its position from 1.
  struct Items {
    int size = 0;
    std::function<std::string_view(int position)> text;
  };
  using Moment = std::chrono::steady_clock::time_point;
  // A letter typed later than this begins a new search.
  static constexpr std::chrono::milliseconds pause{1000};

  // The position, from 1, of the item that begins with the letters typed so far and this one; 0
  // when there is none, and the letter is forgotten. A new search begins behind the chosen item,
  // and one letter repeated goes from item to item.
  int next(Key letter, const Items& items, int chosen, Moment now);
  // Whether a letter typed now would belong to those before it.
  bool goesOn(Moment now) const { return !typed_.empty() && now - last_ <= pause; }
  // What follows a choice may take its time, which is not the typist's.
  void goOn(Moment now) { last_ = now; }
  void end() { typed_.clear(); }

 private:
  std::u32string typed_;  // in capitals
  Moment last_;
};

}  // namespace quillet
