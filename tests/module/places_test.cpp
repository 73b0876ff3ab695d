// Where columns, lists under fields and windows stand on the screen.
#include <gtest/gtest.h>

#include <vector>

#include "controls/grid.h"
#include "view/column_widths.h"
#include "view/drop_down_place.h"
#include "view/window_place.h"

namespace quillet::view {
namespace {

TEST(ColumnWidths, ShareWhatIsLeftAndKeepWhatWasDragged) {
  const std::vector<GridColumn> columns{
      {.heading = "Name", .width = 10, .stretch = true},
      {.heading = "Id", .hidden = true},
      {.heading = "Debit", .width = 5},
      {.heading = "Group", .width = 2, .stretch = true},
  };
  const CellMetrics metrics{7.5, 4};
  const struct {
    const char* what;
    std::vector<int> now;
    int room;
    std::vector<int> widths;
  } cases[] = {
      {"drawn first", {}, 0, {79, 0, 42, 19}},
      {"an odd rest", {0, 0, 0, 0}, 151, {84, 0, 42, 25}},
      {"dragged within a character", {79, 0, 40, 19}, 0, {79, 0, 40, 19}},
      {"set anew since", {79, 0, 60, 19}, 0, {79, 0, 42, 19}},
      {"stretched before, narrow now", {400, 0, 42, 300}, 100, {79, 0, 42, 19}},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(columnWidths(columns, each.now, metrics, each.room), each.widths) << each.what;
  }
  EXPECT_EQ(metrics.characters(0), 1);
}

TEST(DropDown, StaysInTheWindow) {
  constexpr Size window{400, 300};
  const struct {
    const char* what;
    Bounds field;
    Size wanted;
    Bounds place;
  } cases[] = {
      {"under its field", {20, 40, 100, 24}, {150, 120}, {20, 66, 150, 120}},
      {"at the right edge", {350, 40, 40, 24}, {150, 120}, {246, 66, 150, 120}},
      {"hardly room under it", {20, 200, 100, 24}, {150, 120}, {20, 226, 150, 70}},
      {"above", {20, 240, 100, 24}, {150, 120}, {20, 118, 150, 120}},
      {"cut above", {20, 215, 100, 24}, {150, 500}, {20, 4, 150, 209}},
      {"cut below", {20, 40, 100, 24}, {150, 500}, {20, 66, 150, 230}},
      {"wider than the window", {-30, 40, 600, 24}, {150, 120}, {4, 66, 392, 120}},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(dropDownPlace(each.field, each.wanted, 60, window), each.place) << each.what;
  }
  EXPECT_GE(dropDownPlace({0, 0, 50, 24}, {50, 50}, 60, {6, 10}).height, 0) << "hardly a window";
  // Five rows of 22 with a border of 2: whole ones are left, above the field at its edge.
  const auto cut = [&](const Bounds& field) {
    return dropDownPlace(field, {150, 112}, 68, window, 4, 22);
  };
  EXPECT_EQ(cut({20, 200, 100, 24}), (Bounds{20, 226, 150, 68}));
  EXPECT_EQ(cut({20, 100, 100, 190}), (Bounds{20, 8, 150, 90}));
}

TEST(WindowPlaces, AreKeptAsTextAndComeBackOnTheScreen) {
  for (const char* text : {"1200x700+80+30", "1200x700-80+0 maximized"}) {
    const auto place = windowPlaceIn(text);
    ASSERT_TRUE(place) << text;
    EXPECT_EQ(textOf(*place), text);
  }
  for (const char* text : {"", "1200", "1200x700", "0x0+0+0", "99x700+0+0", "-500x700+0+0",
                           "1200x700+80+30 maximised", "1200x700+80+30+5", " 1200x700+80+30",
                           "9999999x700+0+0", "1200x700+999999+0", "ax700+0+0"}) {
    EXPECT_FALSE(windowPlaceIn(text)) << text;
  }
  const Bounds screen{100, 0, 1024, 600};
  const struct {
    Bounds kept, place;
  } cases[] = {{{200, 50, 800, 400}, {200, 50, 800, 400}},
               {{3000, 2000, 800, 400}, {324, 200, 800, 400}},
               {{-3000, -20, 800, 400}, {100, 0, 800, 400}},
               {{0, 0, 3840, 2160}, {100, 0, 1024, 600}}};
  for (const auto& each : cases) EXPECT_EQ(within(each.kept, screen), each.place);
}

}  // namespace
}  // namespace quillet::view
