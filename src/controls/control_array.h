// Controls that share a name and are told apart by their index, from 0.
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "controls/form.h"

namespace quillet {

template <class T>
class ControlArray {
 public:
  // One member for each caption, with any more arguments of the members' constructors.
  template <class... Args>
  ControlArray(Form& form, std::string name, std::initializer_list<std::string> captions,
               Args&&... args)
      : form_(form), name_(std::move(name)) {
    for (const std::string& caption : captions) load(caption, args...);
  }

  // Adds the next member.
  template <class... Args>
  T& load(const std::string& caption, Args&&... args) {
    members_.push_back(std::make_unique<T>(form_, name_, caption, size(), args...));
    return *members_.back();
  }
  // Removes the last member.
  void unload() { members_.pop_back(); }

  T& operator[](int index) { return *members_.at(static_cast<std::size_t>(index)); }
  const T& operator[](int index) const { return *members_.at(static_cast<std::size_t>(index)); }
  int size() const { return static_cast<int>(members_.size()); }

  auto begin() { return members_.begin(); }
  auto end() { return members_.end(); }

 private:
  Form& form_;
  std::string name_;
  std::vector<std::unique_ptr<T>> members_;
};

}  // namespace quillet
