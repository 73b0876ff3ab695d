// Acts: an act is one thing that a person does - a key, a click, a choice, showing or closing a
// form - with everything that follows from it. Acts nest, since one event causes others; the
// outermost one counts. Forms know nothing of it. The host does, so that it can keep in the
// database either all that an act changed or nothing.
#pragma once

#include <functional>
#include <string>

namespace quillet {

// What a person did, in words.
struct ActName {
  std::string form;     // its title
  std::string command;  // "Save", "Enter in Credit Amount"
};

class Acts {
 public:
  bool running() const { return depth_ > 0; }
  // Of the running act; empty when it has none.
  const ActName& name() const { return name_; }
  // The number of the running act. It moves on when the host keeps for good what the act has done
  // so far: what follows can be taken back by itself.
  unsigned long number() const { return number_; }
  void kept() { ++number_; }

  // A procedure of a form begins, "TXTDRCR_KEYPRESS"; an error ends it before it has done anything.
  std::function<void(const std::string& form, const std::string& procedure)> onProcedure;
  // The outermost act begins.
  std::function<void()> onBegun;
  // The outermost act is done; it still counts as running. Must not throw.
  std::function<void()> onEnded;

 private:
  friend class Act;
  int depth_ = 0;
  unsigned long number_ = 0;
  ActName name_;
};

// An act runs for as long as this object lives.
class Act {
 public:
  explicit Act(Acts& acts) : acts_(acts) {
    if (acts_.depth_ == 0) begin();
    ++acts_.depth_;
  }
  // `name` makes an ActName; the first one within an act that has a command counts.
  template <class Name>
  Act(Acts& acts, Name name) : Act(acts) {
    if (acts_.name_.command.empty()) acts_.name_ = name();
  }
  ~Act() {
    if (acts_.depth_ == 1 && acts_.onEnded) acts_.onEnded();
    --acts_.depth_;
  }
  Act(const Act&) = delete;
  Act& operator=(const Act&) = delete;

 private:
  // An act that cannot begin leaves none running.
  void begin() {
    ++acts_.number_;
    acts_.name_ = {};
    if (acts_.onBegun) acts_.onBegun();
  }

  Acts& acts_;
};

}  // namespace quillet
