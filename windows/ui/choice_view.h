// Combo boxes and lists: items and the chosen one come from the model; a choice goes to it.
#pragma once

#include <vector>

#include "controls/choice.h"
#include "windows/ui/control_view.h"

namespace quillet::windows {

class ComboView : public ControlView {
 public:
  ComboView(ComboBox& combo, view::ActionRunner& runner, HWND parent);

  void command(WORD code) override;

 protected:
  void draw() override;
  std::optional<LRESULT> received(const WindowMessage& message) override;

 private:
  bool isOpen() const { return SendMessageW(window(), CB_GETDROPPEDSTATE, 0, 0) != 0; }
  void choose();
  std::optional<LRESULT> search(Key letter);
  std::optional<LRESULT> handleOpen(const WindowMessage& message);

  ComboBox& model_;
  std::vector<std::string> items_;  // as they were filled in
};

class ListView : public ControlView {
 public:
  ListView(ListBox& list, view::ActionRunner& runner, HWND parent);

  SIZE wantedSize(const Metrics& metrics) const override;
  void command(WORD code) override;

 protected:
  void draw() override;
  bool commandKey(WPARAM code) override;

 private:
  ListBox& model_;
  std::vector<std::string> items_;
};

}  // namespace quillet::windows
