#include "journey/player.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "journey/keyboard.h"
#include "journey/picture.h"
#include "journey/screen.h"

namespace quillet::journey {
namespace {

using windows::asLong;
using windows::asObject;
using windows::asText;
using windows::asTruth;
using windows::Late;

// How long a step may take to show what it leads to.
constexpr unsigned long patienceMs = 15000;
// What is drawn late, such as a list below a box, has been drawn by then.
constexpr unsigned long settlingMs = 100;

std::string compared(const std::string& actual, const std::string& expected) {
  if (actual == expected) return {};
  return "expected \"" + expected + "\", got \"" + actual + "\"";
}

std::deque<std::string> words(const std::string& text) {
  std::istringstream stream(text);
  std::deque<std::string> found;
  for (std::string word; stream >> word;) found.push_back(word);
  return found;
}

// "\t" stands between cells, "\n" between rows.
std::string cellsIn(std::string text) {
  for (const auto& [mark, end] : {std::pair{"\\n", "\r\n"}, std::pair{"\\t", "\t"}}) {
    for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark, at)) {
      text.replace(at, std::strlen(mark), end);
    }
  }
  return text;
}

}  // namespace

Player::Player(std::vector<Step> steps, const std::string& record)
    : steps_(std::move(steps)),
      folder_(std::filesystem::path(record).parent_path()),
      record_(record, std::ios::binary),
      forms_(Late::create("PrjQuillet.Forms")),
      practice_(Late::create("QuilletTest.Practice")),
      kept_(Late::create("QuilletTest.Kept")) {}

bool Player::next() {
  if (!failure_.empty() || at_ == steps_.size()) return false;
  const Step& step = steps_[at_];
  try {
    if (!always_.empty() && answered(messageBox())) return true;
    if (!begun_) {
      begun_ = true;
      deadline_ = GetTickCount() + patienceMs;
      begin(step);
      return true;
    }
    if (!keys_.empty()) {
      const std::string key = keys_.front();
      keys_.pop_front();
      press(key);
      return true;
    }
    const std::string difference = this->difference(step);
    if (difference.empty()) {
      finish(step);
    } else if (static_cast<long>(GetTickCount() - deadline_) > 0) {
      fail(step, difference);
    }
  } catch (const std::exception& error) {
    fail(step, error.what());
  }
  return failure_.empty();
}

void Player::begin(const Step& step) {
  answered_ = nullptr;
  if (step.verb == "show") {
    form(step.rest).call("Show");
  } else if (step.verb == "type") {
    // Typed faster than it is taken.
    for (const std::string& chord : chordsTyping(step.rest)) press(chord);
  } else if (step.verb == "paste") {
    putOnClipboard(cellsIn(split(step.rest).rest));
    keys_ = {"Ctrl+V"};
  } else if (step.verb == "press") {
    keys_ = words(step.rest);
  } else if (step.verb == "command") {
    // The control is for those who press no keys.
    keys_ = words(split(step.rest).rest);
  } else if (step.verb == "stock") {
    keys_ = words(split(split(split(step.rest).rest).rest).rest);
  } else if (step.verb == "try") {
    const auto [path, keys] = split(step.rest);
    if (canBeUsed(path)) keys_ = words(keys);
  } else if (step.verb == "answers") {
    always_ = step.rest;
  } else if (step.verb == "fail") {
    practice_.call("Fail", step.rest);
  }
}

std::string Player::difference(const Step& step) {
  if (step.verb == "forms") return formsDifference(step.rest);
  if (step.verb == "focus") return focusDifference(step.rest);
  if (step.verb == "shows") return textDifference(step.rest);
  if (step.verb == "rows") return rowsDifference(step);
  if (step.verb == "answer") return answerDifference(step.rest);
  if (step.verb == "picture") return takePicture(step.rest);
  if (step.verb == "stock") return stockDifference(step.rest);
  for (const char* verb : {"show", "type", "press", "paste", "command", "fail", "log", "report",
                           "answers", "try", "keep"}) {
    if (step.verb == verb) return {};
  }
  throw std::runtime_error("There is no such step.");
}

Late Player::form(const std::string& name) {
  return forms_.object(name == "third" ? "ObjThird" : "ObjCreate");
}

// "third.txtsearch", "frmcrtb.mnuyrs[2]".
Late Player::control(const std::string& path) {
  const auto [name, rest] = split(path, '.');
  const auto [array, index] = split(rest, '[');
  if (index.empty()) return form(name).object(array);
  return form(name).object(array, std::atoi(index.c_str()));
}

// The host does not know the forms that forms open; their windows are counted.
std::string Player::formsDifference(const std::string& names) {
  const auto expected = words(names);
  std::string actual =
      compared(std::to_string(formWindows().size()), std::to_string(expected.size()));
  for (const char* known : {"third", "frmcrtb"}) {
    const bool shown = std::find(expected.begin(), expected.end(), known) != expected.end();
    if (asTruth(form(known).call("Visible")) == shown) continue;
    actual += std::string(" ") + known + (shown ? " is not shown" : " is shown");
  }
  return actual;
}

std::string Player::focusDifference(const std::string& path) {
  const auto [name, control] = split(path, '.');
  if (name != "third" && name != "frmcrtb") return {};
  const Late active = form(name).object("ActiveControl");
  const std::string actual = active ? asText(active.call("Name")) : "nothing";
  return compared(actual, control);
}

std::string Player::textDifference(const std::string& rest) {
  const auto [path, text] = split(rest);
  return compared(asText(control(path).call("Text")), text);
}

std::string Player::rowsDifference(const Step& step) {
  std::string actual;
  const Late rows = practice_.object("Rows", step.rest);
  const Late fields = rows.object("Fields");
  for (; !asTruth(rows.call("EOF")); rows.call("MoveNext")) {
    if (!actual.empty()) actual += '\n';
    for (long i = 0; i < asLong(fields.call("Count")); ++i) {
      if (i > 0) actual += " | ";
      actual += asText(fields.object("Item", i).call("Value"));
    }
  }
  std::string expected;
  for (const std::string& line : step.expected) {
    expected += (expected.empty() ? "" : "\n") + line;
  }
  return compared(actual, expected);
}

std::string Player::answerDifference(const std::string& rest) {
  const MessageBox box = messageBox();
  // Another one may have come by now.
  if (answered_) return box.window == answered_ ? "the box is open: " + box.text : std::string();
  const auto [button, text] = split(rest);
  if (!box.window) return "there is no message box";
  if (const std::string wrong = compared(box.text, text); !wrong.empty()) return wrong;
  if (!answer(box, button)) return "the box has no button " + button;
  answered_ = box.window;
  return "the box is open";
}

// The form of the closing stock, which is the suite's, was shown for that client and table.
std::string Player::stockDifference(const std::string& rest) {
  const auto [client, more] = split(rest);
  return compared(asText(kept_.call("Stock")),
                  "LoadData " + client + " " + split(more).first + "\nShow 1\n");
}

// The lines of the error log since the last time, without the time at their head.
std::string Player::newErrors() {
  const std::string all = asText(practice_.call("Log"));
  std::istringstream lines(all.substr(logged_));
  logged_ = all.size();
  std::string found;
  for (std::string line; std::getline(lines, line);)
    found += trimmed(line.substr(line.find('\t') + 1)) + '\n';
  return found;
}

// Of the window in front, beside the record.
std::string Player::takePicture(const std::string& name) {
  const std::vector<HWND> windows = formWindows();
  if (windows.empty()) return "no form is shown";
  if (GetTickCount() < deadline_ - patienceMs + settlingMs) return "it is being drawn";
  savePicture(windows.front(), (folder_ / (name + ".bmp")).string());
  return {};
}

// Whether the form is in front and the control can be used.
bool Player::canBeUsed(const std::string& path) {
  const Late owner = form(split(path, '.').first);
  if (asLong(owner.call("hWnd")) != HandleToLong(GetForegroundWindow())) return false;
  const Late wanted = control(path);
  return asTruth(wanted.call("Enabled")) && asTruth(wanted.call("Visible"));
}

// Whether there is a box; it gets the answer that is always given, or the only one that it has. A
// dialog that has neither is left.
bool Player::answered(const MessageBox& box) {
  if (!box.window) {
    answered_ = nullptr;
    return false;
  }
  // Keys that it has been sent are on their way.
  if (answered_ != box.window && !answer(box, always_) && !answer(box, "OK")) press("Escape");
  answered_ = box.window;
  return true;
}

std::string Player::texts(const std::string& paths) {
  std::string all;
  for (const std::string& path : words(paths)) {
    const auto [name, control] = split(path, '.');
    const Late known = form(name);
    if (!asTruth(known.call("Visible"))) continue;
    all += path + "=";
    if (control != "active") {
      all += asText(this->control(path).call("Text"));
    } else if (const Late active = known.object("ActiveControl")) {
      all += asText(active.call("Name"));
    }
    all += '\n';
  }
  return all;
}

// What an answer leads to counts for the step that brought the question.
void Player::finish(const Step& step) {
  if (step.verb == "log") record_ << newErrors();
  if (step.verb == "keep") record_ << texts(step.rest);
  if (step.verb == "report") record_ << asText(kept_.call("Report"));
  if (step.verb != "answer" && step.verb != "picture") record_ << "- " << step.line << '\n';
  record_ << asText(practice_.call("Statements"));
  ++at_;
  begun_ = false;
  if (at_ == steps_.size()) failure_ = newErrors();
}

void Player::fail(const Step& step, const std::string& why) {
  failure_ = step.line + "\n" + why + "\n" + allWindows();
}

}  // namespace quillet::journey
