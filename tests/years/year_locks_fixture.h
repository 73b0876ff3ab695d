// A practice with a year that can be locked: lines, a voucher, stock and a binding.
#pragma once

#include <string>

#include "controls/acts.h"
#include "data/errors.h"
#include "editor/frmcrtb.h"
#include "home/frmlock.h"
#include "journal/frmjrnl.h"
#include "masters/frmgrpRM.h"
#include "suite/stock_form.h"
#include "years/years_fixture.h"

namespace quillet::support {

class YearLocksTest : public YearsTest {
 protected:
  YearLocksTest() {
    exec("insert into mast_gunder values (1,'Capital',2),(18,'Stock',4),(22,'Expenses',4)");
    group("STOCK", 18);
    for (const char* client : {"C1", "C2"}) {
      addYear(client, 2008, {{"Asha", "CAPITAL", -6}, {"Cash", "RENT", 6}});
    }
    addYear("C1", 2009);
    const std::string cash = std::to_string(ledger("Cash"));
    const std::string rent = std::to_string(group("RENT"));
    const std::string ids = cash + ',' + rent;
    exec("insert into JRNL_1 values('C1',1,1,'2008-05-01'," + ids +
         ",5,''),('C1',1,2,'2008-05-01'," + ids + ",-5,'')");
    exec("insert into TRADE_1 values('C1'," + cash + ',' + std::to_string(group("STOCK")) + ",7)");
    exec("insert into RawMatGrpM values(1,'Cotton',1)");
    exec("insert into RMGRP_1 values('C1',1,1,0,0,0,0,1)");
    notices();  // what earlier cases left
  }

  YearLocks& locks() { return *practice.environment().yearLocks(); }
  void lock() { locks().lock("C1", "31032009", "Audited"); }
  Rows locked() { return rows("select Code_No,Yr,Reason from SuiteYearLock"); }
  Texts notices() {
    Texts texts = frontEnd.notices().open();
    frontEnd.notices().close();
    return texts;
  }
  static bool names(const std::string& text) {
    return text.find("Asha Traders (C1), 01/04/2008 - 31/03/2009, is locked: Audited") !=
               std::string::npos ||
           text.find("Asha Traders (C1), 01/04/2008 - 31/03/2009 is locked: Audited") !=
               std::string::npos;
  }
  void act(const std::string& sql) {
    const Act running(context().openForms.acts);
    try {
      practice.environment().unit().execute(sql);
    } catch (const RunTimeError& error) {
      // A definition is not sent at all.
      if (!names(error.what())) ADD_FAILURE() << sql << ": " << error.what();
    }
  }

  frmcrtb& editor() {
    choose(&third::mnualter, "C1").flexgrid2.setCurrent(1);
    home().doubleClick(home().flexgrid2);
    frmcrtb& form = theEditor(context());
    form.vsfm.setCurrent(1);
    return form;
  }
  frmjrnl& journal() {
    frmcrtb& form = editor();
    form.click(form.mnujournal);
    auto& opened = dynamic_cast<frmjrnl&>(*context().openForms.active());
    opened.vsf.setCurrent(1);
    return opened;
  }
  suite::frmTrade& stock() {
    frmcrtb& form = editor();
    form.click(form.cmdclstock[0]);
    auto& opened = dynamic_cast<suite::frmTrade&>(*context().openForms.active());
    opened.vsf.setCurrent(1);
    return opened;
  }
  frmgrpRM& binding() {
    frmcrtb& form = editor();
    form.click(form.cmdgrpmanf);
    auto& opened = dynamic_cast<frmgrpRM&>(*context().openForms.active());
    opened.vsfM.setCurrent(1);
    return opened;
  }
  void closeAll() {
    dialogs.answering = [](const Message&) { return Answer::Yes; };
    while (Form* form = context().openForms.active()) {
      if (!form->close()) break;
    }
    dialogs.answering = {};
    messages();
  }
  frmlock& open(MenuEntry third::*command) {
    third& form = choose(&third::mnualter, "C1");
    form.flexgrid2.setCurrent(1);
    form.click(form.*command);
    return dynamic_cast<frmlock&>(*context().openForms.active());
  }
};

}  // namespace quillet::support
