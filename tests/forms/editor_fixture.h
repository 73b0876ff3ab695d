// An editor open on a client's year, with one more client in the same tables.
#pragma once

#include <string>
#include <vector>

#include "data/text.h"
#include "editor/frmcrtb.h"
#include "home/third.h"
#include "support/practice.h"

namespace quillet::support {

class EditorTest : public PracticeTest {
 protected:
  EditorTest() {
    addClient("C1", "Asha Traders");
    addClient("C2", "Neighbour & Co");
    exec(
        "insert into mast_gunder values (1,'Capital',2),(9,'Banks',1),(22,'Expenses',4),"
        "(15,'Sales',3)");
    group("CAPITAL", 1);
    group("BANKS", 9);
    group("RENT", 22);
    group("SALES", 15);
  }

  frmcrtb& open(const std::string& client, int firstYear) {
    select(client, firstYear);
    auto& form = static_cast<frmcrtb&>(*practice.forms().ObjCreate());
    form.close();
    form.show();
    statements();
    return form;
  }

  static void fill(frmcrtb& form, const std::string& ledger, const std::string& group,
                   const std::string& amount, const std::string& side) {
    type(form.txtpart, ledger);
    type(form.txtgroup, group);
    type(form.txtamount, amount);
    type(form.txtdrcr, side);
  }
  static void enter(frmcrtb& form, const std::string& ledger, const std::string& group,
                    const std::string& amount, const std::string& side) {
    fill(form, ledger, group, amount, side);
    form.press(keys::Enter);
  }

  Rows stored(const std::string& table, const std::string& client = "C1") {
    return rows("select srno,particular,allgrp,amt,nid from " + table +
                " t join mast_part p on p.partid=t.partid join mast_allgrp g on g.allid=t.allid "
                "where code_no='" +
                client + "' order by srno");
  }
};

}  // namespace quillet::support
