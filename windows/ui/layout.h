// Where the controls of an arrangement stand in a room of so many pixels: the form's rows, columns,
// frames and stacks as rectangles.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

#include "controls/layout.h"
#include "view/layout_rules.h"
#include "windows/ui/metrics.h"

namespace quillet::windows {

// What is known of a control's looks.
struct Piece {
  SIZE wanted{};
  SIZE least{};
  int labelWidth = 0;    // 0 without a label
  RECT inside{};         // of a frame: how far its border and heading reach in
  bool present = false;  // it is shown when the frames around it are
};

// A control that has a place, and where its label stands when it has one.
struct Placement {
  unsigned control = 0;  // id
  RECT place{};
  RECT label{};
};

class Layout {
 public:
  using PieceOf = std::function<Piece(const LayoutItem&)>;
  // All of them outlive the object.
  Layout(const LayoutItem& arrangement, const Metrics& metrics, const PieceOf& pieceOf);

  // The least room in which nothing is cut.
  SIZE least() const;
  // The least that it can be squeezed to, its names narrower than they should be.
  SIZE bare() const;
  // From the first control to the last; those that are not shown are left out.
  std::vector<Placement> place(const RECT& room) const;

 private:
  struct Box {
    LayoutItem::Kind kind = LayoutItem::Kind::gap;
    unsigned control = 0;
    Piece piece;
    bool present = false;
    bool fields = false;  // a column whose labels make a column of their own
    bool table = false;
    bool labelAbove = false;
    bool kept = false;  // no wider than wanted
    bool growsAcross = false;
    bool growsDown = false;
    int stretch = 0;
    SIZE wanted{};
    SIZE least{};
    LONG bare = 0;  // the width below least on a screen that is too narrow for all of them
    std::vector<Box> children;
  };
  using Placements = std::vector<Placement>;

  Box make(const view::Part& part, const view::Place& place) const;
  Box makeControl(const LayoutItem& node, const view::Place& place) const;
  Box makeGroup(const LayoutItem& node, bool fields, unsigned frame) const;
  void measure(Box& box) const;
  static void unite(Box& box, const Box& child, bool inRow, int spacing);
  int labelColumn(const Box& fields) const;

  void place(const Box& box, RECT room, Placements& placed) const;
  void placeControl(const Box& box, RECT room, Placements& placed) const;
  void placeInRow(const Box& box, const RECT& room, Placements& placed) const;
  void placeInColumn(const Box& box, const RECT& room, Placements& placed) const;
  void placeField(const Box& box, const RECT& room, int labels, Placements& placed) const;
  std::vector<int> share(const std::vector<Box>& boxes, bool across, int room) const;

  const Metrics& metrics_;
  const PieceOf& pieceOf_;
  Box root_;
};

}  // namespace quillet::windows
