// A year that one station makes, reads or lists while another one deletes it, makes it anew or
// takes it over; and names that are gone.
#include "home/third.h"
#include "masters/frmgrpmas.h"
#include "server/stations_fixture.h"

namespace quillet::support {
namespace {

class YearsHeldTest : public StationsTest {
 protected:
  static third& choose(Station& station, Button third::*command, const std::string& client) {
    third& form = theHome(station.context());
    form.show();
    form.click(form.*command);
    for (int row = 1; row <= form.ClGrd1.rows(); ++row) {
      if (form.ClGrd1.TextMatrix(row, 0) == client) form.ClGrd1.setCurrent(row);
    }
    form.doubleClick(form.ClGrd1);
    return form;
  }
};

TEST_F(YearsHeldTest, TheListKeepsTheYearThatIsChosen) {
  anna().addYear("L1", 2008);
  anna().addYear("L1", 2009);
  third& form = choose(anna(), &third::mnualter, "L1");
  const auto chosen = [&] {
    anna().practice().environment().lookAround();
    const int row = form.flexgrid2.current();
    return row == 0 ? std::string() : form.flexgrid2.cell(row, 0);
  };
  form.flexgrid2.setCurrent(1);
  ben().addYear("L1", 2007);
  EXPECT_EQ(chosen(), "01/04/2008");
  ben().change("delete from master where code_no='L1' and s_yr='31032008'");
  EXPECT_EQ(chosen(), "01/04/2008");
  ben().change("delete from master where code_no='L1' and s_yr='31032009'");
  EXPECT_EQ(chosen(), "");
}

TEST_F(YearsHeldTest, WhatIsGoneIsNotBound) {
  const auto bind = [](const std::string& names) {
    anna().change("insert into RMGRP_2 values('A1',1," + names + ",1)");
    const bool bound = !anna().value("select SrNo from RMGRP_2 where Code_No='A1'").empty();
    EXPECT_EQ(anna().notices().size(), bound ? 0U : 1U);
    if (bound) anna().change("delete from RMGRP_2 where Code_No='A1'");
    return bound;
  };
  ben().change("insert into RawMatGrpM values(70,'Wood',1)");
  ben().change("insert into Mast_AllGrp(ALLID,GID,ALLGRP,UserGrp) values(970,18,'Logs','Y')");
  EXPECT_TRUE(bind("70,970,970,0,970"));
  ben().change("delete from RawMatGrpM where GrpId=70");
  ben().change("delete from Mast_AllGrp where ALLID=970");
  for (const char* names : {"70,0,0,0,0", "0,970,0,0,0", "0,0,970,0,0", "0,0,0,0,970"}) {
    EXPECT_FALSE(bind(names)) << names;
  }
  EXPECT_TRUE(bind("7000,9700,0,0,0")) << "what old books have bound";
}

TEST_F(YearsHeldTest, WhoseMappingIsEditedStaysAsItWasChosen) {
  frmgrpmas own(anna().context());
  own.INITDATA("A1");
  own.showModal();
  own.click(own.cmdMap);
  own.click(own.optMap[1]);
  own.vsMap.setCurrent(1);
  own.cboSVI.choose(4);
  const std::string group = std::to_string(own.vsMap.currentId());
  frmgrpmas common(ben().context());
  common.INITDATA("B1");
  common.showModal();
  common.click(common.cmdMap);
  EXPECT_TRUE(common.optMap[1].checked()) << "a page that is opened takes what is stored";
  common.click(common.optMap[0]);
  common.close();
  ben().change("insert into Mast_Part values(880,'Of Ben')");
  anna().practice().environment().lookAround();
  EXPECT_TRUE(own.optMap[1].checked());
  ben().change("insert into Mast_Part values(881,'Of Ben too')");
  own.click(own.cmdMapSet);
  EXPECT_TRUE(own.optMap[1].checked());
  EXPECT_EQ(anna().value("select group_concat(Code_No) from AllGrp_Map where AllId=" + group),
            "A1");
  own.close();
}

}  // namespace
}  // namespace quillet::support
