#include "host/context.h"

#include "host/error_log.h"

namespace quillet {

Context::Context(Environment& around)
    : environment(around),
      host(around.createServiceObject()),
      dialogs(around.dialogs()),
      clock(around.clock()),
      fileRemover(around.fileRemover()) {
  openForms.onError = [this](const std::string& location, const std::exception& error) {
    trapped(location, error);
  };
  openForms.acts.onBegun = [this] { before_ = {unposted, year()}; };
  bool compatible = true;
  try {
    compatible = host->CheckDllsVersion(true);
  } catch (const std::exception&) {
    // A service library too old to know the question counts as compatible: start-up goes on.
    compatible = true;
  }
  if (!compatible) {
    MsgBox("File [TalBase.dll] is not compatible. Please update the latest software properly.",
           Buttons::OK, Icon::critical);
  }
  reporter = around.createReporter();
}

Context::~Context() = default;

void Context::setYear(const Year& year) {
  clientCode = year.clientCode;
  table = year.table;
  firstDate = year.firstDate;
  secondDate = year.secondDate;
}

void Context::trapped(const std::string& location, const std::exception& error) {
  errorLocation = location;
  logError(*this, quillet::trapped(error));
  const Form* form = openForms.find(location.substr(0, location.find('\t')));
  environment.trapped(form ? form->caption() : std::string(), error);
}

void Context::kept() {
  before_ = {unposted, year()};
  openForms.acts.kept();
}

void Context::takenBack() {
  unposted = before_.unposted;
  setYear(before_.year);
  openForms.takenBack();
  // A closed editor may have put a line back that is out again.
  if (editorForm && !editorForm->visible()) editorForm->takenBack();
}

Answer Context::MsgBox(const std::string& text, Buttons buttons, Icon icon, Answer defaultAnswer,
                       const std::string& title) {
  return dialogs.MsgBox(
      {text, title, buttons, icon, buttons == Buttons::OK ? Answer::OK : defaultAnswer});
}

}  // namespace quillet
