// What every control has: a name under which its form finds it, what it shows, whether it can be
// used, and the handlers its form attached. Controls are models: they know nothing of pixels. A
// view redraws a control when its version has moved on.
#pragma once

#include <string>
#include <utility>

#include "controls/event.h"
#include "controls/key.h"

namespace quillet {

class Form;
class Frame;

class Control {
  // Ahead of the events, which refer to them.
  Form& form_;
  const unsigned id_;
  std::string name_;

 public:
  // An index from 0 marks a member of a control array; the members share the name.
  Control(Form& form, std::string name, std::string caption = {}, int index = -1);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& name() const { return name_; }
  int index() const { return index_; }
  Form& form() const { return form_; }
  // From 1; unlike its address never another control's of the form.
  unsigned id() const { return id_; }

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption);
  // What the control shows: its text where it has one, else its caption.
  virtual std::string text() const { return caption_; }

  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled);
  bool visible() const { return visible_; }
  void setVisible(bool visible);
  const std::string& toolTip() const { return toolTip_; }
  void setToolTip(std::string text);

  // The frame that holds the control; set by the form's arrangement.
  Frame* frame() const { return frame_; }
  void placeIn(Frame* frame) { frame_ = frame; }

  // Visible, and so is every frame around it.
  bool shown() const;
  // Whether the kind of control can hold the focus at all, and whether this one can now.
  virtual bool takesFocus() const { return false; }
  bool focusable() const { return takesFocus() && enabled_ && shown(); }
  // Left out of the tab order when false; a click still focuses it.
  bool tabStop = true;
  // Whether the control that loses the focus to this one is validated first; a command that gives
  // an entry up, or checks it whole by itself, says no.
  bool causesValidation = true;

  unsigned version() const { return version_; }

  // Whether a click reaches it now, and what the click does; by itself it runs Click.
  virtual bool clickable() const { return enabled_ && shown(); }
  virtual void clicked() { Click(); }

  // What the control does by itself with a key that no handler discarded; true when it used it.
  virtual bool handleKey(Key) { return false; }

  // What a kind of control checks by itself, whatever handlers are attached: a character before
  // KeyPress sees it (zero discards it), its text before LostFocus.
  virtual void checkKey(Key&) {}
  virtual void checkLeft() {}

  // Handlers, in the order in which a person causes them.
  Event<> GotFocus{form_, name_, "GOTFOCUS"};
  // Every key; zero discards it.
  Event<Key&> KeyDown{form_, name_, "KEYDOWN"};
  // Characters, Enter, Tab, Escape, Backspace; may replace the key.
  Event<Key&> KeyPress{form_, name_, "KEYPRESS"};
  Event<> Change{form_, name_, "CHANGE"};
  Event<> Click{form_, name_, "CLICK"};
  Event<> DblClick{form_, name_, "DBLCLICK"};
  // Before the focus leaves; true keeps it.
  Event<bool&> Validate{form_, name_, "VALIDATE"};
  Event<> LostFocus{form_, name_, "LOSTFOCUS"};
  // A range of cells was pasted; where nothing is attached it is pasted as any other text.
  Event<const std::string&> PasteCells{form_, name_, "PASTECELLS"};

 protected:
  void touch();
  // Sets a property that a view shows.
  template <class T>
  void set(T& property, T value) {
    if (property == value) return;
    property = std::move(value);
    touch();
  }

 private:
  std::string caption_;
  std::string toolTip_;
  int index_;
  bool enabled_ = true;
  bool visible_ = true;
  Frame* frame_ = nullptr;
  unsigned version_ = 1;
};

}  // namespace quillet
