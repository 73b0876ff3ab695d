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

void Control::setCaption(std::string caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  touch();
}

void Control::setEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  touch();
}

void Control::setVisible(bool visible) {
  if (visible == visible_) return;
  visible_ = visible;
  touch();
}

void Control::setToolTip(std::string text) {
  toolTip_ = std::move(text);
  touch();
}

bool Control::shown() const { return visible_ && (frame_ == nullptr || frame_->shown()); }

}  // namespace quillet
