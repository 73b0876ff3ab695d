// The account groups of a practice as two of its years use them, and the raw-material binding.
#pragma once

#include "masters/frmgrpRM.h"
#include "masters/masters_fixture.h"

namespace quillet::support {

class BindingTest : public MasterTest<frmgrpRM> {
 protected:
  BindingTest() {
    for (const char* name : {"OPEN A", "OPEN B", "OPEN UNUSED"}) group(name, 18);
    for (const char* name : {"BUY A", "BUY B"}) group(name, 19);
    for (const char* name : {"CLOSE A", "CLOSE UNUSED"}) group(name, 7);
    addYear("C1", 2007);
    addYear("C1", 2008,
            {{"a", "OPEN A", 1}, {"b", "OPEN B", 1}, {"c", "BUY A", 1}, {"d", "BUY B", 1}});
    addYear("O'C2", 2008);
    addYear("O'C2", 2009, {{"e", "OPEN UNUSED", 1}});
    exec("insert into TRADE_2(code_no,partid,allid,amt) values('C1',1," + id("CLOSE A") + ",1)");
    neighbour = "values('O\\'C2',7,1," + id("OPEN A") + ",0,0,0,4)";
    exec("insert into RMGRP_2 " + neighbour);
  }
  std::string id(const std::string& name) { return std::to_string(group(name)); }
  void bind(const std::string& values) { exec("insert into " + values); }
  void init(const std::string& client = "C1", int firstYear = 2008) {
    const std::string first = std::to_string(firstYear);
    form.INITDATA(
        {client, "Asha Traders", "TAB_2", "0104" + first, "3103" + std::to_string(firstYear + 1)});
  }
  void open() {
    init();
    MasterTest::open();
  }
  std::string enter(const std::string& head, const Texts& groups) {
    if (!head.empty()) choose(form.cbohead, head);
    for (int i = 0; i < 3; ++i) choose(form.cbogroup[i], groups[i]);
    return said(form.cmdupdateM);
  }
  void modify(long srNo) {
    pickId(form.vsfM, srNo);
    press(form.cmdmodifyM);
  }
  std::string enterHead(const std::string& text, const std::string& type = {}) {
    MastersTest::type(form.txthead, text);
    if (!type.empty()) choose(form.cbotype, type);
    return said(form.cmdupdateG);
  }
  Rows stored(const std::string& client = "C1") {
    return rows(
        "select SrNo,GrpSr,OsGrpId,PurGrpId,SalGrpId,CsGrpId,GrpOrder from RMGRP_2 where "
        "Code_No='" +
        client + "' order by SrNo");
  }
  // Three items in the order 2, 3, 1 of their numbers.
  void bindThree() {
    bind("RMGRP_2 values('C1',1,1," + id("OPEN A") + ",0,0,0,3),('C1',2,2," + id("OPEN B") +
         ",0,0,0,1),('C1',3,3,0," + id("BUY A") + ",0,0,2)");
  }
  Texts order() { return listed(form.vsfM); }

  std::string neighbour;
};

}  // namespace quillet::support
