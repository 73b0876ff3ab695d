// How the digits of amounts are divided when they are painted. What controls hold, what scripts
// read and what files keep stays as it is written there.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quillet::view {

enum class Grouping {
  asWritten,
  none,       // 1234567.50
  thousands,  // 1,234,567.50
  lakhs       // 12,34,567.50
};

// By the name that the settings keep; asWritten for any other.
Grouping groupingNamed(std::string_view name);

// An amount with its digits divided so, any other text as it stands. An amount has two decimals;
// it may be divided already, have a sign or brackets, and name its side ("Dr", " Credit").
std::string grouped(std::string text, Grouping grouping);
// The same for each amount among the words of a text.
std::string groupedWords(const std::string& text, Grouping grouping);

// What every window of the program paints by, and reports on paper.
Grouping grouping();
void setGrouping(Grouping grouping);

// The figures where they fit into the room, else as many "#" as do: digits that are cut off would
// leave another amount. A text without digits stays.
std::string figuresIn(int room, const std::string& text,
                      const std::function<int(const std::string&)>& widthOf);

}  // namespace quillet::view
