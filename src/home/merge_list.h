// The other clients that have the year, listed in the home form's grid in place of the years, and
// the merge of the ticked ones.
#pragma once

#include <vector>

#include "books/registry.h"
#include "books/year_figures.h"
#include "host/context.h"

namespace quillet {

class third;

class MergeList {
 public:
  MergeList(third& form, Context& context);

  // Reads the clients that have the year typed, and shows them.
  void show();
  // Whether there are any; says so when there is none.
  bool anySource();
  // The grid holds something else from now on.
  void clear() { setShown(false); }
  bool shown() const { return shown_; }

  // Merges the ticked ones, the current one when none is ticked, and shows the client's years.
  void merge();

 private:
  void setShown(bool shown);
  void fill(const std::vector<YearFigures>& figures);

  struct Source {
    RegisteredYear year;
    std::string clientName;
  };
  using Sources = std::vector<Source>;

  Sources chosen() const;
  bool agreed(const Sources& sources);
  bool mayBeRead(const Sources& sources);
  bool areThere(const Sources& sources);
  std::vector<RegisteredYear> readSources();
  bool any(const std::vector<RegisteredYear>& years);

  third& form_;
  Context& context_;
  Sources sources_;  // their positions from 1 are the ids of the rows
  bool shown_ = false;
};

}  // namespace quillet
