// The main page, the popup menu and the help of the suite: one line each to the front end.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "suite/front_end.h"

namespace quillet::suite {

class FrontEndPorts : public MainPage, public PopupMenu, public Help {
 public:
  explicit FrontEndPorts(FrontEnd& frontEnd) : frontEnd_(frontEnd) {}

  void showClient(const std::string& code, const std::string& name) override {
    frontEnd_.showClient(code, name);
  }
  int choose(const std::vector<std::string>& entries) override { return frontEnd_.popup(entries); }
  void setHelpTopic(std::string topic) { helpTopic_ = std::move(topic); }
  void Show() override { frontEnd_.help(helpTopic_); }

 private:
  FrontEnd& frontEnd_;
  std::string helpTopic_;
};

}  // namespace quillet::suite
