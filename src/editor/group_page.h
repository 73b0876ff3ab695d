// The editor's group view: the lines of one group, or of several that follow each other, debits
// beside credits; and the transfer of all lines of a group to another one.
#pragma once

#include <vector>

#include "controls/grid.h"
#include "controls/layout.h"
#include "editor/line_saver.h"
#include "editor/open_books.h"

namespace quillet {

class GroupPage {
 public:
  GroupPage(frmcrtb& form, OpenBooks& books, LineSaver& saver);

  LayoutItem arrangement();
  // Another year or client: one group is shown again.
  void reset();
  void clear();
  void setButtons();
  // Lists the groups that the lines use; the chosen one stays.
  void LOADGROUPSEXISTS();

 private:
  void MNUGROUP_CLICK();
  void LOADGRIDS();
  void LOADGRID1(Grid& grid, long groupId, long side);
  void CMDUPDATE_CLICK();
  void choose(long id);
  void showGroups(int count);
  std::vector<std::string> cellsOf(const Line& line);
  void listForTransfer();
  void transfer(long target);

  frmcrtb& form_;
  OpenBooks& books_;
  LineSaver& saver_;
  std::vector<Line> transferable_;  // a row's id in vsf3 is the position of its line, from 1
  int groupsShown_ = 1;
};

}  // namespace quillet
