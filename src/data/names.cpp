#include "data/names.h"

#include <algorithm>
#include <iterator>

#include "data/best_match.h"
#include "data/text.h"

namespace quillet {
namespace {

enum class Kind { visible, blank, invisible, joiner };

struct Range {
  char32_t first;
  char32_t last;
};

// In ascending order. Among the blanks are the fillers of Hangul and the empty pattern of Braille,
// which look like one; among the invisible ones control characters, soft hyphen, zero-width space,
// directions of writing, byte-order mark and tags; joiners join letters and emoji or choose a form.
constexpr Range blanks[] = {{0x9, 0xD},       {0x20, 0x20},     {0x85, 0x85},     {0xA0, 0xA0},
                            {0x115F, 0x1160}, {0x1680, 0x1680}, {0x2000, 0x200A}, {0x2028, 0x2029},
                            {0x202F, 0x202F}, {0x205F, 0x205F}, {0x2800, 0x2800}, {0x3000, 0x3000},
                            {0x3164, 0x3164}, {0xFFA0, 0xFFA0}};
constexpr Range invisible[] = {
    {0x0, 0x8},         {0xE, 0x1F},        {0x7F, 0x84},       {0x86, 0x9F},
    {0xAD, 0xAD},       {0x34F, 0x34F},     {0x61C, 0x61C},     {0x17B4, 0x17B5},
    {0x180B, 0x180F},   {0x200B, 0x200B},   {0x200E, 0x200F},   {0x202A, 0x202E},
    {0x2060, 0x2064},   {0x2066, 0x206F},   {0xFEFF, 0xFEFF},   {0xFFF9, 0xFFFB},
    {0x1BCA0, 0x1BCA3}, {0x1D173, 0x1D17A}, {0xE0001, 0xE0001}, {0xE0020, 0xE007F}};
constexpr Range joiners[] = {{0x200C, 0x200D}, {0xFE00, 0xFE0F}, {0xE0100, 0xE01EF}};

template <std::size_t Count>
bool holds(const Range (&ranges)[Count], char32_t c) {
  const Range* const range =
      std::lower_bound(std::begin(ranges), std::end(ranges), c,
                       [](const Range& each, char32_t wanted) { return each.last < wanted; });
  return range != std::end(ranges) && range->first <= c;
}

Kind kindOf(char32_t c) {
  if (c > U' ' && c < 0x7F) return Kind::visible;
  if (holds(blanks, c)) return Kind::blank;
  if (holds(invisible, c)) return Kind::invisible;
  return holds(joiners, c) ? Kind::joiner : Kind::visible;
}

struct Character {
  char32_t code = 0;
  std::string_view bytes;
  Kind kind = Kind::blank;
};

// The character at `at`, which moves past it. Bytes that are no character are left as they are.
Character readCharacter(std::string_view text, std::size_t& at) {
  const std::size_t begin = at;
  const char32_t code = nextCharacter(text, at);
  const std::string_view bytes = text.substr(begin, at - begin);
  const bool broken = code >= 0x80 && bytes.size() == 1;
  return {code, bytes, broken ? Kind::visible : kindOf(code)};
}

// The next character that is not invisible; a blank at the end.
Character following(std::string_view text, std::size_t at) {
  Character next;
  while (at < text.size()) {
    next = readCharacter(text, at);
    if (next.kind != Kind::invisible) return next;
  }
  return {};
}

// Whether a joiner has an effect where it stands: between two characters, or emoji, that join.
// A selector acts on the character before it.
bool acts(const Character& joiner, const Character& before, const Character& after) {
  const auto joins = [](const Character& c) { return c.code >= 0x80 && c.kind != Kind::blank; };
  const bool selects = joiner.code != 0x200C && joiner.code != 0x200D;
  return joins(before) && (selects || (joins(after) && after.kind == Kind::visible));
}

// Most names are ASCII without a run of blanks, and thousands of them are compared.
bool plain(std::string_view name) {
  char before = ' ';
  for (const char c : name) {
    const bool printed = static_cast<unsigned char>(c - ' ') < 0x5F;
    if (!printed || (c == ' ' && before == ' ')) return false;
    before = c;
  }
  return before != ' ' || name.empty();
}

}  // namespace

std::string cleanedName(std::string_view typed) {
  std::string name;
  Character before;
  bool blank = false;
  for (std::size_t at = 0; at < typed.size();) {
    const Character c = readCharacter(typed, at);
    if (c.kind == Kind::blank) {
      blank = !name.empty();
      before = c;
    } else if (c.kind == Kind::visible ||
               (c.kind == Kind::joiner && acts(c, before, following(typed, at)))) {
      if (blank) name += ' ';
      blank = false;
      name += c.bytes;
      before = c;
    }
  }
  return name;
}

std::string nameKey(std::string_view name) {
  if (plain(name)) return upperCase(name);
  std::string key;
  bool blank = false;
  for (std::size_t at = 0; at < name.size();) {
    const Character c = readCharacter(name, at);
    if (c.kind == Kind::blank) {
      blank = !key.empty();
    } else if (c.kind == Kind::visible) {
      if (blank) key += ' ';
      blank = false;
      appendCharacter(key, foldedCase(c.code));
    }
  }
  return key;
}

std::string beginningKey(std::string_view typed) {
  // With a letter after it, a blank at the end counts as the beginning of a word.
  std::string key = nameKey(std::string(typed) + 'X');
  key.pop_back();
  return key;
}

bool sameName(std::string_view a, std::string_view b) { return nameKey(a) == nameKey(b); }

std::optional<NamedId> bestMatch(Recordset& rows, std::string_view idField,
                                 std::string_view nameField, std::string_view name) {
  std::vector<NamedId> found;
  for (; !rows.EOF_(); rows.MoveNext()) {
    found.push_back({rows.integer(idField), rows.text(nameField)});
  }
  return bestMatch(found, name);
}

std::optional<NamedId> bestMatch(const std::vector<NamedId>& rows, std::string_view name) {
  const NamedId* best = nullptr;
  bool same = false;
  for (const NamedId& row : rows) {
    if (row.name == name) return row;
    const bool isSame = !same && sameName(row.name, name);
    if (best == nullptr || isSame) best = &row;
    same = same || isSame;
  }
  return best == nullptr ? std::nullopt : std::optional(*best);
}

}  // namespace quillet
