// Random days at the editor and the journal. Whatever is done, in whatever view, of whatever
// client, and whatever fails: tables, screen, totals, summary and printouts are those of the model.
//
// QUILLET_PROPERTY_SEED plays one day, or with QUILLET_PROPERTY_DAYS that many from it on.
#include <cstdlib>

#include "property/player.h"

namespace quillet::support {
namespace {

constexpr int usualDays = 14;
constexpr int actsOfADay = 70;
constexpr int replays = 400;  // spent on making a day that fails shorter

int fromEnvironment(const char* name, int otherwise) {
  const char* text = std::getenv(name);
  return text ? std::atoi(text) : otherwise;
}

class PropertyTest : public Player {
 protected:
  static std::vector<Act> drawDay(unsigned seed) {
    using enum Kind;
    static const std::vector<Kind> onEditor{
        open,  view,   view,   view,     view, sort, refresh, enter,   enter,
        enter, enter,  enter,  enter,    fill, save, save,    alter,   alter,
        alter, remove, remove, transfer, page, page, escape,  journal, journal};
    static const std::vector<Kind> onJournal{pass,  pass,  pass,  modify, modify,
                                             erase, erase, print, back,   back};
    std::minstd_rand random(seed);
    const auto draw = [&](std::size_t count) { return random() % count; };
    const bool fails = draw(4) > 0;
    std::vector<Act> day{{open, static_cast<unsigned>(random())}};
    bool inJournal = false;
    while (day.size() < actsOfADay) {
      const Act& last = day.back();
      Kind kind =
          (inJournal ? onJournal : onEditor)[draw(inJournal ? onJournal.size() : onEditor.size())];
      // After a failure often the same once more, or another of its kind.
      if (last.failing >= 0 && draw(2) == 0) kind = draw(2) == 0 ? again : last.kind;
      if (kind == journal) inJournal = true;
      if (kind == back) inJournal = false;
      Act act{kind, static_cast<unsigned>(random())};
      if (fails && draw(3) == 0) act.failing = static_cast<int>(draw(kind < pass ? 11 : 35));
      day.push_back(act);
    }
    return day;
  }

  // Leaves out acts and failures as long as something still does not agree.
  std::vector<Act> shortened(unsigned seed, std::vector<Act> day) {
    int left = replays;
    const auto fails = [&](const std::vector<Act>& acts) {
      return left-- > 0 && !play(seed, acts).empty();
    };
    for (std::size_t length = day.size() / 2; length > 0 && left > 0; length /= 2) {
      for (std::size_t from = 0; from + length <= day.size();) {
        std::vector<Act> fewer = day;
        fewer.erase(fewer.begin() + static_cast<long>(from),
                    fewer.begin() + static_cast<long>(from + length));
        if (fails(fewer)) {
          day = fewer;
        } else {
          from += length;
        }
      }
    }
    for (Act& act : day) {
      if (act.failing < 0) continue;
      const int failing = std::exchange(act.failing, -1);
      if (!fails(day)) act.failing = failing;
    }
    return day;
  }
};

TEST_F(PropertyTest, WhateverIsDoneTheBooksAreRight) {
  const int first = fromEnvironment("QUILLET_PROPERTY_SEED", 1);
  const int days = fromEnvironment("QUILLET_PROPERTY_DAYS",
                                   std::getenv("QUILLET_PROPERTY_SEED") ? 1 : usualDays);
  for (auto seed = static_cast<unsigned>(first); seed < static_cast<unsigned>(first + days);
       ++seed) {
    const std::vector<Act> day = drawDay(seed);
    if (play(seed, day).empty()) continue;
    const std::string complaint = play(seed, shortened(seed, day));
    ADD_FAILURE() << "QUILLET_PROPERTY_SEED=" << seed << " fails; made shorter:\n"
                  << transcript() << complaint;
    break;
  }
}

}  // namespace
}  // namespace quillet::support
