// What another station does while a person is asked about a year that is to be deleted or
// overwritten.
#include <filesystem>

#include "deletion/frmdelwhatinTB.h"
#include "editor/frmcrtb.h"
#include "server/station_years_fixture.h"

namespace quillet::support {
namespace {

class YearAskedTest : public StationYearsTest {
 protected:
  static frmdelwhatinTB* deletion() {
    return dynamic_cast<frmdelwhatinTB*>(anna().context().openForms.find("frmdelwhatinTB"));
  }
  static std::string years(const std::string& client) {
    return anna().value("select group_concat(s_yr order by s_yr) from master where code_no='" +
                        client + "' and s_yr<>''");
  }
  struct Asked {
    const char* client;
    Button third::*command;
    const char* question;  // the one during which Ben opens the year
    Answer takesOver;
    Answer answer;  // to that question
  };
  // Up to the deletion, and through it if that is reached.
  static void ask(const Asked& each) {
    third& form = choose(anna(), each.command, each.client);
    told(anna());
    anna().dialogs.answering = [&](const Message& message) {
      const bool there = message.text.find(each.question) != std::string::npos;
      if (there) openedByBen(each.client, 2008, each.takesOver);
      const bool first = message.text.find("load previous") == std::string::npos;
      return there ? each.answer : first ? Answer::Yes : Answer::No;
    };
    if (each.command == &third::mnudelete) {
      form.flexgrid2.setCurrent(form.flexgrid2.rows());
      form.press(keys::Enter);
    } else {
      typeYear(form, 2008);
    }
    if (frmdelwhatinTB* const page = deletion()) {
      EXPECT_EQ(held(each.client), "31032009");
      page->click(page->optMain[0]);
      page->click(page->cmddelete);
    }
    anna().dialogs.answering = {};
  }
};

TEST_F(YearAskedTest, NobodyEntersWhatIsAboutToBeDeleted) {
  constexpr const char* first = "overwrite previously";
  constexpr const char* last = "Confirm Deletion";
  const Asked cases[] = {
      {"YQ1", &third::mnudelete, "really want", Answer::No, Answer::Yes},
      {"YQ2", &third::mnudelete, last, Answer::Yes, Answer::Yes},
      {"YQ3", &third::mnudelete, "really want", Answer::Yes, Answer::Yes},
      {"YQ4", &third::mnudelete, "really want", Answer::No, Answer::No},
      {"YQ5", &third::mnudelete, last, Answer::No, Answer::No},
      {"YP1", &third::mnucreate, first, Answer::No, Answer::Yes},
      {"YP2", &third::mnucreate, first, Answer::Yes, Answer::Yes},
      {"YP3", &third::mnucreate, first, Answer::No, Answer::No},
      {"YO1", &third::mnumerge, last, Answer::Yes, Answer::Yes},
      {"YO2", &third::mnumerge, first, Answer::No, Answer::No},
  };
  for (const Asked& each : cases) {
    SCOPED_TRACE(each.client);
    addFilled(each.client);
    ask(each);
    const std::string texts = told(anna());
    const bool deleted = each.takesOver == Answer::No && each.answer == Answer::Yes;
    if (each.takesOver == Answer::Yes) {
      EXPECT_NE(texts.find("another station has changed it meanwhile"), std::string::npos) << texts;
      EXPECT_EQ(sumOf(each.client, "TAB_2"), "63");
    } else {
      EXPECT_EQ(sumOf(each.client, "TAB_2"), deleted ? "" : "8");
    }
    const bool gone = deleted && each.command == &third::mnudelete;
    EXPECT_EQ(years(each.client), gone ? "31032008" : "31032008,31032009");
    if (frmdelwhatinTB* const page = deletion()) page->press(keys::Escape);
    EXPECT_EQ(held(each.client), "");
    EXPECT_TRUE(anna().notices().empty());
    theHome(anna().context()).close();
  }
}

TEST_F(YearAskedTest, AYearThatIsOpenElsewhereCanBeTakenOverToDeleteIt) {
  addFilled("YT1");
  const frmcrtb& reading = ben().open("YT1", 2008);
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    third& form = choose(anna(), &third::mnudelete, "YT1");
    anna().dialogs.answering = [&](const Message& message) {
      return message.text.find("Take it over ?") != std::string::npos ? answer : Answer::Yes;
    };
    form.flexgrid2.setCurrent(form.flexgrid2.rows());
    form.press(keys::Enter);
    ASSERT_EQ(deletion() != nullptr, answer == Answer::Yes);
    EXPECT_EQ(held("YT1"), "31032009");
  }
  deletion()->click(deletion()->optMain[0]);
  deletion()->click(deletion()->cmddelete);
  anna().dialogs.answering = {};
  EXPECT_EQ(years("YT1"), "31032008");
  EXPECT_EQ(held("YT1"), "");
  EXPECT_TRUE(anna().notices().empty());
  ben().practice().environment().lookAround();
  EXPECT_FALSE(reading.txtpart.enabled());
  EXPECT_EQ(reading.vsfm.rows(), 0);
  EXPECT_EQ(ben().notices().size(), 1U);
  ben().leave();
  told(anna());
  theHome(anna().context()).close();
}

// The message of the files comes when the editor of the year is closed already.
TEST_F(YearAskedTest, AYearIsDeletedWhoseEditorIsOpenAndWhoseFilesStay) {
  addFilled("YF1");
  const auto inTheWay =
      anna().practice().folder().documents() / "files/C-YF1/08-09-sap.txt/in the way";
  std::filesystem::create_directories(inTheWay);
  anna().context().setYear({"YF1", "TAB_2", "01042008", "31032009"});
  theEditor(anna().context()).show();
  third& form = choose(anna(), &third::mnudelete, "YF1");
  anna().dialogs.answering = [](const Message&) { return Answer::Yes; };
  form.flexgrid2.setCurrent(form.flexgrid2.rows());
  form.press(keys::Enter);
  deletion()->click(deletion()->optMain[0]);
  deletion()->click(deletion()->cmddelete);
  anna().dialogs.answering = {};
  EXPECT_NE(told(anna()).find("08-09-sap.txt"), std::string::npos);
  EXPECT_EQ(years("YF1"), "31032008");
  EXPECT_EQ(sumOf("YF1", "TAB_2"), "");
  EXPECT_EQ(held("YF1"), "");
  anna().notices();
  form.close();
}

}  // namespace
}  // namespace quillet::support
