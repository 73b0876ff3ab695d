// A place where a form attaches what it does when something happens to a control or to itself.
#pragma once

#include <exception>
#include <functional>
#include <string>
#include <utility>

namespace quillet {

class Form;

// A procedure of the form begins: the one attached under a name, or that of the owner's event. What
// it throws ends the procedure.
void procedureBegins(const Form& form, const std::string& owner, const char* name);
void procedureBegins(const Form& form, const char* procedure);
// The error becomes one line of the error log, under the name of the form and "OWNER_NAME" in
// capitals.
void reportTrapped(const Form& form, const std::string& owner, const char* name,
                   const std::exception& error) noexcept;
// The same for the exception that is being handled, whatever its type.
void reportTrapped(const Form& form, const std::string& owner, const char* name) noexcept;
// The same under the name of a procedure.
void reportTrapped(const Form& form, const char* procedure) noexcept;

// No exception leaves a handler, so that none reaches the view or the program that runs it.
template <class... Args>
class Event {
 public:
  // All of them outlive the event.
  Event(const Form& form, const std::string& owner, const char* name)
      : form_(form), owner_(owner), name_(name) {}
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;

  // Attaches the handler in place of the one before. Its errors are logged under "OWNER_NAME".
  template <class Handler>
  Event& operator=(Handler handler) {
    handler_ = std::move(handler);
    procedure_ = nullptr;
    return *this;
  }
  // The same for a procedure whose name is another one.
  template <class Handler>
  void attach(const char* procedure, Handler handler) {
    handler_ = std::move(handler);
    procedure_ = procedure;
  }
  explicit operator bool() const { return static_cast<bool>(handler_); }

  // Runs the handler, if one is attached.
  void operator()(Args... args) const noexcept {
    if (!handler_) return;
    try {
      if (procedure_) {
        procedureBegins(form_, procedure_);
      } else {
        procedureBegins(form_, owner_, name_);
      }
      handler_(static_cast<Args>(args)...);
    } catch (...) {
      if (procedure_) {
        reportTrapped(form_, procedure_);
      } else {
        reportTrapped(form_, owner_, name_);
      }
    }
  }

 private:
  const Form& form_;
  const std::string& owner_;
  const char* name_;
  const char* procedure_ = nullptr;
  std::function<void(Args...)> handler_;
};

}  // namespace quillet
