// A station of its own: a practice whose settings name a real server.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "editor/frmcrtb.h"
#include "journal/frmjrnl.h"
#include "server/real_server.h"
#include "support/practice.h"

namespace quillet::support {

// A data folder whose settings name these hosts, "127.0.0.1:3307,127.0.0.1:3308", and the account,
// which is its own password.
suite::DataFolder folderOfStation(const std::filesystem::path& path, const std::string& hosts,
                                  const std::string& account);

class Station {
 public:
  using Preparing = std::function<void(suite::Settings& settings)>;

  // Opens the books on the server, which are made when there are none, as that account.
  Station(const RealServer& server, const std::string& account) : Station(server.port(), account) {}
  // The same through a line to it.
  Station(unsigned port, const std::string& account, const Preparing& prepare = {})
      : Station("127.0.0.1:" + std::to_string(port), account, prepare) {}
  // To the first one of these hosts that lives. One with settings of its own makes no books.
  Station(const std::string& hosts, const std::string& account, const Preparing& prepare = {});

  suite::Practice& practice() { return *practice_; }
  Context& context() { return practice_->context(); }
  suite::UnitOfWork& unit() { return practice_->environment().unit(); }
  Answers dialogs;

  // What a person does at once.
  void act(const std::function<void()>& steps) {
    const Act running(context().openForms.acts);
    steps();
  }
  void change(const std::string& sql) {
    act([&] { unit().execute(sql); });
  }
  std::string value(const std::string& sql);

  void addYear(const std::string& client, int firstYear);
  frmcrtb& editor() { return *editor_; }
  void leave() { editor_.reset(); }
  // Shows the editor on that year.
  frmcrtb& open(const std::string& client, int firstYear);
  static void type(TextBox& box, const std::string& keys);
  void enter(const std::string& ledger, const std::string& group, const std::string& amount);
  // The journal of the year in the editor, and a new voucher typed there: ledgers that are new, all
  // questions answered with Yes. Update stores it.
  frmjrnl& openJournal();
  void pass(frmjrnl& journal, int lines);
  std::vector<std::string> notices();
  // How often it was said that the server is waited for.
  long waited() const { return frontEnd_.serverWaited; }

 private:
  TemporaryFolder folder_;
  suite::HeadlessFrontEnd frontEnd_{dialogs};
  suite::SystemClock clock_;
  std::unique_ptr<suite::Practice> practice_;
  std::unique_ptr<frmcrtb> editor_;
};

}  // namespace quillet::support
