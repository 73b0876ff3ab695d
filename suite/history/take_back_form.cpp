#include "suite/history/take_back_form.h"

#include <utility>

namespace quillet::suite {
namespace {

constexpr long most = 1000;

std::string yearIn(const std::string& secondDate) {
  if (secondDate.size() != 8) return {};
  const int second = std::stoi(secondDate.substr(4));
  return std::to_string(second - 1) + '-' + secondDate.substr(6);
}

std::string joined(const std::vector<std::string>& sentences) {
  std::string text;
  for (const std::string& sentence : sentences) text += (text.empty() ? "" : "\r\n") + sentence;
  return text;
}

}  // namespace

frmTakeBack::frmTakeBack(OpenForms& openForms, TakingBack& takingBack, Dialogs& dialogs)
    : Form(openForms, "frmTakeBack"), takingBack_(takingBack), dialogs_(dialogs) {
  setCaption("Take Back");
  vsf.setColumns({{.heading = "When", .width = 19, .dated = true},
                  {.heading = "Command", .width = 28, .stretch = true},
                  {.heading = "Form", .width = 26, .stretch = true},
                  {.heading = "Client", .width = 10},
                  {.heading = "Year", .width = 8},
                  {.heading = "Person", .width = 10},
                  {.heading = "Station", .width = 10},
                  {.heading = "State", .width = 11}});
  vsf.setEmptyText("Nothing was changed since the history began.");
  vsf.sortable = false;  // what came later stands above
  vsf.RowColChange = [this] { showChosen(); };
  vsf.DblClick = [this] { takeBack(); };
  chkall.Click = [this] { showActs(); };
  cmdtakeback.Click = [this] { takeBack(); };
  cmdclose.Click = [this] { close(); };
  lblwhat.setQuiet(true);
  KeyPress = [this](Key& key) {
    if (key == keys::Escape) {
      key = keys::none;
      close();
    } else if (key == keys::Enter && active() == &vsf) {
      key = keys::none;
      takeBack();
    }
  };
}

void frmTakeBack::openFor(const std::string& client) {
  client_ = client;
  showModal([this] {
    if (std::exchange(changed_, false) && onTakenBack) onTakenBack();
  });
}

void frmTakeBack::load() {
  size = {0.9, 0.7, size.font};
  changed_ = false;
  chkall.setChecked(client_.empty());
  chkall.setEnabled(!client_.empty());
  showActs();
  focus(vsf);
}

void frmTakeBack::showActs() {
  vsf.clearRows();
  lblwhat.setCaption("");
  acts_ = takingBack_.acts(chkall.checked() ? std::string() : client_, most);
  long id = 0;
  for (const LoggedAct& act : acts_) {
    const ActRow& row = act.row;
    const char* const state = act.takenBack ? "taken back" : row.takesBack != 0 ? "takes back" : "";
    vsf.addRow({localTime(row.at), row.command, row.form, row.client, yearIn(row.secondDate),
                shownPerson(row.person), row.station, state},
               ++id);
  }
  if (vsf.rows() > 0) vsf.setCurrent(1);
  showChosen();
}

const LoggedAct* frmTakeBack::chosen() const {
  const long id = vsf.currentId();
  return id == 0 ? nullptr : &acts_[static_cast<std::size_t>(id - 1)];
}

void frmTakeBack::showChosen() {
  const LoggedAct* act = chosen();
  cmdtakeback.setEnabled(act != nullptr && !act->takenBack);
  std::string what = act == nullptr ? "" : takingBack_.inverseOf(act->row).words();
  if (act != nullptr && !act->row.reason.empty()) {
    what += (what.empty() ? "" : " ") + act->row.reason;
  }
  lblwhat.setCaption(what);
}

// What stands in the way is shown before anything is written.
void frmTakeBack::takeBack() {
  const LoggedAct* act = chosen();
  if (act == nullptr || act->takenBack) return;
  const auto box = [&](const std::string& text, Buttons buttons, Icon icon, Answer answer) {
    return dialogs_.MsgBox({text, caption(), buttons, icon, answer});
  };
  const ActInverse inverse = takingBack_.inverseOf(act->row);
  if (const auto conflicts = takingBack_.conflicts(inverse); !conflicts.empty()) {
    box("This cannot be taken back:\r\n" + joined(conflicts), Buttons::OK, Icon::information,
        Answer::OK);
    return;
  }
  if (box("Take back \"" + wordsFor(inverse.act()) + "\"?\r\n" + inverse.words(), Buttons::YesNo,
          Icon::question, Answer::No) != Answer::Yes) {
    return;
  }
  if (const auto conflicts = takingBack_.takeBack(inverse); !conflicts.empty()) {
    box("Nothing was changed:\r\n" + joined(conflicts), Buttons::OK, Icon::information, Answer::OK);
    return;
  }
  changed_ = true;
  showActs();
  focus(vsf);
}

LayoutItem frmTakeBack::layout() {
  return column({row({item(chkall), gap()}), item(vsf, 1), item(lblwhat),
                 row({gap(), item(cmdtakeback), item(cmdclose)})});
}

}  // namespace quillet::suite
