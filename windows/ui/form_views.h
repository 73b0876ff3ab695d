// The views of a form's controls and the labels before or above them, in the form's arrangement.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "controls/form.h"
#include "view/action_runner.h"
#include "view/kept_places.h"
#include "windows/ui/control_view.h"
#include "windows/ui/layout.h"
#include "windows/ui/metrics.h"

namespace quillet::windows {

class FormViews {
 public:
  FormViews(Form& form, view::ActionRunner& runner, view::KeptPlaces& kept, HWND window)
      : form_(form), runner_(runner), kept_(kept), window_(window) {}
  ~FormViews();
  FormViews(const FormViews&) = delete;
  FormViews& operator=(const FormViews&) = delete;

  // Makes the views that are missing and takes away those that the arrangement has no place for.
  void arrange();
  void setMetrics(const Metrics& metrics);
  void refresh();
  struct Needs {
    SIZE least{};  // nothing is cut
    SIZE bare{};   // names are narrower than they should be
  };
  // Puts all that is shown where it belongs, and tells what room that needs.
  Needs place(const RECT& room);
  // The least room that it could do with in these fonts.
  SIZE bare(const Metrics& metrics) const;
  // Controls of Windows are told by their parent that colours or fonts of the system changed.
  void systemChanged(UINT message, WPARAM wide, LPARAM longer);
  void detach();

  // Null for a control that has no place, or that the form has removed.
  ControlView* viewOf(const Control* control) const;
  ControlView* viewOf(HWND window) const;

 private:
  struct Placed {
    std::unique_ptr<ControlView> view;
    HWND label = nullptr;
    std::string labelText;
    RECT at{};
    RECT labelAt{};
  };

  struct Move {
    HWND window;
    RECT to;
  };

  void add(const LayoutItem& node, const view::Place& place);
  static void perform(const std::vector<Move>& moves);
  void setLabel(Placed& placed, const std::string& text);
  void order(const LayoutItem& node, HWND& below);
  Piece pieceOf(const LayoutItem& node, const Metrics& metrics) const;
  static void put(Placed& placed, const Placement& placement, std::vector<Move>& moves);

  Form& form_;
  view::ActionRunner& runner_;
  view::KeptPlaces& kept_;
  HWND window_;
  const Metrics* metrics_ = nullptr;
  std::map<unsigned, Placed> views_;  // by the id of their controls
};

}  // namespace quillet::windows
