// The module on a host with a folder of its own and one client's year of three lines.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "host/forms.h"
#include "ports/suite.h"
#include "windows/host/windows_clock.h"

namespace quillet::fakes {

// Answers the dialogs and writes down what the boxes say.
class WrittenDialogs : public Dialogs {
 public:
  std::vector<std::string> told;
  std::filesystem::path target;  // to save to

  Answer MsgBox(const Message& message) override {
    told.push_back(message.text);
    return message.buttons == Buttons::OK ? Answer::OK : Answer::Yes;
  }
  std::optional<std::string> saveFile(const std::string& filter,
                                      const std::string& proposed) override;
  std::optional<std::string> password(const std::string&) override { return std::nullopt; }
};

struct Practice : Environment {
  Practice();
  ~Practice() override;

  Suite suite;
  WrittenDialogs boxes;
  std::filesystem::path folder;  // of the host's program; its name has a letter beyond ASCII
  std::string failing;           // a statement that holds this fails
  std::size_t clients = 1;       // in the register, at most two

  // The module, made when it is first asked for.
  Forms& forms();
  // With the year set that has lines.
  Form& editor();
  std::vector<std::string> logged() const;

  std::unique_ptr<ServiceObject> createServiceObject() override { return suite.newService(); }
  std::unique_ptr<Reporter> createReporter() override;
  std::unique_ptr<StockForms> createStockForms(OpenForms& openForms) override;
  std::unique_ptr<Spreadsheet> createSpreadsheet() override;
  Dialogs& dialogs() override { return boxes; }
  Clock& clock() override { return clock_; }

 private:
  void answerOperations();
  Variant rows(const std::string& sql) const;

  windows::WindowsClock clock_;
  Pointer<Recorder> reporter_ = Pointer<Recorder>::attach(new Recorder);
  std::unique_ptr<Forms> forms_;
};

}  // namespace quillet::fakes
