// The lists under the text boxes of a form's window.
#pragma once

#include <windows.h>

#include <map>
#include <memory>

#include "controls/form.h"
#include "view/action_runner.h"
#include "windows/ui/drop_down.h"
#include "windows/ui/form_views.h"

namespace quillet::windows {

class DropDowns {
 public:
  DropDowns(Form& form, view::ActionRunner& runner, HWND window)
      : form_(form), runner_(runner), window_(window) {}

  // Makes those that are missing and takes those away whose grids the form has removed.
  void arrange();
  void setMetrics(const Metrics& metrics);
  // Draws them under their fields as those stand now.
  void refresh(const FormViews& views);
  void detach();

 private:
  Form& form_;
  view::ActionRunner& runner_;
  HWND window_;
  const Metrics* metrics_ = nullptr;
  std::map<unsigned, std::shared_ptr<DropDown>> lists_;  // by the id of their grids
};

}  // namespace quillet::windows
