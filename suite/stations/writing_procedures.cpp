#include "suite/stations/writing_procedures.h"

#include <algorithm>
#include <array>

#include "data/text.h"

namespace quillet::suite {
namespace {

struct Procedure {
  std::string_view form;
  std::string_view name;
};

constexpr std::array procedures{
    Procedure{"frmcrtb", "SAVELINE"},
    Procedure{"frmcrtb", "PUTBACK"},
    Procedure{"frmcrtb", "CMDUPDATE_CLICK"},
    Procedure{"frmcrtb", "MNUTAKEBACK_CLICK"},
    Procedure{"frmjrnl", "CMDUPDATE_CLICK"},
    Procedure{"frmjrnl", "ADDVCH"},
    Procedure{"frmjrnl", "SAVEVCH"},
    Procedure{"frmjrnl", "DELETEVCH"},
    Procedure{"frmjrnl", "MNUTAKEBACK_CLICK"},
    Procedure{"third", "GETTABLE"},
    Procedure{"third", "COMP_DT"},
    Procedure{"frmdelwhatinTB", "CMDDELETE_CLICK"},
    Procedure{"frmdelwhatinTB", "DELETECHOSEN"},
    Procedure{"frmgrpmas", "CMDUPDATE_CLICK"},
    Procedure{"frmgrpmas", "CMDMAPSET_CLICK"},
    Procedure{"frmgrpmas", "CMDMAPCLEAR_CLICK"},
    Procedure{"frmgrpmas", "CMDMAPCOPY_CLICK"},
    Procedure{"frmgrpmas", "VSCOLS_AFTEREDIT"},
    Procedure{"frmtbledmas", "CMDUPDATE_CLICK"},
    Procedure{"frmtbledmas", "LINKPARTICULARS"},
    Procedure{"frmtbledmas", "REPLACEANDDELETE"},
    Procedure{"frmgrpRM", "CMDUDPATEG_CLICK"},
    Procedure{"frmgrpRM", "CMDUPDATEM_CLICK"},
    Procedure{"frmgrpRM", "UPDATESORTNOS"},
    Procedure{"frmgrpRM", "IMPORTFROMPREVYR"},
    Procedure{"frmTrade", "SAVELINE"},
    Procedure{"frmClient", "CMDSAVE_CLICK"},
};

}  // namespace

bool isWriting(std::string_view form, std::string_view procedure) {
  return std::ranges::any_of(procedures, [&](const Procedure& each) {
    return each.name == procedure && equalIgnoringCase(each.form, form);
  });
}

}  // namespace quillet::suite
