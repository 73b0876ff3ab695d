// A front end without a display, for scripts, tests and the command line: nothing is drawn, and
// what would have been shown can be read.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "suite/document.h"
#include "suite/front_end.h"

namespace quillet::suite {

class HeadlessFrontEnd : public FrontEnd {
 public:
  explicit HeadlessFrontEnd(Dialogs& dialogs) : dialogs_(dialogs) {}

  // The answer to the next popup menu: position from 1, 0 for none.
  void queuePopup(int position) { popups_.push_back(position); }

  Screen size;  // what screen() returns
  bool busy = false;
  std::string progress;             // the last text
  long done = 0, total = 0;         // the last state of the bar
  long waits = 0;                   // how often the work said that it waits
  long serverWaited = 0;            // how often it was said that the server is waited for
  long updates = 0;                 // how often text or bar changed
  std::string client;               // code of the client shown last
  std::vector<std::string> menu;    // entries of the popup menu shown last
  std::vector<std::string> topics;  // help topics shown, in order

  Dialogs& dialogs() override { return dialogs_; }
  Screen screen() const override { return size; }
  void showProgress(bool show) override { busy = show; }
  void progressText(const std::string& text) override;
  void progressBar(long doneSteps, long totalSteps) override;
  void progressWaits() override { ++waits; }
  void serverWaits(bool still) override { serverWaited += still ? 1 : 0; }
  void showClient(const std::string& code, const std::string& name) override;
  int popup(const std::vector<std::string>& entries) override;
  void help(const std::string& topic) override { topics.push_back(topic); }
  std::optional<std::string> openFile(const std::string& filter,
                                      const std::string& folder) override {
    return dialogs_.saveFile(filter, folder);
  }
  void showReport(const Document&) override {}

 private:
  Dialogs& dialogs_;
  std::deque<int> popups_;
};

}  // namespace quillet::suite
