#include "suite/client_form.h"

#include <utility>

#include "controls/open_forms.h"
#include "data/names.h"
#include "data/text.h"
#include "suite/format.h"
#include "suite/passwords.h"

namespace quillet::suite {
namespace {

constexpr const char* usualStatuses[] = {
    "Individual", "HUF", "Partnership Firm", "LLP", "Company", "AOP/BOI", "Trust", "Society"};
constexpr const char* emptyDate = "__/__/____";
constexpr const char* unsaved = "Nothing was saved. Alt+V tries again.";
constexpr int earliestYear = 1800;

// The boxes hold one line.
std::string oneLine(const std::string& text) {
  return replacedAll(replacedAll(replacedAll(text, "\r", ""), ",\n", ", "), "\n", ", ");
}

}  // namespace

frmClient::frmClient(OpenForms& openForms, UnitOfWork& unit, Dialogs& dialogs, Clock& clock,
                     std::function<long()> tableCount)
    : Form(openForms, "frmClient"),
      unit_(unit),
      dialogs_(dialogs),
      clock_(clock),
      tableCount_(std::move(tableCount)) {
  lblhint.setQuiet(true);
  txtpassword.setSecret(true);
  txtagain.setSecret(true);
  attach();
}

void frmClient::attach() {
  for (const auto& [kind, other] : {std::pair{&optfirm, &optperson}, {&optperson, &optfirm}}) {
    kind->Click = [this] { showKind(); };
    kind->KeyDown = [this, other = other](Key& key) {
      if (key != keys::Left && key != keys::Right && key != keys::Up && key != keys::Down) return;
      key = keys::none;
      click(*other);
    };
  }
  attachList(statuses_, txtstatus);
  attachList(groups_, txtgroupcode);
  txtgroupcode.LostFocus = [this] {
    groups_.hide();
    completeGroup();
  };
  chkpassword.Click = [this] { showPasswordFields(); };
  cmdsave.Click = [this] { save(); };
  cmdcancel.Click = [this] { giveUp(); };
  KeyPress = [this](Key& key) { formKey(key); };
}

// The list opens with the first letter, or by the arrows.
void frmClient::attachList(LookupList& list, TextBox& box) {
  list.attach(box);
  box.GotFocus = [&box] { box.selectAll(); };
  box.Change = [&list, &box] {
    if (trimmed(box.text()).empty()) {
      list.hide();
    } else {
      list.follow(box.text());
    }
  };
}

// --- opening ------------------------------------------------------------------------------------

void frmClient::add(Saved saved) {
  altered_.reset();
  setCaption("New Client");
  show({}, std::move(saved));
}

bool frmClient::alter(const std::string& code, Saved saved) {
  const std::optional<Client> client = findClient(unit_, code);
  if (!client) return false;
  altered_ = client->code;
  setCaption("Client " + client->code + ", " + client->displayName());
  show(*client, std::move(saved));
  return true;
}

void frmClient::show(const Client& client, Saved saved) {
  shown_ = client;
  saved_ = std::move(saved);
  showModal();
}

void frmClient::load() {
  size = {0.5, 0.3, size.font};
  for (const auto& [box, text] : {std::pair{&txtcode, shown_.code},
                                  {&txtname, shown_.name},
                                  {&txtfirst, shown_.first},
                                  {&txtmiddle, shown_.middle},
                                  {&txtlast, shown_.last},
                                  {&txtstatus, shown_.status},
                                  {&txtfather, shown_.father},
                                  {&txtaddress, oneLine(shown_.address)},
                                  {&txtcompany, shown_.company},
                                  {&txtgroupcode, shown_.groupCode},
                                  {&txtgroupname, shown_.groupName},
                                  {&txtpassword, std::string()},
                                  {&txtagain, std::string()}}) {
    box->setText(text);
  }
  mskborn.setText(shown_.born);
  (shown_.isPerson() ? optperson : optfirm).setChecked(true);
  showKind();
  vsfstatus.setVisible(false);
  vsfgroup.setVisible(false);
  // As it stays where the rest cannot be read.
  txtcode.setLocked(altered_.has_value());
  hadPassword_ = false;
  chkpassword.setChecked(false);
  showPasswordFields();
  lblhint.setCaption("");
  untouched_ = typed();
  fillLists();
  const std::string books =
      altered_ ? booksOf(unit_, *altered_, tableCount_()).text() : std::string();
  txtcode.setLocked(!books.empty());
  lblhint.setCaption(books.empty() ? "" : "The code stays: years go by it.");
  hadPassword_ = altered_ && Passwords::isSet(unit_, PasswordKind::client, *altered_);
  chkpassword.setChecked(hadPassword_);
  showPasswordFields();
  focus(books.empty() ? txtcode : nameBox());
  untouched_ = typed();
}

void frmClient::fillLists() {
  statuses_.clear();
  groups_.clear();
  const auto fill = [&](LookupList& list, const char* column, NameList names) {
    const RecordsetPtr rows = unit_.query(std::string("select distinct ") + column +
                                          " from TempClTbl where " + column + "<>''");
    for (; !rows->EOF_(); rows->MoveNext()) {
      if (!names.find(rows->text(0))) names.insert(rows->text(0), 0);
    }
    list.fill(std::move(names));
  };
  NameList usual;
  for (const char* status : usualStatuses) usual.insert(status, 0);
  fill(statuses_, "Status", std::move(usual));
  fill(groups_, "GroupCode", {});
}

void frmClient::showKind() {
  famfirm.setVisible(optfirm.checked());
  famperson.setVisible(optperson.checked());
  // The two are one stop; the arrows go from one to the other.
  for (OptionButton* kind : {&optfirm, &optperson}) kind->tabStop = kind->checked();
}

void frmClient::showPasswordFields() {
  for (TextBox* box : {&txtpassword, &txtagain}) box->setEnabled(chkpassword.checked());
  if (!chkpassword.checked()) {
    txtpassword.setText("");
    txtagain.setText("");
  }
  chkpassword.setToolTip(hadPassword_ ? "The password stays while no other one is typed." : "");
}

// The name of a group that other clients belong to.
void frmClient::completeGroup() {
  if (trimmed(txtgroupcode.text()).empty() || !trimmed(txtgroupname.text()).empty()) return;
  const RecordsetPtr row = unit_.query("select GroupName from TempClTbl where GroupCode='" +
                                       unit_.escape(txtgroupcode.text()) +
                                       "' and GroupName<>'' order by CodeNo limit 1");
  if (!row->EOF_()) txtgroupname.setText(row->text(0));
}

// --- keys ---------------------------------------------------------------------------------------

void frmClient::formKey(Key& key) {
  if (key == keys::Escape) {
    key = keys::none;
    giveUp();
  } else if (key == keys::Enter && active() != &cmdsave && active() != &cmdcancel) {
    key = keys::none;
    // Whoever types on is not stopped by the choice between the two kinds.
    if (active() == &txtcode) {
      focus(nameBox());
    } else {
      focusNext();
    }
  }
}

void frmClient::giveUp() {
  if (typed() != untouched_ &&
      dialogs_.MsgBox({"Give up what was typed?", caption(), Buttons::YesNo, Icon::question,
                       Answer::No}) != Answer::Yes) {
    return;
  }
  close();
}

// --- saving -------------------------------------------------------------------------------------

frmClient::Typed frmClient::typed() const {
  const bool person = optperson.checked();
  Typed typed;
  Client& client = typed.client;
  client.code = txtcode.text();
  client.name = person ? "" : txtname.text();
  client.first = person ? txtfirst.text() : "";
  client.middle = person ? txtmiddle.text() : "";
  client.last = person ? txtlast.text() : "";
  client.status = txtstatus.text();
  client.father = txtfather.text();
  client.born = mskborn.text() == emptyDate ? "" : mskborn.text();
  client.address =
      txtaddress.text() == oneLine(shown_.address) ? shown_.address : txtaddress.text();
  client.company = txtcompany.text();
  client.groupCode = txtgroupcode.text();
  client.groupName = txtgroupname.text();
  typed.asksPassword = chkpassword.checked();
  typed.password = txtpassword.text();
  typed.again = txtagain.text();
  return typed;
}

void frmClient::save() {
  if (!bornIsRight() || !passwordIsRight()) return;
  const Client client = typed().client;
  try {
    store(client);
    // Only what is stored may leave the screen.
    unit_.keep();
  } catch (const ClientRefused& refused) {
    refuse(boxOf(refused.field()), refused.what());
    return;
  } catch (...) {
    lblhint.setCaption(unsaved);
    throw;
  }
  const std::string code = cleanedName(client.code);
  const Saved saved = saved_;
  close();
  if (saved) saved(code);
}

void frmClient::store(const Client& client) {
  if (!altered_) {
    Client added = client;
    added.password = txtpassword.text();
    return addClient(unit_, added);
  }
  std::optional<std::string> password;
  if (chkpassword.checked() ? !txtpassword.text().empty() : hadPassword_) {
    password = txtpassword.text();
  }
  if (const auto stored = findClient(unit_, *altered_); stored && *stored != shown_) {
    shown_ = *stored;
    load();
    throw ClientRefused(&Client::name,
                        "Somebody else has altered this client meanwhile; it is shown as stored.");
  }
  alterClient(unit_, *altered_, client, password, tableCount_());
}

bool frmClient::bornIsRight() {
  const std::string text = mskborn.text();
  if (text == emptyDate) return true;
  if (!mskborn.complete()) {
    return refuse(mskborn, "The date of birth or incorporation is not complete: " + text +
                               ". Please complete it, or delete all of it.");
  }
  const std::optional<Date> born = isDate(text) ? readDate(text) : std::nullopt;
  if (!born) {
    return refuse(mskborn, "There is no day " + text +
                               ". Please correct the date of birth or incorporation.");
  }
  const std::string today = formatDate(clock_.today(), "DD/MM/YYYY");
  if (born->year < earliestYear || compareDates(text, today) > 0) {
    return refuse(mskborn, "The date of birth or incorporation, " + text + ", is " +
                               (born->year < earliestYear ? "too long ago" : "after today") +
                               ". Please correct it.");
  }
  return true;
}

bool frmClient::passwordIsRight() {
  if (!chkpassword.checked()) return true;
  if (txtpassword.text() != txtagain.text()) {
    return refuse(txtpassword, "The two passwords differ. Please type the same one in both boxes.");
  }
  if (!txtpassword.text().empty() || hadPassword_) return true;
  return refuse(txtpassword,
                "Please type a password twice, or take the tick off \"Opened with a"
                " password\".");
}

// Always false, for whoever asks whether a field is right.
bool frmClient::refuse(Control& field, const std::string& text) {
  dialogs_.MsgBox({text, caption(), Buttons::OK, Icon::information});
  focus(field);
  if (auto* box = dynamic_cast<TextBox*>(&field)) box->selectAll();
  return false;
}

Control& frmClient::boxOf(ClientRefused::Field field) {
  const std::pair<ClientRefused::Field, Control*> boxes[] = {
      {&Client::first, &txtfirst},         {&Client::middle, &txtmiddle},
      {&Client::last, &txtlast},           {&Client::status, &txtstatus},
      {&Client::father, &txtfather},       {&Client::born, &mskborn},
      {&Client::address, &txtaddress},     {&Client::company, &txtcompany},
      {&Client::groupCode, &txtgroupcode}, {&Client::groupName, &txtgroupname},
      {&Client::name, &nameBox()}};
  for (const auto& [of, box] : boxes) {
    if (of == field) return *box;
  }
  return txtcode;
}

// The fields hold what was typed; it is stored by the next try.
void frmClient::takenBack() {
  lblhint.setCaption(unsaved);
  logErrors("TAKENBACK", [&] { fillLists(); });
}

LayoutItem frmClient::layout() {
  const LayoutItem person =
      framed(famperson,
             {row({field("&First name", txtfirst, 16, 1), field("&Middle name", txtmiddle, 16, 1),
                   field("&Last name", txtlast, 16, 1)})});
  return column(
      {row({field("&Code", txtcode, 16), item(optfirm), item(optperson), gap()}),
       stack({framed(famfirm, {row({field("&Name", txtname, 50, 1)})}), person}, 0),
       row({field("&Status", txtstatus, 24, 1), named("Statuses that match", item(vsfstatus)),
            field("&Date of birth or incorporation", mskborn, 12)}),
       row({field("Fat&her or husband", txtfather, 24, 1),
            field("Compan&y name", txtcompany, 24, 1)}),
       row({field("&Address", txtaddress, 50, 1)}),
       row({field("&Group code", txtgroupcode, 14), named("Groups that match", item(vsfgroup)),
            field("Gro&up name", txtgroupname, 24, 1)}),
       row({item(chkpassword), field("Passwo&rd", txtpassword, 14, 1),
            named("Password again", field("Aga&in", txtagain, 14, 1))}),
       item(lblhint), gap(), row({gap(), item(cmdsave), item(cmdcancel)})});
}

}  // namespace quillet::suite
