// A year that one station makes, reads or lists while another one deletes it, makes it anew or
// takes it over; and names that are gone.
#include "data/text.h"
#include "deletion/frmdelwhatinTB.h"
#include "masters/frmgrpmas.h"
#include "server/station_years_fixture.h"

namespace quillet::support {
namespace {

class YearsHeldTest : public StationYearsTest {};

TEST_F(YearsHeldTest, AYearThatIsMergedOver) {
  addFilled("M1");
  for (const Answer takesOver : {Answer::Yes, Answer::No}) {
    const std::string client = takesOver == Answer::Yes ? "M2" : "M3";
    SCOPED_TRACE(client);
    anna().addYear(client, 2008);
    third& form = choose(anna(), &third::mnumerge, client);
    anna().dialogs.queueAnswer(Answer::Yes);
    typeYear(form, 2008);
    auto& deletion =
        dynamic_cast<frmdelwhatinTB&>(*anna().context().openForms.find("frmdelwhatinTB"));
    deletion.click(deletion.optMain[0]);
    anna().dialogs.queueAnswer(Answer::Yes);
    deletion.click(deletion.cmddelete);
    ASSERT_TRUE(form.mergeList.shown());
    EXPECT_EQ(held(client), "31032009");
    openedByBen(client, 2008, takesOver);
    told(anna());
    form.flexgrid2.setCurrent(form.flexgrid2.find(1, "M1"));
    anna().dialogs.queueAnswer(Answer::Yes);
    // Whether to overwrite what Ben has entered.
    if (takesOver == Answer::Yes) anna().dialogs.queueAnswer(Answer::No);
    form.press(keys::Enter);
    EXPECT_EQ(told(anna()).find("overwrite") != std::string::npos, takesOver == Answer::Yes);
    EXPECT_EQ(sumOf(client, "TAB_2"), takesOver == Answer::Yes ? "55" : "8");
    EXPECT_EQ(form.mergeList.shown(), takesOver == Answer::Yes);
    form.press(keys::Escape);
    EXPECT_EQ(held(client), "");
    EXPECT_TRUE(anna().notices().empty());
    form.close();
  }
}

// What Ben does while Anna is asked about the year that she makes.
TEST_F(YearsHeldTest, AYearThatIsFilledFromTheOneBefore) {
  const struct {
    const char* question;
    std::function<void(const std::string& client)> deed;
    const char* sum;
    const char* told;
  } cases[] = {
      {"load previous", [](auto& client) { openedByBen(client, 2009, Answer::No); }, "8", ""},
      {"load previous", [](auto& client) { openedByBen(client, 2009, Answer::Yes); }, "55",
       "Another station has had 2009-2010 meanwhile"},
      {"Import Figures", [](auto& client) { openedByBen(client, 2009, Answer::Yes); }, "55",
       "Another station has had 2009-2010 meanwhile"},
      {"Import Figures",
       [](auto& client) {
         takeOver(client, "31032010", [&] {
           ben().change("update master set f_yr='01042004',s_yr='31032005' where code_no='" +
                        client + "' and s_yr='31032010'");
         });
       },
       "", "Another station has had 2009-2010 meanwhile"},
      {"Import Figures",
       [](auto& client) {
         ben().change("update master set f_yr='01042004',s_yr='31032005' where code_no='" + client +
                      "' and s_yr='31032009'");
       },
       "", "Another station has deleted the previous year meanwhile"},
  };
  for (int number = 1; const auto& each : cases) {
    const std::string client = "C" + std::to_string(number++);
    SCOPED_TRACE(client);
    addFilled(client);
    third& form = choose(anna(), &third::mnucreate, client);
    anna().dialogs.answering = [&](const Message& message) {
      if (message.text.find(each.question) != std::string::npos) each.deed(client);
      return Answer::Yes;
    };
    told(anna());
    typeYear(form, 2009);
    EXPECT_EQ(sumOf(client, "TAB_3"), each.sum);
    const std::string texts = told(anna());
    EXPECT_NE(texts.find(each.told), std::string::npos) << texts;
    EXPECT_EQ(held(client), "");
    EXPECT_TRUE(form.famyears.visible());
    EXPECT_TRUE(anna().notices().empty());
    form.close();
  }
}

TEST_F(YearsHeldTest, AYearThatIsReadAndDeleted) {
  for (const std::string client : {"R1", "R2"}) {
    SCOPED_TRACE(client);
    anna().addYear(client, 2008);
    anna().open(client, 2008);
    anna().enter("Before", "RENT", "1");
    ben().dialogs.queueAnswer(Answer::No);
    frmcrtb& reading = ben().open(client, 2008);
    EXPECT_EQ(reading.vsfm.rows(), 1);
    anna().leave();
    // The number of the table is given again to another year, or not.
    const std::string of = " where code_no='" + client + '\'';
    anna().change(client == "R1" ? "update master set f_yr='01042009',s_yr='31032010'" + of
                                 : "delete from master" + of);
    ben().practice().environment().lookAround();
    EXPECT_NE(reading.lbllock.caption().find("has deleted the year"), std::string::npos);
    EXPECT_FALSE(reading.txtpart.enabled());
    EXPECT_EQ(reading.vsfm.rows(), 0) << "they may be another year's";
    EXPECT_EQ(held(client), "");
    ben().dialogs.takeMessages();
    reading.click(reading.mnuinsert);
    EXPECT_NE(told(ben()).find("does not exist any more"), std::string::npos);
    if (client == "R1") {
      // What passes the form is refused.
      ben().change("insert into TAB_2 select 2,code_no,partid,allid,99,1 from TAB_2" + of);
      EXPECT_EQ(sumOf(client, "TAB_2"), "1");
      EXPECT_EQ(ben().notices().size(), 1U);
    }
    ben().leave();
  }
}

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
  form.status("Said before.");
  ben().addYear("L1", 2007);
  EXPECT_EQ(chosen(), "01/04/2008");
  EXPECT_EQ(form.lblstatus.caption(), "Said before.");
  ben().change("delete from master where code_no='L1' and s_yr='31032008'");
  EXPECT_EQ(chosen(), "01/04/2008");
  ben().change("delete from master where code_no='L1' and s_yr='31032009'");
  EXPECT_EQ(chosen(), "");
  form.close();
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

// Lines that stand there since days.
TEST_F(YearsHeldTest, LinesAreNotMovedToWhatIsGone) {
  anna().addYear("T1", 2008);
  auto& root = books().server.root();
  root.execute("set time_zone='+00:00', system_versioning_insert_history=1");
  for (const char* line : {"1", "2"}) {
    root.execute(std::string("insert into quillet.TAB_2(srno,code_no,partid,allid,amt,nid,row_from,"
                             "row_till) select ") +
                 line +
                 ",'T1',min(PartId),971,5,1,now(6)-interval 2 day,'2038-01-19 03:14:07.999999' "
                 "from quillet.Mast_Part");
  }
  ben().change("insert into Mast_AllGrp(ALLID,GID,ALLGRP,UserGrp) values(972,18,'Gone','Y')");
  ben().change("delete from Mast_AllGrp where ALLID=972");
  for (const char* change : {"amt=6", "allid=972", "partid=99999", "allid=27"}) {
    anna().change(std::string("update TAB_2 set ") + change + " where code_no='T1' and srno=1");
  }
  EXPECT_EQ(anna().notices().size(), 1U) << "that of the group which is gone";
  EXPECT_EQ(anna().value("select concat(amt,' ',allid) from TAB_2 where code_no='T1' and srno=1"),
            "6 27");
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
