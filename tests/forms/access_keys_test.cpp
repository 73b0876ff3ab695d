// Access keys over every form and page: no key leads to two controls.
#include "view/access_keys.h"

#include <initializer_list>
#include <set>

#include "deletion/frmdelwhatinTB.h"
#include "forms/home_fixture.h"
#include "home/frmlock.h"
#include "journal/frmjrnl.h"
#include "masters/frmgrpRM.h"
#include "review/frmimport.h"
#include "review/frmvchimport.h"
#include "suite/client_form.h"
#include "suite/firm_form.h"
#include "suite/history/history_forms.h"
#include "suite/settings_form.h"
#include "suite/stock_form.h"
#include "yearend/frmbringfwd.h"

namespace quillet::support {
namespace {

void collectStacks(const LayoutItem& node, std::vector<const LayoutItem*>& stacks) {
  if (node.kind == LayoutItem::Kind::stack) stacks.push_back(&node);
  for (const LayoutItem& child : node.children) collectStacks(child, stacks);
}

// Runs the body for every choice of one page in each stack.
void eachPage(const std::vector<const LayoutItem*>& stacks, std::size_t at,
              const std::function<void()>& body) {
  if (at == stacks.size()) return body();
  for (const LayoutItem& chosen : stacks[at]->children) {
    for (const LayoutItem& page : stacks[at]->children) {
      page.control->setVisible(&page == &chosen);
    }
    eachPage(stacks, at + 1, body);
  }
}

// What the second press of a key leads to is not what the first one led to. Every command counts,
// whether it can be given now or not.
std::set<std::string> clashes(Form& form) {
  form.arrangementChanged();
  for (Control* control : form.controls()) {
    control->setEnabled(true);
    if (!dynamic_cast<Grid*>(control)) control->setVisible(true);
  }
  std::vector<const LayoutItem*> stacks;
  collectStacks(form.arrangement(), stacks);
  std::set<std::string> found;
  int keysSeen = 0;
  eachPage(stacks, 0, [&] {
    for (char32_t key = U'0'; key <= U'Z'; ++key) {
      view::AccessKeys keys;
      const Control* first = keys.press(form, key).control;
      const Control* second = keys.press(form, key).control;
      if (first) ++keysSeen;
      if (first == second) continue;
      found.insert(form.name() + ' ' + static_cast<char>(key) + ": " + first->name() + ", " +
                   second->name());
    }
  });
  EXPECT_GE(keysSeen, 2) << form.name();
  return found;
}

using AccessKeysTest = HomeTest;

TEST_F(AccessKeysTest, LeadToOneControlOfEveryPage) {
  third home(context());
  frmcrtb editor(context());
  frmjrnl journal(context());
  frmgrpmas groups(context());
  frmtbledmas ledgers(context());
  frmgrpRM binding(context());
  frmdelwhatinTB deletion(context());
  frmimport import(context());
  frmvchimport vouchers(context());
  frmbringfwd forward(context());
  suite::frmTrade stock(context().openForms, dialogs, clock);
  suite::frmClient client(context().openForms, practice.environment().unit(), dialogs, clock,
                          [] { return 6L; });
  suite::frmSettings settings(context().openForms, practice.settings(), dialogs,
                              practice.environment().unit(), [] { return true; });
  frmlock lock(context());
  suite::frmFirm firm(context().openForms, {practice.settings(), practice.environment().unit()},
                      dialogs);
  suite::frmchanges changes(context(), practice.environment().unit(), {});
  suite::frmasof asOf(context(), practice.environment().unit());
  for (Form* form : std::initializer_list<Form*>{&home, &editor, &journal, &groups, &ledgers,
                                                 &binding, &deletion, &import, &vouchers, &forward,
                                                 &stock, &client, &settings, &settings.serverForm(),
                                                 &lock, &firm, &changes, &asOf}) {
    EXPECT_EQ(clashes(*form), std::set<std::string>());
  }
  third& shown = this->home();
  for (Button* opener : {&shown.ClGrd1.cmdclients, &shown.ClGrd1.cmdcolumns}) {
    shown.click(*opener);
    Form& dialog = *context().openForms.active();
    EXPECT_NE(&dialog, &shown);
    EXPECT_EQ(clashes(dialog), std::set<std::string>());
    dialog.press(keys::Escape);
    EXPECT_EQ(shown.active(), &shown.ClGrd1) << "one goes on typing";
  }
  // In the window the menu "Pract&ice" stands beside them. Two captions change with the mode.
  for (const char* caption : {"&Other Clients...", "Create &Year"}) {
    home.cmdyear.setCaption(caption);
    EXPECT_EQ(clashes(home), std::set<std::string>());
    EXPECT_EQ(view::AccessKeys().press(home, U'I').control, nullptr);
  }
}

// One level at a time, and to the list of the form below.
TEST_F(AccessKeysTest, EscapeLeadsBackFromEveryForm) {
  addYear("C1", 2008, {{"Asha", "CAPITAL", -6}});
  dialogs.answering = [](const Message&) { return Answer::Yes; };
  third& home = choose(&third::mnualter);
  home.press(keys::Enter);
  frmcrtb& editor = theEditor(context());
  const struct {
    Form* below;
    Control* opener;
    Control* list;
  } cases[] = {{&editor, &editor.cmdclstock[0], &editor.vsfm},
               {&editor, &editor.mnujournal, &editor.vsfm},
               {&editor, &editor.mnunewgroup, &editor.vsfm},
               {&editor, &editor.cmdgrpmanf, &editor.vsfm},
               {&editor, &editor.mnuchanges, &editor.vsfm},
               {&editor, &editor.mnuasof, &editor.vsfm},
               {&home, nullptr, &home.flexgrid2},  // the editor itself
               {&home, &home.cmdgrpmas, &home.flexgrid2},
               {&home, &home.cmdledmas, &home.flexgrid2},
               {&home, &home.cmdchanges, &home.flexgrid2},
               {&home, &home.cmdasof, &home.flexgrid2},
               {&home, nullptr, &home.ClGrd1},
               {&home, &home.cmdgrpmas, &home.ClGrd1}};
  editor.focus(editor.vsfm);
  for (const auto& each : cases) {
    if (each.opener) {
      ASSERT_TRUE(each.below->click(*each.opener)) << each.opener->name();
      ASSERT_NE(context().openForms.active(), each.below) << each.opener->name();
    }
    context().openForms.active()->press(keys::Escape);
    EXPECT_EQ(context().openForms.active(), each.below);
    EXPECT_EQ(each.below->active(), each.list);
  }
  messages();
}

}  // namespace
}  // namespace quillet::support
