// Plays a journey by keys. It is driven by a timer, whose message comes when there is no other:
// what the keys before led to is done by then, also while a message box is open. play.lua plays the
// same steps on the forms themselves.
#pragma once

#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "journey/screen.h"
#include "journey/steps.h"
#include "windows/com/late.h"

namespace quillet::journey {

class Player {
 public:
  // `record` gets the statements that each step sends; pictures go into its folder.
  Player(std::vector<Step> steps, const std::string& record);

  // Goes on; false at the end.
  bool next();
  // What went wrong, "" when nothing did.
  const std::string& failure() const { return failure_; }

 private:
  void begin(const Step& step);
  void command(const std::string& keys);
  // What is still to be seen; "" when it is.
  std::string difference(const Step& step);
  std::string formsDifference(const std::string& names);
  std::string focusDifference(const std::string& path);
  std::string textDifference(const std::string& rest);
  std::string rowsDifference(const Step& step);
  std::string answerDifference(const std::string& rest);
  std::string stockDifference(const std::string& rest);
  std::string newErrors();
  bool canBeUsed(const std::string& path);
  bool answered(const MessageBox& box);
  std::string texts(const std::string& paths);
  std::string takePicture(const std::string& name);
  windows::Late form(const std::string& name);
  windows::Late control(const std::string& path);
  void finish(const Step& step);
  void fail(const Step& step, const std::string& why);

  std::vector<Step> steps_;
  std::filesystem::path folder_;
  std::size_t at_ = 0;
  bool begun_ = false;
  std::string always_;       // the answer to every question, "" when each is told
  HWND answered_ = nullptr;  // the box
  unsigned long deadline_ = 0;
  std::deque<std::string> keys_;  // to be pressed yet
  std::ofstream record_;
  windows::Late forms_;
  windows::Late practice_;  // the suite's books and what it recorded
  windows::Late kept_;      // what its other parts were handed
  std::size_t logged_ = 0;  // bytes of the error log that were read
  std::string failure_;
};

}  // namespace quillet::journey
