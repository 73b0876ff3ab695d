// The turn of a station on books that several stations share. An act that writes holds one row from
// before its first read to its commit, so that stations act one after the other; the row counts
// what they did.
//
// Readers do not wait. The count tells them whether anything changed since they looked. A second
// row counts what happened to the presence of stations, which waits for nobody either.
#pragma once

#include <string>
#include <utility>

#include "suite/database.h"

namespace quillet::suite {

// How many acts have changed the books.
struct TurnCount {
  long acts = 0;
  long masters = 0;   // those of them that changed what all years share
  long presence = 0;  // how often a station left a year or took one over
  bool operator==(const TurnCount&) const = default;
};

class Turn {
 public:
  explicit Turn(Database& database) : database_(database) {}

  // Makes the row where it is missing.
  void open();
  // As the other stations have committed it.
  TurnCount read() { return count(""); }
  // Within a transaction: waits until no other station has the turn, and keeps it to the end.
  TurnCount take() { return count(" for update"); }
  // A station left a year, or took it over.
  static constexpr const char* stir = "update SuiteTurn set Acts=Acts+1 where Id=2";
  // Ahead of the commit.
  void pass(bool masters);
  // Another node of the cluster on which other stations work, while this one is at its own; once.
  std::string elsewhere() { return std::exchange(elsewhere_, {}); }

 private:
  TurnCount count(const char* lock);
  void noteNode(const std::string& last, const std::string& own);

  Database& database_;
  std::string own_;        // the node that serves this station
  bool worked_ = false;    // stations have worked there since this one came
  std::string elsewhere_;  // where another one works all the same
};

}  // namespace quillet::suite
