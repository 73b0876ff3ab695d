#include "controls/control.h"

#include "controls/form.h"

namespace quillet {

Control::Control(Form& form, std::string name, std::string caption, int index)
    : form_(form),
      id_(form.adopt(*this)),
      name_(std::move(name)),
      caption_(std::move(caption)),
      index_(index) {}

Control::~Control() { form_.disown(*this); }

void Control::touch() {
  ++version_;
  form_.touch();
}

void Control::setCaption(std::string caption) { set(caption_, std::move(caption)); }

void Control::setEnabled(bool enabled) { set(enabled_, enabled); }

void Control::setVisible(bool visible) { set(visible_, visible); }

void Control::setToolTip(std::string text) { set(toolTip_, std::move(text)); }

bool Control::shown() const { return visible_ && (frame_ == nullptr || frame_->shown()); }

}  // namespace quillet
