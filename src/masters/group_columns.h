// Which columns the group master shows. A person ticks them on a page of its own; the service
// object keeps the choice.
#pragma once

#include <string>

#include "controls/grid.h"
#include "ports/ports.h"

namespace quillet {

class GroupColumns {
 public:
  enum Column { name, under, user, schedule6, incomeTax, mapping };

  // The grid of the master, and that of the page.
  GroupColumns(Grid& master, Grid& page) : master_(master), page_(page) {}

  void setColumns();
  // Those that a practice begins with.
  void showUsual();
  // As they were kept.
  void read(ServiceObject& host);
  void list();
  // Shows and keeps what is ticked.
  void take(ServiceObject& host);

  // Whether a column of the mapping is shown.
  bool showMapping() const;

 private:
  // The headings of what is shown, as they are kept: "Group|Under Group|User Group".
  void show(const std::string& kept);

  Grid& master_;
  Grid& page_;
};

}  // namespace quillet
