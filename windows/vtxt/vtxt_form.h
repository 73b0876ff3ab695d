// The form that the box stands in. The container's other controls are one control of it, so that
// the core sees the focus come and go.
#pragma once

#include "controls/form.h"
#include "controls/vtxt.h"

namespace quillet::windows {

class VTxtForm : public Form {
 public:
  explicit VTxtForm(OpenForms& openForms) : Form(openForms, "VTxt") {}

  class Others : public Control {
   public:
    using Control::Control;
    bool takesFocus() const override { return true; }
  };
  Others others{*this, "others"};  // first: they have the focus at the start
  VTxt box{*this, "VTxt"};

  LayoutItem layout() override { return item(box); }
};

}  // namespace quillet::windows
