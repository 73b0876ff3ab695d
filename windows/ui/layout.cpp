#include "windows/ui/layout.h"

#include <algorithm>
#include <numeric>

namespace quillet::windows {
namespace {

using Kind = LayoutItem::Kind;

int widthOf(const RECT& room) { return static_cast<int>(room.right - room.left); }
int heightOf(const RECT& room) { return static_cast<int>(room.bottom - room.top); }

// What is left over goes to those that have a share in it, in that proportion, as far as each keeps
// what it wants.
void enlarge(std::vector<int>& sizes, std::vector<int> shares, int room) {
  for (;;) {
    const int parts = std::accumulate(shares.begin(), shares.end(), 0);
    if (parts == 0) return;
    int open = room;
    for (std::size_t at = 0; at < sizes.size(); ++at) {
      if (shares[at] == 0) open -= sizes[at];
    }
    bool settled = true;
    for (std::size_t at = 0; at < sizes.size(); ++at) {
      if (shares[at] == 0 || MulDiv(open, shares[at], parts) >= sizes[at]) continue;
      shares[at] = 0;
      settled = false;
    }
    if (!settled) continue;
    int given = 0;
    int passed = 0;
    for (std::size_t at = 0; at < sizes.size(); ++at) {
      if (shares[at] == 0) continue;
      passed += shares[at];
      const int end = MulDiv(open, passed, parts);
      sizes[at] = end - given;
      given = end;
    }
    return;
  }
}

// Takes what is missing from those that can do with less; what is missing then.
int reduce(std::vector<int>& sizes, const std::vector<int>& least, int missing) {
  int spare = 0;
  for (std::size_t at = 0; at < sizes.size(); ++at) spare += sizes[at] - least[at];
  for (std::size_t at = 0; at < sizes.size() && spare > 0; ++at) {
    const int own = sizes[at] - least[at];
    const int taken = std::min(own, MulDiv(missing, own, spare));
    sizes[at] -= taken;
    missing -= taken;
    spare -= own;
  }
  return missing;
}

// Names can be read in a narrow box, figures and buttons not at all.
LONG bareWidth(const LayoutItem& node, LONG least) {
  return node.stretch > 0 || view::isTable(node) ? least / 3 : least;
}

}  // namespace

Layout::Layout(const LayoutItem& arrangement, const Metrics& metrics, const PieceOf& pieceOf)
    : metrics_(metrics), pieceOf_(pieceOf), root_(makeGroup(column({arrangement}), false, 0)) {}

SIZE Layout::least() const {
  const int step = metrics_.step();
  return {root_.least.cx + 4 * step, root_.least.cy + 7 * step / 2};
}

SIZE Layout::bare() const { return {root_.bare + 4 * metrics_.step(), least().cy}; }

std::vector<Placement> Layout::place(const RECT& room) const {
  const int step = metrics_.step();
  std::vector<Placement> placed;
  place(root_,
        {room.left + 2 * step, room.top + 3 * step / 2, room.right - 2 * step,
         room.bottom - 2 * step},
        placed);
  return placed;
}

// --- what each part needs -----------------------------------------------------------------------

Layout::Box Layout::make(const view::Part& part, const view::Place& place) const {
  const LayoutItem& node = part.node;
  if (part.fields) return makeGroup(node, true, place.frame);
  switch (node.kind) {
    case Kind::control:
      return makeControl(node, place);
    case Kind::gap: {
      Box box;
      box.stretch = node.stretch;
      box.growsAcross = place.inRow;
      box.growsDown = !place.inRow;
      return box;
    }
    default:
      return makeGroup(node, false, node.kind == Kind::frame ? node.id : place.frame);
  }
}

Layout::Box Layout::makeControl(const LayoutItem& node, const view::Place& place) const {
  Box box;
  box.kind = Kind::control;
  box.control = node.id;
  box.piece = pieceOf_(node);
  box.present = box.piece.present;
  box.table = view::isTable(node);
  box.stretch = node.stretch;
  box.growsAcross = view::grows(node, view::Direction::across);
  box.growsDown = view::grows(node, view::Direction::down);
  box.labelAbove = place.inRow;
  box.wanted = box.piece.wanted;
  box.least = box.piece.least;
  const view::LeastWidth width = view::leastWidth(node, place.inRow);
  if (width.characters > 0) {
    const LONG pixels = metrics_.characters(width.characters) + 2 * metrics_.step() +
                        (view::isCombo(node) ? metrics_.pixels(17) : 0);  // its arrow
    box.wanted.cx = width.kept ? pixels : std::max(box.wanted.cx, pixels);
    box.least.cx = pixels;
  }
  box.kept = width.kept;
  box.bare = bareWidth(node, box.least.cx);
  // Texts beside boxes stand on one line with theirs.
  if (place.besideBoxes && !box.table)
    box.wanted.cy = std::max<LONG>(box.wanted.cy, metrics_.box());
  if (box.piece.labelWidth > 0 && place.inRow) {
    const int above = metrics_.line() + metrics_.step() / 2;
    for (SIZE* size : {&box.wanted, &box.least}) {
      size->cx = std::max<LONG>(size->cx, box.piece.labelWidth);
      size->cy += above;
    }
  }
  return box;
}

Layout::Box Layout::makeGroup(const LayoutItem& node, bool fields, unsigned frame) const {
  Box box;
  box.kind = node.kind;
  box.fields = fields;
  box.stretch = node.stretch;
  if (node.control) {
    box.control = node.id;
    box.piece = pieceOf_(node);
  }
  const view::Place place = view::placeIn(node, frame);
  if (fields) {
    for (const LayoutItem& field : node.children) box.children.push_back(makeControl(field, place));
  } else if (node.kind == Kind::stack) {
    for (const LayoutItem& page : node.children) {
      box.children.push_back(make({page}, view::Place{}));
    }
  } else {
    for (const view::Part& part : view::partsOf(node)) box.children.push_back(make(part, place));
  }
  measure(box);
  if (node.control && !box.piece.present) box.present = false;
  return box;
}

void Layout::measure(Box& box) const {
  const bool inRow = box.kind == Kind::row;
  bool several = false;
  for (const Box& child : box.children) {
    box.growsAcross = box.growsAcross || child.growsAcross || (inRow && child.stretch > 0);
    box.growsDown = box.growsDown || child.growsDown || (!inRow && child.stretch > 0);
    if (!child.present) continue;
    box.present = true;
    if (box.kind == Kind::stack) {
      box.wanted = {std::max(box.wanted.cx, child.wanted.cx),
                    std::max(box.wanted.cy, child.wanted.cy)};
      box.bare = std::max(box.bare, child.bare);
      box.least = {std::max(box.least.cx, child.least.cx), std::max(box.least.cy, child.least.cy)};
    } else {
      unite(box, child, inRow, several ? metrics_.step() : 0);
    }
    several = true;
  }
  if (box.kind == Kind::stack) box.growsAcross = box.growsDown = true;
  const int labels = box.fields ? labelColumn(box) : 0;
  const RECT& inside = box.piece.inside;
  for (SIZE* size : {&box.wanted, &box.least}) {
    size->cx += labels + inside.left + inside.right;
    size->cy += inside.top + inside.bottom;
  }
  box.bare += labels + inside.left + inside.right;
}

void Layout::unite(Box& box, const Box& child, bool inRow, int spacing) {
  const auto add = [&](SIZE& whole, const SIZE& part) {
    if (inRow) {
      whole = {whole.cx + part.cx + spacing, std::max(whole.cy, part.cy)};
    } else {
      whole = {std::max(whole.cx, part.cx), whole.cy + part.cy + spacing};
    }
  };
  add(box.wanted, child.wanted);
  add(box.least, child.least);
  box.bare = inRow ? box.bare + child.bare + spacing : std::max(box.bare, child.bare);
}

// The width of the labels and of the room behind them.
int Layout::labelColumn(const Box& fields) const {
  int widest = 0;
  for (const Box& field : fields.children) {
    if (field.present) widest = std::max(widest, field.piece.labelWidth);
  }
  return widest + 3 * metrics_.step() / 2;
}

// --- where each part stands ---------------------------------------------------------------------

void Layout::place(const Box& box, RECT room, Placements& placed) const {
  if (!box.present) return;
  if (box.kind == Kind::control) return placeControl(box, room, placed);
  if (box.control > 0) {
    placed.push_back({box.control, room, {}});
    const RECT& inside = box.piece.inside;
    room = {room.left + inside.left, room.top + inside.top, room.right - inside.right,
            room.bottom - inside.bottom};
  }
  if (box.kind == Kind::stack) {
    for (const Box& page : box.children) {
      if (page.present) return place(page, room, placed);
    }
  } else if (box.kind == Kind::row) {
    placeInRow(box, room, placed);
  } else {
    placeInColumn(box, room, placed);
  }
}

void Layout::placeControl(const Box& box, RECT room, Placements& placed) const {
  if (box.kept) room.right = std::min(room.right, room.left + box.wanted.cx);
  Placement placement{box.control, room, {}};
  if (box.labelAbove && box.piece.labelWidth > 0) {
    placement.label = room;
    placement.label.bottom = room.top + metrics_.line();
    placement.place.top = placement.label.bottom + metrics_.step() / 2;
  }
  placed.push_back(placement);
}

// Texts stand on one line at the foot of the row.
void Layout::placeInRow(const Box& box, const RECT& room, Placements& placed) const {
  const std::vector<int> widths = share(box.children, true, widthOf(room));
  LONG left = room.left;
  for (std::size_t at = 0; at < widths.size(); ++at) {
    const Box& child = box.children[at];
    RECT part{left, room.top, left + widths[at], room.bottom};
    if (child.kind == Kind::control && !child.table) {
      part.top = std::max(room.top, room.bottom - child.wanted.cy);
    }
    place(child, part, placed);
    left = part.right + (child.present ? metrics_.step() : 0);
  }
}

void Layout::placeInColumn(const Box& box, const RECT& room, Placements& placed) const {
  const std::vector<int> heights = share(box.children, false, heightOf(room));
  const int labels = box.fields ? labelColumn(box) : 0;
  LONG top = room.top;
  for (std::size_t at = 0; at < heights.size(); ++at) {
    const Box& child = box.children[at];
    const RECT part{room.left, top, room.right, top + heights[at]};
    if (box.fields) {
      placeField(child, part, labels, placed);
    } else {
      place(child, part, placed);
    }
    top = part.bottom + (child.present ? metrics_.step() : 0);
  }
}

void Layout::placeField(const Box& box, const RECT& room, int labels, Placements& placed) const {
  if (!box.present) return;
  Placement placement{box.control, room, room};
  placement.place.left += labels;
  if (box.kept) {
    placement.place.right = std::min(room.right, placement.place.left + box.wanted.cx);
  }
  placement.label.right = placement.place.left - 3 * metrics_.step() / 2;
  if (box.table) {
    placement.label.bottom = std::min(room.bottom, room.top + metrics_.line());
  }
  placed.push_back(placement);
}

// The widths or heights of parts beside or below each other.
std::vector<int> Layout::share(const std::vector<Box>& boxes, bool across, int room) const {
  const auto along = [across](const SIZE& size) {
    return static_cast<int>(across ? size.cx : size.cy);
  };
  std::vector<int> sizes;
  std::vector<int> least;
  std::vector<int> bare;
  std::vector<int> stretches;
  std::vector<int> growing;
  int used = 0;
  int present = 0;
  for (const Box& box : boxes) {
    const bool counts = box.present || box.kind == Kind::gap;
    // One with a share in the rest gets no more than that for what it would like.
    sizes.push_back(box.present ? along(box.stretch > 0 ? box.least : box.wanted) : 0);
    least.push_back(box.present ? along(box.least) : 0);
    bare.push_back(across && box.present ? static_cast<int>(box.bare) : least.back());
    stretches.push_back(counts ? box.stretch : 0);
    growing.push_back(counts && (across ? box.growsAcross : box.growsDown) ? 1 : 0);
    used += sizes.back();
    if (box.present && ++present > 1) used += metrics_.step();
  }
  const int spacing = std::max(0, present - 1) * metrics_.step();
  if (used > room) {
    reduce(sizes, bare, reduce(sizes, least, used - room));
  } else {
    const bool shares =
        std::any_of(stretches.begin(), stretches.end(), [](int s) { return s > 0; });
    enlarge(sizes, shares ? stretches : growing, room - spacing);
  }
  return sizes;
}

}  // namespace quillet::windows
