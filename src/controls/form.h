// A window as plain C++: its members are its controls, its methods its procedures. The form owns
// the focus and the order of events, so that a person, a test and a script cause exactly the same.
#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/acts.h"
#include "controls/control.h"
#include "controls/layout.h"

namespace quillet {

class OpenForms;

class Form {
 public:
  Form(OpenForms& openForms, std::string name);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption);
  // Whose books the form is on and for what period, as its reports say it; "" when a report names
  // that by itself.
  virtual std::string subject() const { return {}; }
  // The client and the year, as a file with such a report is named after them.
  virtual std::string fileSubject() const { return {}; }
  OpenForms& openForms() const { return openForms_; }
  // Tells whoever keeps it whether the form still exists; it keeps nothing alive.
  std::weak_ptr<Form> handle() const { return handle_; }

  // Opens the form: FORM_LOAD when it is not loaded, then FORM_ACTIVE. An open form comes to the
  // front.
  void show();
  // The same, and the forms below take no input until it closes; `closed` runs then.
  void showModal(std::function<void()> closed = {});
  // Runs FORM_UNLOAD, which may refuse; true when the form is closed.
  bool close();
  bool visible() const { return visible_; }
  bool modal() const { return modal_; }

  // The arrangement as it stands now; made from layout() when the form is shown and whenever a form
  // says that it changed (rows of controls were added or removed). Views compare the version.
  const LayoutItem& arrangement() const { return arrangement_; }
  unsigned arrangementVersion() const { return arrangementVersion_; }
  void arrangementChanged();
  // Describes the arrangement.
  virtual LayoutItem layout() = 0;

  // Controls in the order in which they were made.
  const std::vector<Control*>& controls() const { return controls_; }
  // Null when there is none; names compare without regard to case.
  Control* find(std::string_view name, int index = -1) const;
  bool isArray(std::string_view name) const;

  // Focus. focus() moves it as a click does: Validate of the control left (which may keep it),
  // LostFocus, GotFocus; true when it arrived.
  Control* active() const { return active_; }
  bool focus(Control& control);
  // To the next control of the tab order, as Tab does.
  void focusNext(bool backwards = false);

  // Keys. runKeyHandlers() runs the KeyDown and KeyPress handlers and returns the key left to act
  // on, 0 when it was discarded; handleKey() then does what the key does by itself. press() is
  // both.
  Key runKeyHandlers(Key key);
  void handleKey(Key key);
  void press(Key key);

  // A click on a button, option, check box or menu entry; false when it cannot be clicked now.
  bool click(Control& control);
  // Chooses the current row of a grid, as a double click on it does.
  void doubleClick(Control& control);
  // Moves the focus on when the control that had it was hidden or disabled. Views call it after
  // every event.
  void repairFocus();

  // Told by the view when the window's size changed.
  void resized();
  // Told by OpenForms when the form came to the front: FORM_ACTIVE.
  void activate();

  // What the last act changed in the database was taken back: the form forgets what it remembered
  // of it and shows what is stored.
  virtual void takenBack() {}

  // Other stations have changed the books, or the masters too: the form shows what is stored, and
  // keeps what is being typed.
  virtual void booksMoved(bool masters) { (void)masters; }

  // Wanted size as a share of the screen, and the factor for the font; set by the service object's
  // resize_for_resolution.
  struct Size {
    double width = 0.8;
    double height = 0.8;
    double font = 1.0;
  };
  Size size;

  // Moves on when the caption, a control or the focus changed.
  unsigned version() const { return version_; }
  void touch() { ++version_; }

  // Runs a procedure's body, the form's or that of one of its parts; a run-time error ends it and
  // becomes one line of the error log.
  template <class Body>
  void logErrors(std::string_view procedure, Body&& body) {
    try {
      begins(procedure);
      body();
    } catch (const std::exception& error) {
      report(procedure, error);
    }
  }

  // A procedure begins that has no event or log name of its own; the host may refuse it by an
  // error.
  void begins(std::string_view procedure) const;

  // Attaches a procedure to an event; its errors are logged under that name.
  template <class... Args, class Handler>
  static void on(Event<Args...>& event, const char* procedure, Handler handler) {
    event.attach(procedure, std::move(handler));
  }

 protected:
  // The form's own procedures carry this name: FORM_LOAD.
  static const std::string eventOwner;

  virtual void load() {}
  virtual void activated() {}
  virtual void resize() {}
  virtual void unload(bool& cancel) { (void)cancel; }

  // Key preview: they see every key before the control that has the focus.
  Event<Key&> KeyDown{*this, eventOwner, "KEYDOWN"};
  Event<Key&> KeyPress{*this, eventOwner, "KEYPRESS"};

 private:
  friend class Control;
  friend void reportTrapped(const Form& form, const std::string& owner, const char* name,
                            const std::exception& error) noexcept;
  friend void reportTrapped(const Form& form, const char* procedure) noexcept;
  unsigned adopt(Control& control);
  void disown(Control& control);
  void moveFocus(Control* to);
  ActName nameOf(const Control* control, Key key) const;
  Control* nextFocusable(Control* from, bool backwards) const;
  friend void procedureBegins(const Form& form, const std::string& owner, const char* name);
  friend void procedureBegins(const Form& form, const char* procedure);
  void report(std::string_view procedure, const std::exception& error) const noexcept;

  OpenForms& openForms_;
  std::shared_ptr<Form> handle_{this, [](Form*) {}};
  std::string name_;
  std::string caption_;
  std::vector<Control*> controls_;
  unsigned adopted_ = 0;
  LayoutItem arrangement_;
  unsigned arrangementVersion_ = 0;
  Control* active_ = nullptr;
  Control* redirected_ = nullptr;  // where a handler sent the focus while it was moving
  bool moving_ = false;
  bool loaded_ = false;
  bool visible_ = false;
  bool modal_ = false;
  std::function<void()> closed_;
  unsigned version_ = 1;
};

}  // namespace quillet
