#include "suite/server_errors.h"

#include <algorithm>

namespace quillet::suite {
namespace {

struct Meaning {
  long number;
  const char* text;
};

constexpr const char* full = "The disk of the database server is full: make room there.";
constexpr const char* readOnly =
    "The database server takes no changes: it is a standby, or read_only is set there.";
constexpr const char* right =
    "Your account lacks a right there. Whoever keeps the server gives it with: quillet"
    " server-account";
constexpr const char* lostText = "The connection to the database server is lost.";

constexpr Meaning meanings[] = {
    {1021, full},
    {1114, full},
    {28, full},
    {20, full},
    {1290, readOnly},
    {1792, readOnly},
    {1836, readOnly},
    {1044, right},
    {1142, right},
    {1143, right},
    {1227, right},
    {1370, right},
    {1036, readOnly},
    {1317, "Whoever keeps the database server has ended it there."},
    {1969,
     "The database server had no time for it: look what it is busy with. Where that is its usual"
     " pace, set AnswerSeconds in the section [Server] of settings.ini higher."},
    {1047,
     "This node of the cluster takes no statements: too few of its nodes can reach each other."},
    {1213, "Changed by somebody else at the same moment."},
    {1205, "Somebody else works on the same and has not ended."},
    {1153, "Set max_allowed_packet to at least 16M at the database server."},
    {2006, lostText},
    {2013, lostText},
    {2055, lostText},
};

}  // namespace

std::string explained(long number, const std::string& text) {
  const auto* found = std::ranges::find(meanings, number, &Meaning::number);
  if (found == std::end(meanings)) return text;
  // What the library calls it tells a person nothing.
  if (found->text == lostText) return lostText;
  return text + (text.ends_with('.') ? " " : ". ") + found->text;
}

bool isWrongPassword(long number) { return number == 1045 || number == 1698; }

}  // namespace quillet::suite
