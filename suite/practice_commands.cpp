#include "suite/practice_commands.h"

#include <algorithm>

#include "books/clients.h"
#include "host/rights.h"
#include "suite/standalone_environment.h"
#include "suite/table_numbers.h"

namespace quillet::suite {
namespace {

std::string called(const Client& client) {
  return "Client " + client.code + ", " + client.displayName();
}

}  // namespace

PracticeCommands::PracticeCommands(Practice& practice)
    : practice_(practice),
      home_(static_cast<third&>(*practice.forms().ObjThird())),
      mnupractice_(home_, "mnupractice", "Pract&ice"),
      mnunewclient_(home_, "mnunewclient", "&New Client...", &mnupractice_, "Ins"),
      mnualterclient_(home_, "mnualterclient", "&Alter Client...", &mnupractice_, "F2"),
      mnudeleteclient_(home_, "mnudeleteclient", "&Delete Client...", &mnupractice_),
      mnuline_(home_, "mnupracticeline", "-", &mnupractice_),
      mnustatements_(home_, "mnustatements", "S&tatements by Head...", &mnupractice_, "F7"),
      mnutakeback_(home_, "mnutakeback", "Ta&ke Back...", &mnupractice_),
      mnusettings_(home_, "mnusettings", "&Settings...", &mnupractice_),
      client_(practice.context().openForms, practice.environment().unit(),
              practice.environment().dialogs(), practice.environment().clock(),
              [&practice] { return tableNumbers(practice.settings(), practice.database()); }),
      settings_(practice.context().openForms, practice.settings(), practice.environment().dialogs(),
                practice.environment().unit(),
                [&practice] { return practice.service().CheckPass(right::unlockYear); }),
      firm_(practice.context().openForms, {practice.settings(), practice.environment().unit()},
            practice.environment().dialogs()),
      statements_(practice.context()),
      takeBack_(practice.context().openForms, practice.environment().takingBack(),
                practice.environment().dialogs()) {
  mnunewclient_.Click = [this] { newClient(); };
  mnualterclient_.Click = [this] { alterClient(); };
  mnudeleteclient_.Click = [this] { deleteClient(); };
  mnustatements_.Click = [this] { showStatements(); };
  mnusettings_.Click = [this] { showSettings(); };
  mnutakeback_.setVisible(practice.environment().actLog().keeps());
  mnutakeback_.Click = [this] { showTakeBack(); };
  takeBack_.onTakenBack = [this] { tookBack(); };
  settings_.onKept = [this] { practice_.frontEnd().usePreferences(practice_.settings()); };
  home_.ClGrd1.setEmptyRegisterText(
      "There are no clients yet. Press Enter or click here to enter the first one.");
  home_.ClGrd1.EmptyClick = [this] { newClient(); };
}

void PracticeCommands::askForFirm() {
  if (!FirmName(practice_.settings(), practice_.environment().unit()).get().empty()) return;
  practice_.service().resize_for_resolution(firm_);
  firm_.showModal();
}

void PracticeCommands::showSettings() {
  practice_.service().resize_for_resolution(settings_);
  practice_.service().resize_for_resolution(settings_.serverForm());
  settings_.showModal();
}

void PracticeCommands::showStatements() {
  const std::optional<Client> client = clientToChange();
  if (!client) return;
  const auto years = Registry(practice_.service()).yearsOf(client->code);
  const bool listed = home_.Frame1.visible() && home_.famyears.visible();
  const YearKeys* chosen = listed && !home_.mergeList.shown() ? home_.years.chosen() : nullptr;
  const auto year = chosen ? std::ranges::find(years, *chosen, &RegisteredYear::keys)
                           : years.end() - (years.empty() ? 0 : 1);
  if (year == years.end() || year->table.empty()) {
    home_.status(called(*client) + ", has no year to draw statements of.");
    return;
  }
  if (year->isSigned && !practice_.service().CheckPass(right::open)) return;
  home_.status("");
  statements_.INITDATA({year->table, client->code}, client->displayName(), year->keys);
  statements_.showModal();
}

// --- taking back --------------------------------------------------------------------------------

void PracticeCommands::showTakeBack() {
  practice_.service().resize_for_resolution(takeBack_);
  takeBack_.openFor(home_.clientInView());
}

void PracticeCommands::tookBack() { home_.registerChanged(home_.clientInView(), "Taken back."); }

// --- clients ------------------------------------------------------------------------------------

void PracticeCommands::newClient() {
  practice_.service().resize_for_resolution(client_);
  client_.add([this](const std::string& code) {
    changed(code, "is in the register. \"Create Trial Balance\" makes its first year.");
  });
}

void PracticeCommands::alterClient() {
  const std::optional<Client> client = clientToChange();
  if (!client) return;
  practice_.service().resize_for_resolution(client_);
  client_.alter(client->code, [this, before = client->code](const std::string& code) {
    Context& context = practice_.context();
    if (code != before && context.clientCode == before) context.setYear({code, {}, {}, {}});
    changed(code, "was altered.");
  });
}

void PracticeCommands::deleteClient() {
  const std::optional<Client> client = clientToChange();
  if (!client) return;
  StandaloneEnvironment& around = practice_.environment();
  const auto box = [&](const std::string& text, Buttons buttons, Icon icon) {
    return around.dialogs().MsgBox(
        {text, "Delete Client", buttons, icon, buttons == Buttons::OK ? Answer::OK : Answer::No});
  };
  const long tableCount = tableNumbers(practice_.settings(), practice_.database());
  const std::string books = booksOf(around.unit(), client->code, tableCount).text();
  if (!books.empty()) {
    box(called(*client) + " cannot be deleted. " + books, Buttons::OK, Icon::information);
    return;
  }
  if (box("Delete " + called(*client) + ", from the register?", Buttons::YesNo, Icon::question) !=
      Answer::Yes) {
    return;
  }
  try {
    removeClient(around.unit(), client->code, tableCount);
    around.unit().keep();
  } catch (const ClientRefused& refused) {
    box(refused.what(), Buttons::OK, Icon::information);
    home_.registerChanged({}, {});
    return;
  }
  Context& context = practice_.context();
  if (context.clientCode == client->code) context.setYear({});
  practice_.frontEnd().showClient({}, {});
  home_.registerChanged({}, called(*client) + ", was deleted.");
}

std::optional<Client> PracticeCommands::clientToChange() {
  const std::string code = home_.clientInView();
  if (code.empty()) {
    home_.status("Choose a client in the list first.");
    return std::nullopt;
  }
  std::optional<Client> client = findClient(practice_.environment().unit(), code);
  if (!client) {
    const std::string since = codeSince(practice_.environment().unit(), code);
    home_.registerChanged(since, goneClientText(code, since));
    return std::nullopt;
  }
  if (!practice_.service().CheckClpass(client->code)) return std::nullopt;
  return client;
}

void PracticeCommands::changed(const std::string& code, const std::string& told) {
  const std::optional<Client> client = findClient(practice_.environment().unit(), code);
  if (client) home_.registerChanged(client->code, called(*client) + ", " + told);
}

}  // namespace quillet::suite
